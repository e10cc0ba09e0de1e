#include "drivers/simulator/Scrolling.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "drivers/simulator/PageSource.h"

namespace quobrak::simulator {
namespace {

constexpr Size SCREEN{100, 200};
constexpr Rect WHOLE{{0, 0}, SCREEN};
constexpr FingerMove UP{.dx = 0, .dy = -10};
constexpr FingerMove DOWN{.dx = 0, .dy = 10};
constexpr FingerMove LEFT{.dx = -10, .dy = 0};
constexpr FingerMove RIGHT{.dx = 10, .dy = 0};
constexpr FingerMove FAR_UP{.dx = 0, .dy = -1000};
constexpr FingerMove FAR_DOWN{.dx = 0, .dy = 1000};
constexpr FingerMove FAR_LEFT{.dx = -1000, .dy = 0};

class Scrolling : public ::testing::Test {
 protected:
  void show(const std::string& elements) {
    screen_ =
        readPageSource(R"(<Application x="0" y="0" width="100" height="200">)" + elements + "</Application>", SCREEN);
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

  Point placeOf(std::string_view name) { return named(name).frame.origin; }

  std::unique_ptr<Element> screen_;
};

/// A list of that type from 50 to 150 with three rows of 60 points.
std::string list(const std::string& type = "Table") {
  return "<" + type + R"( name="list" x="0" y="50" width="100" height="100">
      <Cell name="1" x="0" y="50" width="100" height="60"><Image name="in 1" x="5" y="55" width="9" height="9"/></Cell>
      <Cell name="2" x="0" y="110" width="100" height="60"/>
      <Cell name="3" x="0" y="170" width="100" height="60"/></)" +
         type + ">";
}

TEST_F(Scrolling, ContentFollowsTheFingerWithAllThatIsInIt) {
  for (const char* type : {"ScrollView", "Table", "CollectionView", "WebView", "TextView"}) {
    show(list(type));
    EXPECT_TRUE(scrolls(named("list").type)) << type;
    EXPECT_TRUE(dragContent(named("in 1"), {.dx = 3, .dy = -25})) << type;
    EXPECT_EQ(placeOf("1"), (Point{0, 25})) << type;
    EXPECT_EQ(placeOf("in 1"), (Point{5, 30})) << type;
    EXPECT_EQ(placeOf("3"), (Point{0, 145})) << type;
    EXPECT_EQ(placeOf("list"), (Point{0, 50})) << type;
    EXPECT_EQ(named("list").scrolled, (Point{0, -25})) << type;
  }
}

TEST_F(Scrolling, OtherContainersHoldTheirContentWhereItIs) {
  for (const char* type : {"Other", "Cell", "Window", "Picker"}) {
    show(list(type));
    EXPECT_FALSE(scrolls(named("list").type)) << type;
    EXPECT_FALSE(dragContent(named("2"), UP)) << type;
    EXPECT_EQ(placeOf("2"), (Point{0, 110})) << type;
  }
}

TEST_F(Scrolling, EndsWhereTheContentEnds) {
  show(list());
  EXPECT_FALSE(dragContent(named("2"), DOWN));
  EXPECT_TRUE(dragContent(named("2"), FAR_UP));
  EXPECT_EQ(placeOf("3"), (Point{0, 90})) << "its end is the list's";
  EXPECT_FALSE(dragContent(named("2"), UP));
  EXPECT_TRUE(dragContent(named("2"), DOWN));
  EXPECT_TRUE(dragContent(named("2"), FAR_DOWN));
  EXPECT_EQ(placeOf("1"), (Point{0, 50}));
  EXPECT_FALSE(dragContent(named("2"), DOWN));
}

TEST_F(Scrolling, SidewaysToo) {
  show(R"(<CollectionView name="list" x="10" y="0" width="80" height="50">
      <Cell name="1" x="10" y="0" width="80" height="50"/><Cell name="2" x="90" y="0" width="80" height="50"/>
      </CollectionView>)");
  EXPECT_FALSE(dragContent(named("1"), RIGHT));
  EXPECT_FALSE(dragContent(named("1"), UP));
  EXPECT_TRUE(dragContent(named("1"), {.dx = -30, .dy = 20}));
  EXPECT_EQ(placeOf("2"), (Point{60, 0}));
  EXPECT_TRUE(dragContent(named("1"), FAR_LEFT));
  EXPECT_EQ(placeOf("2"), (Point{10, 0}));
}

TEST_F(Scrolling, InBothDirectionsAtOnceWhereThereIsContentInBoth) {
  show(R"(<ScrollView name="map" x="0" y="0" width="100" height="100">
      <Image name="content" x="-50" y="-50" width="300" height="300"/></ScrollView>)");
  EXPECT_TRUE(dragContent(named("content"), {.dx = 30, .dy = -20}));
  EXPECT_EQ(placeOf("content"), (Point{-20, -70}));
  EXPECT_TRUE(dragContent(named("content"), {.dx = 500, .dy = 500}));
  EXPECT_EQ(placeOf("content"), (Point{0, 0})) << "what was beside the frame can be seen, and no more";
}

TEST_F(Scrolling, ContentThatBeganBelowTheEdgeReturnsThere) {
  show(R"(<Table name="list" x="0" y="0" width="100" height="100">
      <Cell name="1" x="0" y="40" width="100" height="100"/></Table>)");
  EXPECT_TRUE(dragContent(named("1"), FAR_UP));
  EXPECT_EQ(placeOf("1"), (Point{0, 0}));
  EXPECT_TRUE(dragContent(named("1"), FAR_DOWN));
  EXPECT_EQ(placeOf("1"), (Point{0, 40}));
}

TEST_F(Scrolling, ContentThatFitsStays) {
  show(R"(<ScrollView name="list" x="0" y="0" width="100" height="100">
      <Cell name="1" x="0" y="0" width="100" height="100"/></ScrollView>)");
  for (const FingerMove move : {UP, DOWN, LEFT, RIGHT}) {
    EXPECT_FALSE(dragContent(named("1"), move));
  }
}

TEST_F(Scrolling, WhatHasNoExtentIsNoContent) {
  show(R"(<ScrollView name="list" x="0" y="0" width="100" height="100">
      <Other name="1" x="0" y="900" width="0" height="0"/><Other x="0" y="0" width="10" height="inf"/>
      <Other x="inf" y="inf" width="10" height="10"/></ScrollView><ScrollView name="empty"/>)");
  EXPECT_FALSE(dragContent(named("list"), UP));
  EXPECT_FALSE(dragContent(named("empty"), UP));
  EXPECT_FALSE(swipeContent(named("empty"), SwipeDirection::up, WHOLE));
  EXPECT_EQ(placeOf("1"), (Point{0, 900}));
}

TEST_F(Scrolling, WhatLiesDeepInTheContentCounts) {
  show(R"(<ScrollView name="list" x="0" y="0" width="100" height="100"><Other x="0" y="0" width="100" height="100">
      <Other><Button name="deep" x="0" y="150" width="50" height="50"/></Other></Other></ScrollView>)");
  EXPECT_TRUE(dragContent(named("list"), FAR_UP));
  EXPECT_EQ(placeOf("deep"), (Point{0, 50}));
}

TEST_F(Scrolling, ContentIsScrolledClearOfABarInFrontOfTheLowerEdge) {
  struct Row {
    const char* what;
    std::string bar;
    double lastRow;
  };
  const std::string whole = R"( x="0" y="130" width="100" height="30"/>)";
  const Row ROWS[] = {
      {"no bar", "", 90},
      {"a tab bar", "<TabBar" + whole, 70},
      {"a toolbar", "<Toolbar" + whole, 70},
      {"another bar in front of it", "<TabBar" + whole + R"(<Toolbar x="0" y="110" width="100" height="60"/>)", 50},
      {"what is no bar", "<Button" + whole, 90},
      {"a hidden bar", R"(<TabBar visible="false" x="0" y="130" width="100" height="30"/>)", 90},
      {"a bar above the edge", R"(<Toolbar x="0" y="100" width="100" height="30"/>)", 90},
      {"a bar over all of it", R"(<Toolbar x="0" y="50" width="100" height="100"/>)", 90},
      {"a bar below it", R"(<TabBar x="0" y="150" width="100" height="50"/>)", 90},
  };
  for (const auto& [what, bar, lastRow] : ROWS) {
    show(list() + bar);
    EXPECT_TRUE(dragContent(named("2"), FAR_UP)) << what;
    EXPECT_EQ(placeOf("3"), (Point{0, lastRow})) << what;
  }
  show("<TabBar" + whole + list());
  EXPECT_TRUE(dragContent(named("2"), FAR_UP));
  EXPECT_EQ(placeOf("3"), (Point{0, 90})) << "the bar lies behind the list";
}

TEST_F(Scrolling, ContentThatFitsStaysUnderABar) {
  show(R"(<Table name="list" x="0" y="0" width="100" height="200"><Cell name="1" x="0" y="0" width="100" height="200"/>
      </Table><TabBar x="0" y="150" width="100" height="50"/>)");
  EXPECT_FALSE(dragContent(named("1"), UP));
}

/// A page of 300 points with a strip of 300 points in it, on a screen of 200 by 100.
constexpr const char* NESTED = R"(<ScrollView name="page" x="0" y="0" width="100" height="200">
    <CollectionView name="strip" x="0" y="0" width="100" height="50">
      <Cell name="first" x="0" y="0" width="100" height="50"/><Cell name="third" x="200" y="0" width="100" height="50"/>
    </CollectionView>
    <Table name="inner" x="0" y="50" width="100" height="50">
      <Cell name="row" x="0" y="50" width="100" height="70"/></Table>
    <Button name="end" x="0" y="280" width="100" height="20"/></ScrollView>)";

TEST_F(Scrolling, OfNestedElementsTheOneThatCanMoveInTheFingersDirectionDoes) {
  show(NESTED);
  EXPECT_TRUE(dragContent(named("first"), {.dx = -40, .dy = -10}));
  EXPECT_EQ(placeOf("third"), (Point{160, 0}));
  EXPECT_EQ(placeOf("strip"), (Point{0, 0}));
  EXPECT_TRUE(dragContent(named("first"), {.dx = -10, .dy = -40})) << "the strip cannot move upwards";
  EXPECT_EQ(placeOf("third"), (Point{160, -40}));
  EXPECT_EQ(placeOf("strip"), (Point{0, -40}));
}

TEST_F(Scrolling, AnInnerElementAtItsEndLeavesTheNextMoveToTheOuterOne) {
  show(NESTED);
  EXPECT_TRUE(dragContent(named("row"), {.dx = 0, .dy = -30}));
  EXPECT_EQ(placeOf("row"), (Point{0, 30})) << "by the 20 points that it has";
  EXPECT_EQ(placeOf("inner"), (Point{0, 50}));
  EXPECT_TRUE(dragContent(named("row"), {.dx = 0, .dy = -30}));
  EXPECT_EQ(placeOf("row"), (Point{0, 0}));
  EXPECT_EQ(placeOf("inner"), (Point{0, 20}));
  EXPECT_TRUE(dragContent(named("row"), {.dx = 0, .dy = 15}));
  EXPECT_EQ(placeOf("row"), (Point{0, 15})) << "it was carried along and knows where it is";
  EXPECT_EQ(placeOf("inner"), (Point{0, 20}));
}

TEST_F(Scrolling, WhatAnInnerElementHidesIsNotContentOfTheOuterOne) {
  show(NESTED);
  EXPECT_FALSE(dragContent(named("end"), FAR_LEFT));
  EXPECT_TRUE(dragContent(named("end"), FAR_UP));
  EXPECT_EQ(placeOf("end"), (Point{0, 180}));
}

TEST_F(Scrolling, ScrollBarsStayAndTellTheWayInPercent) {
  show(R"(<Table name="list" x="0" y="0" width="100" height="100">
      <Cell name="1" x="0" y="0" width="100" height="300"/>
      <Other name="down" label="Vertical scroll bar, 3 pages" value="0%" x="90" y="0" width="10" height="500"/>
      <Other name="across" label="Horizontal scroll bar, 1 page" value="0%" x="0" y="90" width="100" height="10"/>
      </Table>)");
  EXPECT_TRUE(dragContent(named("1"), {.dx = 0, .dy = -50}));
  EXPECT_EQ(placeOf("down"), (Point{90, 0}));
  EXPECT_EQ(named("down").value, "25%");
  EXPECT_EQ(named("across").value, "0%");
  EXPECT_TRUE(dragContent(named("1"), FAR_UP));
  EXPECT_EQ(placeOf("1"), (Point{0, -200}));
  EXPECT_EQ(named("down").value, "100%");
}

TEST_F(Scrolling, ASwipeMovesByThreeQuartersOfWhatIsSeen) {
  show(list());
  EXPECT_TRUE(swipeContent(named("in 1"), SwipeDirection::up, WHOLE));
  EXPECT_EQ(placeOf("1"), (Point{0, -25}));
  EXPECT_TRUE(swipeContent(named("2"), SwipeDirection::up, WHOLE));
  EXPECT_EQ(placeOf("3"), (Point{0, 90}));
  EXPECT_FALSE(swipeContent(named("2"), SwipeDirection::up, WHOLE));
  EXPECT_FALSE(swipeContent(named("2"), SwipeDirection::left, WHOLE));
  EXPECT_FALSE(swipeContent(named("2"), SwipeDirection::right, WHOLE));
  EXPECT_TRUE(swipeContent(named("2"), SwipeDirection::down, WHOLE));
  EXPECT_EQ(placeOf("3"), (Point{0, 165}));
}

TEST_F(Scrolling, ASwipeCountsOnlyWhatIsSeen) {
  show(list());
  EXPECT_TRUE(swipeContent(named("2"), SwipeDirection::up, {{0, 0}, {100, 70}}));
  EXPECT_EQ(placeOf("1"), (Point{0, 35}));
  show(R"(<ScrollView x="0" y="0" width="100" height="40"><Table name="list" x="0" y="0" width="100" height="100">
      <Cell name="1" x="0" y="0" width="100" height="500"/></Table></ScrollView>)");
  EXPECT_TRUE(swipeContent(named("1"), SwipeDirection::up, WHOLE));
  EXPECT_EQ(placeOf("1"), (Point{0, -30})) << "of the list 40 points are seen";
  show(R"(<ScrollView name="list" x="-100" y="0" width="200" height="200">
      <Button name="b" x="0" y="0" width="1000" height="200"/></ScrollView>)");
  EXPECT_TRUE(swipeContent(named("b"), SwipeDirection::left, WHOLE));
  EXPECT_EQ(placeOf("b"), (Point{-75, 0}));
}

TEST_F(Scrolling, WhoseContentMovedIsTold) {
  show(NESTED);
  EXPECT_EQ(dragContent(named("row"), {.dx = 0, .dy = -30}), &named("inner"));
  EXPECT_EQ(dragContent(named("row"), {.dx = 0, .dy = -30}), &named("page"));
  EXPECT_EQ(dragContent(named("first"), LEFT), &named("strip"));
  EXPECT_EQ(dragContent(named("first"), UP), &named("page"));
  EXPECT_EQ(dragContent(named("end"), LEFT), nullptr);
  show(NESTED);
  EXPECT_EQ(swipeContent(named("row"), SwipeDirection::up, WHOLE), &named("inner"));
  EXPECT_EQ(swipeContent(named("row"), SwipeDirection::up, WHOLE), &named("page"));
  EXPECT_EQ(swipeContent(named("row"), SwipeDirection::left, WHOLE), nullptr);
}

TEST_F(Scrolling, AShiftedElementTakesAllAlong) {
  show(list());
  shift(named("1"), {.dx = 2.5, .dy = -7});
  EXPECT_EQ(named("1").frame, (Rect{{2.5, 43}, {100, 60}}));
  EXPECT_EQ(named("in 1").frame, (Rect{{7.5, 48}, {9, 9}}));
  EXPECT_EQ(placeOf("2"), (Point{0, 110}));
  EXPECT_EQ(placeOf("list"), (Point{0, 50}));
}

TEST_F(Scrolling, AnEndIsWhereTheContentCanGoNoFurther) {
  show(list());
  EXPECT_TRUE(isScrolledTo(named("list"), ScrollEnd::start));
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::end));
  dragContent(named("1"), UP);
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::start));
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::end));
  dragContent(named("1"), FAR_UP);
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::start));
  EXPECT_TRUE(isScrolledTo(named("list"), ScrollEnd::end));
  dragContent(named("1"), FAR_DOWN);
  EXPECT_TRUE(isScrolledTo(named("list"), ScrollEnd::start));
}

