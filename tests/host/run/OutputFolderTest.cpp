#include "host/run/OutputFolder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::TemporaryFolder;

class AnOutputFolder : public ::testing::Test {
 protected:
  /// What the error says; empty where there is none.
  template <class Error>
  static std::string errorOf(const fs::path& path) {
    try {
      OutputFolder::chosen(path);
    } catch (const Error& error) {
      return error.what();
    }
    return "";
  }

  const TemporaryFolder folder;
  const fs::path out = folder.path() / "results/out";
};

TEST_F(AnOutputFolder, IsMadeLockedAndMarked) {
  {
    const OutputFolder made = OutputFolder::chosen(out);
    EXPECT_EQ(made.path(), out);
    EXPECT_EQ(folder.read("results/out/.lock"), std::to_string(::getpid()));
    const FileDescriptor other(::open((out / ".lock").c_str(), O_RDWR | O_CLOEXEC));
    EXPECT_EQ(::flock(other.number(), LOCK_EX | LOCK_NB), -1);
  }
  EXPECT_THAT(folder.files(), ElementsAre("results/out/.quobrak-results"));
}

TEST_F(AnOutputFolder, MayBeThereAndEmpty) {
  fs::create_directories(out);
  EXPECT_EQ(OutputFolder::chosen(out).path(), out);
}

TEST_F(AnOutputFolder, MayHoldTheMarkOfARunThatLeftNothing) {
  OutputFolder::chosen(out);
  EXPECT_EQ(OutputFolder::chosen(out).path(), out);
}

TEST_F(AnOutputFolder, ThatCannotBeMarkedIsToldAndLeftWithoutALock) {
  fs::create_directories(out);
  fs::create_symlink("elsewhere", out / ".quobrak-results");
  EXPECT_EQ(errorOf<EnvironmentError>(out),
            "the results cannot be written to " + out.string() + ": Too many levels of symbolic links");
  EXPECT_FALSE(fs::exists(out / ".lock"));
}

TEST_F(AnOutputFolder, MayHoldTheLockOfARunThatIsNoMore) {
  folder.write("results/out/.lock", "a longer text than a number");
  const OutputFolder made = OutputFolder::chosen(out);
  EXPECT_EQ(folder.read("results/out/.lock"), std::to_string(::getpid()));
}

TEST_F(AnOutputFolder, IsRefusedWhereItHoldsAnything) {
  for (const char* name : {"b", "a", "d", "e", "c"}) {
    folder.write(fs::path("results/out") / name, "");
  }
  EXPECT_EQ(errorOf<UseError>(out), "the folder " + out.string() +
                                        " has a, b, c and 2 more in it already, and nothing is overwritten: choose "
                                        "another folder with --out, or empty this one");
  EXPECT_EQ(folder.files().size(), 5U);
}

TEST_F(AnOutputFolder, IsLeftAsItIsWhereItIsRefused) {
  folder.write("results/out/.lock", "somebody else's");
  folder.write("results/out/file", "");
  EXPECT_EQ(errorOf<UseError>(out), "the folder " + out.string() +
                                        " has file in it already, and nothing is overwritten: choose another folder "
                                        "with --out, or empty this one");
  EXPECT_EQ(folder.read("results/out/.lock"), "somebody else's");
}

TEST_F(AnOutputFolder, IsRefusedWhereAnotherRunUsesIt) {
  const OutputFolder first = OutputFolder::chosen(out);
  EXPECT_EQ(errorOf<UseError>(out), "the folder " + out.string() + " is in use by another run, process " +
                                        std::to_string(::getpid()) +
                                        ": wait for its end, or choose another folder with --out");
  EXPECT_EQ(folder.read("results/out/.lock"), std::to_string(::getpid()));
}

TEST_F(AnOutputFolder, IsNoFile) {
  folder.write("file", "");
  const std::string file = (folder.path() / "file").string();
  EXPECT_EQ(errorOf<UseError>(file), "--out is " + file + ", which is no folder: choose a new or an empty folder");
  EXPECT_EQ(errorOf<EnvironmentError>(file + "/out"),
            "the results cannot be written to " + file + "/out: Not a directory");
}

TEST_F(AnOutputFolder, BearsTheTimeAndANumberWhereThatIsTaken) {
  std::tm time{};
  time.tm_year = 126;
  time.tm_mon = 2;
  time.tm_mday = 1;
  time.tm_hour = 14;
  time.tm_min = 5;
  time.tm_sec = 9;
  const fs::path parent = folder.path() / "quobrak-results";
  const OutputFolder first = OutputFolder::dated(parent, time);
  EXPECT_EQ(first.path(), parent / "2026-03-01-140509");
  EXPECT_EQ(OutputFolder::dated(parent, time).path(), parent / "2026-03-01-140509-2");
  EXPECT_EQ(OutputFolder::dated(parent, time).path(), parent / "2026-03-01-140509-3");
}

TEST_F(AnOutputFolder, ThatCannotBeMadeIsTold) {
  folder.write("file", "");
  try {
    OutputFolder::dated(folder.path() / "file", {});
    FAIL() << "it was made";
  } catch (const EnvironmentError& error) {
    EXPECT_EQ(error.what(),
              "the results cannot be written to " + (folder.path() / "file").string() + ": Not a directory");
  }
}

}  // namespace
}  // namespace quobrak::host
