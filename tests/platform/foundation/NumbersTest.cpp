#include "platform/foundation/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string_view>

namespace quobrak {
namespace {

using namespace std::string_view_literals;

constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(ParseDouble, WholeTextsThatAreNumbers) {
  struct Row {
    std::string_view text;
    double number;
  };
  constexpr Row ROWS[] = {
      {"0", 0},
      {"187.5", 187.5},
      {"406", 406},
      {"+5", 5},
      {"-5", -5},
      {"-0.25", -0.25},
      {"007", 7},
      {".5", 0.5},
      {"5.", 5},
      {"1e3", 1000},
      {"1E+3", 1000},
      {"-2.5e-1", -0.25},
      {"0x1F", 31},
      {"-0X1.8p1", -3},
      {"inf", INFINITE},
      {"-Infinity", -INFINITE},
      {"+INF", INFINITE},
      {"1e999", INFINITE},
      {"-1e999", -INFINITE},
      {"1e-999", 0},
      {"9007199254740993.0", 9007199254740992.0},
  };
  for (const auto& [text, number] : ROWS) {
    EXPECT_EQ(parseDouble(text), number) << text;
  }
}

TEST(ParseDouble, NotANumberIsANumberTextToo) {
  for (const std::string_view text : {"nan", "NaN", "+nan", "-nan", "nan()", "NAN(0x7_a)"}) {
    const std::optional<double> number = parseDouble(text);
    ASSERT_TRUE(number.has_value()) << text;
    EXPECT_TRUE(std::isnan(*number)) << text;
  }
}

TEST(ParseDouble, OtherTexts) {
  for (const std::string_view text :
       {""sv,      " "sv,   "abc"sv,   "5x"sv, " 5"sv,   "5 "sv,    "\t5"sv, "\n5"sv,   "\v5"sv,  "\f5"sv,
        "\r5"sv,   "5\n"sv, "+"sv,     "-"sv,  "."sv,    "e3"sv,    "1e"sv,  "1e+"sv,   "+-5"sv,  "--5"sv,
        "- 5"sv,   "1,5"sv, "1 000"sv, "0x"sv, "0x1p"sv, "0xinf"sv, "in"sv,  "infin"sv, "nanx"sv, "nan(-)"sv,
        "nan(1"sv, "5\0"sv, "5\0x"sv,  "\0"sv, "٣"sv,    "½"sv,     "−5"sv}) {
    EXPECT_EQ(parseDouble(text), std::nullopt) << "\"" << text << "\"";
  }
}

TEST(ParseDouble, APartOfALongerTextEndsWhereItEnds) {
  const std::string_view text = "12345";
  EXPECT_EQ(parseDouble(text.substr(1, 2)), 23);
}

TEST(ParseDouble, LocaleOfTheProcessDoesNotCount) {
  // Which locales are installed differs by machine; whichever of these is there writes a comma for the point.
  for (const char* const locale : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
    std::setlocale(LC_ALL, locale);
    EXPECT_EQ(parseDouble("1.5"), 1.5) << locale;
    EXPECT_EQ(parseDouble("1,5"), std::nullopt) << locale;
  }
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace quobrak
