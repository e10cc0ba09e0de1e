#include "host/check/Variables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <utility>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

std::optional<std::string> environment(const std::string& name) {
  return name == "HOME_TOWN" ? std::optional<std::string>("Ulm") : std::nullopt;
}

Variables::Map readFiles(std::vector<std::filesystem::path> files, std::vector<std::string> definitions = {}) {
  const Variables variables =
      readVariables({.files = std::move(files), .definitions = std::move(definitions)}, environment);
  return {variables.begin(), variables.end()};
}

/// What the error says; empty where there is none.
template <class Error>
std::string errorOf(const VariableOptions& options) {
  try {
    readVariables(options, environment);
  } catch (const Error& error) {
    return error.what();
  }
  return "";
}

TEST(Variables, AreFoundByName) {
  Variables variables;
  variables.set("A", "1");
  variables.set("A", "2");
  ASSERT_NE(variables.find("A"), nullptr);
  EXPECT_EQ(*variables.find("A"), "2");
  EXPECT_EQ(variables.find("B"), nullptr);
  EXPECT_EQ(variables.size(), 1U);
}

TEST(Variables, HaveUTF8Values) {
  Variables variables;
  variables.set("A", "\xE9t\xC3\xA9");
  EXPECT_EQ(*variables.find("A"), "\xEF\xBF\xBDt\xC3\xA9");
}

TEST(Variables, ComeFromTheCommandLine) {
  EXPECT_THAT(readFiles({}, {"B=", "A=x=y, z ", "HOME_TOWN", "größe_1=XL"}),
              ElementsAre(Pair("A", "x=y, z "), Pair("B", ""), Pair("HOME_TOWN", "Ulm"), Pair("größe_1", "XL")));
}

TEST(Variables, ComeFromFiles) {
  const quobrak::testing::TemporaryFolder folder;
  folder.write("a.env", "# A comment\r\n\r\n  A=1\r\nB= two \r\n");
  folder.write("b.env",
               "\xEF\xBB\xBF"
               "B=\"2\"\nC=#3");
  EXPECT_THAT(readFiles({folder.path() / "a.env", folder.path() / "b.env"}),
              ElementsAre(Pair("A", "1"), Pair("B", "\"2\""), Pair("C", "#3")));
}

TEST(Variables, OfLaterLinesAndOfTheCommandLineWin) {
  const quobrak::testing::TemporaryFolder folder;
  folder.write("a.env", "A=1\nA=2\nB=1\n");
  EXPECT_THAT(readFiles({folder.path() / "a.env"}, {"B=3", "B=4"}), ElementsAre(Pair("A", "2"), Pair("B", "4")));
}

TEST(Variables, ThatAreNoneAreRefused) {
  const std::vector<std::pair<std::string, std::string>> table{
      {"=1", "--var =1: \"\" is no name of a variable: expected NAME=VALUE, with a name of letters, digits and _"},
      {"a-b=1",
       "--var a-b=1: \"a-b\" is no name of a variable: expected NAME=VALUE, with a name of letters, digits and _"},
      {"MISSING", "--var MISSING: the environment has no such variable; give its value: --var MISSING=…"},
      {"iteration=2",
       "--var iteration=2: the variable iteration is set by the run itself: choose another name for yours"},
      {"QUOBRAK_CLOCK=system",
       "--var QUOBRAK_CLOCK=system: the variable QUOBRAK_CLOCK is set by the run itself: choose another name for "
       "yours"},
  };
  for (const auto& [definition, message] : table) {
    EXPECT_EQ(errorOf<UseError>({.files = {}, .definitions = {definition}}), message);
  }
}

TEST(Variables, ThatAreNoneInAFileAreRefusedWithTheirLine) {
  const quobrak::testing::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "bad.env";
  const std::vector<std::pair<std::string, std::string>> table{
      {"A=1\nB\n", ":2: \"B\" has no value: expected NAME=VALUE, with a name of letters, digits and _"},
      {"export A=1",
       ":1: \"export A\" is no name of a variable: expected NAME=VALUE, with a name of letters, digits and _"},
      {"\n\nclass=x", ":3: the variable class is set by the run itself: choose another name for yours"},
      {std::string("A=b\0c", 5), ":1: the value of A has a NUL character, which no variable can hold"},
  };
  for (const auto& [text, message] : table) {
    folder.write("bad.env", text);
    EXPECT_EQ(errorOf<UseError>({.files = {file}, .definitions = {}}), file.string() + message);
  }
}

TEST(Variables, NeedAFileThatIsThereAndCanBeRead) {
  const quobrak::testing::TemporaryFolder folder;
  const std::string name = folder.path().string();
  EXPECT_EQ(errorOf<UseError>({.files = {folder.path() / "none"}, .definitions = {}}),
            "there is no file " + name + "/none to read variables from");
  EXPECT_EQ(errorOf<EnvironmentError>({.files = {folder.path()}, .definitions = {}}),
            "the file " + name + " cannot be read: Is a directory");
  folder.write("latin.env", "A=\xE9\n");
  EXPECT_EQ(errorOf<UseError>({.files = {folder.path() / "latin.env"}, .definitions = {}}),
            "the file " + name + "/latin.env is not UTF-8");
}

TEST(Variables, AreOptionsThatMayBeRepeated) {
  CLI::App app;
  VariableOptions options;
  std::vector<std::string> paths;
  declareVariableOptions(app, options);
  app.add_option("PATH", paths);
  app.parse(R"(--var "A=[1,2]" script.txt --env-file a.env --var B --env-file b.env)");
  EXPECT_THAT(options.definitions, ElementsAre("A=[1,2]", "B"));
  EXPECT_THAT(options.files, ElementsAre("a.env", "b.env"));
  EXPECT_THAT(paths, ElementsAre("script.txt"));
}

TEST(Variables, SetByTheRunAreKnown) {
  for (const char* name :
       {"class", "iteration", "command", "testFileNumber", "testFileSuiteName1", "testFilePath20", "QUOBRAK_TRACE"}) {
    EXPECT_TRUE(isSetByRun(name)) << name;
  }
  for (const char* name : {"Class", "testFileSuiteName", "testFilePathX", "PRODUCT", "iteration1"}) {
    EXPECT_FALSE(isSetByRun(name)) << name;
  }
}

}  // namespace
}  // namespace quobrak::host
