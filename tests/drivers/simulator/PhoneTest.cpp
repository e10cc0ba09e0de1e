#include "drivers/simulator/Phone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdint>
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
/// On the small phone an alert with a single button has that button at the points from 127 to 171 down.
constexpr Point ALERT_BUTTON{50, 150};
// Keys on the small phone, where letters are 10 points wide and their rows 15 points high, from 120 points down.
constexpr Point Q_KEY{5, 127};
constexpr Point A_KEY{10, 142};
constexpr Point SHIFT{7, 157};
constexpr Point DELETE{92, 157};
constexpr Point MORE{12, 173};
constexpr Point SPACE{50, 173};
constexpr Point RETURN{88, 173};

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
  const std::string into = answer.empty() ? "" : R"(, "answer": ")" + answer + "\"";
  return R"({"systemAlert": {"title": ")" + title + R"(", "buttons": ["OK"]})" + into + "}";
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

  /// The last keyboard of the application; null for none.
  const Element* keyboard() {
    const Element* found = nullptr;
    forEachDescendant(screenOf(TEST_APP), [&found](const Element& element) {
      if (element.type == ElementType::keyboard) {
        found = &element;
      }
    });
    return found;
  }

  int countOf(ElementType type) {
    int count = 0;
    forEachDescendant(screenOf(TEST_APP), [&](const Element& element) { count += element.type == type ? 1 : 0; });
    return count;
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

TEST_F(PhoneTest, ActivatingBringsToTheFrontWhatRunsAndStartsWhatDoesNot) {
  switchOn(smallPhone(""));
  phone_->activate(TEST_APP);
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  const int process = phone_->running(TEST_APP)->processIdentifier;
  phone_->pressHome();
  phone_->activate(TEST_APP);
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  EXPECT_EQ(phone_->running(TEST_APP)->processIdentifier, process);
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
    ASSERT_NE(phone_->focusedElement(), nullptr);
    EXPECT_EQ(phone_->focusedElement()->label, focused);
    int count = 0;
    forEachDescendant(screenOf(TEST_APP),
                      [&count](const Element& element) { count += element.hasKeyboardFocus ? 1 : 0; });
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(phone_->focusedElement()->hasKeyboardFocus);
  }
}

TEST_F(PhoneTest, TextIsTypedAtTheEnd) {
  start(smallPhone(FIELDS));
  tap({75, 25});
  EXPECT_TRUE(phone_->type(elementLabelled("secure"), "er"));
  EXPECT_EQ(elementLabelled("secure").value, "•••••");
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

TEST_F(PhoneTest, AFocusedFieldBringsTheKeyboard) {
  start(smallPhone(FIELDS));
  EXPECT_EQ(keyboard(), nullptr);
  const auto revision = phone_->revision();
  tap({25, 25});
  ASSERT_NE(keyboard(), nullptr);
  EXPECT_NE(phone_->revision(), revision);
  EXPECT_EQ(keyboard()->parent(), screenOf(TEST_APP).children().back().get()) << "in a window in front of the others";
  const std::uint64_t number = keyboard()->number;
  tap({25, 25});
  EXPECT_EQ(keyboard()->number, number) << "the field had the focus";
  tap({25, 75});
  tap({75, 75});
  EXPECT_EQ(countOf(ElementType::keyboard), 1);
}

TEST_F(PhoneTest, KeysType) {
  start(smallPhone(FIELDS));
  tap({25, 25});
  ASSERT_NE(phone_->focusedElement(), nullptr);
  for (const Point key : {SHIFT, A_KEY, A_KEY, SPACE, MORE, Q_KEY, SPACE, Q_KEY, Q_KEY, DELETE}) {
    tap(key);
  }
  EXPECT_EQ(phone_->focusedElement()->value, "Aa 1 q");
  tap({50, 195});
  EXPECT_EQ(phone_->focusedElement()->value, "Aa 1 q") << "below the keys there is nothing to tap";
}

TEST_F(PhoneTest, TheReturnKeyEndsTheEditingOfASingleLine) {
  for (const Point field : {Point{25, 25}, Point{75, 25}, Point{25, 75}}) {
    start(smallPhone(FIELDS));
    tap(field);
    const auto revision = phone_->revision();
    tap(RETURN);
    EXPECT_EQ(phone_->focusedElement(), nullptr);
    EXPECT_EQ(keyboard(), nullptr);
    EXPECT_NE(phone_->revision(), revision);
  }
}

TEST_F(PhoneTest, TheReturnKeyIsANewlineInATextView) {
  start(smallPhone(FIELDS));
  tap({75, 75});
  tap(Q_KEY);
  tap(RETURN);
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "a\nb\r\nc"));
  EXPECT_EQ(elementLabelled("view").value, "q\na\nb\nc");
  EXPECT_NE(keyboard(), nullptr);
}

