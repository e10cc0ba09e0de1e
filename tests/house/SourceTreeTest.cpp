#include "tests/house/SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::house {

using ::testing::ElementsAre;
using ::testing::Pair;

TEST(SourceTree, HoldsTheSourcesAndListsOfOurFolders) {
  const testing::TemporaryFolder root;
  for (const char* folder :
       {"platform", "quobrakUITests", "drivers", "phoneserver", "manual", "host", "benchmarks", "fuzz"}) {
    std::filesystem::create_directory(root.path() / folder);
  }
  root.write("tests/deep/er/Thing.h", "header");
  root.write("runner/main.cpp", "source");
  root.write("runner/CMakeLists.txt", "list");
  root.write("runner/notes.txt", "no source");
  root.write("build/made.cpp", "not ours");
  root.write("CMakeLists.txt", "of the root");
  EXPECT_THAT(readSourceTree(root.path()),
              ElementsAre(Pair("runner/CMakeLists.txt", "list"), Pair("runner/main.cpp", "source"),
                          Pair("tests/deep/er/Thing.h", "header")));
}

TEST(SourceTree, FindsFilesByTheirEnding) {
  EXPECT_THAT(filesEndingIn({{"b/x.cpp", ""}, {"a/y.cpp", ""}, {"a/y.h", ""}}, ".cpp"),
              ElementsAre("a/y.cpp", "b/x.cpp"));
}

TEST(SourceTree, SourcesAreWhatIsCompiled) {
  EXPECT_THAT(sourcesOf({{"b/x.mm", ""}, {"c/y.cpp", ""}, {"a/y.h", ""}}), ElementsAre("c/y.cpp", "b/x.mm"));
}

TEST(SourceTree, TheFolderOfAPath) {
  EXPECT_EQ(folderOf("a/b/c.cpp"), "a/b");
  EXPECT_EQ(folderOf("a"), "");
  EXPECT_EQ(folderOf(""), "");
}

}  // namespace quobrak::house
