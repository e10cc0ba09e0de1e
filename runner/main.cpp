#include <cstdlib>
#include <iostream>

#include "runner/TestProcess.h"

int main(int argumentCount, char**) {
  if (argumentCount > 1) {
    std::cerr << "quobrakUITests takes no arguments: what it runs is told by environment variables, such as class, "
                 "iteration and testFilePath1. docs/test-process.md explains them.\n";
    return static_cast<int>(quobrak::ExitStatus::misconfigured);
  }
  return static_cast<int>(quobrak::runTestProcess());
}
