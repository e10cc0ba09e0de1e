#include "phoneserver/GestureRoutes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeButton name="a" x="10" y="20" width="40" height="20"/>
  <XCUIElementTypeButton name="empty" x="10" y="20" width="0" height="0"/>
  <XCUIElementTypeTable name="table" x="0" y="50" width="100" height="100">
    <XCUIElementTypeCell name="row1" label="row1" x="0" y="50" width="100" height="90"/>
    <XCUIElementTypeCell name="row2" label="row2" x="0" y="140" width="100" height="90"/>
    <XCUIElementTypeCell name="row3" label="row3" x="0" y="230" width="100" height="90"/>
  </XCUIElementTypeTable>)";

/// A phone that notes what is touched, and where.
struct GestureRoutesTest : ::testing::Test {
  TestPhone phone{PAGE};
  std::string touched;

  GestureRoutesTest() {
    phone.phone().observeTouches([this](const simulator::Element& element, Point point) {
      touched += (touched.empty() ? "" : ", ") + element.identifier + element.label + " " +
                 std::to_string(static_cast<int>(point.x)) + ":" + std::to_string(static_cast<int>(point.y));
    });
  }

  std::string toElement(const std::string& command, const std::string& name, const std::string& body = "{}") {
    return phone.post("session/wda/element/" + phone.id(name) + "/" + command, body);
  }
  double topOf(const std::string& name) { return phone.element(name).frame.origin.y; }
};

TEST_F(GestureRoutesTest, AClickTouchesTheMiddleOfAnElement) {
  EXPECT_EQ(phone.post("session/element/" + phone.id("a") + "/click"), "null");
  EXPECT_EQ(touched, "a 30:30");
}

TEST_F(GestureRoutesTest, AClickOnWhatCannotBeMetIsNoError) {
  EXPECT_EQ(phone.post("session/element/" + phone.id("empty") + "/click"), "null");
  EXPECT_EQ(phone.post("session/element/" + phone.id("row3") + "/click"), "null");
  EXPECT_EQ(touched, "");
}

TEST_F(GestureRoutesTest, AClickOnWhatIsGoneIsAnError) {
  EXPECT_EQ(phone.post("session/element/x/click").substr(0, 24), "stale element reference:");
}

TEST_F(GestureRoutesTest, ATapIsOnTheScreenOrInAnElement) {
  EXPECT_EQ(phone.post("session/wda/tap", "{'x': 12, 'y': 22}"), "null");
  EXPECT_EQ(toElement("tap", "a", "{'x': 1, 'y': 2.5}"), "null");
  EXPECT_EQ(toElement("tap", "a"), "null");
  EXPECT_EQ(touched, "a 12:22, a 11:22, a 30:30");
}

TEST_F(GestureRoutesTest, ATapNeedsBothCoordinatesAndAPlace) {
  EXPECT_EQ(phone.post("session/wda/tap", "{'x': 12}"), "invalid argument: \"y\" is missing; it must be a number");
  EXPECT_EQ(toElement("tap", "a", "{'y': 1}"), "invalid argument: \"x\" is missing; it must be a number");
  EXPECT_EQ(toElement("tap", "empty", "{'x': 0, 'y': 0}"),
            "invalid argument: the element has no extent, so that no place in it can be touched");
  EXPECT_EQ(touched, "");
}

TEST_F(GestureRoutesTest, AHeldTouchTakesItsTime) {
  EXPECT_EQ(toElement("touchAndHold", "a", "{'duration': 1.5}"), "null");
  EXPECT_EQ(phone.elapsed().count(), 1500);
  EXPECT_EQ(phone.post("session/wda/touchAndHold", "{'x': 12, 'y': 22, 'duration': 0.5}"), "null");
  EXPECT_EQ(phone.elapsed().count(), 2000);
  EXPECT_EQ(touched, "a 30:30, a 12:22");
  EXPECT_EQ(toElement("touchAndHold", "a"), "invalid argument: \"duration\" is missing; it must be a number");
}

TEST_F(GestureRoutesTest, ADoubleTapTouchesTwice) {
  EXPECT_EQ(toElement("doubleTap", "a"), "null");
  EXPECT_EQ(phone.post("session/wda/doubleTap", "{'x': 12, 'y': 22}"), "null");
  EXPECT_EQ(touched, "a 30:30, a 30:30, a 12:22, a 12:22");
}

