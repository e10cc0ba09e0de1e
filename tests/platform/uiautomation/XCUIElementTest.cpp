#include "platform/uiautomation/XCUIElement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

const XCUIApplication APP("com.example.test");

class NoteHandle final : public ElementHandle {
 public:
  std::string description() const override { return "the note"; }
};

TEST(XCUIElement, InWords) {
  const XCUIElement handedOver{QueryRoot(std::make_shared<const NoteHandle>())};
  struct Row {
    XCUIElement element;
    std::string_view words;
  };
  const Row ROWS[] = {
      {APP, R"(the application "com.example.test")"},
      {handedOver, "the note"},
      {handedOver.buttons().firstMatch(), "the element (first) of the Button descendants of the note"},
      {APP.descendants(ElementType::any).elementBoundBy(4),
       R"(the element (at index 4) of the descendants of the application "com.example.test")"},
      {APP.staticTexts().element(),
       R"(the element (single) of the StaticText descendants of the application "com.example.test")"},
      {APP.windows().firstMatch().descendants(ElementType::cell).firstMatch(),
       R"(the element (first) of the Window descendants, first, Cell descendants of the application )"
       R"("com.example.test")"},
  };
  for (const auto& [element, words] : ROWS) {
    EXPECT_EQ(describe(element), words);
  }
}

TEST(XCUIElement, DescendantsOfAPickedElementStartAtIt) {
  const XCUIElementQuery query = APP.windows().elementBoundBy(1).buttons();
  ASSERT_EQ(query.steps().size(), 3);
  const auto* const pick = std::get_if<ElementPick>(&query.steps()[1]);
  ASSERT_NE(pick, nullptr);
  EXPECT_EQ(std::get<AtIndex>(*pick).index, 1);
}

TEST(XCUIElement, DescendantsByTheirKind) {
  struct Row {
    XCUIElementQuery query;
    std::string_view words;
  };
  const Row ROWS[] = {
      {APP.buttons(), R"(the Button descendants of the application "com.example.test")"},
      {APP.keyboards(), R"(the Keyboard descendants of the application "com.example.test")"},
      {APP.scrollViews(), R"(the ScrollView descendants of the application "com.example.test")"},
      {APP.staticTexts(), R"(the StaticText descendants of the application "com.example.test")"},
      {APP.windows(), R"(the Window descendants of the application "com.example.test")"},
  };
  for (const auto& [query, words] : ROWS) {
    EXPECT_EQ(describe(query), words);
  }
}

TEST(XCUIElement, AsksTheDriver) {
  TestPlatform platform(
      R"(<XCUIElementTypeTextField name="field" label="Name" value="Ada" x="10" y="20" width="30" height="40"/>)");
  APP.launch();
  platform.driver().operations.clear();
  const XCUIElement field = APP.descendants(ElementType::textField).firstMatch();
  EXPECT_TRUE(field.exists());
  EXPECT_TRUE(field.isHittable());
  EXPECT_EQ(field.label(), "Name");
  EXPECT_EQ(field.identifier(), "field");
  EXPECT_EQ(field.value(), ElementValue("Ada"));
  EXPECT_EQ(field.frame(), (Rect{{10, 20}, {30, 40}}));
  EXPECT_THAT(field.debugDescription(), HasSubstr("label: 'Name', value: Ada"));
  const std::string target =
      R"(: the element (first) of the TextField descendants of the application "com.example.test")";
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("exists" + target, "isHittable" + target, "label" + target, "identifier" + target,
                          "value" + target, "frame" + target, "debugDescription" + target));
}

TEST(XCUIElement, ActsThroughTheDriver) {
  TestPlatform platform(R"(<XCUIElementTypeTextField x="0" y="0" width="30" height="40"/>)");
  APP.launch();
  const auto launched = platform.elapsed();
  platform.driver().operations.clear();
  const XCUIElement field = APP.descendants(ElementType::textField).firstMatch();
  field.tap();
  field.typeText("Ada");
  EXPECT_EQ(std::get<std::string>(field.value()), "Ada");
  field.press(2s);
  EXPECT_EQ(platform.elapsed() - launched, 2s);
  platform.driver().before = [](std::string_view name, const std::string&) {
    throw UIAutomationError(std::string(name) + " is not possible");
  };
  EXPECT_THAT([&] { field.swipe(SwipeDirection::up); }, ThrowsMessage<UIAutomationError>("swipe is not possible"));
  const std::string target =
      R"(: the element (first) of the TextField descendants of the application "com.example.test")";
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("tap" + target, "typeText" + target, "value" + target, "press" + target, "swipe" + target));
}

TEST(XCUIElement, WaitsForItsExistence) {
  TestPlatform platform;
  APP.launch();
  const auto launched = platform.elapsed();
  EXPECT_TRUE(APP.waitForExistence(5s));
  EXPECT_EQ(platform.elapsed(), launched);
  EXPECT_FALSE(APP.buttons().firstMatch().waitForExistence(5s));
  EXPECT_EQ(platform.elapsed() - launched, 5s);
}

TEST(XCUIElement, ACoordinateLiesWithinIt) {
  const XCUICoordinate point = APP.coordinate({0.5, 1});
  EXPECT_EQ(describe(point), R"(the point (0.5, 1) of the application "com.example.test")");
}

}  // namespace
}  // namespace quobrak
