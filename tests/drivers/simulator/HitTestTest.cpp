#include "drivers/simulator/HitTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/simulator/PageSource.h"

namespace quobrak::simulator {
namespace {

constexpr Size SCREEN{100, 200};

/// The elements of a page, in an application of the screen's size.
std::unique_ptr<Element> screenOf(const std::string& elements) {
  return readPageSource(R"(<Application x="0" y="0" width="100" height="200">)" + elements + "</Application>", SCREEN);
}

const Element& elementNamed(const Element& root, std::string_view name) {
  const Element* found = nullptr;
  forEachDescendant(root, [&](const Element& element) {
    if (element.identifier == name) {
      found = &element;
    }
  });
  if (found == nullptr) {
    ADD_FAILURE() << "there is no element " << name;
  }
  return found == nullptr ? root : *found;
}

std::string nameAt(const Element& root, Point point) {
  const Element* const element = elementAt(root, point);
  return element == nullptr ? "nothing" : element->identifier;
}

TEST(HitTest, WhoTakesTheTouch) {
  struct Row {
    std::string_view what;
    std::string elements;
    Point point;
    std::string_view taker;
  };
  const Row ROWS[] = {
      {"an empty screen", "", {50, 50}, "nothing"},
      {"a button", R"(<Button name="a" x="10" y="10" width="20" height="20"/>)", {10, 10}, "a"},
      {"its far edge", R"(<Button name="a" x="10" y="10" width="20" height="20"/>)", {30, 10}, "nothing"},
      {"a later sibling covers",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Button name="b" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "b"},
      {"an element inside another",
       R"(<Cell name="a" x="0" y="0" width="50" height="50">)"
       R"(<Image name="b" x="0" y="0" width="20" height="20"/></Cell>)",
       {10, 10},
       "b"},
      {"beside the element inside",
       R"(<Cell name="a" x="0" y="0" width="50" height="50">)"
       R"(<Image name="b" x="0" y="0" width="20" height="20"/></Cell>)",
       {30, 30},
       "a"},
      {"an unlabelled container lets touches through",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Other name="b" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "a"},
      {"so does an unlabelled element of no known type",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Any name="b" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "a"},
      {"a labelled container does not",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<Other name="b" label="B" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "b"},
      {"a group lets touches through, labelled or not",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<Group name="b" label="B" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "a"},
      {"so does a window",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<Window name="b" label="B" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "a"},
      {"an element that hangs out of its parent",
       R"(<Cell name="a" x="0" y="0" width="20" height="20">)"
       R"(<Button name="b" x="40" y="40" width="20" height="20"/></Cell>)",
       {50, 50},
       "b"},
      {"a scroll view clips",
       R"(<ScrollView name="a" x="0" y="0" width="50" height="50">)"
       R"(<Button name="b" x="0" y="40" width="50" height="40"/></ScrollView>)",
       {25, 60},
       "nothing"},
      {"within the scroll view",
       R"(<ScrollView name="a" x="0" y="0" width="50" height="50">)"
       R"(<Button name="b" x="0" y="40" width="50" height="40"/></ScrollView>)",
       {25, 45},
       "b"},
      {"a table clips",
       R"(<Table name="a" x="0" y="0" width="50" height="50">)"
       R"(<Cell name="b" x="0" y="40" width="50" height="40"/></Table>)",
       {25, 60},
       "nothing"},
      {"a collection view clips",
       R"(<CollectionView name="a" x="0" y="0" width="50" height="50">)"
       R"(<Cell name="b" x="0" y="40" width="50" height="40"/></CollectionView>)",
       {25, 60},
       "nothing"},
      {"a web view clips",
       R"(<WebView name="a" x="0" y="0" width="50" height="50">)"
       R"(<Link name="b" x="0" y="40" width="50" height="40"/></WebView>)",
       {25, 60},
       "nothing"},
      {"clips are cut with one another, through containers",
       R"(<ScrollView name="a" x="0" y="0" width="50" height="50"><Other x="0" y="0" width="90" height="90">)"
       R"(<ScrollView name="b" x="40" y="0" width="50" height="50">)"
       R"(<Button name="c" x="0" y="0" width="100" height="100"/></ScrollView></Other></ScrollView>)",
       {60, 20},
       "nothing"},
      {"an alert takes touches beside it",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Alert name="b" x="60" y="60" width="20" height="20"/>)",
       {25, 25},
       "b"},
      {"so does a sheet, however deep it lies",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<ScrollView x="60" y="60" width="20" height="20">)"
       R"(<Sheet name="b" x="60" y="60" width="20" height="20"/></ScrollView>)",
       {25, 25},
       "b"},
      {"so does a dialog",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Dialog name="b" x="60" y="60" width="20" height="20"/>)",
       {25, 25},
       "b"},
      {"an alert's own button",
       R"(<Alert name="a" x="60" y="60" width="20" height="20">)"
       R"(<Button name="b" x="60" y="60" width="9" height="9"/></Alert>)",
       {65, 65},
       "b"},
      {"a keyboard in front of an alert",
       R"(<Alert name="a" x="60" y="60" width="20" height="20"/>)"
       R"(<Keyboard name="b" x="0" y="150" width="100" height="50"/>)",
       {25, 175},
       "b"},
      {"an element without extent", R"(<Button name="a" x="25" y="25" width="0" height="0"/>)", {25, 25}, "nothing"},
      {"an element at infinity", R"(<Button name="a" x="inf" y="inf" width="10" height="10"/>)", {25, 25}, "nothing"},
      {"a point outside the screen",
       R"(<Button name="a" x="-50" y="-50" width="300" height="300"/>)",
       {-1, 50},
       "nothing"},
      {"a point outside the screen, with an alert",
       R"(<Alert name="a" x="0" y="0" width="50" height="50"/>)",
       {50, 200},
       "nothing"},
      {"an alert without extent, as captures show the one behind another",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Alert name="b" visible="false"/>)",
       {25, 25},
       "a"},
      {"a hidden element",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<Button name="b" visible="false" x="0" y="0" width="50" height="50"/>)",
       {25, 25},
       "a"},
      {"a hidden alert",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<Alert name="b" visible="false" x="60" y="60" width="20" height="20"/>)",
       {25, 25},
       "a"},
      {"a sheet behind a keyboard",
       R"(<Sheet name="a" x="0" y="50" width="100" height="150"/>)"
       R"(<Window x="0" y="0" width="100" height="200"><Keyboard name="b" x="0" y="120" width="100" height="80"/>)"
       "</Window>",
       {50, 100},
       "a"},
  };
  for (const auto& [what, elements, point, taker] : ROWS) {
    EXPECT_EQ(nameAt(*screenOf(elements), point), taker) << what;
  }
}

