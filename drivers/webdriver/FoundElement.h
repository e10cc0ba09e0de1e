#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/JSON.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "platform/uiautomation/ElementType.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::webdriver {

/// An element as a look-up brought it: what it is called on the wire, and what it was like at that moment.
struct FoundElement {
  std::string id{};
  ElementType type = ElementType::other;
  std::string identifier{};
  std::string label{};
  ElementValue value{};
  std::optional<std::string> placeholder{};
  bool isEnabled = true;
  bool isSelected = false;
  bool isHittable = false;
  /// In points of the screen, rounded outwards to whole ones.
  Rect frame{};
};

/// The elements in the answer to a look-up. Throws `CommandError` (nonsense) where it is none.
std::vector<FoundElement> foundElements(const JSONValue& reply);

/// A rectangle in an answer; one without extent where it is none.
Rect rectIn(const JSONValue& value);

/// Truth values come as such, as numbers or as texts.
bool truthOf(const JSONValue& value);

}  // namespace quobrak::webdriver
