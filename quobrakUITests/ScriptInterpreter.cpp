#include <deque>
#include <optional>
#include <string>

#include "platform/foundation/FatalError.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/Replacing.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/ScriptLines.h"
#include "quobrakUITests/ScriptVariables.h"
#include "quobrakUITests/quobrakUITests.h"

namespace quobrak {

namespace {

/// "Error on line TEXT (line: NUMBER). Cause: CAUSE"
std::string lineReport(std::string_view text, std::size_t number, std::string_view cause) {
  return "Error on line " + std::string(text) + " (line: " + std::to_string(number) + "). Cause: " + std::string(cause);
}

/// Replaces the line's references until it has none. A value may refer to further variables; one that refers to itself
/// has no end.
std::string substituted(std::string_view rawLine, std::size_t number) {
  std::string line(trimmedBlanks(rawLine));
  while (const std::optional<VariableReference> reference = firstReference(line)) {
    const std::string name(reference->name());
    const std::optional<std::string> value = ProcessInfo::environmentVariable(name);
    if (!value) {
      throw FWKTError::envVariableError(lineReport(rawLine, number, missingVariableCause(name)));
    }
    line = replacingOccurrences(line, reference->text, *value);
  }
  return line;
}

/// All lines of a script, ready to run.
class PreparedScript {
 public:
  /// `script` must outlive it. Throws for a variable that is not set.
  explicit PreparedScript(std::string_view script) {
    ScriptLines lines(script);
    for (std::size_t number = 1; const auto rawLine = lines.next(); ++number) {
      const std::string_view line = trimmedBlanks(*rawLine);
      if (!isSkipped(line) && mayHaveReference(line)) {
        lines_.push_back(substitutedLines_.emplace_back(substituted(*rawLine, number)));
      } else {
        lines_.push_back(line);
      }
    }
  }

  const std::vector<std::string_view>& lines() const { return lines_; }

 private:
  std::vector<std::string_view> lines_;
  /// What the lines of `lines_` that were changed point into; a deque never moves its elements.
  std::deque<std::string> substitutedLines_;
};

/// Tells the observer, if there is one, of a line before and after `command` has run.
template <class Command>
void observed(std::size_t number, std::string_view line, Command command) {
  RunObserver* const observer = RunObserver::installed();
  if (observer == nullptr) {
    command();
    return;
  }
  observer->lineStarted(number, line);
  const Clock::TimePoint start = Clock::shared().now();
  const auto finish = [&](const std::exception* error) {
    observer->lineFinished(number, line, Clock::shared().now() - start, error);
  };
  try {
    command();
  } catch (const std::exception& error) {
    finish(&error);
    throw;
  }
  finish(nullptr);
}

}  // namespace

void quobrakUITests::executeActions(std::string_view script) {
  const PreparedScript prepared(script);
  std::vector<std::string_view> fields;
  for (std::size_t number = 1; const std::string_view line : prepared.lines()) {
    if (!isSkipped(line)) {
      const ScriptLineNote note(number, line);
      splitAtCommas(line, fields);
      try {
        observed(number, line, [&] { executeCommand(fields); });
      } catch (const FWKTError& error) {
        if (error.errorCase() != FWKTError::Case::fdslError) {
          throw;
        }
        throw FWKTError::fdslError(lineReport(line, number, error.message()));
      }
    }
    ++number;
  }
}

}  // namespace quobrak
