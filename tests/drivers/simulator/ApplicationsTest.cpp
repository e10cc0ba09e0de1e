#include "drivers/simulator/Applications.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Phone.h"
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
using ::testing::ThrowsMessage;

constexpr const char* HOME = "com.apple.springboard";
constexpr const char* TEST_APP = "com.example.test";
constexpr const char* OTHER_APP = "com.example.other";

/// Three buttons, one below the other: "top" from 0, "middle" from 50, "bottom" from 100 points down.
constexpr const char* THREE_BUTTONS = R"(<Button name="top" label="Top" x="0" y="0" width="100" height="50"/>
    <Button name="middle" label="Middle" x="0" y="50" width="100" height="50"/>
    <Button name="bottom" label="Bottom" x="0" y="100" width="100" height="50"/>)";
constexpr Point TOP{50, 25};
constexpr Point MIDDLE{50, 75};
constexpr Point BOTTOM{50, 125};

/// A list of 100 points that holds rows of 50 points each.
std::string list(int rows) {
  std::string text = R"(<Table name="list" x="0" y="0" width="100" height="100">)";
  for (int row = 0; row < rows; ++row) {
    text += "<Cell label='row " + std::to_string(row) + "' x='0' y='" + std::to_string(50 * row) +
            "' width='100' height='50'/>";
  }
  return text + "</Table>";
}

std::string onTop(const std::string& effects) {
  return R"({"on": "tap", "element": "identifier == 'top'", "do": [)" + effects + "]}";
}

class ApplicationsTest : public ::testing::Test {
 protected:
  /// Switches a phone on whose application has that page first, and starts it. Pages "one" and "two" have a button of
  /// that label each. Another application takes addresses that begin with "other:".
  void start(const std::string& page, const std::string& rules, const std::string& values = "{}") {
    MemoryPhoneFiles files = smallPhone(page, "[" + rules + "]");
    files["phone.json"] = R"({"name": "Small phone", "size": {"width": 100, "height": 200}, "scale": 1,
        "systemVersion": "17.5", "volume": 50, "home": "com.apple.springboard",
        "applications": ["home", "test", "other"], "values": )" +
                          values + "}";
    files["test/one.xml"] = "<Button label='one' x='0' y='0' width='100' height='200'/>";
    files["test/two.xml"] = "<Button label='two' x='0' y='0' width='100' height='200'/>";
    files["test/toast.xml"] = "<Other label='toast' x='10' y='150' width='80' height='20'/>";
    files["test/rows.xml"] = R"(<Application><Cell label="new 1" x="0" y="7" width="100" height="50"/>
        <Cell label="new 2" x="0" y="57" width="100" height="50"/></Application>)";
    files["other/app.json"] = R"({"bundleIdentifier": "com.example.other", "name": "Other", "launchTime": 300,
        "firstScreen": "main", "addresses": ["other:", "other:long/"], "rules": [
          {"on": "address", "when": "address CONTAINS 'known'",
           "do": [{"change": "identifier == 'address'", "to": {"label": "${address}"}}]},
          {"on": "address", "do": [{"show": "lost"}]}]})";
    files["other/main.xml"] = "<StaticText name='address' label='none' x='0' y='0' width='100' height='20'/>";
    files["other/lost.xml"] = "<StaticText label='lost' x='0' y='0' width='100' height='20'/>";
    phone_ = std::make_unique<Phone>(loadPhone(files), clock_);
    phone_->launch(TEST_APP);
  }

  void tap(Point point) { phone_->touch(point, Seconds::zero()); }

  void wait(std::chrono::milliseconds time) {
    clock_.usleep(static_cast<std::uint32_t>(std::chrono::microseconds(time).count()));
    phone_->passTime();
  }

  /// The labels of all elements of an application that have one.
  std::vector<std::string> labels(const std::string& bundleIdentifier = TEST_APP) {
    std::vector<std::string> found;
    forEachDescendant(*phone_->running(bundleIdentifier)->screen, [&found](const Element& element) {
      if (!element.label.empty()) {
        found.push_back(element.label);
      }
    });
    return found;
  }

  const Element* find(std::string_view label) {
    const Element* found = nullptr;
    forEachDescendant(*phone_->running(TEST_APP)->screen,
                      [&](const Element& element) { found = element.label == label ? &element : found; });
    return found;
  }

  std::optional<Rect> frameOf(std::string_view label) {
    const Element* const found = find(label);
    return found == nullptr ? std::nullopt : std::optional(found->frame);
  }

  std::string shownScreen() { return phone_->running(TEST_APP)->screenName; }

  VirtualClock clock_{1700000000000ms};
  std::unique_ptr<Phone> phone_;
};

