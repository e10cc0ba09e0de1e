#include "phoneserver/ServedPhone.h"

#include <utility>

#include "drivers/simulator/HitTest.h"
#include "phoneserver/Base64.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

constexpr int NOT_RUNNING = 1;
constexpr int IN_BACKGROUND = 3;
constexpr int IN_FRONT = 4;

const Element* numbered(const Element& root, std::uint64_t number) {
  if (root.number == number) {
    return &root;
  }
  for (const auto& child : root.children()) {
    if (const Element* const found = numbered(*child, number)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

ServedPhone::ServedPhone(simulator::PhoneDescription description, Clock& clock)
    : clock_(clock),
      phone_(std::move(description), clock),
      painter_(phone_.description().size, phone_.description().scale) {}

int ServedPhone::stateOf(const std::string& bundleIdentifier) const {
  if (phone_.running(bundleIdentifier) == nullptr) {
    return NOT_RUNNING;
  }
  const bool isHome = bundleIdentifier == phone_.description().home;
  return isHome || phone_.isInFront(bundleIdentifier) ? IN_FRONT : IN_BACKGROUND;
}

std::string ServedPhone::detectedApplication() const {
  if (phone_.alert() == nullptr) {
    for (const auto& [identifier, application] : phone_.description().applications) {
      if (phone_.isInFront(identifier)) {
        return identifier;
      }
    }
  }
  return phone_.description().home;
}

std::string ServedPhone::activeApplication(Binding binding) const {
  if (!session_ || binding == Binding::none) {
    return detectedApplication();
  }
  if (const std::string& pinned = session_->settings.text("defaultActiveApplication"); stateOf(pinned) == IN_FRONT) {
    return pinned;
  }
  const bool isBehindAlert = session_->settings.truth("respectSystemAlerts") && phone_.alert() != nullptr;
  if (session_->application && phone_.isInFront(*session_->application) && !isBehindAlert) {
    return *session_->application;
  }
  return detectedApplication();
}

const Element& ServedPhone::screenOf(const std::string& bundleIdentifier) const {
  return *phone_.running(bundleIdentifier)->screen;
}

const Element& ServedPhone::activeScreen(Binding binding) const {
  return screenOf(activeApplication(binding));
}

const Element* ServedPhone::elementNumbered(std::uint64_t number) const {
  for (const auto& [identifier, application] : phone_.description().applications) {
    const simulator::RunningApplication* const running = phone_.running(identifier);
    if (const Element* const found = running == nullptr ? nullptr : numbered(*running->screen, number)) {
      return found;
    }
  }
  return nullptr;
}

/// What is behind the application in front is not on the screen; an alert of the system is.
bool ServedPhone::isShown(const Element& element) const {
  const bool isInFront = isWithin(element, *phone_.layers().front());
  return isInFront || (phone_.alert() != nullptr && isWithin(element, *phone_.alert()->window));
}

bool ServedPhone::isVisible(const Element& element) const {
  return isShown(element) && !element.isHidden && simulator::hitPoint(element).has_value();
}

bool ServedPhone::isHittable(const Element& element) const {
  return isShown(element) && simulator::isHittable(element);
}

const std::string& ServedPhone::screenshot() {
  if (!picture_ || pictureRevision_ != phone_.revision()) {
    const std::optional<Data> png = painter_.png(phone_.layers());
    if (!png) {
      throw WireError(WireErrorCode::unableToCaptureScreen, "a picture of the screen's size cannot be made");
    }
    picture_ = base64(*png);
    pictureRevision_ = phone_.revision();
  }
  return *picture_;
}

}  // namespace quobrak::phoneserver
