#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/Clock.h"
#include "tests/faults/SuiteRun.h"

namespace quobrak::faults {

namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Two screens with the same elements in another order at other places, and a corner that leads from one to the other.
constexpr const char* HERE = R"(
  <XCUIElementTypeButton label="Flip" x="80" y="0" width="20" height="20"/>
  <XCUIElementTypeButton label="Order" x="0" y="20" width="100" height="20"/>
  <XCUIElementTypeTextField name="Name" x="0" y="40" width="100" height="20"/>
  <XCUIElementTypeScrollView x="0" y="60" width="100" height="20">
    <XCUIElementTypeStaticText label="Bread" x="0" y="60" width="100" height="20"/>
    <XCUIElementTypeStaticText label="Cheese" x="0" y="80" width="100" height="20"/>
  </XCUIElementTypeScrollView>)";

constexpr const char* THERE =
    R"(<XCUIElementTypeApplication name="Test" label="Test" x="0" y="0" width="100" height="200">
         <XCUIElementTypeWindow x="0" y="0" width="100" height="200">
           <XCUIElementTypeScrollView x="0" y="100" width="100" height="40">
             <XCUIElementTypeStaticText label="Bread" x="0" y="100" width="100" height="40"/>
             <XCUIElementTypeStaticText label="Cheese" x="0" y="140" width="100" height="40"/>
           </XCUIElementTypeScrollView>
           <XCUIElementTypeTextField name="Name" x="0" y="160" width="100" height="20"/>
           <XCUIElementTypeButton label="Order" x="0" y="180" width="100" height="20"/>
           <XCUIElementTypeButton label="Flip" x="80" y="0" width="20" height="20"/>
         </XCUIElementTypeWindow>
       </XCUIElementTypeApplication>)";

constexpr const char* RULES = R"([
  {"on": "tap", "element": "label == \"Flip\"", "when": {"screen": ""},
   "do": [{"show": "there"}, {"set": {"screen": "there"}}]},
  {"on": "tap", "element": "label == \"Flip\"", "when": {"screen": "there"},
   "do": [{"show": "start"}, {"set": {"screen": ""}}]}])";

constexpr const char* FINDS =
    "applicationStart,com.example.test\n"
    "measureStart,Find\n"
    "clickByText,Order\n"
    "clickByTextExact,Order\n"
    "longClickByText,Order,300\n"
    "findByText,Order\n"
    "clickOnLastElementFound\n"
    "pause,250\n"
    "measureStop\n"
    "measureStart,Wait\n"
    "waitUntilTextBeforeClick,Order\n"
    "waitUntilGoneText,Goodbye,3000\n"
    "scrollDownward\n"
    "measureStop";

/// The keyboard goes with the screen that it came for.
constexpr const char* TYPES =
    "applicationStart,com.example.test\n"
    "measureStart,Type\n"
    "setTextByText,Ann,Name\n"
    "measureStop";

constexpr const char* WAITS =
    "applicationStart,com.example.test\n"
    "measureStart,Late\n"
    "waitUntilText,Order,0\n"
    "measureStop\n"
    "waitUntilText,Never,2500";

Suite changingSuite() {
  testing::MemoryPhoneFiles phone = testing::smallPhone(HERE, RULES);
  phone["test/there.xml"] = THERE;
  return {.phone = phone,
          .scripts = {{"finds", FINDS}, {"types", TYPES}, {"waits", WAITS}},
          .iteration = 1,
          .documents = {}};
}

/// Before each call a second goes by and the other screen comes up.
SuiteRun changingRun() {
  return SuiteRun::of(changingSuite(), {.driver = [](std::size_t, simulator::Phone& phone) {
                        Clock::shared().usleep(1000 * 1000);
                        phone.touch({90, 10}, Seconds::zero());
                      }});
}

}  // namespace

TEST(ChangingScreen, TouchesLandOnWhatWasMeantWhereverItIs) {
  const Outcome outcome = changingRun().outcome;
  std::vector<std::string> touched = outcome.touched();
  std::erase(touched, "Flip");
  ASSERT_EQ(touched.size(), 7U);
  EXPECT_THAT(std::vector<std::string>(touched.begin(), touched.begin() + 5), Each("Order"));
  EXPECT_THAT(std::vector<std::string>(touched.begin() + 5, touched.end()), ElementsAre("Bread", "Name"));
}

TEST(ChangingScreen, StepsTakeASecondForEachCall) {
  const SuiteRun run = changingRun();
  EXPECT_EQ(run.end, RAN_THROUGH);
  // Eleven calls, 300 ms of a press and 250 ms of a pause; four calls of a wait and a tap, one of a wait, two of a
  // scroll.
  EXPECT_THAT(run.outcome.summary().steps, ElementsAre("Find 11550 ms", "Wait 7000 ms", "Late 1000 ms"));
  EXPECT_THAT(run.outcome.damages(), IsEmpty());
}

TEST(ChangingScreen, ScriptsEndAsTheScreenThatIsThereHasIt) {
  const Summary summary = changingRun().outcome.summary();
  EXPECT_THAT(summary.statuses.value(),
              ElementsAre("success", "failed: An unknown error occured while executing actions",
                          "failed: Error on line waitUntilText,Never,2500 (line: 5). Cause: The expected element Never "
                          "was not found"));
  EXPECT_THAT(summary.errors.at(1),
              ElementsAre(::testing::EndsWith(" on the simulated phone: neither it nor anything in it has the "
                                              "keyboard's focus")));
  EXPECT_THAT(summary.files, ElementsAre("scripts/finds.txt", "scripts/types.txt", "scripts/waits.txt",
                                         "tests-results/Shop/finds/iteration1/dump/dump.txt",
                                         "tests-results/Shop/finds/iteration1/screenshots/001_Find_start.png",
                                         "tests-results/Shop/finds/iteration1/screenshots/002_Find_stop.png",
                                         "tests-results/Shop/finds/iteration1/screenshots/003_Wait_start.png",
                                         "tests-results/Shop/finds/iteration1/screenshots/004_Wait_stop.png",
                                         "tests-results/Shop/finds/iteration1/screenshots/005_success.png",
                                         "tests-results/Shop/types/iteration1/dump/dump.txt",
                                         "tests-results/Shop/types/iteration1/screenshots/001_Type_start.png",
                                         "tests-results/Shop/types/iteration1/screenshots/002_failed.png",
                                         "tests-results/Shop/waits/iteration1/dump/dump.txt",
                                         "tests-results/Shop/waits/iteration1/screenshots/001_Late_start.png",
                                         "tests-results/Shop/waits/iteration1/screenshots/002_Late_stop.png",
                                         "tests-results/Shop/waits/iteration1/screenshots/003_failed.png"));
}

}  // namespace quobrak::faults
