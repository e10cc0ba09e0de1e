#include "drivers/simulator/ScreenChanges.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Scrolling.h"
#include "drivers/simulator/TextInput.h"
#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Size SCREEN{100, 200};

PredicateEvaluator predicate(const std::string& format) {
  return PredicateEvaluator(NSPredicate(format));
}

/// A change of nothing, for tests to fill.
ChangeElements noChange() {
  return {.elements = predicate("TRUEPREDICATE"),
          .label = {},
          .identifier = {},
          .value = {},
          .placeholder = {},
          .isEnabled = {},
          .isSelected = {},
          .isVisible = {},
          .x = {},
          .y = {},
          .width = {},
          .height = {}};
}

AttributeText text(const std::string& text) {
  return {TextTemplate::parse(text).value()};
}

constexpr std::optional<TextTemplate> NOTHING;

class ScreenChangesTest : public ::testing::Test {
 protected:
  void show(const std::string& elements) { screen_ = page(elements); }

  static std::unique_ptr<Element> page(const std::string& elements) {
    return readPageSource(
        R"(<Application name="app" x="0" y="0" width="100" height="200">)" + elements + "</Application>", SCREEN);
  }

  Element& named(std::string_view name) {
    Element* found = nullptr;
    forEachDescendant(*screen_, [&](Element& element) {
      if (element.identifier == name) {
        found = &element;
      }
    });
    if (found == nullptr) {
      ADD_FAILURE() << "there is no element " << name;
    }
    return found == nullptr ? *screen_ : *found;
  }

  std::vector<std::string> namesOf(const std::string& format) {
    std::vector<std::string> names;
    for (const Element* const element : elementsMatching(*screen_, predicate(format))) {
      names.push_back(element->identifier);
    }
    return names;
  }

  std::unique_ptr<Element> screen_;
  const NamedValues values_{std::map<std::string, std::string, std::less<>>{{"item", "Lämp"}}};
};

// Picking elements.

TEST_F(ScreenChangesTest, PredicatesAskTheAttributesOfElements) {
  show(R"(<Button name="a" label="OK" value="7" enabled="false" x="0" y="0" width="10" height="10"/>
          <TextField name="b" placeholderValue="Name" selected="true" x="500" y="0" width="10" height="10"/>)");
  EXPECT_TRUE(matches(named("a"), predicate("label == 'OK' AND value == '7' AND enabled == FALSE AND exists == TRUE")));
  EXPECT_TRUE(matches(named("a"), predicate("hittable == TRUE")));
  EXPECT_FALSE(matches(named("b"), predicate("hittable == TRUE")));
  EXPECT_TRUE(matches(named("b"), predicate("placeholderValue == 'Name' AND selected == TRUE")));
  EXPECT_FALSE(matches(named("a"), predicate("identifier == 'b'")));
}

TEST_F(ScreenChangesTest, AnApplicationKnowsWhatIsInItsSecureFields) {
  show(R"(<SecureTextField name="field" x="0" y="0" width="100" height="20"/>)");
  EXPECT_FALSE(matches(named("field"), predicate("value CONTAINS 'o'")));
  insertText(named("field"), "open");
  EXPECT_TRUE(matches(named("field"), predicate("value == 'open'")));
  EXPECT_FALSE(matches(named("field"), predicate("value == '••••'")));
  EXPECT_TRUE(matches(named("field"), predicate("identifier == 'field'")));
  named("field").secret = "";
  EXPECT_TRUE(matches(named("field"), predicate("value == '••••'"))) << "those of a capture stand for themselves";
}

TEST_F(ScreenChangesTest, ElementsComeInTheOrderOfTheDocumentWithoutTheRoot) {
  show(R"(<Cell name="a"><Button name="b"/><Cell name="c"><Button name="d"/></Cell></Cell><Button name="e"/>)");
  EXPECT_THAT(namesOf("TRUEPREDICATE"), ElementsAre("a", "b", "c", "d", "e"));
  EXPECT_THAT(namesOf("identifier IN {'d', 'b', 'app'}"), ElementsAre("b", "d"));
  EXPECT_THAT(namesOf("identifier == 'app'"), IsEmpty());
}

