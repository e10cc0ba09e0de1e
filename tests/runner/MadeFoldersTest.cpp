#include "runner/MadeFolders.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace quobrak {
namespace {

namespace fs = std::filesystem;

TEST(MadeFolders, VanishWhenTheyAreNotKept) {
  const testing::TemporaryFolder folder;
  {
    const MadeFolders made(folder.path() / "a/b");
    EXPECT_TRUE(fs::is_directory(folder.path() / "a/b"));
    EXPECT_FALSE(made.failure());
  }
  EXPECT_FALSE(fs::exists(folder.path() / "a"));
  EXPECT_TRUE(fs::exists(folder.path()));
}

TEST(MadeFolders, StayWhenTheyAreKept) {
  const testing::TemporaryFolder folder;
  {
    MadeFolders made(folder.path() / "a/b");
    made.keep();
  }
  EXPECT_TRUE(fs::is_directory(folder.path() / "a/b"));
}

TEST(MadeFolders, LeaveWhatWasThereAndWhatHasBeenFilled) {
  const testing::TemporaryFolder folder;
  fs::create_directory(folder.path() / "old");
  {
    const MadeFolders there(folder.path() / "old");
    const MadeFolders filled(folder.path() / "new");
    folder.write("new/file", "");
  }
  EXPECT_TRUE(fs::is_directory(folder.path() / "old"));
  EXPECT_TRUE(fs::exists(folder.path() / "new/file"));
}

TEST(MadeFolders, AFileInTheWayIsLeftAsItIs) {
  const testing::TemporaryFolder folder;
  folder.write("file", "text");
  {
    const MadeFolders made(folder.path() / "file/a");
    EXPECT_EQ(made.failure(), std::errc::not_a_directory);
  }
  EXPECT_EQ(folder.read("file"), "text");
}

}  // namespace
}  // namespace quobrak
