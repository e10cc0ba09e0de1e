#include "drivers/xctest/HandlerCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/uiautomation/XCUIApplication.h"

namespace quobrak::xctest {
namespace {

using Answer = HandlerCalls::Answer;
using ::testing::ThrowsMessage;

const XCUIApplication ALERT("com.example.alert");

TEST(HandlerCalls, GivesTheHandlersAnswer) {
  HandlerCalls calls;
  const auto yes = calls.add([](const XCUIElement&) { return true; });
  const auto no = calls.add([](const XCUIElement&) { return false; });
  EXPECT_NE(yes, no);
  EXPECT_EQ(calls.ask(yes, ALERT), Answer::dealtWith);
  EXPECT_EQ(calls.ask(no, ALERT), Answer::notDealtWith);
}

TEST(HandlerCalls, ShowsTheHandlerTheAlert) {
  HandlerCalls calls;
  const auto looking =
      calls.add([](const XCUIElement& alert) { return describe(alert) == R"(the application "com.example.alert")"; });
  EXPECT_EQ(calls.ask(looking, ALERT), Answer::dealtWith);
}

TEST(HandlerCalls, ARemovedHandlerIsNotAsked) {
  HandlerCalls calls;
  const auto token = calls.add([](const XCUIElement&) { return true; });
  calls.remove(token);
  calls.remove(token);
  EXPECT_EQ(calls.ask(token, ALERT), Answer::notDealtWith);
}

TEST(HandlerCalls, AHandlerMayRemoveItself) {
  HandlerCalls calls;
  InterruptionMonitorToken token{};
  int asked = 0;
  token = calls.add([&](const XCUIElement&) {
    calls.remove(token);
    ++asked;
    return true;
  });
  EXPECT_EQ(calls.ask(token, ALERT), Answer::dealtWith);
  EXPECT_EQ(calls.ask(token, ALERT), Answer::notDealtWith);
  EXPECT_EQ(asked, 1);
}

TEST(HandlerCalls, NobodyIsAskedFromInsideAHandler) {
  HandlerCalls calls;
  const auto inner = calls.add([](const XCUIElement&) { return true; });
  Answer inside = Answer::dealtWith;
  const auto outer = calls.add([&](const XCUIElement& alert) {
    inside = calls.ask(inner, alert);
    return true;
  });
  EXPECT_EQ(calls.ask(outer, ALERT), Answer::dealtWith);
  EXPECT_EQ(inside, Answer::notDealtWith);
  EXPECT_EQ(calls.ask(inner, ALERT), Answer::dealtWith);
}

TEST(HandlerCalls, KeepsWhatAHandlerRaisesForOnce) {
  HandlerCalls calls;
  const auto raising = calls.add([](const XCUIElement&) -> bool { throw std::out_of_range("no such button"); });
  EXPECT_EQ(calls.ask(raising, ALERT), Answer::raised);
  EXPECT_THAT([&] { calls.rethrow(); }, ThrowsMessage<std::out_of_range>("no such button"));
  EXPECT_NO_THROW(calls.rethrow());
  EXPECT_EQ(calls.ask(raising, ALERT), Answer::raised) << "the handler before has ended";
}

}  // namespace
}  // namespace quobrak::xctest