TEST_F(ScreenChangesTest, APatternThatBacktracksForEverIsAnError) {
  show("<Button name=\"a\" label=\"" + std::string(5000, 'a') + "\"/>");
  EXPECT_THROW(matches(named("a"), predicate("label MATCHES '(a+)+b'")), RegularExpressionError);
}

TEST_F(ScreenChangesTest, AnElementByItsNumber) {
  show(R"(<Cell name="a"><Button name="b"/></Cell><Button name="c"/>)");
  for (const char* const name : {"a", "b", "c"}) {
    EXPECT_EQ(elementNumbered(*screen_, named(name).number), &named(name));
  }
  EXPECT_EQ(elementNumbered(*screen_, screen_->number), nullptr) << "the root is not below itself";
  EXPECT_EQ(elementNumbered(*screen_, 0), nullptr);
}

// Texts.

TEST_F(ScreenChangesTest, TextsOfAnElement) {
  show(R"(<Button name="a" label="OK" value="7"/>
          <TextField name="b" label="Name" placeholderValue="hint"/>
          <SecureTextField name="c" value="••" placeholderValue=""/>)");
  const auto textsIn = [this](const char* name) {
    const ElementTexts texts = textsOf(&named(name));
    std::vector<std::string> all;
    for (const std::string_view attribute : {"label", "identifier", "value", "placeholderValue"}) {
      all.push_back(texts.of(attribute));
    }
    return all;
  };
  EXPECT_THAT(textsIn("a"), ElementsAre("OK", "a", "7", ""));
  EXPECT_THAT(textsIn("b"), ElementsAre("Name", "b", "", "hint"));
  EXPECT_THAT(textsIn("c"), ElementsAre("", "c", "••", ""));
  setText(named("c"), "open");
  EXPECT_THAT(textsIn("c"), ElementsAre("", "c", "open", ""));
  for (const std::string_view attribute : {"label", "identifier", "value", "placeholderValue"}) {
    EXPECT_EQ(textsOf(nullptr).of(attribute), "");
  }
}

// Changes.

TEST_F(ScreenChangesTest, WhatIsNotNamedStays) {
  show(R"(<Cell name="row" label="Row" value="1" placeholderValue="p" enabled="false" selected="true" x="1" y="2"
              width="3" height="4"><Button name="in" x="5" y="6" width="7" height="8"/></Cell>)");
  change(named("row"), noChange(), values_);
  const Element& row = named("row");
  EXPECT_EQ(row.label, "Row");
  EXPECT_EQ(row.value, "1");
  EXPECT_EQ(row.placeholder, "p");
  EXPECT_FALSE(row.isEnabled);
  EXPECT_TRUE(row.isSelected);
  EXPECT_FALSE(row.isHidden);
  EXPECT_EQ(row.frame, (Rect{{1, 2}, {3, 4}}));
  EXPECT_EQ(named("in").frame, (Rect{{5, 6}, {7, 8}}));
}

TEST_F(ScreenChangesTest, TextsAreMadeOfValues) {
  show(R"(<Cell name="row" label="Row" value="1" placeholderValue="p"/>)");
  ChangeElements changes = noChange();
  changes.label = text("A ${item}");
  changes.value = text("${item}!");
  changes.placeholder = text("<${never}>");
  change(named("row"), changes, values_);
  EXPECT_EQ(named("row").label, "A Lämp");
  EXPECT_EQ(named("row").value, "Lämp!");
  EXPECT_EQ(named("row").placeholder, "<>");
  changes.identifier = text("${item}");
  change(named("row"), changes, values_);
  EXPECT_EQ(named("Lämp").label, "A Lämp");
}

