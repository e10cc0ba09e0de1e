#include "drivers/simulator/NamedValues.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using Texts = std::map<std::string, std::string, std::less<>>;

TEST(NamedValues, Names) {
  for (const std::string_view name :
       {"a", "Z", "_", "a1", "_1", "shop.basket_1", "a.b.c", "A.b_.C9", "inner.orders", "index"}) {
    EXPECT_TRUE(isValueName(name)) << name;
  }
  for (const std::string_view name :
       {"",    ".", "a.", ".a",   "a..b", "1",       "1a",      "a.1b",     "a b", " a",      "a-b",
        "a:b", "é", "aé", "a[0]", "in",   "shop.in", "In.shop", "a.TRUE.b", "no",  "shop.and"}) {
    EXPECT_FALSE(isValueName(name)) << name;
  }
  EXPECT_FALSE(isValueName(std::string_view("a\0", 2)));
}

TEST(NamedValues, Durations) {
  const std::pair<std::string_view, std::optional<std::chrono::milliseconds>> ROWS[] = {
      {"0", 0ms},
      {"250", 250ms},
      {"007", 7ms},
      {"3600000", 1h},
      {"3600001", std::nullopt},
      {"99999999999999999999", std::nullopt},
      {"-1", std::nullopt},
      {"+1", std::nullopt},
      {"", std::nullopt},
      {" 1", std::nullopt},
      {"1 ", std::nullopt},
      {"1.0", std::nullopt},
      {"1e3", std::nullopt},
      {"0x10", std::nullopt},
      {"soon", std::nullopt},
      {"1s", std::nullopt},
  };
  for (const auto& [text, duration] : ROWS) {
    EXPECT_EQ(durationIn(text), duration) << text;
    NamedValues values;
    values.set("pace", std::string(text));
    EXPECT_EQ(values.duration("pace"), duration.value_or(0ms)) << text;
  }
}

TEST(NamedValues, AreEmptyUntilTheyAreSet) {
  NamedValues values(Texts{{"user", "Ada"}});
  EXPECT_EQ(values.text("user"), "Ada");
  EXPECT_EQ(values.text("basket"), "");
  EXPECT_EQ(values.duration("basket"), 0ms);
  values.set("user", "Bob");
  values.set("basket", "full");
  EXPECT_EQ(values.text("user"), "Bob");
  EXPECT_EQ(values.text("basket"), "full");
  values.set("basket", "");
  EXPECT_EQ(values.text("basket"), "");
}

TEST(NamedValues, AddingCountsOnFromAWholeNumberAndElseFromNothing) {
  struct Row {
    std::string before;
    std::int64_t amount;
    std::string after;
  };
  const Row ROWS[] = {
      {"", 1, "1"},
      {"1", 1, "2"},
      {"-5", 3, "-2"},
      {"007", 1, "8"},
      {"2", -2, "0"},
      {"two", 7, "7"},
      {"1.5", 7, "7"},
      {" 1", 7, "7"},
      {"1 ", 7, "7"},
      {"+1", 7, "7"},
      {"99999999999999999999", 7, "7"},
      {"9223372036854775806", 1, "9223372036854775807"},
      {"9223372036854775807", 1, "9223372036854775807"},
      {"-9223372036854775807", -1, "-9223372036854775808"},
      {"-9223372036854775808", -1, "-9223372036854775808"},
      {"9223372036854775807", INT64_MIN, "-1"},
  };
  for (const auto& [before, amount, after] : ROWS) {
    NamedValues values;
    values.set("count", before);
    values.add("count", amount);
    EXPECT_EQ(values.text("count"), after) << before << " + " << amount;
  }
  NamedValues fresh;
  fresh.add("count", -4);
  EXPECT_EQ(fresh.text("count"), "-4");
}

TEST(NamedValues, ArePredicatesAttributes) {
  const NamedValues values(Texts{{"shop.basket", "full"}});
  EXPECT_EQ(std::get<std::string_view>(values.valueForKey("shop.basket")), "full");
  EXPECT_EQ(std::get<std::string_view>(values.valueForKey("never.set")), "");
  EXPECT_TRUE(PredicateEvaluator(NSPredicate("shop.basket == 'full' AND never.set == ''")).evaluate(values));
  EXPECT_FALSE(PredicateEvaluator(NSPredicate("shop.basket CONTAINS never.set")).evaluate(values));
}

TEST(NamedValues, TellAllThatWereSet) {
  NamedValues values(Texts{{"b", "1"}});
  values.set("a", "");
  EXPECT_EQ(values.text("c"), "");
  EXPECT_EQ(values.texts(), (Texts{{"a", ""}, {"b", "1"}}));
}

TEST(TextTemplate, StandsForValues) {
  const NamedValues values(Texts{{"a", "1"}, {"shop.item", "Lämp"}, {"nested", "${a}"}});
  const std::pair<std::string_view, std::string_view> ROWS[] = {
      {"", ""},
      {"plain text", "plain text"},
      {"${a}", "1"},
      {"x${a}", "x1"},
      {"${a}x", "1x"},
      {"${a}${a}", "11"},
      {"Buy ${shop.item} (${a})?", "Buy Lämp (1)?"},
      {"${never}", ""},
      {"<${never}>", "<>"},
      {"${nested}", "${a}"},
      {"$", "$"},
      {"$5", "$5"},
      {"$$${a}", "$$1"},
      {"{a}", "{a}"},
      {"${a}}", "1}"},
      {"$ {a}", "$ {a}"},
  };
  for (const auto& [text, expanded] : ROWS) {
    const std::optional<TextTemplate> parsed = TextTemplate::parse(text);
    ASSERT_TRUE(parsed.has_value()) << text;
    EXPECT_EQ(parsed->expand(values), expanded) << text;
  }
}

TEST(TextTemplate, IsNoneWhereANameOrItsEndIsMissing) {
  for (const std::string_view text : {"${", "${}", "${a", "a${a}b${", "${a b}", "${1}", "${ a}", "${a }", "${a.}",
                                      "${$a}", "${${a}}", "${in}", "${é}"}) {
    EXPECT_FALSE(TextTemplate::parse(text).has_value()) << text;
  }
}

TEST(TextTemplate, MadeOfATextStandsForThatText) {
  const NamedValues values(Texts{{"a", "1"}});
  EXPECT_EQ(TextTemplate("${a}").expand(values), "${a}");
  EXPECT_EQ(TextTemplate().expand(values), "");
}

TEST(TextTemplate, TakesTheValuesAsTheyAreWhenItIsExpanded) {
  NamedValues values;
  const TextTemplate text = TextTemplate::parse("${count} items").value();
  EXPECT_EQ(text.expand(values), " items");
  values.add("count", 2);
  EXPECT_EQ(text.expand(values), "2 items");
}

}  // namespace
}  // namespace quobrak::simulator
