#include "drivers/simulator/Phone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::MemoryPhoneFiles;
using quobrak::testing::smallPhone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* HOME = "com.apple.springboard";
constexpr const char* TEST_APP = "com.example.test";
constexpr Point MIDDLE{50, 100};

/// A page that one button fills.
std::string button(const std::string& attributes) {
  return R"(<Button x="0" y="0" width="100" height="200" )" + attributes + "/>";
}

std::string tapRule(const std::string& element, const std::string& effects, const std::string& condition = "{}") {
  return R"({"on": "tap", "element": ")" + element + R"(", "when": )" + condition + R"(, "do": [)" + effects + "]}";
}

std::string show(const std::string& screen) {
  return R"({"show": ")" + screen + "\"}";
}

std::string alert(const std::string& title, const std::string& answer = "") {
  return R"({"alert": {"title": ")" + title + R"(", "buttons": ["OK"]}, "answer": ")" + answer + "\"}";
}

/// The small phone, with more screens of its application to be shown: each has one button that is called like it.
MemoryPhoneFiles phoneWith(const std::string& page, const std::string& rules) {
  MemoryPhoneFiles files = smallPhone(page, "[" + rules + "]");
  for (const std::string screen : {"one", "two", "three"}) {
    files["test/" + screen + ".xml"] = button("label='" + screen + "'");
  }
  return files;
}

class PhoneTest : public ::testing::Test {
 protected:
  /// Switches the phone on and starts its application.
  void start(const MemoryPhoneFiles& files) {
    switchOn(files);
    phone_->launch(TEST_APP);
    started_ = clock_.now();
  }

  void switchOn(const MemoryPhoneFiles& files) {
    phone_ = std::make_unique<Phone>(loadPhone(files), clock_);
    started_ = clock_.now();
  }

  void tap(Point point = MIDDLE) { phone_->touch(point, Seconds::zero()); }

  const Element& screenOf(const std::string& bundleIdentifier) { return *phone_->running(bundleIdentifier)->screen; }

  /// The labels of all elements of an application that have one.
  std::vector<std::string> labels(const std::string& bundleIdentifier = TEST_APP) {
    std::vector<std::string> found;
    forEachDescendant(screenOf(bundleIdentifier), [&found](const Element& element) {
      if (!element.label.empty()) {
        found.push_back(element.label);
      }
    });
    return found;
  }

  const Element& elementLabelled(std::string_view label) {
    const Element* found = nullptr;
    forEachDescendant(screenOf(TEST_APP), [&](const Element& element) {
      if (element.label == label) {
        found = &element;
      }
    });
    if (found == nullptr) {
      ADD_FAILURE() << "there is no element " << label;
    }
    return found == nullptr ? screenOf(TEST_APP) : *found;
  }

  std::chrono::nanoseconds elapsed() const { return clock_.now() - started_; }

  VirtualClock clock_{1700000000000ms};
  std::unique_ptr<Phone> phone_;
  Clock::TimePoint started_;
};

// Applications.

TEST_F(PhoneTest, ShowsTheHomeScreenAtFirst) {
  switchOn(smallPhone(""));
  EXPECT_TRUE(phone_->isInFront(HOME));
  EXPECT_NE(phone_->running(HOME), nullptr);
  EXPECT_EQ(phone_->running(TEST_APP), nullptr);
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_THAT(phone_->layers(), ElementsAre(&screenOf(HOME)));
  EXPECT_EQ(elapsed(), 0s);
}

TEST_F(PhoneTest, KnowsWhatIsInstalled) {
  switchOn(smallPhone(""));
  EXPECT_TRUE(phone_->isInstalled(HOME));
  EXPECT_TRUE(phone_->isInstalled(TEST_APP));
  EXPECT_FALSE(phone_->isInstalled("com.example.other"));
}

