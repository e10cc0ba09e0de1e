#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/NamedValues.h"
#include "drivers/simulator/Rule.h"
#include "drivers/simulator/ScreenChanges.h"

namespace quobrak::simulator {

/// Whether a rule that names these screens is about that one: none stand for all.
bool isOneOf(const std::vector<std::string>& screens, std::string_view screen);

/// Something that happens to an application.
struct Occurrence {
  RuleEvent event;
  /// The screen that the application shows.
  std::string_view screen;
  /// What it happens to; null where it happens to no element.
  const Element* element = nullptr;
  /// The alert or sheet that is answered; null for any other event.
  const Element* alert = nullptr;
};

/// Whether the rule says what happens then. Whether its time has come is not asked. Throws `RegularExpressionError`
/// where a pattern backtracks for ever.
bool applies(const Rule& rule, const Occurrence& occurrence, const NamedValues& values);

/// A rule that applies, and what effects may ask of the element that it happened to, which may be gone by then.
struct Reaction {
  /// Null for none.
  const Rule* rule = nullptr;
  ElementTexts subject;
};

/// The first of the rules that applies.
Reaction firstReaction(const std::vector<Rule>& rules, const Occurrence& occurrence, const NamedValues& values);

/// All of the rules that apply, in their order.
std::vector<Reaction> allReactions(const std::vector<Rule>& rules, const Occurrence& occurrence,
                                   const NamedValues& values);

}  // namespace quobrak::simulator
