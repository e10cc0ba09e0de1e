#include "drivers/webdriver/WirePredicate.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::webdriver {

namespace {

using Comparison = NSPredicate::Comparison;
using Compound = NSPredicate::Compound;
using KeyPath = NSPredicate::KeyPath;
using Operator = NSPredicate::Operator;

constexpr std::array<std::string_view, 4> TEXT_ATTRIBUTES{"label", "identifier", "placeholderValue", "value"};
constexpr std::array<std::string_view, 4> TRUTH_ATTRIBUTES{"enabled", "selected", "exists", "hittable"};

bool isOneOf(std::string_view name, const std::array<std::string_view, 4>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

void requireKnown(const NSPredicate::Operand& operand) {
  const auto* const keyPath = std::get_if<KeyPath>(&operand);
  if (keyPath != nullptr && !isOneOf(keyPath->name, TEXT_ATTRIBUTES) && !isOneOf(keyPath->name, TRUTH_ATTRIBUTES)) {
    throw UnaskableQuery(
        "elements have no attribute \"" + keyPath->name +
        "\"; they have label, identifier, placeholderValue, value, enabled, selected, exists, hittable");
  }
}

/// What of the comparison does not depend on an element.
bool holdsOf(const NSPredicate& constant) {
  class Nothing final : public KeyValueSource {
   public:
    Value valueForKey(std::string_view) const override { return {}; }
  };
  return PredicateEvaluator(constant).evaluate(Nothing());
}

std::string_view operatorText(const Comparison& comparison) {
  switch (comparison.op) {
    case Operator::equalTo:
      return comparison.ignoresCase ? " ==[c] " : " == ";
    case Operator::contains:
      return comparison.ignoresCase ? " CONTAINS[c] " : " CONTAINS ";
    case Operator::matches:
      return comparison.ignoresCase ? " MATCHES[c] " : " MATCHES ";
  }
  return "";
}

/// The comparison with something else on its left side.
NSPredicate compared(const std::string& left, const Comparison& comparison) {
  const std::string format = left + std::string(operatorText(comparison)) + "%@";
  if (const auto* const text = std::get_if<std::string>(&comparison.right)) {
    return NSPredicate(format, {*text});
  }
  return NSPredicate(format, {std::get<bool>(comparison.right)});
}

/// Whether the comparison would hold for an attribute that is the empty text.
bool holdsOfEmptyText(const Comparison& comparison) {
  return holdsOf(compared("\"\"", comparison));
}

WirePredicate allOf(const std::vector<WirePredicate>& parts) {
  std::vector<NSPredicate> open;
  for (const WirePredicate& part : parts) {
    if (const bool* const constant = std::get_if<bool>(&part)) {
      if (!*constant) {
        return false;
      }
    } else {
      open.push_back(std::get<NSPredicate>(part));
    }
  }
  if (open.empty()) {
    return true;
  }
  return open.size() == 1 ? open.front() : NSCompoundPredicate::andPredicate(std::move(open));
}

WirePredicate negated(const WirePredicate& part) {
  if (const bool* const constant = std::get_if<bool>(&part)) {
    return !*constant;
  }
  return NSCompoundPredicate::notPredicate(std::get<NSPredicate>(part));
}

WirePredicate anyOf(const std::vector<WirePredicate>& parts) {
  std::vector<NSPredicate> open;
  for (const WirePredicate& part : parts) {
    if (const bool* const constant = std::get_if<bool>(&part)) {
      if (*constant) {
        return true;
      }
    } else {
      open.push_back(std::get<NSPredicate>(part));
    }
  }
  if (open.empty()) {
    return false;
  }
  return open.size() == 1 ? open.front() : NSCompoundPredicate::orPredicate(std::move(open));
}

/// A missing value matches nothing, and so does not match everything.
NSPredicate missing(const std::string& attribute) {
  return NSPredicate("NOT " + attribute + " MATCHES %@", {std::string("(?s).*")});
}

WirePredicate labelComparison(const Comparison& comparison) {
  const NSPredicate present = compared("label", comparison);
  return holdsOfEmptyText(comparison) ? anyOf({present, missing("label")}) : WirePredicate(present);
}

/// The name is the identifier only where it is not the label's text.
WirePredicate identifierComparison(const Comparison& comparison) {
  const NSPredicate isLabel("name == label");
  const WirePredicate present = allOf({compared("name", comparison), negated(isLabel)});
  return holdsOfEmptyText(comparison) ? anyOf({present, isLabel, missing("name")}) : present;
}

/// On the wire a static text without a value has its label as value, and a selected button has "1".
WirePredicate valueComparison(const Comparison& comparison) {
  const NSPredicate isLabel("type == %@ AND value == label", {std::string("XCUIElementTypeStaticText")});
  const NSPredicate isSelection("type == %@ AND selected == TRUE AND value == %@",
                                {std::string("XCUIElementTypeButton"), std::string("1")});
  return allOf({compared("value", comparison), negated(isLabel), negated(isSelection)});
}

WirePredicate textComparison(const std::string& attribute, const Comparison& comparison) {
  if (std::holds_alternative<bool>(comparison.right)) {
    return false;
  }
  if (attribute == "label") {
    return labelComparison(comparison);
  }
  if (attribute == "identifier") {
    return identifierComparison(comparison);
  }
  return attribute == "value" ? valueComparison(comparison) : WirePredicate(compared(attribute, comparison));
}

WirePredicate truthComparison(const std::string& attribute, const Comparison& comparison) {
  const bool* const wanted = std::get_if<bool>(&comparison.right);
  if (wanted == nullptr || comparison.op != Operator::equalTo) {
    return false;
  }
  // What a query finds exists.
  return attribute == "exists" ? WirePredicate(*wanted) : WirePredicate(compared(attribute, comparison));
}

bool isKeyPath(const NSPredicate::Operand& operand) {
  return std::holds_alternative<KeyPath>(operand);
}

WirePredicate comparisonOnTheWire(const NSPredicate& predicate, Comparison comparison) {
  if (!isKeyPath(comparison.left) && !isKeyPath(comparison.right)) {
    return holdsOf(predicate);
  }
  if (!isKeyPath(comparison.left) && comparison.op == Operator::equalTo) {
    std::swap(comparison.left, comparison.right);
  }
  if (!isKeyPath(comparison.left) || isKeyPath(comparison.right)) {
    throw UnaskableQuery(
        "over WebDriver, only comparisons of an attribute with a text or a truth value can be asked: " +
        predicate.predicateFormat());
  }
  const std::string& attribute = std::get<KeyPath>(comparison.left).name;
  return isOneOf(attribute, TRUTH_ATTRIBUTES) ? truthComparison(attribute, comparison)
                                              : textComparison(attribute, comparison);
}

}  // namespace

void requireAskable(const NSPredicate& predicate) {
  if (const auto* const compound = std::get_if<Compound>(&predicate.node())) {
    std::for_each(compound->parts.begin(), compound->parts.end(), requireAskable);
    return;
  }
  const auto& comparison = std::get<Comparison>(predicate.node());
  requireKnown(comparison.left);
  requireKnown(comparison.right);
  if (const auto* const pattern = std::get_if<std::string>(&comparison.right);
      pattern != nullptr && comparison.op == Operator::matches) {
    try {
      const NSRegularExpression compiled(*pattern);
    } catch (const RegularExpressionError& error) {
      throw UnaskableQuery(error.what());
    }
  }
}

WirePredicate wirePredicate(const NSPredicate& predicate) {
  if (const auto* const comparison = std::get_if<Comparison>(&predicate.node())) {
    return comparisonOnTheWire(predicate, *comparison);
  }
  const auto& compound = std::get<Compound>(predicate.node());
  std::vector<WirePredicate> parts;
  std::transform(compound.parts.begin(), compound.parts.end(), std::back_inserter(parts), wirePredicate);
  switch (compound.junction) {
    case NSPredicate::Junction::conjunction:
      return allOf(parts);
    case NSPredicate::Junction::disjunction:
      return anyOf(parts);
    case NSPredicate::Junction::negation:
      return negated(parts.front());
  }
  return false;
}

NSPredicate wireIdentifierPredicate(const std::string& identifier) {
  if (identifier.empty()) {
    // Whatever has no identifier or no label.
    return std::get<NSPredicate>(anyOf({missing("label"), NSPredicate("label == \"\""), NSPredicate("name == label")}));
  }
  return NSPredicate("name == %@ OR label == %@", {identifier, identifier});
}

}  // namespace quobrak::webdriver