TEST_F(PhoneTest, LaunchingTakesTheLaunchTimeAndShowsTheFirstScreen) {
  switchOn(smallPhone(button("label='OK'")));
  phone_->launch(TEST_APP);
  EXPECT_EQ(elapsed(), 500ms);
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  EXPECT_FALSE(phone_->isInFront(HOME));
  EXPECT_THAT(labels(), ElementsAre("OK"));
  EXPECT_THAT(phone_->layers(), ElementsAre(&screenOf(TEST_APP)));
}

TEST_F(PhoneTest, LaunchingWhatRunsStartsItAnew) {
  start(phoneWith(button(""), tapRule("TRUEPREDICATE", show("one"))));
  tap();
  EXPECT_THAT(labels(), ElementsAre("one"));
  const int process = phone_->running(TEST_APP)->processIdentifier;
  phone_->launch(TEST_APP);
  EXPECT_EQ(elapsed(), 500ms);
  EXPECT_THAT(labels(), IsEmpty());
  EXPECT_NE(phone_->running(TEST_APP)->processIdentifier, process);
}

TEST_F(PhoneTest, LaunchingTheHomeApplicationBringsItToTheFrontAsItIs) {
  start(smallPhone(""));
  const int process = phone_->running(HOME)->processIdentifier;
  phone_->launch(HOME);
  EXPECT_TRUE(phone_->isInFront(HOME));
  EXPECT_EQ(phone_->running(HOME)->processIdentifier, process);
  EXPECT_NE(phone_->running(TEST_APP), nullptr);
  EXPECT_EQ(elapsed(), 0s);
}

TEST_F(PhoneTest, TerminatingWhatIsInFrontShowsTheHomeScreen) {
  start(smallPhone(""));
  phone_->terminate(TEST_APP);
  EXPECT_EQ(phone_->running(TEST_APP), nullptr);
  EXPECT_TRUE(phone_->isInFront(HOME));
}

TEST_F(PhoneTest, WhatDoesNotRunAndTheHomeApplicationCannotBeTerminated) {
  switchOn(smallPhone(""));
  const auto revision = phone_->revision();
  phone_->terminate(TEST_APP);
  phone_->terminate("com.example.other");
  phone_->terminate(HOME);
  EXPECT_NE(phone_->running(HOME), nullptr);
  EXPECT_EQ(phone_->revision(), revision);
}

TEST_F(PhoneTest, AnIconOpensTheApplicationOfItsName) {
  MemoryPhoneFiles files = smallPhone(button("label='OK'"));
  files["home/home.xml"] = R"(<Application><Icon label="Test" x="0" y="0" width="50" height="50"/>
                              <Icon label="Camera" x="50" y="0" width="50" height="50"/></Application>)";
  files["home/home.xml"].replace(0, std::string_view("<Application").size(),
                                 R"(<Application x="0" y="0" width="100" height="200")");
  switchOn(files);
  tap({75, 25});
  EXPECT_TRUE(phone_->isInFront(HOME));
  tap({25, 25});
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  EXPECT_EQ(elapsed(), 500ms);
  const int process = phone_->running(TEST_APP)->processIdentifier;
  phone_->pressHome();
  tap({25, 25});
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  EXPECT_EQ(phone_->running(TEST_APP)->processIdentifier, process);
  EXPECT_EQ(elapsed(), 500ms);
}

TEST_F(PhoneTest, AnIconOfAnApplicationOpensNothing) {
  start(smallPhone(R"(<Icon label="Home" x="0" y="0" width="100" height="200"/>)"));
  tap();
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
}

// Touches and buttons.

TEST_F(PhoneTest, TouchesAndButtonsTakeTheirTime) {
  MemoryPhoneFiles files = smallPhone("");
  std::string& json = files["phone.json"];
  json.insert(json.find("\"volume\""), R"("delays": {"touch": 80, "button": 200}, )");
  switchOn(files);
  tap();
  EXPECT_EQ(elapsed(), 80ms);
  phone_->touch(MIDDLE, 1s);
  EXPECT_EQ(elapsed(), 1160ms);
  phone_->pressHome();
  EXPECT_EQ(elapsed(), 1360ms);
  phone_->changeVolume(1);
  EXPECT_EQ(elapsed(), 1560ms);
}

