#pragma once

#include <cstddef>
#include <cstdint>

#include "fuzz/support/Answers.h"
#include "platform/uiautomation/WrappedDriver.h"

namespace quobrak::fuzz {

/// A driver of no phone, which takes an answer for each primitive. One that is `Answers::FAILURE` makes it raise
/// `UIAutomationError`; of another one, the lowest bits answer a question. Actions do nothing, and nothing takes time.
class CapriciousDriver final : public WrappedDriver {
 public:
  /// `answers` must outlive the driver.
  explicit CapriciousDriver(Answers& answers) : WrappedDriver(nullptr), answers_(answers) {}

  /// How many primitives were called so far.
  std::size_t calls() const { return calls_; }
  bool hasFailed() const { return hasFailed_; }

  std::size_t count(const XCUIElementQuery& query) override;
  bool exists(const XCUIElement& element) override;
  std::string label(const XCUIElement& element) override;
  std::string identifier(const XCUIElement& element) override;
  ElementValue value(const XCUIElement& element) override;
  Rect frame(const XCUIElement& element) override;
  bool isHittable(const XCUIElement& element) override;
  XCTWaiterResult waitForExistence(const XCUIElement& element, Seconds timeout) override;
  XCTWaiterResult waitForPredicate(const XCUIElement& element, const NSPredicate& predicate, Seconds timeout) override;
  std::optional<Data> screenshot() override;
  std::string debugDescription(const XCUIElement& element) override;
  void forgetLookups() override {}

 protected:
  /// All others, which are actions.
  void around(std::string_view name, const std::function<std::string()>& target,
              const std::function<void()>& primitive) override;

 private:
  /// The answer to a primitive that is done to what `target` says.
  std::uint8_t answer(const std::string& target);

  Answers& answers_;
  std::size_t calls_ = 0;
  bool hasFailed_ = false;
};

}  // namespace quobrak::fuzz
