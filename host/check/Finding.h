#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "host/check/Rules.h"

namespace quobrak::host {

/// An error keeps the run from doing what the script says; a warning may be meant so.
enum class Severity { error, warning };

/// What the run comes to where it meets the problem.
enum class Outcome {
  goesOn,
  failsScript,
  /// The test process stops: no statuses and no measures.
  abortsRun,
  /// The test process never comes to an end.
  neverEnds,
  /// The run does not begin.
  preventsRun
};

/// When the run comes to the problem, within a script. Before its first line runs it is read and prepared; a command
/// reads its arguments, and minds some values before it asks for its application and some behind that.
enum class Stage { reading, preparation, arguments, beforeApplication, application, withApplication, never };

/// What is wrong, wherever it is.
struct Problem {
  Rule rule = Rule::noCommand;
  Severity severity = Severity::error;
  Outcome outcome = Outcome::failsScript;
  Stage stage = Stage::never;
  /// The words of the run, where it has words for it.
  std::string message;
  /// What would be right, or what is to be known of it; may be empty.
  std::string hint;
};

/// A problem of a script, and where it is.
struct Finding : Problem {
  /// Which of the scripts, from 0.
  std::size_t script = 0;
  /// As the run counts them, from 1.
  std::size_t line = 1;
  /// As editors count them: a carriage return and the line feed behind it are one line end.
  std::size_t editorLine = 1;
  /// In code points of the line as it is written, from 1: where it begins, and the first one behind it.
  std::size_t column = 1;
  std::size_t endColumn = 1;
  /// The line as it is written. Never null.
  std::shared_ptr<const std::string> text = std::make_shared<const std::string>();
};

}  // namespace quobrak::host
