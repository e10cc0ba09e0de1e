#include "drivers/simulator/PhoneLoader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <variant>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::MemoryPhoneFiles;
using quobrak::testing::smallPhone;
using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::ThrowsMessage;

MemoryPhoneFiles replacing(const std::string& file, const std::string& old, const std::string& text) {
  MemoryPhoneFiles files = smallPhone("");
  std::string& content = files[file];
  const auto place = content.find(old);
  if (place == std::string::npos) {
    ADD_FAILURE() << file << " does not hold " << old;
    return files;
  }
  content.replace(place, old.size(), text);
  return files;
}

std::string faultOf(const MemoryPhoneFiles& files) {
  try {
    loadPhone(files);
  } catch (const PhoneDescriptionError& error) {
    return error.what();
  }
  return "no fault";
}

TEST(PhoneLoader, ThePhone) {
  const PhoneDescription phone = loadPhone(replacing("phone.json", "\"volume\": 50", "\"volume\": 0"));
  EXPECT_EQ(phone.name, "Small phone");
  EXPECT_EQ(phone.size, (Size{100, 200}));
  EXPECT_EQ(phone.scale, 1);
  EXPECT_EQ(phone.systemVersion, "17.5");
  EXPECT_EQ(phone.volume, 0);
  EXPECT_EQ(phone.touchDelay, 0ms);
  EXPECT_EQ(phone.buttonDelay, 0ms);
  EXPECT_EQ(phone.scrollDelay, 0ms);
  EXPECT_EQ(phone.home, "com.apple.springboard");
  EXPECT_EQ(phone.applications.size(), 2);
}

TEST(PhoneLoader, Delays) {
  const auto loaded = [](const std::string& delays) {
    return loadPhone(replacing("phone.json", "\"volume\"", "\"delays\": " + delays + ", \"volume\""));
  };
  EXPECT_EQ(loaded(R"({"touch": 80, "button": 3600000})").touchDelay, 80ms);
  EXPECT_EQ(loaded(R"({"touch": 80, "button": 3600000})").buttonDelay, 1h);
  EXPECT_EQ(loaded(R"({"button": 200})").touchDelay, 0ms);
  EXPECT_EQ(loaded("{}").buttonDelay, 0ms);
  EXPECT_EQ(loaded(R"({"scroll": 400})").scrollDelay, 400ms);
}

TEST(PhoneLoader, AnApplication) {
  const PhoneDescription phone = loadPhone(smallPhone("<Button label='OK'/>"));
  const ApplicationDescription& application = phone.applications.at("com.example.test");
  EXPECT_EQ(application.bundleIdentifier, "com.example.test");
  EXPECT_EQ(application.name, "Test");
  EXPECT_EQ(application.launchTime, 500ms);
  EXPECT_EQ(application.firstScreen, "start");
  ASSERT_EQ(application.screens.size(), 1);
  EXPECT_EQ(application.screens.at("start")->children().front()->children().front()->label, "OK");
  EXPECT_TRUE(application.rules.empty());
}

TEST(PhoneLoader, LaunchTimeAndRulesMayBeLeftOut) {
  const PhoneDescription phone = loadPhone(smallPhone(""));
  EXPECT_EQ(phone.applications.at("com.apple.springboard").launchTime, 0ms);
  EXPECT_TRUE(phone.applications.at("com.apple.springboard").rules.empty());
}

TEST(PhoneLoader, TheBuiltInPhone) {
  const PhoneDescription phone = loadPhone(BuiltinPhoneFiles());
  EXPECT_EQ(phone.home, "com.apple.springboard");
  EXPECT_TRUE(phone.applications.contains("com.apple.springboard"));
  EXPECT_TRUE(phone.applications.contains("com.example.shop"));
}

