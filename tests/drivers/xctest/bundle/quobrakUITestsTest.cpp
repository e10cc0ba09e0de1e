#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIDriver.h"
#include "tests/drivers/xctest/standins/StandIns.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using testing::TestOutcome;

std::string contentOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Runs -[quobrakUITests testMain] on the built-in phone, on virtual time, with a home folder of its own.
class BundleTest : public ::testing::Test {
 protected:
  BundleTest() {
    ::clearenv();
    set("HOME", home_.path().string());
    set("class", "dslTestsSuites");
    set("iteration", "1");
    set("testFileNumber", "1");
    set("testFileSuiteName1", "Shop");
    set("testFilePath1", "script.txt");
    Clock::install(std::make_unique<VirtualClock>());
    phone_.emplace(simulator::loadPhone(simulator::BuiltinPhoneFiles()), Clock::shared());
  }

  static void set(const std::string& name, const std::string& value) {
    ASSERT_EQ(::setenv(name.c_str(), value.c_str(), 1), 0);
  }

  TestOutcome run(const std::string& script) {
    home_.write("Documents/script.txt", script);
    return testing::runQuobrakUITests(*phone_);
  }

  std::string statuses() const { return home_.read("Documents/testsStatus.json"); }

  const testing::TemporaryFolder home_;
  std::optional<simulator::Phone> phone_;
};

TEST_F(BundleTest, RunsTheExampleWithItsPermissionAlert) {
  set("PRODUCT", "Lamp");
  const TestOutcome outcome = run(contentOf(QUOBRAK_EXAMPLE_SCRIPT));
  EXPECT_THAT(outcome.failures, IsEmpty());
  EXPECT_FALSE(outcome.isInterrupted);
  EXPECT_EQ(statuses(), R"([{"stackTrace":"","status":"success"}])");
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_THAT(home_.files(), IsSupersetOf({"Documents/tests-results/Shop/script/iteration1/dump/dump.txt",
                                           "Documents/tests-results/Shop/script/iteration1/screenshots/"
                                           "006_Order_stop.png"}));
  EXPECT_THAT(home_.read("Documents/tests-results/Shop/script/iteration1/dump/dump.txt"), HasSubstr("Thank you"));
}

TEST_F(BundleTest, AScriptThatFailsIsAFailedStatusAndNoFailureOfTheTest) {
  const TestOutcome outcome = run("applicationStart,com.example.shop\nclickByText,Spaceship");
  EXPECT_THAT(outcome.failures, IsEmpty());
  EXPECT_EQ(statuses(),
            R"([{"stackTrace":"Error on line clickByText,Spaceship (line: 2). Cause: The expected text Spaceship was )"
            R"(not found","status":"failed"}])");
}

TEST_F(BundleTest, AnApplicationThatIsNotInstalledFailsItsScriptAlone) {
  const TestOutcome outcome = run("applicationStart,com.example.missing");
  EXPECT_THAT(outcome.failures, IsEmpty());
  EXPECT_THAT(statuses(), HasSubstr("\"status\":\"failed\""));
}

TEST_F(BundleTest, WhatTheTestRaisesIsRecordedWithItsText) {
  set("class", "nonsense");
  const TestOutcome outcome = run("");
  EXPECT_THAT(outcome.failures, ElementsAre("thrown error: caught error: \"The class is not supported\""));
  EXPECT_TRUE(outcome.isInterrupted);
}

TEST_F(BundleTest, AnExceptionOfTheFrameworkEndsTheTestBeforeAnythingIsWritten) {
  testing::injectIntoTest({.selector = "XCUIElement tap", .name = "", .reason = "The phone went away"});
  const TestOutcome outcome =
      run("applicationStart,com.example.shop\nmeasureStart,Step\nclickByText,Browse products\nmeasureStop");
  EXPECT_THAT(outcome.failures, ElementsAre("failure: The phone went away"));
  EXPECT_TRUE(outcome.isInterrupted);
  EXPECT_THAT(home_.files(), Not(Contains("Documents/testsStatus.json")));
  // The driver went when the test was unwound.
  EXPECT_DEATH(UIDriver::shared(), "No UI driver is installed");
}

}  // namespace
}  // namespace quobrak