TEST(HitTest, TheElementOfAChangeableTreeCanBeChanged) {
  const std::unique_ptr<Element> screen = screenOf(R"(<Button name="a" x="0" y="0" width="50" height="50"/>)");
  Element* const touched = elementAt(*screen, {25, 25});
  ASSERT_NE(touched, nullptr);
  touched->label = "touched";
  EXPECT_EQ(elementNamed(*screen, "a").label, "touched");
}

TEST(HitTest, TheHitPointIsTheMiddleOfWhatIsVisible) {
  struct Row {
    std::string_view what;
    std::string elements;
    std::optional<Point> point;
  };
  const Row ROWS[] = {
      {"on the screen", R"(<Button name="a" x="10" y="20" width="30" height="40"/>)", Point{25, 40}},
      {"half off the screen", R"(<Button name="a" x="80" y="-20" width="40" height="40"/>)", Point{90, 10}},
      {"larger than the screen", R"(<Button name="a" x="-100" y="-100" width="900" height="900"/>)", Point{50, 100}},
      {"off the screen", R"(<Button name="a" x="100" y="0" width="40" height="40"/>)", std::nullopt},
      {"without a width", R"(<Button name="a" x="10" y="10" width="0" height="40"/>)", std::nullopt},
      {"at infinity", R"(<Button name="a" x="inf" y="10" width="40" height="40"/>)", std::nullopt},
      {"infinitely wide", R"(<Button name="a" x="20" y="10" width="inf" height="40"/>)", Point{60, 30}},
      {"clipped by a scroll view",
       R"(<ScrollView x="0" y="0" width="50" height="50">)"
       R"(<Button name="a" x="0" y="40" width="50" height="40"/></ScrollView>)",
       Point{25, 45}},
      {"scrolled out of a table",
       R"(<Table x="0" y="0" width="50" height="50"><Cell name="a" x="0" y="60" width="50" height="40"/></Table>)",
       std::nullopt},
      {"a container clips nothing",
       R"(<Cell x="0" y="0" width="50" height="50"><Button name="a" x="0" y="60" width="50" height="40"/></Cell>)",
       Point{25, 80}},
  };
  for (const auto& [what, elements, point] : ROWS) {
    const std::unique_ptr<Element> screen = screenOf(elements);
    EXPECT_EQ(hitPoint(elementNamed(*screen, "a")), point) << what;
  }
}