TEST_F(Scrolling, TheEndsAreThoseSidewaysWhereItOnlyScrollsThere) {
  show(R"(<CollectionView name="list" x="0" y="0" width="100" height="50">
      <Cell name="1" x="0" y="0" width="300" height="50"/></CollectionView>)");
  EXPECT_TRUE(isScrolledTo(named("list"), ScrollEnd::start));
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::end));
  dragContent(named("1"), FAR_LEFT);
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::start));
  EXPECT_TRUE(isScrolledTo(named("list"), ScrollEnd::end));
}

TEST_F(Scrolling, OfBothDirectionsTheEndsAreThoseUpAndDown) {
  show(R"(<ScrollView name="map" x="0" y="0" width="100" height="100">
      <Image name="content" x="0" y="0" width="300" height="300"/></ScrollView>)");
  dragContent(named("content"), FAR_LEFT);
  EXPECT_TRUE(isScrolledTo(named("map"), ScrollEnd::start));
  EXPECT_FALSE(isScrolledTo(named("map"), ScrollEnd::end));
  dragContent(named("content"), FAR_UP);
  EXPECT_TRUE(isScrolledTo(named("map"), ScrollEnd::end));
}

TEST_F(Scrolling, AnEndClearOfABarIsOne) {
  show(list() + R"(<TabBar x="0" y="130" width="100" height="30"/>)");
  dragContent(named("1"), {.dx = 0, .dy = -80});
  EXPECT_FALSE(isScrolledTo(named("list"), ScrollEnd::end)) << "the last row is still behind the bar";
  dragContent(named("1"), FAR_UP);
  EXPECT_TRUE(isScrolledTo(named("list"), ScrollEnd::end));
}

