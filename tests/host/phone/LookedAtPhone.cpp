#include "tests/host/phone/LookedAtPhone.h"

#include <stdexcept>

#include "drivers/simulator/PhoneLoader.h"

namespace quobrak::testing {

namespace {

constexpr const char* START = R"(
  <XCUIElementTypeStaticText name="title" label="Welcome" x="0" y="0" width="100" height="20"/>
  <XCUIElementTypeButton name="basket" label="Your basket" x="0" y="20" width="100" height="20"/>
  <XCUIElementTypeButton name="off" label="Old basket" enabled="false" x="0" y="40" width="100" height="20"/>
  <XCUIElementTypeTextField name="search" placeholderValue="Search" value="la" x="0" y="60" width="100" height="20"/>
  <XCUIElementTypeButton name="under" label="Under" x="0" y="80" width="100" height="20"/>
  <XCUIElementTypeImage name="cover" label="Cover" x="0" y="80" width="100" height="20"/>
  <XCUIElementTypeScrollView name="list" x="0" y="100" width="100" height="40">
    <XCUIElementTypeButton name="below" label="Below" x="0" y="150.5" width="100" height="20"/>
  </XCUIElementTypeScrollView>
  <XCUIElementTypeButton name="away" label="Away" x="0" y="500" width="100" height="20"/>
  <XCUIElementTypeButton name="flat" label="Flat" x="0" y="140" width="0" height="20"/>
  <XCUIElementTypeButton name="ghost" label="Ghost" visible="false" x="0" y="150" width="100" height="20"/>
  <XCUIElementTypeOther/>)";

}  // namespace

MemoryPhoneFiles lookedAtPhone() {
  MemoryPhoneFiles files = smallPhone(START, R"([
      {"on": "launch", "do": [{"change": "identifier == \"title\"", "to": {"label": "Hello"}}]},
      {"on": "tap", "element": "identifier == \"basket\"", "do": [{"show": "other"}]}])");
  files["test/other.xml"] =
      R"(<XCUIElementTypeApplication name="Test" label="Test" x="0" y="0" width="100" height="200">
      <XCUIElementTypeButton label="Back" x="0" y="0" width="50" height="20"/></XCUIElementTypeApplication>)";
  return files;
}

host::ShownScreen lookedAtScreen() {
  return {simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "start"};
}

const simulator::Element& elementNamed(const host::ShownScreen& screen, const std::string& identifier) {
  const simulator::Element* found = nullptr;
  simulator::forEachDescendant(*screen.root(), [&](const simulator::Element& element) {
    found = element.identifier == identifier ? &element : found;
  });
  if (found == nullptr) {
    throw std::runtime_error("no element has the identifier " + identifier);
  }
  return *found;
}

}  // namespace quobrak::testing
