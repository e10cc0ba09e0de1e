#include "drivers/simulator/DescriptionFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::MemoryPhoneFiles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

/// The faults that are noted while a file of that content is read.
std::string faultsOf(const std::string& content,
                     const std::function<void(DescriptionFile& file, const JSONReader& json)>& read = {}) {
  const MemoryPhoneFiles files(std::map<std::string, std::string>{{"app.json", content}});
  DescriptionFaults faults;
  DescriptionFile file(files, "app.json", faults);
  if (read && file.content()) {
    file.attempt([&] { read(file, *file.content()); });
  }
  return faults.text();
}

// Faults.

TEST(DescriptionFaults, AreNoneAtFirst) {
  const DescriptionFaults faults;
  EXPECT_TRUE(faults.isEmpty());
  EXPECT_EQ(faults.text(), "");
}

TEST(DescriptionFaults, OneIsALine) {
  DescriptionFaults faults;
  faults.add("app.json", TextPlace{.line = 3, .column = 14}, "name: missing");
  EXPECT_FALSE(faults.isEmpty());
  EXPECT_EQ(faults.text(), "app.json:3:14: name: missing");
}

TEST(DescriptionFaults, OfAFileAsAWholeHaveNoPlaceAndComeFirst) {
  DescriptionFaults faults;
  faults.add("a.json", TextPlace{.line = 1, .column = 1}, "one");
  faults.add("a.json", std::nullopt, "two");
  EXPECT_EQ(faults.text(), "a.json: two\na.json:1:1: one");
}

TEST(DescriptionFaults, ComeInTheOrderOfTheirPlacesFileByFile) {
  DescriptionFaults faults;
  faults.add("b.json", TextPlace{.line = 10, .column = 1}, "six");
  faults.add("a.json", TextPlace{.line = 2, .column = 1}, "eight");
  faults.add("b.json", TextPlace{.line = 2, .column = 10}, "four");
  faults.add("b.json", TextPlace{.line = 2, .column = 9}, "three");
  faults.add("b.json", TextPlace{.line = 1, .column = 30}, "one");
  faults.add("a.json", TextPlace{.line = 1, .column = 1}, "seven");
  faults.add("b.json", TextPlace{.line = 2, .column = 10}, "five, told later");
  faults.add("b.json", TextPlace{.line = 1, .column = 31}, "two");
  EXPECT_EQ(faults.text(),
            "b.json:1:30: one\nb.json:1:31: two\nb.json:2:9: three\nb.json:2:10: four\nb.json:2:10: five, told later\n"
            "b.json:10:1: six\na.json:1:1: seven\na.json:2:1: eight");
}

TEST(DescriptionFaults, AreToldOnce) {
  DescriptionFaults faults;
  for (int time = 0; time < 3; ++time) {
    faults.add("a.json", TextPlace{.line = 2, .column = 1}, "one");
    faults.add("a.json", TextPlace{.line = 3, .column = 1}, "one");
    faults.add("b.json", TextPlace{.line = 2, .column = 1}, "one");
    faults.add("a.json", TextPlace{.line = 2, .column = 1}, "other");
  }
  EXPECT_EQ(faults.text(), "a.json:2:1: one\na.json:2:1: other\na.json:3:1: one\nb.json:2:1: one");
}

TEST(DescriptionFaults, OfVeryManyTheFirstFiftyAreTold) {
  DescriptionFaults faults;
  std::string expected;
  for (std::size_t line = 1; line <= 50; ++line) {
    const std::string number = std::to_string(line);
    const std::string file = line <= 20 ? "a.json" : "b.json";
    faults.add(file, TextPlace{.line = line, .column = 1}, "fault " + number);
    expected += (line == 1 ? "" : "\n") + file + ":" + number + ":1: fault " + number;
  }
  EXPECT_EQ(faults.text(), expected);
  faults.add("b.json", TextPlace{.line = 51, .column = 1}, "hidden");
  EXPECT_EQ(faults.text(), expected + "\nand 1 more");
  faults.add("c.json", std::nullopt, "hidden");
  faults.add("c.json", TextPlace{.line = 1, .column = 1}, "hidden");
  EXPECT_EQ(faults.text(), expected + "\nand 3 more");
}

// Files.

