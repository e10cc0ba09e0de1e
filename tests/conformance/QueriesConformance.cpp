#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* PAGE = R"(
  <Button name="ok" label="OK" x="0" y="0" width="50" height="50"/>
  <Other name="group">
    <Other name="inner"><StaticText name="note" label="Lamp" x="0" y="50" width="50" height="20"/></Other>
  </Other>
  <TextField name="field" placeholderValue="Name" value="Ada" x="0" y="70" width="50" height="20"/>
  <Switch name="switch" label="Night" value="0" x="50" y="0" width="50" height="50"/>
  <Button name="hidden" label="OK" enabled="false" selected="true" x="500" y="0" width="50" height="50"/>
  <Image name="Lamp" label="Lamp" x="0" y="100" width="50" height="20"/>
  <Icon/>)";

class Queries : public ConformanceTest {
 protected:
  static XCUIElementQuery all() { return APP.windows().firstMatch().descendants(ElementType::any); }

  static std::vector<std::string> matching(const NSPredicate& predicate) {
    return identifiersOf(all().matching(predicate));
  }
};

TEST_F(Queries, ElementsComeInDocumentOrderWithoutTheRoot) {
  start(PAGE);
  EXPECT_THAT(identifiersOf(all()), ElementsAre("ok", "group", "inner", "note", "field", "switch", "hidden", "", ""));
}

TEST_F(Queries, NoElementIsCountedTwice) {
  start(PAGE);
  const XCUIElementQuery others = APP.descendants(ElementType::other);
  EXPECT_EQ(others.count(), 2);
  EXPECT_EQ(others.appending(DescendantsStep{ElementType::staticText}).count(), 1);
}

TEST_F(Queries, APickAmongManyIsTheOneOfThatIndex) {
  start(PAGE);
  EXPECT_EQ(APP.buttons().elementBoundBy(0).identifier(), "ok");
  EXPECT_EQ(APP.buttons().elementBoundBy(1).identifier(), "hidden");
  EXPECT_FALSE(APP.buttons().elementBoundBy(2).exists());
  EXPECT_EQ(APP.descendants(ElementType::other).elementBoundBy(1).staticTexts().firstMatch().identifier(), "note");
}

TEST_F(Queries, ASingleMatchIsTheFirstOfSeveral) {
  start(PAGE);
  EXPECT_EQ(APP.buttons().element().identifier(), "ok");
  EXPECT_EQ(APP.buttons().firstMatch().identifier(), "ok");
  EXPECT_EQ(APP.buttons()["OK"].identifier(), "ok");
}

TEST_F(Queries, AnIdentifierStepComparesTheIdentifierOrTheLabel) {
  start(PAGE);
  EXPECT_EQ(APP.buttons().matchingIdentifier("OK").count(), 2);
  EXPECT_EQ(APP.buttons().matchingIdentifier("hidden").count(), 1);
  EXPECT_EQ(APP.buttons().matchingIdentifier("ok").count(), 1);
  EXPECT_EQ(APP.buttons().matchingIdentifier("O").count(), 0);
}

TEST_F(Queries, StepsAreTakenOneAfterTheOther) {
  start(PAGE);
  const auto inGroup = APP.descendants(ElementType::any)["group"].descendants(ElementType::any);
  EXPECT_THAT(identifiersOf(inGroup), ElementsAre("inner", "note"));
  EXPECT_THAT(identifiersOf(inGroup.matching(NSPredicate("label == 'Lamp'"))), ElementsAre("note"));
  EXPECT_THAT(
      identifiersOf(APP.buttons().matching(NSPredicate("label == 'OK'")).matching(NSPredicate("enabled == FALSE"))),
      ElementsAre("hidden"));
}

TEST_F(Queries, PredicatesSeeTheAttributes) {
  start(PAGE);
  struct Row {
    const char* format;
    std::vector<std::string> identifiers;
  };
  const Row ROWS[] = {
      {"label == 'Lamp'", {"note", ""}},
      {"identifier == 'inner'", {"inner"}},
      {"identifier == 'Lamp'", {}},
      {"placeholderValue == 'Name'", {"field"}},
      {"value == 'Ada'", {"field"}},
      {"value == '0'", {"switch"}},
      {"enabled == FALSE", {"hidden"}},
      {"selected == TRUE", {"hidden"}},
      {"exists == TRUE AND label == 'OK'", {"ok", "hidden"}},
      {"exists == FALSE", {}},
      {"hittable == FALSE AND label == 'OK'", {"hidden"}},
      {"hittable == TRUE AND label == 'OK'", {"ok"}},
  };
  for (const auto& [format, identifiers] : ROWS) {
    EXPECT_EQ(matching(NSPredicate(format)), identifiers) << format;
  }
}

TEST_F(Queries, WhatAnElementLacksIsAnEmptyTextOrNoValue) {
  start(PAGE);
  struct Row {
    const char* format;
    std::vector<std::string> identifiers;
  };
  const Row ROWS[] = {
      {"label == '' AND enabled == TRUE", {"group", "inner", "field", ""}},
      {"identifier == ''", {"", ""}},
      {"NOT identifier == ''", {"ok", "group", "inner", "note", "field", "switch", "hidden"}},
      {"label MATCHES '.?.?'", {"ok", "group", "inner", "field", "hidden", ""}},
      {"NOT label MATCHES '.?.?'", {"note", "switch", ""}},
      {"identifier MATCHES 'x?'", {"", ""}},
      {"placeholderValue == ''", {}},
      {"placeholderValue CONTAINS 'a'", {"field"}},
      {"NOT placeholderValue CONTAINS 'q' AND label == 'OK'", {"ok", "hidden"}},
  };
  for (const auto& [format, identifiers] : ROWS) {
    EXPECT_EQ(matching(NSPredicate(format)), identifiers) << format;
  }
}

