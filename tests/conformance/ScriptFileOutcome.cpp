#include "tests/conformance/ScriptFileOutcome.h"

#include <algorithm>
#include <functional>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/HitTest.h"

namespace quobrak::conformance {

namespace {

std::size_t countOf(const NSPredicate& predicate, const ScriptFileOutcome& outcome) {
  static const std::function<bool(const simulator::Element&)> hittable = simulator::isHittable;
  const PredicateEvaluator evaluator(predicate);
  std::size_t count = 0;
  for (const auto& tree : outcome.screen) {
    simulator::forEachDescendant(*tree, [&](const simulator::Element& element) {
      count += evaluator.evaluate(simulator::ElementAttributes(&element, hittable)) ? 1U : 0U;
    });
  }
  return count;
}

/// What is found where that is not as expected; empty where it is.
std::string findings(const Expectation& expectation, const ScriptFileOutcome& outcome) {
  if (expectation.key == "screen") {
    const auto& [predicate, expected] = readScreenExpectation(expectation.text);
    const std::size_t count = countOf(predicate, outcome);
    const bool isMet = expected ? count == *expected : count > 0;
    return isMet ? "" : "the screen has " + std::to_string(count) + " such elements";
  }
  const std::string& found = outcome.told.at(expectation.key);
  if (found == expectation.text) {
    return "";
  }
  const bool isReasonOfInterest = expectation.key == "status" && !outcome.reason.empty();
  return "found: " + found + (isReasonOfInterest ? "; the reason: " + outcome.reason : "");
}

}  // namespace

std::vector<std::string> complaints(const ScriptFile& script, const ScriptFileOutcome& outcome) {
  std::vector<std::string> all;
  for (const Expectation& expectation : script.expectations) {
    if (const std::string found = findings(expectation, outcome); !found.empty()) {
      all.push_back(script.name + ", line " + std::to_string(expectation.line) + ": expected " + expectation.key +
                    ": " + expectation.text + "; " + found);
    }
  }
  return all;
}

}  // namespace quobrak::conformance