// Screens.

TEST_F(ApplicationsTest, TheFirstScreenIsAnnouncedBehindTheRulesOfTheLaunch) {
  start(THREE_BUTTONS, R"({"on": "screen", "screen": "start", "do": [{"set": {"order": "${order} screen"}}]},
                          {"on": "launch", "do": [{"set": {"order": "${order} launch"}}]},
                          {"on": "tap", "element": "identifier == 'top'",
                           "do": [{"change": "identifier == 'top'", "to": {"label": "${order}"}}]})");
  tap(TOP);
  EXPECT_NE(find(" launch screen"), nullptr);
}

TEST_F(ApplicationsTest, AScreenThatTheLaunchReplacesIsNotAnnounced) {
  start(THREE_BUTTONS, R"({"on": "launch", "do": [{"show": "one"}]},
                          {"on": "screen", "screen": "start", "do": [{"systemAlert": {"title": "no", "buttons": ["OK"]}}]},
                          {"on": "screen", "screen": ["one", "two"], "do": [{"change": "label == 'one'", "to": {"value": "seen"}}]})");
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_EQ(find("one")->value, "seen");
}

TEST_F(ApplicationsTest, ARuleOfAScreenAppliesThereAlone) {
  start(THREE_BUTTONS, onTop(R"({"show": "one"})") +
                           R"(, {"on": "tap", "element": "label == 'one'", "screen": "two", "do": [{"show": "start"}]},
                                {"on": "tap", "element": "label == 'one'", "screen": "one", "do": [{"show": "two"}]})");
  tap(TOP);
  tap(TOP);
  EXPECT_EQ(shownScreen(), "two");
}

// Named values.

TEST_F(ApplicationsTest, ValuesBeginAsThePhoneSaysAndConditionsAskThem) {
  start(THREE_BUTTONS, R"({"on": "launch", "when": "user == 'Ada' AND list CONTAINS user", "do": [{"show": "one"}]})",
        R"({"user": "Ada", "list": "Bob Ada"})");
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, SetMakesAllTextsOfWhatTheValuesWereBefore) {
  start(THREE_BUTTONS, onTop(R"({"set": {"a": "${b}", "b": "${a}"}},
                                {"change": "identifier == 'middle'", "to": {"label": "${a}-${b}-${never}"}})"),
        R"({"a": "1", "b": "2"})");
  tap(TOP);
  EXPECT_NE(find("2-1-"), nullptr);
}

TEST_F(ApplicationsTest, SetTakesTextsFromElements) {
  start(R"(<Cell name="lamp" x="0" y="0" width="100" height="50">
             <StaticText label="Lamp" x="0" y="0" width="100" height="50"/></Cell>
           <TextField name="field" label="Name" value="typed" placeholderValue="hint" x="0" y="60" width="100" height="20"/>)",
        R"({"on": "tap", "element": "identifier == 'lamp'", "do": [
             {"set": {"row": {"attribute": "identifier"},
                      "value": {"element": "identifier == 'field'", "attribute": "value"},
                      "hint": {"element": "identifier == 'field'", "attribute": "placeholderValue"},
                      "nothing": {"element": "identifier == 'nowhere'", "attribute": "label"}}},
             {"change": "label == 'Lamp'", "to": {"label": "${row},${value},${hint},${nothing}."}}]})");
  tap(TOP);
  EXPECT_NE(find("lamp,typed,hint,."), nullptr);
}

TEST_F(ApplicationsTest, AddCounts) {
  start(THREE_BUTTONS, onTop(R"({"add": {"count": 2, "other": -1}},
                                {"change": "identifier == 'top'", "to": {"label": "${count} ${other}"}})"),
        R"({"other": "no number"})");
  tap(TOP);
  tap(TOP);
  EXPECT_NE(find("4 -2"), nullptr);
}

// Changes of the screen.

