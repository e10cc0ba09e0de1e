#include "drivers/xctest/PredicateFault.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <variant>

#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::xctest {

namespace {

constexpr std::array<std::string_view, 4> TEXT_ATTRIBUTES{"label", "identifier", "placeholderValue", "value"};
constexpr std::array<std::string_view, 4> TRUTH_ATTRIBUTES{"enabled", "selected", "exists", "hittable"};

bool isOneOf(std::string_view name, const std::array<std::string_view, 4>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::optional<std::string> attributeFault(const NSPredicate::Operand& operand) {
  const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(&operand);
  if (keyPath == nullptr || isOneOf(keyPath->name, TEXT_ATTRIBUTES) || isOneOf(keyPath->name, TRUTH_ATTRIBUTES)) {
    return std::nullopt;
  }
  return "elements have no attribute \"" + keyPath->name +
         "\"; they have label, identifier, placeholderValue, value, enabled, selected, exists, hittable";
}

std::optional<std::string> patternFault(const NSPredicate::Comparison& comparison) {
  const auto* const pattern = std::get_if<std::string>(&comparison.right);
  if (comparison.op != NSPredicate::Operator::matches || pattern == nullptr) {
    return std::nullopt;
  }
  try {
    const NSRegularExpression compiled(*pattern);
  } catch (const RegularExpressionError& error) {
    return error.what();
  }
  return std::nullopt;
}

/// Calls `visit` with every comparison until it answers something.
template <class Visit>
auto firstOf(const NSPredicate& predicate, const Visit& visit) -> decltype(visit(NSPredicate::Comparison{})) {
  if (const auto* const comparison = std::get_if<NSPredicate::Comparison>(&predicate.node())) {
    return visit(*comparison);
  }
  for (const NSPredicate& part : std::get<NSPredicate::Compound>(predicate.node()).parts) {
    if (auto answer = firstOf(part, visit)) {
      return answer;
    }
  }
  return {};
}

bool isKeyPath(const NSPredicate::Operand& operand, std::string_view name) {
  const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(&operand);
  return keyPath != nullptr && keyPath->name == name;
}

}  // namespace

std::optional<std::string> predicateFault(const NSPredicate& predicate) {
  return firstOf(predicate, [](const NSPredicate::Comparison& comparison) {
    std::optional<std::string> fault = attributeFault(comparison.left);
    if (!fault) {
      fault = attributeFault(comparison.right);
    }
    return fault ? fault : patternFault(comparison);
  });
}

bool asksFor(const NSPredicate& predicate, std::string_view attribute) {
  return firstOf(predicate, [attribute](const NSPredicate::Comparison& comparison) {
    return isKeyPath(comparison.left, attribute) || isKeyPath(comparison.right, attribute);
  });
}

bool isTruthAttribute(std::string_view attribute) {
  return isOneOf(attribute, TRUTH_ATTRIBUTES);
}

}  // namespace quobrak::xctest
