#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "tests/faults/ThreeScripts.h"
#include "tests/quobrakUITests/QueryWords.h"

namespace quobrak::faults {

namespace {

using testing::APP_IN_WORDS;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::pointInWords;
using testing::textElementInWords;

constexpr const char* PAGE = R"(
  <XCUIElementTypeStaticText label="Welcome" x="0" y="0" width="80" height="20"/>
  <XCUIElementTypeButton label="Leave" x="80" y="0" width="20" height="20"/>
  <XCUIElementTypeButton label="Order" x="0" y="20" width="100" height="20"/>
  <XCUIElementTypeTextField name="Name" x="0" y="40" width="100" height="20"/>
  <XCUIElementTypeButton label="Warn" x="0" y="60" width="100" height="20"/>
  <XCUIElementTypeScrollView x="0" y="80" width="100" height="20">
    <XCUIElementTypeStaticText label="Bread" x="0" y="80" width="100" height="20"/>
    <XCUIElementTypeStaticText label="Cheese" x="0" y="100" width="100" height="20"/>
  </XCUIElementTypeScrollView>)";

constexpr const char* RULES = R"([
  {"on": "tap", "element": "label == \"Leave\"", "do": [{"show": "empty"}]},
  {"on": "tap", "element": "label == \"Warn\"", "do": [{"systemAlert": {"title": "Battery low", "buttons": ["Later"]}}]}])";

constexpr const char* EMPTY =
    R"(<XCUIElementTypeApplication name="Test" label="Test" x="0" y="0" width="100" height="200">
         <XCUIElementTypeWindow x="0" y="0" width="100" height="200"/>
       </XCUIElementTypeApplication>)";

/// Someone else's finger leads to a screen where there is nothing. An alert of the system would take its touch.
void leaveScreen(simulator::Phone& phone) {
  phone.touch({90, 10}, Seconds::zero());
}

/// With an application that ends go the alerts that it raised.
void endApplication(simulator::Phone& phone) {
  phone.terminate("com.example.test");
}

/// How the command ends when its element vanishes before one of its calls.
struct Ending {
  /// What the trace says of the error: its kind and its message. Empty where the command does not mind.
  std::string kind;
  std::string message;
};

const Ending DOES_NOT_MIND{};

Ending because(const std::string& cause) {
  return {.kind = "fdslError", .message = cause};
}

/// The reason "it does not exist", unless another one is given.
Ending cannot(const std::string& primitive, const std::string& target,
              const std::string& reason = "it does not exist") {
  return {.kind = "UIAutomationError", .message = primitive + " of " + target + " on the simulated phone: " + reason};
}

struct EndingsAtCall {
  Ending afterLeaving;
  Ending afterEnd;
};

EndingsAtCall both(const Ending& ending) {
  return {ending, ending};
}

struct VanishingCase {
  /// Lines before the command, each with its newline.
  std::string preparation;
  std::string command;
  /// For each of the calls that the command makes where nothing vanishes.
  std::vector<EndingsAtCall> endings;
};

const std::string ORDER = textElementInWords("CONTAINS[c]", "Order");
const std::string NAME = textElementInWords("CONTAINS[c]", "Name");
const Ending NOT_FOUND = because("The expected text Order was not found");
const Ending NOT_HITTABLE = because("The element is not hittable");
const EndingsAtCall CANNOT_TYPE{
    cannot("typeText", APP_IN_WORDS, "neither it nor anything in it has the keyboard's focus"),
    cannot("typeText", APP_IN_WORDS)};

