#include "tests/house/FileRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::house {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(FileRules, FindHeadersThatDoNotBeginWithPragmaOnce) {
  EXPECT_THAT(headersWithoutPragmaOnce({{"a/Good.h", "#pragma once\n\nclass Good;\n"},
                                        {"a/None.h", "class None;\n"},
                                        {"a/Late.h", "// Why.\n#pragma once\n"},
                                        {"a/Guard.h", "#ifndef GUARD\n#define GUARD\n#endif\n"},
                                        {"a/Empty.h", ""},
                                        {"a/Source.cpp", ""}}),
              ElementsAre("a/Empty.h", "a/Guard.h", "a/Late.h", "a/None.h"));
}

TEST(FileRules, EveryHeaderOfTheHouseBeginsWithPragmaOnce) {
  EXPECT_THAT(headersWithoutPragmaOnce(ourSourceTree()), IsEmpty());
}

TEST(FileRules, FindSourcesWithoutATest) {
  EXPECT_THAT(sourcesWithoutTest({{"platform/foundation/Tested.cpp", ""},
                                  {"tests/platform/foundation/TestedTest.cpp", ""},
                                  {"platform/foundation/icu/Wrapper.cpp", ""},
                                  {"tests/platform/foundation/WrapperTest.cpp", ""},
                                  {"quobrakUITests/Tested.cpp", ""},
                                  {"drivers/simulator/Untested.cpp", ""},
                                  {"drivers/simulator/HeaderAlone.h", ""},
                                  {"drivers/xctest/Tested.mm", ""},
                                  {"tests/drivers/xctest/TestedTest.cpp", ""},
                                  {"drivers/xctest/Untested.mm", ""},
                                  {"runner/main.cpp", ""},
                                  {"tests/house/SourceTree.cpp", ""},
                                  {"benchmarks/some/someBenchmark.cpp", ""}}),
              ElementsAre("drivers/simulator/Untested.cpp", "quobrakUITests/Tested.cpp", "drivers/xctest/Untested.mm"));
}

TEST(FileRules, EverySourceOfTheHouseHasATest) {
  ASSERT_TRUE(ourSourceTree().contains("runner/main.cpp")) << "the sources were not found";
  EXPECT_THAT(sourcesWithoutTest(ourSourceTree()), IsEmpty());
}

TEST(FileRules, FindExceptionsThatAreNoLongerNeeded) {
  SourceTree tree = ourSourceTree();
  tree.emplace("tests/runner/mainTest.cpp", "");
  tree.erase("drivers/simulator/BarArt.cpp");
  EXPECT_THAT(idleExceptions(tree), Contains("runner/main.cpp"));
  EXPECT_THAT(idleExceptions(tree), Contains("drivers/simulator/BarArt.cpp"));
  EXPECT_THAT(idleExceptions(tree), Not(Contains("drivers/simulator/TextArt.cpp")));
}

TEST(FileRules, EveryExceptionIsNeeded) {
  EXPECT_THAT(idleExceptions(ourSourceTree()), IsEmpty());
}

}  // namespace quobrak::house
