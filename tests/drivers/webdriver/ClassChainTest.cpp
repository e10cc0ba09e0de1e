#include "drivers/webdriver/ClassChain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "drivers/webdriver/WirePredicate.h"
#include "platform/uiautomation/XCUIApplication.h"

namespace quobrak::webdriver {
namespace {

using ::testing::ThrowsMessage;

const XCUIApplication APP("com.example.test");

TEST(ClassChain, HasASegmentForEachTypeWithItsConditionsAndItsPick) {
  struct Row {
    XCUIElementQuery query;
    std::string chain;
  };
  const XCUIElementQuery buttons = APP.buttons();
  const Row ROWS[] = {
      {buttons, "**/XCUIElementTypeButton"},
      {APP.descendants(ElementType::any), "**/*"},
      {APP.descendants(ElementType::switchControl), "**/XCUIElementTypeSwitch"},
      {APP.windows().elementBoundBy(2).buttons(), "**/XCUIElementTypeWindow[3]/**/XCUIElementTypeButton"},
      {APP.windows().firstMatch().buttons(), "**/XCUIElementTypeWindow[1]/**/XCUIElementTypeButton"},
      {APP.windows().element().descendants(ElementType::any), "**/XCUIElementTypeWindow[1]/**/*"},
      {buttons.appending(DescendantsStep{ElementType::any}), "**/XCUIElementTypeButton/**/*"},
      {buttons.matching(NSPredicate("enabled == TRUE")), "**/XCUIElementTypeButton[`enabled == TRUE`]"},
      {buttons.matching(NSPredicate("label == 'a'")).matching(NSPredicate("selected == FALSE")),
       R"(**/XCUIElementTypeButton[`label == "a"`][`selected == FALSE`])"},
      {buttons.matchingIdentifier("x"), R"(**/XCUIElementTypeButton[`name == "x" OR label == "x"`])"},
      {APP.windows()["w"].buttons().matchingIdentifier("x"),
       R"(**/XCUIElementTypeWindow[`name == "w" OR label == "w"`][1])"
       R"(/**/XCUIElementTypeButton[`name == "x" OR label == "x"`])"},
      // What holds for every element is no condition, and what holds for none is one that never does.
      {buttons.matching(NSPredicate("exists == TRUE")), "**/XCUIElementTypeButton"},
      {buttons.matching(NSPredicate("exists == FALSE")), R"(**/XCUIElementTypeButton[`"a" == "b"`])"},
  };
  for (const auto& [query, chain] : ROWS) {
    EXPECT_EQ(classChain(query), chain);
  }
}

TEST(ClassChain, TextsPassThroughItUnharmed) {
  struct Row {
    std::string text;
    std::string condition;
  };
  const Row ROWS[] = {
      {"a`b``", R"(label == "a``b````")"},
      {R"(say "a")", R"(label == "say \"a\"")"},
      {"it's", R"(label == "it's")"},
      {R"(C:\a)", R"(label == "C:\\a")"},
      {"🙂 Größe", R"(label == "🙂 Größe")"},
      {"a]`[b", R"(label == "a]``[b")"},
      {"one\ntwo", R"(label == "one\ntwo")"},
      {"50%@ $x", R"(label == "50%@ $x")"},
  };
  for (const auto& [text, condition] : ROWS) {
    EXPECT_EQ(classChain(APP.buttons().matching(NSPredicate("label == %@", {text}))),
              "**/XCUIElementTypeButton[`" + condition + "`]");
  }
}

TEST(ClassChain, CannotBeAskedWithoutATypeInFrontOfEachCondition) {
  const NSPredicate predicate("enabled == TRUE");
  const XCUIElementQuery root{QueryRoot(ApplicationRoot{"com.example.test"})};
  const XCUIElementQuery picked = APP.buttons().appending(ElementPick(AtIndex{0}));
  for (const XCUIElementQuery& query :
       {root, root.matching(predicate), root.matchingIdentifier("x"), root.appending(ElementPick(FirstMatch{})), picked,
        picked.matching(predicate), picked.matchingIdentifier("x"), picked.appending(ElementPick(AtIndex{1}))}) {
    EXPECT_THAT([&query] { classChain(query); },
                ThrowsMessage<UnaskableQuery>(
                    "over WebDriver, a query must begin with descendants, and go on with them after a pick"))
        << describe(query);
  }
}

TEST(ClassChain, CannotAskForWhatElementsDoNotHave) {
  EXPECT_THAT([] { classChain(APP.buttons().matching(NSPredicate("colour == 'red'"))); },
              ThrowsMessage<UnaskableQuery>("elements have no attribute \"colour\"; they have label, identifier, "
                                            "placeholderValue, value, enabled, selected, exists, hittable"));
}

TEST(PickedFrom, IsCountedFromOne) {
  EXPECT_EQ(pickedFrom("**/*", AtIndex{0}), "**/*[1]");
  EXPECT_EQ(pickedFrom("**/*", AtIndex{41}), "**/*[42]");
  EXPECT_EQ(pickedFrom("**/*", FirstMatch{}), "**/*[1]");
  EXPECT_EQ(pickedFrom("**/*", SingleMatch{}), "**/*[1]");
}

TEST(IndexOf, IsTheFirstWhereNoIndexIsNamed) {
  EXPECT_EQ(indexOf(AtIndex{3}), 3U);
  EXPECT_EQ(indexOf(FirstMatch{}), 0U);
  EXPECT_EQ(indexOf(SingleMatch{}), 0U);
}

TEST(LastClassChain, IsThatOfTheQueryItIsAskedFor) {
  LastClassChain last;
  const XCUIElementQuery root{QueryRoot(ApplicationRoot{"com.example.test"})};
  const XCUIElementQuery all = root.appending(DescendantsStep{ElementType::any});
  const XCUIElementQuery texts = root.appending(DescendantsStep{ElementType::staticText});
  const XCUIElementQuery lamps = texts.matching(NSPredicate("label == \"Lamp\""));
  const std::vector<XCUIElementQuery> queries{
      all,
      texts,
      lamps,
      texts.matching(NSPredicate("label == \"Rug\"")),
      texts.matchingIdentifier("Lamp"),
      texts.matchingIdentifier("Rug"),
      texts.appending(ElementPick(AtIndex{1})).appending(DescendantsStep{ElementType::any}),
      texts.appending(ElementPick(AtIndex{2})).appending(DescendantsStep{ElementType::any}),
      lamps.appending(DescendantsStep{ElementType::any})};
  for (const XCUIElementQuery& query : queries) {
    EXPECT_EQ(last.of(query), classChain(query));
    const XCUIElementQuery copy = query;
    EXPECT_EQ(last.of(copy), classChain(query));
  }
}

TEST(LastClassChain, AQueryThatCannotBeAskedChangesNothing) {
  LastClassChain last;
  const XCUIElementQuery root{QueryRoot(ApplicationRoot{"com.example.test"})};
  const XCUIElementQuery all = root.appending(DescendantsStep{ElementType::any});
  EXPECT_EQ(last.of(all), "**/*");
  EXPECT_THROW(last.of(all.matching(NSPredicate("title == \"x\""))), UnaskableQuery);
  EXPECT_EQ(last.of(all), "**/*");
}

}  // namespace
}  // namespace quobrak::webdriver
