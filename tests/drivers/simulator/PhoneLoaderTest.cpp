#include "drivers/simulator/PhoneLoader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::MemoryPhoneFiles;
using quobrak::testing::smallPhone;
using ::testing::ElementsAre;

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

TEST(PhoneLoader, ValuesOfThePhone) {
  const PhoneDescription phone =
      loadPhone(replacing("phone.json", "\"volume\"", R"("values": {"user": "Ada", "shop.pace": "250"}, "volume")"));
  EXPECT_EQ(phone.values.text("user"), "Ada");
  EXPECT_EQ(phone.values.duration("shop.pace"), 250ms);
  EXPECT_EQ(phone.values.text("never"), "");
  EXPECT_EQ(loadPhone(smallPhone("")).values.text("user"), "");
}

TEST(PhoneLoader, ASchemaMayBeNamed) {
  EXPECT_EQ(faultOf(replacing("phone.json", "{\"name\"", R"({"$schema": "phone.schema.json", "name")")), "no fault");
}

// Faults.

/// A part of a file, what stands there instead, and the fault.
struct Row {
  std::string old;
  std::string text;
  std::string fault;
};

TEST(PhoneLoader, FaultsOfThePhone) {
  const std::string known = R"("$schema", "name", "size", "scale", "systemVersion", "volume", "delays", "values", )"
                            R"("home", "applications")";
  const std::string value =
      "expected a value: a text in double quotes, a number, true, false, null, an array or an "
      "object";
  const Row ROWS[] = {
      {"{\"name\"", "{name", "1:3: unexpected character; expected a key in double quotes"},
      {"\"systemVersion\"", "\"sytemVersion\"",
       "1:1: systemVersion: missing\nphone.json:1:76: sytemVersion: unknown; what may stand here is " + known},
      {"\"name\": \"Small phone\", ", "", "1:1: name: missing"},
      {"\"Small phone\"", "\"\"", "1:2: name: must not be empty"},
      {"\"Small phone\"", "7", "1:2: name: expected a text, found a number"},
      {"{\"width\": 100, \"height\": 200}", "[100, 200]", "1:25: size: expected an object, found an array"},
      {"\"height\": 200", "\"depth\": 1",
       "1:25: size.height: missing\nphone.json:1:48: size.depth: unknown; what may stand here is \"width\", "
       "\"height\""},
      {"\"width\": 100", "\"width\": 0", "1:34: size.width: must be between 1 and 4000, found 0"},
      {"\"width\": 100", "\"width\": \"100\"", "1:34: size.width: expected a whole number, found a text"},
      {"\"height\": 200", "\"height\": 4001", "1:48: size.height: must be between 1 and 4000, found 4001"},
      {"\"height\": 200", "\"height\": 0.5", "1:48: size.height: expected a whole number, found a number"},
      {"\"width\": 100", "\"width\": 100, \"width\": 200", "1:48: size.width: stands twice in one object"},
      {"\"scale\": 1", "\"scale\": 1.5", "1:64: scale: expected a whole number, found a number"},
      {"\"scale\": 1", "\"scale\": 0", "1:64: scale: must be between 1 and 4, found 0"},
      {"\"scale\": 1", "\"scale\": 5", "1:64: scale: must be between 1 and 4, found 5"},
      {"\"17.5\"", "\"\"", "1:76: systemVersion: must not be empty"},
      {"\"17.5\"", "17.5", "1:76: systemVersion: expected a text, found a number"},
      {"\"volume\": 50", "\"volume\": 101", "2:13: volume: must be between 0 and 100, found 101"},
      {"\"volume\": 50", "\"volume\": -1", "2:13: volume: must be between 0 and 100, found -1"},
      {"\"volume\": 50", "\"volume\": 5e1000", "2:13: volume: the number is too large"},
      {"\"volume\": 50", "\"volume\": full", "2:24: unexpected character; " + value},
      {"\"volume\": 50", "\"volume\": 50, \"delays\": {\"tap\": 1}",
       R"(2:38: delays.tap: unknown; what may stand here is "touch", "button", "scroll")"},
      {"\"volume\": 50", "\"volume\": 50, \"delays\": {\"touch\": -1, \"button\": \"1\", \"scroll\": 3600001}",
       "2:38: delays.touch: must be between 0 and 3600000, found -1\n"
       "phone.json:2:51: delays.button: expected a whole number, found a text\n"
       "phone.json:2:66: delays.scroll: must be between 0 and 3600000, found 3600001"},
      {"\"volume\": 50", "\"volume\": 50, \"delays\": 80", "2:27: delays: expected an object, found a number"},
      {"\"volume\": 50", "\"volume\": 50, \"values\": [\"a\"]", "2:27: values: expected an object, found an array"},
      {"\"volume\": 50", "\"volume\": 50, \"values\": {\"ü\": \"\", \"a\": 1, \"b\": \"\"}",
       "2:38: values.ü: \"ü\" is no name of a value; one is like \"shop.basket_1\": words of ASCII letters, digits and "
       "_, with dots between them, none of which begins with a digit or means something in predicates, as \"in\" does\n"
       "phone.json:2:47: values.a: expected a text, found a number"},
      {"\"home\": \"com.apple.springboard\", ", "", "1:1: home: missing"},
      {"\"com.apple.springboard\"", "7", "2:27: home: expected a text, found a number"},
      {"\"com.apple.springboard\"", "\"com.example.home\"",
       R"(2:27: home: no application has the bundle identifier "com.example.home"; there are )"
       R"("com.apple.springboard", "com.example.test")"},
      {"\"applications\": [\"home\", \"test\"]", "\"values\": {}", "1:1: applications: missing"},
      {"[\"home\", \"test\"]", "\"home\"", "2:60: applications: expected an array, found a text"},
      {"[\"home\", \"test\"]", "[]", "2:60: applications: must hold the application that shows the home screen"},
      {"[\"home\", \"test\"]", "[\"home\", \"\", 7]",
       "2:85: applications[1]: must not be empty\nphone.json:2:89: applications[2]: expected a text, found a number"},
      {"[\"home\", \"test\"]", "[\"home\", \"other\"]",
       R"(2:85: applications[1]: there is no application "other": other/app.json is missing or cannot be read)"},
      {"[\"home\", \"test\"]", "[\"home\", \"test\", \"home\"]",
       R"(2:93: applications[2]: another application has the bundle identifier "com.apple.springboard" too)"},
  };
  for (const auto& [old, text, fault] : ROWS) {
    EXPECT_EQ(faultOf(replacing("phone.json", old, text)), "phone.json:" + fault) << text;
  }
}

