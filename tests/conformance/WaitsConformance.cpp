#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

constexpr const char* PAGE = R"(
  <Button name="next" label="Next" x="0" y="0" width="50" height="50"/>
  <StaticText name="first" label="First" x="0" y="50" width="50" height="20"/>)";
constexpr const char* RULES = R"([{"on": "tap", "element": "identifier == 'next'", "do": [{"show": "second"}]}])";

class Waits : public ConformanceTest {
 protected:
  /// The application, whose second screen comes up after that long.
  void startWithSecondScreenAfter(std::chrono::milliseconds delay) {
    testing::MemoryPhoneFiles files = testing::smallPhone(PAGE, RULES);
    files["test/second.xml"] = R"(<StaticText name="second" label="Second"/>)";
    switchOn(files);
    APP.launch();
    restartTime();
    clock().after(delay, [this] { phone().touch({25, 25}, Seconds::zero()); });
  }

  XCTWaiterResult waitFor(const XCUIElement& element, const char* predicate, Seconds timeout) {
    return driver().waitForPredicate(element, NSPredicate(predicate), timeout);
  }
};

TEST_F(Waits, AreOverAtOnceForWhatIsThere) {
  start(PAGE);
  EXPECT_TRUE(named("first").waitForExistence(10s));
  EXPECT_EQ(driver().waitForExistence(named("first"), 10s), XCTWaiterResult::completed);
  EXPECT_EQ(waitFor(named("first"), "exists == TRUE", 10s), XCTWaiterResult::completed);
  EXPECT_EQ(waitFor(named("first"), "label CONTAINS 'irs' AND enabled == TRUE", 10s), XCTWaiterResult::completed);
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(Waits, WithoutTimeCheckOnce) {
  start(PAGE);
  for (const Seconds timeout : {Seconds(0), Seconds(-1), Seconds(-INFINITE), Seconds(NOT_A_NUMBER)}) {
    EXPECT_TRUE(named("first").waitForExistence(timeout)) << timeout.count();
    EXPECT_FALSE(named("second").waitForExistence(timeout)) << timeout.count();
    EXPECT_EQ(waitFor(named("first"), "label == 'Last'", timeout), XCTWaiterResult::timedOut) << timeout.count();
    EXPECT_EQ(waitFor(named("first"), "label == 'First'", timeout), XCTWaiterResult::completed) << timeout.count();
  }
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(Waits, TimeOutAtTheirDeadline) {
  start(PAGE);
  EXPECT_FALSE(named("second").waitForExistence(1.234s));
  EXPECT_EQ(elapsed(), 1234ms);
  restartTime();
  EXPECT_EQ(waitFor(named("second"), "exists == TRUE", 777ms), XCTWaiterResult::timedOut);
  EXPECT_EQ(elapsed(), 777ms);
}

TEST_F(Waits, SeeWhatComesBeforeTheirDeadline) {
  startWithSecondScreenAfter(1500ms);
  EXPECT_FALSE(named("second").waitForExistence(1499ms));
  EXPECT_TRUE(named("second").waitForExistence(1ms));
  EXPECT_EQ(elapsed(), 1500ms);
}

TEST_F(Waits, AreOverSoonAfterTheirCondition) {
  startWithSecondScreenAfter(1500ms);
  EXPECT_EQ(waitFor(named("second"), "exists == TRUE AND label == 'Second'", 60s), XCTWaiterResult::completed);
  EXPECT_GE(elapsed(), 1500ms);
  EXPECT_LE(elapsed(), 2500ms);
}

TEST_F(Waits, AHugeTimeoutSaturates) {
  startWithSecondScreenAfter(30s);
  EXPECT_TRUE(named("second").waitForExistence(Seconds(1e300)));
  EXPECT_GE(elapsed(), 30s);
  EXPECT_LE(elapsed(), 31s);
}

TEST_F(Waits, SeeAnElementVanish) {
  startWithSecondScreenAfter(300ms);
  EXPECT_EQ(waitFor(named("first"), "exists == FALSE", 60s), XCTWaiterResult::completed);
  EXPECT_GE(elapsed(), 300ms);
  EXPECT_EQ(waitFor(named("nobody"), "exists == FALSE", 60s), XCTWaiterResult::completed);
  EXPECT_EQ(waitFor(named("nobody"), "label == '' AND hittable == FALSE", 60s), XCTWaiterResult::completed);
  EXPECT_LE(elapsed(), 1300ms);
}

TEST_F(Waits, EndWhatALookupServes) {
  startWithSecondScreenAfter(100ms);
  EXPECT_EQ(APP.staticTexts()["Second"].exists(), false);
  EXPECT_FALSE(named("nobody").waitForExistence(200ms));
  EXPECT_EQ(APP.staticTexts()["Second"].exists(), true);
}

}  // namespace
}  // namespace quobrak::conformance