TEST_F(Queries, PredicatesAreJoined) {
  start(PAGE);
  struct Row {
    const char* format;
    std::vector<std::string> identifiers;
  };
  const Row ROWS[] = {
      {"label == 'OK' AND NOT enabled == TRUE", {"hidden"}},
      {"label == 'Night' OR identifier == 'note'", {"note", "switch"}},
      {"(label == 'OK' OR label == 'Night') AND enabled == TRUE", {"ok", "switch"}},
      {"label CONTAINS 'i' AND identifier CONTAINS 'i'", {"switch"}},
  };
  for (const auto& [format, identifiers] : ROWS) {
    EXPECT_EQ(matching(NSPredicate(format)), identifiers) << format;
  }
  EXPECT_EQ(all().matching(NSCompoundPredicate::andPredicate({})).count(), 9);
  EXPECT_EQ(all().matching(NSCompoundPredicate::orPredicate({})).count(), 0);
}

TEST_F(Queries, ContainsComparesParts) {
  start(PAGE);
  EXPECT_THAT(matching(NSPredicate("label CONTAINS 'igh'")), ElementsAre("switch"));
  EXPECT_THAT(matching(NSPredicate("label CONTAINS 'IGH'")), IsEmpty());
  EXPECT_THAT(matching(NSPredicate("label CONTAINS[c] 'IGH'")), ElementsAre("switch"));
  EXPECT_THAT(matching(NSPredicate("identifier MATCHES 'i.*|s\\\\w+'")), ElementsAre("inner", "switch"));
  EXPECT_THAT(matching(NSPredicate("identifier MATCHES[c] 'INNER'")), ElementsAre("inner"));
  EXPECT_THAT(matching(NSPredicate("identifier MATCHES 'inn'")), IsEmpty());
}

TEST_F(Queries, TextsAreTakenAsTheyStand) {
  const std::vector<std::string> TEXTS{"it's",      "say \"hi\"",   "back\\slash",
                                       "a`tick",    "$dollar$",     "[bracket]",
                                       "%@ and %K", "naïve 日本語", "👍🏽 and 👩‍👩‍👧",
                                       "{a, b}",    "two  blanks"};
  std::string page;
  for (const std::string& text : TEXTS) {
    std::string escaped;
    for (const char character : text) {
      escaped += character == '"' ? "&quot;" : std::string(1, character);
    }
    page += "<StaticText label=\"" + escaped + "\"/>";
  }
  start(page);
  const XCUIElementQuery texts = APP.staticTexts();
  for (const std::string& text : TEXTS) {
    EXPECT_EQ(texts[text].label(), text);
    EXPECT_EQ(texts.matching(NSPredicate("label == %@", {text})).count(), 1) << text;
    EXPECT_EQ(texts.matching(NSPredicate("label CONTAINS[c] %@", {text})).count(), 1) << text;
  }
}

TEST_F(Queries, AnUnknownAttributeRaisesInEveryPrimitive) {
  start(PAGE);
  const XCUIElementQuery query = APP.buttons().matching(NSPredicate("title == 'OK'"));
  const std::string target = R"(the Button descendants, matching title == "OK" of the application "com.example.test")";
  expectDriverError([&] { query.count(); }, "count", target);
  const XCUIElement element = query.firstMatch();
  const std::string one = "the element (first) of " + target;
  expectDriverError([&] { element.exists(); }, "exists", one);
  expectDriverError([&] { element.label(); }, "label", one);
  expectDriverError([&] { element.identifier(); }, "identifier", one);
  expectDriverError([&] { element.value(); }, "value", one);
  expectDriverError([&] { element.frame(); }, "frame", one);
  expectDriverError([&] { element.isHittable(); }, "isHittable", one);
  expectDriverError([&] { element.debugDescription(); }, "debugDescription", one);
  expectDriverError([&] { element.waitForExistence(1s); }, "waitForExistence", one);
  expectDriverError([&] { element.tap(); }, "tap", one);
  expectDriverError([&] { element.typeText("a"); }, "typeText", one);
  const XCUIElement known = APP.buttons().firstMatch();
  expectDriverError([&] { driver().waitForPredicate(known, NSPredicate("title == 'OK'"), 1s); }, "waitForPredicate",
                    "the element (first) of the Button descendants");
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(Queries, APatternThatDoesNotCompileRaisesWhenItIsAskedFor) {
  start(PAGE);
  const XCUIElementQuery query = APP.buttons().matching(NSPredicate("label MATCHES '('"));
  expectDriverError([&] { query.count(); }, "count", "the Button descendants");
  expectDriverError([&] { query.firstMatch().exists(); }, "exists", "the element (first) of the Button descendants");
}

TEST_F(Queries, NoPatternIsAskedForInAnApplicationThatDoesNotRun) {
  switchOn(PAGE);
  EXPECT_EQ(APP.buttons().matching(NSPredicate("label MATCHES '('")).count(), 0);
  EXPECT_FALSE(APP.buttons().elementMatching(NSPredicate("title == 'OK'")).exists());
}

}  // namespace
}  // namespace quobrak::conformance
