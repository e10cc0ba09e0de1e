#include "quobrakUITests/File.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "platform/foundation/ConfinedFileManager.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Keeps the names of the operations on files, with their paths from the Documents directory on.
std::vector<std::string>& recordOperations(testing::TestPlatform& platform) {
  static std::vector<std::string> operations;
  platform.files().before = [root = platform.documents().path()](std::string_view operation, const std::string& path) {
    operations.push_back(std::string(operation) + " " + std::filesystem::path(path).lexically_relative(root).string());
  };
  return operations;
}

void failAt(testing::TestPlatform& platform, const std::string& failing) {
  platform.files().before = [failing](std::string_view operation, const std::string&) {
    if (operation == failing) {
      throw FileManagerError("The volume “Data” is gone.");
    }
  };
}

void fillDocuments(const testing::TestPlatform& platform) {
  platform.documents().write("tests-results/Suite/login/iteration1/dump/dump.txt", "dump");
  platform.documents().write("measures/fernwick--Home-1.json", "{}");
  platform.documents().write("testsStatus.json", "[]");
  platform.documents().write("scripts/login.txt", "pause,1");
}

TEST(File, ReadsTheWholeText) {
  testing::TestPlatform platform;
  platform.documents().write("scripts/login.txt", "pause,1\r\nclickByText,Größe\n");
  EXPECT_EQ(File::readFileInDocumentDirectory("scripts/login.txt"), "pause,1\r\nclickByText,Größe\n");
  EXPECT_EQ(File::readFileInDocumentDirectory("/scripts/login.txt"), "pause,1\r\nclickByText,Größe\n");
}

TEST(File, DetectsTheEncoding) {
  testing::TestPlatform platform;
  platform.documents().write("utf16.txt", std::string("\xFF\xFE\xE9\x00", 4));
  EXPECT_EQ(File::readFileInDocumentDirectory("utf16.txt"), "é");
}

TEST(File, WhateverIsWrongWithAFileItIsMissing) {
  testing::TestPlatform platform;
  platform.documents().write("broken.txt", "a\xFF");
  platform.documents().write("folder/file.txt", "a");
  for (const std::string path : {"missing.txt", "/scripts/missing.txt", "broken.txt", "folder", "../outside.txt", ""}) {
    EXPECT_THAT([&] { File::readFileInDocumentDirectory(path); },
                testing::raisesDocumentDirectoryError("The file " + path + " is missing in the document directory"));
  }
}

TEST(File, DocumentsDirectoryIsLookedUpAfreshOnEveryCall) {
  testing::TestPlatform platform;
  File::writeFileToDocumentDirectory("a.txt", bytesOf("first"));
  const testing::TemporaryFolder other;
  FileManager::install(std::make_unique<ConfinedFileManager>(other.path().string()));
  File::writeFileToDocumentDirectory("a.txt", bytesOf("second"));
  EXPECT_EQ(File::readFileInDocumentDirectory("a.txt"), "second");
  EXPECT_EQ(platform.documents().read("a.txt"), "first");
  EXPECT_EQ(other.read("a.txt"), "second");
}

TEST(File, WriteCreatesTheFoldersAndThenTheFile) {
  testing::TestPlatform platform;
  const std::vector<std::string>& operations = recordOperations(platform);
  File::writeFileToDocumentDirectory("a/b/c.json", bytesOf("{}"));
  EXPECT_EQ(platform.documents().read("a/b/c.json"), "{}");
  EXPECT_THAT(operations, ElementsAre("createDirectory a/b", "write a/b/c.json"));
}

