#include "tests/drivers/xctest/standins/PhoneAccess.h"

#include "drivers/simulator/ElementDescription.h"
#include "drivers/simulator/HitTest.h"
#include "platform/uiautomation/QueryChain.h"

namespace quobrak::testing {

using simulator::Element;
using simulator::isWithin;

PhoneAccess::PhoneAccess(simulator::Phone& phone)
    : phone_(phone), painter_(phone.description().size, phone.description().scale) {}

const Element* PhoneAccess::screenOf(const std::string& bundleIdentifier) const {
  phone_.passTime();
  const simulator::RunningApplication* const running = phone_.running(bundleIdentifier);
  return running == nullptr ? nullptr : running->screen.get();
}

const Element* PhoneAccess::alert(std::uint64_t number) const {
  const simulator::SystemAlert* const alert = phone_.alert();
  return alert != nullptr && alert->number == number ? &alert->alert() : nullptr;
}

bool PhoneAccess::isHittable(const Element& element) const {
  const std::vector<const Element*> layers = phone_.layers();
  const bool isOnScreen = isWithin(element, *layers.front());
  const bool isInAlert = phone_.alert() != nullptr && isWithin(element, *phone_.alert()->window);
  return (isOnScreen || isInAlert) && simulator::isHittable(element);
}

std::optional<Point> PhoneAccess::hitPoint(const Element& element) const {
  return simulator::hitPoint(element);
}

bool PhoneAccess::isBlocked(const Element& element) const {
  return phone_.alert() != nullptr && !isWithin(element, *phone_.alert()->window);
}

std::optional<Data> PhoneAccess::picture() const {
  phone_.passTime();
  return painter_.png(phone_.layers());
}

std::string PhoneAccess::debugDescription(const XCUIElement& description,
                                          const std::vector<std::vector<const Element*>>& stages) const {
  if (stages.back().empty()) {
    return queryChain(description);
  }
  const auto* const application = std::get_if<ApplicationRoot>(&description.query().root());
  const std::string& owner = application == nullptr ? phone_.description().home : application->bundleIdentifier;
  return simulator::debugDescription(description, stages, phone_.running(owner)->processIdentifier);
}

}  // namespace quobrak::testing
