#include "host/check/CheckedLine.h"

#include <gtest/gtest.h>

#include "quobrakUITests/Fields.h"
#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

std::string placeOf(const Finding& finding) {
  return std::to_string(finding.line) + ":" + std::to_string(finding.column) + "-" + std::to_string(finding.endColumn);
}

TEST(CheckedLine, TellsPlacesInCodePointsOfTheLineAsItIsWritten) {
  const std::string written = "\tenterText,日本😀, ${A}! ";
  const PreparedLine prepared(written, testing::variablesOf({{"A", "x,yz"}}), [](std::string_view) { return false; });
  std::vector<std::string_view> fields;
  splitAtCommas(prepared.text(), fields);
  ASSERT_EQ(fields.size(), 4U);
  const CheckedLine line(2, {.inRun = 7, .inEditor = 4}, prepared, fields);
  EXPECT_EQ(placeOf(line.atField(0, {})), "7:2-11");
  EXPECT_EQ(placeOf(line.atField(1, {})), "7:12-15");
  EXPECT_EQ(placeOf(line.atField(2, {})), "7:16-21");
  EXPECT_EQ(placeOf(line.atField(3, {})), "7:17-22");
  EXPECT_EQ(placeOf(line.fromField(1, {})), "7:12-22");
  EXPECT_EQ(placeOf(line.atEnd({})), "7:22-22");
  const Finding finding = line.atField(1, {.rule = Rule::noNumber,
                                           .severity = Severity::warning,
                                           .outcome = Outcome::goesOn,
                                           .stage = Stage::never,
                                           .message = "m",
                                           .hint = "h"});
  EXPECT_EQ(finding.script, 2U);
  EXPECT_EQ(finding.editorLine, 4U);
  EXPECT_EQ(*finding.text, written);
  EXPECT_EQ(testing::inShort(finding), "3/7:12-15 warning no-number: m (h)");
}

}  // namespace
}  // namespace quobrak::host
