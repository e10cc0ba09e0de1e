#include "host/check/FileBytes.h"

#include <gtest/gtest.h>

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
