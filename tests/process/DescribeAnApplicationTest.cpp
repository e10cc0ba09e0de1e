#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;

/// A fenced block of the guide.
struct Block {
  /// Behind the opening fence.
  std::string language;
  /// What the block is the content of, where the text before it is "`FILE`:"; otherwise empty.
  std::string file;
  std::vector<std::string> lines;
};

/// A line behind "$ " in a block of the language "console", and what is shown below it.
struct Command {
  std::string text;
  std::string output;
};

std::vector<Block> blocksOfGuide() {
  static const std::regex FILE_NAME("`([^`]+)`:");
  std::ifstream guide(QUOBRAK_SOURCE_FOLDER "/docs/describe-an-application.md");
  std::vector<Block> blocks;
  std::string before;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("```")) {
      std::smatch name;
      const bool isFile = std::regex_match(before, name, FILE_NAME);
      Block block{.language = line.substr(3), .file = isFile ? name.str(1) : "", .lines = {}};
      while (std::getline(guide, line) && line != "```") {
        block.lines.push_back(line);
      }
      blocks.push_back(std::move(block));
      before.clear();
    } else if (!line.empty()) {
      before = line;
    }
  }
  return blocks;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

std::vector<Command> commandsIn(const Block& block) {
  constexpr std::string_view PROMPT = "$ ";
  std::vector<Command> commands;
  for (const std::string& line : block.lines) {
    if (line.starts_with(PROMPT)) {
      commands.push_back({.text = line.substr(PROMPT.size()), .output = {}});
    } else {
      commands.back().output += line + "\n";
    }
  }
  return commands;
}

/// Of all that is shown, the time of day alone differs from run to run.
std::string withoutTimesOfDay(const std::string& text) {
  static const std::regex TIME(R"(\b\d\d:\d\d:\d\d\b)");
  return std::regex_replace(text, TIME, "HH:MM:SS");
}

/// Follows the guide in an empty folder.
class DescribeAnApplication : public ::testing::Test {
 protected:
  std::string shown(const std::string& command) const {
    const std::string programs = fs::path(QUOBRAK_UI_TESTS).parent_path().string();
    ProcessStart start;
    start.executable = "/bin/sh";
    start.arguments = {"-c", "exec 2>&1; " + command};
    start.environment = {{"PATH", programs + ":/usr/bin:/bin"}, {"QUOBRAK", QUOBRAK_SOURCE_FOLDER}};
    start.workingDirectory = folder.path();
    return runExecutable(start).out;
  }

  const TemporaryFolder folder;
};

}  // namespace

TEST_F(DescribeAnApplication, ShowsWhatComesWhenItIsFollowedWordByWord) {
  std::size_t filesWritten = 0;
  std::size_t commandsTyped = 0;
  for (const Block& block : blocksOfGuide()) {
    if (!block.file.empty()) {
      folder.write(block.file, joined(block.lines));
      ++filesWritten;
    } else if (block.language == "console") {
      for (const Command& command : commandsIn(block)) {
        EXPECT_EQ(withoutTimesOfDay(shown(command.text)), withoutTimesOfDay(command.output)) << command.text;
        ++commandsTyped;
      }
    } else {
      EXPECT_EQ(block.language, "sh") << "what nobody writes to a file or types: " << joined(block.lines);
    }
  }
  EXPECT_GT(filesWritten, 10U);
  EXPECT_GT(commandsTyped, 10U);
}

}  // namespace quobrak::testing