TEST_F(PhoneTest, APointOutsideTheScreenLandsOnNothing) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
  start(phoneWith(R"(<Button x="-500" y="-500" width="1000" height="1000"/>)", tapRule("TRUEPREDICATE", show("one"))));
  for (const Point& point : {Point{-1, 50}, Point{100, 50}, Point{50, 200}, Point{INFINITE, 50}, Point{50, -INFINITE},
                             Point{NOT_A_NUMBER, 50}}) {
    tap(point);
    EXPECT_THAT(labels(), IsEmpty()) << point.x << ", " << point.y;
  }
  tap({99.9, 0});
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, HomeLeavesTheApplicationRunning) {
  start(phoneWith(button(""), tapRule("TRUEPREDICATE", show("one"))));
  tap();
  phone_->pressHome();
  EXPECT_TRUE(phone_->isInFront(HOME));
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, TheVolumeMovesByASixteenthAndStaysWithinItsRange) {
  switchOn(smallPhone(""));
  EXPECT_EQ(phone_->volume(), 50);
  phone_->changeVolume(1);
  EXPECT_EQ(phone_->volume(), 56.25);
  for (int press = 0; press < 20; ++press) {
    phone_->changeVolume(1);
  }
  EXPECT_EQ(phone_->volume(), 100);
  for (int press = 0; press < 16; ++press) {
    phone_->changeVolume(-1);
  }
  EXPECT_EQ(phone_->volume(), 0);
  phone_->changeVolume(-1);
  EXPECT_EQ(phone_->volume(), 0);
}

TEST_F(PhoneTest, ASwitchTurnsAndItsRulesApplyToo) {
  start(phoneWith(R"(<Switch label="s" value="0" x="0" y="0" width="50" height="50"/>)"
                  R"(<Switch label="t" x="50" y="0" width="50" height="50"/>)",
                  tapRule("label == 't'", alert("turned"))));
  tap({25, 25});
  EXPECT_EQ(elementLabelled("s").value, "1");
  tap({25, 25});
  EXPECT_EQ(elementLabelled("s").value, "0");
  tap({75, 25});
  EXPECT_EQ(elementLabelled("t").value, "1");
  EXPECT_NE(phone_->alert(), nullptr);
}

TEST_F(PhoneTest, DisabledElementsDoNothing) {
  start(phoneWith(R"(<Switch label="s" value="0" enabled="false" x="0" y="0" width="50" height="50"/>)"
                  R"(<Button label="b" enabled="false" x="50" y="0" width="50" height="50"/>)"
                  R"(<TextField label="f" enabled="false" x="0" y="50" width="50" height="50"/>)",
                  tapRule("TRUEPREDICATE", show("one"))));
  tap({25, 25});
  tap({75, 25});
  tap({25, 75});
  EXPECT_EQ(elementLabelled("s").value, "0");
  EXPECT_FALSE(elementLabelled("f").hasKeyboardFocus);
}

TEST_F(PhoneTest, WhatLiesInADisabledElementDoesNotReachItsRules) {
  start(phoneWith(R"(<Button label="b" enabled="false" x="0" y="0" width="100" height="200">)"
                  R"(<StaticText label="text" x="0" y="0" width="100" height="200"/></Button>)",
                  tapRule("label == 'b'", show("one"))));
  tap();
  EXPECT_THAT(labels(), ElementsAre("b", "text"));
}

// The keyboard.

constexpr const char* FIELDS = R"(<TextField label="field" x="0" y="0" width="50" height="50"/>
    <SecureTextField label="secure" value="old" x="50" y="0" width="50" height="50"/>
    <SearchField label="search" x="0" y="50" width="50" height="50"/>
    <TextView label="view" x="50" y="50" width="50" height="50"/>)";

