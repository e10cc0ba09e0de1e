#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "drivers/simulator/PhoneDescription.h"
#include "drivers/simulator/ScreenPainter.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/Data.h"
#include "platform/foundation/VirtualClock.h"

namespace quobrak::host {

/// An application on a phone that was switched on for it alone, on a clock that takes no time.
class ShownScreen {
 public:
  /// Without the name of a screen the application is started, and its rules are carried out. With one it shows that
  /// screen as its description has it, and nothing on the phone has rules. The application and the screen must be
  /// there. Throws `UIAutomationError` where rules set each other off without end.
  ShownScreen(simulator::PhoneDescription phone, std::string application, const std::optional<std::string>& screen);

  const simulator::ApplicationDescription& application() const;
  const std::string& identifier() const { return application_; }
  /// Null where the application has ended by itself.
  const simulator::Element* root() const;
  /// Empty where the application has ended by itself.
  std::string name() const;
  /// Whose screen is in front: another application's where rules have opened it.
  const std::string& frontIdentifier() const;
  /// The system's alert that is up; null for none.
  const simulator::Element* systemAlert() const;

  /// In the order in which commands count them. Throws `UIAutomationError` where a pattern backtracks for ever.
  std::vector<const simulator::Element*> elements(const XCUIElementQuery& query) { return driver_.elements(query); }
  bool isHittable(const simulator::Element& element) const { return driver_.isHittableNow(element); }

  /// What the phone shows, as PNG: the very bytes of a run's screenshot where there are no marks. None where a picture
  /// of that size cannot be made.
  std::optional<Data> picture(std::span<const simulator::Mark> marks) const;

 private:
  std::string application_;
  VirtualClock clock_;
  simulator::SimulatedDriver driver_;
};

}  // namespace quobrak::host
