#include "drivers/simulator/ApplicationReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::MemoryPhoneFiles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Pair;

/// An application that was read from its folder, "shop".
class ReadApplication {
 public:
  explicit ReadApplication(const std::string& content, const std::map<std::string, std::string>& pages = {}) {
    std::map<std::string, std::string> paths{{"shop/app.json", content}};
    for (const auto& [name, xml] : pages) {
      paths.emplace("shop/" + name + ".xml", xml);
    }
    const MemoryPhoneFiles files(std::move(paths));
    PhoneDescription phone;
    phone.size = {100, 200};
    phone.values.set("pace", "250");
    const PhoneReferences references{
        .requireApplication =
            [this](DescriptionFile& file, const JSONReader& at, const std::string& bundleIdentifier) {
              asked_.push_back(file.name() + " " + at.keyPath() + " " + bundleIdentifier);
            },
        .claimAddress =
            [](DescriptionFile& file, const JSONReader& at, const std::string& address) {
              if (address == "taken:") {
                at.fail(address + " is taken, " + file.name());
              }
            }};
    application_ = ApplicationReader(files, "shop", phone, faults_, references).read();
  }

  const ApplicationDescription& application() const { return application_; }
  std::string faults() const { return faults_.text(); }
  /// Where other applications were asked for.
  const std::vector<std::string>& asked() const { return asked_; }

 private:
  DescriptionFaults faults_;
  ApplicationDescription application_;
  std::vector<std::string> asked_;
};

const std::map<std::string, std::string> PAGES{{"start", "<Window><Button label='OK'/></Window>"},
                                               {"two", "<Button label='two'/>"},
                                               {"toast", "<Other label='toast'/>"}};

TEST(ApplicationReader, ReadsAllThatThereIs) {
  const ReadApplication read(R"({"$schema": "app.schema.json", "bundleIdentifier": "com.example.shop", "name": "Shop",
      "launchTime": 400, "firstScreen": "start", "addresses": ["https://shop.example/", "shop:"],
      "rules": [{"on": "launch", "do": [{"show": "two"}, {"insert": "toast"}]},
                {"on": "time", "after": "pace", "do": [{"open": "com.example.other"}]}, {"on": "address", "do": []}]})",
                             PAGES);
  EXPECT_EQ(read.faults(), "");
  const ApplicationDescription& application = read.application();
  EXPECT_EQ(application.bundleIdentifier, "com.example.shop");
  EXPECT_EQ(application.name, "Shop");
  EXPECT_EQ(application.launchTime, 400ms);
  EXPECT_EQ(application.firstScreen, "start");
  EXPECT_THAT(application.addresses, ElementsAre("https://shop.example/", "shop:"));
  EXPECT_THAT(application.screens, ElementsAre(Key("start"), Key("two")));
  EXPECT_THAT(application.fragments, ElementsAre(Key("toast")));
  EXPECT_EQ(application.screens.at("two")->children().front()->label, "two");
  EXPECT_EQ(application.screens.at("two")->frame, (Rect{{0, 0}, {100, 200}})) << "the screen's";
  EXPECT_EQ(application.fragments.at("toast")->children().front()->label, "toast");
  ASSERT_EQ(application.rules.size(), 3U);
  EXPECT_EQ(application.rules[0].event, RuleEvent::launch);
  EXPECT_EQ(std::get<std::string>(application.rules[1].after), "pace");
  EXPECT_EQ(application.rules[2].event, RuleEvent::address);
  EXPECT_THAT(read.asked(), ElementsAre("shop/app.json rules[1].do[0].open com.example.other"));
}

TEST(ApplicationReader, MuchMayBeLeftOut) {
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "start"})", PAGES);
  EXPECT_EQ(read.faults(), "");
  EXPECT_EQ(read.application().launchTime, 0ms);
  EXPECT_THAT(read.application().addresses, IsEmpty());
  EXPECT_THAT(read.application().rules, IsEmpty());
  EXPECT_THAT(read.application().fragments, IsEmpty());
}

