#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/uiautomation/UIAutomationError.h"
#include "tests/quobrakUITests/Environment.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/quobrakUITests/RecordedCommands.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using testing::Command;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;
using testing::RecordedCommands;
using testing::setVariable;
using ::testing::ThrowsMessage;
using testing::unsetVariable;

/// The commands that a script runs.
std::vector<Command> commandsOf(std::string_view script) {
  RecordedCommands test;
  test.executeActions(script);
  return test.commands;
}

/// Two user-perceived characters of eleven UTF-16 units each.
const std::string FAMILIES = "👨‍👩‍👧‍👦👨‍👩‍👧‍👦";

TEST(ScriptInterpreter, LinesAreSplitAtCommasAndNothingElseIsTakenFromThem) {
  EXPECT_THAT(
      commandsOf("pressHome\npause, 100\nclickByText,,\n,x"),
      ElementsAre(Command{"pressHome"}, Command{"pause", " 100"}, Command{"clickByText", "", ""}, Command{"", "x"}));
}

TEST(ScriptInterpreter, EmptyLinesAndCommentsAreSkipped) {
  unsetVariable("UNSET");
  EXPECT_THAT(commandsOf("\n  \n\t\n#a,b\n  # ${UNSET}\n#${UNSET}\na#b"), ElementsAre(Command{"a#b"}));
  EXPECT_THAT(commandsOf(""), IsEmpty());
}

TEST(ScriptInterpreter, BlanksAroundALineAreRemoved) {
  EXPECT_THAT(commandsOf(" a b \n\ta\t\n\u00A0a\u3000\n\u2003a \t\u00A0"),
              ElementsAre(Command{"a b"}, Command{"a"}, Command{"a"}, Command{"a"}));
  EXPECT_THAT(commandsOf("\u3000#comment\n\u00A0\n\u200Ba"), ElementsAre(Command{"\u200Ba"}));
}

TEST(ScriptInterpreter, AllNewlineCharactersEndLines) {
  EXPECT_THAT(
      commandsOf("a\u2028b\u0085c\vd\fe\rf\u2029g"),
      ElementsAre(Command{"a"}, Command{"b"}, Command{"c"}, Command{"d"}, Command{"e"}, Command{"f"}, Command{"g"}));
}

TEST(ScriptInterpreter, ReferencesAreReplacedByValues) {
  setVariable("USER_NAME", "Bob");
  setVariable("A", "x");
  setVariable("B1", "a,b");
  setVariable("EMPTY", "");
  EXPECT_THAT(commandsOf("clickByText,${USER_NAME}\n${A}${A}\nc,${B1},${A}\nd,${EMPTY}\ne${EMPTY}f"),
              ElementsAre(Command{"clickByText", "Bob"}, Command{"xx"}, Command{"c", "a", "b", "x"}, Command{"d", ""},
                          Command{"ef"}));
}

TEST(ScriptInterpreter, NamesOfVariablesHoldLettersDigitsAndUnderscores) {
  setVariable("Größe_1", "x");
  EXPECT_THAT(commandsOf("${Größe_1}"), ElementsAre(Command{"x"}));
  for (const std::string text : {"${a-b}", "${}", "${a b}", "$a", "{a}", "$ {a}", "${a", "${a.b}"}) {
    EXPECT_THAT(commandsOf(text), ElementsAre(Command{text}));
  }
}

TEST(ScriptInterpreter, NamesOfVariablesAreCaseSensitive) {
  setVariable("name", "x");
  unsetVariable("NAME");
  EXPECT_THAT([] { commandsOf("${NAME}"); },
              testing::raisesEnvVariableError("Error on line ${NAME} (line: 1). Cause: You need to pass the extra "
                                              "parameter NAME to your test"));
}

TEST(ScriptInterpreter, ValuesThatHoldReferencesAreExpandedInTurn) {
  setVariable("OUTER", "<${INNER}>");
  setVariable("INNER", "x");
  setVariable("BRACED", "{INNER}");
  setVariable("NAME", "INNER");
  EXPECT_THAT(commandsOf("${OUTER},${OUTER}\n$${BRACED}\n${${NAME}}"),
              ElementsAre(Command{"<x>", "<x>"}, Command{"x"}, Command{"x"}));
}

