#include "host/check/RunNeeds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quobrakUITests/CommandTable.h"
#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using testing::findingsIn;
using ::testing::IsEmpty;

constexpr const char* NOT_INITIALISED =
    "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your script.";

TEST(RunNeeds, TellOfTheFirstCommandThatLacksAnApplication) {
  EXPECT_THAT(findingsIn("pause,1\nclickByText,a\nclickByText,b\nlaunchBrowser\nfindByText,c"),
              ElementsAre("2:1-12 error no-application: " + std::string(NOT_INITIALISED)));
}

TEST(RunNeeds, TellThatASwipeToATextStopsWithoutAnApplication) {
  EXPECT_THAT(
      findingsIn("swipeUpwardToText,Deep"),
      ElementsAre("1:1-18 error no-application, aborts: Unexpectedly raised an error: the search for Deep before "
                  "a swipe: " +
                  std::string(NOT_INITIALISED)));
  EXPECT_THAT(
      findingsIn("swipeUpwardToText"),
      ElementsAre("1:1-18 error no-application, aborts: " + std::string(NOT_INITIALISED),
                  "1:18-18 error missing-argument, aborts: Index out of range: the field 1 (selector) is missing "
                  "(it is written swipeUpwardToText,selector[,maxSwipe[,percX]])"));
}

TEST(RunNeeds, AreMetByAllCommandsThatStartAnApplication) {
  for (const char* starter : {"applicationStart,a", "launchBrowser", "browserClearCache", "browserPrepareAndOpen",
                              "browserPrepareAndOpenForReference", "installApp,https://apps.example/1"}) {
    EXPECT_THAT(findingsIn(std::string(starter) + "\nscrollDownward"), IsEmpty()) << starter;
  }
}

TEST(RunNeeds, AreNoneForCommandsOfTheDeviceAndTheSystem) {
  EXPECT_THAT(findingsIn("applicationKill,a\npause,1\npressHome\npressVolumeUp\npressVolumeDown\n"
                         "clickByTextOnSystemPopup,OK\nwaitUntilTextOnSystemPopup,OK"),
              IsEmpty());
}

TEST(RunNeeds, TellOfTheLastElementFoundBeforeAnySearch) {
  const std::string finding =
      "error nothing-found-yet: Please search for an element before using this method (findByText, or a tap by text, "
      "in "
      "a line above finds one)";
  EXPECT_THAT(findingsIn("clickOnLastElementFound\nclickOnLastElementFound"), ElementsAre("1:1-24 " + finding));
  EXPECT_THAT(findingsIn("launchBrowser\nwaitUntilText,a\nclickByXY,1,1\nclickOnLastElementFound"),
              ElementsAre("4:1-24 " + finding));
  for (const char* search : {"findByClass,Button", "clickByText,a", "longClickByText,a", "setTextByText,a,b",
                             "swipeDownwardToText,a", "waitUntilTextBeforeClick,a,true", "browserGoToUrl,a"}) {
    EXPECT_THAT(findingsIn("launchBrowser\n" + std::string(search) + "\nclickOnLastElementFound"), IsEmpty()) << search;
  }
}

TEST(RunNeeds, TellOfSteps) {
  EXPECT_THAT(findingsIn("measureStop\nmeasureStop"),
              ElementsAre("1:1-12 error stop-without-start, aborts: Index out of range: measureStop without a "
                          "measureStart before it (begin a step with measureStart)"));
  EXPECT_THAT(findingsIn("measureStart,A\nmeasureStart,B\nmeasureStop\nmeasureStop\nmeasureStart,C"),
              ElementsAre("2:14-15 warning replaced-step: The step A is still open: it is dropped here, and leaves no "
                          "measure (end it with measureStop before this line)",
                          "5:14-15 warning never-stopped: The step C is never stopped, and leaves no measure (end it "
                          "with measureStop)"));
}

TEST(RunNeeds, TellOfStepsWithoutAName) {
  const std::string empty = "-14 warning empty-argument: The argument stepName is empty";
  EXPECT_THAT(findingsIn("measureStart,\nmeasureStart,B\nmeasureStop\nmeasureStart,"),
              ElementsAre("1:14" + empty,
                          "2:14-15 warning replaced-step: The step without a name is still open: it is dropped here, "
                          "and leaves no measure (end it with measureStop before this line)",
                          "4:14" + empty,
                          "4:14-14 warning never-stopped: The step without a name is never stopped, and leaves no "
                          "measure (end it with measureStop)"));
}

TEST(RunNeeds, TakeWhatWasMeantForDone) {
  EXPECT_THAT(findingsIn("aplicationStart,a\nclickByText,a\nmeasurStart,A\nmeasureStop"),
              ElementsAre("1:1-16 error unknown-command: Function aplicationStart is not implemented (did you mean "
                          "applicationStart?)",
                          "3:1-12 error unknown-command: Function measurStart is not implemented (did you mean "
                          "measureStart?)"));
  EXPECT_THAT(findingsIn("${iteration}\nclickByText,a\nclickOnLastElementFound\nmeasureStop"), IsEmpty());
}

/// A row that needs and leaves nothing, but is about what the summary of its command says, would be an oversight.
TEST(RunNeeds, AreToldByTheRowsOfTheTable) {
  std::vector<std::string_view> unconcerned;
  for (const CommandRow& row : commandTable()) {
    if (row.effects.application == CommandEffects::Application::unused &&
        row.effects.search == CommandEffects::Search::unused && row.effects.step == CommandEffects::Step::unused) {
      unconcerned.push_back(row.name);
    }
  }
  EXPECT_THAT(unconcerned, ElementsAre("applicationKill", "clickByTextOnSystemPopup", "pause", "pressHome",
                                       "pressVolumeUp", "pressVolumeDown", "waitUntilTextOnSystemPopup"));
}

}  // namespace
}  // namespace quobrak::host
