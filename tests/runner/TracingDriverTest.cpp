#include "runner/TracingDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/MemoryPhoneFiles.h"
#include "tests/support/RecordingDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak {

namespace {

/// A traced driver of a small phone, on virtual time.
class TracingDriverTest : public ::testing::Test {
 protected:
  TracingDriverTest() {
    Clock::install(std::make_unique<VirtualClock>());
    auto recorded = std::make_unique<testing::RecordingDriver>(
        std::make_unique<simulator::SimulatedDriver>(simulator::loadPhone(testing::smallPhone("")), Clock::shared()));
    recording = recorded.get();
    driver = std::make_unique<TracingDriver>(std::move(recorded), output);
  }

  std::string written() {
    output.flush();
    return folder_.read("trace");
  }

 private:
  const testing::TemporaryFolder folder_;

 protected:
  TraceOutput output{(folder_.path() / "trace").string()};
  testing::RecordingDriver* recording = nullptr;
  std::unique_ptr<TracingDriver> driver;
};

}  // namespace

TEST_F(TracingDriverTest, TellsWhatWasDoneToWhatAndHowLongItTook) {
  driver->launch("com.example.test");
  EXPECT_EQ(written(), R"({"duration":500.0,"event":"driver","operation":"launch","target":"com.example.test"})"
                       "\n");
}

TEST_F(TracingDriverTest, LeavesOutATargetThatThereIsNot) {
  driver->screenshot();
  EXPECT_EQ(written(), R"({"duration":0.0,"event":"driver","operation":"screenshot"})"
                       "\n");
}

TEST_F(TracingDriverTest, DescribesAnElement) {
  driver->launch("com.example.test");
  const XCUIElement element(XCUIApplication("com.example.test"));
  EXPECT_TRUE(driver->exists(element));
  EXPECT_THAT(written(), ::testing::EndsWith(R"({"duration":0.0,"event":"driver","operation":"exists",)"
                                             R"("target":"the application \"com.example.test\""})"
                                             "\n"));
}

TEST_F(TracingDriverTest, TellsWhatAnOperationRaisedAndPassesItOn) {
  recording->before = [](std::string_view, const std::string&) {
    Clock::shared().usleep(2500);
    throw UIAutomationError("the phone is gone");
  };
  EXPECT_THAT([this] { driver->pressButton(XCUIDeviceButton::home); },
              ::testing::ThrowsMessage<UIAutomationError>("the phone is gone"));
  EXPECT_EQ(written(), R"({"duration":2.5,"error":"the phone is gone","event":"driver","operation":"pressButton",)"
                       R"("target":"home"})"
                       "\n");
}

TEST_F(TracingDriverTest, AnswersAsTheDriverInsideDoes) {
  EXPECT_TRUE(driver->screenshot().has_value());
  EXPECT_EQ(driver->count(XCUIApplication("com.example.absent").descendants(ElementType::any)), 0U);
  EXPECT_THAT(recording->operations, ::testing::SizeIs(2));
}

}  // namespace quobrak
