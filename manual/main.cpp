// Writes docs/commands.md, the page on all commands, to standard output.

#include <exception>
#include <iostream>

#include "manual/CommandManual.h"
#include "manual/CommandNotes.h"
#include "quobrakUITests/CommandTable.h"

int main() {
  try {
    std::cout << quobrak::manual::commandManual(quobrak::commandTable(), quobrak::manual::commandNotes()) << std::flush;
  } catch (const std::exception& error) {
    std::cerr << "commandManual: " << error.what() << '\n';
    return 1;
  }
  return std::cout ? 0 : 1;
}