TEST_F(ScreenChangesTest, TextsMayBeTakenAway) {
  show(R"(<Cell name="row" label="Row" value="1" placeholderValue="p"/>)");
  Element& row = named("row");
  ChangeElements changes = noChange();
  changes.label = AttributeText{NOTHING};
  changes.identifier = AttributeText{NOTHING};
  changes.value = AttributeText{NOTHING};
  changes.placeholder = AttributeText{NOTHING};
  change(row, changes, values_);
  EXPECT_EQ(row.label, "");
  EXPECT_EQ(row.identifier, "");
  EXPECT_EQ(row.value, std::nullopt);
  EXPECT_EQ(row.placeholder, std::nullopt);
  ChangeElements toEmptyOnes = noChange();
  toEmptyOnes.value = text("");
  toEmptyOnes.placeholder = text("");
  change(row, toEmptyOnes, values_);
  EXPECT_EQ(row.value, "") << "an empty text is one";
  EXPECT_EQ(row.placeholder, "");
}

TEST_F(ScreenChangesTest, TheTextOfAFieldIsItsValue) {
  show(R"(<TextField name="plain" value="a"/><SecureTextField name="secure"/>)");
  ChangeElements changes = noChange();
  changes.value = text("${item}");
  change(named("plain"), changes, values_);
  change(named("secure"), changes, values_);
  EXPECT_EQ(named("plain").value, "Lämp");
  EXPECT_EQ(named("secure").value, "••••");
  EXPECT_EQ(named("secure").secret, "Lämp");
  changes.value = text("");
  change(named("plain"), changes, values_);
  EXPECT_EQ(named("plain").value, std::nullopt) << "an empty field has no value";
  changes.value = AttributeText{NOTHING};
  change(named("secure"), changes, values_);
  EXPECT_EQ(named("secure").value, std::nullopt);
  EXPECT_EQ(named("secure").secret, "");
}

TEST_F(ScreenChangesTest, StatesAreGivenAndTaken) {
  show(R"(<Button name="a"/>)");
  Element& a = named("a");
  ChangeElements changes = noChange();
  changes.isEnabled = false;
  changes.isSelected = true;
  change(a, changes, values_);
  EXPECT_FALSE(a.isEnabled);
  EXPECT_TRUE(a.isSelected);
  changes.isEnabled = true;
  changes.isSelected = false;
  change(a, changes, values_);
  EXPECT_TRUE(a.isEnabled);
  EXPECT_FALSE(a.isSelected);
}

TEST_F(ScreenChangesTest, WhatVanishesVanishesWithAllThatIsInIt) {
  show(R"(<Cell name="a"><Cell name="b"><Button name="c"/></Cell></Cell><Button name="d"/>)");
  const auto hidden = [this] {
    std::string names;
    forEachDescendant(*screen_,
                      [&names](const Element& element) { names += element.isHidden ? element.identifier : ""; });
    return names;
  };
  ChangeElements changes = noChange();
  changes.isVisible = false;
  change(named("a"), changes, values_);
  EXPECT_EQ(hidden(), "abc");
  changes.isVisible = true;
  change(named("b"), changes, values_);
  EXPECT_EQ(hidden(), "a");
  change(named("a"), changes, values_);
  EXPECT_EQ(hidden(), "");
}

TEST_F(ScreenChangesTest, AMovedElementTakesAllAlongAndASizedOneDoesNot) {
  const auto after = [this](std::optional<double> x, std::optional<double> y, std::optional<double> width,
                            std::optional<double> height) {
    show(R"(<Cell name="a" x="10" y="20" width="30" height="40"><Button name="b" x="11" y="22" width="3" height="4"/>
            </Cell>)");
    ChangeElements changes = noChange();
    changes.x = x;
    changes.y = y;
    changes.width = width;
    changes.height = height;
    change(named("a"), changes, values_);
    return std::pair(named("a").frame, named("b").frame);
  };
  const Rect before{{11, 22}, {3, 4}};
  EXPECT_EQ(after(0, {}, {}, {}), std::pair(Rect{{0, 20}, {30, 40}}, Rect{{1, 22}, {3, 4}}));
  EXPECT_EQ(after({}, 120.5, {}, {}), std::pair(Rect{{10, 120.5}, {30, 40}}, Rect{{11, 122.5}, {3, 4}}));
  EXPECT_EQ(after({}, {}, 0, {}), std::pair(Rect{{10, 20}, {0, 40}}, before));
  EXPECT_EQ(after({}, {}, {}, 7), std::pair(Rect{{10, 20}, {30, 7}}, before));
  EXPECT_EQ(after(-10, 0, 1, 2), std::pair(Rect{{-10, 0}, {1, 2}}, Rect{{-9, 2}, {3, 4}}));
}

