#include "quobrakUITests/Click.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/Application.h"
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
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::pointInWords;
using ::testing::StartsWith;
using testing::textElementInWords;
using testing::textQueryInWords;

constexpr const char* GO = R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)";
/// Lies over `GO` where it comes after it.
constexpr const char* COVER = R"(<XCUIElementTypeImage label="Cover" x="0" y="0" width="100" height="20"/>)";

TEST(Click, TapsTheFirstElementThatContainsTheTextInAnyCase) {
  const std::string page =
      R"(<XCUIElementTypeButton label="Stop" x="0" y="0" width="100" height="20"/>
         <XCUIElementTypeButton label="Let us GO on" x="0" y="20" width="100" height="20"/>
         <XCUIElementTypeButton label="Go" x="0" y="40" width="100" height="20"/>)";
  testing::TestPlatform platform(
      page, R"([{"on": "tap", "element": "label == 'Let us GO on'", "do": [{"open": "com.apple.springboard"}]}])");
  Application::applicationStart("com.example.test");
  Click::clickByText("go");
  EXPECT_TRUE(platform.phone().isInFront("com.apple.springboard"));
}

TEST(Click, CoveredElementIsNotTapped) {
  testing::TestPlatform platform(std::string(GO) + COVER);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("go"); }, testing::raisesFdslError("The element Go is not hittable"));
  EXPECT_THAT(platform.driver().operations, Not(Contains(StartsWith("tap"))));
}

TEST(Click, CoveredElementWithoutLabel) {
  testing::TestPlatform platform(
      std::string(R"(<XCUIElementTypeButton name="go" x="0" y="0" width="100" height="20"/>)") + COVER);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("go"); }, testing::raisesFdslError("The element is not hittable"));
  EXPECT_THAT(platform.driver().operations, Not(Contains(StartsWith("tap"))));
}

TEST(Click, DisabledElementIsNotFound) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeButton label="Go" enabled="false" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("Go"); }, testing::raisesFdslError("The expected text Go was not found"));
}

TEST(Click, TextIsNoRegularExpression) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("G."); }, testing::raisesFdslError("The expected text G. was not found"));
}

TEST(Click, ExactTextIsARegularExpressionForTheWholeText) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByTextExact("go"); }, testing::raisesFdslError("The expected text go was not found"));
  EXPECT_THAT([] { Click::clickByTextExact("G"); }, testing::raisesFdslError("The expected text G was not found"));
  platform.driver().operations.clear();
  Click::clickByTextExact("G.");
  const std::string go = textElementInWords("MATCHES", "G.");
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("count: " + textQueryInWords("MATCHES", "G."), "isHittable: " + go, "tap: " + go));
}

TEST(Click, ExactTextOfACoveredElement) {
  testing::TestPlatform platform(std::string(GO) + COVER);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByTextExact("Go"); }, testing::raisesFdslError("The element Go is not hittable"));
}

TEST(Click, QuestionsAndTapAreAboutOneSearch) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  Click::clickByText("go");
  const std::string go = textElementInWords("CONTAINS[c]", "go");
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("count: " + textQueryInWords("CONTAINS[c]", "go"), "isHittable: " + go, "tap: " + go));
}

TEST(LongClickByText, PressesForTheDurationWithoutAskingWhetherTheElementCanBeHit) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.isHittableAnswer = [] { return false; };
  struct Row {
    std::int64_t duration;
    std::string seconds;
  };
  const Row ROWS[] = {{2500, "2.5"}, {1000, "1"}, {1, "0.001"}, {0, "0"}, {-1500, "-1.5"}};
  for (const auto& [duration, seconds] : ROWS) {
    driver.operations.clear();
    Click::longClickByText("go", duration);
    EXPECT_THAT(driver.operations, ElementsAre("count: " + textQueryInWords("CONTAINS[c]", "go"),
                                               "press " + seconds + " s: " + textElementInWords("CONTAINS[c]", "go")));
  }
}

TEST(LongClickByText, TakesItsTimeOnThePhone) {
  testing::TestPlatform platform(std::string(GO) + COVER);
  Application::applicationStart("com.example.test");
  const auto start = platform.elapsed();
  Click::longClickByText("GO", 2500);
  EXPECT_EQ(platform.elapsed() - start, milliseconds(2500));
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->label(), "Go");
}

TEST(LongClickByText, TextThatIsNotThere) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeButton label="Go" enabled="false" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::longClickByText("Go", 10); }, testing::raisesFdslError("The expected text Go was not found"));
}