TEST(PhoneLoader, FaultsOfThePhone) {
  struct Row {
    std::string old;
    std::string text;
    std::string fault;
  };
  const Row ROWS[] = {
      {"{\"name\"", "{name", "phone.json: line 1, column 3: unexpected character"},
      {"\"systemVersion\"", "\"sytemVersion\"",
       R"(phone.json: sytemVersion: unknown; what may stand here is "name", "size", "scale", "systemVersion", )"
       R"("volume", "delays", "home", "applications")"},
      {"\"name\": \"Small phone\", ", "", "phone.json: name: missing"},
      {"\"Small phone\"", "\"\"", "phone.json: name: must not be empty"},
      {"\"Small phone\"", "7", "phone.json: name: expected a text, found a number"},
      {"{\"width\": 100, \"height\": 200}", "[100, 200]", "phone.json: size: expected an object, found an array"},
      {"\"height\": 200", "\"depth\": 1",
       R"(phone.json: size.depth: unknown; what may stand here is "width", "height")"},
      {"\"width\": 100", "\"width\": 0", "phone.json: size.width: must be between 1 and 4000, found 0"},
      {"\"height\": 200", "\"height\": 4001", "phone.json: size.height: must be between 1 and 4000, found 4001"},
      {"\"scale\": 1", "\"scale\": 1.5", "phone.json: scale: expected a whole number, found a number"},
      {"\"scale\": 1", "\"scale\": 5", "phone.json: scale: must be between 1 and 4, found 5"},
      {"\"17.5\"", "\"\"", "phone.json: systemVersion: must not be empty"},
      {"\"volume\": 50", "\"volume\": 101", "phone.json: volume: must be between 0 and 100, found 101"},
      {"\"volume\": 50", "\"volume\": -1", "phone.json: volume: must be between 0 and 100, found -1"},
      {"\"volume\": 50", "\"volume\": 50, \"delays\": {\"tap\": 1}",
       R"(phone.json: delays.tap: unknown; what may stand here is "touch", "button", "scroll")"},
      {"\"volume\": 50", "\"volume\": 50, \"delays\": {\"touch\": -1}",
       "phone.json: delays.touch: must be between 0 and 3600000, found -1"},
      {"\"volume\": 50", "\"volume\": 50, \"delays\": 80", "phone.json: delays: expected an object, found a number"},
      {"\"home\": \"com.apple.springboard\", ", "", "phone.json: home: missing"},
      {"\"com.apple.springboard\"", "\"com.example.home\"",
       R"(phone.json: home: no application has the bundle identifier "com.example.home"; there are )"
       R"("com.apple.springboard", "com.example.test")"},
      {"[\"home\", \"test\"]", "\"home\"", "phone.json: applications: expected an array, found a text"},
      {"[\"home\", \"test\"]", "[]", "phone.json: applications: must hold the application that shows the home screen"},
      {"[\"home\", \"test\"]", "[\"home\", \"\"]", "phone.json: applications[1]: must not be empty"},
      {"[\"home\", \"test\"]", "[\"home\", \"other\"]", "other/app.json: the file is missing or cannot be read"},
      {"[\"home\", \"test\"]", "[\"home\", \"test\", \"home\"]",
       R"(phone.json: applications[2]: another application has the bundle identifier "com.apple.springboard" too)"},
  };
  for (const auto& [old, text, fault] : ROWS) {
    EXPECT_EQ(faultOf(replacing("phone.json", old, text)), fault) << text;
  }
}

TEST(PhoneLoader, AFolderWithoutAPhone) {
  EXPECT_EQ(faultOf(MemoryPhoneFiles({})), "phone.json: the file is missing or cannot be read");
}

TEST(PhoneLoader, FaultsOfAnApplication) {
  struct Row {
    std::string old;
    std::string text;
    std::string fault;
  };
  const Row ROWS[] = {
      {"\"com.example.test\"", "\"com.apple.springboard\"",
       R"(phone.json: applications[1]: another application has the bundle identifier "com.apple.springboard" too)"},
      {"\"com.example.test\"", "\"\"", "test/app.json: bundleIdentifier: must not be empty"},
      {"\"name\": \"Test\", ", "", "test/app.json: name: missing"},
      {"500", "\"500\"", "test/app.json: launchTime: expected a whole number, found a text"},
      {"500", "3600001", "test/app.json: launchTime: must be between 0 and 3600000, found 3600001"},
      {"\"launchTime\"", "\"launch\"",
       R"(test/app.json: launch: unknown; what may stand here is "bundleIdentifier", "name", "launchTime", )"
       R"("firstScreen", "rules")"},
      {"\"start\"", "\"begin\"",
       R"(test/app.json: firstScreen: there is no screen "begin": test/begin.xml is missing or cannot be read)"},
      {"\"rules\": []", "\"rules\": {}", "test/app.json: rules: expected an array, found an object"},
      {"}", "", "test/app.json: line 2, column 65: the text ends too early"},
  };
  for (const auto& [old, text, fault] : ROWS) {
    EXPECT_EQ(faultOf(replacing("test/app.json", old, text)), fault) << text;
  }
}

TEST(PhoneLoader, FaultsOfAScreenNameTheFile) {
  MemoryPhoneFiles files = smallPhone("");
  files["test/start.xml"] = "<Application>\n<Knob/></Application>";
  EXPECT_EQ(
      faultOf(files),
      R"(test/start.xml: line 2, column 2: "Knob" is no element type; one is written like "XCUIElementTypeButton")");
}

TEST(PhoneLoader, AnUnknownApplicationIsOpened) {
  EXPECT_EQ(
      faultOf(smallPhone("", R"([{"on": "launch", "do": [{"open": "com.example.other"}]}])")),
      R"(phone.json: a rule of "com.example.test" opens what is not there: no application has the bundle identifier )"
      R"("com.example.other"; there are "com.apple.springboard", "com.example.test")");
}

TEST(PhoneLoader, ARuleMayOpenAnApplicationThatIsReadLater) {
  MemoryPhoneFiles files = smallPhone("");
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home",
      "rules": [{"on": "tap", "element": "TRUEPREDICATE", "do": [{"open": "com.example.test"}]}]})";
  EXPECT_EQ(faultOf(files), "no fault");
}

}  // namespace
}  // namespace quobrak::simulator