TEST_F(Scrolling, WhatDoesNotScrollHasNoEnds) {
  show(R"(<ScrollView name="list" x="0" y="0" width="100" height="100">
      <Cell name="1" x="0" y="0" width="100" height="100"/></ScrollView><ScrollView name="empty"/>)");
  for (const ScrollEnd end : {ScrollEnd::start, ScrollEnd::end}) {
    EXPECT_FALSE(isScrolledTo(named("list"), end));
    EXPECT_FALSE(isScrolledTo(named("empty"), end));
  }
}

TEST_F(Scrolling, TheLowerEdgeOfContent) {
  show(list() + R"(<Other name="empty" x="0" y="30" width="10" height="10"/>
      <ScrollView name="outer" x="0" y="0" width="100" height="50">
        <Other x="0" y="0" width="0" height="900"/>
        <Table x="0" y="10" width="100" height="20"><Cell x="0" y="0" width="100" height="500"/></Table>
        <Other x="0" y="0" width="100" height="5"><Button x="0" y="20" width="10" height="25"/></Other></ScrollView>
      <Other name="above" x="0" y="100" width="10" height="10"><Button x="0" y="0" width="10" height="10"/></Other>)");
  EXPECT_EQ(lowerEdgeOfContent(named("list")), 230);
  EXPECT_EQ(lowerEdgeOfContent(named("empty")), 30);
  EXPECT_EQ(lowerEdgeOfContent(named("outer")), 45) << "what is in a list of its own, or without extent, is no part";
  EXPECT_EQ(lowerEdgeOfContent(named("above")), 100) << "its own upper edge, where all is above that";
  dragContent(named("1"), UP);
  EXPECT_EQ(lowerEdgeOfContent(named("list")), 220);
}

}  // namespace
}  // namespace quobrak::simulator
