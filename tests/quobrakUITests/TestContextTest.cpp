#include "quobrakUITests/TestContext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quobrakUITests/quobrakUITests.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(TestContext, FreshValues) {
  const TestContext& context = TestContext::shared();
  EXPECT_THAT(context.getTestResults(), IsEmpty());
  EXPECT_EQ(context.getCurrentTestResult(), (TestResultV2{.test = "", .testTime = 0, .measures = {{}}}));
  EXPECT_EQ(context.getScreenshotNumber(), 1);
  EXPECT_EQ(context.getIteration(), 1);
  EXPECT_EQ(context.getIterationPath(), "");
  EXPECT_THAT([&] { context.getTestingApp(); }, testing::raisesNotInitialised());
}

TEST(TestContext, ThereIsOne) {
  EXPECT_EQ(&TestContext::shared(), &TestContext::shared());
}

TEST(TestContext, ScreenshotNumberIsResetToOne) {
  TestContext& context = TestContext::shared();
  context.incrementScreenshotNumber();
  context.incrementScreenshotNumber();
  context.incrementScreenshotNumber();
  EXPECT_EQ(context.getScreenshotNumber(), 4);
  context.resetScreenshotNumber();
  EXPECT_EQ(context.getScreenshotNumber(), 1);
}

TEST(TestContext, ChoosingAnApplicationDoesNotLaunchIt) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
  EXPECT_THAT(platform.driver().operations, IsEmpty());
}

TEST(TestContext, EmptyIdentifierMeansNoApplicationAgain) {
  TestContext& context = TestContext::shared();
  context.setTestingApp("com.example.test");
  context.setTestingApp("com.example.other");
  EXPECT_EQ(context.getTestingApp().bundleIdentifier(), "com.example.other");
  context.setTestingApp("");
  EXPECT_THAT([&] { context.getTestingApp(); }, testing::raisesNotInitialised());
}

TEST(TestContext, CopyOfTheCurrentResultChangesNothing) {
  TestContext& context = TestContext::shared();
  TestResultV2 copy = context.getCurrentTestResult();
  copy.test = "changed";
  copy.measures[0].push_back({.time = 1, .values = {}});
  EXPECT_EQ(context.getCurrentTestResult(), (TestResultV2{.test = "", .testTime = 0, .measures = {{}}}));
  context.setCurrentTestResult(copy);
  EXPECT_EQ(context.getCurrentTestResult(), copy);
}

TEST(TestContext, ResultsStayInTheOrderInWhichTheyWereAppended) {
  TestContext& context = TestContext::shared();
  const TestResultV2 second{.test = "b", .testTime = 2, .measures = {}};
  const TestResultV2 first{.test = "a", .testTime = 1, .measures = {}};
  context.appendTestResults(second);
  context.appendTestResults(first);
  context.appendTestResults(second);
  EXPECT_THAT(context.getTestResults(), ElementsAre(second, first, second));
}

TEST(TestContext, IterationAndItsPath) {
  TestContext& context = TestContext::shared();
  context.setIteration(-7);
  context.setIterationPath("tests-results/Suite/login/iteration-7");
  EXPECT_EQ(context.getIteration(), -7);
  EXPECT_EQ(context.getIterationPath(), "tests-results/Suite/login/iteration-7");
}

TEST(TestContext, ScriptThatActsOnAnElementFirstFails) {
  testing::TestPlatform platform;
  quobrakUITests test;
  EXPECT_THAT([&] { test.executeActions("clickByText,Go"); },
              testing::raisesFdslError(
                  "Error on line clickByText,Go (line: 1). Cause: The application is not initialised. Please use "
                  "applicationStart or launchBrowser at the beginning of your script."));
}

TEST(TestContext, ApplicationOfAnEarlierScriptIsStillCurrent) {
  testing::TestPlatform platform(R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)");
  quobrakUITests test;
  test.launchTest({{.script = "applicationStart,com.example.test", .iterationPath = "a"},
                   {.script = "clickByText,Go", .iterationPath = "b"}});
  const TestStatus success{.status = "success", .stackTrace = ""};
  EXPECT_THAT(test.testStatus(), ElementsAre(success, success));
}

}  // namespace
}  // namespace quobrak
