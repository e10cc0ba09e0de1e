#include "drivers/simulator/HiddenElements.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "drivers/simulator/PageSource.h"

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

}  // namespace
}  // namespace quobrak::simulator