const std::vector<VanishingCase> CASES{
    {"", "clickByText,Order", {both(NOT_FOUND), both(NOT_HITTABLE), both(cannot("tap", ORDER))}},
    {"",
     "clickByTextExact,Order",
     {both(NOT_FOUND), both(NOT_HITTABLE), both(cannot("tap", textElementInWords("MATCHES", "Order")))}},
    {"", "longClickByText,Order,300", {both(NOT_FOUND), both(cannot("press", ORDER))}},
    {"findByText,Order\n", "clickOnLastElementFound", {both(NOT_HITTABLE), both(cannot("tap", ORDER))}},

    // A point is touched whatever is there; only its application must be.
    {"",
     "clickByXY,10,30",
     {{DOES_NOT_MIND, cannot("tap", pointInWords("(inf, inf)"))},
      {DOES_NOT_MIND, cannot("tap", pointInWords("(0.1, 0.15)"))}}},
    {"",
     "longClickByXY,10,30,300",
     {{DOES_NOT_MIND, cannot("press", pointInWords("(inf, inf)"))},
      {DOES_NOT_MIND, cannot("press", pointInWords("(0.1, 0.15)"))}}},
    {"", "clickByPercent,50,15", {{DOES_NOT_MIND, cannot("tap", pointInWords("(0.5, 0.15)"))}}},
    {"", "swipeVertical,80,20,50", {{DOES_NOT_MIND, cannot("pressThenDrag", pointInWords("(0.5, 0.8)"))}}},

    {"", "waitUntilText,Order,1000", {both(because("The expected element Order was not found"))}},
    {"", "waitUntilGoneText,Order,1000", {both(DOES_NOT_MIND)}},
    {"",
     "waitUntilTextBeforeClick,Order",
     {both(NOT_FOUND), both(NOT_FOUND), both(NOT_HITTABLE), both(cannot("tap", ORDER))}},
    {"",
     "waitUntilTextBeforeClick,Order,true",
     {both(DOES_NOT_MIND), both(NOT_FOUND), both(NOT_HITTABLE), both(cannot("tap", ORDER))}},

    {"",
     "setTextByText,Ann,Name",
     {both(because("The expected text Name was not found")), both(NOT_HITTABLE), both(cannot("tap", NAME)),
      both(cannot("typeText", NAME)),
      // A keyboard without a return key is left as it is.
      both(DOES_NOT_MIND), both(NOT_HITTABLE),
      both(cannot("tap", "the element (at index 0) of the Button descendants, keyed \"return\" of " + APP_IN_WORDS))}},
    {"clickByText,Name\n",
     "enterText,Lee",
     {both(because("The keyboard is not visible")), CANNOT_TYPE, CANNOT_TYPE, CANNOT_TYPE}},
    {"clickByText,Name\n", "enterTextFast,Lee", {both(because("The keyboard is not visible")), CANNOT_TYPE}},

    {"",
     "scrollDownward",
     {both(because("No scrollable view")),
      both(cannot("swipe", "the element (first) of the ScrollView descendants of " + APP_IN_WORDS))}},

    {"clickByText,Warn\n",
     "clickByTextOnSystemPopup,Later",
     {{DOES_NOT_MIND, because("The expected element Later was not found")},
      {DOES_NOT_MIND, cannot("tap",
                             "the element (single) of the Button descendants, keyed \"Later\" of the "
                             "application \"com.apple.springboard\"")}}},
    {"clickByText,Warn\n",
     "waitUntilTextOnSystemPopup,Later,1000",
     {{DOES_NOT_MIND, because("The expected element Later was not found")}}},
};

/// The command, and a script after it that needs what has vanished.
Suite suiteOf(const std::string& preparation, const std::string& command) {
  testing::MemoryPhoneFiles phone = testing::smallPhone(PAGE, RULES);
  phone["test/empty.xml"] = EMPTY;
  const std::string start = "applicationStart,com.example.test\n";
  return {.phone = phone,
          .scripts = {{"meets", start + preparation + command}, {"next", start + "clickByText,Order"}},
          .iteration = 1,
          .documents = {}};
}

std::size_t lineOfCommand(const VanishingCase& vanishing) {
  return vanishing.preparation.empty() ? 2 : 3;
}

std::vector<Call> callsOfLine(const Outcome& outcome, std::size_t line) {
  std::vector<Call> calls = outcome.callsOf(Seam::driver);
  std::erase_if(calls, [line](const Call& call) { return call.script != 0 || call.line != line; });
  return calls;
}

SuiteRun runWith(const Suite& suite, const Call& call, void (*vanish)(simulator::Phone&)) {
  return SuiteRun::of(suite, {.driver = [&](std::size_t number, simulator::Phone& phone) {
                        if (number == call.number) {
                          vanish(phone);
                        }
                      }});
}