TEST_F(ApplicationsTest, ChangeGivesAttributesAndLeavesTheOthers) {
  start(R"(<Button name="top" label="Top" value="v" x="0" y="0" width="100" height="50"/>
           <Cell name="row" label="Row" value="old" x="0" y="50" width="100" height="50">
             <StaticText label="In it" x="10" y="60" width="80" height="20"/></Cell>)",
        onTop(R"({"change": "identifier == 'row'", "to": {"label": "New", "identifier": "new", "value": null,
                  "placeholderValue": "hint", "enabled": false, "selected": true, "x": 5, "y": 100, "width": 90, "height": 40}})"));
  tap(TOP);
  const Element* const row = find("New");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->identifier, "new");
  EXPECT_EQ(row->value, std::nullopt);
  EXPECT_EQ(row->placeholder, "hint");
  EXPECT_FALSE(row->isEnabled);
  EXPECT_TRUE(row->isSelected);
  EXPECT_EQ(row->frame, (Rect{{5, 100}, {90, 40}}));
  EXPECT_EQ(frameOf("In it"), (Rect{{15, 110}, {80, 20}}));
  EXPECT_EQ(find("Top")->value, "v");
}

TEST_F(ApplicationsTest, WhatIsMadeInvisibleIsNotTouchedUntilItIsVisible) {
  start(THREE_BUTTONS, R"({"on": "tap", "element": "identifier == 'top'",
                           "do": [{"change": "identifier == 'middle'", "to": {"visible": false}}]},
                          {"on": "tap", "element": "identifier == 'bottom'",
                           "do": [{"change": "identifier == 'middle'", "to": {"visible": true}}]},
                          {"on": "tap", "element": "identifier == 'middle'", "do": [{"show": "one"}]})");
  tap(TOP);
  tap(MIDDLE);
  EXPECT_EQ(shownScreen(), "start");
  tap(BOTTOM);
  tap(MIDDLE);
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, MoveTakesAllAlongAndArrivesInTheTimeGiven) {
  start(R"(<Button name="top" label="Top" x="0" y="0" width="100" height="20"/>
           <Cell label="card" x="0" y="150" width="50" height="40"><StaticText label="on it" x="5" y="155" width="9" height="9"/></Cell>)",
        onTop(R"({"move": "label == 'card'", "by": {"x": 10, "y": -100}, "over": 400})"));
  tap({50, 10});
  EXPECT_EQ(frameOf("card")->origin, (Point{0, 150}));
  wait(100ms);
  EXPECT_EQ(frameOf("card")->origin, (Point{2.5, 125}));
  EXPECT_EQ(frameOf("on it")->origin, (Point{7.5, 130}));
  wait(299ms);
  EXPECT_GT(frameOf("card")->origin.y, 50);
  wait(1ms);
  EXPECT_EQ(frameOf("card")->origin, (Point{10, 50}));
  const std::uint64_t revision = phone_->revision();
  wait(1000ms);
  EXPECT_EQ(frameOf("card")->origin, (Point{10, 50}));
  EXPECT_EQ(phone_->revision(), revision);
}

TEST_F(ApplicationsTest, MoveWithoutATimeIsAtOnce) {
  start(THREE_BUTTONS, onTop(R"({"move": "identifier == 'bottom'", "by": {"x": 0, "y": 30}})"));
  tap(TOP);
  EXPECT_EQ(frameOf("Bottom")->origin, (Point{0, 130}));
}

TEST_F(ApplicationsTest, InsertedElementsLieInFrontAndVanishWhenTheirTimeIsOver) {
  start(THREE_BUTTONS, onTop(R"({"insert": "toast", "for": 2000})"));
  tap(TOP);
  EXPECT_EQ(frameOf("toast"), (Rect{{10, 150}, {80, 20}}));
  EXPECT_EQ(find("toast")->parent()->type, ElementType::application);
  wait(1999ms);
  EXPECT_NE(find("toast"), nullptr);
  wait(1ms);
  EXPECT_EQ(find("toast"), nullptr);
}

TEST_F(ApplicationsTest, InsertedElementsLieOnTheContentAsItWasBeforeItWasScrolled) {
  start(
      list(4),
      R"({"on": "scroll", "element": "identifier == 'list'", "do": [{"insert": "toast", "into": "identifier == 'list'"}]})");
  phone_->drag({50, 90}, Seconds::zero(), {50, 60});
  EXPECT_EQ(frameOf("toast"), (Rect{{10, 120}, {80, 20}}));
  EXPECT_EQ(find("toast")->parent()->identifier, "list");
}

