// Scripts that people wrote: those of tests/scripts, which say how they end, and the examples.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "host/check/Checker.h"
#include "host/check/ScriptPaths.h"
#include "quobrakUITests/TestContext.h"
#include "tests/conformance/ScriptFiles.h"
#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::AnyOf;
using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Checked {
  conformance::ScriptFile file;
  std::vector<Finding> findings;
};

std::vector<Checked> checkedScripts() {
  std::vector<Checked> checkedOnes;
  for (const std::string& name : conformance::scriptNamesIn(conformance::SCRIPTS_FOLDER)) {
    conformance::ScriptFile file = conformance::readScriptFileIn(conformance::SCRIPTS_FOLDER, name);
    const std::vector<ScriptSource> scripts{{.name = name, .bytes = file.text}};
    checkedOnes.push_back({.file = std::move(file), .findings = check(scripts, {})});
  }
  return checkedOnes;
}

std::string statusOf(const conformance::ScriptFile& file) {
  const auto status = std::find_if(file.expectations.begin(), file.expectations.end(),
                                   [](const conformance::Expectation& one) { return one.key == "status"; });
  return status->text;
}

TEST(WrittenScripts, ThatSucceedHaveNoError) {
  std::size_t successes = 0;
  for (const Checked& one : checkedScripts()) {
    if (statusOf(one.file).starts_with("success")) {
      const Finding* const failure = firstFailure(one.findings);
      EXPECT_EQ(failure, nullptr) << one.file.name << ": " << testing::inShort(*failure);
      ++successes;
    }
  }
  EXPECT_GT(successes, 100U);
}

TEST(WrittenScripts, FailAsACheckSays) {
  std::size_t failures = 0;
  for (const Checked& one : checkedScripts()) {
    const Finding* const failure = firstFailure(one.findings);
    if (failure == nullptr) {
      continue;
    }
    ++failures;
    const std::string status = statusOf(one.file);
    SCOPED_TRACE(one.file.name);
    if (failure->rule == Rule::malformedPattern) {
      EXPECT_EQ(status, "failed: An unknown error occured while executing actions");
    } else if (failure->outcome == Outcome::abortsRun) {
      EXPECT_THAT(status, StartsWith("fatal: " + failure->message + " (line " + std::to_string(failure->line) + ": "));
    } else {
      // Where no application has been started the dump fails too, and its reason takes the place.
      EXPECT_THAT(status, AnyOf(HasSubstr(" (line: " + std::to_string(failure->line) + "). Cause: " + failure->message),
                                Eq(std::string("failed: ") + TestContext::NO_APPLICATION)));
    }
  }
  EXPECT_GT(failures, 100U);
}

TEST(WrittenScripts, OfTheExamplesLackNothingButVariables) {
  const NamedScripts named = readScripts({QUOBRAK_SOURCE_FOLDER "/examples"});
  EXPECT_GT(named.scripts.size(), 5U);
  for (const Finding& finding : check(named.scripts, {.variables = {}, .isOrderKnown = named.isOrderKnown})) {
    EXPECT_EQ(finding.rule, Rule::missingVariable)
        << named.scripts[finding.script].name << ": " << testing::inShort(finding);
  }
}

}  // namespace
}  // namespace quobrak::host
