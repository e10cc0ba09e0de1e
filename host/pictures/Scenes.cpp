#include "host/pictures/Scenes.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <memory>
#include <regex>
#include <stdexcept>

#include "host/pictures/TerminalPicture.h"

namespace quobrak::host {

namespace {

struct ShellEnd {
  std::string printed;
  int status = 0;
};

std::string quoted(const std::string& text) {
  return "'" + std::regex_replace(text, std::regex("'"), R"('\'')") + "'";
}

/// Runs a line of bash in the folder of the stage, with an environment that is the same everywhere.
ShellEnd runLine(const std::string& line, const Stage& stage) {
  constexpr int CANNOT_BE_RUN = 126;
  const std::string command =
      "exec 2>&1; cd " + quoted(stage.folder.string()) + " && exec env -i HOME=" + quoted(stage.folder.string()) +
      " PATH=" + quoted(stage.programs.string() + ":/usr/bin:/bin") +
      " LANG=C.UTF-8 TZ=UTC TERM=xterm-256color CLICOLOR_FORCE=1 bash --norc -c " + quoted(line);
  std::FILE* const output = ::popen(command.c_str(), "re");
  if (output == nullptr) {
    throw std::runtime_error("no shell can be started for: " + line);
  }
  ShellEnd end;
  std::array<char, 4096> part{};
  for (std::size_t size = 0; (size = std::fread(part.data(), 1, part.size(), output)) > 0;) {
    end.printed.append(part.data(), size);
  }
  const int status = ::pclose(output);
  end.status = WIFEXITED(status) ? WEXITSTATUS(status) : CANNOT_BE_RUN;
  if (end.status >= CANNOT_BE_RUN) {
    throw std::runtime_error("the line cannot be run: " + line + "\n" + end.printed);
  }
  return end;
}

std::string masked(std::string text, const Scene& scene, const Stage& stage) {
  const std::string folder = stage.folder.string();
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
    text.replace(at, folder.size(), "~");
  }
  for (const Mask& mask : scene.masks) {
    text = std::regex_replace(text, std::regex(mask.pattern), mask.replacement);
  }
  return text;
}

void prepare(const Scene& scene, const Stage& stage) {
  std::filesystem::create_directory_symlink(stage.sources / "examples", stage.folder / "examples");
  if (const ShellEnd end = runLine(scene.preparation, stage); end.status != 0) {
    throw std::runtime_error("what " + scene.name + " needs cannot be laid out: " + end.printed);
  }
}

}  // namespace

const std::vector<Scene>& scenes() {
  static const std::vector<Scene> SCENES{
      {.name = "check",
       .title = "quobrak check tells what is wrong with a script, line by line, and what would be right",
       .preparation = R"(cat >login.txt <<'END'
applicationStart,com.example.shop
clickByTxt,Browse products
measureStart,ShowProduct
pause,2s
clickByText,${PRODUCT}
END
)",
       .lines = {"quobrak check login.txt"}},
      {.name = "run",
       .title = "quobrak run rehearses a script and shows its measured steps in a table",
       .preparation = {},
       .lines = {"quobrak run --clock virtual --iterations 3 --var PRODUCT=Lamp examples/shop/order.txt"},
       .masks = {{.pattern = "after [0-9.]+ m?s", .replacement = "after 90 ms"},
                 {.pattern = "[0-9]{4}-[0-9]{2}-[0-9]{2}-[0-9]{6}", .replacement = "2026-03-01-140509"}}},
      {.name = "phone",
       .title = "quobrak phone shows what a selector finds on a screen of the simulated phone",
       .preparation = {},
       .lines = {"quobrak phone --application com.example.shop --screen product --text basket"}}};
  return SCENES;
}

std::string pictureOf(const Scene& scene, const Stage& stage) {
  prepare(scene, stage);
  std::vector<Exchange> exchanges;
  for (const std::string& line : scene.lines) {
    exchanges.push_back({.typed = line, .printed = masked(runLine(line, stage).printed, scene, stage)});
  }
  return terminalPicture(scene.title, exchanges);
}

}  // namespace quobrak::host
