#include "drivers/simulator/PhoneFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "drivers/simulator/BuiltinFiles.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::simulator {
namespace {

using quobrak::testing::TemporaryFolder;

TEST(BuiltinPhoneFiles, AreThoseThatWereCompiledIn) {
  const BuiltinPhoneFiles files;
  EXPECT_EQ(files.read("phone.json"), builtinPhoneFile("phone.json"));
  EXPECT_EQ(files.read("com.example.shop/app.json"), builtinPhoneFile("com.example.shop/app.json"));
  EXPECT_EQ(files.read("missing.json"), std::nullopt);
  EXPECT_EQ(files.nameOf("phone.json"), "the built-in phone's phone.json");
}

TEST(FolderPhoneFiles, ReadsByteForByte) {
  const TemporaryFolder folder;
  const std::string content("one\r\n\0\xFF two", 12);
  folder.write("app/start.xml", content);
  folder.write("empty.json", "");
  const FolderPhoneFiles files(folder.path().string());
  EXPECT_EQ(files.read("app/start.xml"), content);
  EXPECT_EQ(files.read("empty.json"), "");
}

TEST(FolderPhoneFiles, ReadsLongFiles) {
  const TemporaryFolder folder;
  const std::string content(200'000, 'x');
  folder.write("long.xml", content);
  EXPECT_EQ(FolderPhoneFiles(folder.path().string()).read("long.xml"), content);
}

TEST(FolderPhoneFiles, NoneWhereThereIsNoFile) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "phone.json");
  const FolderPhoneFiles files(folder.path().string());
  EXPECT_EQ(files.read("missing.json"), std::nullopt);
  EXPECT_EQ(files.read("phone.json"), std::nullopt);
}

TEST(FolderPhoneFiles, NamesAreThePathsOnTheDisk) {
  EXPECT_EQ(FolderPhoneFiles("/phones/large").nameOf("app/start.xml"), "/phones/large/app/start.xml");
  EXPECT_EQ(FolderPhoneFiles("/phones/large/").nameOf("phone.json"), "/phones/large/phone.json");
}

}  // namespace
}  // namespace quobrak::simulator