TEST_F(PhoneTest, ATouchedFieldTakesTheFocusFromTheOthers) {
  start(smallPhone(FIELDS));
  struct Row {
    Point point;
    std::string_view label;
  };
  const Row ROWS[] = {{{25, 25}, "field"}, {{75, 25}, "secure"}, {{25, 75}, "search"}, {{75, 75}, "view"}};
  for (const auto& [point, focused] : ROWS) {
    tap(point);
    for (const std::string_view label : {"field", "secure", "search", "view"}) {
      EXPECT_EQ(elementLabelled(label).hasKeyboardFocus, label == focused) << label;
    }
  }
}

TEST_F(PhoneTest, TextIsTypedAtTheEnd) {
  start(smallPhone(FIELDS));
  tap({75, 25});
  EXPECT_TRUE(phone_->type(elementLabelled("secure"), "er"));
  EXPECT_EQ(elementLabelled("secure").value, "older");
  tap({25, 25});
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "Äh"));
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), ""));
  EXPECT_EQ(elementLabelled("field").value, "Äh");
}

TEST_F(PhoneTest, NothingIsTypedWithoutTheFocus) {
  start(smallPhone(FIELDS));
  EXPECT_FALSE(phone_->type(screenOf(TEST_APP), "a"));
  tap({25, 25});
  const auto revision = phone_->revision();
  EXPECT_FALSE(phone_->type(elementLabelled("secure"), "a"));
  EXPECT_EQ(elementLabelled("secure").value, "old");
  phone_->pressHome();
  EXPECT_FALSE(phone_->type(elementLabelled("field"), "a"));
  EXPECT_EQ(elementLabelled("field").value, std::nullopt);
  EXPECT_EQ(phone_->revision(), revision + 1) << "of the press alone";
}

// Rules.

TEST_F(PhoneTest, TheFirstMatchingRuleOfAnElementWins) {
  start(phoneWith(button("label='b' name='id'"), tapRule("label == 'other'", show("one")) + "," +
                                                     tapRule("label == 'b'", show("two")) + "," +
                                                     tapRule("identifier == 'id'", show("three"))));
  tap();
  EXPECT_THAT(labels(), ElementsAre("two"));
}

TEST_F(PhoneTest, TheInnermostElementWithARuleWins) {
  start(phoneWith(R"(<Cell label="cell" x="0" y="0" width="100" height="200">)"
                  R"(<Button label="button" x="0" y="0" width="100" height="50"/>)"
                  R"(<StaticText label="text" x="0" y="50" width="100" height="50"/></Cell>)",
                  tapRule("label == 'cell'", show("one")) + "," + tapRule("label == 'button'", show("two"))));
  tap({50, 25});
  EXPECT_THAT(labels(), ElementsAre("two"));
}

TEST_F(PhoneTest, ATapOnWhatHasNoRuleIsATapOnItsContainer) {
  start(phoneWith(R"(<Cell label="cell" x="0" y="0" width="100" height="200"><Other>)"
                  R"(<StaticText label="text" x="0" y="50" width="100" height="50"/></Other></Cell>)",
                  tapRule("label == 'cell'", show("one"))));
  tap({50, 75});
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, ATapThatNoRuleIsAboutDoesNothing) {
  start(phoneWith(button("label='b'"), tapRule("label == 'other'", show("one"))));
  const auto revision = phone_->revision();
  tap();
  EXPECT_THAT(labels(), ElementsAre("b"));
  EXPECT_EQ(phone_->revision(), revision);
}

TEST_F(PhoneTest, ARuleOnWhetherAnElementIsHittable) {
  start(phoneWith(button("label='b'"),
                  tapRule("hittable == FALSE", show("one")) + "," + tapRule("hittable == TRUE", show("two"))));
  tap();
  EXPECT_THAT(labels(), ElementsAre("two"));
}

