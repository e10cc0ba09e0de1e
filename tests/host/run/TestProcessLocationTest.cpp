#include "host/run/TestProcessLocation.h"

#include <gtest/gtest.h>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

class TheTestProcess : public ::testing::Test {
 protected:
  fs::path program(const fs::path& file) const {
    folder.write(file, "");
    fs::permissions(folder.path() / file, fs::perms(0755));
    return folder.path() / file;
  }

  fs::path here() const { return folder.path() / "here"; }

  std::string errorOf(const std::optional<fs::path>& option, const EnvironmentVariables& own) const {
    try {
      locateTestProcess(option, own, here());
    } catch (const EnvironmentError& error) {
      return error.what();
    }
    return "";
  }

  const TemporaryFolder folder;
};

TEST_F(TheTestProcess, IsWhatTheOptionSaysFirstOfAll) {
  const fs::path named = program("named");
  const fs::path other = program("other");
  program("here/quobrakUITests");
  EXPECT_EQ(locateTestProcess(named, {{"QUOBRAK_TEST_PROCESS", other.string()}}, here()), named);
  EXPECT_EQ(locateTestProcess(std::nullopt, {{"QUOBRAK_TEST_PROCESS", other.string()}}, here()), other);
}

TEST_F(TheTestProcess, StandsBesideThisProgram) {
  const fs::path beside = program("here/quobrakUITests");
  const fs::path inPath = program("bin/quobrakUITests");
  EXPECT_EQ(locateTestProcess(std::nullopt, {{"PATH", inPath.parent_path().string()}}, here()), beside);
}

TEST_F(TheTestProcess, IsFoundInPath) {
  folder.write("a/quobrakUITests", "no program");
  fs::create_directories(folder.path() / "b/quobrakUITests");
  const fs::path found = program("c/quobrakUITests");
  const std::string root = folder.path().string();
  EXPECT_EQ(locateTestProcess(std::nullopt, {{"PATH", root + "/a:" + root + "/b::" + root + "/c"}}, here()), found);
}

TEST_F(TheTestProcess, ThatIsNowhereIsTold) {
  EXPECT_EQ(errorOf(std::nullopt, {{"PATH", "/nowhere"}}),
            "the test process quobrakUITests is neither in " + here().string() +
                " nor in a folder of PATH. Build it there, or name it with --test-process");
  EXPECT_EQ(
      errorOf(std::nullopt, {{"QUOBRAK_TEST_PROCESS", "/nowhere"}}),
      "QUOBRAK_TEST_PROCESS is /nowhere, but there is no file that could be started: it must be the test process, "
      "quobrakUITests");
  folder.write("text", "");
  EXPECT_EQ(errorOf(folder.path() / "text", {}),
            "--test-process is " + (folder.path() / "text").string() +
                ", but there is no file that could be started: it must be the test process, quobrakUITests");
}

TEST(ThisProgram, KnowsItsFolder) {
  EXPECT_TRUE(fs::exists(folderOfThisProgram() / "host_run_tests"));
}

}  // namespace
}  // namespace quobrak::host
