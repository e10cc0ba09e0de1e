#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::testing {

namespace {

std::string screen(const std::string& name, const std::string& elements) {
  return R"(<XCUIElementTypeApplication name=")" + name + R"(" label=")" + name +
         R"(" x="0" y="0" width="100" height="200"><XCUIElementTypeWindow x="0" y="0" width="100" height="200">)" +
         elements + "</XCUIElementTypeWindow></XCUIElementTypeApplication>";
}

}  // namespace

std::optional<std::string> MemoryPhoneFiles::read(const std::string& path) const {
  const auto found = files_.find(path);
  return found == files_.end() ? std::nullopt : std::optional(found->second);
}

MemoryPhoneFiles smallPhone(const std::string& page, const std::string& rules) {
  return MemoryPhoneFiles(
      {{"phone.json",
        R"({"name": "Small phone", "size": {"width": 100, "height": 200}, "scale": 1, "systemVersion": "17.5",
            "volume": 50, "home": "com.apple.springboard", "applications": ["home", "test"]})"},
       {"home/app.json", R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home"})"},
       {"home/home.xml", screen(" ", "")},
       {"test/app.json", R"({"bundleIdentifier": "com.example.test", "name": "Test", "launchTime": 500,
                             "firstScreen": "start", "rules": )" +
                             rules + "}"},
       {"test/start.xml", screen("Test", page)}});
}

}  // namespace quobrak::testing