TEST_F(PhoneTest, ConditionsAreOnNamedValues) {
  const std::string set = R"({"set": {"a": "1"}})";
  start(phoneWith(button("label='b'"), tapRule("TRUEPREDICATE", show("one"), R"({"a": "1", "b": ""})") + "," +
                                           tapRule("TRUEPREDICATE", show("two"), R"({"a": "1", "b": "1"})") + "," +
                                           tapRule("TRUEPREDICATE", set, R"({"a": ""})")));
  tap();
  EXPECT_THAT(labels(), ElementsAre("b"));
  tap();
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, NamedValuesOutliveTheApplication) {
  start(phoneWith(button("label='b'"), tapRule("TRUEPREDICATE", show("one"), R"({"a": "1"})") + "," +
                                           tapRule("TRUEPREDICATE", R"({"set": {"a": "1"}})")));
  tap();
  phone_->launch(TEST_APP);
  tap();
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, EveryEffectOfARuleIsCarriedOutInItsOrder) {
  start(phoneWith(button(""), tapRule("TRUEPREDICATE", show("one") + "," + show("two") + "," + alert("done") +
                                                           R"(, {"open": "com.apple.springboard"})")));
  const auto revision = phone_->revision();
  tap();
  EXPECT_THAT(labels(), ElementsAre("two"));
  EXPECT_TRUE(phone_->isInFront(HOME));
  ASSERT_NE(phone_->alert(), nullptr);
  EXPECT_NE(phone_->revision(), revision);
}

TEST_F(PhoneTest, AScreenIsShownAsItWasAtFirst) {
  const std::string field = R"(<TextField label="field" x="0" y="0" width="100" height="50"/>)";
  start(phoneWith(field + R"(<Button label="again" x="0" y="50" width="100" height="50"/>)",
                  tapRule("label == 'again'", show("start"))));
  tap({50, 25});
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "typed"));
  tap({50, 75});
  EXPECT_EQ(elementLabelled("field").value, std::nullopt);
  EXPECT_FALSE(elementLabelled("field").hasKeyboardFocus);
}

TEST_F(PhoneTest, AllRulesOfALaunchThatHoldApply) {
  start(phoneWith("", R"({"on": "launch", "when": {"a": "1"}, "do": [{"alert": {"title": "no", "buttons": ["OK"]}}]},
      {"on": "launch", "do": [{"set": {"a": "1"}}]},
      {"on": "launch", "when": {"a": "1"}, "do": [{"show": "one"}]})"));
  EXPECT_THAT(labels(), ElementsAre("one"));
  EXPECT_EQ(phone_->alert(), nullptr);
}

TEST_F(PhoneTest, AnOpenedApplicationStartsWhereItDoesNotRun) {
  MemoryPhoneFiles files = smallPhone("", R"([{"on": "launch", "do": [{"show": "one"}]}])");
  files["test/one.xml"] = button("label='one'");
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home",
      "rules": [{"on": "tap", "element": "TRUEPREDICATE", "do": [{"open": "com.example.test"}]}]})";
  files["home/home.xml"] = button("");
  switchOn(files);
  tap();
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  EXPECT_THAT(labels(), ElementsAre("one"));
  EXPECT_EQ(elapsed(), 500ms);
}

// Alerts. On the small phone one with a single button has that button at the points from 127 to 171 down.

constexpr Point ALERT_BUTTON{50, 150};

TEST_F(PhoneTest, AnAlertOfThePhoneTakesAllTouches) {
  start(phoneWith(button("label='b'"), tapRule("TRUEPREDICATE", alert("first"))));
  tap();
  ASSERT_NE(phone_->alert(), nullptr);
  EXPECT_EQ(phone_->alert()->alert().label, "first");
  EXPECT_EQ(phone_->alert()->owner, TEST_APP);
  const auto number = phone_->alert()->number;
  tap({1, 1});
  tap({50, 40});
  EXPECT_EQ(phone_->alert()->number, number);
  tap(ALERT_BUTTON);
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_THAT(labels(HOME), IsEmpty());
}

TEST_F(PhoneTest, AnAlertIsOnTheScreenInFrontOfTheApplication) {
  start(phoneWith(button(""), tapRule("TRUEPREDICATE", alert("first") + "," + alert("second"))));
  tap();
  const std::vector<const Element*> layers = phone_->layers();
  ASSERT_THAT(layers, SizeIs(3));
  EXPECT_EQ(layers[0], &screenOf(TEST_APP));
  EXPECT_EQ(layers[1]->children().front()->label, "first");
  EXPECT_EQ(layers[2]->children().front()->label, "second");
  phone_->pressHome();
  EXPECT_THAT(phone_->layers(), ElementsAre(&screenOf(HOME))) << "it holds the alerts itself";
}

