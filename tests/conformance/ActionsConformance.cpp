#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* PAGE = R"(
  <Button name="ok" label="OK" x="0" y="0" width="50" height="50"/>
  <Switch name="switch" value="0" x="50" y="0" width="50" height="50"/>
  <Button name="below" x="0" y="50" width="50" height="20"/>
  <Button name="above" x="0" y="50" width="50" height="20"/>
  <ScrollView name="list" x="0" y="70" width="100" height="60">
    <Button name="top" x="0" y="70" width="100" height="30"/>
    <Button name="middle" x="0" y="100" width="100" height="90"/>
    <Button name="bottom" x="0" y="190" width="100" height="30"/>
  </ScrollView>
  <Button name="outside" x="500" y="0" width="50" height="50"/>)";

constexpr const char* FORM = R"(
  <TextField name="field" placeholderValue="Name" x="0" y="0" width="100" height="20"/>
  <Other name="group" x="0" y="20" width="100" height="20">
    <TextField name="inner" value="Ada" x="0" y="20" width="100" height="20"/>
  </Other>
  <Button name="ok" x="0" y="40" width="50" height="20"/>)";

class Actions : public ConformanceTest {};

TEST_F(Actions, ATapAndAPressLandAtTheHitPoint) {
  start(PAGE);
  named("ok").tap();
  named("switch").tap();
  EXPECT_EQ(named("switch").value(), ElementValue("1"));
  named("switch").press(2s);
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
  EXPECT_THAT(touched, ElementsAre("ok", "switch", "switch"));
  EXPECT_EQ(elapsed(), 2s);
}

TEST_F(Actions, ATapDoesNotAskWhetherTheElementIsHittable) {
  start(PAGE);
  named("below").tap();
  EXPECT_THAT(touched, ElementsAre("above"));
}

