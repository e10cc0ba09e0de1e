#include "platform/foundation/FileManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quobrak {
namespace {

class NoFiles final : public FileManager {
 public:
  std::string documentDirectory() const override { return "/nowhere"; }
  bool fileExists(const std::string&) const override { return false; }
  void removeItem(const std::string&) override {}
  void createDirectory(const std::string&) override {}
  std::string readText(const std::string&) const override { return ""; }
  void write(DataView, const std::string&) override {}
};

TEST(FileManager, TheInstalledOneIsTheDefault) {
  FileManager::install(std::make_unique<NoFiles>());
  EXPECT_EQ(FileManager::defaultManager().documentDirectory(), "/nowhere");
  FileManager::install(nullptr);
}

TEST(FileManagerDeathTest, TheDefaultWithoutOneInstalledIsFatal) {
  FileManager::install(nullptr);
  EXPECT_DEATH(FileManager::defaultManager(), testing::Eq("Fatal error: No file manager is installed.\n"));
}

}  // namespace
}  // namespace quobrak
