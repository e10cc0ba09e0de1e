#include "platform/foundation/FileManagerMessages.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace quobrak {
namespace {

struct Row {
  int errorNumber;
  std::string_view expected;
};

TEST(FileManagerMessages, Saving) {
  constexpr std::string_view PERMISSION =
      "You don’t have permission to save the file “b.txt” in the folder “measures”.";
  constexpr std::string_view SPACE = "You can’t save the file “b.txt” because the volume is out of space.";
  constexpr std::string_view FOLDER = "The folder “measures” doesn’t exist.";
  constexpr std::string_view NAME = "The file name “b.txt” is invalid.";
  constexpr Row ROWS[] = {
      {EACCES, PERMISSION},
      {EPERM, PERMISSION},
      {ENOSPC, SPACE},
      {EDQUOT, SPACE},
      {EFBIG, SPACE},
      {EROFS, "You can’t save the file “b.txt” because the volume is read only."},
      {ENOENT, FOLDER},
      {ENOTDIR, FOLDER},
      {ENAMETOOLONG, NAME},
      {EINVAL, NAME},
      {EILSEQ, NAME},
      {EEXIST,
       "The file “b.txt” couldn’t be saved in the folder “measures” because a file with the same name already exists."},
      {EISDIR, "The file “b.txt” couldn’t be saved in the folder “measures”."},
      {EIO, "The file “b.txt” couldn’t be saved in the folder “measures”."},
  };
  for (const auto& [errorNumber, expected] : ROWS) {
    EXPECT_EQ(fileManagerMessage(FileOperation::saving, errorNumber, "b.txt", "measures"), expected) << errorNumber;
  }
}

TEST(FileManagerMessages, Reading) {
  constexpr std::string_view ABSENCE = "The file “b.txt” couldn’t be opened because there is no such file.";
  constexpr std::string_view PERMISSION =
      "The file “b.txt” couldn’t be opened because you don’t have permission to view it.";
  constexpr Row ROWS[] = {
      {ENOENT, ABSENCE},
      {ENOTDIR, ABSENCE},
      {EACCES, PERMISSION},
      {EPERM, PERMISSION},
      {EILSEQ, "The file “b.txt” couldn’t be opened because the text encoding of its contents can’t be determined."},
      {EISDIR, "The file “b.txt” couldn’t be opened."},
      {EIO, "The file “b.txt” couldn’t be opened."},
  };
  for (const auto& [errorNumber, expected] : ROWS) {
    EXPECT_EQ(fileManagerMessage(FileOperation::reading, errorNumber, "b.txt", "measures"), expected) << errorNumber;
  }
}

TEST(FileManagerMessages, Removing) {
  constexpr std::string_view PERMISSION = "“b.txt” couldn’t be removed because you don’t have permission to access it.";
  constexpr Row ROWS[] = {
      {ENOENT, "“b.txt” couldn’t be removed because it doesn’t exist."},
      {EACCES, PERMISSION},
      {EPERM, PERMISSION},
      {EROFS, "“b.txt” couldn’t be removed because the volume is read only."},
      {EBUSY, "“b.txt” couldn’t be removed."},
      {EIO, "“b.txt” couldn’t be removed."},
  };
  for (const auto& [errorNumber, expected] : ROWS) {
    EXPECT_EQ(fileManagerMessage(FileOperation::removing, errorNumber, "b.txt", "measures"), expected) << errorNumber;
  }
}

TEST(FileManagerMessages, ANulInANameDoesNotEndTheSentence) {
  using namespace std::string_view_literals;
  EXPECT_EQ(fileManagerMessage(FileOperation::saving, EINVAL, "a\0b"sv, ""), "The file name “a\uFFFDb” is invalid.");
}

TEST(FileManagerMessages, ANameThatIsNoTextIsMadeReadable) {
  EXPECT_EQ(fileManagerMessage(FileOperation::removing, ENOENT, "d\xFF", "x"),
            "“d\uFFFD” couldn’t be removed because it doesn’t exist.");
}

}  // namespace
}  // namespace quobrak
