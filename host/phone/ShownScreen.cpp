#include "host/phone/ShownScreen.h"

#include <chrono>
#include <utility>

namespace quobrak::host {

namespace {

simulator::PhoneDescription showing(simulator::PhoneDescription phone, const std::string& application,
                                    const std::optional<std::string>& screen) {
  if (screen) {
    for (auto& [identifier, description] : phone.applications) {
      description.rules.clear();
    }
    phone.applications.at(application).firstScreen = *screen;
  }
  return phone;
}

}  // namespace

ShownScreen::ShownScreen(simulator::PhoneDescription phone, std::string application,
                         const std::optional<std::string>& screen)
    : application_(std::move(application)),
      clock_(std::chrono::milliseconds::zero()),
      driver_(showing(std::move(phone), application_, screen), clock_) {
  driver_.launch(application_);
}

const simulator::ApplicationDescription& ShownScreen::application() const {
  return driver_.phone().description().applications.at(application_);
}

const simulator::Element* ShownScreen::root() const {
  const simulator::RunningApplication* const running = driver_.phone().running(application_);
  return running == nullptr ? nullptr : running->screen.get();
}

std::string ShownScreen::name() const {
  const simulator::RunningApplication* const running = driver_.phone().running(application_);
  return running == nullptr ? "" : running->screenName;
}

const std::string& ShownScreen::frontIdentifier() const {
  return driver_.phone().frontIdentifier();
}

const simulator::Element* ShownScreen::systemAlert() const {
  const simulator::SystemAlert* const alert = driver_.phone().alert();
  return alert == nullptr ? nullptr : &alert->alert();
}

std::optional<Data> ShownScreen::picture(std::span<const simulator::Mark> marks) const {
  const simulator::PhoneDescription& phone = driver_.phone().description();
  return simulator::ScreenPainter(phone.size, phone.scale).png(driver_.phone().layers(), marks);
}

}  // namespace quobrak::host
