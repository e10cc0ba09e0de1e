#include "drivers/simulator/HiddenElements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Rectangles.h"

namespace quobrak::simulator {
namespace {

constexpr Size SCREEN{100, 200};

std::unique_ptr<Element> screenOf(const std::string& elements) {
  return readPageSource(
      R"(<Application x="0" y="0" width="100" height="200" visible="true">)" + elements + "</Application>", SCREEN);
}

TEST(HiddenElements, WhatIsInvisibleForNoReasonThatCanBeSeenIsHidden) {
  struct Row {
    const char* what;
    const char* elements;
    bool isHidden;
  };
  const Row ROWS[] = {
      {"a visible element", R"(<Button name="a" visible="true" x="0" y="0" width="50" height="50"/>)", false},
      {"an element of which it is not said", R"(<Button name="a" x="0" y="0" width="50" height="50"/>)", false},
      {"an invisible one", R"(<Button name="a" visible="false" x="0" y="0" width="50" height="50"/>)", true},
      {"outside the screen", R"(<Button name="a" visible="false" x="0" y="200" width="50" height="50"/>)", false},
      {"partly outside", R"(<Button name="a" visible="false" x="0" y="180" width="50" height="50"/>)", true},
      {"without extent", R"(<Button name="a" visible="false" x="0" y="0" width="0" height="50"/>)", false},
      {"scrolled away",
       R"(<Table x="0" y="0" width="100" height="50">
          <Cell name="a" visible="false" x="0" y="50" width="100" height="50"/></Table>)",
       false},
      {"under an alert",
       R"(<Button name="a" visible="false" x="0" y="0" width="50" height="50"/>
          <Alert visible="true" x="60" y="60" width="20" height="20"/>)",
       false},
      {"under a keyboard",
       R"(<Button name="a" visible="false" x="0" y="150" width="50" height="50"/>
          <Keyboard visible="true" x="0" y="100" width="100" height="100"/>)",
       false},
      {"under a bar",
       R"(<Cell name="a" visible="false" x="0" y="150" width="100" height="50"/>
          <TabBar visible="true" x="0" y="150" width="100" height="50"/>)",
       false},
      {"under what is invisible too",
       R"(<Button name="a" visible="false" x="0" y="0" width="50" height="50"/>
          <Button visible="false" x="0" y="0" width="50" height="50"/>)",
       true},
      {"under what lets touches through",
       R"(<Button name="a" visible="false" x="0" y="0" width="50" height="50"/>
          <Other visible="true" x="0" y="0" width="50" height="50"/>)",
       true},
      {"in front of something",
       R"(<Button visible="true" x="0" y="0" width="50" height="50"/>
          <Button name="a" visible="false" x="0" y="0" width="50" height="50"/>)",
       true},
      {"around something visible",
       R"(<CollectionView name="a" visible="false" x="0" y="0" width="100" height="50">
          <Other visible="false"><Cell visible="true" x="0" y="0" width="50" height="50"/></Other></CollectionView>)",
       false},
      {"around what is invisible",
       R"(<CollectionView name="a" visible="false" x="0" y="0" width="100" height="50">
          <Cell visible="false" x="0" y="0" width="50" height="50"/></CollectionView>)",
       true},
      {"in an invisible element",
       R"(<CollectionView visible="false" x="0" y="0" width="100" height="50">
          <Cell name="a" visible="false" x="0" y="0" width="50" height="50"/></CollectionView>)",
       true},
      {"what a visible row shows",
       R"(<Cell visible="true" x="0" y="50" width="100" height="50"><Other>
          <Image name="a" visible="false" x="80" y="70" width="10" height="10"/></Other></Cell>)",
       false},
      {"what an invisible row shows",
       R"(<Cell visible="false" x="0" y="50" width="100" height="50">
          <Image name="a" visible="false" x="80" y="70" width="10" height="10"/></Cell>)",
       true},
      {"what a row away from the screen has not placed yet",
       R"(<Cell visible="true" x="0" y="250" width="100" height="50">
          <Switch name="a" visible="false" x="0" y="0" width="50" height="30"/></Cell>)",
       true},
  };
  for (const auto& [what, elements, isHidden] : ROWS) {
    const auto screen = screenOf(elements);
    int found = 0;
    forEachDescendant(*screen, [&, expected = isHidden, text = what](const Element& element) {
      if (element.identifier == "a") {
        ++found;
        EXPECT_EQ(element.isHidden, expected) << text;
      }
    });
    EXPECT_EQ(found, 1) << what;
  }
}

