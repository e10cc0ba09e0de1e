#include "platform/uiautomation/QueryChain.h"

#include <cstddef>
#include <variant>

namespace quobrak {

namespace {

struct InWords {
  std::string operator()(const DescendantsStep& step) const {
    return "Descendants matching type " + std::string(nameOf(step.type));
  }
  std::string operator()(const MatchingPredicateStep& step) const {
    return "Elements matching predicate '" + step.predicate.predicateFormat() + "'";
  }
  std::string operator()(const MatchingIdentifierStep& step) const {
    return "Elements matching identifier '" + step.identifier + "'";
  }
  std::string operator()(const ElementPick& pick) const {
    const auto* const atIndex = std::get_if<AtIndex>(&pick);
    return "Element at index " + std::to_string(atIndex == nullptr ? 0 : atIndex->index);
  }
  std::string operator()(const ApplicationRoot& root) const { return "Application '" + root.bundleIdentifier + "'"; }
  std::string operator()(const std::shared_ptr<const ElementHandle>& handle) const { return handle->description(); }
};

std::string line(std::size_t depth, const std::string& step) {
  return (depth == 0 ? " →" : std::string(2 * depth, ' ') + "↪︎") + "Find: " + step + "\n";
}

}  // namespace

std::vector<std::string> queryChainSteps(const XCUIElement& element) {
  std::vector<std::string> steps{line(0, std::visit(InWords{}, element.query().root()))};
  for (const QueryStep& step : element.query().steps()) {
    steps.push_back(line(steps.size(), std::visit(InWords{}, step)));
  }
  if (element.pick()) {
    steps.push_back(line(steps.size(), InWords{}(*element.pick())));
  }
  return steps;
}

std::string queryChain(const XCUIElement& element) {
  std::string text = QUERY_CHAIN_TITLE;
  for (const std::string& step : queryChainSteps(element)) {
    text += step;
  }
  return text;
}

}  // namespace quobrak
