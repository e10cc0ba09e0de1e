#include "host/run/Measures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

std::string measureFile(const std::string& name, std::int64_t start, std::int64_t stop) {
  return R"({"measures":[[{"time":)" + std::to_string(start) + R"(,"values":{}},{"time":)" + std::to_string(stop) +
         R"(,"values":{}}],[]],"test":")" + name + R"(","testTime":)" + std::to_string(stop - start) + "}";
}

MeasuredStep step(const std::string& name, std::int64_t start, std::int64_t stop) {
  return {.name = name, .start = start, .stop = stop, .duration = stop - start};
}

class Measures : public ::testing::Test {
 protected:
  Measures() {
    for (std::size_t script = 0; script < 2; ++script) {
      iteration.scripts.emplace_back().script = script;
    }
  }

  IterationRecord iteration;
  std::vector<std::string> notices;
  const TemporaryFolder folder;
};

TEST_F(Measures, AreReadInTheOrderOfTheirSteps) {
  folder.write("fernwick--B-3.json", measureFile("B", 10, 30));
  folder.write("fernwick--A-4.json", measureFile("A", 20, 25));
  folder.write("fernwick--a/b-5.json", measureFile("a/b", 1, 2));
  EXPECT_THAT(readMeasures(folder.path(), notices),
              ElementsAre(step("a/b", 1, 2), step("B", 10, 30), step("A", 20, 25)));
  EXPECT_THAT(notices, IsEmpty());
}

TEST_F(Measures, NeedNotBeThere) {
  EXPECT_THAT(readMeasures(folder.path() / "measures", notices), IsEmpty());
  EXPECT_THAT(notices, IsEmpty());
}

TEST_F(Measures, ThatCannotBeUsedAreTold) {
  folder.write("a.json", R"({"measures":[[]],"test":"A","testTime":1})");
  folder.write("b.json", R"({"measures":[[]],"test":"A"})");
  folder.write("c.json", measureFile("C", 1, 2));
  EXPECT_THAT(readMeasures(folder.path(), notices), ElementsAre(step("C", 1, 2)));
  const std::string path = folder.path().string();
  EXPECT_THAT(notices, ElementsAre("The measure " + path +
                                       "/a.json cannot be used: measures: there is no tick of a start and a stop",
                                   "The measure " + path + "/b.json cannot be used: testTime: missing"));
}

TEST_F(Measures, OfOneNameAreThoseOfTheScriptThatTookThem) {
  assignMeasures({step("Step", 10, 20), step("Step", 30, 50), step("Step", 60, 61)},
                 {{.position = 0, .step = step("Step", 10, 20)},
                  {.position = 1, .step = step("Step", 30, 50)},
                  {.position = 1, .step = step("Step", 60, 61)}},
                 iteration, notices);
  EXPECT_THAT(iteration.scripts[0].steps, ElementsAre(step("Step", 10, 20)));
  EXPECT_THAT(iteration.scripts[1].steps, ElementsAre(step("Step", 30, 50), step("Step", 60, 61)));
  EXPECT_THAT(notices, IsEmpty());
}

TEST_F(Measures, AreKnownByTheirNamesAndStarts) {
  iteration.outcome = IterationOutcome::failed;
  assignMeasures({step("A", 10, 20), step("B", 10, 20), step("Step", 30, 50)},
                 {{.position = 0, .step = step("B", 10, 20)},
                  {.position = 1, .step = step("A", 10, 20)},
                  {.position = 0, .step = step("Step", 25, 26)},
                  {.position = 1, .step = step("Step", 30, 50)}},
                 iteration, notices);
  EXPECT_THAT(iteration.scripts[0].steps, ElementsAre(step("B", 10, 20)));
  EXPECT_THAT(iteration.scripts[1].steps, ElementsAre(step("A", 10, 20), step("Step", 30, 50)));
}

TEST_F(Measures, TellTheDurationWhereTheTraceSaysAnother) {
  assignMeasures({step("Step", 10, 20)}, {{.position = 0, .step = step("Step", 10, 99)}}, iteration, notices);
  EXPECT_THAT(iteration.scripts[0].steps, ElementsAre(step("Step", 10, 20)));
}

TEST_F(Measures, ThatTheTraceDoesNotKnowAreThoseOfTheLastScriptThatBegan) {
  iteration.scripts[0].started = 1;
  assignMeasures({step("Step", 10, 20)}, {}, iteration, notices);
  EXPECT_THAT(iteration.scripts[0].steps, ElementsAre(step("Step", 10, 20)));
  EXPECT_THAT(notices, ElementsAre("The trace does not tell which script has measured the step Step; it is counted to "
                                   "the last one"));
}

TEST_F(Measures, AreKeptWhereThereIsNoTraceAtAll) {
  assignMeasures({step("Step", 10, 20)}, {}, iteration, notices);
  EXPECT_THAT(iteration.scripts[1].steps, ElementsAre(step("Step", 10, 20)));
}

TEST_F(Measures, ThatAreMissingAreThoseOfTheTrace) {
  assignMeasures({}, {{.position = 0, .step = step("Step", 10, 20)}}, iteration, notices);
  EXPECT_THAT(iteration.scripts[0].steps, ElementsAre(step("Step", 10, 20)));
  EXPECT_THAT(notices, ElementsAre("The step Step has no measure file; its times are those of the trace"));
}

TEST_F(Measures, OfAnIterationThatDidNotFinishAreThoseThatWereWritten) {
  iteration.outcome = IterationOutcome::aborted;
  assignMeasures({}, {{.position = 0, .step = step("Step", 10, 20)}}, iteration, notices);
  EXPECT_THAT(iteration.scripts[0].steps, IsEmpty());
  EXPECT_THAT(notices, IsEmpty());
}

}  // namespace
}  // namespace quobrak::host