// Inserting.

TEST_F(ScreenChangesTest, CopiesLieInFrontAndKnowTheirNumbers) {
  show(R"(<Window name="a"/>)");
  const auto fragment = page(R"(<Other name="x" x="1" y="2" width="3" height="4"><Button name="y" x="5" y="6" width="7"
      height="8"/></Other><Button name="z"/>)");
  const std::vector<std::uint64_t> numbers = insertCopies(*fragment, *screen_, Insertion::asCaptured);
  EXPECT_THAT(namesOf("TRUEPREDICATE"), ElementsAre("a", "x", "y", "z"));
  EXPECT_THAT(numbers, ElementsAre(named("x").number, named("z").number));
  EXPECT_NE(named("x").number, fragment->children().front()->number);
  EXPECT_EQ(named("x").frame, (Rect{{1, 2}, {3, 4}}));
  EXPECT_EQ(named("y").frame, (Rect{{5, 6}, {7, 8}}));
  EXPECT_EQ(fragment->children().size(), 2U);
  EXPECT_THAT(insertCopies(*page(""), *screen_, Insertion::atEnd), IsEmpty());
}

constexpr const char* LISTS = R"(<ScrollView name="page" x="0" y="0" width="100" height="200">
    <Table name="list" x="0" y="0" width="100" height="100">
      <Cell name="1" x="0" y="10" width="150" height="150"/></Table>
    <Button name="end" x="0" y="290" width="100" height="10"/></ScrollView>)";

TEST_F(ScreenChangesTest, AsCapturedMeansOnTheContentBeforeItWasScrolled) {
  show(LISTS);
  dragContent(named("1"), {.dx = -20, .dy = -30});
  dragContent(named("end"), {.dx = 0, .dy = -50});
  ASSERT_EQ(named("list").frame.origin, (Point{0, -50}));
  ASSERT_EQ(named("1").frame.origin, (Point{-20, -70}));
  const auto fragment = page(R"(<Other name="x" x="1" y="200" width="3" height="4"/>)");
  insertCopies(*fragment, named("list"), Insertion::asCaptured);
  EXPECT_EQ(named("x").frame.origin, (Point{-19, 120}));
  EXPECT_EQ(named("x").parent(), &named("list"));
  insertCopies(*page(R"(<Other name="y" x="1" y="200" width="3" height="4"/>)"), named("page"), Insertion::asCaptured);
  EXPECT_EQ(named("y").frame.origin, (Point{1, 150}));
}

TEST_F(ScreenChangesTest, AtEndMeansBelowTheContentAsFarAsItIsScrolled) {
  show(LISTS);
  dragContent(named("1"), {.dx = -20, .dy = -30});
  const auto fragment = page(R"(<Cell name="x" x="0" y="70" width="3" height="10"/>
                                <Cell name="y" x="1" y="60" width="3" height="10"><Button name="in" x="1" y="5"/></Cell>)");
  insertCopies(*fragment, named("list"), Insertion::atEnd);
  EXPECT_EQ(named("y").frame.origin, (Point{-19, 130})) << "the upper one, below the row that ends there";
  EXPECT_EQ(named("x").frame.origin, (Point{-20, 140}));
  EXPECT_EQ(named("in").frame.origin, (Point{-19, 75}));
}

TEST_F(ScreenChangesTest, AtEndOfWhatIsEmptyIsItsUpperEdge) {
  show(R"(<Table name="list" x="0" y="30" width="100" height="100"/>)");
  insertCopies(*page(R"(<Cell name="x" x="0" y="70" width="3" height="10"/>)"), named("list"), Insertion::atEnd);
  EXPECT_EQ(named("x").frame.origin, (Point{0, 30}));
}

}  // namespace
}  // namespace quobrak::simulator
