#include "host/check/RunNeeds.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Unicode.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Probe.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak::host {

namespace {

/// The argument that stands for it; null where the command has none, or the line lacks it.
const ArgumentInfo* argumentFor(Meaning meaning, const CommandRow& row, FunctionParameters fields) {
  const std::span<const ArgumentInfo> arguments = row.arguments();
  const auto found = std::find_if(arguments.begin(), arguments.end(),
                                  [meaning](const ArgumentInfo& argument) { return argument.meaning == meaning; });
  return found == arguments.end() || found->field >= fields.size() ? nullptr : &*found;
}

/// A warning about a measured step.
Problem stepWarning(Rule rule, std::string message, std::string hint) {
  return {.rule = rule,
          .severity = Severity::warning,
          .outcome = Outcome::goesOn,
          .stage = Stage::never,
          .message = std::move(message),
          .hint = std::move(hint)};
}

Problem replacedStep(const std::string& open) {
  return stepWarning(Rule::replacedStep, open + " is still open: it is dropped here, and leaves no measure",
                     "end it with measureStop before this line");
}

/// `nameArgument` is null where the line lacks it.
std::string stepInWords(const CheckedLine& line, const ArgumentInfo* nameArgument) {
  if (nameArgument == nullptr || line.isUnknown(nameArgument->field)) {
    return "This step";
  }
  const std::string_view name = line.fields()[nameArgument->field];
  return trimmedBlanks(name).empty() ? "The step without a name" : "The step " + std::string(name);
}

}  // namespace

void RunNeeds::pass(const CheckedLine& line, const CommandRow& row) {
  passApplication(line, row);
  passSearch(line, row);
  passStep(line, row);
}

void RunNeeds::passApplication(const CheckedLine& line, const CommandRow& row) {
  const CommandEffects& effects = row.effects;
  if (effects.application == CommandEffects::Application::needed && !hasApplication_) {
    const bool stops = effects.stopWithoutApplication != nullptr;
    std::string message = TestContext::NO_APPLICATION;
    // Words that have the arguments in them need arguments.
    if (stops && line.fields().size() > 1 && !line.hasUnknown()) {
      message = effects.stopWithoutApplication(line.fields(), message);
    }
    report_.needsApplication = line.atField(0, {.rule = Rule::noApplication,
                                                .severity = Severity::error,
                                                .outcome = stops ? Outcome::abortsRun : Outcome::failsScript,
                                                .stage = Stage::application,
                                                .message = std::move(message),
                                                .hint = ""});
    hasApplication_ = true;
  }
  if (effects.application == CommandEffects::Application::started) {
    hasApplication_ = true;
    report_.givesApplication = true;
  }
}

void RunNeeds::passSearch(const CheckedLine& line, const CommandRow& row) {
  if (row.effects.search == CommandEffects::Search::needed && !hasElement_) {
    report_.needsElement = line.atField(0, {.rule = Rule::nothingFoundYet,
                                            .severity = Severity::error,
                                            .outcome = Outcome::failsScript,
                                            .stage = Stage::beforeApplication,
                                            .message = Click::NOTHING_FOUND_YET,
                                            .hint = "findByText, or a tap by text, in a line above finds one"});
    hasElement_ = true;
  }
  if (row.effects.search == CommandEffects::Search::remembered) {
    hasElement_ = true;
    report_.givesElement = true;
  }
}

void RunNeeds::passStep(const CheckedLine& line, const CommandRow& row) {
  if (row.effects.step == CommandEffects::Step::begun) {
    beginStep(line, argumentFor(Meaning::stepName, row, line.fields()));
  } else if (row.effects.step == CommandEffects::Step::ended) {
    endStep(line);
  }
}

void RunNeeds::beginStep(const CheckedLine& line, const ArgumentInfo* nameArgument) {
  std::string name = stepInWords(line, nameArgument);
  const std::size_t field = nameArgument == nullptr ? 0 : nameArgument->field;
  if (step_ == Step::open) {
    report_.findings.push_back(line.atField(field, replacedStep(openStep_)));
  } else if (step_ == Step::untouched) {
    report_.replacesStep = line.atField(field, replacedStep("A step that an earlier script has begun"));
  }
  report_.leavesStepOpen = line.atField(
      field,
      stepWarning(Rule::neverStopped, name + " is never stopped, and leaves no measure", "end it with measureStop"));
  report_.beginsStep = true;
  openStep_ = std::move(name);
  step_ = Step::open;
}

void RunNeeds::endStep(const CheckedLine& line) {
  if (step_ == Step::untouched) {
    report_.needsStep = line.atField(0, {.rule = Rule::stopWithoutStart,
                                         .severity = Severity::error,
                                         .outcome = Outcome::abortsRun,
                                         .stage = Stage::beforeApplication,
                                         .message = Probe::NO_STEP,
                                         .hint = "begin a step with measureStart"});
    report_.stopsStep = true;
  }
  report_.leavesStepOpen.reset();
  step_ = Step::stopped;
}

void RunNeeds::assumeDone(const CommandRow& row) {
  if (row.effects.application == CommandEffects::Application::started) {
    hasApplication_ = true;
    report_.givesApplication = true;
  }
  if (row.effects.search == CommandEffects::Search::remembered) {
    hasElement_ = true;
    report_.givesElement = true;
  }
  if (row.effects.step != CommandEffects::Step::unused) {
    assumeStep();
  }
}

void RunNeeds::assumeAnything() {
  hasApplication_ = true;
  report_.givesApplication = true;
  hasElement_ = true;
  report_.givesElement = true;
  assumeStep();
}

void RunNeeds::assumeStep() {
  report_.stopsStep = report_.stopsStep || step_ == Step::untouched;
  report_.beginsStep = true;
  report_.leavesStepOpen.reset();
  step_ = Step::stopped;
}

}  // namespace quobrak::host
