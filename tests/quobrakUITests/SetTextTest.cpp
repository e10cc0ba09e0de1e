#include "quobrakUITests/SetText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/AnsweringDriver.h"
#include "tests/quobrakUITests/QueryWords.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using std::chrono::milliseconds;
using testing::AnsweringDriver;
using testing::APP_IN_WORDS;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::textElementInWords;
using testing::textQueryInWords;
using ::testing::ThrowsMessage;

const std::string KEYBOARD_EXISTS = "exists: the element (single) of the Keyboard descendants of " + APP_IN_WORDS;
const std::string RETURN_KEYS = "the Button descendants, keyed \"return\" of " + APP_IN_WORDS;

std::string typed(const std::string& text) {
  return "type \"" + text + "\": " + APP_IN_WORDS;
}

/// A platform whose driver only answers, with an application that commands act on.
struct Typing {
  Typing() { TestContext::shared().setTestingApp("com.example.test"); }
  testing::TestPlatform platform;
  AnsweringDriver& driver = AnsweringDriver::install();
};

/// Answers that there are that many return keys.
void haveReturnKeys(AnsweringDriver& driver, std::size_t count) {
  driver.countOf = [count](const std::string& query) { return query == RETURN_KEYS ? count : 1U; };
}

TEST(EnterText, TypesCharacterByCharacterWithAPauseBehindEach) {
  Typing typing;
  SetText::enterText("abc", 200);
  EXPECT_THAT(typing.driver.operations, ElementsAre(KEYBOARD_EXISTS, typed("a"), "forgetLookups", typed("b"),
                                                    "forgetLookups", typed("c"), "forgetLookups"));
  EXPECT_EQ(typing.platform.elapsed(), milliseconds(600));
}

TEST(EnterText, WithoutAPeriodThereIsNoPause) {
  Typing typing;
  for (const std::int64_t period : {0, -1, -200}) {
    typing.driver.operations.clear();
    SetText::enterText("ab", period);
    EXPECT_THAT(typing.driver.operations, ElementsAre(KEYBOARD_EXISTS, typed("a"), typed("b")));
  }
  EXPECT_EQ(typing.platform.elapsed(), milliseconds(0));
}

TEST(EnterText, CharactersAreThoseThatAReaderSees) {
  Typing typing;
  SetText::enterText("ü👍🏽👨‍👩‍👧‍👦e\u0301 ", 100);
  EXPECT_THAT(typing.driver.actions(), ElementsAre(typed("ü"), typed("👍🏽"), typed("👨‍👩‍👧‍👦"),
                                                   typed("e\u0301"), typed(" ")));
  EXPECT_EQ(typing.platform.elapsed(), milliseconds(500));
}

TEST(EnterText, EmptyTextTypesNothingAndDoesNotPause) {
  Typing typing;
  SetText::enterText("", 200);
  EXPECT_THAT(typing.driver.operations, ElementsAre(KEYBOARD_EXISTS));
  EXPECT_EQ(typing.platform.elapsed(), milliseconds(0));
}

TEST(EnterText, WithoutAKeyboard) {
  Typing typing;
  typing.driver.existsOf = [](const std::string&) { return false; };
  for (const std::string text : {"abc", ""}) {
    EXPECT_THAT([&] { SetText::enterText(text, 200); }, testing::raisesFdslError("The keyboard is not visible"));
    EXPECT_THAT([&] { SetText::enterTextFast(text); }, testing::raisesFdslError("The keyboard is not visible"));
  }
  EXPECT_THAT(typing.driver.actions(), IsEmpty());
  EXPECT_EQ(typing.platform.elapsed(), milliseconds(0));
}

TEST(EnterText, KeyboardThatGoesAwayIsNotMissed) {
  Typing typing;
  typing.driver.before = [&typing](const std::string& operation) {
    typing.driver.existsOf = [isThere = !operation.starts_with("type")](const std::string&) { return isThere; };
  };
  SetText::enterText("ab", 0);
  EXPECT_THAT(typing.driver.operations, ElementsAre(KEYBOARD_EXISTS, typed("a"), typed("b")));
}

TEST(EnterText, ErrorBetweenTwoCharactersLeavesTheFirstOne) {
  Typing typing;
  typing.driver.before = [](const std::string& operation) {
    if (operation == typed("b")) {
      throw UIAutomationError("The phone is gone.");
    }
  };
  EXPECT_THAT([] { SetText::enterText("abc", 0); }, ThrowsMessage<UIAutomationError>("The phone is gone."));
  EXPECT_THAT(typing.driver.actions(), ElementsAre(typed("a"), typed("b")));
}

TEST(EnterText, PauseThatIsTooLongIsFatalBehindTheFirstCharacter) {
  Typing typing;
  typing.driver.before = [](const std::string& operation) { std::fprintf(stderr, "%s\n", operation.c_str()); };
  EXPECT_DEATH(SetText::enterText("ab", 4294968),
               Eq(KEYBOARD_EXISTS + "\n" + typed("a") +
                  "\nFatal error: The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and "
                  "4294967 ms\n"));
}

TEST(EnterTextFast, TypesAllAtOnce) {
  Typing typing;
  SetText::enterTextFast("a 👍🏽 b");
  SetText::enterTextFast("");
  EXPECT_THAT(typing.driver.operations,
              ElementsAre(KEYBOARD_EXISTS, typed("a 👍🏽 b"), KEYBOARD_EXISTS, typed("")));
  EXPECT_EQ(typing.platform.elapsed(), milliseconds(0));
}

