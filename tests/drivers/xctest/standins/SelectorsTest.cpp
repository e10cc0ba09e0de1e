#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <set>
#include <string>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "platform/uiautomation/XCUIDevice.h"
#include "platform/uiautomation/XCUIScreen.h"
#include "tests/drivers/xctest/standins/StandIns.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::xctest {
namespace {

using namespace std::chrono_literals;

/// The lines of the list that the object files are held to: an owner and a selector each.
std::set<std::string> documented() {
  std::set<std::string> lines;
  std::ifstream file(QUOBRAK_SELECTORS);
  for (std::string line; std::getline(file, line);) {
    lines.insert(line);
  }
  return lines;
}

/// Every primitive, with what the framework is asked in each of its ways.
void useEverything() {
  const XCUIApplication app("com.example.test");
  const XCUIElement field = app.descendants(ElementType::textField).firstMatch();
  UIDriver& driver = UIDriver::shared();
  app.launch();
  field.tap();
  field.typeText("a");
  field.press(1s);
  app.swipe(SwipeDirection::up);
  app.swipe(SwipeDirection::down);
  app.swipe(SwipeDirection::left);
  app.swipe(SwipeDirection::right);
  const XCUICoordinate point = app.coordinate({0.5, 0.5});
  point.tap();
  point.press(1s);
  point.pressThenDrag(1s, app.coordinate({0.5, 0.6}));
  (void)field.label();
  (void)field.identifier();
  (void)field.value();
  (void)field.frame();
  (void)field.isHittable();
  (void)field.debugDescription();
  (void)app.buttons().elementBoundBy(3).waitForExistence(1s);
  (void)app.buttons()["a"].exists();
  (void)app.buttons().matching(NSPredicate("hittable == TRUE")).count();
  (void)app.buttons().appending(DescendantsStep{ElementType::any}).count();
  (void)driver.waitForPredicate(field, NSPredicate("placeholderValue == 'x' OR selected == TRUE OR enabled == FALSE"),
                                1s);
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home);
  (void)XCUIScreen::mainScreen().pngScreenshot();
  driver.removeInterruptionMonitor(driver.addInterruptionMonitor("none", [](const XCUIElement&) { return false; }));
  EXPECT_ANY_THROW(XCUIApplication("com.example.missing").launch());
  app.terminate();
}

TEST(Selectors, WhatIsSentIsDocumentedForTheClassThatItIsSentTo) {
  Clock::install(std::make_unique<VirtualClock>());
  simulator::Phone phone(
      simulator::loadPhone(testing::smallPhone(
          R"(<TextField x="0" y="0" width="50" height="50"/><Button x="50" y="0" width="50" height="50"/>)")),
      Clock::shared());
  UIDriver::install(testing::makeDriverOnStandIns(phone));
  useEverything();
  UIDriver::install(nullptr);

  std::set<std::string> sent;
  for (const std::string& selector : testing::sentSelectors()) {
    sent.insert(selector);
  }
  (void)testing::setUpLaunchTests(phone);
  for (const std::string& selector : testing::sentSelectors()) {
    sent.insert(selector);
  }
  std::set<std::string> rest = documented();
  for (const std::string& selector : sent) {
    EXPECT_EQ(rest.erase(selector), 1) << selector << " is not documented";
  }
  // What is left of the framework's was not tried above.
  std::erase_if(rest, [](const std::string& line) { return !line.starts_with("XC"); });
  EXPECT_THAT(rest, ::testing::UnorderedElementsAre("XCTestCase recordIssue:",
                                                    "XCTestCase runsForEachTargetApplicationUIConfiguration"));
}

}  // namespace
}  // namespace quobrak::xctest