TEST(DescriptionFile, HasItsContent) {
  const MemoryPhoneFiles files(std::map<std::string, std::string>{{"home/app.json", R"({"name": "Home"})"}});
  DescriptionFaults faults;
  const DescriptionFile file(files, "home/app.json", faults);
  ASSERT_TRUE(file.content().has_value());
  EXPECT_EQ(file.content()->member("name").text(), "Home");
  EXPECT_EQ(file.name(), "home/app.json");
  EXPECT_TRUE(faults.isEmpty());
}

TEST(DescriptionFile, IsNamedAsItsFilesNameIt) {
  DescriptionFaults faults;
  const DescriptionFile file(BuiltinPhoneFiles(), "nowhere.json", faults);
  EXPECT_EQ(file.name(), "the built-in phone's nowhere.json");
  EXPECT_FALSE(file.content().has_value());
  EXPECT_EQ(faults.text(), "the built-in phone's nowhere.json: the file is missing or cannot be read");
}

TEST(DescriptionFile, WhatIsNoJSONIsToldWithItsPlace) {
  EXPECT_EQ(faultsOf("{\n  \"ü🙂\": [1,\n  2 3]}"), "app.json:3:5: unexpected character; expected ',' or ']'");
  EXPECT_EQ(faultsOf("{\n"), "app.json:2:1: the text ends too early; expected a key in double quotes");
}

TEST(DescriptionFile, ANumberThatIsTooLargeIsToldWithItsPlace) {
  EXPECT_EQ(faultsOf("{\n \"ü\": 1, \"a\": {\"b\": 1e999}}"), "app.json:2:16: a.b: the number is too large");
  EXPECT_EQ(faultsOf("{\"a\": [1,\n  9223372036854775808]}"), "app.json:2:3: a[1]: the number is too large");
}

TEST(DescriptionFile, WhatIsNestedTooDeepIsToldAtTheDocument) {
  EXPECT_EQ(faultsOf("\n" + std::string(501, '[') + std::string(501, ']')),
            "app.json:2:1: nested deeper than 500 levels");
}

TEST(DescriptionFile, MembersThatStandTwiceAreToldWhereTheyDoSoAgain) {
  EXPECT_EQ(faultsOf("{\"é\": 1, \"a\": {\"b\": 1, \"b\": 2},\n \"a\": 3, \"a\": 4}"),
            "app.json:1:24: a.b: stands twice in one object\napp.json:2:2: a: stands twice in one object\n"
            "app.json:2:10: a: stands twice in one object");
}

TEST(DescriptionFile, WhatReadingThrowsIsNotedAndTheNextReadingGoesOn) {
  EXPECT_EQ(faultsOf("{\n \"ä\": 1, \"one\": 2,\n \"list\": [{\"two\": 3}]}",
                     [](DescriptionFile& file, const JSONReader& json) {
                       file.attempt([&] { json.member("list").elements().at(0).member("two").text(); });
                       file.attempt([&] { json.member("one").text(); });
                       file.attempt([&] { json.member("list").elements().at(0).member("three"); });
                       file.attempt([&] { json.member("four"); });
                       file.note(json.member("one"), "too small");
                       json.fail("too old");
                     }),
            "app.json:1:1: four: missing\napp.json:1:1: too old\napp.json:2:10: one: expected a text, found a number\n"
            "app.json:2:10: one: too small\napp.json:3:11: list[0].three: missing\n"
            "app.json:3:12: list[0].two: expected a text, found a number");
}

TEST(DescriptionFile, OtherErrorsAreNotItsOwn) {
  EXPECT_THROW(faultsOf("{}", [](DescriptionFile&, const JSONReader&) { throw std::logic_error("other"); }),
               std::logic_error);
}

