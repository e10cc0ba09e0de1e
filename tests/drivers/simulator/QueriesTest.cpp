#include "drivers/simulator/Queries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/PageSource.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/uiautomation/XCUIApplication.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

constexpr Size SCREEN{100, 200};
constexpr const char* PAGE = R"(
<Application label="App">
  <Window identifier="window">
    <Other identifier="outer">
      <Other identifier="inner"><Button identifier="save" label="Save" selected="true"/></Other>
      <Button identifier="cancel" label="Cancel" enabled="false"/>
    </Other>
    <TextField identifier="field" label="Save" value="Ada" placeholderValue="Name"/>
  </Window>
  <Button identifier="last" label="Größe"/>
</Application>)";

const XCUIApplication APP("com.example.test");

/// Only what is called "save" is hittable.
const std::function<bool(const Element&)> IS_HITTABLE = [](const Element& element) {
  return element.identifier == "save";
};

class QueriesTest : public ::testing::Test {
 protected:
  std::vector<std::string> identifiers(const XCUIElementQuery& query) const {
    std::vector<std::string> found;
    for (const Element* element : QueryEvaluator(IS_HITTABLE).elements(query, *page_)) {
      found.push_back(element->identifier);
    }
    return found;
  }

  std::string identifier(const XCUIElement& element) const {
    const Element* const found = QueryEvaluator(IS_HITTABLE).element(element, *page_);
    return found == nullptr ? "nothing" : found->identifier;
  }

  const std::unique_ptr<Element> page_ = readPageSource(PAGE, SCREEN);
};

TEST_F(QueriesTest, WithoutAStepTheRootIsWhatIsFound) {
  const XCUIElementQuery query(ApplicationRoot{"com.example.test"});
  EXPECT_THAT(QueryEvaluator(IS_HITTABLE).elements(query, *page_), ElementsAre(page_.get()));
  EXPECT_EQ(QueryEvaluator(IS_HITTABLE).element(APP, *page_), page_.get());
}

TEST_F(QueriesTest, DescendantsComeInDocumentOrderWithoutTheRoot) {
  EXPECT_THAT(identifiers(APP.descendants(ElementType::any)),
              ElementsAre("window", "outer", "inner", "save", "cancel", "field", "last"));
  EXPECT_THAT(identifiers(APP.buttons()), ElementsAre("save", "cancel", "last"));
  EXPECT_THAT(identifiers(APP.descendants(ElementType::application)), IsEmpty());
}

TEST_F(QueriesTest, NoElementComesTwiceInAChainOfDescendants) {
  const XCUIElementQuery others = APP.descendants(ElementType::other);
  EXPECT_THAT(identifiers(others.appending(DescendantsStep{ElementType::any})), ElementsAre("inner", "save", "cancel"));
  EXPECT_THAT(identifiers(others.appending(DescendantsStep{ElementType::button})), ElementsAre("save", "cancel"));
  EXPECT_THAT(identifiers(APP.descendants(ElementType::any).appending(DescendantsStep{ElementType::any})),
              ElementsAre("outer", "inner", "save", "cancel", "field"));
}

TEST_F(QueriesTest, AnIdentifierStepComparesTheIdentifierOrTheLabel) {
  const XCUIElementQuery all = APP.descendants(ElementType::any);
  EXPECT_THAT(identifiers(all.matchingIdentifier("Save")), ElementsAre("save", "field"));
  EXPECT_THAT(identifiers(all.matchingIdentifier("save")), ElementsAre("save"));
  EXPECT_THAT(identifiers(all.matchingIdentifier("sav")), IsEmpty());
  EXPECT_THAT(identifiers(all.matchingIdentifier("Ada")), IsEmpty());
}

TEST_F(QueriesTest, Picks) {
  const XCUIElementQuery buttons = APP.buttons();
  EXPECT_EQ(identifier(buttons.firstMatch()), "save");
  EXPECT_EQ(identifier(buttons.element()), "save");
  EXPECT_EQ(identifier(buttons.elementBoundBy(0)), "save");
  EXPECT_EQ(identifier(buttons.elementBoundBy(2)), "last");
  EXPECT_EQ(identifier(buttons.elementBoundBy(3)), "nothing");
  EXPECT_EQ(identifier(buttons["nobody"]), "nothing");
  EXPECT_EQ(identifier(buttons.matchingIdentifier("nobody").firstMatch()), "nothing");
}

TEST_F(QueriesTest, APickWithinAQuery) {
  const XCUIElement inner = APP.descendants(ElementType::other).elementBoundBy(1);
  EXPECT_THAT(identifiers(inner.buttons()), ElementsAre("save"));
  EXPECT_THAT(identifiers(APP.descendants(ElementType::other).elementBoundBy(2).buttons()), IsEmpty());
}

TEST_F(QueriesTest, TheStagesOnTheWayToAnElement) {
  const auto stages = QueryEvaluator(IS_HITTABLE).stages(APP.buttons().matchingIdentifier("Save").firstMatch(), *page_);
  ASSERT_EQ(stages.size(), 4);
  EXPECT_THAT(stages[0], ElementsAre(page_.get()));
  EXPECT_EQ(stages[1].size(), 3);
  EXPECT_EQ(stages[2].size(), 1);
  EXPECT_EQ(stages[3], stages[2]);
  EXPECT_THAT(QueryEvaluator(IS_HITTABLE).stages(APP, *page_), ElementsAre(ElementsAre(page_.get())));
}

