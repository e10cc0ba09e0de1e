// Writes the pictures of terminals that the documentation shows. Arguments: the folder of the programs, the root of the
// sources, and the folder for the pictures.

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "host/pictures/Scenes.h"

namespace {

namespace fs = std::filesystem;
using namespace quobrak::host;

/// An empty folder that goes with its owner.
class EmptyFolder {
 public:
  EmptyFolder() {
    std::string name = (fs::temp_directory_path() / "quobrak-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("no folder can be made in " + fs::temp_directory_path().string());
    }
    path_ = name;
  }
  ~EmptyFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  EmptyFolder(const EmptyFolder&) = delete;
  EmptyFolder& operator=(const EmptyFolder&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

void draw(const fs::path& programs, const fs::path& sources, const fs::path& pictures) {
  for (const Scene& scene : scenes()) {
    const EmptyFolder folder;
    const fs::path file = pictures / (scene.name + ".svg");
    std::ofstream stream(file, std::ios::binary);
    if (!(stream << pictureOf(scene, {.programs = programs, .sources = sources, .folder = folder.path()})
                 << std::flush)) {
      throw std::runtime_error("the file " + file.string() + " cannot be written");
    }
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 4) {
    std::cerr << "terminalPictures: name the folders of the programs, of the sources and of the pictures\n";
    return 2;
  }
  try {
    draw(fs::canonical(arguments[1]), fs::canonical(arguments[2]), arguments[3]);
  } catch (const std::exception& error) {
    std::cerr << "terminalPictures: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
