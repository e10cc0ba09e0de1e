#include "fuzz/support/CapriciousDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uiautomation/UIAutomationError.h"

namespace quobrak::fuzz {
namespace {

using ::testing::ThrowsMessage;

XCUIElement button() {
  return XCUIElement(QueryRoot(ApplicationRoot{"com.example.test"})).buttons().firstMatch();
}

TEST(CapriciousDriver, AnswersByTheLowestBits) {
  Answers answers("\x01\x02\x03\x02");
  CapriciousDriver driver(answers);
  EXPECT_TRUE(driver.exists(button()));
  EXPECT_FALSE(driver.isHittable(button()));
  EXPECT_EQ(driver.count(button().query()), 3);
  EXPECT_EQ(driver.label(button()), "aa");
  EXPECT_EQ(driver.calls(), 4);
}

TEST(CapriciousDriver, BeginsAnewWhereTheAnswersEnd) {
  Answers answers("\x01\x02");
  CapriciousDriver driver(answers);
  EXPECT_EQ(driver.waitForExistence(button(), Seconds(1)), XCTWaiterResult::completed);
  EXPECT_EQ(driver.waitForExistence(button(), Seconds(1)), XCTWaiterResult::timedOut);
  EXPECT_EQ(driver.waitForExistence(button(), Seconds(1)), XCTWaiterResult::completed);
}

TEST(CapriciousDriver, WithoutAnswersThereIsNothing) {
  Answers answers("");
  CapriciousDriver driver(answers);
  EXPECT_FALSE(driver.exists(button()));
  EXPECT_EQ(driver.screenshot(), std::nullopt);
  EXPECT_EQ(driver.frame(button()), Rect());
}

TEST(CapriciousDriver, FailsQuestionsAndActions) {
  Answers answers("!!\x01");
  CapriciousDriver driver(answers);
  EXPECT_FALSE(driver.hasFailed());
  EXPECT_THAT([&] { driver.exists(button()); }, ThrowsMessage<UIAutomationError>("the phone is lost"));
  EXPECT_THAT([&] { driver.tap(button()); }, ThrowsMessage<UIAutomationError>("the phone is lost"));
  EXPECT_TRUE(driver.hasFailed());
  EXPECT_NO_THROW(driver.tap(button()));
}

}  // namespace
}  // namespace quobrak::fuzz
