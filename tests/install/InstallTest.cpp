#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <regex>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "host/program/CommandLine.h"
#include "host/program/Subcommands.h"
#include "phoneserver/Options.h"
#include "tests/process/TestProcessRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAreArray;

/// To install notes in the folder of the build what was installed.
void needsFolderOfBuild() {
  if (::access(QUOBRAK_BUILD_FOLDER, W_OK) != 0) {
    std::cout << "skipped: the folder of the build cannot be written by this user" << std::endl;
    constexpr int SKIPPED = 77;
    std::exit(SKIPPED);
  }
}

class Install : public ::testing::Test {
 protected:
  Install() {
    needsFolderOfBuild();
    ProcessStart start;
    start.executable = QUOBRAK_CMAKE;
    // It looks for its own files from there.
    start.environment["PATH"] = start.executable.parent_path();
    start.arguments = {"--install", QUOBRAK_BUILD_FOLDER, "--prefix", folder.path().string()};
    const ProcessEnd end = runExecutable(start);
    EXPECT_EQ(end.exitStatus, 0) << end.err;
  }

  /// The names of the files in a folder.
  std::vector<std::string> filesIn(const std::string& path) const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.path() / path)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  ProcessEnd run(const std::string& program, std::vector<std::string> arguments) const {
    ProcessStart start;
    start.executable = folder.path() / "bin" / program;
    start.arguments = std::move(arguments);
    return runExecutable(start);
  }

  const TemporaryFolder folder;
};

/// The text of a manual page as it is installed.
std::string unpacked(const fs::path& page) {
  ProcessStart start;
  start.executable = "/bin/gzip";
  start.arguments = {"-dc", page.string()};
  const ProcessEnd end = runExecutable(start);
  EXPECT_EQ(end.exitStatus, 0) << end.err;
  return end.out;
}

/// The long options that a text names.
std::set<std::string> optionsIn(const std::string& text) {
  static const std::regex OPTION("--[a-z]+");
  std::set<std::string> options;
  for (std::sregex_iterator found(text.begin(), text.end(), OPTION), end; found != end; ++found) {
    options.insert(found->str());
  }
  return options;
}

}  // namespace

TEST_F(Install, PutsPrograms) {
  EXPECT_THAT(filesIn("bin"), ElementsAre("quobrak", "quobrakPhone", "quobrakUITests"));
}

TEST_F(Install, PutsAManualPageForEachProgramAndSubcommand) {
  std::vector<std::string> pages{"quobrak.1.gz", "quobrakPhone.1.gz", "quobrakUITests.1.gz"};
  const host::CommandLine commandLine(host::subcommands());
  for (const host::DeclaredCommand& subcommand : commandLine.program().subcommands) {
    pages.push_back("quobrak-" + subcommand.name + ".1.gz");
  }
  EXPECT_THAT(filesIn("share/man/man1"), UnorderedElementsAreArray(pages));
}

TEST_F(Install, PutsCompletionsWhereShellsLook) {
  for (const auto& [shell, file] : {std::pair("bash", "share/bash-completion/completions/quobrak"),
                                    std::pair("zsh", "share/zsh/site-functions/_quobrak"),
                                    std::pair("fish", "share/fish/vendor_completions.d/quobrak.fish")}) {
    EXPECT_EQ(folder.read(file), run("quobrak", {"completion", shell}).out);
  }
}

TEST_F(Install, PutsDocumentsAndExamplesAsTheyStand) {
  for (const char* const part : {"docs", "examples"}) {
    const fs::path source = fs::path(QUOBRAK_SOURCE_FOLDER) / part;
    EXPECT_EQ(snapshot(folder.path() / "share/doc/quobrak" / part), snapshot(source));
  }
  EXPECT_THAT(filesIn("share/doc/quobrak"),
              ElementsAre("CHANGELOG.md", "CONTRIBUTING.md", "README.md", "docs", "examples"));
}

TEST_F(Install, LeavesProgramsThatFindOneAnother) {
  ProcessStart start;
  start.executable = folder.path() / "bin/quobrak";
  start.arguments = {"run", "--clock", "virtual", "--command", "pause,60000"};
  start.workingDirectory = folder.path();
  const ProcessEnd end = runExecutable(start);
  EXPECT_EQ(end.exitStatus, 0) << end.out << end.err;
}

TEST_F(Install, LeavesExamplesThatCanBeRunWhereTheyAre) {
  const std::string example = (folder.path() / "share/doc/quobrak/examples/shop/order.txt").string();
  const ProcessEnd end = run("quobrak", {"check", "--var", "PRODUCT=Lamp", example});
  EXPECT_EQ(end.exitStatus, 0) << end.out << end.err;
}

TEST_F(Install, LeavesProgramsThatTellOneVersion) {
  EXPECT_EQ(run("quobrak", {"--version"}).out, "quobrak " QUOBRAK_VERSION "\n");
  EXPECT_EQ(run("quobrakPhone", {"--version"}).out, "quobrakPhone " QUOBRAK_VERSION "\n");
}

TEST_F(Install, ThePageOfThePhoneTellsItsOptionsAndNoOthers) {
  const std::string source = unpacked(folder.path() / "share/man/man1/quobrakPhone.1.gz");
  const std::string page = std::regex_replace(source, std::regex(R"(\\(f[BR])?)"), "");
  const auto help = phoneserver::readOptions({"--help"});
  EXPECT_EQ(optionsIn(page), optionsIn(std::get<phoneserver::Information>(help).text));
  EXPECT_THAT(page, HasSubstr("\"quobrak " QUOBRAK_VERSION "\""));
}

TEST_F(Install, ThePageOfTheTestProcessTellsTheVariablesOfItsTable) {
  static const std::regex VARIABLE("QUOBRAK_[A-Z_]*[A-Z]");
  const auto variablesIn = [](const std::string& text) {
    return std::set<std::string>(std::sregex_token_iterator(text.begin(), text.end(), VARIABLE),
                                 std::sregex_token_iterator());
  };
  const fs::path documents = folder.path() / "share/doc/quobrak";
  EXPECT_EQ(
      variablesIn(unpacked(folder.path() / "share/man/man1/quobrakUITests.1.gz")),
      variablesIn(folder.read(documents / "docs/test-process.md") + folder.read(documents / "docs/real-phones.md")));
}

}  // namespace quobrak::testing
