#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/quobrakUITests/Environment.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using testing::setVariable;
using testing::unsetVariable;

constexpr const char* REFERENCE_SCRIPT =
    "pause,10000\nmeasureStart,HomeReference\npause,30000\nmeasureStop\n\nbrowserPrepareAndOpenForReference\n"
    "measureStart,SafariReference\npause,30000\nmeasureStop\napplicationKill,com.apple.mobilesafari";

void nameFile(int number, const std::string& suite, const std::string& path) {
  setVariable("testFileSuiteName" + std::to_string(number), suite);
  setVariable("testFilePath" + std::to_string(number), path);
}

/// One script, "pause,1", of the suite "Suite" at that path.
std::string folderOfTheScript(const std::string& path) {
  setVariable("testFileNumber", "1");
  nameFile(1, "Suite", path);
  quobrakUITests test;
  const std::vector<TestFile> files = test.getTestFiles();
  EXPECT_EQ(files.size(), 1U);
  EXPECT_EQ(files.at(0).script, "pause,1");
  return files.at(0).iterationPath;
}

TEST(TestDiscovery, FilesInTheOrderOfTheirNumbers) {
  testing::TestPlatform platform;
  platform.documents().write("tests/login.txt", "pause,1\n");
  platform.documents().write("tests/buy.txt", "pause,2");
  setVariable("iteration", "2");
  setVariable("testFileNumber", "2");
  nameFile(1, "Suite1", "tests/login.txt");
  nameFile(2, "Suite 2", "tests/buy.txt");
  nameFile(3, "Suite3", "tests/missing.txt");
  quobrakUITests test;
  EXPECT_THAT(test.getTestFiles(),
              ElementsAre(TestFile{.script = "pause,1\n", .iterationPath = "tests-results/Suite1/login/iteration2"},
                          TestFile{.script = "pause,2", .iterationPath = "tests-results/Suite 2/buy/iteration2"}));
  EXPECT_EQ(TestContext::shared().getIteration(), 2);
}

TEST(TestDiscovery, NumbersOfFilesHaveNoLeadingZeros) {
  testing::TestPlatform platform;
  platform.documents().write("a.txt", "pause,1");
  setVariable("iteration", "1");
  setVariable("testFileNumber", "+012");
  for (int number = 1; number <= 12; ++number) {
    nameFile(number, "Suite" + std::to_string(number), "a.txt");
  }
  quobrakUITests test;
  const std::vector<TestFile> files = test.getTestFiles();
  ASSERT_EQ(files.size(), 12U);
  EXPECT_EQ(files[9].iterationPath, "tests-results/Suite10/a/iteration1");
  EXPECT_EQ(files[11].iterationPath, "tests-results/Suite12/a/iteration1");
}

TEST(TestDiscovery, EveryDocumentsPartIsRemovedFromAPath) {
  testing::TestPlatform platform;
  setVariable("iteration", "3");
  platform.documents().write("scripts/a.b.txt", "pause,1");
  EXPECT_EQ(folderOfTheScript("/Documents/scripts/a.b.txt"), "tests-results/Suite/a.b/iteration3");
  EXPECT_EQ(folderOfTheScript("scripts/Documents/a.b.txt"), "tests-results/Suite/a.b/iteration3");
  EXPECT_EQ(folderOfTheScript("/Documents/scripts/Documents/a.b.txt"), "tests-results/Suite/a.b/iteration3");
  platform.documents().write("fooBar", "pause,1");
  EXPECT_EQ(folderOfTheScript("/Documentsfoo/DocumentsBar"), "tests-results/Suite/fooBar/iteration3");
  platform.documents().write("Documents/a.txt", "pause,1");
  EXPECT_EQ(folderOfTheScript("Documents/a.txt"), "tests-results/Suite/a/iteration3");
}

TEST(TestDiscovery, NameOfATestIsTheLastComponentWithoutItsExtension) {
  testing::TestPlatform platform;
  setVariable("iteration", "3");
  platform.documents().write("deep/er/login", "pause,1");
  platform.documents().write("login.txt", "pause,1");
  platform.documents().write(".hidden", "pause,1");
  EXPECT_EQ(folderOfTheScript("deep/er/login"), "tests-results/Suite/login/iteration3");
  EXPECT_EQ(folderOfTheScript("login.txt"), "tests-results/Suite/login/iteration3");
  EXPECT_EQ(folderOfTheScript(".hidden"), "tests-results/Suite/.hidden/iteration3");
}

TEST(TestDiscovery, IterationIsANumberInTheContextAndATextInTheFolder) {
  struct Row {
    std::string text;
    std::int64_t number;
  };
  const Row ROWS[] = {{"007", 7}, {"+5", 5}, {"-1", -1}, {"0", 0}, {"9223372036854775807", 9223372036854775807}};
  testing::TestPlatform platform;
  platform.documents().write("a.txt", "pause,1");
  for (const auto& [text, number] : ROWS) {
    setVariable("iteration", text);
    EXPECT_EQ(folderOfTheScript("a.txt"), "tests-results/Suite/a/iteration" + text);
    EXPECT_EQ(TestContext::shared().getIteration(), number);
  }
}

