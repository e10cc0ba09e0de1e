#include "host/check/ScriptPaths.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;

class ScriptPaths : public ::testing::Test {
 protected:
  ScriptPaths() {
    folder_.write("b.txt", "B");
    folder_.write("a/z.txt", "Z");
    folder_.write("a/.hidden.txt", "no");
    folder_.write("a/readme.md", "no");
    folder_.write(".git/x.txt", "no");
    folder_.write("c.txt", "C");
    folder_.write("empty/note.md", "no");
  }

  std::string pathOf(const std::string& name) const { return (folder_.path() / name).string(); }

  /// The names from the folder on, and the contents, of what the paths name.
  std::vector<std::string> read(const std::vector<std::string>& paths) {
    const NamedScripts named = readScripts(paths);
    isOrderKnown_ = named.isOrderKnown;
    std::vector<std::string> words;
    for (const ScriptSource& script : named.scripts) {
      const std::string name =
          script.name == "-" ? "-" : std::filesystem::path(script.name).lexically_relative(folder_.path()).string();
      words.push_back(name + " " + script.bytes);
    }
    return words;
  }

  template <class Error>
  static std::string errorOf(const std::string& path) {
    try {
      readScripts({path});
    } catch (const Error& error) {
      return error.what();
    }
    return "";
  }

  quobrak::testing::TemporaryFolder folder_;
  bool isOrderKnown_ = false;
};

TEST_F(ScriptPaths, OfFilesAreTheScriptsInTheirOrder) {
  EXPECT_THAT(read({pathOf("c.txt"), pathOf("a/readme.md"), pathOf("b.txt"), pathOf("c.txt")}),
              ElementsAre("c.txt C", "a/readme.md no", "b.txt B", "c.txt C"));
  EXPECT_TRUE(isOrderKnown_);
}

TEST_F(ScriptPaths, OfFoldersAreTheScriptsBelowThem) {
  EXPECT_THAT(read({folder_.path().string()}), ElementsAre("a/z.txt Z", "b.txt B", "c.txt C"));
  EXPECT_FALSE(isOrderKnown_);
  EXPECT_THAT(read({pathOf("b.txt"), pathOf("a")}), ElementsAre("b.txt B", "a/z.txt Z"));
  EXPECT_FALSE(isOrderKnown_);
}

TEST_F(ScriptPaths, AreNotLookedForAmongTheResultsOfARun) {
  folder_.write("out/.quobrak-results", "");
  folder_.write("out/iterations/001/scripts/001/x.txt", "X");
  EXPECT_THAT(read({folder_.path().string()}), ElementsAre("a/z.txt Z", "b.txt B", "c.txt C"));
  EXPECT_EQ(errorOf<UseError>(pathOf("out")), "the folder " + pathOf("out") +
                                                  " holds the results of a run: what is in it is not taken for "
                                                  "scripts, unless it is named by itself");
  EXPECT_THAT(read({pathOf("out/iterations/001/scripts")}), ElementsAre("out/iterations/001/scripts/001/x.txt X"));
}

TEST_F(ScriptPaths, MayBeStandardInput) {
  std::istringstream input("pause,1\n");
  std::streambuf* const before = std::cin.rdbuf(input.rdbuf());
  EXPECT_THAT(read({"-"}), ElementsAre("- pause,1\n"));
  std::cin.rdbuf(before);
  EXPECT_TRUE(isOrderKnown_);
}

TEST_F(ScriptPaths, MustNotBeStandardInputTwice) {
  const std::vector<std::string> paths{"-", pathOf("b.txt"), "-"};
  try {
    readScripts(paths);
    FAIL() << "it was read twice";
  } catch (const UseError& error) {
    EXPECT_STREQ(error.what(), "standard input can be read once only");
  }
}

TEST_F(ScriptPaths, MustNotBeAStandardInputThatNeverEnds) {
  std::filebuf zeros;
  ASSERT_NE(zeros.open("/dev/zero", std::ios::in), nullptr);
  std::streambuf* const before = std::cin.rdbuf(&zeros);
  EXPECT_EQ(errorOf<EnvironmentError>("-"),
            "standard input is too large: it has more than 256 MB, the most that is read");
  std::cin.rdbuf(before);
}

TEST_F(ScriptPaths, MustNotBeAStandardInputThatFails) {
  // A folder opens, and cannot be read.
  const int before = ::dup(STDIN_FILENO);
  const int folder = ::open("/", O_RDONLY);
  ::dup2(folder, STDIN_FILENO);
  EXPECT_EQ(errorOf<EnvironmentError>("-"), "standard input cannot be read");
  ::dup2(before, STDIN_FILENO);
  ::close(folder);
  ::close(before);
  std::clearerr(stdin);
}

TEST_F(ScriptPaths, MustNameSomething) {
  EXPECT_EQ(errorOf<UseError>(pathOf("none.txt")), "there is no file or folder " + pathOf("none.txt"));
  EXPECT_EQ(errorOf<UseError>(pathOf("empty")),
            "the folder " + pathOf("empty") + " has no script: their names end in .txt");
  EXPECT_EQ(errorOf<UseError>("a\x1b[31m"), "there is no file or folder a␛[31m");
}

TEST_F(ScriptPaths, MustBeReadable) {
  const std::string loop = pathOf("loop.txt");
  std::filesystem::create_symlink("loop.txt", loop);
  EXPECT_EQ(errorOf<EnvironmentError>(folder_.path().string()),
            loop + " cannot be read: Too many levels of symbolic links");
  EXPECT_EQ(errorOf<EnvironmentError>(loop), "the file " + loop + " cannot be read: Too many levels of symbolic links");
}

TEST_F(ScriptPaths, DoNotFollowLinksToFoldersRoundAndRound) {
  std::filesystem::create_directory_symlink(".", pathOf("a/self"));
  EXPECT_THAT(read({pathOf("a")}), ElementsAre("a/z.txt Z"));
}

}  // namespace
}  // namespace quobrak::host