TEST(EnterText, KeyboardOfTheApplicationIsTheOneThatCounts) {
  testing::TestPlatform platform(R"(<XCUIElementTypeKeyboard x="0" y="100" width="100" height="100"/>)");
  TestContext::shared().setTestingApp("com.example.test");
  EXPECT_THAT([] { SetText::enterText("", 0); }, testing::raisesFdslError("The keyboard is not visible"));
  TestContext::shared().getTestingApp().launch();
  platform.driver().operations.clear();
  SetText::enterText("", 0);
  EXPECT_THAT(platform.driver().operations, ElementsAre(KEYBOARD_EXISTS));
}

TEST(SetText, TapsTheFieldTypesAndTapsTheReturnKey) {
  struct Row {
    void (*setText)(std::string_view textToSet, std::string_view textSelector);
    std::string comparison;
  };
  const Row ROWS[] = {{SetText::setTextByText, "CONTAINS[c]"}, {SetText::setTextByTextExact, "MATCHES"}};
  Typing typing;
  for (const auto& [setText, comparison] : ROWS) {
    typing.driver.operations.clear();
    setText("Ada Lovelace", "name");
    const std::string field = textElementInWords(comparison, "name");
    const std::string returnKey = "the element (at index 0) of " + RETURN_KEYS;
    EXPECT_THAT(typing.driver.operations,
                ElementsAre("count: " + textQueryInWords(comparison, "name"), "isHittable: " + field, "tap: " + field,
                            "type \"Ada Lovelace\": " + field, "count: " + RETURN_KEYS, "isHittable: " + returnKey,
                            "tap: " + returnKey));
  }
}

TEST(SetText, LastOfSeveralReturnKeysIsTapped) {
  Typing typing;
  haveReturnKeys(typing.driver, 2);
  SetText::setTextByText("Ada", "name");
  EXPECT_EQ(typing.driver.operations.back(), "tap: the element (at index 1) of " + RETURN_KEYS);
  EXPECT_EQ(typing.driver.actions().size(), 3U);
}

TEST(SetText, WithoutAReturnKeyNothingMoreIsDone) {
  Typing typing;
  haveReturnKeys(typing.driver, 0);
  SetText::setTextByText("Ada", "name");
  EXPECT_EQ(typing.driver.operations.back(), "count: " + RETURN_KEYS);
  EXPECT_EQ(typing.driver.actions().size(), 2U);
}

TEST(SetText, FieldThatCannotBeHitIsNotTypedInto) {
  Typing typing;
  typing.driver.isHittableAnswer = [] { return false; };
  typing.driver.labelAnswer = "Name";
  EXPECT_THAT([] { SetText::setTextByText("Ada", "name"); },
              testing::raisesFdslError("The element Name is not hittable"));
  typing.driver.labelAnswer = "";
  EXPECT_THAT([] { SetText::setTextByTextExact("Ada", "name"); },
              testing::raisesFdslError("The element is not hittable"));
  EXPECT_THAT(typing.driver.actions(), IsEmpty());
}

TEST(SetText, ReturnKeyThatCannotBeHit) {
  Typing typing;
  typing.driver.isHittableAnswer = [&typing] { return typing.driver.actions().empty(); };
  typing.driver.labelAnswer = "return";
  EXPECT_THAT([] { SetText::setTextByText("Ada", "name"); },
              testing::raisesFdslError("The element return is not hittable"));
  EXPECT_THAT(typing.driver.actions().back(), HasSubstr("type \"Ada\""));
}

TEST(SetText, FieldThatIsNotThere) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeTextField placeholderValue="Name" x="0" y="0" width="100" height="20"/>)");
  TestContext::shared().setTestingApp("com.example.test");
  TestContext::shared().getTestingApp().launch();
  EXPECT_THAT([] { SetText::setTextByText("Ada", "street"); },
              testing::raisesFdslError("The expected text street was not found"));
  EXPECT_THAT([] { SetText::setTextByTextExact("Ada", "Nam"); },
              testing::raisesFdslError("The expected text Nam was not found"));
}

TEST(SetText, WithoutAnApplication) {
  testing::TestPlatform platform;
  const AnsweringDriver& driver = AnsweringDriver::install();
  EXPECT_THAT([] { SetText::enterText("a", 4294968); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { SetText::enterTextFast("a"); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { SetText::setTextByText("a", "b"); }, testing::raisesNotInitialised());
  EXPECT_THAT([] { SetText::setTextByTextExact("a", "b"); }, testing::raisesNotInitialised());
  EXPECT_THAT(driver.operations, IsEmpty());
}

TEST(SetText, TextIsAddedToWhatTheFieldOfThePhoneHolds) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeTextField name="name" value="Ada" x="0" y="0" width="100" height="20"/>)");
  TestContext::shared().setTestingApp("com.example.test");
  TestContext::shared().getTestingApp().launch();
  SetText::setTextByText(" L.", "NAME");
  const XCUIElement field = TestContext::shared().getTestingApp().descendants(ElementType::textField).firstMatch();
  EXPECT_EQ(field.value(), ElementValue("Ada L."));
}

}  // namespace
}  // namespace quobrak