TEST_F(QueriesTest, Predicates) {
  struct Row {
    std::string_view format;
    std::vector<std::string> identifiers;
  };
  const Row ROWS[] = {
      {"label == \"Save\"", {"save", "field"}},
      {"label ==[c] \"GRÖSSE\"", {"last"}},
      {"label CONTAINS \"a\"", {"save", "cancel", "field"}},
      {"label CONTAINS[c] \"C\"", {"cancel"}},
      {"label CONTAINS \"\"", {}},
      {"identifier MATCHES \"(in|out)ner\"", {"inner"}},
      {"identifier MATCHES \"out\"", {}},
      {"label MATCHES[c] \"s.VE\"", {"save", "field"}},
      {"value == \"Ada\"", {"field"}},
      {"placeholderValue CONTAINS \"am\"", {"field"}},
      {"enabled == FALSE", {"cancel"}},
      {"selected == TRUE", {"save"}},
      {"hittable == TRUE", {"save"}},
      {"exists == FALSE", {}},
      {"label == \"Save\" AND NOT value == \"Ada\"", {"save"}},
      {"label == \"\"", {"window", "outer", "inner"}},
      {"label == identifier", {}},
      {"FALSEPREDICATE", {}},
  };
  for (const auto& [format, expected] : ROWS) {
    EXPECT_EQ(identifiers(APP.descendants(ElementType::any).matching(NSPredicate(format))), expected) << format;
  }
}

constexpr const char* UNKNOWN =
    R"(elements have no attribute "frame"; they have label, identifier, placeholderValue, value, enabled, )"
    R"(selected, exists, hittable)";

TEST_F(QueriesTest, AnUnknownAttributeRaises) {
  const NSPredicate predicate("frame == \"x\"");
  EXPECT_THAT([&] { identifiers(APP.buttons().matching(predicate)); }, ThrowsMessage<UnknownAttributeError>(UNKNOWN));
}

TEST_F(QueriesTest, APatternThatDoesNotCompileRaises) {
  EXPECT_THROW(identifiers(APP.buttons().matching(NSPredicate("label MATCHES \"[\""))), RegularExpressionError);
}

TEST_F(QueriesTest, WithoutARevisionNothingIsKept) {
  const QueryEvaluator queries(IS_HITTABLE);
  const XCUIElement saved = APP.buttons()["saved"];
  EXPECT_EQ(queries.element(saved, *page_), nullptr);
  Element* const button = page_->children().back().get();
  button->label = "saved";
  EXPECT_EQ(queries.element(saved, *page_), button);
}

TEST_F(QueriesTest, WhatHasChangedIsFoundOnceTheRevisionHas) {
  std::uint64_t revision = 1;
  const QueryEvaluator queries(IS_HITTABLE, [&revision] { return revision; });
  const XCUIElementQuery found =
      APP.descendants(ElementType::any).matching(NSPredicate("label CONTAINS[c] 'new' AND enabled == TRUE"));
  EXPECT_THAT(queries.elements(found, *page_), IsEmpty());

  Element* const last = page_->children().back().get();
  last->label = "NEW";
  ++revision;
  EXPECT_THAT(queries.elements(found, *page_), ElementsAre(last));

  Element* const added = &page_->append(ElementType::button);
  added->label = "newer";
  ++revision;
  EXPECT_THAT(queries.elements(found, *page_), ElementsAre(last, added));

  last->isEnabled = false;
  ++revision;
  EXPECT_THAT(queries.elements(found, *page_), ElementsAre(added));

  page_->remove(*added);
  ++revision;
  EXPECT_THAT(queries.elements(found, *page_), IsEmpty());
}

TEST_F(QueriesTest, EachTreeHasItsOwnElementsWithinOneRevision) {
  const QueryEvaluator queries(IS_HITTABLE, [] { return std::uint64_t{1}; });
  const std::unique_ptr<Element> copy = page_->copy();
  Element& window = *page_->children().front();
  const XCUIElementQuery all = APP.descendants(ElementType::any);
  for (const Element* const root : {page_.get(), copy.get(), &window, page_.get()}) {
    std::vector<const Element*> descendants;
    forEachDescendant(*root, [&descendants](const Element& element) { descendants.push_back(&element); });
    EXPECT_EQ(queries.elements(all, *root), descendants);
  }
}

TEST_F(QueriesTest, TheTreeIsReadOnceInARevision) {
  const QueryEvaluator queries(IS_HITTABLE, [] { return std::uint64_t{1}; });
  const XCUIElementQuery query = APP.descendants(ElementType::any).matching(NSPredicate("label CONTAINS[c] 'SAVE'"));
  const std::vector<const Element*> found = queries.elements(query, *page_);
  ASSERT_EQ(found.size(), 2);
  page_->children().back()->label = "Save";
  EXPECT_EQ(queries.elements(query, *page_), found) << "who changes a tree has to change the revision";
}

}  // namespace
}  // namespace quobrak::simulator
