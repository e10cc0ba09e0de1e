#include "tests/documentation/MarkdownBlocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::documentation {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* PAGE = R"(# A page

Words, [a link](other.md#there) and [another
one](#here).

<!--
one
two
-->
```
# no heading
[no link](x)
```

## Here

<!-- of nothing -->

```json
{}

[]
```
<!--
dropped
-->
words
```
```
)";

TEST(MarkdownBlocks, HaveTheirPlaceTheirTextAndTheRemarksBeforeThem) {
  const std::vector<Block> blocks = blocksIn(PAGE);
  ASSERT_EQ(blocks.size(), 3U);
  EXPECT_EQ(blocks[0].line, 10U);
  EXPECT_EQ(blocks[0].language, "");
  EXPECT_EQ(blocks[0].heading, "A page");
  EXPECT_EQ(blocks[0].text, "# no heading\n[no link](x)");
  EXPECT_THAT(blocks[0].remarks, ElementsAre("one", "two"));
  EXPECT_EQ(blocks[1].language, "json");
  EXPECT_EQ(blocks[1].heading, "Here");
  EXPECT_EQ(blocks[1].text, "{}\n\n[]");
  EXPECT_THAT(blocks[1].remarks, IsEmpty());
  EXPECT_EQ(blocks[2].text, "");
  EXPECT_THAT(blocks[2].remarks, IsEmpty()) << "they belong to the block that follows at once";
}

TEST(MarkdownBlocks, OfAPageWithoutAnyThereAreNone) {
  EXPECT_THAT(blocksIn("words\n`code`\n"), IsEmpty());
}

TEST(MarkdownBlocks, HeadingsAndLinksAreThoseOutsideOfBlocks) {
  EXPECT_THAT(headingsIn(PAGE), ElementsAre("A page", "Here"));
  EXPECT_THAT(linksIn(PAGE), ElementsAre("other.md#there", "#here"));
}

}  // namespace
}  // namespace quobrak::documentation