TEST_F(ApplicationsTest, AListLoadsMoreAtItsEnd) {
  start(list(3), R"({"on": "scroll", "element": "identifier == 'list'", "at": "end",
                     "do": [{"insert": "rows", "into": "identifier == 'list'", "at": "end"}]})");
  phone_->drag({50, 90}, Seconds::zero(), {50, 70});
  EXPECT_EQ(find("new 1"), nullptr);
  phone_->drag({50, 90}, Seconds::zero(), {50, 10});
  EXPECT_EQ(frameOf("row 2"), (Rect{{0, 50}, {100, 50}}));
  EXPECT_EQ(frameOf("new 1"), (Rect{{0, 100}, {100, 50}}));
  EXPECT_EQ(frameOf("new 2"), (Rect{{0, 150}, {100, 50}}));
  phone_->drag({50, 90}, Seconds::zero(), {50, 0});
  EXPECT_EQ(frameOf("new 1"), (Rect{{0, 10}, {100, 50}}));
}

TEST_F(ApplicationsTest, NothingIsInsertedWhereItsPlaceIsNot) {
  start(THREE_BUTTONS, onTop(R"({"insert": "toast", "into": "identifier == 'nowhere'"})"));
  tap(TOP);
  EXPECT_EQ(find("toast"), nullptr);
}

TEST_F(ApplicationsTest, RemoveTakesAwayAllThatIsPickedAndTheFocusWithIt) {
  start(R"(<Button name="top" label="Top" x="0" y="0" width="100" height="20"/>
           <Cell label="gone" x="0" y="30" width="100" height="40">
             <TextField label="gone too" x="0" y="30" width="100" height="40"/></Cell>)",
        onTop(R"({"remove": "label BEGINSWITH 'gone'"})"));
  tap({50, 50});
  ASSERT_NE(phone_->focusedElement(), nullptr);
  tap({50, 10});
  EXPECT_THAT(labels(), ElementsAre("Top"));
  EXPECT_EQ(phone_->focusedElement(), nullptr);
}

TEST_F(ApplicationsTest, RulesDoNotReachThePhonesOwnKeyboard) {
  start(R"(<Button name="top" label="Top" x="0" y="0" width="100" height="20"/>
           <TextField label="field" x="0" y="30" width="100" height="40"/>)",
        onTop(R"({"remove": "label != 'Top' AND label != 'field' AND label != ''"})"));
  tap({50, 50});
  const std::vector<std::string> withKeyboard = labels();
  tap({50, 10});
  EXPECT_EQ(labels(), withKeyboard);
}

TEST_F(ApplicationsTest, FocusBringsTheKeyboardToAField) {
  start(
      R"(<Button name="top" label="Top" x="0" y="0" width="100" height="20"/>
           <TextField label="off" enabled="false" x="0" y="30" width="100" height="20"/>
           <TextField label="on" x="0" y="60" width="100" height="20"/>)",
      R"({"on": "tap", "element": "label == 'Top'", "when": {"which": ""}, "do": [{"set": {"which": "on"}}, {"focus": "label == 'off'"}]},
           {"on": "tap", "element": "label == 'Top'", "do": [{"focus": "label == 'on'"}]})");
  tap({50, 10});
  EXPECT_EQ(phone_->focusedElement(), nullptr);
  tap({50, 10});
  ASSERT_NE(phone_->focusedElement(), nullptr);
  EXPECT_EQ(phone_->focusedElement()->label, "on");
  EXPECT_NE(phone_->running(TEST_APP)->keyboard, nullptr);
}

// Touches and texts.

TEST_F(ApplicationsTest, ALongPressIsHalfASecondAndATapWhereNoRuleIsAboutIt) {
  start(THREE_BUTTONS, onTop(R"({"show": "one"})") +
                           R"(, {"on": "longPress", "element": "identifier == 'top'", "do": [{"show": "two"}]},
                                {"on": "tap", "element": "identifier == 'middle'", "do": [{"show": "one"}]},
                                {"on": "tap", "element": "label == 'one' OR label == 'two'", "do": [{"show": "start"}]})");
  phone_->touch(TOP, Seconds(0.499));
  EXPECT_EQ(shownScreen(), "one");
  tap(TOP);
  phone_->touch(TOP, Seconds(0.5));
  EXPECT_EQ(shownScreen(), "two");
  tap(TOP);
  phone_->touch(MIDDLE, Seconds(3));
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, RulesSeeATextCharacterByCharacterAndAfterADeletion) {
  start(
      R"(<TextField name="field" x="0" y="0" width="100" height="20"/><StaticText name="log" label="." x="0" y="30" width="100" height="20"/>)",
      R"({"on": "text", "element": "identifier == 'field'", "do": [
             {"set": {"log": "${log} ", "now": {"attribute": "value"}}}, {"set": {"log": "${log}${now}"}},
             {"change": "identifier == 'log'", "to": {"label": "${log}"}}]})");
  tap({50, 10});
  EXPECT_TRUE(phone_->type(*phone_->running(TEST_APP)->screen, "aé👍🏽\b"));
  EXPECT_NE(find(" a aé aé👍🏽 aé"), nullptr);
}

