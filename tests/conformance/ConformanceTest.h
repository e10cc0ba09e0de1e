#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "tests/conformance/EventfulClock.h"
#include "tests/conformance/Rig.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::conformance {

using namespace std::chrono_literals;

/// What every driver promises, tried on the driver of this program and a small phone: 100 x 200 points with the home
/// application and "com.example.test". One for each test process.
class ConformanceTest : public ::testing::Test {
 protected:
  static constexpr double INFINITE = std::numeric_limits<double>::infinity();
  static constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

  static const XCUIApplication APP;
  static const XCUIApplication HOME;
  static const XCUIApplication OTHER;

  ConformanceTest();
  ~ConformanceTest() override;

  /// Switches on a phone whose application shows `page` after its start.
  void switchOn(const std::string& page, const std::string& rules = "[]");
  void switchOn(const simulator::PhoneFiles& files);
  /// Switches on and starts the application; time counts from then on.
  void start(const std::string& page, const std::string& rules = "[]");

  UIDriver& driver() { return UIDriver::shared(); }
  simulator::Phone& phone() { return rig_->phone(); }
  Rig& rig() { return *rig_; }
  EventfulClock& clock() { return *clock_; }

  /// How long the clock has moved since the phone was switched on or its application started.
  std::chrono::nanoseconds elapsed() const { return clock_->now() - start_; }
  void restartTime() { start_ = clock_->now(); }

  /// The application's element with that identifier.
  static XCUIElement named(std::string_view identifier) { return APP.descendants(ElementType::any)[identifier]; }

  /// What took the touches so far: identifiers, or labels where there are none.
  std::vector<std::string> touched;

 private:
  EventfulClock* clock_;
  std::unique_ptr<Rig> rig_;
  Clock::TimePoint start_;
};

/// Runs the action, which must raise what a driver can foresee, in a text that names the operation and the target.
void expectDriverError(const std::function<void()>& action, std::string_view operation, const std::string& target);

/// The texts of the elements that a query finds.
std::vector<std::string> identifiersOf(const XCUIElementQuery& query);

}  // namespace quobrak::conformance
