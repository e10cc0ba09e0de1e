#include "host/commands/CommandPages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "manual/ArgumentWords.h"
#include "manual/CommandNotes.h"
#include "quobrakUITests/CommandTable.h"

namespace quobrak::host {
namespace {

using ::testing::HasSubstr;

Terminal terminalOfWidth(std::size_t width) {
  return {.isInteractive = false, .hasColour = false, .width = width};
}

const std::vector<manual::DescribedGroup>& allGroups() {
  static const std::vector<manual::DescribedGroup> GROUPS =
      manual::describedCommands(commandTable(), manual::commandNotes());
  return GROUPS;
}

std::vector<manual::DescribedCommand> allCommands() {
  std::vector<manual::DescribedCommand> commands;
  for (const manual::DescribedGroup& group : allGroups()) {
    commands.insert(commands.end(), group.commands.begin(), group.commands.end());
  }
  return commands;
}

std::string pageOf(std::string_view name, const Terminal& terminal) {
  for (const manual::DescribedCommand& command : allCommands()) {
    if (command.row.name == name) {
      return commandPage(command, terminal);
    }
  }
  return "no such command";
}

/// The groups of these titles.
std::vector<manual::DescribedGroup> groupsOf(const std::vector<std::string>& titles) {
  std::vector<manual::DescribedGroup> groups;
  for (const manual::DescribedGroup& group : allGroups()) {
    if (std::find(titles.begin(), titles.end(), group.title) != titles.end()) {
      groups.push_back(group);
    }
  }
  return groups;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

TEST(CommandPages, TheListShowsUsagesAndSummariesInColumns) {
  EXPECT_EQ(commandList(groupsOf({"Applications", "Searches"}), terminalOfWidth(100)),
            R"(Applications
  applicationStart,bundleId                 Starts an application, or restarts it, and makes it the
                                            one that commands act on.
  applicationKill,bundleId                  Ends an application.

Searches
  findByClass,selector[,nthElement[,isEnabled]]
                                            Finds an element of a class.
  findByText,selector[,nthElement[,isEnabled]]
                                            Finds an element whose label, identifier or placeholder
                                            contains a text.
  findByTextExact,selector[,nthElement[,isEnabled]]
                                            Finds an element whose label, identifier or placeholder
                                            matches a pattern.
)");
  EXPECT_EQ(commandList(groupsOf({"Measured steps", "Pauses and keys"}), terminalOfWidth(60)),
            R"(Measured steps
  measureStart,stepName  Takes a screenshot and begins a
                         measured step.
  measureStop            Ends the measured step and takes a
                         screenshot.

Pauses and keys
  pause,timeMillis       Waits for a number of milliseconds.
  pressHome              Presses the Home button.
  pressVolumeUp          Presses the Volume Up button.
  pressVolumeDown        Presses the Volume Down button.
)");
}

TEST(CommandPages, APageTellsAllThatIsKnown) {
  EXPECT_EQ(pageOf("findByText", terminalOfWidth(100)),
            R"(findByText,selector[,nthElement[,isEnabled]]

  Finds an element whose label, identifier or placeholder contains a text.

Arguments
  selector    a part of the label, identifier or placeholder, in any case
              text; left out: stops the process
  nthElement  which of the elements that are found, counted from 1
              whole number; left out: `1`
  isEnabled   `true` to look among enabled elements only, `false` among disabled ones only
              `true` or `false`; left out: `true`

Errors
  nthElement <nthElement> should be an integer
      when: `nthElement` is not a whole number
  isEnabled <isEnabled> should be an boolean
      when: `isEnabled` is neither `true` nor `false`
  nthElement should be an integer greater than 1
      when: `nthElement` is below 1; 1 is right
  The application is not initialised. Please use applicationStart or launchBrowser at the beginning
  of your script.
      when: no script of the run has started an application
  The expected text <selector> was not found
      when: no element in that state has such a text
  The expected text <selector> was found but there is less than <nthElement> occurences on the
  screen
      when: there are fewer than `nthElement`

Stops the process
  Index out of range: the field 1 (selector) is missing
      when: `selector` is left out

Example
  applicationStart,com.example.shop
  findByText,basket,2
  clickOnLastElementFound
)");
  EXPECT_EQ(pageOf("findByText", terminalOfWidth(60)),
            R"(findByText,selector[,nthElement[,isEnabled]]

  Finds an element whose label, identifier or placeholder
  contains a text.

Arguments
  selector    a part of the label, identifier or
              placeholder, in any case
              text; left out: stops the process
  nthElement  which of the elements that are found, counted
              from 1
              whole number; left out: `1`
  isEnabled   `true` to look among enabled elements only,
              `false` among disabled ones only
              `true` or `false`; left out: `true`

Errors
  nthElement <nthElement> should be an integer
      when: `nthElement` is not a whole number
  isEnabled <isEnabled> should be an boolean
      when: `isEnabled` is neither `true` nor `false`
  nthElement should be an integer greater than 1
      when: `nthElement` is below 1; 1 is right
  The application is not initialised. Please use
  applicationStart or launchBrowser at the beginning of your
  script.
      when: no script of the run has started an application
  The expected text <selector> was not found
      when: no element in that state has such a text
  The expected text <selector> was found but there is less
  than <nthElement> occurences on the screen
      when: there are fewer than `nthElement`

Stops the process
  Index out of range: the field 1 (selector) is missing
      when: `selector` is left out

Example
  applicationStart,com.example.shop
  findByText,basket,2
  clickOnLastElementFound
)");
}

TEST(CommandPages, ListsOfADescriptionStayLists) {
  EXPECT_EQ(pageOf("browserClearCache", terminalOfWidth(60)),
            R"(browserClearCache

  Clears the browser's history and data in Settings. It
  knows the screens of newer and of older systems:

  1. It starts Settings, swipes to `Safari` and taps it, and
     does the same with `Clear History and Website Data`.
  2. Where there is `ClearHistoryButton`: it taps `All
     history`, then `CloseAllTabsSwitch` if that is off,
     then `ClearHistoryButton`.
  3. Otherwise: it taps `Clear History and Data`, waits 3
     seconds, and if there is `Keep Tabs`, taps `Close
     Tabs`.
  4. It ends Settings, which stays the testing application:
     start another one before you go on.

  Any other step fails with the errors of
  swipeDownwardToText and clickByTextExact for the text that
  it looks for.

Errors
  The expected text CloseAllTabsSwitch was not found
      when: the page that clears the history has no such
      switch
  An unknown error occured while executing actions
      when: Settings is not installed

Stops the process
  Unexpectedly raised an error: the search for Safari before
  a swipe: The expected text Safari was not found
      when: that row is nowhere in Settings, not even out of
      sight
  Unexpectedly raised an error: the search for Clear History
  and Website Data before a swipe: The expected text Clear
  History and Website Data was not found
      when: that row is nowhere in Settings, not even out of
      sight

Example
  browserClearCache
)");
}

TEST(CommandPages, APageLeavesOutWhatThereIsNoneOf) {
  EXPECT_EQ(pageOf("pressHome", terminalOfWidth(100)),
            R"(pressHome

  Presses the Home button. What runs goes on running, behind the home screen.

Example
  pressHome
)");
}

TEST(CommandPages, HeadingsAndNamesAreBoldWhereThereIsColour) {
  const Terminal terminal{.isInteractive = true, .hasColour = true, .width = 100};
  EXPECT_EQ(pageOf("pause", terminal),
            "\x1b[1mpause,timeMillis\x1b[0m\n"
            "\n"
            "  Waits for a number of milliseconds.\n"
            "\n"
            "\x1b[1mArguments\x1b[0m\n"
            "  \x1b[1mtimeMillis\x1b[0m  how long, from 0 to 4294967\n"
            "              whole number, milliseconds; left out: error\n"
            "\n"
            "\x1b[1mErrors\x1b[0m\n"
            "  The pause duration is missing\n"
            "      when: \x1b[1mtimeMillis\x1b[0m is left out\n"
            "  The pause duration <timeMillis> should be a positive integer\n"
            "      when: \x1b[1mtimeMillis\x1b[0m is not a whole number, or below 0\n"
            "\n"
            "\x1b[1mStops the process\x1b[0m\n"
            "  The pause of <timeMillis> ms cannot be slept in one piece: it must lie between 0 and 4294967 ms\n"
            "      when: \x1b[1mtimeMillis\x1b[0m is more than that\n"
            "  The pause in microseconds overflows\n"
            "      when: \x1b[1mtimeMillis\x1b[0m is more than 2^63 / 1000\n"
            "\n"
            "\x1b[1mExample\x1b[0m\n"
            "  pause,2000\n");
  EXPECT_EQ(commandList(groupsOf({"Measured steps"}), terminal),
            "\x1b[1mMeasured steps\x1b[0m\n"
            "  \x1b[1mmeasureStart,stepName\x1b[0m  Takes a screenshot and begins a measured step.\n"
            "  \x1b[1mmeasureStop\x1b[0m            Ends the measured step and takes a screenshot.\n");
}

TEST(CommandPages, EveryPageHasItsNameUsageAndExample) {
  const std::vector<manual::DescribedCommand> commands = allCommands();
  EXPECT_EQ(commands.size(), commandTable().size());
  for (const manual::DescribedCommand& command : commands) {
    const std::string page = commandPage(command, terminalOfWidth(100));
    EXPECT_EQ(linesOf(page).front(), usageOf(command.row));
    EXPECT_TRUE(page.starts_with(command.row.name)) << page;
    EXPECT_THAT(page, HasSubstr("\nExample\n  " + linesOf(command.note.example).front() + "\n"));
    EXPECT_THAT(page, HasSubstr("  " + linesOf(command.note.example).back() + "\n"));
  }
}

TEST(CommandPages, TheListHasAllCommandsAndTitles) {
  const std::vector<std::string> lines = linesOf(commandList(allGroups(), terminalOfWidth(60)));
  for (const manual::DescribedGroup& group : allGroups()) {
    EXPECT_THAT(lines, ::testing::Contains(group.title));
    for (const manual::DescribedCommand& command : group.commands) {
      EXPECT_THAT(lines, ::testing::Contains(::testing::StartsWith("  " + usageOf(command.row)))) << group.title;
    }
  }
}

TEST(CommandPages, NoLineOfTextIsLongerThanTheTerminal) {
  for (const std::size_t width : {60U, 80U, 100U}) {
    for (const manual::DescribedCommand& command : allCommands()) {
      const std::string page = commandPage(command, terminalOfWidth(width));
      const std::string beforeExample = page.substr(0, page.find("\nExample\n"));
      for (const std::string& line : linesOf(beforeExample.substr(beforeExample.find('\n')))) {
        EXPECT_LE(displayWidth(line), width) << line;
      }
    }
  }
}

}  // namespace
}  // namespace quobrak::host
