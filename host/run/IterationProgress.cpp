#include "host/run/IterationProgress.h"

#include <utility>

namespace quobrak::host {

namespace {

RunLine lineOf(const JSONReader& event) {
  return {.number = static_cast<std::size_t>(event.member("number").integer()), .text = event.member("text").text()};
}

std::string messageOf(const JSONReader& error) {
  return error.member("message").text();
}

MeasuredStep stepOf(const JSONReader& event) {
  return {.name = event.member("name").text(),
          .start = event.member("start").integer(),
          .stop = event.member("stop").integer(),
          .duration = event.member("duration").integer()};
}

}  // namespace

void IterationProgress::take(const JSONValue& event) {
  try {
    const JSONReader reader(event);
    takeKind(reader.member("event").text(), reader);
  } catch (const DecodingError&) {
    // The event tells nothing that is understood here; the results do not depend on it.
    return;
  }
}

void IterationProgress::takeKind(std::string_view kind, const JSONReader& event) {
  if (kind == "scriptStarted") {
    startScript(event);
  } else if (!runningScript_) {
    return;
  } else if (kind == "lineStarted") {
    startLine(event);
  } else if (kind == "lineFinished") {
    finishLine(event);
  } else if (kind == "step") {
    steps_.push_back({.position = *runningScript_, .step = stepOf(event)});
    listener_.stepFinished(steps_.back().step);
  } else if (kind == "scriptError" && iteration_.scripts[*runningScript_].cause.empty()) {
    iteration_.scripts[*runningScript_].cause = messageOf(event.member("error"));
  } else if (kind == "scriptFinished") {
    finishScript(event);
  }
}

void IterationProgress::startScript(const JSONReader& event) {
  const std::int64_t number = event.member("number").integer();
  const std::int64_t time = event.member("time").integer();
  if (number < 1 || number > static_cast<std::int64_t>(iteration_.scripts.size())) {
    return;
  }
  runningScript_ = static_cast<std::size_t>(number) - 1;
  runningLine_.reset();
  ScriptRecord& script = iteration_.scripts[*runningScript_];
  script.started = time;
  listener_.scriptStarted(script.script, *runningScript_ + 1);
}

void IterationProgress::startLine(const JSONReader& event) {
  const std::int64_t time = event.member("time").integer();
  runningLine_ = lineOf(event);
  listener_.lineStarted(*runningLine_, time);
}

void IterationProgress::finishLine(const JSONReader& event) {
  const RunLine line = lineOf(event);
  const double duration = event.member("duration").number();
  const std::optional<JSONReader> error = event.optionalMember("error");
  const std::string message = error ? messageOf(*error) : "";
  if (error) {
    ScriptRecord& script = iteration_.scripts[*runningScript_];
    script.line = line;
    script.cause = message;
  }
  runningLine_.reset();
  listener_.lineFinished(line, duration, message);
}

void IterationProgress::finishScript(const JSONReader& event) {
  const bool hasPassed = event.member("status").text() == "success";
  const std::int64_t time = event.member("time").integer();
  ScriptRecord& script = iteration_.scripts[*runningScript_];
  script.stackTrace = event.member("stackTrace").text();
  script.outcome = hasPassed ? ScriptOutcome::passed : ScriptOutcome::failed;
  script.duration = time - script.started.value_or(time);
  runningScript_.reset();
  listener_.scriptFinished(script.script, script.outcome, script.cause);
}

}  // namespace quobrak::host
