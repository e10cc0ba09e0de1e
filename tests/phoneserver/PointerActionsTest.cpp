#include "phoneserver/PointerActions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeTextField name="field" x="0" y="0" width="90" height="20"/>
  <XCUIElementTypeTable name="table" x="0" y="50" width="100" height="100">
    <XCUIElementTypeCell name="row1" label="row1" x="0" y="50" width="100" height="90"/>
    <XCUIElementTypeCell name="row2" label="row2" x="0" y="140" width="100" height="90"/>
  </XCUIElementTypeTable>)";

struct PointerActionsTest : ::testing::Test {
  TestPhone phone{PAGE};
  std::string touched;

  PointerActionsTest() {
    phone.phone().observeTouches([this](const simulator::Element& element, Point point) {
      touched += (touched.empty() ? "" : ", ") + element.identifier + element.label + " " +
                 std::to_string(static_cast<int>(point.x)) + ":" + std::to_string(static_cast<int>(point.y));
    });
  }

  std::string perform(const std::string& sources) {
    return phone.post("session/actions", "{'actions': [" + sources + "]}");
  }
  static std::string finger(const std::string& actions) {
    return "{'type': 'pointer', 'id': 'finger', 'parameters': {'pointerType': 'touch'}, 'actions': [" + actions + "]}";
  }
  static std::string keys(const std::string& actions) {
    return "{'type': 'key', 'id': 'keys', 'actions': [" + actions + "]}";
  }
};

constexpr const char* DOWN = "{'type': 'pointerDown', 'button': 0}";
constexpr const char* UP = "{'type': 'pointerUp', 'button': 0}";

std::string move(int x, int y, const std::string& more = "") {
  return "{'type': 'pointerMove', 'x': " + std::to_string(x) + ", 'y': " + std::to_string(y) + more + "}";
}

std::string pause(int milliseconds) {
  return "{'type': 'pause', 'duration': " + std::to_string(milliseconds) + "}";
}

std::string joined(const std::vector<std::string>& actions) {
  std::string text;
  for (const std::string& action : actions) {
    text += (text.empty() ? "" : ", ") + action;
  }
  return text;
}

TEST_F(PointerActionsTest, AFingerTaps) {
  EXPECT_EQ(perform(finger(joined({move(10, 60, ", 'duration': 0"), DOWN, UP}))), "null");
  EXPECT_EQ(touched, "row1 10:60");
  EXPECT_EQ(phone.elapsed().count(), 0);
}

TEST_F(PointerActionsTest, AFingerHoldsAndWaits) {
  EXPECT_EQ(perform(finger(joined({pause(100), move(10, 60), DOWN, pause(300), pause(400), UP, pause(200)}))), "null");
  EXPECT_EQ(touched, "row1 10:60");
  EXPECT_EQ(phone.elapsed().count(), 1000);
}

TEST_F(PointerActionsTest, AFingerDrags) {
  EXPECT_EQ(
      perform(finger(joined({move(50, 140), DOWN, pause(300), move(50, 130, ", 'duration': 200"), move(50, 120), UP}))),
      "null");
  EXPECT_EQ(phone.element("row1").frame.origin.y, 30);
}

TEST_F(PointerActionsTest, AFingerMovesFromWhereItIsAndFromElements) {
  const std::string origin = ", 'origin': {'element-6066-11e4-a52e-4f735466cecf': '" + phone.id("field") + "'}";
  const std::string older = ", 'origin': {'ELEMENT': '" + phone.id("field") + "'}";
  EXPECT_EQ(perform(finger(joined({move(0, 0, origin), DOWN, UP, move(5, 1, ", 'origin': 'pointer'"), DOWN, UP,
                                   move(-5, -1, older), DOWN, UP, move(1, 60, ", 'origin': 'viewport'"), DOWN, UP}))),
            "null");
  EXPECT_EQ(touched, "field 45:10, field 50:11, field 40:9, row1 1:60");
}

TEST_F(PointerActionsTest, AFingerThatDoesNotLiftTouchesNothing) {
  EXPECT_EQ(perform(finger(joined({move(10, 60), DOWN, DOWN}))), "null");
  EXPECT_EQ(perform(finger(UP)), "null");
  EXPECT_EQ(touched, "");
}

TEST_F(PointerActionsTest, KeysAreTypedTickByTickWithTheFinger) {
  EXPECT_EQ(perform(finger(joined({move(10, 10), DOWN, UP, pause(50), pause(50)})) + ", " +
                    keys(joined({pause(10), pause(10), pause(10), "{'type': 'keyDown', 'value': 'a'}",
                                 "{'type': 'keyUp', 'value': 'a'}", "{'type': 'keyDown', 'value': '日'}"}))),
            "null");
  EXPECT_EQ(phone.element("field").value, "a日");
  EXPECT_EQ(perform(keys("{'type': 'keyDown', 'value': 'b'}")), "null");
  EXPECT_EQ(phone.element("field").value, "a日b");
}

TEST_F(PointerActionsTest, ThatCannotBeCarriedOutAreRefusedBeforeAnyIs) {
  const std::string tap = joined({move(10, 60), DOWN, UP});
  const std::pair<std::string, const char*> ROWS[] = {
      {finger(tap + ", {'type': 'pointerCancel'}"),
       "unknown error: a pointer does pause, pointerDown, pointerUp and pointerMove, but not pointerCancel"},
      {finger(tap + ", " + pause(0)), "unknown error: a pause must be longer than 0 milliseconds"},
      {finger(tap + ", " + pause(-1)), "unknown error: \"duration\" must be a number of milliseconds, 0 or more"},
      {finger(tap + ", 1"), "unknown error: an action must be an object"},
      {finger(tap + ", {'type': 'pointerMove', 'x': 1}"), "invalid argument: \"y\" is missing; it must be a number"},
      {finger(tap + ", " + move(1, 1, ", 'origin': 'here'")),
       "unknown error: \"origin\", where it is neither viewport nor pointer, must be an object"},
      {finger(tap) + ", " + finger(tap), "unknown error: this phone knows one finger, so that one pointer can act"},
      {finger(tap) + ", {'type': 'none', 'actions': []}",
       "unknown error: an input source is of type pointer or key, not none"},
      {finger(tap) + ", {'type': 'key'}", "unknown error: \"actions\" is missing; it must be a list"},
      {finger(tap) + ", " + keys("{'type': 'keyPress'}"),
       "unknown error: a keyboard does pause, keyDown and keyUp, but not keyPress"},
      {"{'type': 'pointer', 'actions': []}", "unknown error: the pointerType must be touch, not mouse"},
      {"1", "unknown error: an input source must be an object"},
  };
  for (const auto& [sources, error] : ROWS) {
    EXPECT_EQ(perform(sources), error) << sources;
  }
  EXPECT_EQ(phone.post("session/actions"), "unknown error: \"actions\" is missing; it must be a list");
  EXPECT_EQ(touched, "");
}

TEST_F(PointerActionsTest, FromAnElementThatIsGoneAreRefused) {
  EXPECT_EQ(perform(finger(move(0, 0, ", 'origin': {'ELEMENT': 'x'}"))).substr(0, 24), "stale element reference:");
}

TEST_F(PointerActionsTest, KeysWithoutAFocusAreRefused) {
  EXPECT_EQ(perform(keys("{'type': 'keyDown', 'value': 'b'}")), "unknown error: no element has the keyboard's focus");
}

}  // namespace
}  // namespace quobrak::phoneserver