TEST(File, WriteReplacesWhatTheFileHeld) {
  testing::TestPlatform platform;
  File::writeFileToDocumentDirectory("testsStatus.json", bytesOf("a long first content"));
  File::writeFileToDocumentDirectory("testsStatus.json", bytesOf("second"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"), "second");
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
}

TEST(File, WriteAsksForTheFolderAsItStandsAndNotWithinTheDocuments) {
  testing::TestPlatform platform;
  const testing::TemporaryFolder elsewhere;
  elsewhere.write("measures/other.json", "");
  std::filesystem::current_path(elsewhere.path());
  EXPECT_THAT([] { File::writeFileToDocumentDirectory("measures/a.json", bytesOf("{}")); },
              testing::raisesDocumentDirectoryError("The folder “measures” doesn’t exist."));
  platform.documents().write("results/old.json", "");
  const std::vector<std::string>& operations = recordOperations(platform);
  File::writeFileToDocumentDirectory("results/a.json", bytesOf("{}"));
  EXPECT_THAT(operations, ElementsAre("createDirectory results", "write results/a.json"));
  std::filesystem::current_path("/");
}

TEST(File, WriteWhoseFolderCannotBeCreatedWritesNothing) {
  testing::TestPlatform platform;
  failAt(platform, "createDirectory");
  EXPECT_THAT([] { File::writeFileToDocumentDirectory("a/b.json", bytesOf("{}")); },
              testing::raisesDocumentDirectoryError("The volume “Data” is gone."));
  EXPECT_THAT(platform.documents().files(), IsEmpty());
}

TEST(File, WriteThatFails) {
  testing::TestPlatform platform;
  platform.documents().write("folder/file.txt", "");
  EXPECT_THAT([] { File::writeFileToDocumentDirectory("folder", bytesOf("{}")); },
              testing::raisesDocumentDirectoryError("The file “folder” couldn’t be saved in the folder “" +
                                                    platform.documents().path().filename().string() + "”."));
  failAt(platform, "write");
  EXPECT_THAT([] { File::writeFileToDocumentDirectory("a.json", bytesOf("{}")); },
              testing::raisesDocumentDirectoryError("The volume “Data” is gone."));
}

TEST(File, CreatedFolderMayExist) {
  testing::TestPlatform platform;
  File::createFolderInDocumentDirectory("a/b");
  File::createFolderInDocumentDirectory("a/b");
  EXPECT_TRUE(std::filesystem::is_directory(platform.documents().path() / "a/b"));
}

TEST(File, FolderThatCannotBeCreated) {
  testing::TestPlatform platform;
  failAt(platform, "createDirectory");
  EXPECT_THAT([] { File::createFolderInDocumentDirectory("a"); },
              testing::raisesDocumentDirectoryError("The volume “Data” is gone."));
}

TEST(File, RemovesFilesAndFoldersWithAllThatIsInThem) {
  testing::TestPlatform platform;
  fillDocuments(platform);
  File::removeFilesInDocumentDirectory("tests-results");
  File::removeFilesInDocumentDirectory("testsStatus.json");
  EXPECT_THAT(platform.documents().files(), ElementsAre("measures/fernwick--Home-1.json", "scripts/login.txt"));
  EXPECT_FALSE(std::filesystem::exists(platform.documents().path() / "tests-results"));
}

TEST(File, RemovingWhatIsNotThereDoesNothing) {
  testing::TestPlatform platform;
  const std::vector<std::string>& operations = recordOperations(platform);
  File::removeFilesInDocumentDirectory("missing");
  EXPECT_THAT(operations, IsEmpty());
}

TEST(File, RemovalThatFails) {
  testing::TestPlatform platform;
  fillDocuments(platform);
  failAt(platform, "removeItem");
  EXPECT_THAT([] { File::removeFilesInDocumentDirectory("measures"); },
              testing::raisesDocumentDirectoryError("The volume “Data” is gone."));
}

TEST(File, FirstIterationClearsAllResults) {
  testing::TestPlatform platform;
  fillDocuments(platform);
  const std::vector<std::string>& operations = recordOperations(platform);
  TestContext::shared().setIteration(1);
  File::clearDocumentDirectory();
  EXPECT_THAT(operations,
              ElementsAre("removeItem tests-results", "removeItem measures", "removeItem testsStatus.json"));
  EXPECT_THAT(platform.documents().files(), ElementsAre("scripts/login.txt"));
}

TEST(File, OtherIterationsClearTheMeasuresAlone) {
  testing::TestPlatform platform;
  for (const std::int64_t iteration : {2, 0, -1}) {
    fillDocuments(platform);
    TestContext::shared().setIteration(iteration);
    File::clearDocumentDirectory();
    EXPECT_THAT(
        platform.documents().files(),
        ElementsAre("scripts/login.txt", "tests-results/Suite/login/iteration1/dump/dump.txt", "testsStatus.json"))
        << iteration;
  }
}

TEST(File, ClearingEndsAtTheFirstRemovalThatFails) {
  testing::TestPlatform platform;
  fillDocuments(platform);
  platform.files().before = [](std::string_view, const std::string& path) {
    if (path.ends_with("/measures")) {
      throw FileManagerError("“measures” couldn’t be removed.");
    }
  };
  EXPECT_THAT([] { File::clearDocumentDirectory(); },
              testing::raisesDocumentDirectoryError("“measures” couldn’t be removed."));
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("measures/fernwick--Home-1.json", "scripts/login.txt", "testsStatus.json"));
}

}  // namespace
}  // namespace quobrak
