// The page on the checks: it tells of every rule, and its examples are what it says.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "host/check/Checker.h"
#include "quobrakUITests/Find.h"
#include "tests/documentation/MarkdownBlocks.h"
#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using documentation::Block;
using ::testing::Contains;
using ::testing::IsEmpty;

std::string page() {
  std::ifstream file(QUOBRAK_SOURCE_FOLDER "/docs/check.md", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Those that a remark gives: "variable NAME: VALUE".
Variables variablesOf(const Block& block) {
  constexpr std::string_view BEGINNING = "variable ";
  Variables variables;
  for (const std::string& remark : block.remarks) {
    const std::size_t colon = remark.find(": ");
    if (remark.starts_with(BEGINNING) && colon != std::string::npos) {
      variables.set(remark.substr(BEGINNING.size(), colon - BEGINNING.size()), remark.substr(colon + 2));
    }
  }
  return variables;
}

std::vector<Finding> findingsIn(const Block& block) {
  const std::vector<ScriptSource> scripts{{.name = "script.txt", .bytes = block.text}};
  return check(scripts, {.variables = variablesOf(block), .isOrderKnown = true});
}

/// The scripts under a heading: one with the problem, and one without it.
std::vector<Block> scriptsUnder(std::string_view heading) {
  std::vector<Block> scripts = documentation::blocksIn(page());
  std::erase_if(scripts, [heading](const Block& block) { return block.heading != heading || !block.language.empty(); });
  return scripts;
}

TEST(CheckPage, TellsOfEveryRule) {
  const std::vector<std::string> headings = documentation::headingsIn(page());
  const std::vector<std::string> links = documentation::linksIn(page());
  for (const RuleInfo& rule : rules()) {
    EXPECT_THAT(headings, Contains(std::string(rule.id)));
    EXPECT_THAT(links, Contains("#" + std::string(rule.id)));
  }
}

TEST(CheckPage, ShowsEveryProblemAndHowToMendIt) {
  for (const RuleInfo& rule : rules()) {
    SCOPED_TRACE(rule.id);
    const std::vector<Block> scripts = scriptsUnder(rule.id);
    if (rule.rule == Rule::unreadableText || rule.rule == Rule::controlCharacter) {
      // What is no text, or has no sign of its own, cannot be shown.
      EXPECT_THAT(scripts, IsEmpty());
      continue;
    }
    ASSERT_EQ(scripts.size(), 2U);
    const std::vector<Finding> wrong = findingsIn(scripts[0]);
    EXPECT_TRUE(
        std::any_of(wrong.begin(), wrong.end(), [&rule](const Finding& finding) { return finding.rule == rule.rule; }));
    EXPECT_THAT(testing::inShort(findingsIn(scripts[1])), IsEmpty());
  }
}

TEST(CheckPage, NamesTheClasses) {
  const std::string text = page();
  for (const std::string_view name : Find::classNames()) {
    EXPECT_NE(text.find("`" + std::string(name) + "`"), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace quobrak::host
