#include "host/program/ZshCompletion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "host/program/ShellText.h"
#include "tests/host/program/SampleProgram.h"
#include "tests/host/program/ShellRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Types a line into an interactive zsh on a terminal of its own and presses the tabulator key; prints what is offered,
/// on a line each. Arguments: how the shell learns of the completion, and the line.
constexpr const char* TYPING = R"zsh(
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "PS1=; unset zle_bracketed_paste; autoload -Uz compinit; $1
compadd() {
  if [[ \${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]]; then builtin compadd \"\$@\"; return \$?; fi
  local -a hits; builtin compadd -A hits \"\$@\"
  print -rl -- '' \${hits/#/offered:}
  builtin compadd \"\$@\"
}
complete-and-tell() { zle complete-word; print; print 'all is ''offered' }
zle -N complete-and-tell
bindkey '^I' complete-and-tell
print 'the shell ''is ready'"
zpty -r shell ready '*the shell is ready*'
zpty -w -n shell "$2"$'\t'
zpty -r shell shown '*all is offered*'
zpty -d shell
for line in ${(f)shown}; do
  line=${line//$'\r'/}
  if [[ $line == *offered:* ]]; then print -r -- "${line##*offered:}"; fi
done
)zsh";

class ZshCompletion : public ::testing::Test {
 protected:
  ZshCompletion() {
    needsProgram("zsh");
    folder.write("functions/_quobrak", zshCompletion(sampleProgram()));
    folder.write("typing.zsh", TYPING);
    folder.write("work/one.txt", "");
    folder.write("work/pictures/two.txt", "");
  }

  std::vector<std::string> completed(const std::string& line) const {
    return completedAfter("compinit -u -D; source ../functions/_quobrak", line);
  }

  std::vector<std::string> completedAfter(const std::string& preparation, const std::string& line) const {
    std::vector<std::string> offered = sortedLines(printedBy("cd " + quotedForShell((folder.path() / "work").string()) +
                                                             " && timeout 60 zsh -f ../typing.zsh " +
                                                             quotedForShell(preparation) + " " + quotedForShell(line)));
    // Folders are offered as such and as files.
    offered.erase(std::unique(offered.begin(), offered.end()), offered.end());
    return offered;
  }

  const quobrak::testing::TemporaryFolder folder;
};

TEST_F(ZshCompletion, IsReadWithoutAnError) {
  EXPECT_EQ(printedBy("zsh -n " + quotedForShell((folder.path() / "functions/_quobrak").string())), "");
}

TEST_F(ZshCompletion, OfSubcommands) {
  EXPECT_THAT(completed("quobrak p"), ElementsAre("paint"));
  EXPECT_THAT(completed("quobrak "), ElementsAre("completion", "help", "paint", "show"));
}

TEST_F(ZshCompletion, IsFoundByItsName) {
  EXPECT_THAT(completedAfter("fpath=(../functions $fpath); compinit -u -D", "quobrak p"), ElementsAre("paint"));
}

TEST_F(ZshCompletion, OfOptions) {
  EXPECT_THAT(completed("quobrak --v"), ElementsAre("--version"));
  EXPECT_THAT(completed("quobrak paint --t"), ElementsAre("--tag", "--theme"));
}

TEST_F(ZshCompletion, OfValues) {
  EXPECT_THAT(completed("quobrak paint --format "), ElementsAre("json", "text"));
  EXPECT_THAT(completed("quobrak paint --format=j"), ElementsAre("json"));
  EXPECT_THAT(completed("quobrak paint --theme p"), ElementsAre("painter\\'s"));
  EXPECT_THAT(completed("quobrak paint --number "), IsEmpty());
}

TEST_F(ZshCompletion, OfFilesAndFolders) {
  EXPECT_THAT(completed("quobrak paint o"), ElementsAre("one.txt"));
  EXPECT_THAT(completed("quobrak paint one.txt p"), ElementsAre("pictures"));
  EXPECT_THAT(completed("quobrak paint -o "), ElementsAre("pictures"));
}

TEST_F(ZshCompletion, OfArgumentsByTheirPlace) {
  EXPECT_THAT(completed("quobrak show p"), ElementsAre("pause", "pressHome"));
  EXPECT_THAT(completed("quobrak show pause p"), IsEmpty());
}

}  // namespace
}  // namespace quobrak::host
