#include "host/program/HelpPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/program/SampleProgram.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(HelpPage, OfTheProgram) {
  EXPECT_EQ(helpOfProgram(sampleProgram(), Terminal{}),
            R"(Checks, rehearses and runs UI scripts for phones, and explains their commands

Usage: quobrak SUBCOMMAND [OPTION]... [ARGUMENT]...

Subcommands:
  paint       Paints what a file says
  show        Shows a command
  completion  Prints the script that completes what is typed in a shell
  help        Shows help, of the program or of a subcommand

Options:
      --version  Print the version and end
  -h, --help     Show this help and end

Exit status:
  0    All went well
  1    A script failed, or a check found an error
  2    The command line cannot be used
  3    A run was aborted: its statuses and measures were not written
  4    What the program needs around it failed: a file, a folder, a disk, the
       test process
  130  Ended by Ctrl-C
  143  Ended by SIGTERM

"quobrak help SUBCOMMAND" tells all of a subcommand.
)");
}

TEST(HelpPage, InShort) {
  EXPECT_EQ(shortHelp(sampleProgram(), Terminal{}), R"(Usage: quobrak SUBCOMMAND [OPTION]... [ARGUMENT]...

Subcommands:
  paint       Paints what a file says
  show        Shows a command
  completion  Prints the script that completes what is typed in a shell
  help        Shows help, of the program or of a subcommand

"quobrak help" tells more, and "quobrak help SUBCOMMAND" all of a subcommand.
)");
}

TEST(HelpPage, OfASubcommand) {
  EXPECT_EQ(helpOfSubcommand(samplePaint(), Terminal{.width = 60}), R"(Paints what a file says

Usage: quobrak paint [OPTION]... FILE...

A picture is painted from the left to the right, and from
the top to the bottom, as one reads.

  .dots - and
  'quotes'

.txt and \ stay.

Arguments:
  FILE...  What to paint

Options:
      --format text|json  How to write it (default: text)
  -o, --out FOLDER        Where it goes; the folder is made
                          where it is missing, with all that
                          is above
      --number NUMBER     How many
      --tag TEXT...       What to remember it by
  -q, --quiet             Say nothing: not [even] a word
      --loud              Say all
  -h, --help              Show this help and end

Colours:
  --theme TEXT  In which colours; one of dark, light,
                painter's

Examples:
  quobrak paint a.txt -o pictures
      paints one file
  quobrak paint *.txt --quiet
      paints all, without a word

Exit status:
  0  All is painted
  2  The command line cannot be used
)");
}

TEST(HelpPage, IsNeitherVeryWideNorVeryNarrow) {
  const auto longestLine = [](const std::string& text) {
    std::size_t longest = 0;
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t end = text.find('\n', begin);
      longest = std::max(longest, displayWidth(text.substr(begin, end - begin)));
      begin = end + 1;
    }
    return longest;
  };
  const DeclaredCommand command{.line = "quobrak long",
                                .name = "long",
                                .summary = "Is long",
                                .description = std::string(300, 'x').replace(100, 1, " ").replace(40, 1, " "),
                                .examples = {},
                                .exitMeanings = {{.status = ExitStatus::success, .meaning = "x"}},
                                .options = {},
                                .arguments = {}};
  EXPECT_EQ(longestLine(helpOfSubcommand(command, Terminal{.width = 1})), 199U);
  DeclaredCommand words = command;
  words.description.clear();
  for (int i = 0; i < 100; ++i) {
    words.description += "word ";
  }
  EXPECT_EQ(longestLine(helpOfSubcommand(words, Terminal{.width = 1})), 39U);
  EXPECT_EQ(longestLine(helpOfSubcommand(words, Terminal{.width = 500})), 99U);
}

TEST(HelpPage, HasHeadingsThatStandOutWhereThereIsColour) {
  const Terminal coloured{.isInteractive = true, .hasColour = true};
  EXPECT_THAT(helpOfSubcommand(samplePaint(), coloured), HasSubstr("\n\x1b[1mOptions:\x1b[0m\n"));
  EXPECT_THAT(shortHelp(sampleProgram(), coloured), StartsWith("\x1b[1mUsage:\x1b[0m quobrak "));
}

TEST(HelpPage, TellsUsage) {
  EXPECT_EQ(usageOf(sampleProgram().program), "quobrak SUBCOMMAND [OPTION]... [ARGUMENT]...");
  EXPECT_EQ(usageOf(samplePaint()), "quobrak paint [OPTION]... FILE...");
  EXPECT_EQ(usageOf(sampleProgram().subcommands.at(1)), "quobrak show [OPTION]... [COMMAND]");
  DeclaredCommand demanding{.line = "quobrak ask",
                            .name = "ask",
                            .summary = {},
                            .description = {},
                            .examples = {},
                            .exitMeanings = {},
                            .options = {*optionNamed(samplePaint(), "--out")},
                            .arguments = {}};
  demanding.options.front().isRequired = true;
  EXPECT_EQ(usageOf(demanding), "quobrak ask [OPTION]... --out FOLDER");
}

TEST(HelpPage, TellsTheEndsOfTheProgramWhereASubcommandHasNoneOfItsOwn) {
  EXPECT_EQ(exitMeaningsOf(samplePaint()).size(), 2U);
  const std::vector<ExitMeaning> general = exitMeaningsOf(sampleProgram().subcommands.at(1));
  ASSERT_EQ(general.size(), 7U);
  EXPECT_EQ(general.back().meaning, "Ended by SIGTERM");
}

TEST(HelpPage, TellsNamesThatAnOptionTakesOnce) {
  DeclaredOption option = *optionNamed(samplePaint(), "--theme");
  option.values = {"dark", "light"};
  EXPECT_EQ(explanationOf(option), "In which colours; one of dark, light");
  option.help = "The dark one, or a light one";
  EXPECT_EQ(explanationOf(option), "The dark one, or a light one");
  option.help.clear();
  EXPECT_EQ(explanationOf(option), "One of dark, light");
  option.values.resize(13, "another");
  EXPECT_EQ(explanationOf(option), "");
}

TEST(HelpPage, GroupsOptionsByTheirHeadings) {
  const std::vector<OptionGroup> groups = groupsOf(samplePaint().options);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].heading, "Options");
  EXPECT_EQ(groups[0].options.size(), 7U);
  EXPECT_EQ(groups[1].heading, "Colours");
  EXPECT_EQ(groups[1].options.size(), 1U);
}

}  // namespace
}  // namespace quobrak::host
