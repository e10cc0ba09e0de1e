#include "host/report/FittingTable.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

const std::vector<Column> COLUMNS{
    {.title = "script"}, {.title = "step"}, {.title = "n", .alignment = Alignment::right}};
const std::vector<std::vector<std::string>> ROWS{{"A long script", "A step", "30"}, {"設定設定設定", "Show", "100"}};

Terminal terminalOf(std::size_t width) {
  return {.isInteractive = true, .width = width};
}

TEST(FittingTable, LeavesNamesWholeWhereThereIsRoom) {
  const std::string whole =
      "script         step      n\n"
      "A long script  A step   30\n"
      "設定設定設定   Show    100\n";
  EXPECT_EQ(fittingTable(COLUMNS, ROWS, 2, terminalOf(26)), whole);
  EXPECT_EQ(fittingTable(COLUMNS, ROWS, 2, {.isInteractive = false, .width = 10}), whole);
}

TEST(FittingTable, ShortensTheWidestNames) {
  EXPECT_EQ(fittingTable(COLUMNS, ROWS, 2, terminalOf(25)),
            "script        step      n\n"
            "A long scri…  A step   30\n"
            "設定設定設定  Show    100\n");
  EXPECT_EQ(fittingTable(COLUMNS, ROWS, 2, terminalOf(22)),
            "script     step      n\n"
            "A long s…  A step   30\n"
            "設定設定…  Show    100\n");
}

TEST(FittingTable, LeavesOfANameWhatTellsItFromOthers) {
  EXPECT_EQ(fittingTable(COLUMNS, ROWS, 2, terminalOf(5)),
            "script    step      n\n"
            "A long …  A step   30\n"
            "設定設…   Show    100\n");
}

TEST(FittingTable, ShortensNoNumbers) {
  EXPECT_EQ(fittingTable({{.title = "number"}}, {{"1234567890123"}}, 0, terminalOf(9)), "number\n1234567890123\n");
}

TEST(FittingTable, IsNothingWithoutRows) {
  EXPECT_EQ(fittingTable(COLUMNS, {}, 2, terminalOf(5)), "");
}

}  // namespace
}  // namespace quobrak::host
