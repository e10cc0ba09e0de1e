#include "platform/uiautomation/WrappedDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/RecordingDriver.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Return;
using ::testing::StrictMock;
using ::testing::ThrowsMessage;

class MockDriver : public UIDriver {
 public:
  MOCK_METHOD(void, launch, (const std::string&), (override));
  MOCK_METHOD(void, terminate, (const std::string&), (override));
  MOCK_METHOD(std::size_t, count, (const XCUIElementQuery&), (override));
  MOCK_METHOD(bool, exists, (const XCUIElement&), (override));
  MOCK_METHOD(std::string, label, (const XCUIElement&), (override));
  MOCK_METHOD(std::string, identifier, (const XCUIElement&), (override));
  MOCK_METHOD(ElementValue, value, (const XCUIElement&), (override));
  MOCK_METHOD(Rect, frame, (const XCUIElement&), (override));
  MOCK_METHOD(bool, isHittable, (const XCUIElement&), (override));
  MOCK_METHOD(XCTWaiterResult, waitForExistence, (const XCUIElement&, Seconds), (override));
  MOCK_METHOD(XCTWaiterResult, waitForPredicate, (const XCUIElement&, const NSPredicate&, Seconds), (override));
  MOCK_METHOD(void, tap, (const XCUIElement&), (override));
  MOCK_METHOD(void, press, (const XCUIElement&, Seconds), (override));
  MOCK_METHOD(void, typeText, (const XCUIElement&, std::string_view), (override));
  MOCK_METHOD(void, swipe, (const XCUIElement&, SwipeDirection), (override));
  MOCK_METHOD(void, tap, (const XCUICoordinate&), (override));
  MOCK_METHOD(void, press, (const XCUICoordinate&, Seconds), (override));
  MOCK_METHOD(void, pressThenDrag, (const XCUICoordinate&, Seconds, const XCUICoordinate&), (override));
  MOCK_METHOD(void, pressButton, (XCUIDeviceButton), (override));
  MOCK_METHOD(std::optional<Data>, screenshot, (), (override));
  MOCK_METHOD(std::string, debugDescription, (const XCUIElement&), (override));
  MOCK_METHOD(InterruptionMonitorToken, addInterruptionMonitor, (std::string_view, InterruptionHandler), (override));
  MOCK_METHOD(void, removeInterruptionMonitor, (InterruptionMonitorToken), (override));
  MOCK_METHOD(void, forgetLookups, (), (override));
};

MATCHER_P(Describes, words, "") {
  return describe(arg) == words;
}

const std::string BUNDLE = "com.example.test";
const std::string BUTTONS = R"(the Button descendants of the application "com.example.test")";
const std::string BUTTON = "the element (first) of " + BUTTONS;
const std::string POINT = "the point (0.5, 0.25) of " + BUTTON;
const std::string OTHER_POINT = "the point (1, 2) of " + BUTTON;
constexpr Seconds DURATION(2.5);
const Data PICTURE = {std::byte{1}, std::byte{2}};
constexpr Rect FRAME{{1, 2}, {3, 4}};
constexpr InterruptionMonitorToken TOKEN{7};

class WrappedDriverTest : public ::testing::Test {
 protected:
  WrappedDriverTest() {
    auto inner = std::make_unique<StrictMock<MockDriver>>();
    inner_ = inner.get();
    driver_ = std::make_unique<quobrak::testing::RecordingDriver>(std::move(inner));
  }

  const XCUIElementQuery query_ = XCUIApplication(BUNDLE).buttons();
  const XCUIElement element_ = query_.firstMatch();
  const XCUICoordinate point_ = element_.coordinate({0.5, 0.25});
  const XCUICoordinate otherPoint_ = element_.coordinate({1, 2});
  StrictMock<MockDriver>* inner_;
  std::unique_ptr<quobrak::testing::RecordingDriver> driver_;
};

