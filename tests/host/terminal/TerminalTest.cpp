#include "host/terminal/Terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <map>

namespace quobrak::host {
namespace {

using Variables = std::map<std::string, std::string>;

EnvironmentVariable among(const Variables& variables) {
  return [&variables](const std::string& name) {
    const auto found = variables.find(name);
    return found == variables.end() ? std::nullopt : std::optional(found->second);
  };
}

constexpr Stream PERSON{.isTerminal = true, .columns = 123};
constexpr Stream NOBODY{.isTerminal = false, .columns = 0};

Terminal terminalWith(const Stream& stream, const Variables& variables) {
  return terminalOf(stream, among(variables));
}

TEST(Terminal, IsInteractiveAndHasColourWhereATerminalIs) {
  const Terminal terminal = terminalWith(PERSON, {{"TERM", "xterm"}});
  EXPECT_TRUE(terminal.isInteractive);
  EXPECT_TRUE(terminal.hasColour);
  EXPECT_EQ(terminal.width, 123U);
}

TEST(Terminal, HasNoColourWhereItIsUnwanted) {
  EXPECT_FALSE(terminalWith(PERSON, {{"TERM", "xterm"}, {"NO_COLOR", "1"}}).hasColour);
  EXPECT_TRUE(terminalWith(PERSON, {{"TERM", "xterm"}, {"NO_COLOR", ""}}).hasColour);
}

TEST(Terminal, HasColourWhereItIsForced) {
  EXPECT_TRUE(terminalWith(NOBODY, {{"CLICOLOR_FORCE", "1"}}).hasColour);
  EXPECT_FALSE(terminalWith(NOBODY, {{"CLICOLOR_FORCE", "1"}}).isInteractive);
  EXPECT_FALSE(terminalWith(NOBODY, {{"CLICOLOR_FORCE", "0"}}).hasColour);
  EXPECT_FALSE(terminalWith(NOBODY, {{"CLICOLOR_FORCE", "1"}, {"NO_COLOR", "1"}}).hasColour);
}

TEST(Terminal, IsNotInteractiveWhereItIsDumbOrUnknown) {
  EXPECT_FALSE(terminalWith(PERSON, {{"TERM", "dumb"}}).isInteractive);
  EXPECT_FALSE(terminalWith(PERSON, {}).isInteractive);
}

TEST(Terminal, IsNoneWhereAFileIs) {
  const int file = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  const Variables variables{{"TERM", "xterm"}};
  const Terminal terminal = terminalOf(file, among(variables));
  ::close(file);
  EXPECT_FALSE(terminal.isInteractive);
  EXPECT_FALSE(terminal.hasColour);
  EXPECT_EQ(terminal.width, 80U);
}

TEST(Terminal, IsKnownByItsDescriptor) {
  const winsize size{.ws_row = 24, .ws_col = 99, .ws_xpixel = 0, .ws_ypixel = 0};
  int controller = -1;
  int pseudoTerminal = -1;
  if (::openpty(&controller, &pseudoTerminal, nullptr, nullptr, &size) != 0) {
    std::cout << "skipped: this machine has no pseudo terminals" << std::endl;
    constexpr int SKIPPED = 77;
    std::exit(SKIPPED);
  }
  const Variables variables{{"TERM", "xterm"}};
  const Terminal terminal = terminalOf(pseudoTerminal, among(variables));
  ::close(controller);
  ::close(pseudoTerminal);
  EXPECT_TRUE(terminal.isInteractive);
  EXPECT_EQ(terminal.width, 99U);
}

TEST(Terminal, HasTheUsualWidthWhereItDoesNotTellIts) {
  EXPECT_EQ(terminalWith({.isTerminal = true, .columns = 0}, {{"TERM", "xterm"}}).width, 80U);
}

TEST(Terminal, StylesTextOnlyWhereThereIsColour) {
  const Terminal coloured{.isInteractive = true, .hasColour = true};
  EXPECT_EQ(coloured.styled(Style::red, "no"), "\x1b[31mno\x1b[0m");
  EXPECT_EQ(coloured.styled(Style::bold, "no"), "\x1b[1mno\x1b[0m");
  EXPECT_EQ(coloured.styled(Style::plain, "no"), "no");
  EXPECT_EQ(coloured.styled(Style::red, ""), "");
  EXPECT_EQ(Terminal{}.styled(Style::red, "no"), "no");
}

TEST(DisplayWidth, CountsColumns) {
  EXPECT_EQ(displayWidth(""), 0U);
  EXPECT_EQ(displayWidth("Über"), 4U);
  EXPECT_EQ(displayWidth("設定"), 4U);
  EXPECT_EQ(displayWidth("😀"), 2U);
  EXPECT_EQ(displayWidth("e\u0301"), 1U);
  EXPECT_EQ(displayWidth("a\u200Db"), 2U);
  EXPECT_EQ(displayWidth("\x1b[31mred\x1b[0m"), 3U);
  EXPECT_EQ(displayWidth("\xFF"), 1U);
}

TEST(DisplayWidth, TakesNoOtherSequenceForAStyle) {
  EXPECT_EQ(displayWidth("\x1b[31"), 3U);
  EXPECT_EQ(displayWidth("\x1b[2Ja"), 4U);
}

TEST(Counted, IsOneOrMany) {
  EXPECT_EQ(counted(0, "script"), "0 scripts");
  EXPECT_EQ(counted(1, "script"), "1 script");
  EXPECT_EQ(counted(2, "script"), "2 scripts");
}

TEST(Padded, AddsBlanksUpToTheColumns) {
  EXPECT_EQ(padded("設", 4), "設  ");
  EXPECT_EQ(padded("long", 2), "long");
}

TEST(Shown, ReplacesWhatWouldMoveTheCursor) {
  EXPECT_EQ(shown("a\x1b[2Jb"), "a␛[2Jb");
  EXPECT_EQ(shown("a\tb\x7F"), "a␉b␡");
  EXPECT_EQ(shown(std::string_view("\0", 1)), "␀");
  EXPECT_EQ(shown("\xC2\x9B"), "\uFFFD");
  EXPECT_EQ(shown("ab\xFF"), "ab\uFFFD");
  EXPECT_EQ(shown("Über 設定"), "Über 設定");
}

TEST(Shortened, EndsWithAnEllipsisWhereSomethingIsCutOff) {
  EXPECT_EQ(shortened("abcdef", 6), "abcdef");
  EXPECT_EQ(shortened("abcdef", 5), "abcd…");
  EXPECT_EQ(shortened("設定設定", 4), "設…");
  EXPECT_EQ(shortened("ab", 1), "…");
  EXPECT_EQ(shortened("ab", 0), "");
}

}  // namespace
}  // namespace quobrak::host
