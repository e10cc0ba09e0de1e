#include "phoneserver/RouteTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quobrak::phoneserver {
namespace {

JSONValue nothing(ServedPhone&, const Call&) {
  return {};
}

constexpr Route ROUTES[] = {
    {"GET", "/a/b", SessionNeed::none, nothing},      {"GET", "/a/:name", SessionNeed::none, nothing},
    {"POST", "/a/:name", SessionNeed::none, nothing}, {"GET", "/a/:name", SessionNeed::session, nothing},
    {"DELETE", "", SessionNeed::session, nothing},
};

/// The row that is taken, and what it found in the path; "none" where there is none.
std::string taken(std::string_view method, std::string_view path) {
  const auto match = matchedRoute(ROUTES, method, path);
  if (!match) {
    return "none";
  }
  std::string text = std::to_string(match->route - ROUTES);
  for (const auto& [name, value] : match->parameters) {
    text += " " + name + "=" + value;
  }
  return text;
}

TEST(RouteTable, TakesTheFirstRowThatFits) {
  EXPECT_EQ(taken("GET", "/a/b"), "0");
  EXPECT_EQ(taken("GET", "/a/c"), "1 name=c");
  EXPECT_EQ(taken("POST", "/a/b"), "2 name=b");
}

TEST(RouteTable, ARowThatNeedsASessionStandsBehindIt) {
  EXPECT_EQ(taken("GET", "/session/S/a/b"), "3 name=b session=S");
  EXPECT_EQ(taken("DELETE", "/session/S"), "4 session=S");
}

TEST(RouteTable, PathsMayHaveMoreSlashesThanTheyNeed) {
  EXPECT_EQ(taken("GET", "/a/b/"), "0");
  EXPECT_EQ(taken("GET", "//a//b"), "0");
  EXPECT_EQ(taken("DELETE", "/session/S/"), "4 session=S");
}

TEST(RouteTable, TakesNoRowForAnotherMethodOrPath) {
  EXPECT_EQ(taken("PUT", "/a/b"), "none");
  EXPECT_EQ(taken("GET", "/a"), "none");
  EXPECT_EQ(taken("GET", "/a/b/c"), "none");
  EXPECT_EQ(taken("GET", "/b/b"), "none");
  EXPECT_EQ(taken("DELETE", "/session"), "none");
  EXPECT_EQ(taken("GET", ""), "none");
}

TEST(RouteTable, OfTheServerHasNoRowTwice) {
  std::set<std::string> rows;
  for (const Route& route : allRoutes()) {
    const std::string row =
        std::string(route.method) + (route.need == SessionNeed::session ? " S" : " ") + std::string(route.pattern);
    EXPECT_TRUE(rows.insert(row).second) << row;
    EXPECT_TRUE(route.pattern.empty() || route.pattern.starts_with('/')) << row;
  }
  EXPECT_GT(rows.size(), 70U);
}

}  // namespace
}  // namespace quobrak::phoneserver
