#include "host/check/NumberedLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;

/// "RUN/EDITOR TEXT" of each line.
std::vector<std::string> linesOf(std::string_view script) {
  std::vector<std::string> all;
  NumberedLines lines(script);
  while (const auto line = lines.next()) {
    all.push_back(std::to_string(line->number.inRun) + "/" + std::to_string(line->number.inEditor) + " " +
                  std::string(line->text));
  }
  return all;
}

TEST(NumberedLines, CountAsTheRunAndAsEditorsDo) {
  EXPECT_THAT(linesOf(""), ElementsAre("1/1 "));
  EXPECT_THAT(linesOf("a\nb\n\nc"), ElementsAre("1/1 a", "2/2 b", "3/3 ", "4/4 c"));
  EXPECT_THAT(linesOf("a\r\nb\r\n\r\nc\r\n"),
              ElementsAre("1/1 a", "2/1 ", "3/2 b", "4/2 ", "5/3 ", "6/3 ", "7/4 c", "8/4 ", "9/5 "));
}

TEST(NumberedLines, TakeOnlyACarriageReturnBeforeALineFeedForOneLineEnd) {
  EXPECT_THAT(linesOf("\n\ra\rb\n"), ElementsAre("1/1 ", "2/2 ", "3/3 a", "4/4 b", "5/5 "));
  EXPECT_THAT(linesOf("a\r\r\nb"), ElementsAre("1/1 a", "2/2 ", "3/2 ", "4/3 b"));
  EXPECT_THAT(linesOf("\r\n"), ElementsAre("1/1 ", "2/1 ", "3/2 "));
}

}  // namespace
}  // namespace quobrak::host
