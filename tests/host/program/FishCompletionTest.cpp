#include "host/program/FishCompletion.h"

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

class FishCompletion : public ::testing::Test {
 protected:
  FishCompletion() {
    needsProgram("fish");
    folder.write("script.fish", fishCompletion(sampleProgram()));
    folder.write("work/one.txt", "");
    folder.write("work/pictures/two.txt", "");
  }

  /// What fish completes at the end of the line, with a tabulator before what is said of it.
  std::vector<std::string> completed(const std::string& line) const {
    const std::string root = folder.path().string();
    const std::string program = "cd " + root + "/work; source ../script.fish; complete -C '" + line + "'";
    return sortedLines(printedBy("HOME=" + root + " fish --private --no-config -c " + quotedForShell(program)));
  }

  const quobrak::testing::TemporaryFolder folder;
};

TEST_F(FishCompletion, OfSubcommands) {
  EXPECT_THAT(completed("quobrak p"), ElementsAre("paint\tPaints what a file says"));
  EXPECT_THAT(completed("quobrak "), ::testing::SizeIs(4));
}

TEST_F(FishCompletion, OfOptions) {
  EXPECT_THAT(completed("quobrak --v"), ElementsAre("--version\tPrint the version and end"));
  EXPECT_THAT(completed("quobrak paint --t"),
              ElementsAre("--tag\tWhat to remember it by", "--theme\tIn which colours"));
  EXPECT_THAT(completed("quobrak show --t"), IsEmpty());
}

TEST_F(FishCompletion, OfValues) {
  EXPECT_THAT(completed("quobrak paint --format "), ElementsAre("json\tHow to write it", "text\tHow to write it"));
  EXPECT_THAT(completed("quobrak paint --theme p"), ElementsAre("painter's\tIn which colours"));
  EXPECT_THAT(completed("quobrak paint --number "), IsEmpty());
}

TEST_F(FishCompletion, OfFilesAndFolders) {
  EXPECT_THAT(completed("quobrak paint "), ElementsAre("one.txt", "pictures/"));
  EXPECT_THAT(completed("quobrak paint -o "), ElementsAre("pictures/\tDirectory"));
}

TEST_F(FishCompletion, OfArguments) {
  EXPECT_THAT(completed("quobrak show p"), ElementsAre("pause", "pressHome"));
  EXPECT_THAT(completed("quobrak help p"), ElementsAre("paint"));
}

}  // namespace
}  // namespace quobrak::host
