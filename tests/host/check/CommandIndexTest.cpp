#include "host/check/CommandIndex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quobrakUITests/CommandTable.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(CommandIndex, FindsEveryCommandByItsName) {
  const CommandIndex index(commandTable());
  for (const CommandRow& row : commandTable()) {
    EXPECT_EQ(index.find(row.name), &row);
  }
  EXPECT_EQ(index.find("clickbytext"), nullptr);
  EXPECT_EQ(index.find(""), nullptr);
}

TEST(CommandIndex, KnowsWhatIsNear) {
  const CommandIndex index(commandTable());
  EXPECT_THAT(index.near("pauze"), ElementsAre("pause"));
  EXPECT_THAT(index.near("MEASURESTOP "), ElementsAre("measureStop"));
  EXPECT_THAT(index.near("swim"), IsEmpty());
  EXPECT_THAT(index.near("pause" + std::string(80, ' ')), IsEmpty());
}

}  // namespace
}  // namespace quobrak::host