TEST_F(ApplicationsTest, AnApplicationReadsItsSecureFields) {
  start(R"(<SecureTextField name="field" x="0" y="0" width="100" height="20"/>)",
        R"({"on": "text", "element": "identifier == 'field' AND value == 'open'", "do": [{"show": "one"}]})");
  tap({50, 10});
  EXPECT_TRUE(phone_->type(*phone_->running(TEST_APP)->screen, "ope"));
  EXPECT_EQ(phone_->focusedElement()->value, "•••");
  EXPECT_TRUE(phone_->type(*phone_->running(TEST_APP)->screen, "n"));
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, WhatIsTypedBehindARuleThatShowsAnotherScreenIsLost) {
  start(R"(<TextField name="field" x="0" y="0" width="100" height="20"/>)",
        R"({"on": "text", "element": "value == 'ab'", "do": [{"terminate": "com.example.test"}]})");
  tap({50, 10});
  EXPECT_TRUE(phone_->type(*phone_->running(TEST_APP)->screen, "abcd"));
  EXPECT_EQ(phone_->running(TEST_APP), nullptr);
  EXPECT_TRUE(phone_->isInFront(HOME));
}

// Alerts.

TEST_F(ApplicationsTest, AnAlertOfTheApplicationIsModalAndItsAnswerIsKnown) {
  start(
      THREE_BUTTONS,
      onTop(
          R"({"set": {"item": "lamp"}}, {"alert": {"title": "Delete ${item}?", "message": "For ever.", "buttons": ["No", "Yes"]}, "answer": "delete"})") +
          R"(, {"on": "answer", "alert": "label CONTAINS 'Delete'", "element": "label == 'Yes'", "when": {"delete": "Yes"}, "do": [{"show": "one"}]},
                                {"on": "tap", "element": "identifier == 'middle'", "do": [{"show": "two"}]})");
  tap(TOP);
  EXPECT_EQ(phone_->alert(), nullptr);
  ASSERT_NE(find("Delete lamp?"), nullptr);
  tap({5, 75});
  EXPECT_EQ(shownScreen(), "start");
  const Element* const yes = find("Yes");
  ASSERT_NE(yes, nullptr);
  tap({50, yes->frame.origin.y + 5});
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, AnAnswerWithoutARuleIsATapAndTheAlertIsGone) {
  start(THREE_BUTTONS, onTop(R"({"alert": {"title": "Sure?", "buttons": ["OK"]}})") +
                           R"(, {"on": "answer", "element": "label == 'Cancel'", "do": [{"show": "two"}]},
                                {"on": "tap", "element": "label == 'OK'", "do": [{"show": "one"}]})");
  tap(TOP);
  const Rect button = *frameOf("OK");
  tap({50, button.origin.y + 5});
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, ASheetLiesAtTheLowerEdgeAndGoesWithItsAnswer) {
  start(THREE_BUTTONS, onTop(R"({"sheet": {"buttons": ["Keep Tabs", "Close Tabs"]}, "answer": "tabs"},
                                {"set": {"label": "raised"}})"));
  tap(TOP);
  const Element* const sheet = find("Keep Tabs")->parent();
  EXPECT_EQ(sheet->type, ElementType::sheet);
  EXPECT_EQ(sheet->frame.origin.y + sheet->frame.size.height, 200 - 34);
  const Rect button = *frameOf("Close Tabs");
  tap({50, button.origin.y + 5});
  EXPECT_THAT(labels(), ElementsAre("Top", "Middle", "Bottom"));
}

TEST_F(ApplicationsTest, TheAnswerToASystemAlertIsAnEventOfWhoRaisedIt) {
  start(THREE_BUTTONS, onTop(R"({"systemAlert": {"title": "System", "buttons": ["OK"]}})") +
                           R"(, {"on": "answer", "alert": "label == 'System'", "do": [{"show": "one"}]})");
  tap(TOP);
  ASSERT_NE(phone_->alert(), nullptr);
  phone_->pressHome();
  const Rect button = phone_->alert()->alert().children().back()->frame;
  tap({50, button.origin.y + 5});
  EXPECT_EQ(phone_->alert(), nullptr);
  EXPECT_EQ(shownScreen(), "one");
}

// Time.

TEST_F(ApplicationsTest, TimeCountsFromTheScreenThatARuleNamesAndElseFromTheStart) {
  start(THREE_BUTTONS, onTop(R"({"show": "one"})") +
                           R"(, {"on": "time", "screen": "one", "after": 500, "do": [{"show": "two"}]},
                                {"on": "time", "after": 1000, "do": [{"show": "start"}]})");
  wait(400ms);
  tap(TOP);
  wait(499ms);
  EXPECT_EQ(shownScreen(), "one");
  wait(1ms);
  EXPECT_EQ(shownScreen(), "two");
  wait(99ms);
  EXPECT_EQ(shownScreen(), "two");
  wait(1ms);
  EXPECT_EQ(shownScreen(), "start");
}

TEST_F(ApplicationsTest, TheTimeOfAScreenEndsWithItAndBeginsAnewWithTheSame) {
  start(THREE_BUTTONS, onTop(R"({"show": "start"})") +
                           R"(, {"on": "time", "screen": "start", "after": 500, "do": [{"show": "one"}]})");
  wait(400ms);
  tap(TOP);
  wait(400ms);
  EXPECT_EQ(shownScreen(), "start");
  wait(100ms);
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, TimeReturnsInItsIntervalAndAsksItsConditionEachTime) {
  start(THREE_BUTTONS, R"({"on": "time", "after": 1000, "every": "pace", "when": "count != '3'",
                           "do": [{"add": {"count": 1}}, {"change": "identifier == 'top'", "to": {"label": "${count}"}}]})",
        R"({"pace": "250"})");
  wait(1000ms);
  EXPECT_NE(find("1"), nullptr);
  wait(249ms);
  EXPECT_NE(find("1"), nullptr);
  wait(1ms);
  EXPECT_NE(find("2"), nullptr);
  wait(10000ms);
  EXPECT_NE(find("3"), nullptr);
}