TEST_F(PhoneTest, ControlCharactersThatAreTypedAreKeys) {
  start(smallPhone(FIELDS));
  tap({25, 25});
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "\bÄ👍🏽\bxy\x7Fz"));
  EXPECT_EQ(elementLabelled("field").value, "Äxz");
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "\b\b\b\b"));
  EXPECT_EQ(elementLabelled("field").value, std::nullopt);
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "ab\ncd"));
  EXPECT_EQ(elementLabelled("field").value, "ab");
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  EXPECT_FALSE(phone_->type(screenOf(TEST_APP), "e"));
}

TEST_F(PhoneTest, TheRuleOfTheReturnKeyAppliesHoweverItIsPressed) {
  const MemoryPhoneFiles searching = phoneWith(FIELDS, tapRule("identifier == 'Search'", show("one")));
  start(searching);
  tap({25, 75});
  tap(RETURN);
  EXPECT_THAT(labels(), ElementsAre("one"));
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  start(searching);
  tap({25, 75});
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "lamp\nlost"));
  EXPECT_THAT(labels(), ElementsAre("one"));
}

TEST_F(PhoneTest, ATapOnAKeyIsNoTapOnWhatHoldsTheKeyboard) {
  start(phoneWith(FIELDS, tapRule("label == 'field'", "") + "," + tapRule("label == 'Test'", show("one")) + "," +
                              tapRule("label == 'a'", show("two"))));
  tap({25, 25});
  ASSERT_NE(phone_->focusedElement(), nullptr);
  tap(Q_KEY);
  tap({50, 195});
  EXPECT_EQ(phone_->focusedElement()->value, "q");
  tap(A_KEY);
  EXPECT_THAT(labels(), ElementsAre("two"));
}

TEST_F(PhoneTest, TheFocusEndsWithTheScreen) {
  start(phoneWith(FIELDS, tapRule("label == 'view'", show("one"))));
  tap({25, 25});
  tap({75, 75});
  EXPECT_THAT(labels(), ElementsAre("one"));
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  EXPECT_EQ(keyboard(), nullptr);
}

TEST_F(PhoneTest, TheFocusEndsWhenTheApplicationLeavesTheFront) {
  start(smallPhone(FIELDS));
  tap({25, 25});
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "kept"));
  phone_->pressHome();
  EXPECT_EQ(keyboard(), nullptr);
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  EXPECT_FALSE(elementLabelled("field").hasKeyboardFocus);
  EXPECT_EQ(elementLabelled("field").value, "kept");
}

TEST_F(PhoneTest, ALaunchEndsTheFocusOfTheApplicationBefore) {
  MemoryPhoneFiles files = smallPhone(button("label='OK'"));
  files["home/home.xml"] = R"(<SearchField label="field" x="0" y="0" width="100" height="50"/>)";
  switchOn(files);
  tap({25, 25});
  EXPECT_EQ(phone_->focusedElement()->label, "field");
  phone_->launch(TEST_APP);
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  EXPECT_EQ(phone_->running(HOME)->focused, nullptr);
  phone_->launch(HOME);
  EXPECT_EQ(phone_->focusedElement(), nullptr);
}

TEST_F(PhoneTest, ACapturedKeyboardServesTheFieldsOfItsScreen) {
  start(phoneWith(R"(<TextField label="field" x="0" y="0" width="100" height="50"/>
      <Keyboard x="0" y="100" width="100" height="100"><Key label="Q" x="0" y="100" width="20" height="20"/>
      <Key label="x" enabled="false" x="40" y="100" width="20" height="20"/>
      <Button label="Done" x="80" y="180" width="20" height="20"/></Keyboard>)",
                  tapRule("label == 'Done'", alert("done"))));
  tap({10, 110});
  EXPECT_EQ(elementLabelled("field").value, std::nullopt) << "nothing has the focus yet";
  tap({10, 10});
  EXPECT_EQ(countOf(ElementType::keyboard), 1);
  tap({10, 110});
  tap({50, 110});
  EXPECT_EQ(elementLabelled("field").value, "Q");
  tap({90, 190});
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  EXPECT_EQ(countOf(ElementType::keyboard), 1) << "it belongs to the screen";
  EXPECT_NE(phone_->alert(), nullptr);
}