TEST_F(WrappedDriverTest, EveryPrimitivePassesOnceWithItsNameAndTarget) {
  MockDriver& inner = *inner_;
  const auto onElement = ::testing::Matcher<const XCUIElement&>(Describes(BUTTON));
  const auto onPoint = ::testing::Matcher<const XCUICoordinate&>(Describes(POINT));
  const NSPredicate predicate("enabled == TRUE");
  struct Row {
    std::string operation;
    std::function<void()> expect;
    std::function<void(UIDriver&)> use;
  };
  const Row ROWS[] = {
      {"launch: " + BUNDLE, [&] { EXPECT_CALL(inner, launch(BUNDLE)); },
       [](UIDriver& driver) { driver.launch(BUNDLE); }},
      {"terminate: " + BUNDLE, [&] { EXPECT_CALL(inner, terminate(BUNDLE)); },
       [](UIDriver& driver) { driver.terminate(BUNDLE); }},
      {"count: " + BUTTONS, [&] { EXPECT_CALL(inner, count(Describes(BUTTONS))).WillOnce(Return(3)); },
       [&](UIDriver& driver) { EXPECT_EQ(driver.count(query_), 3); }},
      {"exists: " + BUTTON, [&] { EXPECT_CALL(inner, exists(onElement)).WillOnce(Return(true)); },
       [&](UIDriver& driver) { EXPECT_TRUE(driver.exists(element_)); }},
      {"label: " + BUTTON, [&] { EXPECT_CALL(inner, label(onElement)).WillOnce(Return("OK")); },
       [&](UIDriver& driver) { EXPECT_EQ(driver.label(element_), "OK"); }},
      {"identifier: " + BUTTON, [&] { EXPECT_CALL(inner, identifier(onElement)).WillOnce(Return("ok")); },
       [&](UIDriver& driver) { EXPECT_EQ(driver.identifier(element_), "ok"); }},
      {"value: " + BUTTON, [&] { EXPECT_CALL(inner, value(onElement)).WillOnce(Return(OtherValue())); },
       [&](UIDriver& driver) { EXPECT_EQ(driver.value(element_), ElementValue(OtherValue())); }},
      {"frame: " + BUTTON, [&] { EXPECT_CALL(inner, frame(onElement)).WillOnce(Return(FRAME)); },
       [&](UIDriver& driver) { EXPECT_EQ(driver.frame(element_), FRAME); }},
      {"isHittable: " + BUTTON, [&] { EXPECT_CALL(inner, isHittable(onElement)).WillOnce(Return(true)); },
       [&](UIDriver& driver) { EXPECT_TRUE(driver.isHittable(element_)); }},
      {"waitForExistence: " + BUTTON,
       [&] {
         EXPECT_CALL(inner, waitForExistence(onElement, DURATION)).WillOnce(Return(XCTWaiterResult::interrupted));
       },
       [&](UIDriver& driver) { EXPECT_EQ(driver.waitForExistence(element_, DURATION), XCTWaiterResult::interrupted); }},
      {"waitForPredicate: " + BUTTON,
       [&] {
         EXPECT_CALL(inner,
                     waitForPredicate(onElement, ::testing::Property(&NSPredicate::predicateFormat, "enabled == TRUE"),
                                      DURATION))
             .WillOnce(Return(XCTWaiterResult::timedOut));
       },
       [&](UIDriver& driver) {
         EXPECT_EQ(driver.waitForPredicate(element_, predicate, DURATION), XCTWaiterResult::timedOut);
       }},
      {"tap: " + BUTTON, [&] { EXPECT_CALL(inner, tap(onElement)); }, [&](UIDriver& driver) { driver.tap(element_); }},
      {"press: " + BUTTON, [&] { EXPECT_CALL(inner, press(onElement, DURATION)); },
       [&](UIDriver& driver) { driver.press(element_, DURATION); }},
      {"typeText: " + BUTTON, [&] { EXPECT_CALL(inner, typeText(onElement, std::string_view("abc"))); },
       [&](UIDriver& driver) { driver.typeText(element_, "abc"); }},
      {"swipe: " + BUTTON, [&] { EXPECT_CALL(inner, swipe(onElement, SwipeDirection::left)); },
       [&](UIDriver& driver) { driver.swipe(element_, SwipeDirection::left); }},
      {"tap: " + POINT, [&] { EXPECT_CALL(inner, tap(onPoint)); }, [&](UIDriver& driver) { driver.tap(point_); }},
      {"press: " + POINT, [&] { EXPECT_CALL(inner, press(onPoint, DURATION)); },
       [&](UIDriver& driver) { driver.press(point_, DURATION); }},
      {"pressThenDrag: " + POINT + " to " + OTHER_POINT,
       [&] { EXPECT_CALL(inner, pressThenDrag(onPoint, DURATION, Describes(OTHER_POINT))); },
       [&](UIDriver& driver) { driver.pressThenDrag(point_, DURATION, otherPoint_); }},
      {"pressButton: home", [&] { EXPECT_CALL(inner, pressButton(XCUIDeviceButton::home)); },
       [](UIDriver& driver) { driver.pressButton(XCUIDeviceButton::home); }},
      {"pressButton: volumeUp", [&] { EXPECT_CALL(inner, pressButton(XCUIDeviceButton::volumeUp)); },
       [](UIDriver& driver) { driver.pressButton(XCUIDeviceButton::volumeUp); }},
      {"pressButton: volumeDown", [&] { EXPECT_CALL(inner, pressButton(XCUIDeviceButton::volumeDown)); },
       [](UIDriver& driver) { driver.pressButton(XCUIDeviceButton::volumeDown); }},
      {"screenshot", [&] { EXPECT_CALL(inner, screenshot()).WillOnce(Return(PICTURE)); },
       [](UIDriver& driver) { EXPECT_EQ(driver.screenshot(), PICTURE); }},
      {"screenshot", [&] { EXPECT_CALL(inner, screenshot()).WillOnce(Return(std::nullopt)); },
       [](UIDriver& driver) { EXPECT_EQ(driver.screenshot(), std::nullopt); }},
      {"debugDescription: " + BUTTON,
       [&] { EXPECT_CALL(inner, debugDescription(onElement)).WillOnce(Return("a dump")); },
       [&](UIDriver& driver) { EXPECT_EQ(driver.debugDescription(element_), "a dump"); }},
      {"addInterruptionMonitor: permissions",
       [&] {
         EXPECT_CALL(inner, addInterruptionMonitor(std::string_view("permissions"), ::testing::_))
             .WillOnce([this](std::string_view, const InterruptionHandler& handler) {
               EXPECT_TRUE(handler(element_));
               return TOKEN;
             });
       },
       [&](UIDriver& driver) {
         const auto isTheButton = [](const XCUIElement& alert) { return describe(alert) == BUTTON; };
         EXPECT_EQ(driver.addInterruptionMonitor("permissions", isTheButton), TOKEN);
       }},
      {"removeInterruptionMonitor", [&] { EXPECT_CALL(inner, removeInterruptionMonitor(TOKEN)); },
       [](UIDriver& driver) { driver.removeInterruptionMonitor(TOKEN); }},
  };
  for (const auto& [operation, expect, use] : ROWS) {
    SCOPED_TRACE(operation);
    driver_->operations.clear();
    expect();
    use(*driver_);
    EXPECT_THAT(driver_->operations, ElementsAre(operation));
    ::testing::Mock::VerifyAndClearExpectations(inner_);
  }
}

TEST_F(WrappedDriverTest, WhatThePrimitiveRaisesPasses) {
  EXPECT_CALL(*inner_, launch(BUNDLE)).WillOnce(::testing::Throw(std::runtime_error("not installed")));
  EXPECT_THAT([this] { driver_->launch(BUNDLE); }, ThrowsMessage<std::runtime_error>("not installed"));
}

TEST_F(WrappedDriverTest, WhatIsRaisedAroundThePrimitiveStandsInItsPlace) {
  driver_->before = [](std::string_view name, const std::string& target) {
    throw std::runtime_error(std::string(name) + " of " + target + " is refused");
  };
  EXPECT_THAT([this] { driver_->label(element_); },
              ThrowsMessage<std::runtime_error>("label of " + BUTTON + " is refused"));
}

TEST_F(WrappedDriverTest, ForgettingLookupsPassesUnseen) {
  EXPECT_CALL(*inner_, forgetLookups());
  driver_->forgetLookups();
  EXPECT_THAT(driver_->operations, IsEmpty());
}

}  // namespace
}  // namespace quobrak
