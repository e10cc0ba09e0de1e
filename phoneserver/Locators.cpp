#include "phoneserver/Locators.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "phoneserver/AttributeNames.h"
#include "phoneserver/ClassChain.h"
#include "phoneserver/ClassChainEvaluator.h"
#include "phoneserver/PageSourceWriter.h"
#include "phoneserver/PredicateAttributes.h"
#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

template <class Condition>
void collect(const Element& element, int levels, const Condition& condition, FoundElements& found) {
  if (condition(element)) {
    found.push_back(&element);
  }
  if (levels == 0) {
    return;
  }
  for (const auto& child : element.children()) {
    collect(*child, levels - 1, condition, found);
  }
}

/// The root is among them.
template <class Condition>
FoundElements elementsWhere(const SearchScope& scope, const Condition& condition) {
  FoundElements found;
  collect(scope.root, scope.deepest, condition, found);
  return found;
}

FoundElements byClassChain(const SearchScope& scope, const std::string& chain) {
  return elementsOfChain(scope, readClassChain(chain));
}

FoundElements byPredicate(const SearchScope& scope, const std::string& format) {
  const ElementCondition condition(scope.served, readPredicate(format));
  return elementsWhere(scope, [&](const Element& element) { return condition.holds(element); });
}

FoundElements byName(const SearchScope& scope, const std::string& name) {
  return elementsWhere(scope, [&](const Element& element) { return wireNameOf(element) == name; });
}

FoundElements byType(const SearchScope& scope, const std::string& name) {
  const std::optional<ElementType> type = typeOfWireName(name);
  if (!type) {
    throw WireError(WireErrorCode::invalidArgument,
                    "\"" + name + "\" is no element type; one is written like XCUIElementTypeButton");
  }
  return elementsWhere(scope,
                       [&](const Element& element) { return *type == ElementType::any || element.type == *type; });
}

/// A link text is "attribute=text".
struct LinkText {
  std::string attribute;
  std::string text;
};

LinkText linkText(const std::string& description) {
  const auto sign = description.find('=');
  if (sign == std::string::npos) {
    throw WireError(WireErrorCode::invalidSelector,
                    "a link text is an attribute, =, and its text, as in label=Foo; found " + description);
  }
  return {description.substr(0, sign), description.substr(sign + 1)};
}

std::optional<std::string> textOf(const SearchScope& scope, const Element& element, const std::string& attribute) {
  const JSONValue value = attributeOf(scope.served, element, attribute);
  if (const auto* const text = std::get_if<std::string>(&value.variant())) {
    return *text;
  }
  if (const auto* const truth = std::get_if<bool>(&value.variant())) {
    return *truth ? "1" : "0";
  }
  return std::nullopt;
}

FoundElements byLinkText(const SearchScope& scope, const std::string& description) {
  const LinkText wanted = linkText(description);
  requiredAttribute(wanted.attribute);
  return elementsWhere(scope,
                       [&](const Element& element) { return textOf(scope, element, wanted.attribute) == wanted.text; });
}

FoundElements byPartialLinkText(const SearchScope& scope, const std::string& description) {
  const LinkText wanted = linkText(description);
  requiredAttribute(wanted.attribute);
  return elementsWhere(scope, [&](const Element& element) {
    return textOf(scope, element, wanted.attribute).value_or("").find(wanted.text) != std::string::npos;
  });
}

struct Row {
  std::string_view strategy;
  FoundElements (*find)(const SearchScope& scope, const std::string& description);
};

/// Direct clients leave out the platform's name, others send it.
constexpr std::array ROWS{
    Row{"class chain", byClassChain},
    Row{"-ios class chain", byClassChain},
    Row{"predicate string", byPredicate},
    Row{"-ios predicate string", byPredicate},
    Row{"accessibility id", byName},
    Row{"name", byName},
    Row{"id", byName},
    Row{"class name", byType},
    Row{"link text", byLinkText},
    Row{"partial link text", byPartialLinkText},
    Row{"xpath", elementsOfXPath},
};

}  // namespace

FoundElements elementsFound(const SearchScope& scope, const std::string& strategy, const std::string& description) {
  const auto row = std::find_if(ROWS.begin(), ROWS.end(), [&](const Row& known) { return known.strategy == strategy; });
  if (row == ROWS.end()) {
    std::string known;
    for (const Row& candidate : ROWS) {
      known += (known.empty() ? "" : ", ") + std::string(candidate.strategy);
    }
    throw WireError(WireErrorCode::invalidArgument,
                    "there is no locator strategy \"" + strategy + "\"; there are " + known);
  }
  return row->find(scope, description);
}

}  // namespace quobrak::phoneserver
