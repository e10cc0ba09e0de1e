#pragma once

#include <functional>
#include <string>
#include <vector>

#include "quobrakUITests/quobrakUITests.h"

namespace quobrak::testing {

using Command = std::vector<std::string>;

/// The test, with commands that are kept in place of being carried out, and that can fail.
class RecordedCommands final : public quobrakUITests {
 public:
  /// The fields of each command so far.
  std::vector<Command> commands;

  /// Called with each command after it was kept; may throw.
  std::function<void(const Command& command)> meanwhile = [](const Command&) {};

  void executeCommand(FunctionParameters functionParameters) override {
    commands.emplace_back(functionParameters.begin(), functionParameters.end());
    meanwhile(commands.back());
  }
};

}  // namespace quobrak::testing
