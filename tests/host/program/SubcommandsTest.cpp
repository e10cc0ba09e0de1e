#include "host/program/Subcommands.h"

#include <gtest/gtest.h>

#include <set>

#include "host/program/BashCompletion.h"
#include "host/program/CommandLine.h"
#include "host/program/FishCompletion.h"
#include "host/program/ManualPage.h"
#include "host/program/ZshCompletion.h"
#include "tests/host/program/ShellRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

void expectGoodPage(const std::string& page) {
  const quobrak::testing::TemporaryFolder folder;
  folder.write("page.1", page);
  EXPECT_EQ(printedBy("man --warnings -E UTF-8 -l -Tutf8 -Z '" + (folder.path() / "page.1").string() + "' >/dev/null"),
            "")
      << page;
}

/// The shell only reads it.
void expectReadable(const std::string& shell, const std::string& script) {
  needsProgram(shell);
  const quobrak::testing::TemporaryFolder folder;
  folder.write("script", script);
  EXPECT_EQ(printedBy(shell + " -n '" + (folder.path() / "script").string() + "'"), "");
}

TEST(Subcommands, HaveNamesOfTheirOwnAndExamplesThatNameThem) {
  std::set<std::string_view> names;
  for (const Subcommand& subcommand : subcommands()) {
    EXPECT_TRUE(names.insert(subcommand.name).second) << subcommand.name;
    EXPECT_FALSE(subcommand.summary.empty()) << subcommand.name;
    EXPECT_FALSE(subcommand.examples.empty()) << subcommand.name;
    for (const Example& example : subcommand.examples) {
      EXPECT_NE(example.line.find("quobrak " + std::string(subcommand.name)), std::string_view::npos) << example.line;
    }
  }
}

TEST(Subcommands, OfferValuesForWhatTheyDeclare) {
  const CommandLine commandLine(subcommands());
  for (const Subcommand& subcommand : subcommands()) {
    const DeclaredCommand& declared = *subcommandNamed(commandLine.program(), subcommand.name);
    for (const OfferedValues& offered : subcommand.offeredValues) {
      const DeclaredOption* const option = optionNamed(declared, offered.option);
      ASSERT_NE(option, nullptr) << subcommand.name << " has no " << offered.option;
      EXPECT_EQ(option->values, offered.values);
    }
  }
}

TEST(Subcommands, HaveManualPagesThatManShowsWithoutAWarning) {
  needsProgram("man");
  const CommandLine commandLine(subcommands());
  for (const DeclaredCommand& subcommand : commandLine.program().subcommands) {
    expectGoodPage(manualOfSubcommand(subcommand, programVersion()));
  }
  expectGoodPage(manualOfProgram(commandLine.program(), programVersion()));
}

TEST(Subcommands, HaveACompletionThatBashReads) {
  expectReadable("bash", bashCompletion(CommandLine(subcommands()).program()));
}

TEST(Subcommands, HaveACompletionThatZshReads) {
  expectReadable("zsh", zshCompletion(CommandLine(subcommands()).program()));
}

TEST(Subcommands, HaveACompletionThatFishReads) {
  expectReadable("fish", fishCompletion(CommandLine(subcommands()).program()));
}

}  // namespace
}  // namespace quobrak::host
