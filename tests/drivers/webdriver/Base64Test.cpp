#include "drivers/webdriver/Base64.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quobrak::webdriver {
namespace {

using ::testing::Eq;
using ::testing::Optional;

TEST(DecodedBase64, IsWhatTheTextStandsFor) {
  struct Row {
    std::string_view text;
    std::string_view bytes;
  };
  constexpr Row ROWS[] = {
      {"", ""},
      {"YQ==", "a"},
      {"YWI=", "ab"},
      {"YWJj", "abc"},
      {"+//+", "\xFB\xFF\xFE"},
      {"YW\nJj", "abc"},
      {"YWJj\r\nZGVm\r\n", "abcdef"},
      {"Y\rQ=\n=", "a"},
  };
  for (const auto& [text, bytes] : ROWS) {
    const std::optional<Data> decoded = decodedBase64(text);
    ASSERT_TRUE(decoded) << text;
    EXPECT_EQ(textOf(*decoded), bytes) << text;
  }
}

TEST(DecodedBase64, OfALongTextIsWhole) {
  EXPECT_THAT(decodedBase64(std::string(4'000'000, 'A')), Optional(Eq(Data(3'000'000))));
}

TEST(DecodedBase64, OfWhatIsNoneIsNothing) {
  for (const std::string_view text :
       {"Y", "YQ", "YQ=", "=", "YQ==YQ==", "YQ==x", "YW Jj", "YWJ-", "YWJ_", "YR==", "<html>", "YWJj\t", "ä"}) {
    EXPECT_FALSE(decodedBase64(text)) << text;
  }
}

}  // namespace
}  // namespace quobrak::webdriver
