#include "host/phone/PictureFiles.h"

#include <array>
#include <fstream>
#include <system_error>

#include "drivers/simulator/ScreenPainter.h"
#include "host/Subcommand.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/ConfinedFileManager.h"

namespace quobrak::host {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view PNG_SIGNATURE("\x89PNG\r\n\x1a\n", 8);

bool isPicture(const fs::path& file) {
  std::array<char, PNG_SIGNATURE.size()> begin{};
  std::ifstream stream(file, std::ios::binary);
  stream.read(begin.data(), begin.size());
  return stream && std::string_view(begin.data(), begin.size()) == PNG_SIGNATURE;
}

[[noreturn]] void fail(const fs::path& file, const std::string& reason) {
  throw EnvironmentError("the picture " + shown(file.string()) + " cannot be written: " + reason);
}

void makeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    throw EnvironmentError("the folder " + shown(folder.string()) + " cannot be made: " + error.message());
  }
}

}  // namespace

void writePicture(const std::optional<Data>& png, const fs::path& file) {
  if (!png) {
    fail(file, "no picture can be made of a screen of that size");
  }
  std::error_code error;
  const fs::path absolute = fs::absolute(file, error);
  if (fs::exists(fs::symlink_status(absolute, error)) && !isPicture(absolute)) {
    fail(file, "there is something of that name already that is no picture in PNG; name another file, or take it away");
  }
  try {
    ConfinedFileManager(absolute.parent_path().string()).write(*png, absolute.string());
  } catch (const FileManagerError& fault) {
    fail(file, shown(fault.what()));
  }
}

std::vector<fs::path> writePictures(const simulator::PhoneDescription& phone,
                                    const std::vector<std::string>& applications, const fs::path& folder) {
  const simulator::ScreenPainter painter(phone.size, phone.scale);
  std::vector<fs::path> written;
  for (const std::string& identifier : applications) {
    const fs::path own = folder / fileNameOf(identifier);
    makeFolder(own);
    for (const auto& [name, screen] : phone.applications.at(identifier).screens) {
      const simulator::Element* const layers[] = {screen.get()};
      written.push_back(own / (fileNameOf(name) + ".png"));
      writePicture(painter.png(layers), written.back());
    }
  }
  return written;
}

std::string fileNameOf(std::string_view name) {
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  std::string fileName;
  for (const char character : name) {
    const bool isHidden = fileName.empty() && character == '.';
    const auto byte = static_cast<unsigned char>(character);
    if (isHidden || byte < ' ' || character == '/' || character == '%') {
      fileName += {'%', DIGITS[byte / 16U], DIGITS[byte % 16U]};
    } else {
      fileName += character;
    }
  }
  return fileName;
}

}  // namespace quobrak::host