TEST_F(ApplicationsTest, WhatComesDueTogetherHappensInItsOrderEachAtItsTime) {
  start(
      THREE_BUTTONS,
      R"({"on": "time", "after": 300, "do": [{"set": {"log": "${log}3"}}, {"after": 100, "do": [{"set": {"log": "${log}4"}}]}]},
                          {"on": "time", "after": 100, "do": [{"set": {"log": "${log}1"}}]},
                          {"on": "time", "after": 500, "do": [{"set": {"log": "${log}5"}}]},
                          {"on": "time", "after": 200, "do": [{"set": {"log": "${log}2"}}]},)" +
          onTop(R"({"change": "identifier == 'top'", "to": {"label": "${log}"}})"));
  wait(60000ms);
  tap(TOP);
  EXPECT_NE(find("12345"), nullptr);
}

TEST_F(ApplicationsTest, LaterEffectsComeIfTheApplicationTheScreenAndTheValuesAreSo) {
  start(THREE_BUTTONS, onTop(R"({"after": 200, "screen": ["start"], "do": [{"set": {"log": "${log}screen "}}]},
                                {"after": 300, "when": {"log": "screen "}, "do": [{"set": {"log": "${log}values "}}]},
                                {"after": 400, "screen": "one", "do": [{"set": {"log": "${log}no "}}]},
                                {"after": 500, "when": {"log": "no"}, "do": [{"set": {"log": "${log}no "}}]},
                                {"after": 600, "do": [{"change": "identifier == 'top'", "to": {"label": "${log}"}}]})"));
  tap(TOP);
  wait(600ms);
  EXPECT_NE(find("screen values "), nullptr);
}

TEST_F(ApplicationsTest, LaterEffectsEndWithTheApplication) {
  start(THREE_BUTTONS, onTop(R"({"after": 1000, "do": [{"show": "one"}]})"));
  tap(TOP);
  phone_->launch(TEST_APP);
  wait(5000ms);
  EXPECT_EQ(shownScreen(), "start");
}

TEST_F(ApplicationsTest, TimeGoesOnInTheBackground) {
  start(THREE_BUTTONS, R"({"on": "time", "after": 1000, "do": [{"show": "one"}]})");
  phone_->pressHome();
  wait(1000ms);
  EXPECT_EQ(shownScreen(), "one");
  EXPECT_TRUE(phone_->isInFront(HOME));
}

TEST_F(ApplicationsTest, ADurationThatIsNoNumberAnyMoreCountsAsNothing) {
  start(THREE_BUTTONS, onTop(R"({"set": {"pace": "soon"}}, {"after": "pace", "do": [{"show": "one"}]})"),
        R"({"pace": "250"})");
  tap(TOP);
  phone_->passTime();
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, WhatTimeOpensIsThereAtOnce) {
  start(THREE_BUTTONS, R"({"on": "time", "after": 100, "do": [{"open": "com.example.other"}]})");
  const Clock::TimePoint before = clock_.now();
  wait(100ms);
  EXPECT_TRUE(phone_->isInFront(OTHER_APP));
  EXPECT_EQ(clock_.now() - before, 100ms);
}

// Addresses and other applications.

TEST_F(ApplicationsTest, AnAddressOpensTheApplicationThatTakesIt) {
  start(THREE_BUTTONS, onTop(R"({"openAddress": "other:${page}"})"), R"({"page": "known page"})");
  const Clock::TimePoint before = clock_.now();
  tap(TOP);
  EXPECT_TRUE(phone_->isInFront(OTHER_APP));
  EXPECT_EQ(clock_.now() - before, 300ms);
  EXPECT_THAT(labels(OTHER_APP), ElementsAre("other:known page"));
}

TEST_F(ApplicationsTest, TheFirstRuleThatHoldsTakesTheAddress) {
  start(THREE_BUTTONS, onTop(R"({"openAddress": "other:else"})"));
  tap(TOP);
  EXPECT_THAT(labels(OTHER_APP), ElementsAre("lost"));
}

TEST_F(ApplicationsTest, AnAddressThatNobodyTakesOpensNothing) {
  start(THREE_BUTTONS, onTop(R"({"openAddress": "nobody:known"}, {"show": "one"})"));
  tap(TOP);
  EXPECT_TRUE(phone_->isInFront(TEST_APP));
  EXPECT_EQ(shownScreen(), "one");
}

TEST_F(ApplicationsTest, AnApplicationMayEndItselfAndNothingOfTheRuleFollows) {
  start(THREE_BUTTONS, onTop(R"({"terminate": "com.example.test"}, {"open": "com.example.other"})"));
  tap(TOP);
  EXPECT_EQ(phone_->running(TEST_APP), nullptr);
  EXPECT_TRUE(phone_->isInFront(HOME));
}

// Rules without end.

TEST_F(ApplicationsTest, RulesThatCallEachOtherForEverAreAnError) {
  start(THREE_BUTTONS, onTop(R"({"show": "one"})") + R"(, {"on": "screen", "screen": "one", "do": [{"show": "two"}]},
                                {"on": "screen", "screen": "two", "do": [{"show": "one"}]})");
  EXPECT_THAT([this] { tap(TOP); },
              ThrowsMessage<EndlessRulesError>("the rules of \"com.example.test\" set each other off without end"));
  phone_->launch(TEST_APP);
  EXPECT_EQ(shownScreen(), "start");
}

TEST_F(ApplicationsTest, RulesThatFollowEachOtherInNoTimeAreAnError) {
  start(THREE_BUTTONS, R"({"on": "time", "screen": "start", "after": 100, "do": [{"show": "start"}]},
                          {"on": "time", "screen": "one", "after": 0, "do": [{"show": "two"}]},
                          {"on": "time", "screen": "two", "after": 0, "do": [{"show": "one"}]},)" +
                           onTop(R"({"show": "one"})"));
  wait(1000ms);
  EXPECT_EQ(shownScreen(), "start");
  tap(TOP);
  EXPECT_THAT([this] { phone_->passTime(); },
              ThrowsMessage<EndlessRulesError>("the rules of \"com.example.test\" set each other off without end"));
}

}  // namespace
}  // namespace quobrak::simulator
