#include "platform/foundation/JSON.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

namespace quobrak {
namespace {

using Array = JSONValue::Array;
using Object = JSONValue::Object;
using testing::ThrowsMessage;
using namespace std::string_literals;

std::string nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

template <typename Error>
auto raises(const std::string& message) {
  return ThrowsMessage<Error>(message);
}

TEST(JSONEncoder, Values) {
  struct Row {
    JSONValue value;
    std::string_view expected;
  };
  const Row ROWS[] = {
      {{}, "null"},
      {true, "true"},
      {false, "false"},
      {0, "0"},
      {-7, "-7"},
      {std::numeric_limits<std::int64_t>::max(), "9223372036854775807"},
      {std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
      {0.5, "0.5"},
      {-1.25, "-1.25"},
      {0.1, "0.1"},
      {"", R"("")"},
      {"Grüße 🙂", R"("Grüße 🙂")"},
      {Array(), "[]"},
      {Object(), "{}"},
      {Array{1, "a", JSONValue(), Array{false}}, R"([1,"a",null,[false]])"},
  };
  for (const auto& [value, expected] : ROWS) {
    EXPECT_EQ(JSONEncoder::encode(value), expected);
  }
}

TEST(JSONEncoder, CharactersOfTexts) {
  struct Row {
    std::string text;
    std::string_view expected;
  };
  const Row ROWS[] = {
      {"\"", R"("\"")"},      {"\\", R"("\\")"},
      {"/", R"("\/")"},       {"\\/", R"("\\\/")"},
      {"//", R"("\/\/")"},    {"\b\f\n\r\t", R"("\b\f\n\r\t")"},
      {"\0"s, R"("\u0000")"}, {"\x01\x1F", R"("\u0001\u001f")"},
      {"\x7F", "\"\x7F\""},   {"\u0085\u2028\u2029", "\"\u0085\u2028\u2029\""},
      {"'<&>", R"("'<&>")"},
  };
  for (const auto& [text, expected] : ROWS) {
    EXPECT_EQ(JSONEncoder::encode(text), expected);
  }
}

TEST(JSONEncoder, KeysAscendByBytesAtEveryLevel) {
  const Object inner = {{"b", 1}, {"a", 2}, {"B", 3}};
  const Object document = {{"é", 1}, {"z", Array{inner}}, {"a/b", inner}, {"10", 4}, {"9", 5}, {"", 6}};
  EXPECT_EQ(JSONEncoder::encode(document),
            R"({"":6,"10":4,"9":5,"a\/b":{"B":3,"a":2,"b":1},"z":[{"B":3,"a":2,"b":1}],"é":1})");
}

TEST(JSONEncoder, NumbersThatAreNotFiniteAreRefused) {
  using Limits = std::numeric_limits<double>;
  for (const double number : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
    EXPECT_THAT([=] { JSONEncoder::encode(Array{number}); },
                raises<std::runtime_error>("JSON has no number that is not finite."));
  }
}

TEST(JSONEncoder, TextsAndKeysThatAreNotUTF8AreRefused) {
  const JSONValue DOCUMENTS[] = {"\xFF", "\xC3", "\xED\xA0\x80", Array{"a", "\xC0\x80"}, Object{{"\xFE", 1}}};
  for (const JSONValue& document : DOCUMENTS) {
    EXPECT_THAT([&] { JSONEncoder::encode(document); },
                raises<std::runtime_error>("A text to be written as JSON is not UTF-8."));
  }
}

TEST(JSONDecoder, Values) {
  struct Row {
    std::string_view text;
    JSONValue expected;
  };
  const Row ROWS[] = {
      {"null", {}},
      {"true", true},
      {" false\n", false},
      {"0", 0},
      {"-0", 0},
      {"-7", -7},
      {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
      {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
      {"2.0", 2.0},
      {"1e3", 1000.0},
      {"9223372036854775808.0", 9223372036854775808.0},
      {R"("")", ""},
      {R"("a\/b/c\"\\\u00e9\ud83d\ude42é🙂")", "a/b/c\"\\é🙂é🙂"},
      {R"("\u0000")", "\0"s},
      {"[]", Array()},
      {"{}", Object()},
      {R"([1,[2,{"a":[]}],3])", Array{1, Array{2, Object{{"a", Array()}}}, 3}},
      {R"({"a":{"b":1},"c":[true]})", Object{{"a", Object{{"b", 1}}}, {"c", Array{true}}}},
      {R"({"a":1,"b":2,"a":3})", Object{{"a", 3}, {"b", 2}}},
  };
  for (const auto& [text, expected] : ROWS) {
    EXPECT_EQ(JSONDecoder::decode(text), expected) << text;
  }
}

constexpr std::string_view A_VALUE =
    "; expected a value: a text in double quotes, a number, true, false, null, an array or an object";

TEST(JSONDecoder, TextsThatAreNotJSON) {
  struct Row {
    std::string text;
    std::string expected;
  };
  const std::string value(A_VALUE);
  const Row ROWS[] = {
      {"", "line 1, column 1: the text ends too early" + value},
      {"\n\n ", "line 3, column 2: the text ends too early" + value},
      {"[1,", "line 1, column 4: the text ends too early" + value},
      {"[1", "line 1, column 3: the text ends too early; expected ',' or ']'"},
      {"{", "line 1, column 2: the text ends too early; expected a key in double quotes"},
      {"{\"a\"", "line 1, column 5: the text ends too early; expected ':'"},
      {"{\"a\":\n{\"b\":1}\n", "line 3, column 1: the text ends too early; expected ',' or '}'"},
      {"\"abc", "line 1, column 5: the text ends too early: invalid string: missing closing quote"},
      {"-", "line 1, column 2: the text ends too early: invalid number; expected digit after '-'"},
      {"tru", "line 1, column 4: the text ends too early" + value},
      {"[1,]", "line 1, column 4: unexpected character" + value},
      {"[,1]", "line 1, column 2: unexpected character" + value},
      {"]", "line 1, column 1: unexpected character" + value},
      {"{\"a\":1,}", "line 1, column 8: unexpected character; expected a key in double quotes"},
      {"{name: 1}", "line 1, column 3: unexpected character; expected a key in double quotes"},
      {"{\"é🙂\" 1}", "line 1, column 7: unexpected character; expected ':'"},
      {"[\n  1\n  2\n]", "line 3, column 3: unexpected character; expected ',' or ']'"},
      {"[1}", "line 1, column 3: unexpected character; expected ',' or ']'"},
      {"{\"a\":1]", "line 1, column 7: unexpected character; expected ',' or '}'"},
      {"nul]", "line 1, column 4: unexpected character" + value},
      {"NaN", "line 1, column 1: unexpected character" + value},
      {"'a'", "line 1, column 1: unexpected character" + value},
      {"[1] // note", "line 1, column 5: unexpected character; expected the end of the text"},
      {"1 x", "line 1, column 3: unexpected character; expected the end of the text"},
      {"[01]", "line 1, column 3: unexpected character; expected ',' or ']'"},
      {"[1.]", "line 1, column 4: unexpected character: invalid number; expected digit after '.'"},
      {"\"a\nb\"",
       "line 1, column 3: unexpected character: invalid string: control character U+000A (LF) must be escaped to "
       "\\u000A or \\n"},
      {"\"\\x\"", "line 1, column 3: unexpected character: invalid string: forbidden character after backslash"},
      {"\"\xFF\"", "line 1, column 2: unexpected character: invalid string: ill-formed UTF-8 byte"},
      {"[1]\0"s, "line 1, column 4: unexpected character; expected the end of the text"},
      {"[1]\n\0[2]"s, "line 2, column 1: unexpected character; expected the end of the text"},
      {"[1\0]"s, "line 1, column 3: unexpected character; expected ',' or ']'"},
  };
  for (const auto& [text, expected] : ROWS) {
    EXPECT_THAT([&text = text] { JSONDecoder::decode(text); }, raises<DecodingError>(expected)) << text;
  }
}

TEST(JSONDecoder, APlaceIsWhereTheUnexpectedTextNumberOrWordBegins) {
  struct Row {
    std::string text;
    std::size_t column;
  };
  const Row ROWS[] = {
      {R"({"a":1 "other": 2})", 8},
      {R"({"a":"1" "é\"": 2})", 10},
      {"[1 -23.5e7]", 4},
      {"[1 true]", 4},
      {"[\"true\" false]", 9},
      {"[null null]", 7},
      {"[1 22", 4},
      {R"({"a" "b"})", 6},
      {R"([1 "x"])", 4},
      {"{true}", 2},
      {"[1] [2]", 5},
      {R"({"a":1 {)", 8},
      {"[1,2 \"a,]}\"]", 6},
      {"{1:2}", 2},
      {"[1 tru]", 7},
  };
  for (const auto& [text, column] : ROWS) {
    try {
      JSONDecoder::decode(text);
      ADD_FAILURE() << text << " was read";
    } catch (const DecodingError& error) {
      ASSERT_TRUE(std::holds_alternative<TextPlace>(error.place())) << text;
      EXPECT_EQ(std::get<TextPlace>(error.place()), (TextPlace{.line = 1, .column = column})) << text << error.what();
    }
  }
}

TEST(JSONDecoder, NoWordOfTheTextIsTakenForOneOfTheParsers) {
  EXPECT_THAT(
      [] { JSONDecoder::decode("[\"; expected end of input"); },
      raises<DecodingError>("line 1, column 26: the text ends too early: invalid string: missing closing quote"));
  EXPECT_THAT([] { JSONDecoder::decode("[\" - ; last read: '\" 1]"); },
              raises<DecodingError>("line 1, column 22: unexpected character; expected ',' or ']'"));
}

TEST(JSONDecoder, NumbersBeyondTheirRange) {
  struct Row {
    std::string text;
    std::string expected;
  };
  const Row ROWS[] = {
      {"9223372036854775808", "the document: the number is too large"},
      {"-9223372036854775809", "the document: the number is too large"},
      {"[0,18446744073709551616]", "[1]: the number is too large"},
      {R"({"a":1,"measures":[[],[{"time":123456789012345678901234567890}]]})",
       "measures[1][0].time: the number is too large"},
      {R"({"a":[1e999]})", "a[0]: the number is too large"},
      {R"({"a\u0000":{"b":1e999}})", R"("a\u0000".b: the number is too large)"},
      {"[" + std::string(400, '9') + "]", "[0]: the number is too large"},
  };
  for (const auto& [text, expected] : ROWS) {
    EXPECT_THAT([&text = text] { JSONDecoder::decode(text); }, raises<DecodingError>(expected)) << text;
  }
}

TEST(JSONDecoder, FiveHundredLevelsAreRead) {
  EXPECT_EQ(JSONEncoder::encode(JSONDecoder::decode(nested(500))), nested(500));
}

TEST(JSONDecoder, DeeperLevelsAreRefused) {
  const std::string TEXTS[] = {nested(501), nested(1'000'000), std::string(501, '['), nested(500).insert(500, "{}")};
  for (const std::string& text : TEXTS) {
    EXPECT_THAT([&] { JSONDecoder::decode(text); },
                raises<DecodingError>("the document: nested deeper than 500 levels"));
  }
}

TEST(JSONDecoder, WhatWasEncodedComesBack) {
  const JSONValue document = Object{
      {"a/b", Array{JSONValue(), true, -1, 0.1, 1e300, "\n\0🙂"s}},
      {"", Object{{"é", Object()}}},
  };
  EXPECT_EQ(JSONDecoder::decode(JSONEncoder::encode(document)), document);
}

TEST(JSONReader, ReadsARecord) {
  const JSONValue document = JSONDecoder::decode(R"({"status":"passed","measures":[[{"time":3}],[{"time":4.0}]]})");
  const JSONReader reader(document);
  EXPECT_EQ(reader.member("status").text(), "passed");
  const auto measures = reader.member("measures").elements();
  ASSERT_EQ(measures.size(), 2U);
  EXPECT_EQ(measures[0].elements().at(0).member("time").integer(), 3);
  EXPECT_EQ(measures[1].elements().at(0).member("time").integer(), 4);
}

TEST(JSONReader, ReadsTheMembersOfAnObjectWithTheirKeys) {
  const JSONValue document = Object{{"b", "two"}, {"a", "one"}};
  const auto members = JSONReader(document).members();
  ASSERT_EQ(members.size(), 2U);
  EXPECT_EQ(members[0].first, "a");
  EXPECT_EQ(members[0].second.text(), "one");
  EXPECT_EQ(members[1].first, "b");
  EXPECT_EQ(members[1].second.text(), "two");
}

TEST(JSONReader, AMemberThatMayBeMissing) {
  const JSONValue document = Object{{"outer", Object{{"a", JSONValue()}}}};
  const JSONReader outer = JSONReader(document).member("outer");
  EXPECT_FALSE(outer.optionalMember("b").has_value());
  ASSERT_TRUE(outer.optionalMember("a").has_value());
  EXPECT_THAT([&] { outer.optionalMember("a")->text(); },
              raises<DecodingError>("outer.a: expected a text, found null"));
}

TEST(JSONReader, KindsThatMayStandInOnePlace) {
  const JSONValue VALUES[] = {{}, true, 1, 1.5, "1", Array{}, Object{}};
  std::string nulls;
  std::string texts;
  std::string objects;
  for (const JSONValue& value : VALUES) {
    nulls += JSONReader(value).isNull() ? "1" : "0";
    texts += JSONReader(value).isText() ? "1" : "0";
    objects += JSONReader(value).isObject() ? "1" : "0";
  }
  EXPECT_EQ(nulls, "1000000");
  EXPECT_EQ(texts, "0000100");
  EXPECT_EQ(objects, "0000001");
}

TEST(JSONReader, NumbersAndTruthValues) {
  const JSONValue document = Array{7, -0.5, true, false};
  const auto elements = JSONReader(document).elements();
  EXPECT_EQ(elements[0].number(), 7.0);
  EXPECT_EQ(elements[1].number(), -0.5);
  EXPECT_TRUE(elements[2].truthValue());
  EXPECT_FALSE(elements[3].truthValue());
}

TEST(JSONReader, KnowsItsKeyPath) {
  const JSONValue document = JSONDecoder::decode(R"({"a":[{"b.c":1,"":{"":2}}],"":3})");
  const JSONReader reader(document);
  EXPECT_EQ(reader.keyPath(), "");
  const JSONReader inner = reader.member("a").elements().at(0);
  EXPECT_EQ(inner.keyPath(), "a[0]");
  EXPECT_EQ(inner.member("b.c").keyPath(), "a[0].b.c");
  EXPECT_EQ(inner.optionalMember("")->member("").keyPath(), "a[0].\"\".\"\"");
  EXPECT_EQ(reader.members().at(0).second.keyPath(), "\"\"") << "the key that is empty, and not the document";
}

TEST(JSONReader, AReasonOfTheCallersIsGivenThePlace) {
  const JSONValue document = Object{{"status", Array{"blue"}}};
  const JSONReader reader(document);
  EXPECT_THAT([&] { reader.member("status").elements().at(0).fail("no status is called blue"); },
              raises<DecodingError>("status[0]: no status is called blue"));
  try {
    reader.member("status").fail("too many");
  } catch (const DecodingError& error) {
    EXPECT_EQ(std::get<std::string>(error.place()), "status");
    EXPECT_EQ(error.reason(), "too many");
  }
  EXPECT_THAT([&] { reader.fail("too old"); }, raises<DecodingError>("the document: too old"));
}

TEST(JSONReader, WholeNumbers) {
  struct Row {
    JSONValue value;
    std::int64_t expected;
  };
  const Row ROWS[] = {
      {0, 0},
      {-5, -5},
      {2.0, 2},
      {-0.0, 0},
      {-9223372036854775808.0, std::numeric_limits<std::int64_t>::min()},
      {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::max()},
  };
  for (const auto& [value, expected] : ROWS) {
    EXPECT_EQ(JSONReader(value).integer(), expected);
  }
}

TEST(JSONReader, NumbersThatAreNoWholeOnes) {
  for (const double number : {2.5, -0.1, 9223372036854775808.0, -9223372036854777856.0, 1e300}) {
    const JSONValue document = number;
    EXPECT_THAT([&] { JSONReader(document).integer(); },
                raises<DecodingError>("the document: expected a whole number, found a number"));
  }
}

TEST(JSONReader, NamesTheKindThatStandsThere) {
  struct Row {
    JSONValue value;
    std::string kind;
  };
  const Row ROWS[] = {
      {{}, "null"},    {true, "a truth value"}, {1, "a number"},         {1.5, "a number"},
      {"1", "a text"}, {Array{1}, "an array"},  {Object{}, "an object"},
  };
  for (const auto& [value, kind] : ROWS) {
    const JSONReader reader(value);
    const auto found = [&kind = kind](const std::string& expected) {
      return raises<DecodingError>("the document: expected " + expected + ", found " + kind);
    };
    if (kind != "a text") {
      EXPECT_THAT([&] { reader.text(); }, found("a text"));
    }
    if (kind != "an array") {
      EXPECT_THAT([&] { reader.elements(); }, found("an array"));
    }
    if (kind != "an object") {
      EXPECT_THAT([&] { reader.member("a"); }, found("an object"));
      EXPECT_THAT([&] { reader.optionalMember("a"); }, found("an object"));
      EXPECT_THAT([&] { reader.members(); }, found("an object"));
    }
    if (kind != "a number") {
      EXPECT_THAT([&] { reader.integer(); }, found("a whole number"));
      EXPECT_THAT([&] { reader.number(); }, found("a number"));
    }
    if (kind != "a truth value") {
      EXPECT_THAT([&] { reader.truthValue(); }, found("true or false"));
    }
  }
}

TEST(JSONReader, NamesThePlace) {
  const JSONValue document = JSONDecoder::decode(R"({"measures":[[{},{"time":"3"}]]})");
  const JSONReader reader(document);
  const JSONReader row = reader.member("measures").elements().at(0);
  EXPECT_THAT([&] { row.elements().at(1).member("time").integer(); },
              raises<DecodingError>("measures[0][1].time: expected a whole number, found a text"));
  EXPECT_THAT([&] { row.elements().at(0).member("time"); }, raises<DecodingError>("measures[0][0].time: missing"));
  EXPECT_THAT([&] { reader.member("status"); }, raises<DecodingError>("status: missing"));
  EXPECT_THAT([&] { reader.member("a\nb"); }, raises<DecodingError>(R"("a\nb": missing)"));
  EXPECT_THAT([&] { reader.members().at(0).second.text(); },
              raises<DecodingError>("measures: expected a text, found an array"));
}

}  // namespace
}  // namespace quobrak