TEST(HitTest, WhatIsHittable) {
  struct Row {
    std::string_view what;
    std::string elements;
    bool isHittable;
  };
  const Row ROWS[] = {
      {"a button", R"(<Button name="a" x="0" y="0" width="50" height="50"/>)", true},
      {"a disabled button", R"(<Button name="a" enabled="false" x="0" y="0" width="50" height="50"/>)", true},
      {"half off the screen", R"(<Button name="a" x="-40" y="0" width="50" height="50"/>)", true},
      {"off the screen", R"(<Button name="a" x="-50" y="0" width="50" height="50"/>)", false},
      {"without extent", R"(<Button name="a" x="0" y="0" width="0" height="0"/>)", false},
      {"at infinity", R"(<Button name="a" x="inf" y="inf" width="50" height="50"/>)", false},
      {"covered in the middle by a later sibling",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Image x="20" y="20" width="10" height="10"/>)", false},
      {"covered beside the middle",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Image x="0" y="0" width="20" height="20"/>)", true},
      {"in front of an earlier sibling",
       R"(<Image x="0" y="0" width="50" height="50"/><Button name="a" x="0" y="0" width="50" height="50"/>)", true},
      {"below an unlabelled container",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Other x="0" y="0" width="50" height="50"/>)", true},
      {"a cell with a text in its middle",
       R"(<Cell name="a" x="0" y="0" width="50" height="50"><StaticText x="20" y="20" width="10" height="10"/></Cell>)",
       true},
      {"the only child of a cell, as large as the cell",
       R"(<Cell x="0" y="0" width="50" height="50"><Button name="a" x="0" y="0" width="50" height="50"/></Cell>)",
       true},
      {"scrolled half into view",
       R"(<Table x="0" y="0" width="50" height="50"><Cell name="a" x="0" y="40" width="50" height="40"/></Table>)",
       true},
      {"scrolled out of view",
       R"(<Table x="0" y="0" width="50" height="50"><Cell name="a" x="0" y="60" width="50" height="40"/></Table>)",
       false},
      {"behind an alert that lies elsewhere",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Alert x="60" y="60" width="20" height="20"/>)", false},
      {"behind a sheet that lies elsewhere",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/><Sheet x="60" y="60" width="20" height="20"/>)", false},
      {"in the alert",
       R"(<Alert x="0" y="0" width="50" height="50"><Button name="a" x="0" y="0" width="50" height="50"/></Alert>)",
       true},
      {"a hidden element", R"(<Button name="a" visible="false" x="0" y="0" width="50" height="50"/>)", false},
      {"behind a hidden element",
       R"(<Button name="a" x="0" y="0" width="50" height="50"/>)"
       R"(<Button visible="false" x="0" y="0" width="50" height="50"/>)",
       true},
      {"behind a keyboard",
       R"(<Button name="a" x="0" y="150" width="50" height="50"/>)"
       R"(<Window x="0" y="0" width="100" height="200"><Keyboard x="0" y="120" width="100" height="80"/></Window>)",
       false},
      {"on a keyboard, in front of an alert",
       R"(<Alert x="0" y="0" width="50" height="50"/><Keyboard x="0" y="120" width="100" height="80">)"
       R"(<Key name="a" x="0" y="120" width="10" height="20"/></Keyboard>)",
       true},
      {"the alert itself", R"(<Alert name="a" x="0" y="0" width="50" height="50"/>)", true},
      {"in the alert behind another",
       R"(<Alert x="0" y="0" width="50" height="50">)"
       R"(<Button name="a" x="0" y="0" width="50" height="50"/></Alert><Alert x="0" y="60" width="50" height="50"/>)",
       false},
      {"an unlabelled container with nothing in it", R"(<Other name="a" x="0" y="0" width="50" height="50"/>)", true},
      {"an unlabelled container in front of a button",
       R"(<Button x="0" y="0" width="50" height="50"/><Other name="a" x="0" y="0" width="50" height="50"/>)", true},
      {"an unlabelled container behind a button",
       R"(<Other name="a" x="0" y="0" width="50" height="50"/><Button x="0" y="0" width="50" height="50"/>)", false},
      {"an unlabelled container whose own button lies behind another",
       R"(<Other name="a" x="0" y="0" width="50" height="50"><Button x="0" y="0" width="50" height="50"/></Other>)"
       R"(<Button x="0" y="0" width="50" height="50"/>)",
       false},
      {"an unlabelled container in a cell",
       R"(<Cell x="0" y="0" width="50" height="50"><Other name="a" x="0" y="0" width="50" height="50"/></Cell>)", true},
      {"an unlabelled container in an alert",
       R"(<Alert x="0" y="0" width="50" height="50"><Other name="a" x="0" y="0" width="50" height="50"/></Alert>)",
       true},
      {"a window", R"(<Window name="a" x="0" y="0" width="100" height="200"><Button width="9" height="9"/></Window>)",
       true},
  };
  for (const auto& [what, elements, expected] : ROWS) {
    const std::unique_ptr<Element> screen = screenOf(elements);
    EXPECT_EQ(isHittable(elementNamed(*screen, "a")), expected) << what;
  }
}

TEST(HitTest, TheApplicationItselfIsHittable) {
  EXPECT_TRUE(isHittable(*screenOf(R"(<Button x="0" y="0" width="50" height="50"/>)")));
}

}  // namespace
}  // namespace quobrak::simulator
