#include "drivers/simulator/TextColumn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TextColumn columnOf(std::initializer_list<std::string_view> texts) {
  TextColumn column;
  for (const std::string_view text : texts) {
    column.append(text);
  }
  return column;
}

TextColumn foldedColumnOf(std::initializer_list<std::string_view> texts) {
  TextColumn column;
  for (const std::string_view text : texts) {
    column.append(caseFolded(text));
  }
  return column;
}

std::vector<std::size_t> placesOf(const PlaceSet& set) {
  std::vector<std::size_t> places;
  set.forEach([&places](std::size_t place) { places.push_back(place); });
  return places;
}

TEST(TextColumn, KeepsTextsAndMissingValuesApart) {
  TextColumn column = columnOf({"one", ""});
  column.appendMissing();
  column.append("four");
  ASSERT_EQ(column.size(), 4);
  EXPECT_EQ(column.text(0), "one");
  EXPECT_EQ(column.text(1), "");
  EXPECT_EQ(column.text(2), "");
  EXPECT_EQ(column.text(3), "four");
  EXPECT_FALSE(column.isMissing(1));
  EXPECT_TRUE(column.isMissing(2));
  EXPECT_FALSE(column.isMissing(3));
}

TEST(TextColumn, FindsTextsThatContainANeedle) {
  const TextColumn column = columnOf({"banana", "", "ana", "an", "a", "bandana", "nana"});
  EXPECT_THAT(placesOf(column.containing("ana")), ElementsAre(0, 2, 5, 6));
  EXPECT_THAT(placesOf(column.containing("a")), ElementsAre(0, 2, 3, 4, 5, 6));
  EXPECT_THAT(placesOf(column.containing("banana")), ElementsAre(0));
  EXPECT_THAT(placesOf(column.containing("ANA")), IsEmpty());
  EXPECT_THAT(placesOf(column.containing("")), IsEmpty());
}

TEST(TextColumn, FindsNothingAcrossTheBorderOfTwoTexts) {
  EXPECT_THAT(placesOf(columnOf({"ab", "c", "abc"}).containing("abc")), ElementsAre(2));
  EXPECT_THAT(placesOf(columnOf({"aa", "a", "aaa"}).containing("aaa")), ElementsAre(2));
  EXPECT_THAT(placesOf(columnOf({"x", "", "", "y"}).containing("xy")), IsEmpty());
}

TEST(TextColumn, NothingIsFoundWhereThereIsNoText) {
  TextColumn column;
  EXPECT_THAT(placesOf(column.containing("a")), IsEmpty());
  EXPECT_THAT(placesOf(column.equalTo("")), IsEmpty());
  column.appendMissing();
  EXPECT_THAT(placesOf(column.containing("a")), IsEmpty());
  EXPECT_THAT(placesOf(column.equalTo("")), IsEmpty());
}

TEST(TextColumn, NULBytesAreCharactersLikeOthers) {
  using namespace std::string_view_literals;
  const TextColumn column = columnOf({"a\0b"sv, "a", "\0"sv});
  EXPECT_THAT(placesOf(column.containing("\0"sv)), ElementsAre(0, 2));
  EXPECT_THAT(placesOf(column.containing("\0b"sv)), ElementsAre(0));
  EXPECT_THAT(placesOf(column.equalTo("\0"sv)), ElementsAre(2));
}

TEST(TextColumn, AFoldedTextContainsTheNeedleBetweenWholeCharacters) {
  const TextColumn column = foldedColumnOf({"x", "İstanbul", "Straße", "STRASSE", "iİ", "ıi"});
  EXPECT_THAT(placesOf(column.containing("i")), ElementsAre(4, 5));
  EXPECT_THAT(placesOf(column.containing("stan")), ElementsAre(1));
  EXPECT_THAT(placesOf(column.containing("ss")), ElementsAre(2, 3));
  EXPECT_THAT(placesOf(column.containing("s")), ElementsAre(1, 2, 3));
  EXPECT_THAT(placesOf(column.containing("stras")), ElementsAre(3));
  EXPECT_THAT(placesOf(column.containing("se")), ElementsAre(3));
  EXPECT_THAT(placesOf(column.containing(caseFolded("İ").text)), ElementsAre(1, 4));
}

TEST(TextColumn, FindsTextsThatEqualAnother) {
  TextColumn column = columnOf({"ab", "", "abc", "ab"});
  column.appendMissing();
  EXPECT_THAT(placesOf(column.equalTo("ab")), ElementsAre(0, 3));
  EXPECT_THAT(placesOf(column.equalTo("")), ElementsAre(1));
  EXPECT_THAT(placesOf(column.equalTo("aba")), IsEmpty());
}

TEST(TextColumn, ALongNeedleIsFoundInLongTexts) {
  const std::string needle(1000, 'a');
  const std::string shorter(999, 'a');
  const TextColumn column = columnOf({shorter, needle + needle, shorter, "b" + needle, shorter});
  EXPECT_THAT(placesOf(column.containing(needle)), ElementsAre(1, 3));
}

}  // namespace
}  // namespace quobrak::simulator