TEST(TestDiscovery, IterationThatIsNotSet) {
  unsetVariable("iteration");
  unsetVariable("testFileNumber");
  quobrakUITests test;
  EXPECT_THAT([&] { test.getTestFiles(); }, testing::raisesEnvVariableError("The iteration is not set"));
  EXPECT_THAT([&] { test.getTestFileForReference(); }, testing::raisesEnvVariableError("The iteration is not set"));
}

TEST(TestDiscovery, IterationThatIsNoInteger) {
  unsetVariable("testFileNumber");
  quobrakUITests test;
  for (const std::string text : {"", "x", " 1", "1 ", "1.0", "9223372036854775808"}) {
    setVariable("iteration", text);
    EXPECT_THAT([&] { test.getTestFiles(); }, testing::raisesEnvVariableError("The iteration should be an integer"));
    EXPECT_THAT([&] { test.getTestFileForReference(); },
                testing::raisesEnvVariableError("The iteration should be an integer"));
  }
}

TEST(TestDiscovery, NumberOfFilesThatIsNotSet) {
  setVariable("iteration", "4");
  unsetVariable("testFileNumber");
  quobrakUITests test;
  EXPECT_THAT([&] { test.getTestFiles(); }, testing::raisesEnvVariableError("The test suite number is not set"));
  EXPECT_EQ(TestContext::shared().getIteration(), 1);
}

TEST(TestDiscovery, NumberOfFilesThatIsNoInteger) {
  setVariable("iteration", "4");
  quobrakUITests test;
  for (const std::string text : {"x", "", " 2", "2.0", "-"}) {
    setVariable("testFileNumber", text);
    EXPECT_THAT([&] { test.getTestFiles(); },
                testing::raisesEnvVariableError("The test suite number " + text + " should be an integer"));
  }
}

TEST(TestDiscovery, NumberOfFilesBelowOneIsFatal) {
  setVariable("iteration", "1");
  quobrakUITests test;
  for (const std::string text : {"0", "-1"}) {
    setVariable("testFileNumber", text);
    EXPECT_DEATH(test.getTestFiles(), Eq("Fatal error: Range requires lowerBound <= upperBound: testFileNumber is " +
                                         text + ", but must be at least 1\n"));
  }
}

TEST(TestDiscovery, MissingSuiteNameIsFatal) {
  testing::TestPlatform platform;
  platform.documents().write("a.txt", "pause,1");
  setVariable("iteration", "1");
  setVariable("testFileNumber", "2");
  nameFile(1, "Suite", "a.txt");
  nameFile(2, "Suite", "a.txt");
  unsetVariable("testFileSuiteName2");
  quobrakUITests test;
  EXPECT_DEATH(test.getTestFiles(),
               Eq("Fatal error: Unexpectedly found nil: the environment variable testFileSuiteName2 is not set\n"));
}

TEST(TestDiscovery, MissingPathIsFatal) {
  testing::TestPlatform platform;
  setVariable("iteration", "1");
  setVariable("testFileNumber", "1");
  setVariable("testFileSuiteName1", "Suite");
  unsetVariable("testFilePath1");
  quobrakUITests test;
  EXPECT_DEATH(test.getTestFiles(),
               Eq("Fatal error: Unexpectedly found nil: the environment variable testFilePath1 is not set\n"));
}

TEST(TestDiscovery, ScriptThatCannotBeReadEndsTheDiscovery) {
  testing::TestPlatform platform;
  platform.documents().write("a.txt", "pause,1");
  setVariable("iteration", "4");
  setVariable("testFileNumber", "2");
  nameFile(1, "Suite", "a.txt");
  nameFile(2, "Suite", "/Documents/missing.txt");
  quobrakUITests test;
  EXPECT_THAT([&] { test.getTestFiles(); },
              testing::raisesDocumentDirectoryError("The file /missing.txt is missing in the document directory"));
  EXPECT_EQ(TestContext::shared().getIteration(), 1);
}

TEST(TestDiscovery, VariablesOfLaterFilesAreReadAfterTheFilesBeforeThem) {
  testing::TestPlatform platform;
  setVariable("iteration", "1");
  setVariable("testFileNumber", "2");
  nameFile(1, "Suite", "missing.txt");
  unsetVariable("testFileSuiteName2");
  unsetVariable("testFilePath2");
  quobrakUITests test;
  EXPECT_THAT([&] { test.getTestFiles(); },
              testing::raisesDocumentDirectoryError("The file missing.txt is missing in the document directory"));
}

TEST(TestDiscovery, ReferenceNeedsOnlyTheIteration) {
  unsetVariable("testFileNumber");
  setVariable("iteration", "+06");
  quobrakUITests test;
  EXPECT_THAT(test.getTestFileForReference(),
              ElementsAre(TestFile{.script = REFERENCE_SCRIPT,
                                   .iterationPath = "tests-results/TestReference/LaunchTest/iteration+06"}));
  EXPECT_EQ(std::string_view(REFERENCE_SCRIPT).size(), 189U);
  EXPECT_EQ(TestContext::shared().getIteration(), 6);
}

}  // namespace
}  // namespace quobrak
