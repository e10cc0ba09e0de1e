// Writes what is installed beside the program and is made of what it declares: its manual pages (in "man1") and its
// completions. The one argument is the folder for them, which is made where it is missing.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "host/program/BashCompletion.h"
#include "host/program/CommandLine.h"
#include "host/program/FishCompletion.h"
#include "host/program/ManualPage.h"
#include "host/program/Subcommands.h"
#include "host/program/ZshCompletion.h"

namespace {

using namespace quobrak::host;

void write(const std::filesystem::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text << std::flush)) {
    throw std::runtime_error("the file " + file.string() + " cannot be written");
  }
}

void writePages(const std::filesystem::path& folder) {
  const CommandLine commandLine(subcommands());
  const DeclaredProgram& program = commandLine.program();
  const std::filesystem::path manual = folder / "man1";
  std::filesystem::create_directories(manual);
  write(manual / "quobrak.1", manualOfProgram(program, programVersion()));
  for (const DeclaredCommand& subcommand : program.subcommands) {
    write(manual / ("quobrak-" + subcommand.name + ".1"), manualOfSubcommand(subcommand, programVersion()));
  }
  write(folder / "quobrak.bash", bashCompletion(program));
  write(folder / "quobrak.zsh", zshCompletion(program));
  write(folder / "quobrak.fish", fishCompletion(program));
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::cerr << "quobrakPages: name the folder to write to, and nothing else\n";
    return 2;
  }
  try {
    writePages(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << "quobrakPages: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
