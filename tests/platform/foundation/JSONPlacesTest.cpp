#include "platform/foundation/JSONPlaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/JSON.h"

namespace quobrak {
namespace {

using ::testing::IsEmpty;

std::string textOf(TextPlace place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column);
}

/// The place, as LINE:COLUMN, of the mark in the text.
std::string markedIn(std::string_view text, std::string_view mark) {
  const std::size_t offset = text.find(mark);
  return offset == std::string_view::npos ? "no " + std::string(mark) : textOf(placeInText(text, offset));
}

TEST(JSONPlaces, AMemberIsWhereItsKeyIsAndAnElementWhereItBegins) {
  constexpr std::string_view TEXT = R"(
{
  "name": "Größe 🙂", "size": {"width": 390, "height": 844},
  "list" : [1, [2,3] , {"a": true, "b": []}, null,
    "text"
  ],
  "empty": {}, "none": []
})";
  const std::pair<const char*, const char*> ROWS[] = {
      {"", "2:1"},
      {"name", "3:3"},
      {"size", "3:22"},
      {"size.width", "3:31"},
      {"size.height", "3:45"},
      {"list", "4:3"},
      {"list[0]", "4:13"},
      {"list[1]", "4:16"},
      {"list[1][0]", "4:17"},
      {"list[1][1]", "4:19"},
      {"list[2]", "4:24"},
      {"list[2].a", "4:25"},
      {"list[2].b", "4:36"},
      {"list[3]", "4:46"},
      {"list[4]", "5:5"},
      {"empty", "7:3"},
      {"none", "7:16"},
  };
  const JSONPlaces places(TEXT);
  for (const auto& [keyPath, place] : ROWS) {
    EXPECT_EQ(textOf(places.of(keyPath)), place) << keyPath;
  }
  EXPECT_THAT(places.repetitions(), IsEmpty());
}

TEST(JSONPlaces, ValuesWithNothingAroundOrBehindThem) {
  struct Row {
    std::string_view text;
    std::string_view keyPath;
    std::string place;
  };
  const Row ROWS[] = {
      {"1", "", "1:1"},
      {"  -1.5e3", "", "1:3"},
      {"\n\"a\"", "", "2:1"},
      {"true", "", "1:1"},
      {"[]", "", "1:1"},
      {"\t{ }", "", "1:2"},
      {"[1]", "[0]", "1:2"},
      {"[1,2]", "[0]", "1:2"},
      {"[1,2]", "[1]", "1:4"},
      {"[1 ,2 ]", "[1]", "1:5"},
      {"[1\n,\n2]", "[1]", "3:1"},
      {"[[1],2]", "[1]", "1:6"},
      {"[[1],2]", "[0][0]", "1:3"},
      {"[[],[],3]", "[1]", "1:5"},
      {"[[],[],3]", "[2]", "1:8"},
      {"[{},1]", "[1]", "1:5"},
      {"[[[1]],[2]]", "[1][0]", "1:9"},
      {R"({"a":1,"b":2})", "a", "1:2"},
      {R"({"a":1,"b":2})", "b", "1:8"},
      {R"({"a":{"b":{"c":-0.5}},"d":null})", "a.b.c", "1:12"},
      {R"({"a":{"b":{"c":-0.5}},"d":null})", "d", "1:23"},
      {R"({"a":[1,{"b":2}],"c":3})", "a[1].b", "1:10"},
      {R"({"a":[1,{"b":2}],"c":3})", "c", "1:18"},
      {"[true,false,null,1]", "[1]", "1:7"},
      {"[true,false,null,1]", "[3]", "1:18"},
      {R"( { "a" : 1 } )", "a", "1:4"},
      {"\xEF\xBB\xBF[1, 2]", "[1]", "1:6"},
  };
  for (const auto& [text, keyPath, place] : ROWS) {
    EXPECT_EQ(textOf(JSONPlaces(text).of(keyPath)), place) << text << " " << keyPath;
  }
}

