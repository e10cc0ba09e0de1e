#include "host/phone/ShownScreen.h"

#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "host/phone/Selector.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "tests/host/phone/LookedAtPhone.h"

namespace quobrak::host {
namespace {

using quobrak::testing::elementNamed;
using quobrak::testing::lookedAtPhone;
using quobrak::testing::MemoryPhoneFiles;
using quobrak::testing::TEST_APPLICATION;

constexpr const char* HOME = "com.apple.springboard";

/// The phone whose application has these rules.
simulator::PhoneDescription phoneWithRules(const std::string& rules) {
  MemoryPhoneFiles files = lookedAtPhone();
  files["test/app.json"] =
      R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start", "rules": )" + rules + "}";
  return simulator::loadPhone(files);
}

TEST(ShownScreen, IsWhatTheApplicationShowsWhenItHasStarted) {
  const ShownScreen screen(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, std::nullopt);
  EXPECT_EQ(screen.identifier(), TEST_APPLICATION);
  EXPECT_EQ(screen.application().name, "Test");
  EXPECT_EQ(screen.name(), "start");
  EXPECT_EQ(screen.frontIdentifier(), TEST_APPLICATION);
  EXPECT_EQ(screen.systemAlert(), nullptr);
  EXPECT_EQ(elementNamed(screen, "title").label, "Hello") << "its rules are carried out";
}

TEST(ShownScreen, IsTheScreenOfThatNameAsItsFileHasIt) {
  const ShownScreen start(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "start");
  EXPECT_EQ(elementNamed(start, "title").label, "Welcome");
  const ShownScreen other(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "other");
  EXPECT_EQ(other.name(), "other");
  EXPECT_EQ(other.root()->children().front()->label, "Back");
}

TEST(ShownScreen, RulesOfNoApplicationChangeAScreenThatWasChosen) {
  MemoryPhoneFiles files = lookedAtPhone();
  files["home/app.json"] = R"({"bundleIdentifier": "com.apple.springboard", "name": "Home", "firstScreen": "home",
      "rules": [{"on": "launch", "do": [{"askPermission": "camera"}]}]})";
  EXPECT_NE(ShownScreen(simulator::loadPhone(files), TEST_APPLICATION, std::nullopt).systemAlert(), nullptr);
  EXPECT_EQ(ShownScreen(simulator::loadPhone(files), TEST_APPLICATION, "start").systemAlert(), nullptr);
}

TEST(ShownScreen, TheHomeScreenIsOneToo) {
  const ShownScreen screen(simulator::loadPhone(lookedAtPhone()), HOME, std::nullopt);
  EXPECT_EQ(screen.name(), "home");
  EXPECT_EQ(screen.frontIdentifier(), HOME);
}

TEST(ShownScreen, KnowsWhatElseIsUp) {
  const ShownScreen behind(phoneWithRules(R"([{"on": "launch", "do": [{"open": "com.apple.springboard"}]}])"),
                           TEST_APPLICATION, std::nullopt);
  EXPECT_EQ(behind.frontIdentifier(), HOME);
  EXPECT_FALSE(behind.isHittable(elementNamed(behind, "basket")));
  const ShownScreen asking(
      phoneWithRules(R"([{"on": "launch", "do": [{"systemAlert": {"title": "Sure?", "buttons": ["OK"]}}]}])"),
      TEST_APPLICATION, std::nullopt);
  ASSERT_NE(asking.systemAlert(), nullptr);
  EXPECT_EQ(asking.systemAlert()->label, "Sure?");
  EXPECT_TRUE(asking.isHittable(elementNamed(asking, "basket")));
}

TEST(ShownScreen, OfAnApplicationThatEndsItselfThereIsNone) {
  ShownScreen screen(phoneWithRules(R"([{"on": "launch", "do": [{"terminate": "com.example.test"}]}])"),
                     TEST_APPLICATION, std::nullopt);
  EXPECT_EQ(screen.root(), nullptr);
  EXPECT_EQ(screen.name(), "");
  const Selector any{.kind = SelectorKind::className, .text = "Button"};
  EXPECT_TRUE(screen.elements(queryOf(any, TEST_APPLICATION)).empty());
}

TEST(ShownScreen, RulesWithoutEndAreAnError) {
  EXPECT_THROW(ShownScreen(phoneWithRules(R"([{"on": "screen", "screen": "start", "do": [{"show": "start"}]}])"),
                           TEST_APPLICATION, std::nullopt),
               UIAutomationError);
}

TEST(ShownScreen, FindsElementsInTheOrderOfTheTree) {
  ShownScreen screen(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "start");
  const Selector basket{.kind = SelectorKind::label, .text = "BASKET"};
  const std::vector<const simulator::Element*> found = screen.elements(queryOf(basket, TEST_APPLICATION));
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0], &elementNamed(screen, "basket"));
  EXPECT_EQ(found[1], &elementNamed(screen, "off"));
}

TEST(ShownScreen, APictureHasTheMarks) {
  const ShownScreen screen(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "start");
  const std::optional<Data> plain = screen.picture({});
  ASSERT_TRUE(plain.has_value());
  const simulator::Mark mark{.frame = elementNamed(screen, "basket").frame, .word = "1"};
  EXPECT_NE(screen.picture(std::span(&mark, 1)), plain);
  EXPECT_EQ(screen.picture({}), plain);
}

}  // namespace
}  // namespace quobrak::host
