#include "host/check/FindingsText.h"

#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

constexpr Terminal PLAIN{.isInteractive = false, .hasColour = false, .width = 80};
constexpr Terminal COLOURED{.isInteractive = true, .hasColour = true, .width = 80};

std::string textFor(const std::string& script, const Terminal& terminal = PLAIN, const Variables& variables = {}) {
  const std::vector<ScriptSource> scripts{{.name = "s.txt", .bytes = script}};
  return inWords(check(scripts, {.variables = variables, .isOrderKnown = true}), scripts, terminal);
}

TEST(FindingsText, HasThePlaceTheMessageTheLineAndTheHint) {
  EXPECT_EQ(textFor("  clickByTxt,Browse\n"),
            "s.txt:1:3: error: Function clickByTxt is not implemented [unknown-command]\n"
            "      clickByTxt,Browse\n"
            "      ^~~~~~~~~~\n"
            "    did you mean clickByText or clickByXY?\n");
}

TEST(FindingsText, SaysThatTheRunIsAborted) {
  EXPECT_EQ(textFor("pause,4294968\nclickByTextOnSystemPopup\n"),
            "s.txt:1:7: error: The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and 4294967 "
            "ms [pause-out-of-range]\n"
            "    pause,4294968\n"
            "          ^~~~~~~\n"
            "    this aborts the run: nothing is told of its scripts, and no measure is written\n"
            "s.txt:2:25: error: Index out of range: the field 1 (selector) is missing [missing-argument]\n"
            "    clickByTextOnSystemPopup\n"
            "                            ^\n"
            "    it is written clickByTextOnSystemPopup,selector\n"
            "    this aborts the run: nothing is told of its scripts, and no measure is written\n");
}

TEST(FindingsText, TellsTheLineInAnEditorWhereThatIsAnother) {
  EXPECT_EQ(textFor("pause,x\r\npause,1\r\npause,4294968\n"),
            "s.txt:1:7: error: The pause duration x should be a positive integer [malformed-argument]\n"
            "    pause,x\n"
            "          ^\n"
            "s.txt:5:7: error: The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and 4294967 "
            "ms [pause-out-of-range]\n"
            "    pause,4294968\n"
            "          ^~~~~~~\n"
            "    this aborts the run: nothing is told of its scripts, and no measure is written\n"
            "    line 3 in an editor: carriage return and line feed are two line ends for the run\n");
  EXPECT_EQ(textFor("pause,1\r\n\xFF"),
            "s.txt:3:1: error: The file s.txt is missing in the document directory [unreadable-text]\n"
            "    \xEF\xBF\xBD\n"
            "    ^\n"
            "    the byte 0xFF is no UTF-8: save the file as UTF-8\n"
            "    the run does not begin\n"
            "    line 2 in an editor: carriage return and line feed are two line ends for the run\n");
}

TEST(FindingsText, PutsTheMarkBelowWideCharactersAndTabs) {
  EXPECT_EQ(textFor("\tclickByTextOnSystemPopup,設定, e\xCC\x81\t,x\n"),
            "s.txt:1:30: warning: clickByTextOnSystemPopup takes 1 argument: what follows is ignored [surplus-field]\n"
            "        clickByTextOnSystemPopup,設定, e\xCC\x81    ,x\n"
            "                                      ^~~~~~~~\n"
            "    no argument contains a comma\n");
}

TEST(FindingsText, ShowsControlCharactersAsSigns) {
  EXPECT_EQ(textFor("pause,1\x1b[31m\x7F\n"),
            "s.txt:1:7: error: The pause duration 1␛[31m␡ should be a positive integer [malformed-argument]\n"
            "    pause,1␛[31m␡\n"
            "          ^~~~~~~\n"
            "s.txt:1:8: warning: The line holds the control character U+001B [control-character]\n"
            "    pause,1␛[31m␡\n"
            "           ^\n"
            "    it belongs to the name or the argument in which it stands\n");
}

TEST(FindingsText, CutsLongLines) {
  EXPECT_EQ(textFor("clickByTextOnSystemPopup," + std::string(70, 'a') + "," + std::string(200, 'b') + "\n"),
            "s.txt:1:97: warning: clickByTextOnSystemPopup takes 1 argument: what follows is ignored [surplus-field]\n"
            "    …" +
                std::string(59, 'a') + "," + std::string(100, 'b') +
                "…\n"
                "    " +
                std::string(61, ' ') + "^" + std::string(99, '~') + "\n    no argument contains a comma\n");
}

TEST(FindingsText, HasNoLineWhereThereIsNone) {
  EXPECT_EQ(textFor(""),
            "s.txt:1:1: warning: The script has no command [no-command]\n    it succeeds, and does nothing\n");
  EXPECT_EQ(textFor("\xFF\xFE"
                    "a"),
            "s.txt:1:1: error: The file s.txt is missing in the document directory [unreadable-text]\n"
            "    it begins as UTF-16, and is ill-formed behind that: save it as UTF-8\n"
            "    the run does not begin\n");
}

TEST(FindingsText, HasColoursWhereTheTerminalHas) {
  EXPECT_EQ(textFor("pause,x", COLOURED),
            "\x1b[1ms.txt:1:7:\x1b[0m \x1b[31merror:\x1b[0m The pause duration x should be a positive "
            "integer\x1b[2m [malformed-argument]\x1b[0m\n"
            "    pause,x\n"
            "          \x1b[32m^\x1b[0m\n");
  EXPECT_EQ(textFor("pressHome,x", COLOURED).substr(0, 43), "\x1b[1ms.txt:1:11:\x1b[0m \x1b[33mwarning:\x1b[0m press");
}

TEST(FindingsText, CountsInItsSummary) {
  const std::vector<ScriptSource> scripts{{.name = "s.txt", .bytes = "pause,x\npause,y\npause,1,2"}};
  const std::vector<Finding> findings = check(scripts, {});
  EXPECT_EQ(summaryOf(findings, 1), "1 script, 2 errors, 1 warning");
  EXPECT_EQ(summaryOf({}, 3), "3 scripts, 0 errors, 0 warnings");
}

}  // namespace
}  // namespace quobrak::host