TEST(ApplicationReader, APageMayBeAScreenAndInserted) {
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "start",
                                 "rules": [{"on": "launch", "do": [{"insert": "start"}, {"show": "start"}]}]})",
                             PAGES);
  EXPECT_EQ(read.faults(), "");
  EXPECT_THAT(read.application().screens, ElementsAre(Key("start")));
  EXPECT_THAT(read.application().fragments, ElementsAre(Key("start")));
}

TEST(ApplicationReader, PermissionsAreAskedForInItsName) {
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "Läden", "firstScreen": "start",
                                 "rules": [{"on": "launch", "do": [{"askPermission": "camera"}]}]})",
                             PAGES);
  const auto& alert = std::get<RaiseAlert>(read.application().rules.at(0).effects.at(0).what);
  EXPECT_EQ(alert.title.expand(NamedValues()), "“Läden” Would Like to Access the Camera");
}

TEST(ApplicationReader, FaultsOfEachMember) {
  struct Row {
    std::string members;
    std::string faults;
  };
  const std::string known =
      R"("$schema", "bundleIdentifier", "name", "launchTime", "firstScreen", "addresses", "rules")";
  // Each behind a line with all else that is required.
  const Row ROWS[] = {
      {R"("bundleIdentifier": "")", "3:2: bundleIdentifier: must not be empty"},
      {R"("bundleIdentifier": 7)", "3:2: bundleIdentifier: expected a text, found a number"},
      {R"("name": "")", "3:2: name: must not be empty"},
      {R"("name": null)", "3:2: name: expected a text, found null"},
      {R"("launchTime": "500")", "3:2: launchTime: expected a whole number, found a text"},
      {R"("launchTime": -1)", "3:2: launchTime: must be between 0 and 3600000, found -1"},
      {R"("launchTime": 3600001)", "3:2: launchTime: must be between 0 and 3600000, found 3600001"},
      {R"("firstScreen": "")", "3:2: firstScreen: must not be empty"},
      {R"("firstScreen": ["start"])", "3:2: firstScreen: expected a text, found an array"},
      {R"("firstScreen": "begin")",
       R"(3:2: firstScreen: there is no page "begin": shop/begin.xml is missing or cannot be read)"},
      {R"("addresses": "shop:")", "3:2: addresses: expected an array, found a text"},
      {R"("addresses": ["", "a:", 7, "taken:"])",
       "3:16: addresses[0]: must not be empty\nshop/app.json:3:26: addresses[2]: expected a text, found a number\n"
       "shop/app.json:3:29: addresses[3]: taken: is taken, shop/app.json"},
      {R"("rules": {})", "3:2: rules: expected an array, found an object"},
      {R"("rules": [7, {"on": "launch", "do": []}, null])",
       "3:12: rules[0]: expected an object, found a number\n"
       "shop/app.json:3:43: rules[2]: expected an object, found null"},
      {R"("launch": 1)", "3:2: launch: unknown; what may stand here is " + known},
      {R"("$schema": 1, "Name": 1, "screens": [])",
       "3:2: $schema: expected a text, found a number\nshop/app.json:3:16: Name: unknown; what may stand here is " +
           known + "\nshop/app.json:3:27: screens: unknown; what may stand here is " + known},
  };
  for (const auto& [members, faults] : ROWS) {
    std::string others;
    for (const std::string key : {"bundleIdentifier", "name", "firstScreen"}) {
      if (!members.starts_with('"' + key + '"')) {
        others += '"' + key + (key == "firstScreen" ? "\": \"start\", " : "\": \"größe 🙂\", ");
      }
    }
    const std::string content = "{\n" + others + "\n " + members + "}";
    EXPECT_EQ(ReadApplication(content, PAGES).faults(), "shop/app.json:" + faults) << content;
  }
}

