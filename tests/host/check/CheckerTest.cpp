#include "host/check/Checker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using testing::findingsInRun;
using testing::inShort;
using ::testing::IsEmpty;

std::vector<Finding> checked(const std::vector<std::string>& scripts) {
  std::vector<ScriptSource> sources;
  for (const std::string& script : scripts) {
    sources.push_back({.name = "s.txt", .bytes = script});
  }
  return check(sources, {});
}

std::string firstFailureOf(const std::vector<std::string>& scripts) {
  const std::vector<Finding> findings = checked(scripts);
  const Finding* const first = firstFailure(findings);
  return first == nullptr ? "" : inShort(*first);
}

TEST(Checker, GoesByScriptsLinesAndColumns) {
  EXPECT_THAT(findingsInRun({"pause,x\npause,y,z", "clickByText,a\npause,z"}),
              ElementsAre("1:7-8 error malformed-argument: The pause duration x should be a positive integer",
                          "2:7-8 error malformed-argument: The pause duration y should be a positive integer",
                          "2:9-10 warning surplus-field: pause takes 1 argument: what follows is ignored (no argument "
                          "contains a comma)",
                          "2/1:1-12 error no-application: The application is not initialised. Please use "
                          "applicationStart or launchBrowser at the beginning of your script.",
                          "2/2:7-8 error malformed-argument: The pause duration z should be a positive integer"));
}

TEST(Checker, GoesByRulesAtOnePlace) {
  EXPECT_THAT(testing::findingsIn("measureStart,A\nmeasureStart,B"),
              ElementsAre("2:14-15 warning replaced-step: The step A is still open: it is dropped here, and leaves no "
                          "measure (end it with measureStop before this line)",
                          "2:14-15 warning never-stopped: The step B is never stopped, and leaves no measure (end it "
                          "with measureStop)"));
}

TEST(Checker, KnowsTheVariablesThatTheHostSets) {
  EXPECT_THAT(
      findingsInRun({"pause,1${class}${iteration}${testFileNumber}${testFileSuiteName1}${testFilePath2}", "pause,1"}),
      IsEmpty());
  for (const char* name : {"testFilePath3", "testFilePath0", "testFilePath01", "testFilePath", "command", "HOME"}) {
    EXPECT_THAT(findingsInRun({"pressHome\npause,${" + std::string(name) + "}", "pressHome"}),
                ElementsAre(::testing::HasSubstr("error missing-variable: You need to pass the extra parameter " +
                                                 std::string(name) + " to your test")));
  }
}

TEST(FirstFailure, IsTheErrorThatTheRunMeetsFirst) {
  EXPECT_EQ(firstFailureOf({"pause,1,2"}), "");
  EXPECT_EQ(firstFailureOf({"pause,1,2\npause,x\npause,y"}),
            "2:7-8 error malformed-argument: The pause duration x should be a positive integer");
}

TEST(FirstFailure, IsAMissingVariableBeforeAnyLine) {
  EXPECT_EQ(firstFailureOf({"pause,x\npause,${A}\npause,${B}"}),
            "2:7-11 error missing-variable: You need to pass the extra parameter A to your test (pass it with --var "
            "A=…)");
  EXPECT_EQ(firstFailureOf({"pause,x", "pause,${A}"}),
            "1:7-8 error malformed-argument: The pause duration x should be a positive integer");
}

TEST(FirstFailure, IsAFileThatCannotBeReadBeforeAnyScript) {
  EXPECT_EQ(firstFailureOf({"pause,${A}", "\xFF"}).substr(0, 30), "2/1:1-2 error unreadable-text,");
}

TEST(FirstFailure, GoesWithinALineAsTheCommandDoes) {
  // Arguments from left to right, then the rank, then the application, then the pattern.
  EXPECT_EQ(firstFailureOf({"findByTextExact,(,0,x"}),
            "1:21-22 error malformed-argument: isEnabled x should be an boolean");
  EXPECT_EQ(firstFailureOf({"findByTextExact,(,0"}),
            "1:19-20 error rank-below-one: nthElement should be an integer greater than 1 (the first element has the "
            "rank 1)");
  EXPECT_EQ(firstFailureOf({"findByTextExact,("}).substr(0, 27), "1:1-16 error no-application");
  EXPECT_EQ(firstFailureOf({"launchBrowser\nfindByTextExact,("}).substr(0, 31), "2:17-18 error malformed-pattern");
  EXPECT_EQ(firstFailureOf({"findByClass,a,0"}).substr(0, 27), "1:13-14 error unknown-class");
}

TEST(CountOf, CountsBySeverity) {
  const std::vector<Finding> findings = checked({"pause,1,2\npause,x\npause,y"});
  EXPECT_EQ(countOf(findings, Severity::error), 2U);
  EXPECT_EQ(countOf(findings, Severity::warning), 1U);
}

}  // namespace
}  // namespace quobrak::host
