#include "quobrakUITests/Scroll.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/AnsweringDriver.h"
#include "tests/quobrakUITests/QueryWords.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using std::chrono::milliseconds;
using testing::AnsweringDriver;
using testing::APP_IN_WORDS;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;
using testing::pointInWords;
using ::testing::SizeIs;
using testing::textElementInWords;
using testing::textQueryInWords;
using ::testing::ThrowsMessage;

std::string dragInWords(const std::string& from, const std::string& to) {
  return "drag after 0 s: " + pointInWords(from) + " to " + pointInWords(to);
}

TEST(Scroll, OneSwipeOverTheFirstScrollViewAgainstTheDirection) {
  struct Row {
    void (*scroll)();
    std::string_view direction;
  };
  constexpr Row ROWS[] = {{Scroll::scrollDownward, "up"},
                          {Scroll::scrollUpward, "down"},
                          {Scroll::scrollLeftward, "right"},
                          {Scroll::scrollRightward, "left"}};
  const std::string scrollView = ": the element (first) of the ScrollView descendants of " + APP_IN_WORDS;
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  for (const auto& [scroll, direction] : ROWS) {
    const AnsweringDriver& driver = AnsweringDriver::install();
    scroll();
    EXPECT_THAT(driver.operations, ElementsAre("exists" + scrollView, "swipe " + std::string(direction) + scrollView));
  }
}

TEST(Scroll, WithoutAScrollView) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.existsOf = [](const std::string&) { return false; };
  for (const auto scroll :
       {Scroll::scrollDownward, Scroll::scrollUpward, Scroll::scrollLeftward, Scroll::scrollRightward}) {
    EXPECT_THAT([&] { scroll(); }, testing::raisesFdslError("No scrollable view"));
  }
  EXPECT_THAT(driver.actions(), IsEmpty());
}

TEST(Scroll, TableIsNoScrollView) {
  testing::TestPlatform platform(R"(<XCUIElementTypeTable x="0" y="0" width="100" height="200"/>)");
  TestContext::shared().setTestingApp("com.example.test");
  TestContext::shared().getTestingApp().launch();
  EXPECT_THAT([] { Scroll::scrollDownward(); }, testing::raisesFdslError("No scrollable view"));
}

TEST(Scroll, SwipesAreDragsAtOnceBetweenTwoPoints) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const AnsweringDriver& driver = AnsweringDriver::install();
  Scroll::swipeVertical(70, 30, 25);
  Scroll::swipeHorizontal(5, 95, 10);
  Scroll::swipeDownward(50, 70);
  Scroll::swipeUpward(50, 10);
  Scroll::swipeLeftward(50);
  Scroll::swipeRightward(50);
  EXPECT_THAT(driver.operations,
              ElementsAre(dragInWords("(0.25, 0.7)", "(0.25, 0.3)"), dragInWords("(0.05, 0.1)", "(0.95, 0.1)"),
                          dragInWords("(0.5, 0.7)", "(0.5, 0.2)"), dragInWords("(0.5, 0.1)", "(0.5, 0.8)"),
                          dragInWords("(0.2, 0.5)", "(0.8, 0.5)"), dragInWords("(0.8, 0.5)", "(0.2, 0.5)")));
}

TEST(Scroll, PlacesOutsideTheScreenAreHandedOnAsTheyAre) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const AnsweringDriver& driver = AnsweringDriver::install();
  Scroll::swipeVertical(150, -20, 0);
  Scroll::swipeHorizontal(-1, 101, 200);
  EXPECT_THAT(driver.operations,
              ElementsAre(dragInWords("(0, 1.5)", "(0, -0.2)"), dragInWords("(-0.01, 2)", "(1.01, 2)")));
}

TEST(Scroll, WithoutAnApplication) {
  testing::TestPlatform platform;
  const AnsweringDriver& driver = AnsweringDriver::install();
  EXPECT_THAT([] { Scroll::scrollDownward(); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::scrollUpward(); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::scrollLeftward(); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::scrollRightward(); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::swipeVertical(1, 2, 3); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::swipeHorizontal(1, 2, 3); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::swipeDownward(1, 2); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::swipeUpward(1, 2); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::swipeLeftward(1); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Scroll::swipeRightward(1); }, testing::raisesNotInitialised());
  EXPECT_THAT(driver.operations, IsEmpty());
}

TEST(SwipeToText, TextThatCanBeHitNeedsNoSwipeAndNoPause) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  for (const auto swipe : {Scroll::swipeDownwardToText, Scroll::swipeUpwardToText}) {
    const AnsweringDriver& driver = AnsweringDriver::install();
    swipe("deep", 1, 50);
    EXPECT_THAT(driver.operations, ElementsAre("count: " + textQueryInWords("CONTAINS[c]", "deep"),
                                               "isHittable: " + textElementInWords("CONTAINS[c]", "deep")));
  }
  EXPECT_EQ(platform.elapsed(), milliseconds(0));
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(describe(*Find::lastElementFound), textElementInWords("CONTAINS[c]", "deep"));
}

