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

TEST(PhoneLoader, Rules) {
  MemoryPhoneFiles files = smallPhone("", R"([
    {"on": "launch", "when": {"a": "1", "b": ""}, "do": [{"show": "second"}, {"set": {"a": "2"}}]},
    {"on": "tap", "element": "label == 'OK'", "do": [{"open": "com.apple.springboard"}]}])");
  files["test/second.xml"] = "<Window/>";
  const PhoneDescription phone = loadPhone(files);
  const ApplicationDescription& application = phone.applications.at("com.example.test");
  EXPECT_TRUE(application.screens.contains("second"));
  ASSERT_EQ(application.rules.size(), 2);

  const Rule& launch = application.rules[0];
  EXPECT_EQ(launch.event, RuleEvent::launch);
  EXPECT_FALSE(launch.element);
  EXPECT_THAT(launch.condition, ElementsAre(Pair("a", "1"), Pair("b", "")));
  ASSERT_EQ(launch.effects.size(), 2);
  EXPECT_EQ(std::get<ShowScreen>(launch.effects[0]).screen, "second");
  EXPECT_EQ(std::get<SetValue>(launch.effects[1]).name, "a");
  EXPECT_EQ(std::get<SetValue>(launch.effects[1]).text, "2");

  const Rule& tap = application.rules[1];
  EXPECT_EQ(tap.event, RuleEvent::tap);
  EXPECT_TRUE(tap.element);
  EXPECT_TRUE(tap.condition.empty());
  EXPECT_EQ(std::get<OpenApplication>(tap.effects.at(0)).bundleIdentifier, "com.apple.springboard");
}

TEST(PhoneLoader, Alerts) {
  const PhoneDescription phone = loadPhone(smallPhone("", R"([{"on": "launch", "do": [
    {"alert": {"title": "Sold out", "message": "Sorry.", "buttons": ["No", "Yes"]}, "answer": "sorry"},
    {"alert": {"title": "Sold out", "buttons": ["OK"]}},
    {"askPermission": "location", "message": "For maps.", "answer": "place"},
    {"askPermission": "camera"}]}])"));
  const auto& effects = phone.applications.at("com.example.test").rules.at(0).effects;
  const auto& answered = std::get<RaiseAlert>(effects.at(0));
  EXPECT_EQ(answered.alert.title, "Sold out");
  EXPECT_EQ(answered.alert.message, "Sorry.");
  EXPECT_THAT(answered.alert.buttons, ElementsAre("No", "Yes"));
  EXPECT_EQ(answered.answer, "sorry");
  const auto& plain = std::get<RaiseAlert>(effects.at(1));
  EXPECT_EQ(plain.alert.message, "");
  EXPECT_EQ(plain.answer, "");
  const auto& location = std::get<RaiseAlert>(effects.at(2));
  EXPECT_EQ(location.alert.title, "Allow “Test” to use your location?");
  EXPECT_EQ(location.alert.message, "For maps.");
  EXPECT_EQ(location.answer, "place");
  const auto& camera = std::get<RaiseAlert>(effects.at(3));
  EXPECT_EQ(camera.alert.title, "“Test” Would Like to Access the Camera");
  EXPECT_EQ(camera.answer, "");
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

TEST(PhoneLoader, FaultsOfARule) {
  struct Row {
    std::string rule;
    std::string fault;
  };
  const Row ROWS[] = {
      {R"({"do": []})", "on: missing"},
      {R"({"on": "swipe", "do": []})", R"(on: must be "launch" or "tap", found "swipe")"},
      {R"({"on": "launch"})", "do: missing"},
      {R"({"on": "launch", "do": {}})", "do: expected an array, found an object"},
      {R"({"on": "launch", "if": {}, "do": []})",
       R"(if: unknown; what may stand here is "on", "element", "when", "do")"},
      {R"({"on": "launch", "element": "TRUEPREDICATE", "do": []})", "element: a launch has no element"},
      {R"({"on": "launch", "when": {"a": 1}, "do": []})", "when.a: expected a text, found a number"},
      {R"({"on": "tap", "do": []})", "element: missing"},
      {R"({"on": "tap", "element": "label = ", "do": []})",
       "element: column 9: expected a key path, a text, TRUE, FALSE or %@, found the end in the predicate format: "
       "label = "},
      {R"({"on": "tap", "element": "label MATCHES '('", "do": []})",
       R"(element: the regular expression "(" cannot be read: a parenthesis has no partner, at character 1)"},
      {R"({"on": "tap", "element": "enabled == FALSE AND title == 'OK'", "do": []})",
       R"(element: elements have no attribute "title"; they have label, identifier, placeholderValue, value, )"
       R"(enabled, selected, exists, hittable)"},
  };
  for (const auto& [rule, fault] : ROWS) {
    EXPECT_EQ(faultOf(smallPhone("", "[" + rule + "]")), "test/app.json: rules[0]." + fault) << rule;
  }
}

TEST(PhoneLoader, FaultsOfAnEffect) {
  struct Row {
    std::string effect;
    std::string fault;
  };
  const Row ROWS[] = {
      {"{}", R"(: expected an effect: "show", "set", "askPermission", "alert" or "open")"},
      {"\"show\"", ": expected an object, found a text"},
      {R"({"hide": "start"})",
       R"(.hide: unknown; what may stand here is "show", "set", "askPermission", "alert", "open")"},
      {R"({"show": "second"})", R"(.show: there is no screen "second": test/second.xml is missing or cannot be read)"},
      {R"({"show": "start", "open": "com.example.test"})", R"(.open: unknown; what may stand here is "show")"},
      {R"({"set": {}})", ".set: expected one named value, found 0"},
      {R"({"set": {"a": "1", "b": "2"}})", ".set: expected one named value, found 2"},
      {R"({"set": {"a": true}})", ".set.a: expected a text, found a truth value"},
      {R"({"set": {"a": "1"}, "answer": "a"})", R"(.answer: unknown; what may stand here is "set")"},
      {R"({"askPermission": "contacts"})",
       R"(.askPermission: must be one of "location", "camera", "notifications", "tracking", found "contacts")"},
      {R"({"askPermission": "camera", "buttons": []})",
       R"(.buttons: unknown; what may stand here is "askPermission", "message", "answer")"},
      {R"({"askPermission": "camera", "answer": 1})", ".answer: expected a text, found a number"},
      {R"({"alert": {"buttons": ["OK"]}})", ".alert.title: missing"},
      {R"({"alert": {"title": "", "buttons": ["OK"]}})", ".alert.title: must not be empty"},
      {R"({"alert": {"title": "A"}})", ".alert.buttons: missing"},
      {R"({"alert": {"title": "A", "buttons": []}})",
       ".alert.buttons: an alert without a button could never be answered"},
      {R"({"alert": {"title": "A", "buttons": ["OK", ""]}})", ".alert.buttons[1]: must not be empty"},
      {R"({"alert": {"title": "A", "buttons": ["OK"], "text": "B"}})",
       R"(.alert.text: unknown; what may stand here is "title", "message", "buttons")"},
      {R"({"open": ""})", ".open: must not be empty"},
  };
  for (const auto& [effect, fault] : ROWS) {
    EXPECT_EQ(faultOf(smallPhone("", R"([{"on": "launch", "do": [)" + effect + "]}]")),
              "test/app.json: rules[0].do[0]" + fault)
        << effect;
  }
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
