#include "quobrakUITests/ArgumentFaults.h"

#include <gtest/gtest.h>

#include <vector>

#include "quobrakUITests/TestContext.h"

namespace quobrak {
namespace {

using Fault = std::optional<ValueFault> (*)(FunctionParameters fields, std::size_t field);
using Fields = std::vector<std::string_view>;

std::string inWords(const std::optional<ValueFault>& fault) {
  constexpr const char* CONSEQUENCES[] = {"goes on: ", "fails: ", "stops: "};
  return fault ? CONSEQUENCES[static_cast<std::size_t>(fault->consequence)] + fault->message : "";
}

std::string faultOf(Fault fault, const Fields& fields, std::size_t field) {
  return inWords(fault(fields, field));
}

TEST(ArgumentFaults, OfBundleIdentifiers) {
  EXPECT_EQ(faultOf(bundleIdFault, {"applicationStart", "a"}, 1), "");
  EXPECT_EQ(faultOf(bundleIdFault, {"applicationStart", ""}, 1), std::string("fails: ") + TestContext::NO_APPLICATION);
}

TEST(ArgumentFaults, OfPatterns) {
  EXPECT_EQ(faultOf(patternFault, {"clickByTextExact", ""}, 1), "");
  EXPECT_EQ(faultOf(patternFault, {"clickByTextExact", "a|b"}, 1), "");
  EXPECT_EQ(faultOf(patternFault, {"clickByTextExact", "a("}, 1),
            "fails: the regular expression \"a(\" cannot be read: a parenthesis has no partner, at character 2");
}

TEST(ArgumentFaults, OfClassNames) {
  EXPECT_EQ(faultOf(classNameFault, {"findByClass", "Button"}, 1), "");
  EXPECT_EQ(faultOf(classNameFault, {"findByClass", "Buton"}, 1), "fails: The expected class Buton does not exist");
}

TEST(ArgumentFaults, OfRanks) {
  EXPECT_EQ(faultOf(rankFault, {"findByText", "a", "1"}, 2), "");
  EXPECT_EQ(faultOf(rankFault, {"findByText", "a"}, 2), "");
  EXPECT_EQ(faultOf(rankFault, {"findByText", "a", "0"}, 2), "fails: nthElement should be an integer greater than 1");
}

TEST(ArgumentFaults, OfPauses) {
  EXPECT_EQ(faultOf(pauseFault, {"pause", "4294967"}, 1), "");
  EXPECT_EQ(faultOf(pauseFault, {"pause", "4294968"}, 1),
            "stops: The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and 4294967 ms");
  EXPECT_EQ(faultOf(pauseFault, {"pause", "9223372036854775807"}, 1), "stops: The pause in microseconds overflows");
}

TEST(ArgumentFaults, OfPausesWhileTyping) {
  EXPECT_EQ(faultOf(typingPauseFault, {"enterText", "a", "4294967"}, 2), "");
  EXPECT_EQ(faultOf(typingPauseFault, {"enterText", "a"}, 2), "");
  EXPECT_EQ(faultOf(typingPauseFault, {"enterText", "a", "-9223372036854775808"}, 2), "");
  EXPECT_EQ(faultOf(typingPauseFault, {"enterText", "", "4294968"}, 2), "");
  EXPECT_EQ(faultOf(typingPauseFault, {"enterText", "a", "4294968"}, 2),
            "stops: The pause of 4294968 ms cannot be slept in one piece: it must lie between 0 and 4294967 ms");
}

TEST(ArgumentFaults, OfNumbersOfSwipes) {
  EXPECT_EQ(faultOf(swipeCountFault, {"swipeUpwardToText", "a"}, 2), "");
  EXPECT_EQ(faultOf(swipeCountFault, {"swipeUpwardToText", "a", "30"}, 2), "");
  EXPECT_EQ(faultOf(swipeCountFault, {"swipeUpwardToText", "a", "31"}, 2),
            "goes on: The maximum of swipes 31 is never reached: no more than 30 are made");
  EXPECT_EQ(faultOf(swipeCountFault, {"swipeUpwardToText", "a", "-1"}, 2),
            "stops: Range requires lowerBound <= upperBound: maxSwipe is -1, but must be at least 1");
}

TEST(ArgumentFaults, OfPlaces) {
  EXPECT_EQ(faultOf(percentFault, {"swipeLeftward", "0"}, 1), "");
  EXPECT_EQ(faultOf(percentFault, {"swipeLeftward", "100"}, 1), "");
  EXPECT_EQ(faultOf(percentFault, {"swipeLeftward", "101"}, 1),
            "goes on: The coordinate 101 is outside the screen, which has 0 to 100 percent");
  EXPECT_EQ(faultOf(distanceFault, {"clickByXY", "1e2"}, 1), "");
  EXPECT_EQ(faultOf(distanceFault, {"clickByXY", "1,"}, 1), "goes on: The distance 1, is no number, and counts as 0");
}

}  // namespace
}  // namespace quobrak