TEST(SwipeToText, LooksSwipesAndPausesUntilTheTextCanBeHit) {
  struct Row {
    void (*swipe)(std::string_view selector, std::int64_t maxSwipe, std::int64_t percX);
    std::string drag;
  };
  const Row ROWS[] = {{Scroll::swipeDownwardToText, dragInWords("(0.3, 0.9)", "(0.3, 0.2)")},
                      {Scroll::swipeUpwardToText, dragInWords("(0.3, 0.1)", "(0.3, 0.8)")}};
  const std::string count = "count: " + textQueryInWords("CONTAINS[c]", "deep");
  const std::string isHittable = "isHittable: " + textElementInWords("CONTAINS[c]", "deep");
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  for (const Row& row : ROWS) {
    AnsweringDriver& driver = AnsweringDriver::install();
    driver.isHittableAnswer = [&driver] { return driver.actions().size() == 2; };
    const auto start = platform.elapsed();
    row.swipe("deep", 5, 30);
    // Each search begins without what the one before it had found.
    EXPECT_THAT(driver.operations, ElementsAre(count, isHittable, row.drag, "forgetLookups", count, isHittable,
                                               row.drag, "forgetLookups", count, isHittable));
    EXPECT_EQ(platform.elapsed() - start, milliseconds(2000));
  }
}

TEST(SwipeToText, LastSwipeIsNotLookedAt) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.isHittableAnswer = [&driver] { return !driver.actions().empty(); };
  EXPECT_THAT([] { Scroll::swipeDownwardToText("deep", 1, 50); },
              testing::raisesFdslError("The selector deep has not been found after the swipe"));
  EXPECT_THAT(driver.actions(), ElementsAre(dragInWords("(0.5, 0.9)", "(0.5, 0.2)")));
  EXPECT_EQ(platform.elapsed(), milliseconds(1000));
}

TEST(SwipeToText, AtMostThirtySwipes) {
  struct Row {
    std::int64_t maxSwipe;
    std::size_t swipes;
  };
  constexpr Row ROWS[] = {
      {1, 1}, {2, 2}, {29, 29}, {30, 30}, {31, 30}, {100, 30}, {std::numeric_limits<std::int64_t>::max(), 30}};
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  for (const auto swipe : {Scroll::swipeDownwardToText, Scroll::swipeUpwardToText}) {
    for (const Row& row : ROWS) {
      AnsweringDriver& driver = AnsweringDriver::install();
      driver.isHittableAnswer = [] { return false; };
      EXPECT_THAT([&] { swipe("deep", row.maxSwipe, 50); },
                  testing::raisesFdslError("The selector deep has not been found after the swipe"));
      EXPECT_THAT(driver.actions(), SizeIs(row.swipes)) << row.maxSwipe;
    }
  }
}

TEST(SwipeToText, FewerThanOneSwipeIsFatalBeforeAnythingElse) {
  testing::TestPlatform platform;
  for (const auto swipe : {Scroll::swipeDownwardToText, Scroll::swipeUpwardToText}) {
    for (const std::int64_t maxSwipe : {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
      EXPECT_DEATH(swipe("deep", maxSwipe, 50),
                   Eq("Fatal error: Range requires lowerBound <= upperBound: maxSwipe is " + std::to_string(maxSwipe) +
                      ", but must be at least 1\n"));
    }
  }
}

TEST(SwipeToText, TextThatIsNotThereIsFatal) {
  testing::TestPlatform platform(R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)");
  TestContext::shared().setTestingApp("com.example.test");
  TestContext::shared().getTestingApp().launch();
  for (const auto swipe : {Scroll::swipeDownwardToText, Scroll::swipeUpwardToText}) {
    EXPECT_DEATH(swipe("deep", 1, 50), Eq("Fatal error: Unexpectedly raised an error: the search for deep before a "
                                          "swipe: The expected text deep was not found\n"));
  }
}

TEST(SwipeToText, TextThatGoesAwayMeanwhileIsFatal) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.isHittableAnswer = [] { return false; };
  driver.countOf = [&driver](const std::string&) { return driver.actions().empty() ? 1U : 0U; };
  EXPECT_DEATH(Scroll::swipeDownwardToText("deep", 2, 50),
               Eq("Fatal error: Unexpectedly raised an error: the search for deep before a swipe: The expected text "
                  "deep was not found\n"));
}

TEST(SwipeToText, SearchWithoutAnApplicationIsFatal) {
  testing::TestPlatform platform;
  EXPECT_DEATH(Scroll::swipeUpwardToText("deep", 1, 50),
               Eq("Fatal error: Unexpectedly raised an error: the search for deep before a swipe: The application is "
                  "not initialised. Please use applicationStart or launchBrowser at the beginning of your script.\n"));
}

TEST(SwipeToText, SearchThatFailsInAnyOtherWayIsFatal) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  const std::string stop = "Fatal error: Unexpectedly raised an error: the search for deep before a swipe: ";
  driver.before = [](const std::string&) { throw UIAutomationError("The phone is gone."); };
  EXPECT_DEATH(Scroll::swipeDownwardToText("deep", 1, 50), Eq(stop + "The phone is gone.\n"));
  driver.before = [](const std::string&) { throw std::runtime_error("The battery is empty."); };
  EXPECT_DEATH(Scroll::swipeDownwardToText("deep", 1, 50), Eq(stop + "The battery is empty.\n"));
}

TEST(SwipeToText, OtherErrorsPassUnchanged) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.isHittableAnswer = [] { return false; };
  for (const std::string failing : {"isHittable", "drag"}) {
    driver.before = [&failing](const std::string& operation) {
      if (operation.starts_with(failing)) {
        throw UIAutomationError("The phone is gone.");
      }
    };
    EXPECT_THAT([] { Scroll::swipeDownwardToText("deep", 3, 50); },
                ThrowsMessage<UIAutomationError>("The phone is gone."));
  }
  EXPECT_EQ(platform.elapsed(), milliseconds(0));
}

}  // namespace
}  // namespace quobrak
