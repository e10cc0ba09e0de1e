#include "drivers/xctest/bundle/TestRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/VirtualClock.h"
#include "quobrakUITests/ReferencePage.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::xctest {
namespace {

/// Runs one command line on the built-in phone, on virtual time.
class TestRun : public ::testing::Test {
 protected:
  TestRun() {
    ::clearenv();
    EXPECT_EQ(::setenv("class", "dslCommandTest", 1), 0);
    Clock::install(std::make_unique<VirtualClock>());
  }

  std::optional<std::string> run(const std::string& command) {
    EXPECT_EQ(::setenv("command", command.c_str(), 1), 0);
    auto phone = simulator::loadPhone(simulator::BuiltinPhoneFiles());
    return runTestMain(std::make_unique<simulator::SimulatedDriver>(std::move(phone), Clock::shared()), documents());
  }

  std::string documents() const { return (folder_.path() / "home" / "Documents").string(); }

  const testing::TemporaryFolder folder_;
};

TEST_F(TestRun, AnswersNothingWhereTheTestReturned) {
  EXPECT_EQ(run("pause,10"), std::nullopt);
}

TEST_F(TestRun, AnswersWhatTheTestRaised) {
  EXPECT_EQ(run("noCommand"), "Function noCommand is not implemented");
}

TEST_F(TestRun, MakesTheDocumentsDirectory) {
  EXPECT_EQ(run("pause,10"), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_directory(documents()));
  EXPECT_EQ(FileManager::defaultManager().documentDirectory(), documents());
}

TEST_F(TestRun, ADocumentsDirectoryThatIsNoneIsWhatTheTestRaised) {
  folder_.write("home", "a file");
  EXPECT_EQ(run("pause,10"), "The file “Documents” couldn’t be opened because there is no such file.");
}

TEST_F(TestRun, TakesTheReferencePageFromTheEnvironment) {
  EXPECT_EQ(::setenv("QUOBRAK_REFERENCE_PAGE", "https://10.0.0.7/black/index.html", 1), 0);
  EXPECT_EQ(run("pause,10"), std::nullopt);
  EXPECT_EQ(ReferencePage::shared().address(), "https://10.0.0.7/black/index.html");
}

TEST_F(TestRun, AReferencePageThatIsNotSetIsTheOneThatNobodyServes) {
  EXPECT_EQ(run("pause,10"), std::nullopt);
  EXPECT_EQ(ReferencePage::shared().address(), ReferencePage().address());
}

TEST_F(TestRun, AWrongReferencePageIsWhatTheTestRaisedBeforeAnythingIsTouched) {
  EXPECT_EQ(::setenv("QUOBRAK_REFERENCE_PAGE", "10.0.0.7", 1), 0);
  EXPECT_EQ(run("pause,10"),
            "QUOBRAK_REFERENCE_PAGE is \"10.0.0.7\", but must be an address such as "
            "https://www.example.com/black/index.html, which begins with https:// and has that path");
  EXPECT_FALSE(std::filesystem::exists(documents()));
  EXPECT_DEATH(UIDriver::shared(), "No UI driver is installed");
}

TEST_F(TestRun, LeavesNoDriverBehind) {
  EXPECT_EQ(run("pause,10"), std::nullopt);
  EXPECT_DEATH(UIDriver::shared(), "No UI driver is installed");
}

TEST_F(TestRun, TheTestsDoNotGoOnAfterAFailure) {
  EXPECT_FALSE(continuesAfterFailure());
  EXPECT_FALSE(launchTestsContinueAfterFailure());
  EXPECT_TRUE(launchTestsRunForEachConfiguration());
}

}  // namespace
}  // namespace quobrak::xctest
