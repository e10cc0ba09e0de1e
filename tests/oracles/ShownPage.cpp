#include "tests/oracles/ShownPage.h"

#include <chrono>
#include <memory>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/VirtualClock.h"
#include "quobrakUITests/Application.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::oracles {

namespace {

using simulator::Element;
using simulator::PhoneDescription;

constexpr const char* APPLICATION = "com.example.test";
constexpr const char* PHONE = R"({"name": "Phone", "size": {"width": 402, "height": 874}, "scale": 1,
    "systemVersion": "17.5", "volume": 50, "home": "com.apple.springboard", "applications": ["home", "test"]})";

PhoneDescription phoneShowing(const std::string& pageSource) {
  testing::MemoryPhoneFiles files = testing::smallPhone("");
  files["phone.json"] = PHONE;
  files["test/start.xml"] = pageSource;
  return simulator::loadPhone(files);
}

void putPlacesInFrames(Element& screen) {
  double place = 0;
  forEachDescendant(screen, [&place](Element& element) { element.frame = {{place++, 0}, {1, 1}}; });
}

}  // namespace

ShownPage::ShownPage(const std::string& pageSource, Frames frames) : application_(APPLICATION) {
  PhoneDescription phone = phoneShowing(pageSource);
  if (frames == Frames::places) {
    putPlacesInFrames(*phone.applications.at(APPLICATION).screens.at("start"));
  }
  Clock::install(std::make_unique<VirtualClock>(std::chrono::milliseconds(0)));
  UIDriver::install(std::make_unique<simulator::SimulatedDriver>(std::move(phone), Clock::shared()));
  Application::applicationStart(APPLICATION);
}

ShownPage::~ShownPage() {
  UIDriver::install(nullptr);
}

XCUIElement ShownPage::element(std::size_t place) const {
  return application_.descendants(ElementType::any).elementBoundBy(place);
}

std::size_t placeOf(const XCUIElement& element) {
  return static_cast<std::size_t>(element.frame().origin.x);
}

}  // namespace quobrak::oracles
