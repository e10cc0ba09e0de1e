#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Phone.h"
#include "drivers/simulator/ScreenPainter.h"
#include "platform/foundation/Data.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::testing {

/// What the stand-ins ask of the simulated phone beyond its own interface. Asking for a screen or a picture lets happen
/// what has come due on the phone until then.
class PhoneAccess {
 public:
  explicit PhoneAccess(simulator::Phone& phone);

  simulator::Phone& phone() { return phone_; }

  /// The screen of an application; null where it does not run.
  const simulator::Element* screenOf(const std::string& bundleIdentifier) const;
  /// The alert of that number; null where it is not the one that is up.
  const simulator::Element* alert(std::uint64_t number) const;

  bool isHittable(const simulator::Element& element) const;
  std::optional<Point> hitPoint(const simulator::Element& element) const;
  /// Whether an alert is up that the element is no part of.
  bool isBlocked(const simulator::Element& element) const;

  std::optional<Data> picture() const;

  /// `stages` is what the steps of the description found; the last one begins with the element or is empty.
  std::string debugDescription(const XCUIElement& description,
                               const std::vector<std::vector<const simulator::Element*>>& stages) const;

 private:
  simulator::Phone& phone_;
  simulator::ScreenPainter painter_;
};

}  // namespace quobrak::testing
