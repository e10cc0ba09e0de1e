#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quobrakUITests/CommandRow.h"
#include "tests/conformance/ScriptFile.h"

namespace quobrak::documentation {

/// How a script that says what it does expects to end, where that is no success.
struct ProvokedFailure {
  enum class Kind { error, stop };

  Kind kind;
  std::string command;
  /// The fields of the line; none where the failure names no line.
  std::vector<std::string> fields;
  /// The words without the line.
  std::string message;
};

/// None where the script is expected to succeed, or its failure is that of no command.
std::optional<ProvokedFailure> failureProvokedBy(const conformance::ScriptFile& script);

/// Whether the words of the manual are those of the failure: <label> stands for anything, and every other name between
/// angle brackets for the argument of that label, as the failing line has it.
bool fits(std::string_view words, const ProvokedFailure& failure, const CommandRow& row);

}  // namespace quobrak::documentation