TEST(JSONPlaces, TextsMayHoldWhatSeparatesValuesElsewhere) {
  constexpr std::string_view TEXT = R"(["a,b", "{[:]}", "\"", "\\", ",\",", {"k\"e,y": "1:2", "[0]": [ "x" ]}, "end"])";
  const JSONPlaces places(TEXT);
  EXPECT_EQ(textOf(places.of("[1]")), markedIn(TEXT, "\"{[:]}"));
  EXPECT_EQ(textOf(places.of("[2]")), markedIn(TEXT, R"("\"")"));
  EXPECT_EQ(textOf(places.of("[3]")), markedIn(TEXT, R"("\\")"));
  EXPECT_EQ(textOf(places.of("[4]")), markedIn(TEXT, R"(",\",")"));
  EXPECT_EQ(textOf(places.of("[5]")), markedIn(TEXT, "{\"k"));
  EXPECT_EQ(textOf(places.of("[5].k\"e,y")), markedIn(TEXT, "\"k\\"));
  EXPECT_EQ(textOf(places.of("[5].[0]")), markedIn(TEXT, "\"[0]\""));
  EXPECT_EQ(textOf(places.of("[5].[0][0]")), markedIn(TEXT, "\"x\""));
  EXPECT_EQ(textOf(places.of("[6]")), markedIn(TEXT, "\"end"));
}

TEST(JSONPlaces, KeysWithDotsAndWithoutCharacters) {
  constexpr std::string_view TEXT = R"({"shop.basket": "1", "": {"": 2}, "a.b": {"c.d": [3]}})";
  const JSONPlaces places(TEXT);
  EXPECT_EQ(textOf(places.of("shop.basket")), markedIn(TEXT, "\"shop"));
  EXPECT_EQ(textOf(places.of("")), "1:1");
  EXPECT_EQ(textOf(places.of("\"\"")), markedIn(TEXT, "\"\": {"));
  EXPECT_EQ(textOf(places.of("\"\".\"\"")), markedIn(TEXT, "\"\": 2"));
  EXPECT_EQ(textOf(places.of("a.b.c.d[0]")), markedIn(TEXT, "3]"));
}

TEST(JSONPlaces, WhatIsNotThereHasThePlaceThatItWouldBeIn) {
  const JSONPlaces places(R"({"a": {"b": [1, {"c": 2}]}, "d": 3})");
  EXPECT_EQ(textOf(places.of("x")), "1:1");
  EXPECT_EQ(textOf(places.of("x.y[0].z")), "1:1");
  EXPECT_EQ(textOf(places.of("a.x")), "1:2");
  EXPECT_EQ(textOf(places.of("a.b[7]")), "1:8");
  EXPECT_EQ(textOf(places.of("a.b[1].x")), "1:17");
  EXPECT_EQ(textOf(places.of("a.b[1].c.x")), "1:18");
}

TEST(JSONPlaces, MembersThatStandTwice) {
  constexpr std::string_view TEXT = R"({"a": 1, "b": {"a": 2,
  "c": {"x": 1}, "a": 3, "c": {"y": [5]}, "a": 4},
  "a": {"b": 1}})";
  const JSONPlaces places(TEXT);
  std::vector<std::pair<std::string, std::string>> found;
  for (const JSONPlaces::Repetition& repetition : places.repetitions()) {
    found.emplace_back(repetition.keyPath, textOf(repetition.place));
  }
  EXPECT_THAT(found, ::testing::ElementsAre(std::pair("b.a", "2:18"), std::pair("b.c", "2:26"),
                                            std::pair("b.a", "2:43"), std::pair("a", "3:3")));
  EXPECT_EQ(textOf(places.of("a")), "3:3") << "the last one counts";
  EXPECT_EQ(textOf(places.of("b.a")), "2:43");
  EXPECT_EQ(textOf(places.of("b.c.y[0]")), "2:38");
  EXPECT_EQ(textOf(places.of("b.c.x")), "2:26") << "is not in the last one";
}

TEST(JSONPlaces, MembersOfTheSameNameInOtherObjectsAreNoRepetition) {
  EXPECT_THAT(JSONPlaces(R"({"a": {"a": 1}, "b": [{"a": 1}, {"a": 2}]})").repetitions(), IsEmpty());
}

TEST(JSONPlaces, ANameLikeThatOfARepeatedMemberKeepsItsPlace) {
  const JSONPlaces places(R"({"a": {"x": 1}, "ab": {"x": 2}, "a": {}})");
  EXPECT_EQ(textOf(places.of("ab.x")), "1:24");
  EXPECT_EQ(textOf(places.of("a.x")), "1:33");
}

TEST(JSONPlaces, OfATextWithAFaultThePlacesBeforeItAreKnown) {
  struct Row {
    std::string_view text;
    std::string_view keyPath;
    std::string place;
  };
  const Row ROWS[] = {
      {"", "", "1:1"},
      {R"({"a": 1, "b": 1e999, "c": 2})", "b", "1:10"},
      {R"({"a": 1, "b": [99999999999999999999]})", "b[0]", "1:16"},
      {R"({"a": [1, 2)", "a[1]", "1:11"},
      {R"({"a": 1, "b)", "b", "1:1"},
  };
  for (const auto& [text, keyPath, place] : ROWS) {
    EXPECT_EQ(textOf(JSONPlaces(text).of(keyPath)), place) << text;
  }
}