TEST(GestureRoutes, ADoubleTapTouchesOnceWhereThatTakesTheElementAway) {
  TestPhone phone(R"(<XCUIElementTypeButton name="a" label="a" x="10" y="20" width="40" height="20"/>)",
                  R"([{"on": "tap", "element": "label == \"a\"", "do": [{"show": "start"}]}])");
  EXPECT_EQ(phone.post("session/wda/element/" + phone.id("a") + "/doubleTap"), "null");
}

TEST_F(GestureRoutesTest, ADragMovesWhatIsUnderTheFinger) {
  EXPECT_EQ(phone.post("session/wda/dragfromtoforduration",
                       "{'fromX': 50, 'fromY': 120, 'toX': 50, 'toY': 100, 'duration': 0.5}"),
            "null");
  EXPECT_EQ(topOf("row1"), 30);
  EXPECT_GE(phone.elapsed().count(), 500);
  EXPECT_EQ(
      toElement("dragfromtoforduration", "table", "{'fromX': 50, 'fromY': 70, 'toX': 50, 'toY': 80, 'duration': 0}"),
      "null");
  EXPECT_EQ(topOf("row1"), 40);
  EXPECT_EQ(phone.post("session/wda/dragfromtoforduration", "{'fromX': 50, 'fromY': 120, 'toX': 50}"),
            "invalid argument: \"toY\" is missing; it must be a number");
}

TEST_F(GestureRoutesTest, ADragMayHaveAVelocityAndAHold) {
  EXPECT_EQ(phone.post("session/wda/pressAndDragWithVelocity",
                       "{'fromX': 50, 'fromY': 120, 'toX': 50, 'toY': 100, 'pressDuration': 0.5, 'velocity': 400, "
                       "'holdDuration': 0.25}"),
            "null");
  EXPECT_EQ(topOf("row1"), 30);
  EXPECT_GE(phone.elapsed().count(), 750);
  const std::string row1 = phone.id("row1");
  EXPECT_EQ(toElement("pressAndDragWithVelocity", "row2",
                      "{'toElement': '" + row1 + "', 'pressDuration': 0, 'velocity': 400, 'holdDuration': 0}"),
            "null");
  EXPECT_EQ(topOf("row1"), -20);
}

struct DirectionRow {
  const char* command;
  const char* direction;
  double top;
};

TEST_F(GestureRoutesTest, ASwipeMovesTheContentAndAScrollMovesTheView) {
  const DirectionRow ROWS[] = {
      {"swipe", "up", -25}, {"swipe", "down", 50}, {"scroll", "down", -25},
      {"scroll", "up", 50}, {"swipe", "left", 50}, {"scroll", "right", 50},
  };
  for (const DirectionRow& row : ROWS) {
    EXPECT_EQ(toElement(row.command, "table", "{'direction': '" + std::string(row.direction) + "'}"), "null");
    EXPECT_EQ(topOf("row1"), row.top) << row.command << ' ' << row.direction;
  }
  EXPECT_EQ(phone.post("session/wda/swipe", "{'direction': 'up', 'velocity': 900}"), "null");
  EXPECT_EQ(topOf("row1"), -25);
}

TEST_F(GestureRoutesTest, ASwipeNeedsADirectionThatThereIs) {
  EXPECT_EQ(toElement("swipe", "table", "{'direction': 'in'}"),
            "invalid argument: \"direction\" must be up, down, left or right, not in");
  EXPECT_EQ(toElement("scroll", "table", "{'name': 'row3'}"),
            "unsupported operation: this phone scrolls in a \"direction\" and in no other way");
}

TEST_F(GestureRoutesTest, ActionsAreCarriedOutAndNothingIsLeftToRelease) {
  EXPECT_EQ(phone.post("session/actions",
                       "{'actions': [{'type': 'pointer', 'parameters': {'pointerType': 'touch'}, "
                       "'actions': [{'type': 'pointerMove', 'x': 12, 'y': 22}, "
                       "{'type': 'pointerDown'}, {'type': 'pointerUp'}]}]}"),
            "null");
  EXPECT_EQ(phone.ask("DELETE", "session/actions"), "null");
  EXPECT_EQ(touched, "a 12:22");
}

}  // namespace
}  // namespace quobrak::phoneserver
