#include "host/phone/PhoneDocument.h"

#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "tests/host/phone/LookedAtPhone.h"

namespace quobrak::host {
namespace {

using quobrak::testing::lookedAtPhone;
using quobrak::testing::lookedAtScreen;
using quobrak::testing::MemoryPhoneFiles;
using quobrak::testing::TEST_APPLICATION;

std::string compact(const char* json) {
  return JSONEncoder::encode(JSONDecoder::decode(json));
}

TEST(PhoneDocument, HasThePhoneAndItsApplications) {
  MemoryPhoneFiles files = lookedAtPhone();
  files["phone.json"] =
      R"({"name": "My phone", "size": {"width": 390, "height": 844}, "scale": 3, "systemVersion": "17.5",
          "volume": 40, "delays": {"touch": 80, "button": 200, "scroll": 400}, "home": "com.apple.springboard",
          "applications": ["home", "test"], "values": {"shop.basket": "full"}})";
  EXPECT_EQ(JSONEncoder::encode(phoneDocument(simulator::loadPhone(files))), compact(R"({
    "name": "My phone", "size": {"width": 390.0, "height": 844.0}, "scale": 3.0, "systemVersion": "17.5",
    "volume": 40, "delays": {"touch": 80, "button": 200, "scroll": 400}, "home": "com.apple.springboard",
    "values": {"shop.basket": "full"},
    "applications": [
      {"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home", "launchTime": 0,
       "screens": ["home"], "rules": 0},
      {"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start", "launchTime": 500,
       "screens": ["other", "start"], "rules": 2}]})"));
}

TEST(PhoneDocument, HasATreeOfElements) {
  const ShownScreen screen(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "other");
  EXPECT_EQ(JSONEncoder::encode(screenDocument(screen, std::nullopt, {})), compact(R"({
    "application": "com.example.test", "screen": "other", "frontApplication": "com.example.test", "systemAlert": null,
    "tree": {
      "type": "Application", "label": "Test", "identifier": "", "value": null, "placeholderValue": null,
      "enabled": true, "selected": false, "focused": false, "hittable": true, "obstacle": "",
      "frame": {"x": 0.0, "y": 0.0, "width": 100.0, "height": 200.0},
      "children": [{
        "type": "Button", "label": "Back", "identifier": "", "value": null, "placeholderValue": null,
        "enabled": true, "selected": false, "focused": false, "hittable": true, "obstacle": "",
        "frame": {"x": 0.0, "y": 0.0, "width": 50.0, "height": 20.0},
        "children": []}]}})"));
}

TEST(PhoneDocument, HasTheMatchesOfASelectorAndTheWayToThem) {
  ShownScreen screen = lookedAtScreen();
  const Selector selector{.kind = SelectorKind::text, .text = "b", .isEnabled = true};
  const Elements matches = screen.elements(queryOf(selector, TEST_APPLICATION));
  const JSONValue document = screenDocument(screen, selector, matches);
  const auto& members = std::get<JSONValue::Object>(document.variant());
  EXPECT_EQ(JSONEncoder::encode(members.at("selector")), R"({"enabled":true,"option":"--text","text":"b"})");
  EXPECT_EQ(JSONEncoder::encode(members.at("matches")), compact(R"([
    {"rank": 1, "path": [0, 1], "label": "Your basket", "tap": "a tap lands on it"},
    {"rank": 2, "path": [0, 6, 0], "label": "Below",
     "tap": "not hittable: it lies outside what is seen of ScrollView 'list'"}])"));
  const Selector label{.kind = SelectorKind::label, .text = "none"};
  const JSONValue noMatch = screenDocument(screen, label, {});
  EXPECT_EQ(JSONEncoder::encode(std::get<JSONValue::Object>(noMatch.variant()).at("selector")),
            R"({"enabled":null,"option":"--label","text":"none"})");
  EXPECT_EQ(JSONEncoder::encode(std::get<JSONValue::Object>(noMatch.variant()).at("matches")), "[]");
}

TEST(PhoneDocument, OfAnApplicationThatHasEndedThereIsNoTree) {
  MemoryPhoneFiles files = lookedAtPhone();
  files["test/app.json"] = R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start",
      "rules": [{"on": "launch", "do": [{"systemAlert": {"title": "Bye", "buttons": ["OK"]}},
                                        {"open": "com.apple.springboard"}]}]})";
  const ShownScreen up(simulator::loadPhone(files), TEST_APPLICATION, std::nullopt);
  const JSONValue document = screenDocument(up, std::nullopt, {});
  EXPECT_EQ(std::get<JSONValue::Object>(document.variant()).at("systemAlert"), JSONValue("Bye"));
  EXPECT_EQ(std::get<JSONValue::Object>(document.variant()).at("frontApplication"), JSONValue("com.apple.springboard"));
  files["test/app.json"] = R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start",
      "rules": [{"on": "launch", "do": [{"terminate": "com.example.test"}]}]})";
  const ShownScreen ended(simulator::loadPhone(files), TEST_APPLICATION, std::nullopt);
  EXPECT_EQ(JSONEncoder::encode(screenDocument(ended, std::nullopt, {})), compact(R"({
    "application": "com.example.test", "screen": null, "frontApplication": "com.apple.springboard",
    "systemAlert": null, "tree": null})"));
}

TEST(PhoneDocument, ANumberThatJsonCannotSayIsNull) {
  MemoryPhoneFiles files = lookedAtPhone();
  files["test/other.xml"] = R"(<XCUIElementTypeApplication x="0" y="0" width="100" height="inf"/>)";
  const ShownScreen screen(simulator::loadPhone(files), TEST_APPLICATION, "other");
  const JSONValue document = screenDocument(screen, std::nullopt, {});
  const JSONReader frame = JSONReader(document).member("tree").member("frame");
  EXPECT_TRUE(frame.member("height").isNull());
  EXPECT_EQ(frame.member("width").number(), 100);
}

}  // namespace
}  // namespace quobrak::host
