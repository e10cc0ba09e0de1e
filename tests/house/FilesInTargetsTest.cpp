#include "tests/house/FilesInTargets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::house {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FilesInTargets, FindsSourcesThatNoListNames) {
  const SourceTree tree{{"a/CMakeLists.txt", "add_library(a One.cpp sub/Two.cpp)\n# Four.cpp\n"},
                        {"a/One.cpp", ""},
                        {"a/OtherOne.cpp", ""},
                        {"a/One.h", ""},
                        {"a/Four.cpp", ""},
                        {"a/sub/Two.cpp", ""},
                        {"a/sub/One.cpp", ""},
                        {"a/own/CMakeLists.txt", "add_library(own\n  Five.cpp)"},
                        {"a/own/Five.cpp", ""},
                        {"a/own/One.cpp", ""},
                        {"a/own/Seven.mm", ""},
                        {"b/Six.cpp", ""}};
  EXPECT_THAT(filesInNoTarget(tree), ElementsAre("a/Four.cpp", "a/OtherOne.cpp", "a/own/One.cpp", "a/sub/One.cpp",
                                                 "b/Six.cpp", "a/own/Seven.mm"));
}

TEST(FilesInTargets, ExceptsWhatMustNotCompile) {
  EXPECT_THAT(filesInNoTarget({{"tests/quobrakUITests/CMakeLists.txt", ""},
                               {"tests/quobrakUITests/wrong_table/TwoRows.cpp", ""},
                               {"tests/quobrakUITests/Other.cpp", ""}}),
              ElementsAre("tests/quobrakUITests/Other.cpp"));
}

TEST(FilesInTargets, HoldsInTheWholeHouse) {
  ASSERT_TRUE(ourSourceTree().contains("runner/main.cpp")) << "the sources were not found";
  EXPECT_THAT(filesInNoTarget(ourSourceTree()), IsEmpty());
}

}  // namespace quobrak::house
