#include "quobrakUITests/Results.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "quobrakUITests/Probe.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/FakeClock.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::ThrowsMessage;

void recordStep(const std::string& name, std::int64_t start) {
  TestContext::shared().appendTestResults(
      {.test = name,
       .testTime = 5,
       .measures = {{{.time = start, .values = {{"AH_PL", 0}}}, {.time = start + 5, .values = {{"AH_PL", 0}}}}, {}}});
}

std::string jsonOfStep(const std::string& name, std::int64_t start) {
  return R"({"measures":[[{"time":)" + std::to_string(start) + R"(,"values":{"AH_PL":0}},{"time":)" +
         std::to_string(start + 5) + R"(,"values":{"AH_PL":0}}],[]],"test":")" + name + R"(","testTime":5})";
}

/// Makes every write take a millisecond, and keeps the names of what is written.
std::vector<std::string>& recordSlowWrites(testing::TestPlatform& platform) {
  static std::vector<std::string> written;
  platform.files().before = [root = platform.documents().path()](std::string_view operation, const std::string& path) {
    if (operation == "write") {
      Clock::shared().usleep(1000);
      written.push_back(std::filesystem::path(path).lexically_relative(root).string());
    }
  };
  return written;
}

TEST(Results, MeasuresInTheirOrderAndThenTheStatuses) {
  testing::TestPlatform platform;
  const std::vector<std::string>& written = recordSlowWrites(platform);
  recordStep("Second", 20);
  recordStep("First", 10);
  Clock::shared().usleep(4301 * 1000);
  Results::saveJobResult({{.status = "failed", .stackTrace = "An unknown error occured while executing actions"},
                          {.status = "success", .stackTrace = ""}});
  EXPECT_THAT(written, ElementsAre("measures/fernwick--Second-1700000004301.json",
                                   "measures/fernwick--First-1700000004302.json", "testsStatus.json"));
  EXPECT_EQ(platform.documents().read("measures/fernwick--Second-1700000004301.json"), jsonOfStep("Second", 20));
  EXPECT_EQ(platform.documents().read("measures/fernwick--First-1700000004302.json"), jsonOfStep("First", 10));
  EXPECT_EQ(platform.documents().read("testsStatus.json"),
            R"([{"stackTrace":"An unknown error occured while executing actions","status":"failed"},)"
            R"({"stackTrace":"","status":"success"}])");
}

TEST(Results, WithoutStepsThereIsOnlyTheStatusFile) {
  testing::TestPlatform platform;
  Probe::measureStart("Never stopped");
  Results::saveJobResult({{.status = "success", .stackTrace = ""}});
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"), R"([{"stackTrace":"","status":"success"}])");
}

TEST(Results, WithoutStatusesTheListIsEmpty) {
  testing::TestPlatform platform;
  platform.documents().write("testsStatus.json", R"([{"stackTrace":"old","status":"failed"}])");
  Results::saveJobResult({});
  EXPECT_EQ(platform.documents().read("testsStatus.json"), "[]");
}

TEST(Results, StepsOfOneNameHaveFilesOfTheirOwnWhereTheyAreWrittenInDifferentMilliseconds) {
  testing::TestPlatform platform;
  recordSlowWrites(platform);
  recordStep("a", 1);
  recordStep("a", 2);
  Results::saveJobResult({});
  EXPECT_EQ(platform.documents().read("measures/fernwick--a-1700000000000.json"), jsonOfStep("a", 1));
  EXPECT_EQ(platform.documents().read("measures/fernwick--a-1700000000001.json"), jsonOfStep("a", 2));
}

TEST(Results, LaterStepReplacesAnEarlierOneOfItsNameInTheSameMillisecond) {
  testing::TestPlatform platform;
  recordStep("a", 1);
  recordStep("a", 2);
  Results::saveJobResult({});
  EXPECT_THAT(platform.documents().files(), ElementsAre("measures/fernwick--a-1700000000000.json", "testsStatus.json"));
  EXPECT_EQ(platform.documents().read("measures/fernwick--a-1700000000000.json"), jsonOfStep("a", 2));
}

TEST(Results, NameOfAStepIsInsertedAsItIs) {
  testing::TestPlatform platform;
  recordStep("", 1);
  recordStep("a/b c", 1);
  Results::saveJobResult({});
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("measures/fernwick---1700000000000.json", "measures/fernwick--a/b c-1700000000000.json",
                          "testsStatus.json"));
  EXPECT_EQ(platform.documents().read("measures/fernwick--a/b c-1700000000000.json"), jsonOfStep("a\\/b c", 1));
}

TEST(Results, StepsAreKeptAfterWriting) {
  testing::TestPlatform platform;
  recordStep("a", 1);
  Results::saveJobResult({});
  EXPECT_EQ(TestContext::shared().getTestResults().size(), 1U);
}

TEST(Results, FirstMeasureThatCannotBeWrittenEndsTheWriting) {
  testing::TestPlatform platform;
  platform.documents().write("testsStatus.json", "old");
  recordStep("a", 1);
  recordStep("b", 2);
  recordStep("c", 3);
  platform.files().before = [](std::string_view operation, const std::string& path) {
    if (operation == "write" && path.find("fernwick--b-") != std::string::npos) {
      throw FileManagerError("The disk is full.");
    }
  };
  EXPECT_THAT([] { Results::saveJobResult({}); }, testing::raisesDocumentDirectoryError("The disk is full."));
  EXPECT_THAT(platform.documents().files(), ElementsAre("measures/fernwick--a-1700000000000.json", "testsStatus.json"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"), "old");
}

TEST(Results, StatusFileThatCannotBeWritten) {
  testing::TestPlatform platform;
  recordStep("a", 1);
  platform.files().before = [](std::string_view operation, const std::string& path) {
    if (operation == "write" && path.ends_with("/testsStatus.json")) {
      throw FileManagerError("The disk is full.");
    }
  };
  EXPECT_THAT([] { Results::saveJobResult({}); }, testing::raisesDocumentDirectoryError("The disk is full."));
  EXPECT_THAT(platform.documents().files(), ElementsAre("measures/fernwick--a-1700000000000.json"));
}

TEST(Results, NameThatIsNoTextIsAnEncodingError) {
  testing::TestPlatform platform;
  platform.documents().write("testsStatus.json", "old");
  recordStep("\xFF", 1);
  EXPECT_THAT([] { Results::saveJobResult({}); },
              ThrowsMessage<std::runtime_error>("A text to be written as JSON is not UTF-8."));
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"), "old");
}

TEST(Results, ClockBeyondTheRangeIsFatal) {
  testing::TestPlatform platform;
  recordStep("a", 1);
  Clock::install(std::make_unique<testing::FakeClock>(1e300));
  EXPECT_DEATH(Results::saveJobResult({}),
               Eq("Fatal error: The clock's time in milliseconds does not fit a signed 64-bit integer\n"));
}

}  // namespace
}  // namespace quobrak
