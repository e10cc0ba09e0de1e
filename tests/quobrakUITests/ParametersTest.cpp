#include "quobrakUITests/Parameters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <vector>

#include "tests/quobrakUITests/RaisedErrors.h"

namespace quobrak {
namespace {

using Fields = std::vector<std::string_view>;

TEST(ParseInteger, Texts) {
  struct Row {
    std::string_view text;
    std::optional<std::int64_t> expected;
  };
  constexpr std::int64_t LARGEST = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t SMALLEST = std::numeric_limits<std::int64_t>::min();
  const Row ROWS[] = {
      {"0", 0},
      {"5000", 5000},
      {"007", 7},
      {"+5", 5},
      {"-5", -5},
      {"+0", 0},
      {"-0", 0},
      {"9223372036854775807", LARGEST},
      {"+9223372036854775807", LARGEST},
      {"-9223372036854775808", SMALLEST},
      {"9223372036854775808", std::nullopt},
      {"-9223372036854775809", std::nullopt},
      {"99999999999999999999999999", std::nullopt},
      {"", std::nullopt},
      {"+", std::nullopt},
      {"-", std::nullopt},
      {"+-5", std::nullopt},
      {"-+5", std::nullopt},
      {"++5", std::nullopt},
      {"--5", std::nullopt},
      {" 5", std::nullopt},
      {"5 ", std::nullopt},
      {"+ 5", std::nullopt},
      {"5\t", std::nullopt},
      {"1.0", std::nullopt},
      {"1e3", std::nullopt},
      {"1,000", std::nullopt},
      {"1_000", std::nullopt},
      {"0x10", std::nullopt},
      {"x", std::nullopt},
      {"٣", std::nullopt},
      {"１", std::nullopt},
      {std::string_view("5\0", 2), std::nullopt},
  };
  for (const auto& [text, expected] : ROWS) {
    EXPECT_EQ(parseInteger(text), expected) << '"' << text << '"';
  }
}

TEST(Parameters, Defaults) {
  EXPECT_EQ(DEFAULT_TIMEOUT_WAIT, 30000);
  EXPECT_EQ(DEFAULT_DURATION_LONG_CLICK, 1000);
  EXPECT_FALSE(DEFAULT_CLICK_ONLY_IF_EXISTS);
  EXPECT_EQ(DEFAULT_ENTER_TEXT_FREQUENCY, 0);
  EXPECT_EQ(DEFAULT_TIMEOUT_APP_DOWLOADING, 300000);
  EXPECT_EQ(DEFAULT_LOW_COORDINATE, 10);
  EXPECT_EQ(DEFAULT_MEDIUM_COORDINATE, 50);
  EXPECT_EQ(DEFAULT_HIGH_COORDINATE, 90);
  EXPECT_EQ(DEFAULT_MAX_SWIPE, 30);
  EXPECT_FALSE(DEFAULT_USE_BLANK_PAGE);
  EXPECT_EQ(WAIT_AND_CLICK_IF_EXISTS_TIMEOUT, 2000);
  EXPECT_EQ(WAIT_AND_CLICK_TIMEOUT, 10000);
  EXPECT_EQ(DEFAULT_NTH_ELEMENT, 1);
  EXPECT_TRUE(DEFAULT_IS_ENABLED);
}

/// What stands around the field in the message about a malformed one.
struct Wording {
  std::string before;
  std::string after;
};

struct IntegerGetter {
  std::function<std::int64_t(FunctionParameters, std::size_t)> get;
  /// None where the field is required.
  std::optional<std::int64_t> defaultValue;
  std::string missing;
  Wording malformed;
  bool allowsNegative;
};

std::vector<IntegerGetter> integerGetters() {
  const auto optionalCoordinate = [](FunctionParameters fields, std::size_t index) {
    return Parameters::getOptionalCoordinate(fields, index, 77);
  };
  return {
      {&Parameters::getTimeout, 30000, "", {"The timeout ", " should be an integer"}, true},
      {&Parameters::getDuration, 1000, "", {"The duration ", " should be an integer"}, true},
      {&Parameters::getPauseDuration,
       std::nullopt,
       "The pause duration is missing",
       {"The pause duration ", " should be a positive integer"},
       false},
      {&Parameters::getCoordinate,
       std::nullopt,
       "A coordinate is missing",
       {"The coordinate ", " should be an integer"},
       true},
      {optionalCoordinate, 77, "", {"The duration ", " should be an integer"}, true},
      {&Parameters::getPeriod, 0, "", {"The frequency ", " should be an integer"}, true},
      {&Parameters::getMaxSwipe, 30, "", {"The maximum of swipes ", " should be an integer"}, true},
      {&Parameters::getNthElement, 1, "", {"nthElement ", " should be an integer"}, true},
  };
}

TEST(Parameters, IntegersThatAreThere) {
  for (const IntegerGetter& getter : integerGetters()) {
    SCOPED_TRACE(getter.malformed.before);
    EXPECT_EQ(getter.get(Fields{"name", "42"}, 1), 42);
    EXPECT_EQ(getter.get(Fields{"name", "x", "+7", "y"}, 2), 7);
    EXPECT_EQ(getter.get(Fields{"name", "0"}, 1), 0);
    EXPECT_EQ(getter.get(Fields{"name", "9223372036854775807"}, 1), 9223372036854775807);
  }
}

TEST(Parameters, NegativeIntegers) {
  for (const IntegerGetter& getter : integerGetters()) {
    SCOPED_TRACE(getter.malformed.before);
    if (getter.allowsNegative) {
      EXPECT_EQ(getter.get(Fields{"name", "-1"}, 1), -1);
    } else {
      EXPECT_THAT(
          [&] {
            getter.get(Fields{"name", "-5"}, 1);
          },
          testing::raisesFdslError(getter.malformed.before + "-5" + getter.malformed.after));
      EXPECT_EQ(getter.get(Fields{"name", "-0"}, 1), 0);
    }
  }
}

TEST(Parameters, IntegersThatAreAbsent) {
  for (const IntegerGetter& getter : integerGetters()) {
    SCOPED_TRACE(getter.malformed.before);
    for (const Fields& fields : {Fields{"name"}, Fields{}}) {
      if (getter.defaultValue) {
        EXPECT_EQ(getter.get(fields, 1), *getter.defaultValue);
      } else {
        EXPECT_THAT([&] { getter.get(fields, 1); }, testing::raisesFdslError(getter.missing));
      }
    }
  }
}

TEST(Parameters, IntegersThatAreMalformed) {
  for (const IntegerGetter& getter : integerGetters()) {
    for (const std::string field : {"x", "", " 5000", "5000 ", "1.5", "9223372036854775808", "\"5\""}) {
      EXPECT_THAT(
          [&] {
            getter.get(Fields{"name", field}, 1);
          },
          testing::raisesFdslError(getter.malformed.before + field + getter.malformed.after));
    }
  }
}

struct TruthValueGetter {
  std::function<bool(FunctionParameters)> getFieldTwo;
  bool defaultValue;
  Wording malformed;
};

std::vector<TruthValueGetter> truthValueGetters() {
  constexpr std::size_t FIELD = 2;
  return {
      {&Parameters::getClickOnlyIfExists, false, {"The clickOnlyIfExists parameter ", " should be true or false"}},
      {[](FunctionParameters fields) { return Parameters::getUseBlankPage(fields, FIELD); },
       false,
       {"The use of the blank page ", " should be a boolean"}},
      {[](FunctionParameters fields) { return Parameters::getIsEnabled(fields, FIELD); },
       true,
       {"isEnabled ", " should be an boolean"}},
  };
}

TEST(Parameters, TruthValues) {
  for (const TruthValueGetter& getter : truthValueGetters()) {
    SCOPED_TRACE(getter.malformed.before);
    EXPECT_TRUE(getter.getFieldTwo(Fields{"name", "false", "true"}));
    EXPECT_FALSE(getter.getFieldTwo(Fields{"name", "true", "false", "true"}));
    EXPECT_EQ(getter.getFieldTwo(Fields{"name", "x"}), getter.defaultValue);
    EXPECT_EQ(getter.getFieldTwo(Fields{}), getter.defaultValue);
    for (const std::string field : {"TRUE", "True", "FALSE", "1", "0", "yes", "", " true", "false "}) {
      EXPECT_THAT(
          [&] {
            getter.getFieldTwo(Fields{"name", "x", field});
          },
          testing::raisesFdslError(getter.malformed.before + field + getter.malformed.after));
    }
  }
}

TEST(Parameters, IndexOfATruthValueIsTheCallers) {
  EXPECT_TRUE(Parameters::getUseBlankPage(Fields{"name", "true", "false"}, 1));
  EXPECT_FALSE(Parameters::getIsEnabled(Fields{"name", "x", "true", "false"}, 3));
}

TEST(Parameters, UrlIsAnyText) {
  EXPECT_EQ(Parameters::getUrl(Fields{"name", " https://example.com/?a=b "}, 1), " https://example.com/?a=b ");
  EXPECT_EQ(Parameters::getUrl(Fields{"name", ""}, 1), "");
  EXPECT_THAT([] { Parameters::getUrl(Fields{"name"}, 1); }, testing::raisesFdslError("The url should be given"));
}

TEST(Parameters, DefaultOfAnOptionalCoordinateIsTheCallers) {
  EXPECT_EQ(Parameters::getOptionalCoordinate(Fields{"swipeDownward", "20"}, 1, DEFAULT_MEDIUM_COORDINATE), 20);
  EXPECT_EQ(Parameters::getOptionalCoordinate(Fields{"swipeDownward", "20"}, 2, DEFAULT_HIGH_COORDINATE), 90);
  EXPECT_EQ(Parameters::getOptionalCoordinate(Fields{"swipeUpward"}, 2, DEFAULT_LOW_COORDINATE), 10);
}

}  // namespace
}  // namespace quobrak
