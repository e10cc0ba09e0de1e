#include "host/check/RunOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using testing::findingsInRun;
using ::testing::IsEmpty;

constexpr bool UNKNOWN_ORDER = false;
constexpr const char* NOT_INITIALISED =
    "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your script.";

std::string noApplication(const std::string& place, const std::string& severity = "error") {
  return place + " " + severity + " no-application: " + NOT_INITIALISED;
}

TEST(RunOrder, LetsLaterScriptsHaveWhatEarlierOnesGive) {
  EXPECT_THAT(findingsInRun({"launchBrowser\nfindByText,a\nmeasureStart,A",
                             "clickByText,a\nclickOnLastElementFound\n"
                             "measureStop"}),
              IsEmpty());
}

TEST(RunOrder, TellsOfTheFirstScriptThatLacksSomething) {
  EXPECT_THAT(findingsInRun({"clickByText,a", "clickByText,a", "launchBrowser", "clickByText,a"}),
              ElementsAre(noApplication("1:1-12")));
}

TEST(RunOrder, TellsOfStepsFromScriptToScript) {
  EXPECT_THAT(
      findingsInRun({"measureStart,A", "pause,1", "measureStart,B", "measureStop", "measureStart,C"}),
      ElementsAre("3/1:14-15 warning replaced-step: A step that an earlier script has begun is still open: it is "
                  "dropped here, and leaves no measure (end it with measureStop before this line)",
                  "5/1:14-15 warning never-stopped: The step C is never stopped, and leaves no measure (end it "
                  "with measureStop)"));
}

TEST(RunOrder, IsOfTheRunWhereItIsKnown) {
  EXPECT_THAT(findingsInRun({"measureStop", "measureStart,A\nmeasureStop"}),
              ElementsAre("1:1-12 error stop-without-start, aborts: Index out of range: measureStop without a "
                          "measureStart before it (begin a step with measureStart)"));
}

TEST(RunOrder, ThatIsNotKnownMakesWarningsOfWhatAnotherScriptGives) {
  EXPECT_THAT(
      findingsInRun(
          {"clickByText,a\nclickOnLastElementFound\nmeasureStop", "launchBrowser\nfindByText,a\nmeasureStart,A"},
          UNKNOWN_ORDER),
      ElementsAre(noApplication("1:1-12", "warning") +
                      " (another script of this check starts an application: it must run before this one)",
                  "3:1-12 warning stop-without-start, aborts: Index out of range: measureStop without a measureStart "
                  "before it (another script of this check begins a step: it must run before this one)"));
  EXPECT_THAT(findingsInRun({"clickOnLastElementFound", "launchBrowser\nfindByText,a"}, UNKNOWN_ORDER),
              ElementsAre("1:1-24 warning nothing-found-yet: Please search for an element before using this method "
                          "(another script of this check finds elements: it must run before this one)"));
}

TEST(RunOrder, ThatIsNotKnownLeavesErrorsWhereNoOtherScriptHelps) {
  EXPECT_THAT(findingsInRun({"clickByText,a", "pause,1", "clickByText,a\nlaunchBrowser"}, UNKNOWN_ORDER),
              ElementsAre(noApplication("1:1-12", "warning") +
                              " (another script of this check starts an application: it must run before this one)",
                          noApplication("3/1:1-12")));
}

TEST(RunOrder, ThatIsNotKnownAllowsAStepToBeStoppedElsewhere) {
  const std::string finding =
      "1:14-15 warning never-stopped: The step A is never stopped, and leaves no measure (end it with measureStop)";
  EXPECT_THAT(findingsInRun({"measureStart,A", "pause,1"}, UNKNOWN_ORDER), ElementsAre(finding));
  EXPECT_THAT(findingsInRun({"measureStart,A", "measureStart,B\nmeasureStop"}, UNKNOWN_ORDER), ElementsAre(finding));
}

TEST(RunOrder, TakesWhatCannotBeReadForGiven) {
  EXPECT_THAT(findingsInRun({"\xFF", "clickByText,a\nclickOnLastElementFound\nmeasureStop"}),
              ElementsAre("1:1-2 error unreadable-text, prevents: The file script1.txt is missing in the document "
                          "directory (the byte 0xFF is no UTF-8: save the file as UTF-8)"));
}

}  // namespace
}  // namespace quobrak::host
