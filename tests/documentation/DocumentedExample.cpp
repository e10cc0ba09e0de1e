#include "tests/documentation/DocumentedExample.h"

#include <algorithm>
#include <variant>

#include "drivers/simulator/BuiltinFiles.h"
#include "platform/foundation/JSON.h"
#include "tests/conformance/ScriptRun.h"
#include "tests/quobrakUITests/Environment.h"

namespace quobrak::documentation {

namespace {

using conformance::ScriptFile;

std::string expected(const ScriptFile& script, std::string_view key) {
  const auto found = std::find_if(script.expectations.begin(), script.expectations.end(),
                                  [key](const conformance::Expectation& candidate) { return candidate.key == key; });
  return found == script.expectations.end() ? "" : found->text;
}

std::vector<std::string> expectedOfEach(const std::vector<ScriptFile>& scripts, std::string_view key) {
  std::vector<std::string> all;
  std::transform(scripts.begin(), scripts.end(), std::back_inserter(all),
                 [key](const ScriptFile& script) { return expected(script, key); });
  return all;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() || text.empty() ? "" : ", ") + text;
  }
  return list;
}

/// A status as it is expected: "failed: why".
std::string inWords(const JSONReader& status) {
  const std::string reason = status.member("stackTrace").text();
  return status.member("status").text() + (reason.empty() ? "" : ": " + reason);
}

void checkStatuses(const JSONReader& shown, const std::vector<ScriptFile>& scripts) {
  std::vector<std::string> statuses;
  for (const JSONReader& status : shown.elements()) {
    statuses.push_back(inWords(status));
  }
  EXPECT_EQ(statuses, expectedOfEach(scripts, "status"));
}

void checkMeasure(const JSONReader& shown, const std::vector<ScriptFile>& scripts) {
  const std::int64_t duration = shown.member("testTime").integer();
  const std::string step = shown.member("test").text() + " " + std::to_string(duration) + " ms";
  EXPECT_EQ(step, joined(expectedOfEach(scripts, "steps")));
  const std::vector<JSONReader> ticks = shown.member("measures").elements().at(0).elements();
  EXPECT_EQ(ticks.at(1).member("time").integer() - ticks.at(0).member("time").integer(), duration);
}

/// What a file holds has been seen to come about by way of the expectations; here it is seen that it is shown so.
void checkFile(const std::string& text, const std::vector<ScriptFile>& scripts) {
  const JSONValue content = JSONDecoder::decode(text);
  EXPECT_EQ(JSONEncoder::encode(content), text) << "a file is shown as it is written";
  if (std::holds_alternative<JSONValue::Array>(content.variant())) {
    checkStatuses(JSONReader(content), scripts);
  } else {
    checkMeasure(JSONReader(content), scripts);
  }
}

}  // namespace

void DocumentedExample::checkRun(const DocumentedRun& run) {
  for (const auto& [name, value] : run.variables) {
    testing::setVariable(name, value);
  }
  if (run.scripts.size() == 1) {
    check(run.scripts[0]);
  } else {
    checkTogether(run.scripts);
  }
  for (const std::string& file : run.shownFiles) {
    checkFile(file, run.scripts);
  }
  if (run.shownStop) {
    EXPECT_EQ(*run.shownStop, "Fatal error: " + run.scripts.back().fatalStop().value_or("none is expected"));
  }
}

void DocumentedExample::checkTogether(const std::vector<ScriptFile>& scripts) {
  switchOn(simulator::BuiltinPhoneFiles());
  conformance::ScriptRun run;
  std::vector<std::string> expectedTouches;
  for (const ScriptFile& script : scripts) {
    run.add(script.name + ".txt", script.text);
    const std::string touches = expected(script, "touched");
    expectedTouches.push_back(touches == "nothing" ? "" : touches);
  }
  run.run();
  EXPECT_EQ(run.statuses(), expectedOfEach(scripts, "status"));
  EXPECT_EQ(joined(touched), joined(expectedTouches));
}

}  // namespace quobrak::documentation
