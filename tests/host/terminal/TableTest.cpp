#include "host/terminal/Table.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

const std::vector<Column> COLUMNS{{.title = "step"}, {.title = "n", .alignment = Alignment::right}};

TEST(Table, AlignsItsColumns) {
  EXPECT_EQ(table(COLUMNS, {{"設定", "30"}, {"Open", "1"}, {"Longest", "200"}}, Terminal{}),
            "step       n\n"
            "設定      30\n"
            "Open       1\n"
            "Longest  200\n");
}

TEST(Table, HasNoBlanksAtTheEndsOfLines) {
  EXPECT_EQ(table({{.title = "a"}, {.title = "b"}}, {{"x", ""}}, Terminal{}), "a  b\nx\n");
}

TEST(Table, IsNothingWithoutRows) {
  EXPECT_EQ(table(COLUMNS, {}, Terminal{}), "");
}

TEST(Table, TakesNoStyleForWidth) {
  const Terminal coloured{.isInteractive = true, .hasColour = true};
  EXPECT_EQ(table({{.title = "a"}, {.title = "b"}}, {{coloured.styled(Style::red, "x"), "y"}}, coloured),
            "\x1b[1ma\x1b[0m  \x1b[1mb\x1b[0m\n"
            "\x1b[31mx\x1b[0m  y\n");
}

TEST(ColumnWidths, AreThoseOfTheWidestCellsOrTitles) {
  EXPECT_EQ(columnWidths(COLUMNS, {{"設定設定", ""}, {"Open", "200"}}), (std::vector<std::size_t>{8, 3}));
  EXPECT_EQ(columnWidths(COLUMNS, {{"a", ""}}), (std::vector<std::size_t>{4, 1}));
}

}  // namespace
}  // namespace quobrak::host
