#include <gmock/gmock.h>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class ReferenceRun : public ProcessTest {
 protected:
  ReferenceRun() {
    start.environment.erase("testFileNumber");
    start.environment["class"] = "dslTestReference";
    start.environment["iteration"] = "007";
    start.environment["QUOBRAK_TRACE"] = "trace";
  }
};

}  // namespace

TEST_F(ReferenceRun, MeasuresTheHomeScreenForHalfAMinute) {
  runsThrough();
  ASSERT_EQ(measures().size(), 1U);
  const JSONValue measure = JSONDecoder::decode(measures()[0]);
  EXPECT_EQ(JSONReader(measure).member("test").text(), "HomeReference");
  EXPECT_EQ(JSONReader(measure).member("testTime").integer(), 30000);
}

TEST_F(ReferenceRun, FailsAtTheCommandThatThereIsNot) {
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.out, testCaseLines("passed", "40.005"));
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"failed", NOT_INITIALISED}}));

  const std::vector<JSONValue> lines = eventsOf(traceEvents(folder.read("trace")), "lineFinished");
  ASSERT_EQ(lines.size(), 5U);
  const JSONReader last(lines.back());
  EXPECT_EQ(last.member("number").integer(), 6);
  EXPECT_EQ(last.member("text").text(), "browserPrepareAndOpenForReference");
  EXPECT_EQ(last.member("error").member("message").text(),
            "Function browserPrepareAndOpenForReference is not implemented");
}

TEST_F(ReferenceRun, NamesItsFolderWithTheIterationAsItIsWritten) {
  runsThrough();
  const std::string screenshots = "tests-results/TestReference/LaunchTest/iteration007/screenshots/";
  EXPECT_THAT(
      results(),
      ElementsAre("measures/fernwick--HomeReference-TIME.json", screenshots + "001_HomeReference_start.png",
                  screenshots + "002_HomeReference_stop.png", screenshots + "003_failed.png", "testsStatus.json"));
}

TEST_F(ReferenceRun, FailsWithoutAnIteration) {
  start.environment.erase("iteration");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("The iteration is not set"));
}

}  // namespace quobrak::testing