TEST_F(PhoneTest, TheLastAlertIsAnsweredFirst) {
  start(phoneWith(button(""), tapRule("TRUEPREDICATE", alert("first") + "," + alert("second"))));
  tap();
  EXPECT_EQ(phone_->alert()->alert().label, "second");
  const auto revision = phone_->revision();
  tap(ALERT_BUTTON);
  EXPECT_NE(phone_->revision(), revision);
  ASSERT_NE(phone_->alert(), nullptr);
  EXPECT_EQ(phone_->alert()->alert().label, "first");
  tap(ALERT_BUTTON);
  EXPECT_EQ(phone_->alert(), nullptr);
}

TEST_F(PhoneTest, TheAnswerToAnAlertIsKept) {
  start(phoneWith(button("label='b'"), tapRule("TRUEPREDICATE", show("one"), R"({"asked": "OK"})") + "," +
                                           tapRule("TRUEPREDICATE", alert("question", "asked"))));
  tap();
  tap(ALERT_BUTTON);
  tap();
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, APermissionIsAskedInThePhonesOwnWords) {
  start(phoneWith(button("label='b'"),
                  tapRule("TRUEPREDICATE", show("one"), R"({"camera": "Don’t Allow"})") + "," +
                      tapRule("TRUEPREDICATE", R"({"askPermission": "camera", "answer": "camera"})")));
  tap();
  EXPECT_THAT(labels(HOME), ElementsAre("“Test” Would Like to Access the Camera",
                                        "“Test” Would Like to Access the Camera", "Don’t Allow", "OK"));
  tap({25, 150});
  tap();
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, TheAlertsOfATerminatedApplicationVanish) {
  start(phoneWith(button(""), tapRule("TRUEPREDICATE", alert("first") + "," + alert("second"))));
  tap();
  phone_->terminate(TEST_APP);
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_THAT(labels(HOME), IsEmpty());
}

TEST_F(PhoneTest, TheAlertsOfAnotherApplicationStay) {
  MemoryPhoneFiles files = phoneWith(button(""), tapRule("TRUEPREDICATE", alert("of test")));
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home",
      "rules": [)" + tapRule("TRUEPREDICATE", alert("of home") + R"(, {"open": "com.example.test"})") +
                           "]}";
  files["home/home.xml"] = button("");
  files["test/app.json"].replace(files["test/app.json"].find("\"tap\""), 5, "\"launch\"");
  auto& application = files["test/app.json"];
  application.erase(application.find("\"element\""), std::string_view(R"("element": "TRUEPREDICATE", )").size());
  switchOn(files);
  tap();
  EXPECT_EQ(phone_->alert()->alert().label, "of test");
  phone_->terminate(TEST_APP);
  ASSERT_NE(phone_->alert(), nullptr);
  EXPECT_EQ(phone_->alert()->alert().label, "of home");
}

TEST_F(PhoneTest, AlertsStayUpWhenTheHomeScreenChanges) {
  MemoryPhoneFiles files = smallPhone("");
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home",
      "rules": [)" + tapRule("TRUEPREDICATE", alert("first") + "," + alert("second") + "," + show("other")) +
                           "]}";
  files["home/home.xml"] = button("label='page'");
  files["home/other.xml"] =
      R"(<Application x="0" y="0" width="100" height="200"><Button label="other"/></Application>)";
  switchOn(files);
  tap();
  EXPECT_THAT(labels(HOME), ElementsAre("other", "first", "first", "OK", "second", "second", "OK"));
  EXPECT_EQ(phone_->alert()->alert().label, "second");
  tap(ALERT_BUTTON);
  tap(ALERT_BUTTON);
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_THAT(labels(HOME), ElementsAre("other"));
}

}  // namespace
}  // namespace quobrak::simulator