TEST(ScriptInterpreter, LineThatBecomesEmptyOrACommentIsSkippedAndCounts) {
  setVariable("EMPTY", "");
  setVariable("HASH", "#");
  RecordedCommands test;
  test.meanwhile = [](const Command&) { throw FWKTError::fdslError("No"); };
  EXPECT_THAT([&] { test.executeActions("${EMPTY}\n${HASH}a,b\nfail"); },
              testing::raisesFdslError("Error on line fail (line: 3). Cause: No"));
  EXPECT_THAT(test.commands, ElementsAre(Command{"fail"}));
}

TEST(ScriptInterpreter, LineIsNotTrimmedAgainAfterItsReferencesWereReplaced) {
  setVariable("BLANK", " ");
  setVariable("LINES", "a\nb");
  EXPECT_THAT(commandsOf("${BLANK}\n${BLANK}#a\n${LINES},c"),
              ElementsAre(Command{" "}, Command{" #a"}, Command{"a\nb", "c"}));
}

TEST(ScriptInterpreter, ReferenceBehindManyComposedCharactersStaysUnreplaced) {
  setVariable("NAME", "x");
  EXPECT_THAT(commandsOf("clickByText," + FAMILIES + "${NAME}"),
              ElementsAre(Command{"clickByText", FAMILIES + "${NAME}"}));
  unsetVariable("UNSET");
  EXPECT_THAT(commandsOf(FAMILIES + "${UNSET}"), ElementsAre(Command{FAMILIES + "${UNSET}"}));
}

TEST(ScriptInterpreter, SearchEndsAfterAsManyUnitsAsTheLineHasCharacters) {
  setVariable("A", "x");
  EXPECT_THAT(commandsOf("🙂${A}"), ElementsAre(Command{"🙂${A}"}));
  EXPECT_THAT(commandsOf("🙂${A}b"), ElementsAre(Command{"🙂xb"}));
  EXPECT_THAT(commandsOf("é${A}"), ElementsAre(Command{"éx"}));
  EXPECT_THAT(commandsOf("e\u0301${A}"), ElementsAre(Command{"e\u0301${A}"}));
}

TEST(ScriptInterpreter, SearchRangeIsTakenAnewAfterEachReplacement) {
  setVariable("LONG", "0123456789");
  setVariable("SMILE", "🙂🙂🙂🙂🙂🙂🙂🙂🙂🙂");
  setVariable("A", "x");
  EXPECT_THAT(commandsOf("${LONG},🙂${A}b"), ElementsAre(Command{"0123456789", "🙂xb"}));
  EXPECT_THAT(commandsOf("${SMILE},${A}"), ElementsAre(Command{"🙂🙂🙂🙂🙂🙂🙂🙂🙂🙂", "${A}"}));
}

TEST(ScriptInterpreter, ReplacementAlsoReachesOccurrencesBeyondTheSearchedRange) {
  setVariable("NAME", "x");
  EXPECT_THAT(commandsOf("a,${NAME}," + FAMILIES + ",${NAME}"), ElementsAre(Command{"a", "x", FAMILIES, "x"}));
}

TEST(ScriptInterpreter, ValueThatIsNotUTF8) {
  setVariable("BROKEN", "a\xFFz");
  EXPECT_THAT(commandsOf("b,${BROKEN}"), ElementsAre(Command{"b", "a\uFFFDz"}));
}

TEST(ScriptInterpreter, MissingVariableIsReportedWithTheLineAsWritten) {
  setVariable("A", "x");
  unsetVariable("UNSET");
  EXPECT_THAT([] { commandsOf("a\n \tclickByText,${A},${UNSET} \t\nb"); },
              testing::raisesEnvVariableError("Error on line  \tclickByText,${A},${UNSET} \t (line: 2). Cause: You "
                                              "need to pass the extra parameter UNSET to your test"));
}

TEST(ScriptInterpreter, MissingVariableInAValue) {
  setVariable("A", "${UNSET}");
  unsetVariable("UNSET");
  EXPECT_THAT([] { commandsOf("${A}"); },
              testing::raisesEnvVariableError("Error on line ${A} (line: 1). Cause: You need to pass the extra "
                                              "parameter UNSET to your test"));
}

