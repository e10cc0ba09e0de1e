#include "quobrakUITests/CommandRow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/quobrakUITests/RaisedErrors.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;

std::vector<std::string> events;

/// An argument that tells when it is read, and fails where its field says so.
template <std::size_t Field>
struct WatchedField {
  static constexpr ArgumentInfo INFO{Field, "watched", Unit::text, {}};

  static std::string read(FunctionParameters fields) {
    events.push_back("read " + std::string(fields[Field]));
    if (fields[Field] == "bad") {
      throw FWKTError::fdslError("The field is bad");
    }
    return std::string(fields[Field]);
  }
};

void operate(const std::string& one, const std::string& two, const std::string& three) {
  events.push_back("operate on " + one + two + three);
}

void doNothing() {}

constexpr CommandRow WATCHED =
    command<&operate, WatchedField<1>, WatchedField<2>, WatchedField<3>>("watched", "Tells.");
constexpr CommandRow SWAPPED =
    command<&operate, WatchedField<3>, WatchedField<1>, WatchedField<2>>("swapped", "Tells.");

TEST(CommandRow, ArgumentsAreReadFromLeftToRightBeforeTheOperation) {
  const std::vector<std::string_view> fields{"watched", "a", "b", "c"};
  WATCHED.run(fields);
  EXPECT_THAT(events, ElementsAre("read a", "read b", "read c", "operate on abc"));
}

TEST(CommandRow, ArgumentsAreReadInTheOrderOfTheOperationsParameters) {
  const std::vector<std::string_view> fields{"swapped", "a", "b", "c"};
  SWAPPED.run(fields);
  EXPECT_THAT(events, ElementsAre("read c", "read a", "read b", "operate on cab"));
}

TEST(CommandRow, BadArgumentEndsTheCommandBeforeLaterOnesAreRead) {
  const std::vector<std::string_view> fields{"watched", "a", "bad", "c"};
  EXPECT_THAT([&] { WATCHED.run(fields); }, testing::raisesFdslError("The field is bad"));
  EXPECT_THAT(events, ElementsAre("read a", "read bad"));
}

TEST(CommandRow, DirectFieldIsTakenAsItStands) {
  const std::vector<std::string_view> fields{"name", " a b ", ""};
  EXPECT_EQ((DirectField<1, "text">::read(fields)), " a b ");
  EXPECT_EQ((DirectField<2, "text">::read(fields)), "");
}

TEST(CommandRow, AbsentDirectFieldIsFatal) {
  const std::vector<std::string_view> fields{"name", "a"};
  EXPECT_DEATH((DirectField<2, "selector">::read(fields)),
               Eq("Fatal error: Index out of range: the field 2 (selector) is missing\n"));
}

TEST(CommandRow, CheckedFieldIsReadByItsGetter) {
  using Timeout = CheckedField<&Parameters::getTimeout, 2, "timeout", Unit::milliseconds, DEFAULT_TIMEOUT_WAIT>;
  const std::vector<std::string_view> withoutTimeout{"name", "a"};
  const std::vector<std::string_view> withTimeout{"name", "a", "70"};
  const std::vector<std::string_view> malformed{"name", "a", "x"};
  EXPECT_EQ(Timeout::read(withoutTimeout), 30000);
  EXPECT_EQ(Timeout::read(withTimeout), 70);
  EXPECT_THAT([&] { Timeout::read(malformed); }, testing::raisesFdslError("The timeout x should be an integer"));
}

TEST(CommandRow, TellsItsArgumentsInWords) {
  constexpr CommandRow ROW =
      command<&operate, DirectField<2, "selector">, DirectField<1, "x", Unit::points>, WatchedField<3>>("name",
                                                                                                        "Does it.");
  EXPECT_EQ(ROW.name, "name");
  EXPECT_EQ(ROW.summary, "Does it.");
  ASSERT_EQ(ROW.arguments().size(), 3U);
  EXPECT_EQ(ROW.arguments()[0].field, 2U);
  EXPECT_EQ(ROW.arguments()[0].label, "selector");
  EXPECT_EQ(ROW.arguments()[0].unit, Unit::text);
  EXPECT_EQ(ROW.arguments()[0].defaultValue, ArgumentDefault());
  EXPECT_EQ(ROW.arguments()[1].field, 1U);
  EXPECT_EQ(ROW.arguments()[1].unit, Unit::points);
  EXPECT_EQ(ROW.arguments()[2].label, "watched");
}

TEST(CommandRow, AnArgumentCanBeCheckedWithoutTheOperation) {
  const std::vector<std::string_view> fields{"watched", "a", "bad", "c"};
  WATCHED.arguments()[0].check(fields);
  EXPECT_THAT([&] { WATCHED.arguments()[1].check(fields); }, testing::raisesFdslError("The field is bad"));
  EXPECT_THAT(events, ElementsAre("read a", "read bad"));
}

TEST(CommandRow, TellsWhichArgumentsStopTheProcessWhereTheyAreAbsent) {
  constexpr CommandRow ROW = command<&operate, DirectField<1, "selector">, WatchedField<2>, WatchedField<3>>("a", "B.");
  EXPECT_EQ(ROW.arguments()[0].reading, Reading::direct);
  EXPECT_EQ(ROW.arguments()[1].reading, Reading::checked);
  const std::vector<std::string_view> none{"a"};
  EXPECT_DEATH(ROW.arguments()[0].check(none), Eq("Fatal error: " + absentFieldMessage(ROW.arguments()[0]) + "\n"));
}

