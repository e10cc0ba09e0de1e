#include "host/report/RunWords.h"

#include <algorithm>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

using std::chrono::nanoseconds;

/// "05".
std::string twoDigits(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string minutesInWords(std::chrono::seconds seconds) {
  const std::int64_t minutes = seconds.count() / 60;
  if (minutes < 60) {
    return std::to_string(minutes) + " min " + twoDigits(seconds.count() % 60) + " s";
  }
  return std::to_string(minutes / 60) + " h " + twoDigits(minutes % 60) + " min";
}

/// What a run without a name is.
std::string_view unnamedTitle(RunKind kind) {
  switch (kind) {
    case RunKind::scripts:
      return "script";
    case RunKind::command:
      return "command";
    case RunKind::reference:
      return "reference script";
  }
  return "";
}

}  // namespace

std::string_view nameOf(ScriptOutcome outcome) {
  switch (outcome) {
    case ScriptOutcome::passed:
      return "passed";
    case ScriptOutcome::failed:
      return "failed";
    case ScriptOutcome::aborted:
      return "aborted";
    case ScriptOutcome::notRun:
      return "notRun";
  }
  return "";
}

std::string_view nameOf(IterationOutcome outcome) {
  switch (outcome) {
    case IterationOutcome::finished:
      return "finished";
    case IterationOutcome::aborted:
      return "aborted";
    case IterationOutcome::failed:
      return "failed";
    case IterationOutcome::misconfigured:
      return "misconfigured";
    case IterationOutcome::interrupted:
      return "interrupted";
  }
  return "";
}

std::string_view nameOf(RunKind kind) {
  switch (kind) {
    case RunKind::scripts:
      return "scripts";
    case RunKind::command:
      return "command";
    case RunKind::reference:
      return "reference";
  }
  return "";
}

std::string_view inWords(ScriptOutcome outcome) {
  return outcome == ScriptOutcome::notRun ? "not run" : nameOf(outcome);
}

std::string titleOf(const RunRecord& run, std::size_t script) {
  const RunScript& named = run.scripts.at(script);
  const std::string name = named.name.empty() ? std::string(unnamedTitle(run.kind)) : named.name;
  return shown(named.suite.empty() ? name : named.suite + "/" + name);
}

std::string titleOf(const IterationRecord& iteration) {
  return (iteration.isWarmUp ? "warm-up " : "iteration ") + std::to_string(iteration.number);
}

std::string failureIn(const std::optional<RunLine>& line, std::string_view cause) {
  std::string text = line ? "line " + std::to_string(line->number) + ": " + shown(line->text) : "";
  if (!cause.empty()) {
    text += (text.empty() ? "" : ": ") + shown(cause);
  }
  return text;
}

const std::string& causeOf(const ScriptRecord& script) {
  return script.cause.empty() ? script.stackTrace : script.cause;
}

std::string durationInWords(nanoseconds duration) {
  const auto milliseconds =
      std::chrono::round<std::chrono::milliseconds>(std::max(duration, nanoseconds::zero())).count();
  if (milliseconds < 1000) {
    return std::to_string(milliseconds) + " ms";
  }
  // In tenths, rounded before they are parted, so that no second has ten of them.
  const std::int64_t tenths = (milliseconds + 50) / 100;
  if (tenths < 600) {
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
  }
  return minutesInWords(std::chrono::seconds((milliseconds + 500) / 1000));
}

std::string countdownInWords(nanoseconds duration) {
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(std::max(duration, nanoseconds::zero()));
  return seconds < std::chrono::minutes(1) ? std::to_string(seconds.count()) + " s" : minutesInWords(seconds);
}

}  // namespace quobrak::host
