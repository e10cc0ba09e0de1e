#include "host/program/CommandLine.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "tests/host/program/SampleProgram.h"

namespace quobrak::host {
namespace {

class CommandLineTest : public ::testing::Test {
 protected:
  const std::vector<Subcommand> subcommands = sampleSubcommands();
  CommandLine commandLine{subcommands};
};

TEST_F(CommandLineTest, RunsWhatIsNamed) {
  EXPECT_EQ(commandLine.run({"paint", "a.txt"}), ExitStatus::success);
  EXPECT_EQ(commandLine.chosen(), &commandLine.program().subcommands.front());
}

TEST_F(CommandLineTest, HasChosenNothingWhereNothingIsNamed) {
  EXPECT_THROW(commandLine.run({"--help"}), CLI::CallForHelp);
  EXPECT_EQ(commandLine.chosen(), nullptr);
}

TEST_F(CommandLineTest, DeclaresItsOwnSubcommandsBehindTheOthers) {
  const DeclaredProgram& program = commandLine.program();
  ASSERT_EQ(program.subcommands.size(), 4U);
  EXPECT_EQ(program.subcommands[2].line, "quobrak completion");
  EXPECT_EQ(program.subcommands[3].line, "quobrak help");
  EXPECT_EQ(program.program.line, "quobrak");
}

TEST_F(CommandLineTest, TellsItsVersion) {
  EXPECT_EQ(programVersion(), "quobrak " QUOBRAK_VERSION);
}

}  // namespace
}  // namespace quobrak::host
