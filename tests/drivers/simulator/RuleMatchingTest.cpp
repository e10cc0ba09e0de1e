#include "drivers/simulator/RuleMatching.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Scrolling.h"
#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A rule of that event without anything further.
Rule ruleOn(RuleEvent event) {
  Rule rule;
  rule.event = event;
  return rule;
}

Rule ruleOn(RuleEvent event, const std::string& element) {
  Rule rule = ruleOn(event);
  rule.element.emplace(NSPredicate(element));
  return rule;
}

std::unique_ptr<Element> button(const std::string& label) {
  auto element = std::make_unique<Element>(ElementType::button);
  element->label = label;
  return element;
}

TEST(RuleMatching, NoScreensStandForAll) {
  EXPECT_TRUE(isOneOf({}, "start"));
  EXPECT_TRUE(isOneOf({"start"}, "start"));
  EXPECT_TRUE(isOneOf({"one", "start", "two"}, "start"));
  EXPECT_FALSE(isOneOf({"one", "two"}, "start"));
  EXPECT_FALSE(isOneOf({"star", "starts", ""}, "start"));
}

TEST(RuleMatching, ARuleIsAboutItsEvent) {
  constexpr RuleEvent EVENTS[] = {RuleEvent::launch,    RuleEvent::screen, RuleEvent::tap,
                                  RuleEvent::longPress, RuleEvent::text,   RuleEvent::scroll,
                                  RuleEvent::address,   RuleEvent::answer, RuleEvent::time};
  for (const RuleEvent event : EVENTS) {
    for (const RuleEvent happening : EVENTS) {
      EXPECT_EQ(applies(ruleOn(event), {.event = happening, .screen = "start"}, {}), event == happening);
    }
  }
}

TEST(RuleMatching, ARuleIsAboutItsScreens) {
  Rule rule = ruleOn(RuleEvent::launch);
  rule.screens = {"one", "two"};
  EXPECT_TRUE(applies(rule, {.event = RuleEvent::launch, .screen = "two"}, {}));
  EXPECT_FALSE(applies(rule, {.event = RuleEvent::launch, .screen = "three"}, {}));
}

TEST(RuleMatching, ARuleHasACondition) {
  const NamedValues values(std::map<std::string, std::string, std::less<>>{{"basket", "full"}});
  const Occurrence launch{.event = RuleEvent::launch, .screen = "start"};
  const auto appliesWhen = [&](const std::string& condition) {
    Rule rule = ruleOn(RuleEvent::launch);
    rule.condition.emplace(NSPredicate(condition));
    return applies(rule, launch, values);
  };
  EXPECT_TRUE(appliesWhen("basket == 'full'"));
  EXPECT_FALSE(appliesWhen("basket == ''"));
  EXPECT_TRUE(appliesWhen("never.set == ''"));
}

TEST(RuleMatching, ARuleIsAboutTheElementsThatItPicks) {
  const auto ok = button("OK");
  const auto cancel = button("Cancel");
  const Rule rule = ruleOn(RuleEvent::tap, "label == 'OK'");
  EXPECT_TRUE(applies(rule, {.event = RuleEvent::tap, .screen = "start", .element = ok.get()}, {}));
  EXPECT_FALSE(applies(rule, {.event = RuleEvent::tap, .screen = "start", .element = cancel.get()}, {}));
  EXPECT_FALSE(applies(rule, {.event = RuleEvent::tap, .screen = "start"}, {})) << "there is no element";
  EXPECT_FALSE(applies(ruleOn(RuleEvent::tap, "exists == FALSE"), {.event = RuleEvent::tap, .screen = "start"}, {}));
  EXPECT_TRUE(applies(ruleOn(RuleEvent::tap), {.event = RuleEvent::tap, .screen = "start"}, {}));
}

TEST(RuleMatching, ARuleIsAboutTheAlertsThatItPicks) {
  const auto ok = button("OK");
  const auto alert = std::make_unique<Element>(ElementType::alert);
  alert->label = "Delete?";
  const auto rule = [](const std::string& predicate) {
    Rule made = ruleOn(RuleEvent::answer);
    made.alert.emplace(NSPredicate(predicate));
    return made;
  };
  const Occurrence answer{.event = RuleEvent::answer, .screen = "start", .element = ok.get(), .alert = alert.get()};
  EXPECT_TRUE(applies(rule("label == 'Delete?'"), answer, {}));
  EXPECT_FALSE(applies(rule("label == 'OK'"), answer, {}));
  EXPECT_FALSE(
      applies(rule("TRUEPREDICATE"), {.event = RuleEvent::answer, .screen = "start", .element = ok.get()}, {}));
}

