#include "host/check/ScriptChecker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using testing::findingsIn;
using ::testing::IsEmpty;
using testing::variablesOf;

constexpr const char* START = "applicationStart,com.example.shop\n";
constexpr const char* SMILE = "\xF0\x9F\x98\x80";

TEST(ScriptChecker, HasNothingAgainstAGoodScript) {
  EXPECT_THAT(findingsIn("# Shows the list.\n\napplicationStart,com.example.shop\r\n  clickByText,Browse products\t\n"
                         "measureStart,Step\npause,10\nmeasureStop\nclickOnLastElementFound"),
              IsEmpty());
}

TEST(ScriptChecker, TellsOfUnknownCommands) {
  EXPECT_THAT(
      findingsIn(std::string(START) + "clickByTxt,a\nclickbytext,a\nclickByText ,a\n,\nunthinkable\n\"pause\",1"),
      ElementsAre("2:1-11 error unknown-command: Function clickByTxt is not implemented (did you mean clickByText or "
                  "clickByXY?)",
                  "3:1-12 error unknown-command: Function clickbytext is not implemented (small and capital letters "
                  "differ: write clickByText)",
                  "4:1-13 error unknown-command: Function clickByText  is not implemented (a blank before the comma "
                  "belongs to the name: write clickByText)",
                  "5:1-1 error unknown-command: Function  is not implemented",
                  "6:1-12 error unknown-command: Function unthinkable is not implemented",
                  "7:1-8 error unknown-command: Function \"pause\" is not implemented (did you mean pause?)"));
}

TEST(ScriptChecker, CountsLinesAsTheRunDoes) {
  EXPECT_THAT(findingsIn("pause,1\r\nx\x0B"
                         "y\xE2\x80\xA8z"),
              ElementsAre("3:1-2 error unknown-command: Function x is not implemented",
                          "4:1-2 error unknown-command: Function y is not implemented",
                          "5:1-2 error unknown-command: Function z is not implemented"));
}

TEST(ScriptChecker, TellsOfVariablesThatAreMissingAndGoesOn) {
  EXPECT_THAT(
      findingsIn(std::string(START) + "clickByText,${PRODUKT}\nenterText,${A}${B}${A},x\npause,y",
                 variablesOf({{"PRODUCT", "Lamp"}, {"B", "<${C}>"}})),
      ElementsAre("2:13-23 error missing-variable: You need to pass the extra parameter PRODUKT to your test (did you "
                  "mean PRODUCT? Or pass it with --var PRODUKT=…)",
                  "3:11-15 error missing-variable: You need to pass the extra parameter A to your test (pass it with "
                  "--var A=…)",
                  "3:15-19 error missing-variable: You need to pass the extra parameter C to your test (the value of "
                  "this reference brings ${C}; pass it with --var C=…)",
                  "3:24-25 error malformed-argument: The frequency x should be an integer",
                  "4:7-8 error malformed-argument: The pause duration y should be a positive integer"));
}

TEST(ScriptChecker, TellsOfVariablesThatNeverEnd) {
  EXPECT_THAT(
      findingsIn("pause,${A}\npressHome,\n", variablesOf({{"A", "${B}"}, {"B", "1${A}"}})),
      ElementsAre("1:7-11 error endless-variable, endless: The variable A refers to itself: the run would never "
                  "end (values are searched for references too)",
                  "2:11-11 warning surplus-field: pressHome takes no arguments: what follows is ignored (no "
                  "argument contains a comma)"));
}

TEST(ScriptChecker, TellsOfReferencesThatStay) {
  EXPECT_THAT(
      findingsIn(std::string(START) + "enterTextFast," + SMILE + "${A}\nenterTextFast,${a-b}${ A }$A",
                 variablesOf({{"A", "1"}})),
      ElementsAre("2:16-20 warning unreplaced-reference: The reference ${A} is not replaced, and stays as it is "
                  "(put it before emoji and other characters of several parts)",
                  "3:15-21 warning look-alike-reference: ${a-b} is no reference to a variable, and stays as it "
                  "is (names of variables are made of letters, digits and _)",
                  "3:21-27 warning look-alike-reference: ${ A } is no reference to a variable, and stays as it "
                  "is (a reference is written ${A})",
                  "3:27-29 warning look-alike-reference: $A is no reference to a variable, and stays as it is "
                  "(a reference is written ${A})"));
}

TEST(ScriptChecker, RunsValuesThatAreLinesByThemselves) {
  EXPECT_THAT(findingsIn("${LINE}\n${EMPTY}\n${COMMENT}\n${BLANK}",
                         variablesOf({{"LINE", "pause,x"}, {"EMPTY", ""}, {"COMMENT", "# pause"}, {"BLANK", " "}})),
              ElementsAre("1:1-8 error malformed-argument: The pause duration x should be a positive integer",
                          "4:1-9 error unknown-command: Function   is not implemented"));
}

TEST(ScriptChecker, TellsOfControlCharacters) {
  using namespace std::string_literals;
  const std::string hint = " (it belongs to the name or the argument in which it stands)";
  EXPECT_THAT(findingsIn(START + "enterText,é\0\x1b\npressHome\t\n# \x1b[0m\n\x1b\nclickByText,\u0080"s),
              ElementsAre("2:12-13 warning control-character: The line holds the control character U+0000" + hint,
                          "5:1-2 error unknown-command: Function \x1b is not implemented",
                          "5:1-2 warning control-character: The line holds the control character U+001B" + hint,
                          "6:13-14 warning control-character: The line holds the control character U+0080" + hint));
}

TEST(ScriptChecker, TellsOfScriptsWithoutACommand) {
  const std::string finding = "1:1-1 warning no-command: The script has no command (it succeeds, and does nothing)";
  EXPECT_THAT(findingsIn(""), ElementsAre(finding));
  EXPECT_THAT(findingsIn("\n# pause,1\n \t\n"), ElementsAre(finding));
  EXPECT_THAT(findingsIn("${EMPTY}", variablesOf({{"EMPTY", ""}})), ElementsAre(finding));
}

TEST(ScriptChecker, TellsOfFilesThatAreNoText) {
  EXPECT_THAT(findingsIn("pause,1\nenterText,caf\xE9\n"),
              ElementsAre("2:14-15 error unreadable-text, prevents: The file script1.txt is missing in the document "
                          "directory (the byte 0xE9 is no UTF-8: save the file as UTF-8)"));
}

TEST(ScriptChecker, ReadsTheEncodingsOfScripts) {
  using namespace std::string_literals;
  const std::string finding = "1:1-2 error unknown-command: Function ü is not implemented";
  EXPECT_THAT(findingsIn("\xEF\xBB\xBF\xC3\xBC"), ElementsAre(finding));
  EXPECT_THAT(findingsIn("\xFF\xFE\xFC\0"s), ElementsAre(finding));
  EXPECT_THAT(findingsIn("\0\0\xFE\xFF\0\0\0\xFC"s), ElementsAre(finding));
}

}  // namespace
}  // namespace quobrak::host
