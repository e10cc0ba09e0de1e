#include "tests/conformance/ScriptFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "quobrakUITests/CommandTable.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

/// What has neither an argument nor an element to act on, and so nothing that a script could get wrong.
const std::set<std::string> CANNOT_FAIL{"pressHome", "pressVolumeUp", "pressVolumeDown"};

struct CommandUse {
  std::set<std::string> passing;
  std::set<std::string> failing;
};

CommandUse commandUse() {
  CommandUse use;
  for (const std::string& name : scriptNamesIn(SCRIPTS_FOLDER)) {
    const ScriptFile file = readScriptFileIn(SCRIPTS_FOLDER, name);
    if (const auto failing = file.failingCommand()) {
      use.failing.insert(*failing);
      continue;
    }
    for (const CommandLine& line : file.commands) {
      use.passing.insert(line.command);
    }
  }
  return use;
}

std::set<std::string> allCommands() {
  std::set<std::string> names;
  for (const CommandRow& row : commandTable()) {
    names.emplace(row.name);
  }
  return names;
}

TEST(ScriptFiles, AreFoundInAllFoldersByTheirEnding) {
  const testing::TemporaryFolder folder;
  folder.write("b.txt", "");
  folder.write("a/deep/c.txt", "");
  folder.write("a/page.xml", "");
  EXPECT_THAT(scriptNamesIn(folder.path().string()), ElementsAre("a/deep/c", "b"));
}

TEST(ScriptFiles, AreReadByTheirNames) {
  const testing::TemporaryFolder folder;
  const std::string text = "# expect status: success\n# expect touched: nothing\n\xEF\xBF\xBD\r\npause,1\n";
  folder.write("a/b.txt", text);
  const ScriptFile file = readScriptFileIn(folder.path().string(), "a/b");
  EXPECT_EQ(file.name, "a/b");
  EXPECT_EQ(file.text, text);
}

TEST(ScriptFiles, OneThatIsNotThereExpectsNothingAndIsRefused) {
  EXPECT_THROW(readScriptFileIn(SCRIPTS_FOLDER, "nobody/wrote/it"), ScriptFileError);
}

TEST(ScriptFiles, EveryCommandSucceedsInOne) {
  EXPECT_EQ(commandUse().passing, allCommands());
}

TEST(ScriptFiles, EveryCommandThatCanFailFailsInOne) {
  std::set<std::string> expected;
  for (const std::string& command : allCommands()) {
    if (!CANNOT_FAIL.contains(command)) {
      expected.insert(command);
    }
  }
  // Among the failing ones are commands that nobody knows.
  EXPECT_THAT(commandUse().failing, IsSupersetOf(expected));
}

TEST(ScriptFiles, NoCommandThatIsSaidNotToFailFails) {
  const CommandUse use = commandUse();
  for (const std::string& command : CANNOT_FAIL) {
    EXPECT_TRUE(allCommands().contains(command)) << command;
    EXPECT_FALSE(use.failing.contains(command)) << command;
  }
}

}  // namespace
}  // namespace quobrak::conformance