TEST(ApplicationReader, WhatIsMissingIsMissingInTheWholeFile) {
  EXPECT_EQ(ReadApplication("\n {}").faults(),
            "shop/app.json:2:2: bundleIdentifier: missing\nshop/app.json:2:2: name: missing\n"
            "shop/app.json:2:2: firstScreen: missing");
  EXPECT_EQ(ReadApplication("\n []").faults(), "shop/app.json:2:2: expected an object, found an array");
  EXPECT_EQ(ReadApplication("").faults(),
            "shop/app.json:1:1: the text ends too early; expected a value: a text in double quotes, a number, true, "
            "false, null, an array or an object");
}

TEST(ApplicationReader, AFileThatIsMissingIsOneFault) {
  DescriptionFaults faults;
  const PhoneDescription phone;
  const PhoneReferences references;
  const MemoryPhoneFiles files(std::map<std::string, std::string>{});
  const ApplicationDescription application = ApplicationReader(files, "shop", phone, faults, references).read();
  EXPECT_EQ(faults.text(), "shop/app.json: the file is missing or cannot be read");
  EXPECT_EQ(application.bundleIdentifier, "");
}

TEST(ApplicationReader, AllFaultsOfAFileAreToldInTheOrderOfTheirPlaces) {
  const ReadApplication read(R"({"rules": [
    {"on": "launch", "do": [{"show": "three"}, {"insert": "start"}]},
    {"on": "tapp", "do": []},
    {"on": "tap", "element": "labl == 'ü'", "do": [{"set": {"ä": ""}}]}],
  "name": "", "name": "Shop", "firstScreen": "two", "launchTime": 0.5, "colour": 1})",
                             PAGES);
  EXPECT_EQ(
      read.faults(),
      "shop/app.json:1:1: bundleIdentifier: missing\n"
      "shop/app.json:2:30: rules[0].do[0].show: there is no page \"three\": shop/three.xml is missing or cannot be "
      "read\n"
      "shop/app.json:3:6: rules[1].on: \"tapp\" is no event; there are \"launch\", \"screen\", \"tap\", "
      "\"longPress\", \"text\", \"scroll\", \"address\", \"answer\", \"time\"\n"
      "shop/app.json:4:19: rules[2].element: elements have no attribute \"labl\"; they have label, identifier, "
      "placeholderValue, value, enabled, selected, exists, hittable\n"
      "shop/app.json:4:61: rules[2].do[0].set.ä: \"ä\" is no name of a value; one is like \"shop.basket_1\": words "
      "of ASCII letters, digits and _, with dots between them, none of which begins with a digit or means "
      "something in predicates, as \"in\" does\n"
      "shop/app.json:5:15: name: stands twice in one object\n"
      "shop/app.json:5:53: launchTime: expected a whole number, found a number\n"
      "shop/app.json:5:72: colour: unknown; what may stand here is \"$schema\", \"bundleIdentifier\", \"name\", "
      "\"launchTime\", \"firstScreen\", \"addresses\", \"rules\"");
}

TEST(ApplicationReader, ARuleForAddressesNeedsSome) {
  const auto faultsOf = [](const std::string& addresses) {
    return ReadApplication(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "start", )" + addresses +
                               "\n \"rules\": [{\"on\": \"address\", \"do\": []}]}",
                           PAGES)
        .faults();
  };
  const std::string never = R"(shop/app.json:2:12: rules[0]: never happens: the application has no "addresses")";
  EXPECT_EQ(faultsOf(""), never);
  EXPECT_EQ(faultsOf("\"addresses\": [],"), never);
  EXPECT_EQ(faultsOf("\"addresses\": [\"a:\"],"), "");
  EXPECT_EQ(faultsOf("\"addresses\": [\"\"],"), "shop/app.json:1:78: addresses[0]: must not be empty");
  EXPECT_EQ(faultsOf("\"addresses\": \"a:\","), "shop/app.json:1:64: addresses: expected an array, found a text");
}

// Pages.

