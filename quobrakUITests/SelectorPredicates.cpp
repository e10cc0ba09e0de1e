#include "quobrakUITests/SelectorPredicates.h"

#include <string>
#include <utility>
#include <vector>

namespace quobrak {

namespace {

std::string comparisonOf(const TextSelector& selector) {
  return selector.isExact ? " MATCHES %@" : " CONTAINS[c] %@";
}

}  // namespace

NSPredicate anyTextPredicate(const TextSelector& selector, bool isEnabled) {
  std::vector<NSPredicate> alternatives;
  for (const std::string attribute : {"label", "identifier", "placeholderValue"}) {
    alternatives.emplace_back(attribute + comparisonOf(selector) + " and enabled == %@",
                              std::initializer_list<NSPredicate::Argument>{std::string(selector.text), isEnabled});
  }
  return NSCompoundPredicate::orPredicate(std::move(alternatives));
}

NSPredicate attributePredicate(std::string_view attribute, const TextSelector& selector) {
  return NSPredicate(std::string(attribute) + comparisonOf(selector), {std::string(selector.text)});
}

NSPredicate statePredicate(bool isEnabled) {
  return NSPredicate("enabled == %@", {isEnabled});
}

}  // namespace quobrak
