#include "drivers/simulator/RunningApplication.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "drivers/simulator/PageSource.h"

namespace quobrak::simulator {
namespace {

constexpr Size SCREEN{390, 844};

constexpr const char* FIELDS = R"(<TextField name="one" x="0" y="100" width="390" height="40"/>
    <Cell name="row" x="0" y="200" width="390" height="40">
      <SearchField name="two" x="0" y="200" width="390" height="40"/></Cell>)";

class RunningApplicationTest : public ::testing::Test {
 protected:
  void show(const std::string& elements) {
    application_.screen =
        readPageSource(R"(<Application x="0" y="0" width="390" height="844">)" + elements + "</Application>", SCREEN);
  }

  Element& named(std::string_view name) {
    Element* found = nullptr;
    forEachDescendant(*application_.screen, [&](Element& element) {
      if (element.identifier == name) {
        found = &element;
      }
    });
    if (found == nullptr) {
      ADD_FAILURE() << "there is no element " << name;
    }
    return found == nullptr ? *application_.screen : *found;
  }

  std::size_t windows() const { return application_.screen->children().size(); }

  RunningApplication application_{.description = nullptr,
                                  .processIdentifier = 101,
                                  .screenName = "start",
                                  .screen = nullptr,
                                  .focused = nullptr,
                                  .keyboard = nullptr,
                                  .alerts = {}};
};

TEST_F(RunningApplicationTest, EditingGivesTheFieldTheFocusAndBringsAKeyboard) {
  show(FIELDS);
  application_.beginEditing(named("one"), SCREEN);
  EXPECT_EQ(application_.focused, &named("one"));
  EXPECT_TRUE(named("one").hasKeyboardFocus);
  ASSERT_NE(application_.keyboard, nullptr);
  EXPECT_EQ(application_.keyboard->parent(), application_.screen.get());
  EXPECT_EQ(application_.keyboardPlane, KeyboardPlane::letters);
  EXPECT_TRUE(showsKeyboard(*application_.screen));
  EXPECT_EQ(windows(), 3U);
}

TEST_F(RunningApplicationTest, EditingOfAnotherFieldEndsTheOneBefore) {
  show(FIELDS);
  application_.beginEditing(named("one"), SCREEN);
  application_.keyboardPlane = KeyboardPlane::symbols;
  application_.beginEditing(named("two"), SCREEN);
  EXPECT_EQ(application_.focused, &named("two"));
  EXPECT_FALSE(named("one").hasKeyboardFocus);
  EXPECT_TRUE(named("two").hasKeyboardFocus);
  EXPECT_EQ(application_.keyboardPlane, KeyboardPlane::letters);
  EXPECT_EQ(windows(), 3U) << "one keyboard";
  EXPECT_EQ(returnKeyIn(*application_.keyboard)->identifier, "Search") << "that of the field";
}

TEST_F(RunningApplicationTest, EditingEndsWithoutATrace) {
  show(FIELDS);
  application_.beginEditing(named("one"), SCREEN);
  application_.endEditing();
  EXPECT_EQ(application_.focused, nullptr);
  EXPECT_FALSE(named("one").hasKeyboardFocus);
  EXPECT_EQ(application_.keyboard, nullptr);
  EXPECT_FALSE(showsKeyboard(*application_.screen));
  EXPECT_EQ(windows(), 2U);
  application_.endEditing();
  EXPECT_EQ(windows(), 2U);
}

TEST_F(RunningApplicationTest, ACapturedKeyboardIsTheOnlyOneAndStays) {
  show(std::string(FIELDS) + R"(<Keyboard name="captured" x="0" y="600" width="390" height="244"/>)");
  application_.beginEditing(named("one"), SCREEN);
  EXPECT_EQ(application_.focused, &named("one"));
  EXPECT_EQ(application_.keyboard, nullptr);
  application_.endEditing();
  EXPECT_TRUE(showsKeyboard(*application_.screen));
  EXPECT_EQ(windows(), 3U);
}

TEST_F(RunningApplicationTest, ACapturedKeyboardThatIsNotSeenIsNone) {
  const std::string before = FIELDS;
  for (const std::string keyboard : {R"(<Keyboard visible="false" x="0" y="600" width="390" height="244"/>)",
                                     R"(<Keyboard x="0" y="844" width="390" height="244"/>)",
                                     R"(<Keyboard x="0" y="600" width="390" height="0"/>)"}) {
    show(before + keyboard);
    EXPECT_FALSE(showsKeyboard(*application_.screen)) << keyboard;
    EXPECT_EQ(upperEdgeOfKeyboard(*application_.screen, 844), 844) << keyboard;
  }
}

TEST_F(RunningApplicationTest, TheUpperEdgeOfAKeyboardIsThatOfTheHighestOneThatIsShown) {
  show(FIELDS);
  EXPECT_EQ(upperEdgeOfKeyboard(*application_.screen, 844), 844);
  EXPECT_EQ(upperEdgeOfKeyboard(*application_.screen, 200), 200);
  application_.beginEditing(named("one"), SCREEN);
  EXPECT_EQ(upperEdgeOfKeyboard(*application_.screen, 844), 844 - 292);
  show(std::string(FIELDS) + R"(<Keyboard x="0" y="500" width="390" height="344"/>
                                <Window><Keyboard x="0" y="600" width="390" height="244"/></Window>)");
  EXPECT_EQ(upperEdgeOfKeyboard(*application_.screen, 844), 500);
}

TEST_F(RunningApplicationTest, WhatIsRemovedTakesItsFocusAlong) {
  show(FIELDS);
  application_.beginEditing(named("two"), SCREEN);
  application_.remove(named("row"));
  EXPECT_EQ(application_.focused, nullptr);
  EXPECT_EQ(application_.keyboard, nullptr);
  EXPECT_EQ(windows(), 1U);
}

TEST_F(RunningApplicationTest, WhatIsRemovedElsewhereLeavesTheFocus) {
  show(FIELDS);
  application_.beginEditing(named("one"), SCREEN);
  application_.remove(named("two"));
  EXPECT_EQ(application_.focused, &named("one"));
  EXPECT_NE(application_.keyboard, nullptr);
  EXPECT_TRUE(named("row").children().empty());
}

}  // namespace
}  // namespace quobrak::simulator