TEST(HiddenElements, ATreesRootIsNeverHidden) {
  const auto screen = readPageSource(R"(<Application visible="false" x="0" y="0" width="100" height="200"/>)", SCREEN);
  EXPECT_FALSE(screen->isHidden);
  const auto wrapped = readPageSource(R"(<Button visible="false" x="0" y="0" width="100" height="200"/>)", SCREEN);
  EXPECT_TRUE(wrapped->children().front()->isHidden);
}

using Elements = std::vector<Element*>;

bool isAmong(const Elements& elements, const Element* element) {
  return std::find(elements.begin(), elements.end(), element) != elements.end();
}

bool isInVisibleRow(const Element& element, const Elements& invisible) {
  const Element* row = element.parent();
  while (row != nullptr && row->type != ElementType::cell) {
    row = row->parent();
  }
  return row != nullptr && !isAmong(invisible, row) && contains(row->frame, *hitPoint(element));
}

bool holdsVisible(const Element& element, const Elements& invisible) {
  bool isFound = false;
  forEachDescendant(element, [&](const Element& below) { isFound = isFound || !isAmong(invisible, &below); });
  return isFound;
}

/// What is to be hidden, each element looked at on its own.
Elements hiddenOneByOne(Element& root, const Elements& invisible) {
  Elements candidates;
  std::copy_if(invisible.begin(), invisible.end(), std::back_inserter(candidates), [&](const Element* element) {
    return element != &root && hitPoint(*element) && !isInVisibleRow(*element, invisible) &&
           !holdsVisible(*element, invisible);
  });
  for (Element* const element : candidates) {
    element->isHidden = true;
  }
  Elements hidden;
  std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(hidden),
               [](const Element* element) { return !isCovered(*element); });
  for (Element* const element : candidates) {
    element->isHidden = false;
  }
  return hidden;
}

/// A screen of elements that overlap at random, and those of them that are called invisible.
struct RandomScreen {
  explicit RandomScreen(unsigned seed) {
    constexpr ElementType TYPES[] = {ElementType::other, ElementType::button, ElementType::cell, ElementType::table,
                                     ElementType::alert, ElementType::cell,   ElementType::other};
    std::mt19937 generator(seed);
    const auto below = [&generator](std::size_t end) { return static_cast<std::size_t>(generator() % end); };
    root->frame = {{0, 0}, SCREEN};
    Elements parents{root.get()};
    for (int count = 0; count < 60; ++count) {
      Element& element = parents[below(parents.size())]->append(TYPES[below(std::size(TYPES))]);
      const auto length = [&below] { return 12.5 * static_cast<double>(below(9)); };
      element.frame = {{length() - 10, length() - 10}, {length(), length()}};
      element.label = below(3) == 0 ? "named" : "";
      parents.push_back(&element);
    }
    forEachDescendant(*root, [&](Element& element) {
      if (below(2) == 0) {
        invisible.push_back(&element);
      }
    });
  }

  std::unique_ptr<Element> root = std::make_unique<Element>(ElementType::application);
  Elements invisible;
};

TEST(HiddenElements, AreFoundTogetherAsOneByOne) {
  std::size_t hidden = 0;
  std::size_t seen = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    const RandomScreen screen(seed);
    const Elements expected = hiddenOneByOne(*screen.root, screen.invisible);
    hideInvisible(*screen.root, screen.invisible);
    forEachDescendant(*screen.root, [&](Element& element) {
      EXPECT_EQ(element.isHidden, isAmong(expected, &element)) << "screen " << seed << ", element " << element.number;
    });
    hidden += expected.size();
    seen += screen.invisible.size() - expected.size();
  }
  EXPECT_GT(hidden, 500);
  EXPECT_GT(seen, 1000);
}

}  // namespace
}  // namespace quobrak::simulator
