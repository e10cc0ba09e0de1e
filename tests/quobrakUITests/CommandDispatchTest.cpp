#include "quobrakUITests/CommandDispatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/quobrakUITests/RaisedErrors.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

std::vector<std::string> called;

void first() {
  called.emplace_back("first");
}

void second(const std::string& text, std::int64_t duration) {
  called.push_back("second " + text + " " + std::to_string(duration));
}

void fail() {
  throw std::runtime_error("The battery is empty");
}

void failInScript() {
  throw FWKTError::documentDirectoryError("The disk is full");
}

constexpr std::array TABLE{
    command<&first>("first", "Does one thing."),
    command<&second, DirectField<1, "text">,
            CheckedField<&Parameters::getDuration, 2, "duration", Unit::milliseconds, DEFAULT_DURATION_LONG_CLICK>>(
        "second", "Does another thing."),
    command<&fail>("fail", "Raises a foreign error."),
    command<&failInScript>("failInScript", "Raises an error of the system."),
};

void dispatch(const std::vector<std::string_view>& fields) {
  dispatchCommand(TABLE, fields);
}

TEST(CommandDispatch, RunsTheCommandThatFieldZeroNames) {
  dispatch({"second", "a b", "20"});
  dispatch({"first"});
  EXPECT_THAT(called, ElementsAre("second a b 20", "first"));
}

TEST(CommandDispatch, ExtraFieldsAreIgnored) {
  dispatch({"first", "", "x", "y"});
  dispatch({"second", "a", "20", ""});
  EXPECT_THAT(called, ElementsAre("first", "second a 20"));
}

TEST(CommandDispatch, EmptyFieldIsNotAnAbsentOne) {
  dispatch({"second", "a"});
  dispatch({"second", ""});
  EXPECT_THAT(called, ElementsAre("second a 1000", "second  1000"));
  EXPECT_THAT([] { dispatch({"second", "a", ""}); }, testing::raisesFdslError("The duration  should be an integer"));
  EXPECT_EQ(called.size(), 2U);
}

TEST(CommandDispatch, NamesThatAreNotInTheTable) {
  for (const std::string name : {"third", "First", "FIRST", "first ", " first", "firs", "first1", ""}) {
    EXPECT_THAT([&] { dispatch({name, "x"}); }, testing::raisesFdslError("Function " + name + " is not implemented"));
  }
  EXPECT_THAT(called, IsEmpty());
}

TEST(CommandDispatch, ErrorsOfCommandsPassUnchanged) {
  EXPECT_THAT([] { dispatch({"fail"}); }, ThrowsMessage<std::runtime_error>("The battery is empty"));
  EXPECT_THAT([] { dispatch({"failInScript"}); }, testing::raisesDocumentDirectoryError("The disk is full"));
}

TEST(CommandDispatch, CommandWithoutFieldsIsFatal) {
  EXPECT_DEATH(dispatch({}), Eq("Fatal error: Index out of range: a command without fields\n"));
}

TEST(CommandDispatch, MissingFieldThatIsReadDirectlyIsFatal) {
  EXPECT_DEATH(dispatch({"second"}), Eq("Fatal error: Index out of range: the field 1 (text) is missing\n"));
}

}  // namespace
}  // namespace quobrak
