#include <vector>

#include "host/program/Program.h"
#include "host/program/Subcommands.h"

int main(int argumentCount, char** arguments) {
  using namespace quobrak::host;
  return static_cast<int>(runProgram(subcommands(), {arguments + 1, arguments + argumentCount}));
}
