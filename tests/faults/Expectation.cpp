#include "tests/faults/Expectation.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

namespace quobrak::faults {

namespace {

/// What the earlier run left, as the suite's documents have it.
Summary earlierResults(const Suite& suite) {
  const Files documents = documentsBefore(suite);
  return Outcome(documents, documents, "").summary();
}

std::vector<std::string> stepsWhere(const Outcome& undisturbed, const std::function<bool(const Step&)>& isKept) {
  std::vector<std::string> steps;
  for (const Step& step : undisturbed.steps()) {
    if (isKept(step)) {
      steps.push_back(inWords(step.name, step.duration));
    }
  }
  return steps;
}

bool isWriteTo(const Call& call, std::string_view folder) {
  return call.name == "write" && call.target.starts_with(folder);
}

/// The expectation in the making: at first that nothing happens.
class Expectation {
 public:
  Expectation(const Suite& suite, const Outcome& undisturbed, const Call& failed, const Failure& failure)
      : suite_(suite), undisturbed_(undisturbed), failed_(failed), failure_(failure), summary_(undisturbed.summary()) {}

  Summary summary() && {
    std::sort(summary_.files.begin(), summary_.files.end());
    return std::move(summary_);
  }

  void isNotCleared() {
    const Summary earlier = earlierResults(suite_);
    if (failed_.target == "measures") {
      summary_.steps.insert(summary_.steps.begin(), earlier.steps.begin(), earlier.steps.end());
    }
    for (const std::string& path : earlier.files) {
      if (path.starts_with(failed_.target + "/")) {
        summary_.files.push_back(path);
      }
    }
  }

  void runIsRefused() {
    summary_ = earlierResults(suite_);
    summary_.raised = failure_.reason;
  }

  void clearingEnds() {
    runIsRefused();
    for (const Call& call : undisturbed_.calls()) {
      if (call.name == "removeItem" && isBefore(call)) {
        clear(call.target);
      }
    }
  }

  void scriptFails() {
    dropFilesOfScript();
    const auto pictures = std::count_if(
        undisturbed_.calls().begin(), undisturbed_.calls().end(),
        [this](const Call& call) { return isWriteTo(call, scriptFolder() + "screenshots/") && isBefore(call); });
    // No script here takes so many pictures that the number has two digits.
    summary_.files.push_back(scriptFolder() + "screenshots/00" + std::to_string(pictures + 1) + "_failed.png");
    summary_.files.push_back(scriptFolder() + "dump/dump.txt");
    summary_.steps = stepsWhere(undisturbed_, [this](const Step& step) {
      return step.script != failed_.script || step.callsBeforeStop <= failed_.position;
    });
    summary_.statuses->at(failed_.script) = "failed: " + failure_.reason;
    summary_.errors[failed_.script] = {"scriptError " + failure_.traced};
  }

  void pictureOrDumpIsMissing() {
    dropFilesOfScript();
    std::string& status = summary_.statuses->at(failed_.script);
    status = status.substr(0, status.find(':')) + ": " + failure_.reason;
    summary_.errors[failed_.script].push_back("pictureOrDumpError " + failure_.traced);
  }

  void resultsEnd() {
    summary_.raised = failure_.reason;
    summary_.steps.resize(writesBefore("measures/"));
    if (writesBefore(STATUS_FILE) == 0) {
      summary_.statuses = suite_.iteration == 1 ? std::nullopt : earlierResults(suite_).statuses;
    }
  }

 private:
  static constexpr const char* STATUS_FILE = "testsStatus.json";

  bool isBefore(const Call& call) const { return call.position < failed_.position; }

  /// How many files the undisturbed run wrote to the folder before the call.
  std::size_t writesBefore(const std::string& folder) const {
    const auto count = std::count_if(undisturbed_.calls().begin(), undisturbed_.calls().end(),
                                     [&](const Call& call) { return isWriteTo(call, folder) && isBefore(call); });
    return static_cast<std::size_t>(count);
  }

  std::string scriptFolder() const {
    return "tests-results/Shop/" + suite_.scripts.at(failed_.script).name + "/iteration" +
           std::to_string(suite_.iteration) + "/";
  }

  /// Drops what the undisturbed run wrote for the script from the call on.
  void dropFilesOfScript() {
    for (const Call& call : undisturbed_.calls()) {
      if (isWriteTo(call, scriptFolder()) && !isBefore(call)) {
        std::erase(summary_.files, call.target);
      }
    }
  }

  void clear(const std::string& target) {
    if (target == STATUS_FILE) {
      summary_.statuses.reset();
    } else if (target == "measures") {
      summary_.steps.clear();
    } else {
      std::erase_if(summary_.files, [&target](const std::string& path) { return path.starts_with(target + "/"); });
    }
  }

  const Suite& suite_;
  const Outcome& undisturbed_;
  const Call& failed_;
  const Failure& failure_;
  Summary summary_;
};

/// What the status, or whoever started the run, is told of an error that is none of the system's own.
std::string reasonOf(Phase phase, const std::string& message) {
  switch (phase) {
    case Phase::inLine:
      return "An unknown error occured while executing actions";
    case Phase::atEndOfScript:
      return "An unknown error occured while taking screenshots and dump";
    case Phase::beforeScripts:
    case Phase::afterScripts:
      break;
  }
  return message;
}

}  // namespace

Failure unknownFailure(const Call& call, const std::string& kind, const std::string& message) {
  return {.reason = reasonOf(call.phase, message), .traced = kind + ": " + message};
}

Summary expectedAfter(const Suite& suite, const Outcome& undisturbed, const Call& failed, Consequence consequence,
                      const Failure& failure) {
  Expectation expectation(suite, undisturbed, failed, failure);
  switch (consequence) {
    case Consequence::nothing:
      break;
    case Consequence::isNotCleared:
      expectation.isNotCleared();
      break;
    case Consequence::runIsRefused:
      expectation.runIsRefused();
      break;
    case Consequence::clearingEnds:
      expectation.clearingEnds();
      break;
    case Consequence::scriptFails:
      expectation.scriptFails();
      break;
    case Consequence::pictureOrDumpIsMissing:
      expectation.pictureOrDumpIsMissing();
      break;
    case Consequence::resultsEnd:
      expectation.resultsEnd();
      break;
  }
  return std::move(expectation).summary();
}

}  // namespace quobrak::faults