TEST_F(PhoneTest, ADisabledReturnKeyHasNoRule) {
  start(phoneWith(R"(<TextField label="field" x="0" y="0" width="100" height="50"/>
      <Keyboard x="0" y="100" width="100" height="100">
      <Button label="Done" enabled="false" x="80" y="180" width="20" height="20"/></Keyboard>)",
                  tapRule("label == 'Done'", alert("done"))));
  tap({10, 10});
  tap({90, 190});
  EXPECT_NE(phone_->focusedElement(), nullptr);
  EXPECT_TRUE(phone_->type(screenOf(TEST_APP), "a\n"));
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  EXPECT_EQ(phone_->alert(), nullptr);
}

TEST_F(PhoneTest, AKeyboardThatACaptureDoesNotShowIsNone) {
  start(smallPhone(R"(<TextField label="field" x="0" y="0" width="100" height="50"/>
      <Keyboard x="0" y="200" width="100" height="100"/><Keyboard visible="false" x="0" y="100" width="9" height="9"/>)"));
  tap({10, 10});
  EXPECT_EQ(countOf(ElementType::keyboard), 3);
}

// Scrolling.

constexpr const char* LIST = R"(<Table label="list" x="0" y="0" width="100" height="150">
    <Cell label="1" x="0" y="0" width="100" height="100"/><Cell label="2" x="0" y="100" width="100" height="300"/></Table>
    <TextField label="field" x="0" y="150" width="100" height="20"/>)";

TEST_F(PhoneTest, ADragScrolls) {
  start(smallPhone(LIST));
  const auto revision = phone_->revision();
  phone_->drag({50, 120}, 2s, {50, 70});
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 50}));
  EXPECT_EQ(elapsed(), 2s);
  EXPECT_EQ(phone_->revision(), revision + 1);
  phone_->drag({50, 160}, 0s, {50, 20});
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 50})) << "a field does not scroll";
  EXPECT_EQ(phone_->revision(), revision + 1);
}

TEST_F(PhoneTest, TheEdgeOfTheScreenStopsTheFinger) {
  start(smallPhone(LIST));
  phone_->drag({50, 120}, 0s, {-500, -5000});
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, -20}));
}

TEST_F(PhoneTest, ADragIsNoTapUnlessTheFingerStays) {
  start(phoneWith(button("label='b'"), tapRule("label == 'b'", show("one"))));
  phone_->drag({50, 100}, 1s, {50, 101});
  EXPECT_THAT(labels(), ElementsAre("b"));
  phone_->drag({50, 100}, 1s, {50, 100});
  EXPECT_THAT(labels(), ElementsAre("one"));
  EXPECT_EQ(elapsed(), 2s);
}

TEST_F(PhoneTest, ASwipeScrollsWhatLiesInTheMiddleOfTheElement) {
  start(smallPhone(LIST));
  phone_->swipe(elementLabelled("1"), SwipeDirection::up);
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, -12.5}));
  phone_->swipe(screenOf(TEST_APP), SwipeDirection::down);
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 100}));
  const auto revision = phone_->revision();
  phone_->swipe(elementLabelled("1"), SwipeDirection::down);
  phone_->swipe(elementLabelled("field"), SwipeDirection::up);
  EXPECT_EQ(phone_->revision(), revision);
}

TEST_F(PhoneTest, ASwipeCountsOnlyWhatTheKeyboardLeaves) {
  start(smallPhone(LIST));
  tap({50, 160});
  phone_->swipe(elementLabelled("1"), SwipeDirection::up);
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 10})) << "three quarters of 120 points";
}

TEST_F(PhoneTest, ASwipeGoesThroughTheMiddleOfWhatTheKeyboardLeaves) {
  start(smallPhone(R"(<TextField label="field" x="0" y="0" width="100" height="20"/>
      <Table label="list" x="0" y="100" width="100" height="100">
      <Cell label="1" x="0" y="100" width="100" height="300"/></Table>
)"));
  tap({50, 10});
  std::vector<Point> points;
  phone_->observeTouches([&points](const Element&, Point point) { points.push_back(point); });
  phone_->swipe(elementLabelled("1"), SwipeDirection::up);
  EXPECT_EQ(elementLabelled("1").frame.origin, (Point{0, 85})) << "three quarters of 20 points";
  phone_->swipe(elementLabelled("q"), SwipeDirection::up);
  EXPECT_THAT(points, ElementsAre(Point{50, 110}, Point{5, 127.5}));
}

TEST_F(PhoneTest, NothingIsSwipedThatIsNotOnTheScreen) {
  start(smallPhone(std::string(LIST) + R"(<Button label="outside" x="0" y="500" width="10" height="10"/>)"));
  phone_->swipe(elementLabelled("outside"), SwipeDirection::up);
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 100}));
}

