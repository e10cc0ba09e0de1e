#include "host/program/Builtins.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/program/BashCompletion.h"
#include "host/program/CommandLine.h"
#include "host/program/FishCompletion.h"
#include "host/program/HelpPage.h"
#include "host/program/ZshCompletion.h"
#include "tests/host/program/SampleProgram.h"

namespace quobrak::host {
namespace {

/// What the program prints that has the two subcommands of the tests.
std::string printed(const std::vector<std::string>& arguments) {
  const std::vector<Subcommand> subcommands = sampleSubcommands();
  CommandLine commandLine(subcommands);
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(commandLine.run(arguments), ExitStatus::success);
  return ::testing::internal::GetCapturedStdout();
}

TEST(Help, IsThatOfTheProgram) {
  EXPECT_EQ(printed({"help"}), helpOfProgram(sampleProgram(), Terminal{}));
}

TEST(Help, IsThatOfASubcommand) {
  EXPECT_EQ(printed({"help", "paint"}), helpOfSubcommand(samplePaint(), Terminal{}));
  EXPECT_EQ(printed({"help", "help"}), helpOfSubcommand(*subcommandNamed(sampleProgram(), "help"), Terminal{}));
}

TEST(Help, OfWhatIsNoSubcommandIsRefused) {
  const std::vector<Subcommand> subcommands = sampleSubcommands();
  CommandLine commandLine(subcommands);
  try {
    commandLine.run({"help", "piant"});
    FAIL() << "nothing was refused";
  } catch (const UseError& error) {
    EXPECT_STREQ(error.what(), "there is no subcommand piant; did you mean paint?");
  }
}

TEST(Help, IsOfferedForWhatThereIs) {
  EXPECT_THAT(optionNamed(*subcommandNamed(sampleProgram(), "help"), "SUBCOMMAND")->values,
              ::testing::ElementsAre("paint", "show", "completion"));
}

TEST(Completion, IsTheScriptOfTheShell) {
  EXPECT_EQ(printed({"completion", "bash"}), bashCompletion(sampleProgram()));
  EXPECT_EQ(printed({"completion", "zsh"}), zshCompletion(sampleProgram()));
  EXPECT_EQ(printed({"completion", "fish"}), fishCompletion(sampleProgram()));
}

}  // namespace
}  // namespace quobrak::host
