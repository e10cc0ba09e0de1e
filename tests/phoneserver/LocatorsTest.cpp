#include "phoneserver/Locators.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::namesOf;
using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeButton name="id1" label="Test"/>
  <XCUIElementTypeOther name="group"><XCUIElementTypeButton name="id2" label="Foo"/></XCUIElementTypeOther>
  <XCUIElementTypeStaticText name="Foo" label="Foo" enabled="false"/>)";

struct Row {
  const char* strategy;
  const char* description;
  const char* names;
};

TEST(Locators, FindByEveryStrategy) {
  TestPhone phone(PAGE);
  const Row ROWS[] = {
      {"class chain", "**/XCUIElementTypeButton", "id1 id2"},
      {"-ios class chain", "**/XCUIElementTypeButton[-1]", "id2"},
      {"predicate string", "label == 'Test'", "Test id1"},
      {"-ios predicate string", "label == 'Foo'", "id2 Foo"},
      {"accessibility id", "Foo", "Foo"},
      {"accessibility id", "Test", "Test"},
      {"name", "id2", "id2"},
      {"id", "group", "group"},
      {"id", "nothing", ""},
      {"class name", "XCUIElementTypeButton", "id1 id2"},
      {"class name", "XCUIElementTypeApplication", "Test"},
      {"class name", "XCUIElementTypeAny", "Test - id1 group id2 Foo"},
      {"link text", "label=Foo", "id2 Foo"},
      {"link text", "enabled=0", "Foo"},
      {"link text", "value=x=y", ""},
      {"partial link text", "label=o", "id2 Foo"},
      {"partial link text", "name=id", "id1 id2"},
      {"xpath", "//XCUIElementTypeOther/XCUIElementTypeButton", "id2"},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(namesOf(elementsFound(phone.scope(), row.strategy, row.description)), row.names)
        << row.strategy << ' ' << row.description;
  }
}

TEST(Locators, LookNoDeeperThanTheScopeGoes) {
  TestPhone phone(PAGE);
  EXPECT_EQ(namesOf(elementsFound(phone.scope(2), "class name", "XCUIElementTypeButton")), "id1");
}

TEST(Locators, RefuseWhatTheyCannotUse) {
  TestPhone phone(PAGE);
  const auto error = [&phone](const char* strategy, const char* description) {
    return errorOf([&] { elementsFound(phone.scope(), strategy, description); });
  };
  EXPECT_EQ(error("css selector", "x"),
            "invalid argument: there is no locator strategy \"css selector\"; there are class chain, -ios class chain, "
            "predicate string, -ios predicate string, accessibility id, name, id, class name, link text, partial link "
            "text, xpath");
  EXPECT_EQ(error("class name", "Button"),
            "invalid argument: \"Button\" is no element type; one is written like XCUIElementTypeButton");
  EXPECT_EQ(error("link text", "Foo"),
            "invalid selector: a link text is an attribute, =, and its text, as in label=Foo; found Foo");
  EXPECT_TRUE(error("partial link text", "title=Foo").starts_with("unknown error: elements have no attribute"));
  EXPECT_TRUE(error("class chain", "x").starts_with("invalid selector: column 1: "));
  EXPECT_TRUE(error("predicate string", "title == 'x'").starts_with("unknown error: elements have no attribute"));
}

}  // namespace
}  // namespace quobrak::phoneserver