TEST_F(PhoneTest, ScrollingTakesItsTime) {
  MemoryPhoneFiles files = smallPhone(LIST);
  std::string& json = files["phone.json"];
  json.insert(json.find("\"volume\""), R"("delays": {"touch": 80, "scroll": 400}, )");
  start(files);
  phone_->drag({50, 120}, 1s, {50, 70});
  EXPECT_EQ(elapsed(), 1480ms);
  phone_->swipe(elementLabelled("2"), SwipeDirection::up);
  EXPECT_EQ(elapsed(), 1960ms);
  phone_->drag({50, 500}, 1s, {50, 70});
  EXPECT_EQ(elapsed(), 3040ms) << "a finger beside the screen moves nothing";
}

TEST_F(PhoneTest, UnderAnAlertNothingScrollsAndADragDoesNotPressItsButton) {
  start(phoneWith(LIST, tapRule("label == '1'", alert("first"))));
  tap({50, 50});
  ASSERT_NE(phone_->alert(), nullptr);
  phone_->drag({50, 120}, 0s, {50, 70});
  phone_->drag(ALERT_BUTTON, 1s, {50, 70});
  phone_->swipe(elementLabelled("1"), SwipeDirection::up);
  EXPECT_NE(phone_->alert(), nullptr);
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 100}));
}

TEST_F(PhoneTest, AScreenThatIsShownAgainIsNotScrolled) {
  start(phoneWith(LIST, tapRule("label == '2'", show("start"))));
  phone_->drag({50, 120}, 0s, {50, 70});
  tap({50, 120});
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 100}));
  phone_->drag({50, 120}, 0s, {50, 70});
  EXPECT_EQ(elementLabelled("2").frame.origin, (Point{0, 50}));
}

// Who is told of touches.

TEST_F(PhoneTest, TheObserverIsToldWhatTookEachTouchBeforeItHadItsEffect) {
  start(phoneWith(LIST, tapRule("label == '2'", alert("first"))));
  std::vector<std::string> touches;
  phone_->observeTouches([&touches](const Element& touched, Point point) {
    touches.push_back(touched.label + " at " + std::to_string(std::lround(point.x)) + ", " +
                      std::to_string(std::lround(point.y)));
  });
  phone_->touch({10, 20}, 1s);
  phone_->drag({10, 90}, 0s, {10, 60});
  phone_->swipe(elementLabelled("2"), SwipeDirection::down);
  tap({50, 160});
  tap(Q_KEY);
  phone_->drag(RETURN, 0s, {50, 50});
  tap(RETURN);
  tap({50, 130});
  phone_->drag({1, 1}, 0s, {1, 50});
  tap({1, 1});
  tap(ALERT_BUTTON);
  EXPECT_THAT(touches, ElementsAre("1 at 10, 20", "1 at 10, 90", "2 at 50, 110", "field at 50, 160", "q at 5, 127",
                                   "return at 88, 173", "return at 88, 173", "2 at 50, 130", "first at 1, 1",
                                   "first at 1, 1", "OK at 50, 150"));
}

TEST_F(PhoneTest, TheObserverIsNotToldOfWhatFallsThrough) {
  start(smallPhone(R"(<Other x="0" y="0" width="100" height="100"/>)"));
  int touches = 0;
  phone_->observeTouches([&touches](const Element&, Point) { ++touches; });
  tap({50, 50});
  phone_->drag({50, 50}, 0s, {50, 10});
  phone_->swipe(screenOf(TEST_APP), SwipeDirection::up);
  tap({500, 50});
  EXPECT_EQ(touches, 0);
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

TEST_F(PhoneTest, AllRulesApplyThatHeldAtTheLaunch) {
  start(phoneWith("", R"({"on": "launch", "when": {"a": ""}, "do": [{"set": {"a": "1"}}]},
      {"on": "launch", "when": {"a": "1"}, "do": [{"systemAlert": {"title": "no", "buttons": ["OK"]}}]},
      {"on": "launch", "when": {"a": ""}, "do": [{"show": "one"}]})"));
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

// Alerts.

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
