#include "host/run/Files.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using testing::TemporaryFolder;

template <class Operation>
std::string errorOf(Operation operation) {
  try {
    operation();
  } catch (const EnvironmentError& error) {
    return error.what();
  }
  return "";
}

TEST(Files, AReasonIsTheSystems) {
  EXPECT_EQ(reasonOf(ENOSPC), "No space left on device");
}

TEST(Files, AreWrittenByteForByte) {
  const TemporaryFolder folder;
  const std::string bytes("\xFF\0\r\n", 4);
  writeNewFile(folder.path() / "new", bytes);
  EXPECT_EQ(folder.read("new"), bytes);
}

TEST(Files, AreNeverWrittenOver) {
  const TemporaryFolder folder;
  folder.write("old", "kept");
  const std::string file = (folder.path() / "old").string();
  EXPECT_EQ(errorOf([&] { writeNewFile(file, "new"); }), file + " cannot be written: File exists");
  EXPECT_EQ(folder.read("old"), "kept");
}

TEST(Files, AreTriedWithoutATrace) {
  const TemporaryFolder folder;
  EXPECT_EQ(writingFault(folder.path(), 1 << 20), "");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  const std::string none = (folder.path() / "none").string();
  EXPECT_EQ(writingFault(none, 1), none + "/.room cannot be written: No such file or directory");
}

TEST(Files, AFolderThatIsNoneIsTold) {
  EXPECT_EQ(errorOf([] { writeNewFile("/dev/null/file", "x"); }), "/dev/null/file cannot be written: Not a directory");
}

TEST(Files, AFolderIsMadeWithThoseAboveIt) {
  const TemporaryFolder folder;
  makeFolder(folder.path() / "a/b");
  makeFolder(folder.path() / "a/b");
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "a/b"));
}

TEST(Files, AFolderThatCannotBeMadeIsTold) {
  const TemporaryFolder folder;
  folder.write("file", "");
  const std::string inside = (folder.path() / "file/inside").string();
  EXPECT_EQ(errorOf([&] { makeFolder(inside); }), inside + " cannot be made: Not a directory");
}

}  // namespace
}  // namespace quobrak::host
