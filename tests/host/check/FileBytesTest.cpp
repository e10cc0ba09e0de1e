#include "host/check/FileBytes.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

std::string errorFor(const std::filesystem::path& file) {
  try {
    fileBytes(file);
  } catch (const EnvironmentError& error) {
    return error.what();
  }
  return "";
}

TEST(FileBytes, AreAllOfTheFile) {
  const quobrak::testing::TemporaryFolder folder;
  // More than is read at once.
  for (const std::string& content :
       {std::string("a\0\r\n\xFF", 5), std::string(), std::string(65536, 'b'), std::string(200'000, 'c')}) {
    folder.write("file", content);
    EXPECT_EQ(fileBytes(folder.path() / "file"), content);
  }
}

TEST(FileBytes, AreNotMoreThanAScriptCanHave) {
  const quobrak::testing::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "file";
  folder.write("file", "");
  std::filesystem::resize_file(file, MOST_BYTES);
  EXPECT_EQ(fileBytes(file).size(), MOST_BYTES);
  std::filesystem::resize_file(file, MOST_BYTES + 1);
  EXPECT_EQ(errorFor(file),
            "the file " + file.string() + " is too large: it has more than 256 MB, the most that is read");
  EXPECT_EQ(errorFor("/dev/zero"), "the file /dev/zero is too large: it has more than 256 MB, the most that is read");
}

TEST(FileBytes, MayComeThroughAPipe) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  ASSERT_EQ(::write(ends[1], "pause,1", 7), 7);
  ::close(ends[1]);
  EXPECT_EQ(fileBytes("/dev/fd/" + std::to_string(ends[0])), "pause,1");
  ::close(ends[0]);
}

TEST(FileBytes, OfWhatCannotBeReadRaise) {
  const quobrak::testing::TemporaryFolder folder;
  const std::string name = folder.path().string();
  EXPECT_EQ(errorFor(folder.path() / "none"), "the file " + name + "/none cannot be read: No such file or directory");
  EXPECT_EQ(errorFor(folder.path()), "the file " + name + " cannot be read: Is a directory");
  // It opens, and has nothing at its beginning.
  EXPECT_EQ(errorFor("/proc/self/mem"), "the file /proc/self/mem cannot be read: Input/output error");
}

}  // namespace
}  // namespace quobrak::host
