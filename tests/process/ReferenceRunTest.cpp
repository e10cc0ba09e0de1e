#include <gmock/gmock.h>

#include "tests/process/TestProcessRun.h"
#include "tests/support/StorePhone.h"

namespace quobrak::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ReferenceRun : public ProcessTest {
 protected:
  ReferenceRun() {
    start.environment.erase("testFileNumber");
    start.environment["class"] = "dslTestReference";
    start.environment["iteration"] = "007";
    start.environment["QUOBRAK_TRACE"] = "trace";
  }
};

/// On a phone that has Settings and a browser.
class ReferenceRunInTheBrowser : public ReferenceRun {
 protected:
  ReferenceRunInTheBrowser() {
    const MemoryPhoneFiles files = filesOf({});
    for (const auto& [path, content] : files.contents()) {
      phone.write(path, content);
    }
  }
};

}  // namespace

TEST_F(ReferenceRun, MeasuresTheHomeScreenForHalfAMinute) {
  runsThrough();
  ASSERT_EQ(measures().size(), 1U);
  const JSONValue measure = JSONDecoder::decode(measures()[0]);
  EXPECT_EQ(JSONReader(measure).member("test").text(), "HomeReference");
  EXPECT_EQ(JSONReader(measure).member("testTime").integer(), 30000);
}

TEST_F(ReferenceRun, FailsAtTheBrowserOnAPhoneWithoutSettings) {
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.out, testCaseLines("passed", "40.006"));
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"failed", "An unknown error occured while executing actions"}}));

  const std::vector<JSONValue> lines = eventsOf(traceEvents(folder.read("trace")), "lineFinished");
  ASSERT_EQ(lines.size(), 5U);
  const JSONReader last(lines.back());
  EXPECT_EQ(last.member("number").integer(), 6);
  EXPECT_EQ(last.member("text").text(), "browserPrepareAndOpenForReference");
  EXPECT_EQ(
      last.member("error").member("message").text(),
      "launch of the application \"com.apple.Preferences\" on the simulated phone: it is not installed; installed "
      "are com.apple.springboard, com.example.test");
}

TEST_F(ReferenceRun, NamesItsFolderWithTheIterationAsItIsWritten) {
  runsThrough();
  const std::string ofScript = "tests-results/TestReference/LaunchTest/iteration007/";
  EXPECT_THAT(results(), ElementsAre("measures/fernwick--HomeReference-TIME.json", ofScript + "dump/dump.txt",
                                     ofScript + "screenshots/001_HomeReference_start.png",
                                     ofScript + "screenshots/002_HomeReference_stop.png",
                                     ofScript + "screenshots/003_failed.png", "testsStatus.json"));
}

TEST_F(ReferenceRunInTheBrowser, MeasuresTheHomeScreenAndTheBrowserForHalfAMinuteEach) {
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
  ASSERT_EQ(measures().size(), 2U);
  const char* const names[] = {"HomeReference", "SafariReference"};
  for (std::size_t i = 0; i < 2; ++i) {
    const JSONValue measure = JSONDecoder::decode(measures()[i]);
    EXPECT_EQ(JSONReader(measure).member("test").text(), names[i]);
    EXPECT_EQ(JSONReader(measure).member("testTime").integer(), 30000);
  }
}

TEST_F(ReferenceRunInTheBrowser, ShowsTheReferencePageForAMinute) {
  // Two pauses of the script and two measures, a minute on the page, and two swipes through Settings; and the files.
  EXPECT_EQ(run().out, testCaseLines("passed", "132.009"));
}

/// Leaves the address in the browser's field, where the dump shows it.
TEST_F(ReferenceRunInTheBrowser, OpensTheBlackPageThatIsConfigured) {
  phone.write("browser/app.json", R"({"bundleIdentifier": "com.apple.mobilesafari", "name": "Browser",
                                      "firstScreen": "start"})");
  start.environment["class"] = "dslTestsSuites";
  start.environment["iteration"] = "1";
  addScript("S", "scripts/a.txt", "browserPrepareAndOpenForReference");
  addScript("S", "scripts/b.txt", "browserPrepareAndOpenForReference,true");
  runsThrough();
  const std::string dumpOfBlackPage = "tests-results/S/a/iteration1/dump/dump.txt";
  EXPECT_THAT(document(dumpOfBlackPage), HasSubstr("value: https://download.example.com/black/index.html\n"));
  EXPECT_THAT(document("tests-results/S/b/iteration1/dump/dump.txt"), HasSubstr("value: about:blank\n"));

  start.environment["QUOBRAK_REFERENCE_PAGE"] = "https://10.0.0.7:8443/black/index.html";
  runsThrough();
  EXPECT_THAT(document(dumpOfBlackPage), HasSubstr("value: https://10.0.0.7:8443/black/index.html\n"));
}

TEST_F(ReferenceRun, FailsWithoutAnIteration) {
  start.environment.erase("iteration");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("The iteration is not set"));
}

}  // namespace quobrak::testing
