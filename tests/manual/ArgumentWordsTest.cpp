#include "manual/ArgumentWords.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace quobrak::manual {
namespace {

using Selector = DirectField<1, "selector">;
using Duration = CheckedField<&Parameters::getPauseDuration, 1, "timeMillis", Unit::milliseconds>;
using NthElement = CheckedField<&Parameters::getNthElement, 2, "nthElement", Unit::count, DEFAULT_NTH_ELEMENT>;
using IsEnabled = CheckedField<&Parameters::getIsEnabled, 3, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;

TEST(ArgumentWords, WhatComesOfLeavingAnArgumentOut) {
  EXPECT_EQ(whenLeftOut(Selector::INFO), "stops the process");
  EXPECT_EQ(whenLeftOut(Duration::INFO), "error");
  EXPECT_EQ(whenLeftOut(NthElement::INFO), "`1`");
  EXPECT_EQ(whenLeftOut(IsEnabled::INFO), "`true`");
}

TEST(ArgumentWords, EachUnitIsWrittenInAWayOfItsOwn) {
  for (const auto& [unit, words] : std::array{
           std::pair{Unit::text, "text"}, std::pair{Unit::milliseconds, "whole number, milliseconds"},
           std::pair{Unit::percent, "whole number, percent of the screen"}, std::pair{Unit::points, "number, points"},
           std::pair{Unit::count, "whole number"}, std::pair{Unit::truthValue, "`true` or `false`"}}) {
    EXPECT_EQ(writtenAs(unit), words);
  }
}

}  // namespace
}  // namespace quobrak::manual
