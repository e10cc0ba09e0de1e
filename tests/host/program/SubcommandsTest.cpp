#include "host/program/Subcommands.h"

#include <gtest/gtest.h>

#include <set>

namespace quobrak::host {
namespace {

TEST(Subcommands, HaveNamesOfTheirOwnAndExamplesThatNameThem) {
  std::set<std::string_view> names;
  for (const Subcommand& subcommand : subcommands()) {
    EXPECT_TRUE(names.insert(subcommand.name).second) << subcommand.name;
    EXPECT_FALSE(subcommand.summary.empty()) << subcommand.name;
    EXPECT_FALSE(subcommand.examples.empty()) << subcommand.name;
    for (const Example& example : subcommand.examples) {
      EXPECT_NE(example.line.find("quobrak " + std::string(subcommand.name)), std::string_view::npos) << example.line;
    }
  }
}

}  // namespace
}  // namespace quobrak::host
