#include "tests/faults/ThreeScripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace quobrak::faults {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

/// What the runs with faults are compared with.
class UndisturbedRun : public ::testing::Test {
 protected:
  static std::vector<std::string> picturesAndDump(const std::string& script, const std::vector<std::string>& pictures) {
    const std::string folder = "tests-results/Shop/" + script + "/iteration1/";
    std::vector<std::string> files{folder + "dump/dump.txt"};
    for (const std::string& picture : pictures) {
      files.push_back(folder + "screenshots/" + picture + ".png");
    }
    return files;
  }

  const SuiteRun run = SuiteRun::of(threeScripts(1));
  const Outcome& outcome = run.outcome;
};

}  // namespace

TEST_F(UndisturbedRun, LeavesWhatItsScriptsSay) {
  const std::string reason = "Error on line clickByText,Covered (line: 9). Cause: The element Covered is not hittable";
  Summary expected{.raised = {},
                   .statuses = {{"success", "failed: " + reason, "success"}},
                   .errors = {{1, {"scriptError fdslError: " + reason}}},
                   .steps = {"Answer 270 ms", "Scroll 300 ms", "Touch 40 ms"},
                   .files = {"other.txt", "scripts/fails.txt", "scripts/succeeds.txt", "scripts/touches.txt"}};
  for (const std::vector<std::string>& files :
       {picturesAndDump("fails", {"001_Scroll_start", "002_Scroll_stop", "003_Never stopped_start", "004_failed"}),
        picturesAndDump("succeeds", {"001_Answer_start", "002_Answer_stop", "003_success"}),
        picturesAndDump("touches", {"001_Touch_start", "002_Touch_stop", "003_success"})}) {
    expected.files.insert(expected.files.end(), files.begin(), files.end());
  }
  EXPECT_EQ(run.end, RAN_THROUGH);
  EXPECT_EQ(outcome.summary(), expected);
  EXPECT_THAT(outcome.damages(), IsEmpty());
}

TEST_F(UndisturbedRun, AsksOfThePhoneAllThatTheSystemAsksOfAny) {
  std::map<std::string, int> primitives;
  for (const Call& call : outcome.callsOf(Seam::driver)) {
    ++primitives[call.name];
  }
  EXPECT_THAT(primitives, ElementsAre(Pair("addInterruptionMonitor", 1), Pair("count", 7), Pair("debugDescription", 3),
                                      Pair("exists", 7), Pair("frame", 2), Pair("isHittable", 6), Pair("label", 1),
                                      Pair("launch", 3), Pair("press", 2), Pair("pressButton", 2),
                                      Pair("pressThenDrag", 1), Pair("removeInterruptionMonitor", 1),
                                      Pair("screenshot", 10), Pair("swipe", 1), Pair("tap", 8), Pair("terminate", 1),
                                      Pair("typeText", 3), Pair("waitForExistence", 2), Pair("waitForPredicate", 1)));
}

TEST_F(UndisturbedRun, TakesThePictureOfAScriptBeforeItsDumpAndWritesTheMeasuresBeforeTheStatuses) {
  std::vector<std::string> written;
  for (const Call& call : outcome.callsOf(Seam::files)) {
    if (call.name == "write" && call.phase != Phase::inLine) {
      written.push_back(call.target.substr(0, call.target.find("-17")));
    }
  }
  EXPECT_THAT(written, ElementsAre("tests-results/Shop/succeeds/iteration1/screenshots/003_success.png",
                                   "tests-results/Shop/succeeds/iteration1/dump/dump.txt",
                                   "tests-results/Shop/fails/iteration1/screenshots/004_failed.png",
                                   "tests-results/Shop/fails/iteration1/dump/dump.txt",
                                   "tests-results/Shop/touches/iteration1/screenshots/003_success.png",
                                   "tests-results/Shop/touches/iteration1/dump/dump.txt", "measures/fernwick--Answer",
                                   "measures/fernwick--Scroll", "measures/fernwick--Touch", "testsStatus.json"));
}

TEST_F(UndisturbedRun, TakesPicturesOutsideTheStepsThatTheyFrame) {
  for (const Step& step : outcome.steps()) {
    for (std::size_t i = step.callsBeforeStart; i < step.callsBeforeStop; ++i) {
      EXPECT_EQ(outcome.calls()[i].seam, Seam::driver) << outcome.calls()[i].target;
      EXPECT_NE(outcome.calls()[i].name, "screenshot");
    }
  }
}

}  // namespace quobrak::faults