TEST(ScriptInterpreter, MissingVariableStopsTheScriptBeforeAnyLineRuns) {
  unsetVariable("UNSET");
  RecordedCommands test;
  EXPECT_THAT([&] { test.executeActions("a\nb\nc\nd\n${UNSET}"); },
              testing::raisesEnvVariableError("Error on line ${UNSET} (line: 5). Cause: You need to pass the extra "
                                              "parameter UNSET to your test"));
  EXPECT_THAT(test.commands, IsEmpty());
}

TEST(ScriptInterpreter, VariablesAreReadBeforeTheFirstLineRuns) {
  setVariable("A", "before");
  RecordedCommands test;
  test.meanwhile = [](const Command&) { setVariable("A", "after"); };
  test.executeActions("a\nb,${A}");
  EXPECT_THAT(test.commands, ElementsAre(Command{"a"}, Command{"b", "before"}));
}

TEST(ScriptInterpreter, FailingCommandIsReportedWithTheLineAsItRan) {
  setVariable("A", "x,y");
  RecordedCommands test;
  test.meanwhile = [](const Command& command) {
    if (command.front() == "b") {
      throw FWKTError::fdslError("The url should be given");
    }
  };
  EXPECT_THAT([&] { test.executeActions("a\n \tb,${A} \nc"); },
              testing::raisesFdslError("Error on line b,x,y (line: 2). Cause: The url should be given"));
  EXPECT_THAT(test.commands, ElementsAre(Command{"a"}, Command{"b", "x", "y"}));
}

TEST(ScriptInterpreter, EmptyLinesAndCommentsCount) {
  testing::TestPlatform platform;
  quobrakUITests test;
  EXPECT_THAT([&] { test.executeActions("pause,10000\n\n# comment\nnope"); },
              testing::raisesFdslError("Error on line nope (line: 4). Cause: Function nope is not implemented"));
  EXPECT_EQ(platform.elapsed(), std::chrono::seconds(10));
}

TEST(ScriptInterpreter, CarriageReturnAndLineFeedAreTwoLineEnds) {
  testing::TestPlatform platform;
  quobrakUITests test;
  EXPECT_THAT([&] { test.executeActions("pause,1\r\nnope,a\r\n"); },
              testing::raisesFdslError("Error on line nope,a (line: 3). Cause: Function nope is not implemented"));
}

TEST(ScriptInterpreter, OtherErrorsOfCommandsPassUnchanged) {
  RecordedCommands test;
  test.meanwhile = [](const Command&) { throw FWKTError::documentDirectoryError("The disk is full."); };
  EXPECT_THAT([&] { test.executeActions("a\nb"); }, testing::raisesDocumentDirectoryError("The disk is full."));
  test.meanwhile = [](const Command&) { throw FWKTError::envVariableError("The class is not set"); };
  EXPECT_THAT([&] { test.executeActions("a\nb"); }, testing::raisesEnvVariableError("The class is not set"));
  test.meanwhile = [](const Command&) { throw std::runtime_error("The battery is empty."); };
  EXPECT_THAT([&] { test.executeActions("a\nb"); }, ThrowsMessage<std::runtime_error>("The battery is empty."));
  EXPECT_THAT(test.commands, ElementsAre(Command{"a"}, Command{"a"}, Command{"a"}));
}

TEST(ScriptInterpreter, ErrorOfTheDriverPassesUnchanged) {
  testing::TestPlatform platform;
  platform.driver().before = [](std::string_view, const std::string&) {
    throw UIAutomationError("The phone is gone.");
  };
  quobrakUITests test;
  EXPECT_THAT([&] { test.executeActions("pressHome"); }, ThrowsMessage<UIAutomationError>("The phone is gone."));
}

TEST(ScriptInterpreter, FatalStopNamesTheLine) {
  testing::TestPlatform platform;
  setVariable("A", "x");
  quobrakUITests test;
  EXPECT_DEATH(test.executeActions("pause,1\n\n  clickByText"),
               Eq("Fatal error: Index out of range: the field 1 (selector) is missing (line 3: clickByText)\n"));
  EXPECT_DEATH(test.executeActions("measureStop,${A}"),
               Eq("Fatal error: Index out of range: measureStop without a measureStart before it (line 1: "
                  "measureStop,x)\n"));
  EXPECT_DEATH(
      test.executeActions("pause,4294968"),
      Eq("Fatal error: The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and 4294967 "
         "ms (line 1: pause,4294968)\n"));
}

}  // namespace
}  // namespace quobrak
