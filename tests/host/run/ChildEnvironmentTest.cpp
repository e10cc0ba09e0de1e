#include "host/run/ChildEnvironment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

TEST(ChildEnvironment, PassesOnWhatProgramsNeedAndNothingElse) {
  const EnvironmentVariables own{{"HOME", "/home/a"},    {"PATH", "/bin"},    {"TMPDIR", "/t"},   {"TZ", "UTC"},
                                 {"LANG", "de"},         {"LC_TIME", "en"},   {"no_proxy", "*"},  {"HTTPS_PROXY", "p"},
                                 {"SSL_CERT_FILE", "c"}, {"LD_PRELOAD", "x"}, {"class", "other"}, {"SHELL", "sh"},
                                 {"testFileNumber", "9"}};
  EXPECT_THAT(commonEnvironment(own, {}, {}),
              ElementsAre(Pair("HOME", "/home/a"), Pair("HTTPS_PROXY", "p"), Pair("LANG", "de"), Pair("LC_TIME", "en"),
                          Pair("PATH", "/bin"), Pair("SSL_CERT_FILE", "c"), Pair("TMPDIR", "/t"), Pair("TZ", "UTC"),
                          Pair("no_proxy", "*")));
}

TEST(ChildEnvironment, PassesOnWhatConfiguresTheTestProcess) {
  const EnvironmentVariables own{{"QUOBRAK_REFERENCE_PAGE", "r"}, {"QUOBRAK_WEBDRIVER_URL", "w"},
                                 {"QUOBRAK_CLOCK", "virtual"},    {"QUOBRAK_DOCUMENTS", "d"},
                                 {"QUOBRAK_TRACE", "t"},          {"QUOBRAK_TEST_PROCESS", "p"}};
  EXPECT_THAT(commonEnvironment(own, {}, {}),
              ElementsAre(Pair("QUOBRAK_CLOCK", "virtual"), Pair("QUOBRAK_REFERENCE_PAGE", "r"),
                          Pair("QUOBRAK_WEBDRIVER_URL", "w")));
}

TEST(ChildEnvironment, OptionsWin) {
  const EnvironmentVariables own{{"QUOBRAK_CLOCK", "virtual"}, {"QUOBRAK_DRIVER", "simulator"}, {"HOME", "/home/a"}};
  EXPECT_THAT(commonEnvironment(own, {{"HOME", "mine"}, {"A", "1"}},
                                {.driver = "webdriver", .clock = "system", .phone = "/phone"}),
              ElementsAre(Pair("A", "1"), Pair("HOME", "mine"), Pair("QUOBRAK_CLOCK", "system"),
                          Pair("QUOBRAK_DRIVER", "webdriver"), Pair("QUOBRAK_PHONE", "/phone")));
}

TEST(ChildEnvironment, TellsWhichScriptsToRun) {
  EXPECT_THAT(iterationEnvironment({{"A", "1"}}, {.kind = RunKind::scripts,
                                                  .iteration = 3,
                                                  .scripts = {{.suite = "Shop", .path = "scripts/001/a.txt"},
                                                              {.suite = "Bank", .path = "scripts/002/b.txt"}},
                                                  .command = {},
                                                  .documents = "/out/003",
                                                  .trace = "/out/003/trace.jsonl"}),
              UnorderedElementsAre("A=1", "class=dslTestsSuites", "iteration=3", "testFileNumber=2",
                                   "testFileSuiteName1=Shop", "testFilePath1=scripts/001/a.txt",
                                   "testFileSuiteName2=Bank", "testFilePath2=scripts/002/b.txt",
                                   "QUOBRAK_DOCUMENTS=/out/003", "QUOBRAK_TRACE=/out/003/trace.jsonl"));
}

TEST(ChildEnvironment, TellsWhichCommandToRun) {
  EXPECT_THAT(
      iterationEnvironment({}, {.kind = RunKind::command,
                                .iteration = 1,
                                .scripts = {},
                                .command = "pause,100",
                                .documents = "/d",
                                .trace = "/t"}),
      UnorderedElementsAre("class=dslCommandTest", "command=pause,100", "QUOBRAK_DOCUMENTS=/d", "QUOBRAK_TRACE=/t"));
}

TEST(ChildEnvironment, TellsToRunTheReferenceScript) {
  EXPECT_THAT(
      iterationEnvironment(
          {},
          {.kind = RunKind::reference, .iteration = 0, .scripts = {}, .command = {}, .documents = "/d", .trace = "/t"}),
      UnorderedElementsAre("class=dslTestReference", "iteration=0", "QUOBRAK_DOCUMENTS=/d", "QUOBRAK_TRACE=/t"));
}

TEST(ChildEnvironment, KnowsOurOwn) {
  ::setenv("QUOBRAK_TEST_VARIABLE", "a=b", 1);
  EXPECT_EQ(ownEnvironment().at("QUOBRAK_TEST_VARIABLE"), "a=b");
}

}  // namespace
}  // namespace quobrak::host
