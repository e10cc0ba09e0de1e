#include "fuzz/support/FilesInInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::fuzz {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

TEST(FilesInInput, BeginBehindTheirNames) {
  EXPECT_THAT(filesIn(Input("none\n@b/c.xml\none\n\ntwo\n@a\n@d\nend")),
              ElementsAre(Pair("a", ""), Pair("b/c.xml", "one\n\ntwo\n"), Pair("d", "end\n")));
}

TEST(FilesInInput, OfTheSameNameAreOne) {
  EXPECT_THAT(filesIn(Input("@a\n1\n@b\n2\n@a\n3\n")), ElementsAre(Pair("a", "1\n3\n"), Pair("b", "2\n")));
}

TEST(FilesInInput, AreNoneWithoutNames) {
  EXPECT_THAT(filesIn(Input("a\nb\n")), IsEmpty());
}

}  // namespace quobrak::fuzz
