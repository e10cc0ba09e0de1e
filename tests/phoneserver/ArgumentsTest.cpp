#include "phoneserver/Arguments.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;

Arguments read(const std::string& json) {
  const JSONValue decoded = JSONDecoder::decode(json);
  return Arguments(std::get<JSONValue::Object>(decoded.variant()));
}

TEST(Arguments, AreReadByTheirKind) {
  const Arguments arguments = read(R"({"t": "text", "n": 2, "f": 0.5, "b": true, "o": {"a": 1}, "l": [1]})");
  EXPECT_EQ(arguments.text("t"), "text");
  EXPECT_EQ(arguments.number("n"), 2);
  EXPECT_EQ(arguments.number("f"), 0.5);
  EXPECT_EQ(arguments.optionalTruth("b"), true);
  EXPECT_EQ(arguments.optionalObject("o"), (JSONValue::Object{{"a", 1}}));
  EXPECT_EQ(arguments.optionalArray("l"), (JSONValue::Array{1}));
}

TEST(Arguments, NullIsAsGoodAsNothing) {
  const Arguments arguments = read(R"({"t": null})");
  EXPECT_FALSE(arguments.has("t"));
  EXPECT_EQ(arguments.optionalText("t"), std::nullopt);
  EXPECT_EQ(arguments.optionalText("other"), std::nullopt);
}

TEST(Arguments, TruthMayBeSentAsZeroAndOne) {
  EXPECT_EQ(read(R"({"b": 1})").optionalTruth("b"), true);
  EXPECT_EQ(read(R"({"b": 0})").optionalTruth("b"), false);
  EXPECT_EQ(errorOf([] { read(R"({"b": 2})").optionalTruth("b"); }), "invalid argument: \"b\" must be true or false");
}

TEST(Arguments, SayWhatIsMissingOrOfTheWrongKind) {
  const Arguments arguments = read(R"({"t": 1, "n": "1", "d": -1})");
  EXPECT_EQ(errorOf([&] { arguments.text("x"); }), "invalid argument: \"x\" is missing; it must be a text");
  EXPECT_EQ(errorOf([&] { arguments.text("t"); }), "invalid argument: \"t\" must be a text");
  EXPECT_EQ(errorOf([&] { arguments.number("x"); }), "invalid argument: \"x\" is missing; it must be a number");
  EXPECT_EQ(errorOf([&] { arguments.number("n"); }), "invalid argument: \"n\" must be a number");
  EXPECT_EQ(errorOf([&] { arguments.optionalObject("t"); }), "invalid argument: \"t\" must be an object");
  EXPECT_EQ(errorOf([&] { arguments.optionalArray("t"); }), "invalid argument: \"t\" must be a list");
  EXPECT_EQ(errorOf([&] { arguments.duration("d"); }),
            "invalid argument: \"d\" must be a number of seconds, 0 or more");
}

TEST(Arguments, ADurationIsInSeconds) {
  EXPECT_EQ(read(R"({"d": 1.5})").duration("d"), Seconds(1.5));
}

TEST(Arguments, APointHasBothItsNumbersOrNone) {
  EXPECT_EQ(read(R"({"x": 1, "y": 2.5})").optionalPoint("x", "y"), (Point{1, 2.5}));
  EXPECT_EQ(read("{}").optionalPoint("x", "y"), std::nullopt);
  EXPECT_EQ(errorOf([] { read(R"({"x": 1})").optionalPoint("x", "y"); }),
            "invalid argument: \"y\" is missing; it must be a number");
}

TEST(Arguments, TypedTextIsATextOrAListOfTexts) {
  EXPECT_EQ(read(R"({"value": ["a", "b", "日本"]})").typedText(), "ab日本");
  EXPECT_EQ(read(R"({"value": "ab"})").typedText(), "ab");
  EXPECT_EQ(read(R"({"text": "ab"})").typedText(), "ab");
  EXPECT_EQ(read(R"({"text": "no", "value": ["yes"]})").typedText(), "yes");
  EXPECT_EQ(errorOf([] { read("{}").typedText(); }),
            "invalid argument: \"value\" is missing; it must be a text or a list of texts");
  EXPECT_EQ(errorOf([] { read(R"({"text": [1]})").typedText(); }),
            "invalid argument: \"text\" must be a text or a list of texts");
  EXPECT_EQ(errorOf([] { read(R"({"value": 1})").typedText(); }),
            "invalid argument: \"value\" must be a text or a list of texts");
}

}  // namespace
}  // namespace quobrak::phoneserver
