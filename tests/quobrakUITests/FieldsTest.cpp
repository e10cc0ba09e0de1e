#include "quobrakUITests/Fields.h"

#include <gtest/gtest.h>

namespace quobrak {
namespace {

TEST(Fields, PiecesBetweenCommas) {
  struct Row {
    std::string_view line;
    std::vector<std::string_view> expected;
  };
  const Row ROWS[] = {
      {"", {""}},
      {"pressHome", {"pressHome"}},
      {"pause,10000", {"pause", "10000"}},
      {"pause, 100", {"pause", " 100"}},
      {" pause ,100 ", {" pause ", "100 "}},
      {",", {"", ""}},
      {",a,,b,", {"", "a", "", "b", ""}},
      {"clickByText,\"a,b\"", {"clickByText", "\"a", "b\""}},
      {"é，日,本", {"é，日", "本"}},
  };
  for (const auto& [line, expected] : ROWS) {
    std::vector<std::string_view> fields;
    splitAtCommas(line, fields);
    EXPECT_EQ(fields, expected) << line;
  }
}

TEST(Fields, ReplaceWhatWasThereBefore) {
  std::vector<std::string_view> fields{"measureStart", "Home", "left over"};
  splitAtCommas("measureStop", fields);
  EXPECT_EQ(fields, (std::vector<std::string_view>{"measureStop"}));
}

}  // namespace
}  // namespace quobrak