TEST(DescriptionFile, EachUnknownKeyIsTold) {
  const auto read = [](DescriptionFile& file, const JSONReader& json) {
    file.requireKnownKeys(json, {"name", "size"});
  };
  EXPECT_EQ(faultsOf(R"({"name": 1})", read), "");
  EXPECT_EQ(faultsOf("{}", read), "");
  EXPECT_EQ(faultsOf("{\"sise\": 1, \"name\": 2,\n \"Größe\": 3, \"naem\": 4}", read),
            "app.json:1:2: sise: unknown; what may stand here is \"name\", \"size\"\n"
            "app.json:2:2: Größe: unknown; what may stand here is \"name\", \"size\"\n"
            "app.json:2:14: naem: unknown; what may stand here is \"name\", \"size\"");
  EXPECT_EQ(faultsOf(R"({"": 1})", read), "app.json:1:2: \"\": unknown; what may stand here is \"name\", \"size\"");
  EXPECT_EQ(faultsOf("[]", read), "app.json:1:1: expected an object, found an array");
}

// Values.

TEST(DescriptionValues, TextsInAList) {
  EXPECT_EQ(listed({}), "");
  EXPECT_EQ(listed({"one"}), "\"one\"");
  EXPECT_EQ(listed({"one", "", "zwölf"}), R"("one", "", "zwölf")");
}

TEST(DescriptionValues, NumbersInTheirRange) {
  const auto read = [](const std::string& json) {
    return faultsOf(json, [](DescriptionFile&, const JSONReader& number) {
      EXPECT_EQ(integerBetween(number, -2, 7), number.integer());
    });
  };
  EXPECT_EQ(read("-2"), "");
  EXPECT_EQ(read("7"), "");
  EXPECT_EQ(read("7.0"), "");
  EXPECT_EQ(read("-3"), "app.json:1:1: must be between -2 and 7, found -3");
  EXPECT_EQ(read("8"), "app.json:1:1: must be between -2 and 7, found 8");
  EXPECT_EQ(read("1.5"), "app.json:1:1: expected a whole number, found a number");
  EXPECT_EQ(read("\"1\""), "app.json:1:1: expected a whole number, found a text");
}

TEST(DescriptionValues, Durations) {
  const auto read = [](const std::string& json) {
    return faultsOf(json, [](DescriptionFile&, const JSONReader& number) {
      EXPECT_EQ(readDuration(number), std::chrono::milliseconds(number.integer()));
    });
  };
  EXPECT_EQ(read("0"), "");
  EXPECT_EQ(read("3600000"), "");
  EXPECT_EQ(read("-1"), "app.json:1:1: must be between 0 and 3600000, found -1");
  EXPECT_EQ(read("3600001"), "app.json:1:1: must be between 0 and 3600000, found 3600001");
}

TEST(DescriptionValues, TextsThatAreNotEmpty) {
  const auto read = [](const std::string& json) {
    return faultsOf(json, [](DescriptionFile&, const JSONReader& text) { EXPECT_EQ(nonEmptyText(text), text.text()); });
  };
  EXPECT_EQ(read("\" \""), "");
  EXPECT_EQ(read("\"\""), "app.json:1:1: must not be empty");
  EXPECT_EQ(read("null"), "app.json:1:1: expected a text, found null");
}

TEST(DescriptionValues, NamedTexts) {
  std::map<std::string, std::string> texts;
  const auto read = [&texts](DescriptionFile& file, const JSONReader& json) { texts = readNamedTexts(file, json); };
  EXPECT_EQ(faultsOf(R"({"shop.basket": "full", "b": ""})", read), "");
  EXPECT_THAT(texts, ElementsAre(Pair("b", ""), Pair("shop.basket", "full")));
  EXPECT_EQ(faultsOf("{}", read), "");
  EXPECT_THAT(texts, IsEmpty());
  EXPECT_EQ(faultsOf("[]", read), "app.json:1:1: expected an object, found an array");
  const std::string rule =
      " is no name of a value; one is like \"shop.basket_1\": words of ASCII letters, digits and _, with dots between "
      "them, none of which begins with a digit or means something in predicates, as \"in\" does";
  EXPECT_EQ(faultsOf("{\"größe\": \"1\", \"a\": 7,\n \"1a\": null, \"good\": \"x\", \"shop.in\": \"\"}", read),
            "app.json:1:2: größe: \"größe\"" + rule + "\napp.json:1:16: a: expected a text, found a number\n" +
                "app.json:2:2: 1a: \"1a\"" + rule + "\napp.json:2:27: shop.in: \"shop.in\"" + rule);
  EXPECT_THAT(texts, ElementsAre(Pair("good", "x")));
}

}  // namespace
}  // namespace quobrak::simulator