Summary expectedSummary(const VanishingCase& vanishing, const Ending& ending) {
  const bool hasFailed = !ending.kind.empty();
  const std::string report = ending.kind == "fdslError" ? "Error on line " + vanishing.command +
                                                              " (line: " + std::to_string(lineOfCommand(vanishing)) +
                                                              "). Cause: " + ending.message
                                                        : ending.message;
  const std::string reason = ending.kind == "fdslError" ? report : "An unknown error occured while executing actions";
  Summary summary{
      .raised = {},
      .statuses = {{hasFailed ? "failed: " + reason : "success", "success"}},
      .errors = {},
      .steps = {},
      .files = {"scripts/meets.txt", "scripts/next.txt", "tests-results/Shop/meets/iteration1/dump/dump.txt",
                std::string("tests-results/Shop/meets/iteration1/screenshots/001_") +
                    (hasFailed ? "failed" : "success") + ".png",
                "tests-results/Shop/next/iteration1/dump/dump.txt",
                "tests-results/Shop/next/iteration1/screenshots/001_success.png"}};
  if (hasFailed) {
    summary.errors[0] = {"scriptError " + ending.kind + ": " + report};
  }
  return summary;
}

void expectEnding(const VanishingCase& vanishing, const SuiteRun& run, const Ending& ending) {
  EXPECT_EQ(run.end, RAN_THROUGH);
  EXPECT_EQ(run.outcome.summary(), expectedSummary(vanishing, ending));
  EXPECT_THAT(run.outcome.damages(), IsEmpty());
}

}  // namespace

TEST(VanishingElements, BeforeEachCallOfACommand) {
  for (const VanishingCase& vanishing : CASES) {
    const Suite suite = suiteOf(vanishing.preparation, vanishing.command);
    const std::vector<Call> calls = callsOfLine(SuiteRun::of(suite).outcome, lineOfCommand(vanishing));
    ASSERT_EQ(calls.size(), vanishing.endings.size()) << vanishing.command;
    for (std::size_t i = 0; i < calls.size(); ++i) {
      SCOPED_TRACE(vanishing.command + ", before call " + std::to_string(i + 1) + ", " + calls[i].name);
      expectEnding(vanishing, runWith(suite, calls[i], leaveScreen), vanishing.endings[i].afterLeaving);
      expectEnding(vanishing, runWith(suite, calls[i], endApplication), vanishing.endings[i].afterEnd);
    }
  }
}

TEST(VanishingElements, BeforeTheSearchOfASwipeStopsTheProcessAndLeavesWhatIsWritten) {
  Suite suite = suiteOf("measureStart,Step\nmeasureStop\n", "swipeDownwardToText,Order,3");
  suite.iteration = 2;
  const std::string earlierStatuses = R"([{"stackTrace":"earlier","status":"failed"}])";
  suite.documents = {{"testsStatus.json", earlierStatuses}};
  const std::vector<Call> calls = callsOfLine(SuiteRun::of(suite).outcome, 4);
  ASSERT_EQ(calls.size(), 2U);
  for (const auto vanish : {leaveScreen, endApplication}) {
    const SuiteRun run = runWith(suite, calls[0], vanish);
    EXPECT_EQ(run.end.signal, SIGABRT);
    EXPECT_EQ(run.end.printed,
              "Fatal error: Unexpectedly raised an error: the search for Order before a swipe: The expected text Order "
              "was not found (line 4: swipeDownwardToText,Order,3)\n");
    EXPECT_THAT(run.outcome.summary().statuses.value(), ElementsAre("failed: earlier"));
    EXPECT_THAT(run.outcome.summary().steps, IsEmpty());
    EXPECT_THAT(run.outcome.summary().files,
                ElementsAre("scripts/meets.txt", "scripts/next.txt",
                            "tests-results/Shop/meets/iteration2/screenshots/001_Step_start.png",
                            "tests-results/Shop/meets/iteration2/screenshots/002_Step_stop.png"));
    EXPECT_THAT(run.outcome.damages(), IsEmpty());
  }
}

}  // namespace quobrak::faults