TEST(ClickByTextOnSystemPopup, TapsTheButtonOfAnAlert) {
  testing::TestPlatform platform("",
                                 R"([{"on": "launch", "do": [{"askPermission": "location", "answer": "location"}]}])");
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  const std::string button =
      "the element (single) of the Button descendants, keyed \"Allow Once\" of the application "
      "\"com.apple.springboard\"";
  Click::clickByTextOnSystemPopup("Allow Once");
  EXPECT_THAT(platform.driver().operations, ElementsAre("exists: " + button, "tap: " + button));
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

TEST(ClickByTextOnSystemPopup, ButtonThatIsNotThere) {
  testing::TestPlatform platform(GO, R"([{"on": "launch", "do": [{"askPermission": "location"}]}])");
  EXPECT_THAT([] { Click::clickByTextOnSystemPopup("Allow Once"); },
              testing::raisesFdslError("The expected element Allow Once was not found"));
  Application::applicationStart("com.example.test");
  for (const std::string selector : {"allow once", "Allow", "Allow.*", "Go"}) {
    EXPECT_THAT([&] { Click::clickByTextOnSystemPopup(selector); },
                testing::raisesFdslError("The expected element " + selector + " was not found"));
  }
  EXPECT_THAT(platform.driver().operations, Not(Contains(StartsWith("tap"))));
}

TEST(ClickByTextOnSystemPopup, NeedsNoApplicationAndDoesNotWait) {
  testing::TestPlatform platform;
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.existsOf = [](const std::string&) { return false; };
  EXPECT_THAT([] { Click::clickByTextOnSystemPopup("OK"); },
              testing::raisesFdslError("The expected element OK was not found"));
  EXPECT_THAT(driver.operations, ElementsAre("exists: the element (single) of the Button descendants, keyed \"OK\" of "
                                             "the application \"com.apple.springboard\""));
}

TEST(ClickByXY, TapsAPointOfTheApplicationScaledByItsFirstWindow) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.frameAnswer = {{10, 20}, {375, 812}};
  Click::clickByXY("187.5", "406");
  EXPECT_THAT(driver.operations,
              ElementsAre("frame: the element (at index 0) of the Window descendants of " + testing::APP_IN_WORDS,
                          "tap: " + pointInWords("(0.5, 0.5)")));
}

TEST(ClickByXY, FindsTheElementThere) {
  testing::TestPlatform platform(GO, R"([{"on": "tap", "element": "label == 'Go'",
                                          "do": [{"open": "com.apple.springboard"}]}])");
  Application::applicationStart("com.example.test");
  Click::clickByXY("50", "20.5");
  EXPECT_TRUE(platform.phone().isInFront("com.example.test"));
  Click::clickByXY("50", "19.5");
  EXPECT_TRUE(platform.phone().isInFront("com.apple.springboard"));
}

TEST(ClickByXY, PointOutsideTheScreenTapsNothing) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  Click::clickByXY("-1", "2000");
  Click::clickByXY("inf", "nan");
  EXPECT_EQ(platform.driver().operations.size(), 4U);
  EXPECT_EQ(platform.driver().operations[1], "tap: " + pointInWords("(-0.01, 10)"));
}

TEST(LongClickByXY, PressesThePointForTheDuration) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const AnsweringDriver& driver = AnsweringDriver::install();
  Click::longClickByXY("25", "100", 1500);
  Click::longClickByXY("x", "", 0);
  EXPECT_THAT(driver.actions(),
              ElementsAre("press 1.5 s: " + pointInWords("(0.25, 0.5)"), "press 0 s: " + pointInWords("(0, 0)")));
}

TEST(GetCoordinate, OffsetsAreNumbersInWholeTextsAndElseNothing) {
  struct Row {
    std::string_view text;
    double offset;
  };
  constexpr Row ROWS[] = {{"0", 0},        {"50", 0.5},  {"100", 1},    {"150", 1.5}, {"-25", -0.25}, {"+25", 0.25},
                          {"12.5", 0.125}, {"1e1", 0.1}, {"0x32", 0.5}, {"abc", 0},   {" 5", 0},      {"5x", 0},
                          {"5 ", 0},       {"", 0},      {"1,5", 0},    {"--5", 0}};
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.frameAnswer = {{0, 0}, {100, 100}};
  for (const auto& [text, offset] : ROWS) {
    EXPECT_EQ(getCoordinate(text, "10").normalizedOffset(), (NormalizedOffset{offset, 0.1})) << text;
    EXPECT_EQ(getCoordinate("10", text).normalizedOffset(), (NormalizedOffset{0.1, offset})) << text;
  }
}

