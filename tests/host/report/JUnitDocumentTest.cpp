#include "host/report/JUnitDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {
namespace {

using ::testing::HasSubstr;

/// The document as another reads it; the test fails where it is not well formed.
pugi::xml_document parsed(const std::string& text) {
  pugi::xml_document document;
  const pugi::xml_parse_result result = document.load_string(text.c_str());
  EXPECT_TRUE(result) << result.description() << " in " << text;
  return document;
}

/// A run of one script that failed for this reason.
RunRecord failedFor(const std::string& cause) {
  RunRecord run = sampleRun();
  run.iterations = {run.iterations.at(1)};
  run.iterations.front().scripts = {run.iterations.front().scripts.at(1)};
  run.iterations.front().scripts.front().cause = cause;
  return run;
}

TEST(JUnitDocument, HasATestCaseForEachScriptAndIteration) {
  EXPECT_EQ(junitDocument(sampleRun()), R"~(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="quobrak" tests="12" failures="1" errors="1" skipped="1" time="15.000">
  <testsuite name="Shop" tests="8" failures="1" errors="1" skipped="0" time="10.500">
    <testcase classname="Shop" name="order, warm-up 1" time="1.500">
      <system-out>Results: warmUp1</system-out>
    </testcase>
    <testcase classname="Shop" name="login, warm-up 1" time="1.500">
      <system-out>Results: warmUp1</system-out>
    </testcase>
    <testcase classname="Shop" name="order, iteration 1" time="1.500">
      <system-out>Results: iteration1</system-out>
    </testcase>
    <testcase classname="Shop" name="login, iteration 1" time="1.500">
      <failure message="line 3: clickByText,Lamb: The expected text Lamb was not found" type="failed">Error on line clickByText,Lamb (line: 3). Cause: The expected text Lamb was not found</failure>
      <system-out>Results: iteration1</system-out>
    </testcase>
    <testcase classname="Shop" name="login, iteration 2" time="1.500">
      <system-out>Results: iteration2</system-out>
    </testcase>
    <testcase classname="Shop" name="order, iteration 2" time="1.500">
      <system-out>Results: iteration2</system-out>
    </testcase>
    <testcase classname="Shop" name="order, iteration 3" time="1.500">
      <system-out>Results: iteration3</system-out>
    </testcase>
    <testcase classname="Shop" name="login, iteration 3">
      <error message="line 5: clickByText: Index out of range: the field 1 (selector) is missing" type="aborted" />
      <system-out>Results: iteration3</system-out>
    </testcase>
  </testsuite>
  <testsuite name="設定" tests="4" failures="0" errors="0" skipped="1" time="4.500">
    <testcase classname="設定" name="settings, warm-up 1" time="1.500">
      <system-out>Results: warmUp1</system-out>
    </testcase>
    <testcase classname="設定" name="settings, iteration 1" time="1.500">
      <system-out>Results: iteration1</system-out>
    </testcase>
    <testcase classname="設定" name="settings, iteration 2" time="1.500">
      <system-out>Results: iteration2</system-out>
    </testcase>
    <testcase classname="設定" name="settings, iteration 3">
      <skipped message="The test process ended before the script's turn: The test process stopped itself at line 5 of Shop/login: clickByText" />
      <system-out>Results: iteration3</system-out>
    </testcase>
  </testsuite>
</testsuites>
)~");
}

TEST(JUnitDocument, CountsWhatItHolds) {
  const pugi::xml_document document = parsed(junitDocument(sampleRun()));
  const auto expectCounts = [](const pugi::xml_node& node) {
    const auto count = [&node](const std::string& path) {
      return std::to_string(node.select_nodes(path.c_str()).size());
    };
    EXPECT_EQ(node.attribute("tests").value(), count(".//testcase"));
    EXPECT_EQ(node.attribute("failures").value(), count(".//failure"));
    EXPECT_EQ(node.attribute("errors").value(), count(".//error"));
    EXPECT_EQ(node.attribute("skipped").value(), count(".//skipped"));
  };
  expectCounts(document.child("testsuites"));
  EXPECT_EQ(document.select_nodes("/testsuites/testsuite").size(), 2U);
  for (const pugi::xml_node& suite : document.child("testsuites").children("testsuite")) {
    expectCounts(suite);
  }
}

TEST(JUnitDocument, TellsOfAnIterationThatNoScriptTellsOf) {
  RunRecord run = sampleRun();
  run.iterations = {run.iterations.at(1)};
  run.iterations.front().scripts.resize(1);
  run.iterations.front().outcome = IterationOutcome::failed;
  run.iterations.front().message = "The measures could not be written.";
  EXPECT_EQ(junitDocument(run), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="quobrak" tests="2" failures="0" errors="1" skipped="0" time="1.500">
  <testsuite name="Shop" tests="1" failures="0" errors="0" skipped="0" time="1.500">
    <testcase classname="Shop" name="order, iteration 1" time="1.500">
      <system-out>Results: iteration1</system-out>
    </testcase>
  </testsuite>
  <testsuite name="設定" tests="0" failures="0" errors="0" skipped="0" time="0.000" />
  <testsuite name="test process" tests="1" failures="0" errors="1" skipped="0" time="0.000">
    <testcase classname="test process" name="iteration 1">
      <error message="The measures could not be written." type="failed" />
      <system-out>Results: iteration1</system-out>
    </testcase>
  </testsuite>
</testsuites>
)");
}

TEST(JUnitDocument, TellsOfAnAbortedScriptWhatIsKnown) {
  RunRecord run = sampleRun();
  ScriptRecord& script = run.iterations.at(3).scripts.at(1);
  script.cause.clear();
  EXPECT_THAT(junitDocument(run), HasSubstr("<error message=\"line 5: clickByText: The test process stopped itself "
                                            "at line 5 of Shop/login: clickByText\""));
  script.stackTrace = "Killed.";
  EXPECT_THAT(junitDocument(run), HasSubstr("<error message=\"line 5: clickByText: Killed.\" type=\"aborted\">Killed."
                                            "</error>"));
}

TEST(JUnitDocument, NamesWhatHasNoName) {
  RunRecord run;
  run.kind = RunKind::command;
  run.scripts.resize(1);
  run.iterations.resize(1);
  run.iterations.front().number = 1;
  run.iterations.front().scripts.resize(1);
  EXPECT_EQ(junitDocument(run), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="quobrak" tests="1" failures="0" errors="0" skipped="1" time="0.000">
  <testsuite name="quobrak" tests="1" failures="0" errors="0" skipped="1" time="0.000">
    <testcase classname="quobrak" name="command, iteration 1">
      <skipped message="The test process ended before the script's turn." />
    </testcase>
  </testsuite>
</testsuites>
)");
}

TEST(JUnitDocument, HoldsAnyText) {
  struct Case {
    std::string cause;
    std::string read;
  };
  for (const auto& [cause, read] : {
           Case{"a < b && \"c\" > 'd' ]]>", "a < b && \"c\" > 'd' ]]>"},
           Case{std::string("\0\x01\x1b[2J\n\t", 8), "␀␁␛[2J␊␉"},
           Case{"\xEF\xBF\xBE and \xEF\xBF\xBF\xEF\xBF\xBF", "\uFFFD and \uFFFD\uFFFD"},
           Case{"no \xC3 text \xED\xA0\x80", "no \uFFFD text \uFFFD\uFFFD\uFFFD"},
           Case{"設定 😀", "設定 😀"},
       }) {
    RunRecord run = failedFor(cause);
    run.iterations.front().scripts.front().stackTrace = cause;
    const pugi::xml_document document = parsed(junitDocument(run));
    const pugi::xml_node failure = document.select_node("//failure").node();
    EXPECT_EQ(failure.attribute("message").value(), "line 3: clickByText,Lamb: " + read);
    EXPECT_EQ(failure.text().get(), read);
  }
}

TEST(JUnitDocument, HasTimesInSeconds) {
  struct Case {
    std::int64_t milliseconds;
    std::string seconds;
  };
  for (const auto& [milliseconds, seconds] :
       {Case{0, "0.000"}, Case{7, "0.007"}, Case{999, "0.999"}, Case{61000, "61.000"}, Case{-5, "0.000"}}) {
    RunRecord run = failedFor("");
    run.iterations.front().scripts.front().duration = milliseconds;
    EXPECT_THAT(junitDocument(run), HasSubstr("name=\"login, iteration 1\" time=\"" + seconds + "\""));
  }
}

}  // namespace
}  // namespace quobrak::host
