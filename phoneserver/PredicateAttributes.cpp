#include "phoneserver/PredicateAttributes.h"

#include <string>
#include <variant>

#include "phoneserver/AttributeNames.h"
#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

KeyValueSource::Value valueOf(const std::optional<std::string_view>& text) {
  return text ? KeyValueSource::Value(*text) : KeyValueSource::Value();
}

/// What `work` gives; what a pattern can get wrong becomes an error of the protocol.
template <class Work>
auto withPatternErrors(const Work& work) {
  try {
    return work();
  } catch (const RegularExpressionError& error) {
    throw WireError(WireErrorCode::unknownError, error.what());
  }
}

}  // namespace

KeyValueSource::Value PredicateAttributes::valueForKey(std::string_view key) const {
  switch (requiredAttribute(key)) {
    case AttributeName::name:
      return valueOf(wireNameOf(element_));
    case AttributeName::label:
      return valueOf(wireLabelOf(element_));
    case AttributeName::value:
      return valueOf(wireValueOf(element_));
    case AttributeName::placeholderValue:
      return valueOf(wirePlaceholderOf(element_));
    case AttributeName::type:
      return std::string_view(wireTypeOf(element_.type));
    case AttributeName::enabled:
      return element_.isEnabled;
    case AttributeName::selected:
      return element_.isSelected;
    case AttributeName::focused:
      return element_.hasKeyboardFocus;
    case AttributeName::visible:
      return served_.isVisible(element_);
    case AttributeName::accessible:
      return isAccessible(element_);
    case AttributeName::accessibilityContainer:
      return isAccessibilityContainer(element_);
    case AttributeName::hittable:
      return served_.isHittable(element_);
    case AttributeName::index:
    case AttributeName::rectX:
    case AttributeName::rectY:
    case AttributeName::rectWidth:
    case AttributeName::rectHeight:
    case AttributeName::rect:
    case AttributeName::frame:
      break;
  }
  throw WireError(WireErrorCode::unknownError,
                  "predicates cannot compare the attribute \"" + std::string(key) + "\" on this phone");
}

void requireKnownAttributes(const NSPredicate& predicate) {
  if (const auto* const compound = std::get_if<NSPredicate::Compound>(&predicate.node())) {
    for (const NSPredicate& part : compound->parts) {
      requireKnownAttributes(part);
    }
    return;
  }
  const auto& comparison = std::get<NSPredicate::Comparison>(predicate.node());
  for (const NSPredicate::Operand* const operand : {&comparison.left, &comparison.right}) {
    if (const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(operand)) {
      requiredAttribute(keyPath->name);
    }
  }
}

ElementCondition::ElementCondition(const ServedPhone& served, const NSPredicate& predicate) : served_(served) {
  requireKnownAttributes(predicate);
  withPatternErrors([&] { evaluator_.emplace(predicate); });
}

bool ElementCondition::holds(const Element& element) const {
  return withPatternErrors([&] { return evaluator_->evaluate(PredicateAttributes(served_, element)); });
}

}  // namespace quobrak::phoneserver
