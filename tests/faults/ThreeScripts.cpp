#include "tests/faults/ThreeScripts.h"

namespace quobrak::faults {

namespace {

constexpr const char* PAGE = R"(
  <XCUIElementTypeStaticText label="Welcome" x="0" y="0" width="60" height="20"/>
  <XCUIElementTypeButton label="Notify" x="60" y="0" width="40" height="20"/>
  <XCUIElementTypeButton label="Camera" x="0" y="20" width="100" height="20"/>
  <XCUIElementTypeButton label="Order" x="0" y="40" width="100" height="20"/>
  <XCUIElementTypeButton label="Covered" x="0" y="60" width="100" height="20"/>
  <XCUIElementTypeImage label="Cover" x="0" y="60" width="100" height="20"/>
  <XCUIElementTypeTextField name="Name" x="0" y="80" width="100" height="20"/>
  <XCUIElementTypeScrollView x="0" y="100" width="100" height="20">
    <XCUIElementTypeStaticText label="Bread" x="0" y="100" width="100" height="20"/>
    <XCUIElementTypeStaticText label="Cheese" x="0" y="120" width="100" height="20"/>
  </XCUIElementTypeScrollView>)";

constexpr const char* RULES = R"([
  {"on": "tap", "element": "label == \"Camera\"", "do": [{"askPermission": "camera"}]},
  {"on": "tap", "element": "label == \"Notify\"", "do": [{"askPermission": "notifications", "answer": "notifies"}]},
  {"on": "tap", "element": "label == \"Order\"", "when": {"notifies": "Allow"}, "do": [{"show": "thanks"}]}])";

constexpr const char* THANKS =
    R"(<XCUIElementTypeApplication name="Test" label="Test" x="0" y="0" width="100" height="200">
         <XCUIElementTypeStaticText label="Thanks" x="0" y="0" width="100" height="20"/>
       </XCUIElementTypeApplication>)";

constexpr const char* SUCCEEDS =
    "applicationStart,com.example.test\n"
    "clickByText,Camera\n"
    "measureStart,Answer\n"
    "clickByText,Order\n"
    "pause,250\n"
    "setTextByText,Ann,Name\n"
    "clickByText,Name\n"
    "enterText,Al,10\n"
    "measureStop";

constexpr const char* FAILS =
    "applicationStart,com.example.test\n"
    "measureStart,Scroll\n"
    "scrollDownward\n"
    "longClickByText,Order,300\n"
    "waitUntilText,Welcome,1000\n"
    "waitUntilGoneText,Goodbye,1000\n"
    "measureStop\n"
    "measureStart,Never stopped\n"
    "clickByText,Covered\n"
    "pressVolumeUp";

constexpr const char* TOUCHES =
    "applicationKill,com.example.test\n"
    "applicationStart,com.example.test\n"
    "measureStart,Touch\n"
    "clickByXY,70,10\n"
    "longClickByXY,10,50,40\n"
    "waitUntilText,Thanks,0\n"
    "swipeUpward\n"
    "pressVolumeDown\n"
    "measureStop";

constexpr const char* EARLIER_MEASURE =
    R"({"measures":[[{"time":10,"values":{"AH_PL":0}},{"time":15,"values":{"AH_PL":0}}],[]],"test":"Earlier",)"
    R"("testTime":5})";

}  // namespace

Suite threeScripts(int iteration) {
  testing::MemoryPhoneFiles phone = testing::smallPhone(PAGE, RULES);
  phone["test/thanks.xml"] = THANKS;
  return {.phone = phone,
          .scripts = {{"succeeds", SUCCEEDS}, {"fails", FAILS}, {"touches", TOUCHES}},
          .iteration = iteration,
          .documents = {{"measures/fernwick--Earlier-1600000000000.json", EARLIER_MEASURE},
                        {"other.txt", "kept"},
                        {"tests-results/Shop/succeeds/iteration0/dump/dump.txt", "earlier"},
                        {"testsStatus.json", R"([{"stackTrace":"earlier","status":"failed"}])"}}};
}

}  // namespace quobrak::faults