TEST(GetCoordinate, FirstWindowGivesTheScale) {
  testing::TestPlatform platform(R"(<XCUIElementTypeWindow x="0" y="0" width="20" height="30"/>)");
  Application::applicationStart("com.example.test");
  const XCUICoordinate point = getCoordinate("25", "50");
  EXPECT_EQ(point.normalizedOffset(), (NormalizedOffset{0.25, 0.25}));
  EXPECT_EQ(describe(point.referencedElement()), testing::APP_IN_WORDS);
}

TEST(GetCoordinate, WithoutAWindowThereIsNoSuchPoint) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const NormalizedOffset offset = getCoordinate("0", "50").normalizedOffset();
  EXPECT_TRUE(std::isnan(offset.dx));
  EXPECT_TRUE(std::isinf(offset.dy));
}

TEST(GetCoordinate, PointOfAWindowWithoutSizeLandsOnNothing) {
  testing::MemoryPhoneFiles phone = testing::smallPhone("", R"([{"on": "tap", "element": "label == 'Go'",
                                                              "do": [{"open": "com.apple.springboard"}]}])");
  phone["test/start.xml"] = std::string(R"(<XCUIElementTypeApplication name="Test" x="0" y="0" width="100" height="200">
      <XCUIElementTypeWindow x="0" y="0" width="0" height="0"/>)") +
                            GO + "</XCUIElementTypeApplication>";
  testing::TestPlatform platform(phone);
  Application::applicationStart("com.example.test");
  Click::clickByXY("10", "10");
  Click::longClickByXY("0", "0", 100);
  EXPECT_TRUE(platform.phone().isInFront("com.example.test"));
  Click::clickByPercent(10, 5);
  EXPECT_TRUE(platform.phone().isInFront("com.apple.springboard"));
}

TEST(ClickByPercent, TapsAFractionOfTheApplication) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const AnsweringDriver& driver = AnsweringDriver::install();
  Click::clickByPercent(0, 0);
  Click::clickByPercent(100, 100);
  Click::clickByPercent(50, 7);
  Click::clickByPercent(150, -20);
  EXPECT_THAT(driver.operations,
              ElementsAre("tap: " + pointInWords("(0, 0)"), "tap: " + pointInWords("(1, 1)"),
                          "tap: " + pointInWords("(0.5, 0.07)"), "tap: " + pointInWords("(1.5, -0.2)")));
}

TEST(ClickOnLastElementFound, BeforeAnySearch) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const AnsweringDriver& driver = AnsweringDriver::install();
  EXPECT_THAT([] { Click::clickOnLastElementFound(); },
              testing::raisesFdslError("Please search for an element before using this method"));
  EXPECT_THAT(driver.operations, IsEmpty());
}

TEST(ClickOnLastElementFound, TapsTheElementAgain) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  Click::clickByText("Go");
  platform.driver().operations.clear();
  Click::clickOnLastElementFound();
  const std::string go = textElementInWords("CONTAINS[c]", "Go");
  EXPECT_THAT(platform.driver().operations, ElementsAre("isHittable: " + go, "tap: " + go));
}

TEST(ClickOnLastElementFound, ElementThatHasGone) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  Click::clickByText("Go");
  Application::applicationKill("com.example.test");
  EXPECT_THAT([] { Click::clickOnLastElementFound(); }, testing::raisesFdslError("The element is not hittable"));
}

TEST(Click, WithoutAnApplication) {
  testing::TestPlatform platform(GO);
  EXPECT_THAT([] { Click::clickByText("Go"); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Click::clickByTextExact("Go"); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Click::longClickByText("Go", 1); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Click::clickByXY("1", "2"); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Click::longClickByXY("1", "2", 1); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { Click::clickByPercent(1, 2); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { getCoordinate("x", "y"); }, testing::raisesNotInitialised());
  EXPECT_THAT(platform.driver().operations, IsEmpty());
}

TEST(Click, ClickedElementIsTheLastOneFound) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  Click::clickByText("Go");
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->label(), "Go");
}

TEST(TapIfHittable, TapsOnceWhereTheElementCanBeTapped) {
  testing::TestPlatform platform(GO);
  const XCUIApplication app("com.example.test");
  app.launch();
  platform.driver().operations.clear();
  tapIfHittable(app.buttons()["Go"]);
  const std::string go =
      "the element (single) of the Button descendants, keyed \"Go\" of the application "
      "\"com.example.test\"";
  EXPECT_THAT(platform.driver().operations, ElementsAre("isHittable: " + go, "tap: " + go));
}

TEST(TapIfHittable, ElementThatIsNotThereHasNoLabel) {
  testing::TestPlatform platform(GO);
  const XCUIApplication app("com.example.test");
  app.launch();
  EXPECT_THAT([&] { tapIfHittable(app.buttons()["Gone"]); }, testing::raisesFdslError("The element is not hittable"));
}

}  // namespace
}  // namespace quobrak