TEST(PhoneLoader, AFolderWithoutAPhone) {
  EXPECT_EQ(faultOf(MemoryPhoneFiles({})), "phone.json: the file is missing or cannot be read");
}

TEST(PhoneLoader, APhoneThatIsNoObject) {
  MemoryPhoneFiles files = smallPhone("");
  files["phone.json"] = "\n 7";
  EXPECT_EQ(faultOf(files), "phone.json:2:2: expected an object, found a number");
}

TEST(PhoneLoader, PlacesAreCountedInLinesAndCharacters) {
  MemoryPhoneFiles files = smallPhone("");
  files["phone.json"] =
      "{\"name\": \"Größe 🙂\", \"scale\": 9, \"home\": \"com.apple.springboard\",\r\n"
      "\t\"systemVersion\": \"é\", \"volume\": 101,\n\n"
      "\"size\": {\"width\": 1, \"hight\": 1}, \"applications\": [\"home\",\n \"test\"]}";
  EXPECT_EQ(faultOf(files),
            "phone.json:1:21: scale: must be between 1 and 4, found 9\n"
            "phone.json:2:24: volume: must be between 0 and 100, found 101\n"
            "phone.json:4:1: size.height: missing\n"
            "phone.json:4:22: size.hight: unknown; what may stand here is \"width\", \"height\"");
}

TEST(PhoneLoader, FaultsOfAnApplication) {
  const Row ROWS[] = {
      {"\"com.example.test\"", "\"com.apple.springboard\"",
       R"(phone.json:2:85: applications[1]: another application has the bundle identifier "com.apple.springboard" too)"},
      {"\"com.example.test\"", "\"\"", "test/app.json:1:2: bundleIdentifier: must not be empty"},
      {"\"name\": \"Test\", ", "", "test/app.json:1:1: name: missing"},
      {"500", "\"500\"", "test/app.json:1:58: launchTime: expected a whole number, found a text"},
      {"500", "3600001", "test/app.json:1:58: launchTime: must be between 0 and 3600000, found 3600001"},
      {"\"launchTime\"", "\"launch\"",
       R"(test/app.json:1:58: launch: unknown; what may stand here is "$schema", "bundleIdentifier", "name", )"
       R"("launchTime", "firstScreen", "addresses", "rules")"},
      {"\"start\"", "\"begin\"",
       R"(test/app.json:2:30: firstScreen: there is no page "begin": test/begin.xml is missing or cannot be read)"},
      {"\"rules\": []", "\"rules\": {}", "test/app.json:2:54: rules: expected an array, found an object"},
      {"}", "", "test/app.json:2:65: the text ends too early; expected ',' or '}'"},
  };
  for (const auto& [old, text, fault] : ROWS) {
    EXPECT_EQ(faultOf(replacing("test/app.json", old, text)), fault) << text;
  }
}

