#include "platform/uiautomation/InterruptionMonitors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

class NamedHandle final : public ElementHandle {
 public:
  explicit NamedHandle(std::string name) : name_(std::move(name)) {}
  std::string description() const override { return name_; }

 private:
  std::string name_;
};

/// Handlers that write down whom they were asked about, and the alerts that they are asked about.
class InterruptionMonitorsTest : public ::testing::Test {
 protected:
  enum class Answer { dealtWith, dealtWithButLeftStanding, notDealtWith };

  void raise(const std::string& name) { alerts_.push_back(std::make_shared<const NamedHandle>(name)); }

  InterruptionMonitorToken add(const std::string& name, Answer answer) {
    return monitors_.add(name, [this, name, answer](const XCUIElement& alert) {
      asked_.push_back(name + " about " + describe(alert));
      if (answer == Answer::dealtWith) {
        alerts_.pop_back();
      }
      return answer != Answer::notDealtWith;
    });
  }

  void dealWith() {
    monitors_.dealWith(
        [this] { return alerts_.empty() ? std::nullopt : std::optional(XCUIElement(QueryRoot(alerts_.back()))); });
  }

  InterruptionMonitors monitors_;
  std::vector<std::shared_ptr<const ElementHandle>> alerts_;
  std::vector<std::string> asked_;
};

TEST_F(InterruptionMonitorsTest, WithoutAnAlertNoHandlerIsAsked) {
  add("handler", Answer::dealtWith);
  dealWith();
  EXPECT_THAT(asked_, IsEmpty());
}

TEST_F(InterruptionMonitorsTest, WithoutAHandlerNobodyLooksForAnAlert) {
  int looks = 0;
  const auto look = [&]() -> std::optional<XCUIElement> {
    ++looks;
    return std::nullopt;
  };
  monitors_.dealWith(look);
  monitors_.remove(add("removed", Answer::dealtWith));
  monitors_.dealWith(look);
  EXPECT_EQ(looks, 0);
  add("handler", Answer::dealtWith);
  monitors_.dealWith(look);
  EXPECT_EQ(looks, 1);
}

TEST_F(InterruptionMonitorsTest, HandlersAreAskedInReverseOrderUntilOneAnswersTrue) {
  add("first", Answer::dealtWith);
  add("second", Answer::dealtWith);
  add("third", Answer::notDealtWith);
  raise("alert");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("third about alert", "second about alert"));
}

TEST_F(InterruptionMonitorsTest, WhereNoHandlerAnswersTrueEachIsAskedOnce) {
  add("first", Answer::notDealtWith);
  add("second", Answer::notDealtWith);
  raise("alert");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("second about alert", "first about alert"));
}

TEST_F(InterruptionMonitorsTest, StackedAlertsAreDealtWithOneAfterTheOther) {
  add("handler", Answer::dealtWith);
  raise("lower");
  raise("upper");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("handler about upper", "handler about lower"));
}

TEST_F(InterruptionMonitorsTest, AnAlertThatAHandlerLeavesStandingIsShownOnce) {
  add("handler", Answer::dealtWithButLeftStanding);
  raise("alert");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("handler about alert"));
}

TEST_F(InterruptionMonitorsTest, TheNextActionShowsAnAlertAgainThatWasLeftStanding) {
  add("handler", Answer::dealtWithButLeftStanding);
  raise("alert");
  dealWith();
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("handler about alert", "handler about alert"));
}

TEST_F(InterruptionMonitorsTest, CalledFromInsideAHandlerItDoesNothing) {
  add("bystander", Answer::dealtWith);
  monitors_.add("acting", [this](const XCUIElement& alert) {
    asked_.push_back("acting about " + describe(alert));
    dealWith();
    alerts_.pop_back();
    return true;
  });
  raise("alert");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("acting about alert"));
}

TEST_F(InterruptionMonitorsTest, WhatAHandlerRaisesPassesAndTheNextActionAsksAgain) {
  monitors_.add("throwing", [this](const XCUIElement& alert) -> bool {
    asked_.push_back("throwing about " + describe(alert));
    throw std::runtime_error("no idea");
  });
  raise("alert");
  EXPECT_THAT([this] { dealWith(); }, ThrowsMessage<std::runtime_error>("no idea"));
  EXPECT_THAT([this] { dealWith(); }, ThrowsMessage<std::runtime_error>("no idea"));
  EXPECT_THAT(asked_, ElementsAre("throwing about alert", "throwing about alert"));
}

TEST_F(InterruptionMonitorsTest, ARemovedHandlerIsNotAsked) {
  add("kept", Answer::dealtWith);
  const InterruptionMonitorToken removed = add("removed", Answer::dealtWith);
  monitors_.remove(removed);
  raise("alert");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("kept about alert"));
}

TEST_F(InterruptionMonitorsTest, RemovingWhatIsNotRegisteredDoesNothing) {
  const InterruptionMonitorToken removed = add("removed", Answer::dealtWith);
  add("kept", Answer::dealtWith);
  monitors_.remove(removed);
  monitors_.remove(removed);
  raise("alert");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("kept about alert"));
}

TEST_F(InterruptionMonitorsTest, ATokenIsNeverGivenTwice) {
  const InterruptionMonitorToken first = add("first", Answer::dealtWith);
  monitors_.remove(first);
  EXPECT_NE(add("second", Answer::dealtWith), first);
}

TEST_F(InterruptionMonitorsTest, AHandlerMayRemoveItselfAndRegisterAnother) {
  InterruptionMonitorToken own{};
  own = monitors_.add("own", [&](const XCUIElement& alert) {
    asked_.push_back("own about " + describe(alert));
    monitors_.remove(own);
    add("other", Answer::dealtWith);
    alerts_.pop_back();
    return true;
  });
  raise("lower");
  raise("upper");
  dealWith();
  EXPECT_THAT(asked_, ElementsAre("own about upper", "other about lower"));
}

}  // namespace
}  // namespace quobrak
