#include "drivers/simulator/Queries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PageSource.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/uiautomation/XCUIApplication.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;
using Value = KeyValueSource::Value;

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

TEST_F(QueriesTest, AttributesOfAnElement) {
  const Element* const field = QueryEvaluator(IS_HITTABLE).element(APP.descendants(ElementType::any)["field"], *page_);
  const ElementAttributes attributes(field, IS_HITTABLE);
  EXPECT_EQ(attributes.valueForKey("label"), Value("Save"));
  EXPECT_EQ(attributes.valueForKey("identifier"), Value("field"));
  EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value("Name"));
  EXPECT_EQ(attributes.valueForKey("value"), Value("Ada"));
  EXPECT_EQ(attributes.valueForKey("enabled"), Value(true));
  EXPECT_EQ(attributes.valueForKey("selected"), Value(false));
  EXPECT_EQ(attributes.valueForKey("exists"), Value(true));
  EXPECT_EQ(attributes.valueForKey("hittable"), Value(false));
}

TEST_F(QueriesTest, AnElementWithoutValueAndPlaceholderHasNone) {
  const ElementAttributes attributes(page_.get(), IS_HITTABLE);
  EXPECT_EQ(attributes.valueForKey("value"), Value());
  EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value());
}

TEST_F(QueriesTest, AttributesOfAnAbsentElement) {
  const ElementAttributes attributes(nullptr, IS_HITTABLE);
  EXPECT_EQ(attributes.valueForKey("label"), Value(""));
  EXPECT_EQ(attributes.valueForKey("identifier"), Value(""));
  EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value());
  EXPECT_EQ(attributes.valueForKey("value"), Value());
  for (const std::string_view key : {"enabled", "selected", "exists", "hittable"}) {
    EXPECT_EQ(attributes.valueForKey(key), Value(false)) << key;
  }
  EXPECT_THAT([&] { attributes.valueForKey("frame"); }, ThrowsMessage<UnknownAttributeError>(UNKNOWN));
}

TEST_F(QueriesTest, KnownAttributesAreRequiredOfTheWholePredicate) {
  for (const std::string_view format :
       {"TRUEPREDICATE", "label == \"frame\"", "NOT (enabled == TRUE OR value CONTAINS identifier)"}) {
    EXPECT_NO_THROW(requireKnownAttributes(NSPredicate(format))) << format;
  }
  for (const std::string_view format :
       {"frame == \"x\"", "\"x\" == frame", "label == \"a\" AND (enabled == TRUE OR NOT frame == \"x\")"}) {
    EXPECT_THAT([format] { requireKnownAttributes(NSPredicate(format)); },
                ThrowsMessage<UnknownAttributeError>(UNKNOWN))
        << format;
  }
}

}  // namespace
}  // namespace quobrak::simulator
