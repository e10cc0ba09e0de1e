#include "host/program/ShellText.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

TEST(ShellText, IsQuoted) {
  EXPECT_EQ(quotedForShell("a b$c"), "'a b$c'");
  EXPECT_EQ(quotedForShell("painter's"), R"('painter'\''s')");
  EXPECT_EQ(quotedForShell(""), "''");
  EXPECT_EQ(quotedForShell(std::vector<std::string>{"a", "b c"}), "'a' 'b c'");
}

TEST(ShellText, IsReplacedEverywhere) {
  EXPECT_EQ(withReplaced("a.b.", ".", ".."), "a..b..");
  EXPECT_EQ(withReplaced("ab", "c", "d"), "ab");
}

}  // namespace
}  // namespace quobrak::host
