#include <gmock/gmock.h>

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "phoneserver/PhoneServer.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* SCRIPT =
    "applicationStart,com.example.shop\nmeasureStart,Browse\nclickByText,Browse products\nmeasureStop";

/// The executable with a phone at the other end of a connection.
class WebDriverRun : public ProcessTest {
 protected:
  WebDriverRun() : phone(simulator::loadPhone(simulator::BuiltinPhoneFiles()), clock_) {
    start.environment.erase("QUOBRAK_PHONE");
    start.environment["QUOBRAK_CLOCK"] = "system";
    start.environment["QUOBRAK_DRIVER"] = "webdriver";
    start.environment["QUOBRAK_WEBDRIVER_DIALECT"] = "wda";
    start.environment["QUOBRAK_WEBDRIVER_URL"] = phone.url();
  }

 private:
  /// What the phone does takes no time.
  VirtualClock clock_;

 protected:
  phoneserver::PhoneServer phone;
};

}  // namespace

TEST_F(WebDriverRun, LeavesTheFilesOfARunOnAPhone) {
  addScript("Shop", "scripts/browse.txt", SCRIPT);
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "");
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
  EXPECT_THAT(results(),
              ElementsAre("measures/fernwick--Browse-TIME.json", "tests-results/Shop/browse/iteration1/dump/dump.txt",
                          "tests-results/Shop/browse/iteration1/screenshots/001_Browse_start.png",
                          "tests-results/Shop/browse/iteration1/screenshots/002_Browse_stop.png",
                          "tests-results/Shop/browse/iteration1/screenshots/003_success.png", "testsStatus.json"));
  EXPECT_THAT(document("tests-results/Shop/browse/iteration1/dump/dump.txt"), StartsWith("Attributes: Application"));
  EXPECT_TRUE(phone.phone().isInFront("com.apple.springboard")) << "the run ends with the Home button";
}

TEST_F(WebDriverRun, TheSessionHasTheCapabilitiesOfTheFile) {
  // The phone's server opens a session with the application in front.
  folder.write("capabilities.json", R"({"bundleId": "com.example.shop", "shouldTerminateApp": false})");
  start.environment["QUOBRAK_WEBDRIVER_CAPABILITIES"] = (folder.path() / "capabilities.json").string();
  start.environment["class"] = "dslCommandTest";
  start.environment["command"] = "pressVolumeUp";
  EXPECT_EQ(run().exitStatus, 0);
  EXPECT_NE(phone.phone().running("com.example.shop"), nullptr);
}

TEST_F(WebDriverRun, AServerThatIsNotThereFailsTheScript) {
  phone.stop();
  addScript("Shop", "scripts/browse.txt", SCRIPT);
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_THAT(end.err, HasSubstr("pressButton of the device over WebDriver at " + phone.url() +
                                 ": the server cannot be reached: "));
  EXPECT_THAT(document("testsStatus.json"), HasSubstr("\"status\":\"failed\""));
}

TEST_F(WebDriverRun, AFileOfCapabilitiesThatCannotBeReadIsRefused) {
  start.environment["QUOBRAK_WEBDRIVER_CAPABILITIES"] = "/nowhere/capabilities.json";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(end.err,
            "configuration error: QUOBRAK_WEBDRIVER_CAPABILITIES is \"/nowhere/capabilities.json\", which cannot be "
            "read\n");
}

TEST_F(WebDriverRun, TellsOfVariablesWithoutEffect) {
  start.environment["QUOBRAK_PHONE"] = "somewhere";
  start.environment["class"] = "dslCommandTest";
  start.environment["command"] = "pause,0";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "warning: QUOBRAK_PHONE is set, but the driver webdriver does not read it\n");
}

}  // namespace quobrak::testing