TEST(PhoneLoader, FaultsOfAScreenNameTheFile) {
  MemoryPhoneFiles files = smallPhone("");
  files["test/start.xml"] = "<Application>\n<Knob/></Application>";
  EXPECT_EQ(faultOf(files),
            R"(test/start.xml:2:2: "Knob" is no element type; one is written like "XCUIElementTypeButton")");
}

TEST(PhoneLoader, FaultsOfSeveralFilesAreToldTogether) {
  MemoryPhoneFiles files = smallPhone("", R"([{"on": "launch", "do": [{"open": "com.example.other"}]},
    {"on": "lunch", "do": []}])");
  files["test/start.xml"] = "<Application>\n<Knob/></Application>";
  files["phone.json"] = R"({"size": {"width": 100, "height": 200}, "scale": 7, "systemVersion": "17.5", "volume": 50,
    "home": "com.example.home", "applications": ["home", "test"], "name": ""})";
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "away"})";
  EXPECT_EQ(
      faultOf(files),
      "phone.json:1:41: scale: must be between 1 and 4, found 7\n"
      "phone.json:2:5: home: no application has the bundle identifier \"com.example.home\"; there are "
      "\"com.apple.springboard\", \"com.example.test\"\n"
      "phone.json:2:67: name: must not be empty\n"
      "home/app.json:1:63: firstScreen: there is no page \"away\": home/away.xml is missing or cannot be read\n"
      "test/start.xml:2:2: \"Knob\" is no element type; one is written like \"XCUIElementTypeButton\"\n"
      "test/app.json:2:89: rules[0].do[0].open: no application has the bundle identifier \"com.example.other\"; there "
      "are \"com.apple.springboard\", \"com.example.test\"\n"
      "test/app.json:3:6: rules[1].on: \"lunch\" is no event; there are \"launch\", \"screen\", \"tap\", "
      "\"longPress\", "
      "\"text\", \"scroll\", \"address\", \"answer\", \"time\"");
}

TEST(PhoneLoader, OfVeryManyFaultsTheFirstFiftyAreToldFileByFile) {
  std::string effects;
  std::string expected = "phone.json:2:13: volume: must be between 0 and 100, found 500";
  for (int number = 0; number < 60; ++number) {
    effects += std::string(number == 0 ? "" : ",") + "\n{\"show\": 1}";
    if (number < 49) {
      expected += "\ntest/app.json:" + std::to_string(number + 3) + ":2: rules[0].do[" + std::to_string(number) +
                  "].show: expected a text, found a number";
    }
  }
  MemoryPhoneFiles files = smallPhone("", R"([{"on": "launch", "do": [)" + effects + "]}]");
  files["phone.json"].replace(files["phone.json"].find("50"), 2, "500");
  EXPECT_EQ(faultOf(files), expected + "\nand 11 more");
}

// Applications that are named.

TEST(PhoneLoader, AnUnknownApplicationIsOpenedOrEnded) {
  EXPECT_EQ(
      faultOf(smallPhone("", R"([{"on": "launch", "do": [{"open": "com.example.other"},
  {"terminate": "com.example.none"}]}])")),
      "test/app.json:2:89: rules[0].do[0].open: no application has the bundle identifier \"com.example.other\"; "
      "there are \"com.apple.springboard\", \"com.example.test\"\n"
      "test/app.json:3:4: rules[0].do[1].terminate: no application has the bundle identifier \"com.example.none\"; "
      "there are \"com.apple.springboard\", \"com.example.test\"");
}

TEST(PhoneLoader, ARuleMayOpenAnApplicationThatIsReadLater) {
  MemoryPhoneFiles files = smallPhone("");
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home",
      "rules": [{"on": "tap", "element": "TRUEPREDICATE", "do": [{"open": "com.example.test"}]}]})";
  EXPECT_EQ(faultOf(files), "no fault");
}

TEST(PhoneLoader, AnApplicationThatMayBeOneWithAFaultIsNotMissed) {
  const std::string opening = R"([{"on": "launch", "do": [{"open": "com.example.other"}]}])";
  const std::pair<std::string, std::string> ROWS[] = {
      {"7", "phone.json:2:93: applications[2]: expected a text, found a number"},
      {"\"other\"",
       R"(phone.json:2:93: applications[2]: there is no application "other": other/app.json is missing or cannot be read)"},
      {"\"broken\"", "broken/app.json:1:2: the text ends too early; expected a key in double quotes"},
      {"\"nameless\"", "nameless/app.json:1:1: bundleIdentifier: missing"},
  };
  for (const auto& [folder, fault] : ROWS) {
    MemoryPhoneFiles files = smallPhone("", opening);
    files["broken/app.json"] = "{";
    files["nameless/app.json"] = R"({"name": "Nameless", "firstScreen": "start"})";
    files["nameless/start.xml"] = "<Window/>";
    files["phone.json"].replace(files["phone.json"].find("\"test\"]"), 7, "\"test\", " + folder + "]");
    EXPECT_EQ(faultOf(files), fault);
  }
}

