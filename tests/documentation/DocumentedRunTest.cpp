#include "tests/documentation/DocumentedRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::documentation {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pair;
using ::testing::ThrowsMessage;

const std::string TAP = "<!--\nexpect status: success\nexpect touched: a\n-->\n```\ntap,a\n```\n";

TEST(DocumentedRun, IsAScriptWithWhatTheRemarksBeforeItSay) {
  const std::vector<DocumentedRun> runs = runsOn("# All of it\n" + TAP);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].name, "all-of-it_line_6");
  ASSERT_EQ(runs[0].scripts.size(), 1U);
  const conformance::ScriptFile& script = runs[0].scripts[0];
  EXPECT_EQ(script.phone, "built-in");
  ASSERT_EQ(script.expectations.size(), 2U);
  EXPECT_EQ(script.expectations[1].text, "a");
  ASSERT_EQ(script.commands.size(), 1U);
  EXPECT_EQ(script.commands[0].line, 1U) << "as readers of the page count";
  EXPECT_THAT(runs[0].shownFiles, ::testing::IsEmpty());
  EXPECT_FALSE(runs[0].shownStop);
}

TEST(DocumentedRun, MayHaveSeveralScripts) {
  const std::vector<DocumentedRun> runs =
      runsOn(TAP + TAP + "<!--\nin the same run\nexpect status: success\nexpect touched: b\n-->\n```\ntap,b\n```\n");
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_EQ(runs[0].scripts.size(), 1U);
  ASSERT_EQ(runs[1].scripts.size(), 2U);
  EXPECT_THAT(runs[1].scripts[1].text, ::testing::StartsWith("tap,b\n"));
}

TEST(DocumentedRun, MayBeGivenVariables) {
  const std::vector<DocumentedRun> runs = runsOn(
      "<!--\nvariable A: b, c\nvariable D:  \nexpect status: success\nexpect touched: a\n-->\n```\ntap,${A}\n```\n");
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].variables, ElementsAre(Pair("A", "b, c"), Pair("D", " ")));
  EXPECT_THAT(runs[0].scripts[0].text, ::testing::Not(HasSubstr("variable")));
}

TEST(DocumentedRun, MayShowWhatItLeaves) {
  const std::vector<DocumentedRun> runs =
      runsOn(TAP + "Words.\n\n```json\n[]\n```\n\n```json\n{}\n```\n" + TAP + "```text\nFatal error: No\n```\n");
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[0].shownFiles, ElementsAre("[]", "{}"));
  EXPECT_THAT(runs[1].shownFiles, ::testing::IsEmpty());
  EXPECT_EQ(runs[1].shownStop, "Fatal error: No");
}

TEST(DocumentedRun, IsRefusedWhereItIsNotClearWhatABlockIs) {
  struct Case {
    std::string page;
    std::string message;
  };
  for (const auto& [page, message] :
       {Case{"\n```\ntap,a\n```\n", "line 2: a comment before the block must tell what is expected of it"},
        Case{"<!-- Words. -->\n```\ntap,a\n```\n",
             "line 2: a comment before the block must tell what is expected of it"},
        Case{"```json\n[]\n```\n", "line 1: there is no script before this block"},
        Case{"<!--\nin the same run\n-->\n```\ntap,a\n```\n", "line 4: there is no script before this block"},
        Case{TAP + "```sh\nls\n```\n",
             "line 8: a block of the language \"sh\" shows nothing that a run could leave"}}) {
    EXPECT_THAT([&page = page] { runsOn(page); }, ThrowsMessage<PageError>(message));
  }
  EXPECT_THROW(runsOn("<!--\nexpect status: success\n-->\n```\ntap,a\n```\n"), conformance::ScriptFileError);
}

}  // namespace
}  // namespace quobrak::documentation
