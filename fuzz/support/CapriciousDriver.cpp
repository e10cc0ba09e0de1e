#include "fuzz/support/CapriciousDriver.h"

#include "fuzz/support/Require.h"
#include "platform/foundation/Unicode.h"
#include "platform/uiautomation/UIAutomationError.h"

namespace quobrak::fuzz {

namespace {

constexpr std::uint8_t YES = 1;

bool truthIn(std::uint8_t answer) {
  return (answer & YES) != 0;
}

/// Empty, or one of a few.
std::string textIn(std::uint8_t answer) {
  return std::string(answer % 4, 'a');
}

XCTWaiterResult resultIn(std::uint8_t answer) {
  return truthIn(answer) ? XCTWaiterResult::completed : XCTWaiterResult::timedOut;
}

}  // namespace

std::uint8_t CapriciousDriver::answer(const std::string& target) {
  require(isUTF8(target), "what is done to what can be said in words");
  ++calls_;
  const std::uint8_t answer = answers_.next();
  if (answer == Answers::FAILURE) {
    hasFailed_ = true;
    throw UIAutomationError("the phone is lost");
  }
  return answer;
}

std::size_t CapriciousDriver::count(const XCUIElementQuery& query) {
  return answer(describe(query)) % 4;
}

bool CapriciousDriver::exists(const XCUIElement& element) {
  return truthIn(answer(describe(element)));
}

std::string CapriciousDriver::label(const XCUIElement& element) {
  return textIn(answer(describe(element)));
}

std::string CapriciousDriver::identifier(const XCUIElement& element) {
  return textIn(answer(describe(element)));
}

ElementValue CapriciousDriver::value(const XCUIElement& element) {
  return textIn(answer(describe(element)));
}

Rect CapriciousDriver::frame(const XCUIElement& element) {
  const std::uint8_t answered = answer(describe(element));
  return truthIn(answered) ? Rect{{0, 0}, {100, static_cast<double>(answered)}} : Rect{};
}

bool CapriciousDriver::isHittable(const XCUIElement& element) {
  return truthIn(answer(describe(element)));
}

XCTWaiterResult CapriciousDriver::waitForExistence(const XCUIElement& element, Seconds) {
  return resultIn(answer(describe(element)));
}

XCTWaiterResult CapriciousDriver::waitForPredicate(const XCUIElement& element, const NSPredicate& predicate, Seconds) {
  return resultIn(answer(describe(element) + predicate.predicateFormat()));
}

std::optional<Data> CapriciousDriver::screenshot() {
  return truthIn(answer("the screen")) ? std::optional(Data(1)) : std::nullopt;
}

std::string CapriciousDriver::debugDescription(const XCUIElement& element) {
  return textIn(answer(describe(element)));
}

void CapriciousDriver::around(std::string_view, const std::function<std::string()>& target,
                              const std::function<void()>&) {
  answer(target());
}

}  // namespace quobrak::fuzz
