#include "drivers/webdriver/Dialect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::webdriver {
namespace {

using ::testing::Eq;
using ::testing::Optional;

TEST(Dialect, IsKnownByItsName) {
  EXPECT_THAT(dialectNamed("appium"), Optional(Eq(Dialect::appium)));
  EXPECT_THAT(dialectNamed("wda"), Optional(Eq(Dialect::wda)));
  for (const char* const name : {"", "Appium", "WDA", "w3c", "appium "}) {
    EXPECT_EQ(dialectNamed(name), std::nullopt) << name;
  }
  EXPECT_EQ(nameOf(Dialect::appium), "appium");
  EXPECT_EQ(nameOf(Dialect::wda), "wda");
}

TEST(Dialect, NamesTheStrategiesOfLookups) {
  EXPECT_EQ(classChainStrategy(Dialect::appium), "-ios class chain");
  EXPECT_EQ(classChainStrategy(Dialect::wda), "class chain");
  EXPECT_EQ(predicateStrategy(Dialect::appium), "-ios predicate string");
  EXPECT_EQ(predicateStrategy(Dialect::wda), "predicate string");
}

struct Row {
  Verb verb;
  const char* script;
  const char* method;
  const char* path;
};

constexpr Row ROWS[] = {
    {Verb::launch, "mobile: launchApp", "POST", "/session/s1/wda/apps/launch"},
    {Verb::terminate, "mobile: terminateApp", "POST", "/session/s1/wda/apps/terminate"},
    {Verb::applicationState, "mobile: queryAppState", "POST", "/session/s1/wda/apps/state"},
    {Verb::tapPoint, "mobile: tap", "POST", "/session/s1/wda/tap"},
    {Verb::holdPoint, "mobile: touchAndHold", "POST", "/session/s1/wda/touchAndHold"},
    {Verb::drag, "mobile: dragFromToForDuration", "POST", "/session/s1/wda/dragfromtoforduration"},
    {Verb::pressButton, "mobile: pressButton", "POST", "/session/s1/wda/pressButton"},
    {Verb::checkSession, "mobile: isLocked", "GET", "/session/s1/wda/locked"},
};

constexpr Row ELEMENT_ROWS[] = {
    {Verb::holdElement, "mobile: touchAndHold", "POST", "/session/s1/wda/element/e7/touchAndHold"},
    {Verb::swipe, "mobile: swipe", "POST", "/session/s1/wda/element/e7/swipe"},
};

const JSONValue::Object ARGUMENTS{{"a", 1}, {"b", "x"}};

TEST(CommandFor, IsAPathOfItsOwnToThePhonesServer) {
  for (const Row& row : ROWS) {
    const Command command = commandFor(Dialect::wda, row.verb, "s1", ARGUMENTS);
    EXPECT_EQ(command.method, row.method) << row.path;
    EXPECT_EQ(command.path, row.path);
    EXPECT_EQ(command.body, ARGUMENTS) << row.path;
  }
  for (const Row& row : ELEMENT_ROWS) {
    const Command command = commandFor(Dialect::wda, row.verb, "s1", ARGUMENTS, "e7");
    EXPECT_EQ(command.method, row.method) << row.path;
    EXPECT_EQ(command.path, row.path);
    EXPECT_EQ(command.body, ARGUMENTS) << row.path;
  }
}

TEST(CommandFor, IsAScriptToTheOtherServer) {
  for (const Row& row : ROWS) {
    const Command command = commandFor(Dialect::appium, row.verb, "s1", ARGUMENTS);
    EXPECT_EQ(command.method, "POST") << row.script;
    EXPECT_EQ(command.path, "/session/s1/execute/sync") << row.script;
    EXPECT_EQ(command.body,
              (JSONValue::Object{{"script", row.script}, {"args", JSONValue::Array{JSONValue(ARGUMENTS)}}}));
  }
}

TEST(CommandFor, AScriptIsToldTheElementAsAnArgument) {
  JSONValue::Object arguments = ARGUMENTS;
  arguments.emplace("elementId", "e7");
  for (const Row& row : ELEMENT_ROWS) {
    const Command command = commandFor(Dialect::appium, row.verb, "s1", ARGUMENTS, "e7");
    EXPECT_EQ(command.method, "POST") << row.script;
    EXPECT_EQ(command.path, "/session/s1/execute/sync") << row.script;
    EXPECT_EQ(command.body,
              (JSONValue::Object{{"script", row.script}, {"args", JSONValue::Array{JSONValue(arguments)}}}));
  }
}

TEST(CommandFor, TheDescriptionOfTheScreenIsAskedForInWords) {
  const Command direct = commandFor(Dialect::wda, Verb::describeScreen, "s1", {});
  EXPECT_EQ(direct.method, "GET");
  EXPECT_EQ(direct.path, "/session/s1/source?format=description");
  const Command script = commandFor(Dialect::appium, Verb::describeScreen, "s1", {});
  EXPECT_EQ(script.method, "POST");
  EXPECT_EQ(script.path, "/session/s1/execute/sync");
  EXPECT_EQ(script.body,
            (JSONValue::Object{{"script", "mobile: source"},
                               {"args", JSONValue::Array{JSONValue(JSONValue::Object{{"format", "description"}})}}}));
}

}  // namespace
}  // namespace quobrak::webdriver