TEST(RuleMatching, ARuleMayWaitForAnEnd) {
  const auto screen = readPageSource(R"(<Application x="0" y="0" width="100" height="200">
      <Table x="0" y="0" width="100" height="100"><Cell x="0" y="0" width="100" height="300"/></Table></Application>)",
                                     {100, 200});
  Element& list = *screen->children().front();
  Rule rule = ruleOn(RuleEvent::scroll);
  const auto isAtEnd = [&] {
    return applies(rule, {.event = RuleEvent::scroll, .screen = "start", .element = &list}, {});
  };
  EXPECT_TRUE(isAtEnd()) << "any place";
  rule.at = ScrollEnd::start;
  EXPECT_TRUE(isAtEnd());
  rule.at = ScrollEnd::end;
  EXPECT_FALSE(isAtEnd());
  dragContent(list, {.dx = 0, .dy = -1000});
  EXPECT_TRUE(isAtEnd());
  rule.at = ScrollEnd::start;
  EXPECT_FALSE(isAtEnd());
  EXPECT_FALSE(applies(rule, {.event = RuleEvent::scroll, .screen = "start"}, {})) << "there is no element";
}

TEST(RuleMatching, APatternThatBacktracksForEverIsAnError) {
  const auto text = button(std::string(5000, 'a'));
  const Rule rule = ruleOn(RuleEvent::tap, "label MATCHES '(a+)+b'");
  EXPECT_THROW(applies(rule, {.event = RuleEvent::tap, .screen = "start", .element = text.get()}, {}),
               RegularExpressionError);
}

std::vector<Rule> rulesOfTaps() {
  std::vector<Rule> rules;
  rules.push_back(ruleOn(RuleEvent::launch));
  rules.push_back(ruleOn(RuleEvent::tap, "label == 'Cancel'"));
  rules.push_back(ruleOn(RuleEvent::tap, "label == 'OK'"));
  rules.push_back(ruleOn(RuleEvent::tap, "TRUEPREDICATE"));
  return rules;
}

TEST(RuleMatching, TheFirstRuleThatAppliesAndWhatItMayAsk) {
  const std::vector<Rule> rules = rulesOfTaps();
  const auto ok = button("OK");
  ok->identifier = "ok";
  const Occurrence tap{.event = RuleEvent::tap, .screen = "start", .element = ok.get()};
  const Reaction reaction = firstReaction(rules, tap, {});
  EXPECT_EQ(reaction.rule, &rules[2]);
  EXPECT_EQ(reaction.subject.label, "OK");
  EXPECT_EQ(reaction.subject.identifier, "ok");
  const Reaction none = firstReaction(rules, {.event = RuleEvent::text, .screen = "start", .element = ok.get()}, {});
  EXPECT_EQ(none.rule, nullptr);
  EXPECT_EQ(none.subject.label, "");
}

TEST(RuleMatching, AllRulesThatApplyInTheirOrder) {
  const std::vector<Rule> rules = rulesOfTaps();
  const auto ok = button("OK");
  const auto rulesOf = [&](const Occurrence& occurrence) {
    std::vector<std::pair<const Rule*, std::string>> found;
    for (const Reaction& reaction : allReactions(rules, occurrence, {})) {
      found.emplace_back(reaction.rule, reaction.subject.label);
    }
    return found;
  };
  EXPECT_THAT(rulesOf({.event = RuleEvent::tap, .screen = "start", .element = ok.get()}),
              ElementsAre(std::pair(&rules[2], "OK"), std::pair(&rules[3], "OK")));
  EXPECT_THAT(rulesOf({.event = RuleEvent::launch, .screen = "start"}), ElementsAre(std::pair(&rules[0], "")));
  EXPECT_THAT(rulesOf({.event = RuleEvent::time, .screen = "start"}), IsEmpty());
}

}  // namespace
}  // namespace quobrak::simulator