TEST(JSONPlaces, GoesAsDeepAsTheDecoderAndNoDeeper) {
  const auto nested = [](std::size_t levels) { return std::string(levels, '[') + "1" + std::string(levels, ']'); };
  const auto keyPath = [](std::size_t levels) {
    std::string path;
    for (std::size_t level = 0; level < levels; ++level) {
      path += "[0]";
    }
    return path;
  };
  const std::size_t deepest = JSONDecoder::MAXIMUM_NESTING;
  const std::string deep = nested(deepest);
  EXPECT_EQ(textOf(JSONPlaces(deep).of(keyPath(deepest))), "1:" + std::to_string(deepest + 1));
  const std::string tooDeep = nested(200'000);
  EXPECT_EQ(textOf(JSONPlaces(tooDeep).of(keyPath(deepest + 1))), "1:" + std::to_string(deepest));
}

/// A JSON text, made at random and with blanks and newlines wherever they may be, and what it holds where.
class GeneratedJSON {
 public:
  explicit GeneratedJSON(std::uint32_t seed) : random_(seed) { value("", 0); }

  const std::string& text() const { return text_; }
  /// The key paths, and the offsets at which they were written.
  const std::vector<std::pair<std::string, std::size_t>>& offsets() const { return offsets_; }

 private:
  std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_()) % limit; }

  void blanks() {
    constexpr std::string_view BLANKS[] = {"", "", " ", "\n", "\t ", "\r\n  ", "\n\n"};
    text_ += BLANKS[below(std::size(BLANKS))];
  }

  /// A text of JSON without its quotes.
  std::string characters() {
    constexpr std::string_view PIECES[] = {"a",    ",",    "[",   "]",       "{", "}",    ":", " ",
                                           "\\\"", "\\\\", "\\n", "\\u00e9", "é", "🙂", "1", "/"};
    std::string characters;
    for (std::uint32_t count = below(6); count > 0; --count) {
      characters += PIECES[below(std::size(PIECES))];
    }
    return characters;
  }

  void value(const std::string& keyPath, int depth) {
    constexpr int DEEPEST = 5;
    constexpr std::string_view SCALARS[] = {"1", "-0.5", "12e3", "true", "false", "null", "0"};
    const std::uint32_t kind = depth == 0 ? 2 + below(2) : below(depth < DEEPEST ? 4 : 2);
    if (kind == 0) {
      text_ += SCALARS[below(std::size(SCALARS))];
    } else if (kind == 1) {
      text_ += '"' + characters() + '"';
    } else if (kind == 2) {
      array(keyPath, depth);
    } else {
      object(keyPath, depth);
    }
  }

  void array(const std::string& keyPath, int depth) {
    text_ += '[';
    blanks();
    const std::uint32_t size = below(5);
    for (std::uint32_t index = 0; index < size; ++index) {
      text_ += index == 0 ? "" : ",";
      blanks();
      const std::string element = keyPathOfElement(keyPath, index);
      offsets_.emplace_back(element, text_.size());
      value(element, depth + 1);
      blanks();
    }
    text_ += ']';
  }

  void object(const std::string& keyPath, int depth) {
    text_ += '{';
    blanks();
    const std::uint32_t size = below(5);
    for (std::uint32_t index = 0; index < size; ++index) {
      text_ += index == 0 ? "" : ",";
      blanks();
      const std::string key = "k" + std::to_string(++lastKey_);
      const std::string member = keyPathOfMember(keyPath, key);
      offsets_.emplace_back(member, text_.size());
      text_ += '"' + key + '"';
      blanks();
      text_ += ':';
      blanks();
      value(member, depth + 1);
      blanks();
    }
    text_ += '}';
  }

  std::mt19937 random_;
  std::string text_;
  std::vector<std::pair<std::string, std::size_t>> offsets_;
  int lastKey_ = 0;
};

TEST(JSONPlaces, OfGeneratedTextsEveryPlaceIsWhereItWasWritten) {
  std::size_t checked = 0;
  for (std::uint32_t seed = 0; seed < 2000; ++seed) {
    const GeneratedJSON json(seed);
    ASSERT_NO_THROW(JSONDecoder::decode(json.text())) << json.text();
    const JSONPlaces places(json.text());
    for (const auto& [keyPath, offset] : json.offsets()) {
      ASSERT_EQ(textOf(places.of(keyPath)), textOf(placeInText(json.text(), offset))) << keyPath << "\n" << json.text();
      ++checked;
    }
    ASSERT_THAT(places.repetitions(), IsEmpty());
  }
  EXPECT_GT(checked, 5000U);
}

}  // namespace
}  // namespace quobrak
