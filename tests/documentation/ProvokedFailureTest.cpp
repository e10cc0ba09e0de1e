#include "tests/documentation/ProvokedFailure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::documentation {
namespace {

using Selector = DirectField<1, "selector">;
using Count = CheckedField<&Parameters::getNthElement, 2, "nthElement", Unit::count, DEFAULT_NTH_ELEMENT>;

void operate(const std::string&, std::int64_t) {}

constexpr CommandRow ROW = command<&operate, Selector, Count>("find", "Finds.");

std::optional<ProvokedFailure> provokedBy(const std::string& status, const std::string& commands) {
  const bool isStop = status.starts_with("fatal: ");
  return failureProvokedBy(conformance::readScriptFile(
      "s", "# expect status: " + status + (isStop ? "" : "\n# expect touched: a") + "\n" + commands));
}

TEST(ProvokedFailure, OfAnErrorIsOfTheLineThatItNames) {
  const auto failure = provokedBy("failed: Error on line find,a,,b (line: 3). Cause: No (line: 3). a", "one\n");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->kind, ProvokedFailure::Kind::error);
  EXPECT_EQ(failure->command, "find");
  EXPECT_THAT(failure->fields, ::testing::ElementsAre("find", "a", "", "b"));
  EXPECT_EQ(failure->message, "No (line: 3). a");
}

TEST(ProvokedFailure, OfAStopIsOfTheLineThatItNames) {
  const auto failure = provokedBy("fatal: No more (line 2: find,a)", "find,a\n");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->kind, ProvokedFailure::Kind::stop);
  EXPECT_THAT(failure->fields, ::testing::ElementsAre("find", "a"));
  EXPECT_EQ(failure->message, "No more");
}

TEST(ProvokedFailure, WithoutALineIsThatOfTheLastCommand) {
  const auto failure = provokedBy("failed: Something", "one\nfind,a\n");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->kind, ProvokedFailure::Kind::error);
  EXPECT_EQ(failure->command, "find");
  EXPECT_THAT(failure->fields, ::testing::IsEmpty());
  EXPECT_EQ(failure->message, "Something");
}

TEST(ProvokedFailure, OfASuccessThereIsNone) {
  EXPECT_FALSE(provokedBy("success", "find,a\n"));
  EXPECT_FALSE(provokedBy("failed: Something", ""));
}

TEST(ProvokedFailure, FitsWordsWithItsArguments) {
  struct Row {
    std::string_view words;
    std::string message;
    bool fits;
  };
  for (const auto& [words, message, fits_] :
       {Row{"No <selector> at <nthElement>", "No a at 2", true}, Row{"No <selector>", "No b", false},
        Row{"No <selector>", "No a or b", false}, Row{"<label> is gone", "b is gone", true},
        Row{"<label> is gone", " is gone", false}, Row{"The <label>, <selector>", "The x y, a", true},
        Row{"The <label>, <selector>", "The x y, b", false}, Row{"a <label> a", "a a", false},
        Row{"Nothing", "Nothing", true}}) {
    const ProvokedFailure failure{
        .kind = ProvokedFailure::Kind::error, .command = "find", .fields = {"find", "a", "2"}, .message = message};
    EXPECT_EQ(fits(words, failure, ROW), fits_) << words << " / " << message;
  }
}

TEST(ProvokedFailure, FitsNoWordsWithAnArgumentThatItLacks) {
  const ProvokedFailure failure{
      .kind = ProvokedFailure::Kind::error, .command = "find", .fields = {"find"}, .message = "No a"};
  EXPECT_FALSE(fits("No <selector>", failure, ROW));
}

}  // namespace
}  // namespace quobrak::documentation
