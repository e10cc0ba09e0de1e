#include "host/program/BashCompletion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/program/ShellText.h"
#include "tests/host/program/SampleProgram.h"
#include "tests/host/program/ShellRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BashCompletion : public ::testing::Test {
 protected:
  BashCompletion() {
    needsProgram("bash");
    folder.write("script.bash", bashCompletion(sampleProgram()));
    folder.write("work/one.txt", "");
    folder.write("work/pictures/two.txt", "");
  }

  /// What bash completes behind these words, the last of which is being typed.
  std::vector<std::string> completed(const std::vector<std::string>& words) const {
    const std::string program = "cd " + quotedForShell((folder.path() / "work").string()) +
                                " && . ../script.bash && COMP_WORDS=(" + quotedForShell(words) +
                                ") && COMP_CWORD=" + std::to_string(words.size() - 1) +
                                " && _quobrak && for c in \"${COMPREPLY[@]}\"; do echo \"$c\"; done";
    return sortedLines(printedBy("bash --norc -c " + quotedForShell(program)));
  }

  const quobrak::testing::TemporaryFolder folder;
};

TEST_F(BashCompletion, OfSubcommands) {
  EXPECT_THAT(completed({"quobrak", ""}), ElementsAre("completion", "help", "paint", "show"));
  EXPECT_THAT(completed({"quobrak", "p"}), ElementsAre("paint"));
  EXPECT_THAT(completed({"quobrak", "x"}), IsEmpty());
}

TEST_F(BashCompletion, OfOptions) {
  EXPECT_THAT(completed({"quobrak", "--"}), ElementsAre("--help", "--version"));
  EXPECT_THAT(completed({"quobrak", "paint", "--t"}), ElementsAre("--tag", "--theme"));
  EXPECT_THAT(completed({"quobrak", "paint", "one.txt", "--o"}), ElementsAre("--out"));
}

TEST_F(BashCompletion, OfValues) {
  EXPECT_THAT(completed({"quobrak", "paint", "--format", ""}), ElementsAre("json", "text"));
  EXPECT_THAT(completed({"quobrak", "paint", "--theme", "p"}), ElementsAre("painter's"));
  EXPECT_THAT(completed({"quobrak", "paint", "--number", ""}), IsEmpty());
}

TEST_F(BashCompletion, OfValuesBehindAnEqualsSign) {
  EXPECT_THAT(completed({"quobrak", "paint", "--format", "="}), ElementsAre("json", "text"));
  EXPECT_THAT(completed({"quobrak", "paint", "--format", "=", "j"}), ElementsAre("json"));
}

TEST_F(BashCompletion, OfFilesAndFolders) {
  EXPECT_THAT(completed({"quobrak", "paint", ""}), ElementsAre("one.txt", "pictures"));
  EXPECT_THAT(completed({"quobrak", "paint", "one.txt", "pictures/"}), ElementsAre("pictures/two.txt"));
  EXPECT_THAT(completed({"quobrak", "paint", "-o", ""}), ElementsAre("pictures"));
}

TEST_F(BashCompletion, TakesNothingForAnOptionBehindTwoHyphens) {
  folder.write("work/--odd.txt", "");
  EXPECT_THAT(completed({"quobrak", "paint", "--", "--"}), ElementsAre("--odd.txt"));
}

TEST_F(BashCompletion, OfArgumentsByTheirPlace) {
  EXPECT_THAT(completed({"quobrak", "show", "p"}), ElementsAre("pause", "pressHome"));
  EXPECT_THAT(completed({"quobrak", "show", "pause", ""}), IsEmpty());
  EXPECT_THAT(completed({"quobrak", "show", "--", "p"}), ElementsAre("pause", "pressHome"));
}

TEST_F(BashCompletion, IsRegistered) {
  EXPECT_EQ(
      printedBy("bash --norc -c " + quotedForShell(". " + quotedForShell((folder.path() / "script.bash").string()) +
                                                   " && complete -p quobrak")),
      "complete -F _quobrak quobrak\n");
}

}  // namespace
}  // namespace quobrak::host
