#include "drivers/simulator/TextInput.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quobrak::simulator {
namespace {

using Value = std::optional<std::string>;

class Field : public Element {
 public:
  explicit Field(const Value& text, ElementType fieldType = ElementType::textField) : Element(fieldType) {
    value = text;
  }
};

TEST(TextInput, FieldsTakeTextAndOnlyTextViewsHoldLines) {
  for (const ElementType type : {ElementType::textField, ElementType::secureTextField, ElementType::searchField}) {
    EXPECT_TRUE(takesText(type)) << nameOf(type);
    EXPECT_FALSE(holdsLines(type)) << nameOf(type);
  }
  EXPECT_TRUE(takesText(ElementType::textView));
  EXPECT_TRUE(holdsLines(ElementType::textView));
  EXPECT_FALSE(takesText(ElementType::staticText));
  EXPECT_FALSE(takesText(ElementType::button));
}

TEST(TextInput, TextGoesInAtTheEnd) {
  Field name("Ada");
  insertText(name, " L.");
  EXPECT_EQ(name.value, "Ada L.");
  Field empty(std::nullopt);
  insertText(empty, "Äh 👍🏽");
  EXPECT_EQ(empty.value, "Äh 👍🏽");
}

TEST(TextInput, TheEndOfRightToLeftTextIsWhereReadingEnds) {
  Field name("שלום");
  insertText(name, " עולם");
  EXPECT_EQ(name.value, "שלום עולם");
  deleteLastCharacter(name);
  EXPECT_EQ(name.value, "שלום עול");
}

TEST(TextInput, DeletingTakesOneUserPerceivedCharacter) {
  struct Row {
    const char* before;
    Value after;
  };
  const Row ROWS[] = {
      {"ab", "a"},
      {"aß", "a"},
      {"a👍🏽", "a"},
      {"👩‍👩‍👧‍👦👩‍👩‍👧‍👦", "👩‍👩‍👧‍👦"},
      {"🇩🇪🇫🇷", "🇩🇪"},
      {"ae\u0301", "a"},
      {"a\n", "a"},
      {"क्षि", std::nullopt},
      {"e\u0301", std::nullopt},
      {"👍🏽", std::nullopt},
      {"a", std::nullopt},
  };
  for (const auto& [before, after] : ROWS) {
    Field name(before);
    deleteLastCharacter(name);
    EXPECT_EQ(name.value, after) << before;
  }
}

TEST(TextInput, NothingIsDeletedFromAnEmptyField) {
  Field name(std::nullopt);
  deleteLastCharacter(name);
  EXPECT_EQ(name.value, std::nullopt);
}

TEST(TextInput, AnEmptiedFieldHasNoValueWhateverItsPlaceholder) {
  Field name(std::nullopt);
  name.placeholder = "Name";
  insertText(name, "a");
  EXPECT_EQ(name.value, "a");
  deleteLastCharacter(name);
  EXPECT_EQ(name.value, std::nullopt);
  EXPECT_EQ(name.placeholder, "Name");
}

TEST(TextInput, ASecureFieldShowsABulletForEachCharacterAndKeepsTheText) {
  Field secure(std::nullopt, ElementType::secureTextField);
  insertText(secure, "pä👍");
  EXPECT_EQ(secure.value, "•••");
  insertText(secure, "🏽");
  EXPECT_EQ(secure.value, "•••") << "the colour of the hand is no character of its own";
  EXPECT_EQ(secure.secret, "pä👍🏽");
  deleteLastCharacter(secure);
  EXPECT_EQ(secure.value, "••");
  EXPECT_EQ(secure.secret, "pä");
  deleteLastCharacter(secure);
  deleteLastCharacter(secure);
  EXPECT_EQ(secure.value, std::nullopt);
  EXPECT_EQ(secure.secret, "");
}

TEST(TextInput, TheBulletsOfACapturedSecureFieldAreItsCharacters) {
  Field secure("••••", ElementType::secureTextField);
  deleteLastCharacter(secure);
  EXPECT_EQ(secure.value, "•••");
  insertText(secure, "ab");
  EXPECT_EQ(secure.value, "•••••");
}

TEST(TextInput, ATextTakesThePlaceOfTheOneBefore) {
  Field name("Ada");
  setText(name, "Bob 👍🏽");
  EXPECT_EQ(name.value, "Bob 👍🏽");
  EXPECT_EQ(name.secret, "");
  setText(name, "");
  EXPECT_EQ(name.value, std::nullopt);
}

TEST(TextInput, TheTextOfASecureFieldIsKeptBehindBullets) {
  Field secure("••••", ElementType::secureTextField);
  setText(secure, "ä👍🏽");
  EXPECT_EQ(secure.value, "••");
  EXPECT_EQ(secure.secret, "ä👍🏽");
  insertText(secure, "b");
  EXPECT_EQ(secure.secret, "ä👍🏽b");
  setText(secure, "");
  EXPECT_EQ(secure.value, std::nullopt);
  EXPECT_EQ(secure.secret, "");
}

}  // namespace
}  // namespace quobrak::simulator