TEST(ApplicationReader, APageThatIsMissingIsToldWhereverItIsNamed) {
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "no",
 "rules": [{"on": "launch", "screen": ["start", "no"],
  "do": [{"show": "no"}, {"insert": "no"}]}]})",
                             PAGES);
  const std::string missing = "there is no page \"no\": shop/no.xml is missing or cannot be read";
  EXPECT_EQ(read.faults(), "shop/app.json:1:40: firstScreen: " + missing +
                               "\nshop/app.json:2:49: rules[0].screen[1]: " + missing +
                               "\nshop/app.json:3:11: rules[0].do[0].show: " + missing +
                               "\nshop/app.json:3:27: rules[0].do[1].insert: " + missing);
}

/// Notes each reading.
class CountedFiles final : public PhoneFiles {
 public:
  explicit CountedFiles(MemoryPhoneFiles files) : files_(std::move(files)) {}

  std::optional<std::string> read(const std::string& path) const override {
    ++counts_[path];
    return files_.read(path);
  }
  std::string nameOf(const std::string& path) const override { return files_.nameOf(path); }

  const std::map<std::string, int>& counts() const { return counts_; }

 private:
  MemoryPhoneFiles files_;
  mutable std::map<std::string, int> counts_;
};

TEST(ApplicationReader, APageThatManyRulesNameIsReadOnce) {
  const CountedFiles files(MemoryPhoneFiles(std::map<std::string, std::string>{
      {"shop/app.json", R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "start",
                            "rules": [{"on": "screen", "screen": "start", "do": [{"show": "start"}, {"show": "start"}]},
                                      {"on": "launch", "do": [{"insert": "toast"}, {"insert": "toast"}]}]})"},
      {"shop/start.xml", "<Window/>"},
      {"shop/toast.xml", "<Window/>"}}));
  DescriptionFaults faults;
  ApplicationReader(files, "shop", PhoneDescription(), faults, PhoneReferences()).read();
  EXPECT_EQ(faults.text(), "");
  EXPECT_THAT(files.counts(),
              ElementsAre(Pair("shop/app.json", 1), Pair("shop/start.xml", 1), Pair("shop/toast.xml", 1)));
}

TEST(ApplicationReader, FaultsOfAPageAreToldOnceAndNameItsFile) {
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "knob",
                                 "rules": [{"on": "launch", "do": [{"show": "knob"}, {"insert": "knob"}]}]})",
                             {{"knob", "<Application>\n <Button label='ü'/><Knob/></Application>"}});
  EXPECT_EQ(read.faults(),
            R"(shop/knob.xml:2:22: "Knob" is no element type; one is written like "XCUIElementTypeButton")");
  EXPECT_THAT(read.application().screens, IsEmpty());
}

TEST(ApplicationReader, OfAPageWithManyFaultsTheFirstAreTold) {
  std::string page = "<Application>";
  for (int number = 0; number < 22; ++number) {
    page += "<Knob/>";
  }
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "knobs"})",
                             {{"knobs", page + "</Application>"}});
  EXPECT_THAT(read.faults(), ::testing::EndsWith("\nshop/knobs.xml:1:148: \"Knob\" is no element type; one is written "
                                                 "like \"XCUIElementTypeButton\""
                                                 "\nshop/knobs.xml:1:148: and 2 more behind it"));
}

TEST(ApplicationReader, FaultsOfSeveralPagesAreTold) {
  const ReadApplication read(R"({"bundleIdentifier": "a", "name": "A", "firstScreen": "knob",
                                 "rules": [{"on": "launch", "do": [{"insert": "dial"}, {"show": 1}]}]})",
                             {{"knob", "<Knob/>"}, {"dial", "\n<Dial/>"}});
  EXPECT_EQ(read.faults(),
            "shop/knob.xml:1:2: \"Knob\" is no element type; one is written like \"XCUIElementTypeButton\"\n"
            "shop/dial.xml:2:2: \"Dial\" is no element type; one is written like \"XCUIElementTypeButton\"\n"
            "shop/app.json:2:89: rules[0].do[1].show: expected a text, found a number");
}

}  // namespace
}  // namespace quobrak::simulator
