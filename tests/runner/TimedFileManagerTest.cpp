#include "runner/TimedFileManager.h"

#include <gtest/gtest.h>

#include "platform/foundation/ConfinedFileManager.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/FaultyFileManager.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak {

namespace {

using namespace std::chrono_literals;

class TimedFileManagerTest : public ::testing::Test {
 protected:
  std::string at(const std::string& path) const { return (documents.path() / path).string(); }

  Seconds elapsed() const { return clock.now() - start_; }

  const testing::TemporaryFolder documents;
  VirtualClock clock{1700000000000ms};

 private:
  const Clock::TimePoint start_ = clock.now();

 protected:
  testing::FaultyFileManager* inner = nullptr;
  TimedFileManager files{[this] {
                           auto manager = std::make_unique<testing::FaultyFileManager>(
                               std::make_unique<ConfinedFileManager>(documents.path().string()));
                           inner = manager.get();
                           return manager;
                         }(),
                         clock};
};

}  // namespace

TEST_F(TimedFileManagerTest, AFileTakesAMillisecondToWrite) {
  files.write(bytesOf("content"), at("file"));
  EXPECT_EQ(elapsed(), 1ms);
  files.write(bytesOf("content"), at("file"));
  EXPECT_EQ(elapsed(), 2ms);
  EXPECT_EQ(documents.read("file"), "content");
}

TEST_F(TimedFileManagerTest, TheTimePassesOnceTheFileStands) {
  inner->before = [this](std::string_view, const std::string&) { EXPECT_EQ(elapsed(), 0ms); };
  files.write(bytesOf("content"), at("file"));
  EXPECT_EQ(elapsed(), 1ms);
}

TEST_F(TimedFileManagerTest, AFileThatCannotBeWrittenTakesNoTime) {
  inner->before = [](std::string_view, const std::string&) { throw FileManagerError("full"); };
  EXPECT_THROW(files.write(bytesOf("content"), at("file")), FileManagerError);
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(TimedFileManagerTest, NothingElseTakesTime) {
  EXPECT_EQ(files.documentDirectory(), documents.path().string());
  files.createDirectory(at("folder"));
  EXPECT_TRUE(files.fileExists(at("folder")));
  documents.write("folder/file", "content");
  EXPECT_EQ(files.readText(at("folder/file")), "content");
  files.removeItem(at("folder"));
  EXPECT_FALSE(files.fileExists(at("folder")));
  EXPECT_EQ(elapsed(), 0ms);
}

}  // namespace quobrak
