#include "platform/uiautomation/XCTWaiter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;

TEST(XCTWaiter, RawValuesOfThePlatform) {
  EXPECT_EQ(static_cast<int>(XCTWaiterResult::completed), 1);
  EXPECT_EQ(static_cast<int>(XCTWaiterResult::timedOut), 2);
  EXPECT_EQ(static_cast<int>(XCTWaiterResult::incorrectOrder), 3);
  EXPECT_EQ(static_cast<int>(XCTWaiterResult::invertedFulfillment), 4);
  EXPECT_EQ(static_cast<int>(XCTWaiterResult::interrupted), 5);
}

TEST(XCTWaiter, AnExpectationKeepsItsPredicateAndItsElement) {
  const XCTNSPredicateExpectation expectation(NSPredicate("exists == TRUE"), XCUIApplication("com.example.test"));
  EXPECT_EQ(expectation.predicate().predicateFormat(), "exists == TRUE");
  EXPECT_EQ(describe(expectation.object()), R"(the application "com.example.test")");
}

TEST(XCTWaiter, WaitsForThePredicateOfTheExpectation) {
  TestPlatform platform;
  const XCUIApplication app("com.example.test");
  const XCTNSPredicateExpectation isThere(NSPredicate("exists == TRUE"), app);
  const XCTNSPredicateExpectation isGone(NSPredicate("exists == FALSE"), app);
  EXPECT_EQ(XCTWaiter().wait(isThere, 2s), XCTWaiterResult::timedOut);
  EXPECT_EQ(platform.elapsed(), 2s);
  EXPECT_EQ(XCTWaiter().wait(isGone, 2s), XCTWaiterResult::completed);
  EXPECT_EQ(platform.elapsed(), 2s);
  EXPECT_THAT(platform.driver().operations, ElementsAre(R"(waitForPredicate: the application "com.example.test")",
                                                        R"(waitForPredicate: the application "com.example.test")"));
}

}  // namespace
}  // namespace quobrak
