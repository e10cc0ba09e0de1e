#include "host/run/ProcessVerdict.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <utility>

#include "quobrakUITests/Replacing.h"

namespace quobrak::host {

namespace {

/// What the test process ends with; more is the status of a shell around it, which adds the number of a signal.
enum TestProcessStatus { PASSED = 0, FAILED = 1, MISCONFIGURED = 2, SIGNAL_OF_A_SHELL = 128 };

/// The text behind the last line that begins with `beginning`, to the end; empty where no line does.
std::string_view behindLineBeginning(std::string_view output, std::string_view beginning) {
  for (std::size_t at = output.rfind(beginning); at != std::string_view::npos; at = output.rfind(beginning, at - 1)) {
    if (at == 0 || output[at - 1] == '\n') {
      return output.substr(at + beginning.size());
    }
  }
  return {};
}

/// Several lines as one.
std::string joined(std::string_view lines) {
  while (lines.ends_with('\n')) {
    lines.remove_suffix(1);
  }
  return replacingOccurrences(lines, "\n", "; ");
}

std::string fatalErrorIn(std::string_view output) {
  return joined(behindLineBeginning(output, "Fatal error: "));
}

/// What a fatal error says, but for the line, which is told apart.
std::string withoutLine(std::string words, const std::optional<RunLine>& line) {
  if (line) {
    const std::string told = " (line " + std::to_string(line->number) + ": " + line->text + ")";
    if (words.ends_with(told)) {
      words.erase(words.size() - told.size());
    }
  }
  return words;
}

std::string nameOfSignal(int signal) {
  const char* const name = ::sigabbrev_np(signal);
  const char* const description = ::sigdescr_np(signal);
  if (name == nullptr || description == nullptr) {
    return "signal " + std::to_string(signal);
  }
  return std::string("SIG") + name + " (" + description + ")";
}

std::string textOf(const ProcessPlace& place) {
  if (place.script.empty()) {
    return "";
  }
  return place.line ? " at line " + std::to_string(place.line->number) + " of " + place.script + ": " + place.line->text
                    : " in " + place.script;
}

ProcessVerdict at(IterationOutcome outcome, std::string cause, const ProcessPlace& place) {
  std::string message = cause + textOf(place);
  return {.outcome = outcome, .message = std::move(message), .cause = std::move(cause)};
}

ProcessVerdict verdictOfSignal(int signal, std::string_view output, const ProcessPlace& place) {
  if (const std::string words = fatalErrorIn(output); signal == SIGABRT && !words.empty()) {
    const std::string cause = withoutLine(words, place.line);
    // Why it did stands with the script, where one is known.
    const std::string rest = place.script.empty() ? ": " + cause : textOf(place);
    return {.outcome = IterationOutcome::aborted, .message = "The test process stopped itself" + rest, .cause = cause};
  }
  return at(IterationOutcome::aborted, "The test process was ended by " + nameOfSignal(signal), place);
}

std::string withWords(const std::string& text, const std::string& words) {
  return text + (words.empty() ? ", and did not say why" : ": " + words);
}

ProcessVerdict verdictOfStatus(int status, std::string_view output, const ProcessPlace& place) {
  switch (status) {
    case PASSED:
      return {};
    case FAILED:
      return at(IterationOutcome::failed, withWords("The test process ended with an error", caughtErrorIn(output)), {});
    case MISCONFIGURED:
      return at(IterationOutcome::misconfigured,
                withWords("The test process refused its configuration",
                          joined(behindLineBeginning(output, "configuration error: "))),
                {});
    default:
      return status > SIGNAL_OF_A_SHELL
                 ? verdictOfSignal(status - SIGNAL_OF_A_SHELL, output, place)
                 : at(IterationOutcome::failed,
                      "The test process ended with the unknown exit status " + std::to_string(status), place);
  }
}

}  // namespace

ProcessVerdict verdictOf(const ProcessEnd& end, std::string_view output, const ProcessPlace& place) {
  if (end.how.exitStatus && (!end.endSignal || *end.how.exitStatus <= MISCONFIGURED)) {
    return verdictOfStatus(*end.how.exitStatus, output, place);
  }
  if (end.endSignal) {
    const std::string by = *end.endSignal == SIGINT ? "Ctrl-C" : nameOfSignal(*end.endSignal);
    return at(IterationOutcome::interrupted, "Ended by " + by, place);
  }
  return verdictOfSignal(end.how.signal.value_or(SIGKILL), output, place);
}

std::string caughtErrorIn(std::string_view output) {
  std::string_view words = behindLineBeginning(output, "error: -[quobrakUITests testMain] : failed: caught error: \"");
  // The line with the outcome of the test follows.
  words = words.substr(0, words.rfind("\"\nTest Case "));
  while (words.ends_with('\n') || words.ends_with('"')) {
    words.remove_suffix(1);
  }
  return joined(words);
}

}  // namespace quobrak::host
