#include "phoneserver/Lists.h"

#include <gmock/gmock.h>

namespace quobrak::phoneserver {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Lists, AreSplitAtCommas) {
  EXPECT_THAT(commaSeparated("a,b/c,d"), ElementsAre("a", "b/c", "d"));
}

TEST(Lists, HaveNoBlanksAndNoEmptyParts) {
  EXPECT_THAT(commaSeparated(" a , ,b,,"), ElementsAre("a", "b"));
  EXPECT_THAT(commaSeparated(""), IsEmpty());
}

}  // namespace
}  // namespace quobrak::phoneserver
