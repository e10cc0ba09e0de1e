#include "host/check/Rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace quobrak::host {
namespace {

TEST(Rules, HaveNamesOfTheirOwnAndASentenceEach) {
  std::set<std::string_view> ids;
  for (const RuleInfo& rule : rules()) {
    EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
    EXPECT_EQ(rule.id.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string_view::npos) << rule.id;
    EXPECT_TRUE(rule.summary.ends_with('.')) << rule.id;
    EXPECT_EQ(&infoOf(rule.rule), &rule);
  }
  EXPECT_EQ(infoOf(Rule::neverStopped).id, "never-stopped");
}

}  // namespace
}  // namespace quobrak::host
