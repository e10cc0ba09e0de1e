#include "phoneserver/ElementIds.h"

#include <gtest/gtest.h>

#include <set>

namespace quobrak::phoneserver {
namespace {

TEST(ElementIds, LookLikeThoseOfPhonesAndLeadBack) {
  ElementIds ids;
  EXPECT_EQ(ids.idOf(0x9E), "00000000-0000-009E-0000-000000000000");
  EXPECT_EQ(ids.idOf(0x123456789ABCDEF0), "12345678-9ABC-DEF0-0000-000000000000");
  EXPECT_EQ(ids.numberOf("00000000-0000-009E-0000-000000000000"), 0x9E);
  EXPECT_EQ(ids.numberOf("12345678-9ABC-DEF0-0000-000000000000"), 0x123456789ABCDEF0);
}

TEST(ElementIds, AreTheSameForTheSameElement) {
  ElementIds ids;
  EXPECT_EQ(ids.idOf(7), ids.idOf(7));
  EXPECT_NE(ids.idOf(7), ids.idOf(8));
}

TEST(ElementIds, ThatNobodyWasGivenAreNotKnown) {
  ElementIds ids;
  ids.idOf(0x9E);
  for (const char* const id : {"", "x", "00000000-0000-009F-0000-000000000000", "0000-00000000-009E-0000-000000000000",
                               "00000000-0000-009e-0000-000000000000", "9E-0000-000000000000", "-0000-000000000000"}) {
    EXPECT_EQ(ids.numberOf(id), std::nullopt) << id;
  }
}

TEST(ElementIds, ThatWereNotUsedForTheLongestTimeAreForgotten) {
  ElementIds ids;
  const std::string used = ids.idOf(1);
  const std::string unused = ids.idOf(2);
  for (std::uint64_t number = 3; number <= ElementIds::CAPACITY; ++number) {
    ids.idOf(number);
  }
  EXPECT_EQ(ids.numberOf(used), 1);
  ids.idOf(ElementIds::CAPACITY + 1);
  EXPECT_EQ(ids.numberOf(unused), std::nullopt);
  EXPECT_EQ(ids.numberOf(used), 1);
}

}  // namespace
}  // namespace quobrak::phoneserver