std::optional<ValueFault> faultOfLongTexts(FunctionParameters fields, std::size_t field) {
  if (fields[field].size() < 3) {
    return std::nullopt;
  }
  return ValueFault{.message = "It is too long", .consequence = Consequence::stopsProcess};
}

TEST(CommandRow, TellsWhatArgumentsStandForAndWhatTheirCommandMinds) {
  using Plain = DirectField<1, "text">;
  using Short = Meant<DirectField<2, "short">, Meaning::stepName, &faultOfLongTexts, Moment::withApplication>;
  constexpr CommandRow ROW = command<&operate, Plain, Short, WatchedField<3>>("a", "B.");
  EXPECT_EQ(ROW.arguments()[0].meaning, Meaning::other);
  EXPECT_EQ(ROW.arguments()[0].fault, nullptr);
  EXPECT_EQ(ROW.arguments()[1].label, "short");
  EXPECT_EQ(ROW.arguments()[1].meaning, Meaning::stepName);
  EXPECT_EQ(ROW.arguments()[1].faultMoment, Moment::withApplication);
  const std::vector<std::string_view> fields{"a", "b", "ab", "abc"};
  EXPECT_EQ(ROW.arguments()[1].fault(fields, 2), std::nullopt);
  ASSERT_NE(ROW.arguments()[1].fault(fields, 3), std::nullopt);
  EXPECT_EQ(ROW.arguments()[1].fault(fields, 3)->message, "It is too long");
}

TEST(CommandRow, TellsWhatTheCommandNeedsAndLeaves) {
  constexpr CommandRow PLAIN = command<&doNothing>("a", "B.");
  EXPECT_EQ(PLAIN.effects.application, CommandEffects::Application::unused);
  EXPECT_EQ(PLAIN.effects.search, CommandEffects::Search::unused);
  EXPECT_EQ(PLAIN.effects.step, CommandEffects::Step::unused);
  constexpr CommandRow SEARCH =
      command<&doNothing>("a", "B.", CommandEffects{.search = CommandEffects::Search::remembered});
  EXPECT_EQ(SEARCH.effects.search, CommandEffects::Search::remembered);
}

using Selector = DirectField<1, "selector">;
using Duration = CheckedField<&Parameters::getPauseDuration, 1, "timeMillis", Unit::milliseconds>;
using NthElement = CheckedField<&Parameters::getNthElement, 2, "nthElement", Unit::count, DEFAULT_NTH_ELEMENT>;
using IsEnabled = CheckedField<&Parameters::getIsEnabled, 3, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;

TEST(CommandRow, DefaultsOfArguments) {
  using Timeout = CheckedField<&Parameters::getTimeout, 2, "timeout", Unit::milliseconds, DEFAULT_TIMEOUT_WAIT>;
  EXPECT_EQ(Duration::INFO.defaultValue, ArgumentDefault());
  EXPECT_EQ(Timeout::INFO.defaultValue, ArgumentDefault(DEFAULT_TIMEOUT_WAIT));
  EXPECT_EQ(IsEnabled::INFO.defaultValue, ArgumentDefault(DEFAULT_IS_ENABLED));
}

TEST(CommandRow, AnArgumentWithADefaultMayBeLeftOut) {
  EXPECT_FALSE(mayBeLeftOut(Selector::INFO));
  EXPECT_FALSE(mayBeLeftOut(Duration::INFO));
  EXPECT_TRUE(mayBeLeftOut(NthElement::INFO));
  EXPECT_TRUE(mayBeLeftOut(IsEnabled::INFO));
}

template <class... Arguments>
void ignore(Arguments...) {}

template <class... Arguments>
constexpr CommandRow rowWith() {
  return command<&ignore<decltype(Arguments::read({}))...>, Arguments...>("name", "Does nothing.");
}

TEST(CommandRow, AUsageHasInBracketsWhatMayBeLeftOut) {
  EXPECT_EQ(usageOf(rowWith<>()), "name");
  EXPECT_EQ(usageOf(rowWith<Selector>()), "name,selector");
  EXPECT_EQ(usageOf(rowWith<Selector, NthElement>()), "name,selector[,nthElement]");
  EXPECT_EQ(usageOf(rowWith<Selector, NthElement, IsEnabled>()), "name,selector[,nthElement[,isEnabled]]");
}

constexpr CommandRow row(std::string_view name, std::string_view summary = "Does nothing.") {
  return command<&doNothing>(name, summary);
}

TEST(TableFault, EachFaultIsFoundAtCompileTime) {
  static constexpr std::array RIGHT{row("a"), row("b"), row("A")};
  static constexpr std::array NAMELESS{row("a"), row("")};
  static constexpr std::array UNEXPLAINED{row("a"), row("b", "")};
  static constexpr std::array REPEATED{row("a"), row("b"), row("a")};
  static_assert(tableFault(RIGHT, 3) == TableFault::none);
  static_assert(tableFault({}, 0) == TableFault::none);
  static_assert(tableFault(RIGHT, 2) == TableFault::wrongNumberOfRows);
  static_assert(tableFault(RIGHT, 4) == TableFault::wrongNumberOfRows);
  static_assert(tableFault(NAMELESS, 2) == TableFault::emptyName);
  static_assert(tableFault(UNEXPLAINED, 2) == TableFault::emptySummary);
  static_assert(tableFault(REPEATED, 3) == TableFault::duplicateName);
  // The assertions above are the test; it also holds for a table that is only known at run time.
  const std::vector<CommandRow> rows(2, row("a"));
  EXPECT_EQ(tableFault(rows, 2), TableFault::duplicateName);
}

}  // namespace
}  // namespace quobrak