// Addresses.

/// The small phone whose two applications have these addresses.
MemoryPhoneFiles phoneWithAddresses(const std::string& ofHome, const std::string& ofTest) {
  MemoryPhoneFiles files = smallPhone("");
  for (const auto& [path, addresses] : {std::pair("home/app.json", ofHome), std::pair("test/app.json", ofTest)}) {
    files[path].insert(1, "\"addresses\": [" + addresses + "],\n");
  }
  return files;
}

TEST(PhoneLoader, AddressesOfApplications) {
  const PhoneDescription phone = loadPhone(phoneWithAddresses("\"home:\"", "\"test:\", \"test:long/\", \"home:x\""));
  EXPECT_THAT(phone.applications.at("com.apple.springboard").addresses, ElementsAre("home:"));
  EXPECT_THAT(phone.applications.at("com.example.test").addresses, ElementsAre("test:", "test:long/", "home:x"));
}

TEST(PhoneLoader, AnAddressThatStandsTwice) {
  const std::string once = " already; an address opens one application, and stands there once";
  EXPECT_EQ(faultOf(phoneWithAddresses("\"a:\", \"b:\"", "\"c:\", \"b:\", \"a:\"")),
            "test/app.json:1:22: addresses[1]: \"b:\" stands in home/app.json" + once +
                "\ntest/app.json:1:28: addresses[2]: \"a:\" stands in home/app.json" + once);
  EXPECT_EQ(faultOf(phoneWithAddresses("\"a:\", \"b:\", \"a:\"", "\"A:\"")),
            "home/app.json:1:28: addresses[2]: \"a:\" stands in home/app.json" + once);
}

// Applications that come with the program.

TEST(PhoneLoader, AnApplicationThatComesWithTheProgram) {
  MemoryPhoneFiles files = smallPhone("", R"([{"on": "launch", "do": [{"open": "com.example.shop"}]}])");
  files["phone.json"].replace(files["phone.json"].find("\"test\"]"), 7, "\"test\", \"built-in:com.example.shop\"]");
  const PhoneDescription phone = loadPhone(files);
  const PhoneDescription builtin = loadPhone(BuiltinPhoneFiles());
  const ApplicationDescription& shop = phone.applications.at("com.example.shop");
  EXPECT_EQ(shop.name, builtin.applications.at("com.example.shop").name);
  EXPECT_EQ(shop.screens.size(), builtin.applications.at("com.example.shop").screens.size());
  EXPECT_EQ(phone.applications.size(), 3U);
}

TEST(PhoneLoader, TheHomeScreenMayComeWithTheProgramToo) {
  MemoryPhoneFiles files = smallPhone("");
  files["phone.json"].replace(files["phone.json"].find("\"home\", \"test\""), 14,
                              "\"built-in:com.apple.springboard\", \"test\"");
  EXPECT_EQ(loadPhone(files).applications.at("com.apple.springboard").firstScreen, "home");
}

TEST(PhoneLoader, AnApplicationThatDoesNotComeWithTheProgram) {
  for (const std::string name : {"com.example.none", "", "home", "../home", "com.example.shop/"}) {
    MemoryPhoneFiles files = smallPhone("");
    files["phone.json"].replace(files["phone.json"].find("\"test\"]"), 7, "\"test\", \"built-in:" + name + "\"]");
    EXPECT_EQ(faultOf(files), "phone.json:2:93: applications[2]: there is no application \"" + name +
                                  "\" that comes with the program; there are \"com.apple.springboard\", "
                                  "\"com.apple.AppStore\", \"com.apple.Preferences\", \"com.apple.mobilesafari\", "
                                  "\"com.example.shop\"");
  }
}

TEST(PhoneLoader, AFolderOfThePhonesOwnIsNoneThatComesWithTheProgram) {
  MemoryPhoneFiles files = smallPhone("");
  files["phone.json"].replace(files["phone.json"].find("\"test\"]"), 7, "\"test\", \"com.example.shop\"]");
  EXPECT_EQ(faultOf(files),
            "phone.json:2:93: applications[2]: there is no application \"com.example.shop\": com.example.shop/app.json "
            "is missing or cannot be read");
}

}  // namespace
}  // namespace quobrak::simulator
