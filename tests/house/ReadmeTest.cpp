#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "quobrakUITests/CommandTable.h"

namespace quobrak {
namespace {

std::string readme() {
  std::ifstream file(QUOBRAK_SOURCE_FOLDER "/README.md");
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The names in backticks between "The language has these commands:" and the end of the sentence.
std::vector<std::string> commandsInReadme() {
  const std::string text = readme();
  const std::size_t begin = text.find("The language has these commands:");
  const std::string sentence = text.substr(begin, text.find(". ", begin) - begin);
  const std::regex name("`(\\w+)`");
  std::vector<std::string> names;
  for (std::sregex_iterator match(sentence.begin(), sentence.end(), name); match != std::sregex_iterator(); ++match) {
    names.push_back((*match)[1]);
  }
  return names;
}

TEST(Readme, NamesTheCommandsThatThereAre) {
  std::vector<std::string> names;
  for (const CommandRow& row : commandTable()) {
    names.emplace_back(row.name);
  }
  EXPECT_THAT(commandsInReadme(), testing::ElementsAreArray(names));
}

}  // namespace
}  // namespace quobrak