TEST_F(Actions, OnAnAbsentElementRaise) {
  start(PAGE);
  const XCUIElement absent = named("nobody");
  const std::string target = describe(absent);
  expectDriverError([&] { absent.tap(); }, "tap", target);
  expectDriverError([&] { absent.press(1s); }, "press", target);
  expectDriverError([&] { absent.typeText("a"); }, "typeText", target);
  expectDriverError([&] { absent.swipe(SwipeDirection::up); }, "swipe", target);
  const XCUICoordinate point = absent.coordinate({0.5, 0.5});
  expectDriverError([&] { point.tap(); }, "tap", describe(point));
  expectDriverError([&] { point.press(1s); }, "press", describe(point));
  const XCUICoordinate there = APP.coordinate({0.5, 0.5});
  expectDriverError([&] { point.pressThenDrag(0s, there); }, "pressThenDrag", describe(point));
  EXPECT_THROW(there.pressThenDrag(0s, point), UIAutomationError);
  EXPECT_THAT(touched, IsEmpty());
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(Actions, OnAnApplicationThatDoesNotRunRaise) {
  switchOn(PAGE);
  expectDriverError([] { APP.tap(); }, "tap", R"(the application "com.example.test")");
  expectDriverError([] { APP.buttons().firstMatch().tap(); }, "tap", "the element (first) of the Button descendants");
  expectDriverError([] { APP.typeText("a"); }, "typeText", R"(the application "com.example.test")");
  expectDriverError([] { APP.swipe(SwipeDirection::up); }, "swipe", R"(the application "com.example.test")");
}

TEST_F(Actions, APressTakesItsDuration) {
  start(PAGE);
  struct Row {
    double duration;
    std::chrono::milliseconds elapsed;
  };
  for (const auto& [duration, expected] :
       {Row{1.5, 1500ms}, Row{0, 0ms}, Row{-1, 0ms}, Row{NOT_A_NUMBER, 0ms}, Row{-INFINITE, 0ms}}) {
    restartTime();
    named("ok").press(Seconds(duration));
    EXPECT_EQ(elapsed(), expected) << duration;
    named("ok").coordinate({0.5, 0.5}).press(Seconds(duration));
    EXPECT_EQ(elapsed(), 2 * expected) << duration;
  }
  EXPECT_EQ(touched, std::vector<std::string>(10, "ok"));
}

TEST_F(Actions, ATapOnAPointLandsWithinTheElementOrBesideIt) {
  start(PAGE);
  named("ok").coordinate({0.9, 0.9}).tap();
  named("ok").coordinate({1.5, 0.5}).tap();
  named("below").coordinate({0.5, 0.5}).press(100ms);
  named("outside").coordinate({-9, 0.5}).tap();
  EXPECT_THAT(touched, ElementsAre("ok", "switch", "above", "switch"));
}

TEST_F(Actions, APointOutsideTheScreenOrNotFiniteLandsOnNothing) {
  start(R"(<Switch name="switch" value="0" x="-500" y="-500" width="2000" height="2000"/>)");
  for (const NormalizedOffset offset : {NormalizedOffset{-0.1, 0.5}, NormalizedOffset{1, 0.5}, NormalizedOffset{0.5, 7},
                                        NormalizedOffset{INFINITE, 0.5}, NormalizedOffset{0.5, -INFINITE},
                                        NormalizedOffset{NOT_A_NUMBER, 0.5}, NormalizedOffset{1e300, 1e300}}) {
    APP.coordinate(offset).tap();
    APP.coordinate(offset).press(1ms);
    APP.coordinate(offset).pressThenDrag(1ms, APP.coordinate({0.5, 0.5}));
  }
  EXPECT_THAT(touched, IsEmpty());
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
}

TEST_F(Actions, TextIsTypedIntoTheElementThatHasTheFocusOrContainsIt) {
  start(FORM);
  named("field").tap();
  named("field").typeText("Ada");
  EXPECT_EQ(named("field").value(), ElementValue("Ada"));
  APP.typeText(" L. 👍🏽 ß");
  EXPECT_EQ(named("field").value(), ElementValue("Ada L. 👍🏽 ß"));
  named("inner").tap();
  named("group").typeText(" B.");
  EXPECT_EQ(named("inner").value(), ElementValue("Ada B."));
  EXPECT_EQ(named("field").value(), ElementValue("Ada L. 👍🏽 ß"));
}

TEST_F(Actions, TypingWithoutTheFocusRaises) {
  start(FORM);
  expectDriverError([] { APP.typeText("a"); }, "typeText", R"(the application "com.example.test")");
  expectDriverError([] { named("field").typeText("a"); }, "typeText", describe(named("field")));
  named("inner").tap();
  expectDriverError([] { named("ok").typeText("a"); }, "typeText", describe(named("ok")));
  expectDriverError([] { named("field").typeText("a"); }, "typeText", describe(named("field")));
  EXPECT_EQ(named("inner").value(), ElementValue("Ada"));
}

TEST_F(Actions, NoTextAtAllIsTypedWithoutEffect) {
  start(FORM);
  named("inner").tap();
  named("inner").typeText("");
  EXPECT_EQ(named("inner").value(), ElementValue("Ada"));
}

TEST_F(Actions, ASwipeScrollsAsFarAsThereIsContent) {
  start(PAGE);
  ASSERT_FALSE(named("bottom").isHittable());
  for (int swipe = 0; swipe < 10; ++swipe) {
    named("list").swipe(SwipeDirection::up);
  }
  EXPECT_EQ(named("bottom").frame(), (Rect{{0, 100}, {100, 30}}));
  EXPECT_TRUE(named("bottom").isHittable());
  EXPECT_FALSE(named("top").isHittable());
  named("list").swipe(SwipeDirection::left);
  named("list").swipe(SwipeDirection::right);
  EXPECT_EQ(named("bottom").frame(), (Rect{{0, 100}, {100, 30}})) << "there is nothing to the left or right";
  for (int swipe = 0; swipe < 10; ++swipe) {
    named("list").swipe(SwipeDirection::down);
  }
  EXPECT_EQ(named("top").frame(), (Rect{{0, 70}, {100, 30}}));
}

TEST_F(Actions, ADragMovesTheContentWithTheFinger) {
  start(PAGE);
  const XCUIElement list = named("list");
  list.coordinate({0.5, 0.9}).pressThenDrag(100ms, list.coordinate({0.5, 0.4}));
  EXPECT_EQ(named("top").frame(), (Rect{{0, 40}, {100, 30}}));
  list.coordinate({0.5, 0.5}).pressThenDrag(0s, APP.coordinate({0.5, 0.99}));
  EXPECT_EQ(named("top").frame(), (Rect{{0, 70}, {100, 30}}));
}

TEST_F(Actions, ADragEndsAtTheEdgeOfTheScreenWhereItLeadsBeyond) {
  start(PAGE);
  named("list").coordinate({0.5, 0.5}).pressThenDrag(0s, APP.coordinate({0.5, -0.5}));
  EXPECT_EQ(named("bottom").frame(), (Rect{{0, 100}, {100, 30}}));
}

TEST_F(Actions, ADragToNowhereLeavesTheFingerWhereItIs) {
  start(PAGE);
  for (const NormalizedOffset offset : {NormalizedOffset{NOT_A_NUMBER, 0.5}, NormalizedOffset{0.5, INFINITE}}) {
    named("list").coordinate({0.5, 0.5}).pressThenDrag(0s, APP.coordinate(offset));
  }
  EXPECT_EQ(named("top").frame(), (Rect{{0, 70}, {100, 30}}));
}

}  // namespace
}  // namespace quobrak::conformance
