#include "quobrakUITests/Screenshot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/WrappedDriver.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

/// The driver of a phone that gives no picture.
class BlindDriver final : public WrappedDriver {
 public:
  BlindDriver() : WrappedDriver(nullptr) {}
  std::optional<Data> screenshot() override { return std::nullopt; }

 protected:
  void around(std::string_view, const std::function<std::string()>&, const std::function<void()>& primitive) override {
    primitive();
  }
};

void incrementScreenshotNumberTo(std::int64_t number) {
  while (TestContext::shared().getScreenshotNumber() < number) {
    TestContext::shared().incrementScreenshotNumber();
  }
}

TEST(Screenshot, IsThePictureOfTheScreen) {
  testing::TestPlatform platform;
  takeScreenshot("tests-results/Suite/login/iteration1", "Home_start");
  const std::string file = "tests-results/Suite/login/iteration1/screenshots/001_Home_start.png";
  EXPECT_THAT(platform.documents().files(), ElementsAre(file));
  const std::string png = platform.documents().read(file);
  EXPECT_THAT(png, StartsWith("\x89PNG\r\n"));
  const std::optional<Data> picture = UIDriver::shared().screenshot();
  ASSERT_TRUE(picture.has_value());
  EXPECT_TRUE(png == textOf(*picture));
}

TEST(Screenshot, IsCountedFromOneAfterAReset) {
  testing::TestPlatform platform;
  takeScreenshot("r", "a");
  takeScreenshot("r", "b");
  TestContext::shared().resetScreenshotNumber();
  takeScreenshot("r", "c");
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("r/screenshots/001_a.png", "r/screenshots/001_c.png", "r/screenshots/002_b.png"));
  EXPECT_EQ(TestContext::shared().getScreenshotNumber(), 2);
}

TEST(Screenshot, NumberHasThreeDigitsOrMore) {
  testing::TestPlatform platform;
  for (const std::int64_t number : {7, 42, 999, 1000, 1234}) {
    incrementScreenshotNumberTo(number);
    takeScreenshot("r", "a");
  }
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("r/screenshots/007_a.png", "r/screenshots/042_a.png", "r/screenshots/1000_a.png",
                          "r/screenshots/1234_a.png", "r/screenshots/999_a.png"));
}

TEST(Screenshot, NameIsInsertedAsItIs) {
  testing::TestPlatform platform;
  takeScreenshot("r", "a/b c");
  takeScreenshot("", "");
  EXPECT_THAT(platform.documents().files(), ElementsAre("r/screenshots/001_a/b c.png", "screenshots/002_.png"));
}

TEST(Screenshot, ReplacesAnEarlierOneOfItsName) {
  testing::TestPlatform platform;
  platform.documents().write("r/screenshots/001_a.png", "old");
  takeScreenshot("r", "a");
  EXPECT_THAT(platform.documents().read("r/screenshots/001_a.png"), StartsWith("\x89PNG"));
}

TEST(Screenshot, ThatCannotBeWrittenIsNotCounted) {
  testing::TestPlatform platform;
  takeScreenshot("r", "a");
  platform.files().before = [](std::string_view operation, const std::string&) {
    if (operation == "write") {
      throw FileManagerError("The disk is full.");
    }
  };
  EXPECT_THAT([] { takeScreenshot("r", "b"); }, testing::raisesDocumentDirectoryError("The disk is full."));
  EXPECT_EQ(TestContext::shared().getScreenshotNumber(), 2);
  platform.files().before = [](std::string_view, const std::string&) {};
  takeScreenshot("r", "c");
  EXPECT_THAT(platform.documents().files(), ElementsAre("r/screenshots/001_a.png", "r/screenshots/002_c.png"));
}

TEST(Screenshot, WithoutAPictureNothingHappens) {
  testing::TestPlatform platform;
  UIDriver::install(std::make_unique<BlindDriver>());
  takeScreenshot("r", "a");
  EXPECT_THAT(platform.documents().files(), IsEmpty());
  EXPECT_EQ(TestContext::shared().getScreenshotNumber(), 1);
}

TEST(Screenshot, ErrorOfTheDriverPassesUnchanged) {
  testing::TestPlatform platform;
  platform.driver().before = [](std::string_view, const std::string&) {
    throw UIAutomationError("The phone is gone.");
  };
  EXPECT_THAT([] { takeScreenshot("r", "a"); }, ThrowsMessage<UIAutomationError>("The phone is gone."));
  EXPECT_EQ(TestContext::shared().getScreenshotNumber(), 1);
}

}  // namespace
}  // namespace quobrak
