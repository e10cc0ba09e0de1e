#include <gmock/gmock.h>

#include <csignal>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Fatal : public ProcessTest {
 protected:
  void expectFatalStop(const std::string& diagnostic) const {
    const ProcessEnd end = run();
    EXPECT_EQ(end.signal, SIGABRT);
    EXPECT_EQ(end.out, "Test Case '-[quobrakUITests testMain]' started.\n");
    EXPECT_EQ(end.err, "Fatal error: " + diagnostic + "\n");
  }
};

}  // namespace

TEST_F(Fatal, NoTestFiles) {
  expectFatalStop("Range requires lowerBound <= upperBound: testFileNumber is 0, but must be at least 1");
  start.environment["testFileNumber"] = "-3";
  expectFatalStop("Range requires lowerBound <= upperBound: testFileNumber is -3, but must be at least 1");
  EXPECT_THAT(results(), IsEmpty());
}

TEST_F(Fatal, AMissingPathOrSuiteName) {
  addScript("S", "scripts/a.txt", "pause,1");
  addScript("S", "scripts/a.txt", "pause,1");
  start.environment.erase("testFilePath2");
  expectFatalStop("Unexpectedly found nil: the environment variable testFilePath2 is not set");
  start.environment.erase("testFileSuiteName1");
  expectFatalStop("Unexpectedly found nil: the environment variable testFileSuiteName1 is not set");
  EXPECT_THAT(results(), IsEmpty());
}

TEST_F(Fatal, AStopBeforeAnyStartOfAMeasure) {
  addScript("S", "scripts/a.txt", "pause,1\n\n  measureStop");
  expectFatalStop("Index out of range: measureStop without a measureStart before it (line 3: measureStop)");
}

TEST_F(Fatal, APauseThatIsTooLong) {
  addScript("S", "scripts/a.txt", "pause,4294967\npause,4294968");
  expectFatalStop(
      "The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and 4294967 ms (line 2: "
      "pause,4294968)");
}

TEST_F(Fatal, LeavesWhatWasWrittenBefore) {
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test\nmeasureStart,A\nmeasureStop");
  addScript("S", "scripts/b.txt", "measureStart,B\nclickByText");
  expectFatalStop("Index out of range: the field 1 (selector) is missing (line 2: clickByText)");
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/screenshots/001_A_start.png",
                                     "tests-results/S/a/iteration1/screenshots/002_A_stop.png",
                                     "tests-results/S/a/iteration1/screenshots/003_success.png",
                                     "tests-results/S/b/iteration1/screenshots/001_B_start.png"));
}

TEST_F(Fatal, LeavesATraceThatEndsWithTheStartOfTheLine) {
  addScript("S", "scripts/a.txt", "pause,1\nmeasureStop");
  start.environment["QUOBRAK_TRACE"] = "trace";
  expectFatalStop("Index out of range: measureStop without a measureStart before it (line 2: measureStop)");
  const std::vector<JSONValue> events = traceEvents(folder.read("trace"));
  ASSERT_FALSE(events.empty());
  const JSONReader last(events.back());
  EXPECT_EQ(last.member("event").text(), "lineStarted");
  EXPECT_EQ(last.member("number").integer(), 2);
  EXPECT_EQ(last.member("text").text(), "measureStop");
}

}  // namespace quobrak::testing
