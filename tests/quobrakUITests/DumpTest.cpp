#include "quobrakUITests/Dump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quobrakUITests/Application.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* PAGE = R"(<XCUIElementTypeButton label="Größe" x="0" y="0" width="100" height="20"/>)";

TEST(Dump, IsTheDescriptionOfTheApplicationAndNothingElse) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  takeDump("tests-results/Suite/login/iteration1");
  EXPECT_THAT(platform.documents().files(), ElementsAre("tests-results/Suite/login/iteration1/dump/dump.txt"));
  const std::string dump = platform.documents().read("tests-results/Suite/login/iteration1/dump/dump.txt");
  EXPECT_EQ(dump, TestContext::shared().getTestingApp().debugDescription());
  EXPECT_THAT(dump, HasSubstr("label: 'Größe'"));
}

TEST(Dump, LaterDumpReplacesTheEarlierOne) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  takeDump("results");
  Application::applicationKill("com.example.test");
  takeDump("results");
  EXPECT_THAT(platform.documents().files(), ElementsAre("results/dump/dump.txt"));
  EXPECT_EQ(platform.documents().read("results/dump/dump.txt"),
            "Query chain:\n →Find: Application 'com.example.test'\n");
}

TEST(Dump, WithoutAnApplicationNothingIsWritten) {
  testing::TestPlatform platform(PAGE);
  EXPECT_THAT([] { takeDump("results"); }, testing::raisesNotInitialised());
  EXPECT_THAT(platform.documents().files(), IsEmpty());
}

TEST(Dump, ThatCannotBeWritten) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  platform.documents().write("results", "a file where a folder should be");
  EXPECT_THAT([] { takeDump("results"); },
              testing::raisesDocumentDirectoryError("The file “results” couldn’t be saved in the folder “" +
                                                    platform.documents().path().filename().string() +
                                                    "” because a file with the same name already exists."));
}

}  // namespace
}  // namespace quobrak
