#include "drivers/simulator/RuleMatching.h"

#include <algorithm>

#include "drivers/simulator/ScreenChanges.h"
#include "drivers/simulator/Scrolling.h"

namespace quobrak::simulator {

namespace {

bool isPicked(const std::optional<PredicateEvaluator>& predicate, const Element* element) {
  return !predicate || (element != nullptr && matches(*element, *predicate));
}

}  // namespace

bool isOneOf(const std::vector<std::string>& screens, std::string_view screen) {
  return screens.empty() || std::find(screens.begin(), screens.end(), screen) != screens.end();
}

bool applies(const Rule& rule, const Occurrence& occurrence, const NamedValues& values) {
  return rule.event == occurrence.event && isOneOf(rule.screens, occurrence.screen) &&
         (!rule.condition || rule.condition->evaluate(values)) && isPicked(rule.element, occurrence.element) &&
         isPicked(rule.alert, occurrence.alert) &&
         (!rule.at || (occurrence.element != nullptr && isScrolledTo(*occurrence.element, *rule.at)));
}

Reaction firstReaction(const std::vector<Rule>& rules, const Occurrence& occurrence, const NamedValues& values) {
  const auto found =
      std::find_if(rules.begin(), rules.end(), [&](const Rule& rule) { return applies(rule, occurrence, values); });
  return found == rules.end() ? Reaction() : Reaction{.rule = &*found, .subject = textsOf(occurrence.element)};
}

std::vector<Reaction> allReactions(const std::vector<Rule>& rules, const Occurrence& occurrence,
                                   const NamedValues& values) {
  std::vector<Reaction> found;
  for (const Rule& rule : rules) {
    if (applies(rule, occurrence, values)) {
      found.push_back({.rule = &rule, .subject = textsOf(occurrence.element)});
    }
  }
  return found;
}

}  // namespace quobrak::simulator
