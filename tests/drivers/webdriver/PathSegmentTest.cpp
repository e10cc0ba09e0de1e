#include "drivers/webdriver/PathSegment.h"

#include <gtest/gtest.h>

#include <string>

namespace quobrak::webdriver {

TEST(PathSegment, IsWhatServersGiveAsIds) {
  for (const char* const text : {"0A000000-0000-0000-A504-000000000000", "e1", "a", "7", ":wdc:1654", "f.AZ.d.09_z~",
                                 "...", "-._~!$&'()*+,;=:@"}) {
    EXPECT_TRUE(isPathSegment(text)) << text;
  }
}

TEST(PathSegment, IsNothingThatLeadsElsewhere) {
  for (const std::string text : {"", ".", "..", "/", "a/b", "a?b", "a#b", "a b", "a%2Fb", "a\nb", "a\\b", "[a]", "ä"}) {
    EXPECT_FALSE(isPathSegment(text)) << text;
  }
  EXPECT_FALSE(isPathSegment(std::string("a\0b", 3)));
}

}  // namespace quobrak::webdriver
