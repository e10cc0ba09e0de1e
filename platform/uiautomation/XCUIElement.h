#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/foundation/Clock.h"
#include "platform/uiautomation/Geometry.h"
#include "platform/uiautomation/XCUIElementQuery.h"

namespace quobrak {

class XCUICoordinate;

/// A value that is neither absent nor text, such as a slider's number.
struct OtherValue {
  bool operator==(const OtherValue&) const = default;
};
using ElementValue = std::variant<std::monostate, std::string, OtherValue>;

enum class SwipeDirection { up, down, left, right };

/// A description of one element: a query and how one of its elements is picked. It is resolved anew each time it is
/// used. What each operation promises stands at the primitive of `UIDriver` that it calls.
class XCUIElement {
 public:
  /// The root of a query: an application, or an element that a driver handed over.
  explicit XCUIElement(QueryRoot root) : query_(std::move(root)) {}
  XCUIElement(XCUIElementQuery query, ElementPick pick) : query_(std::move(query)), pick_(pick) {}

  const XCUIElementQuery& query() const { return query_; }
  /// None for the root of a query.
  const std::optional<ElementPick>& pick() const { return pick_; }

  XCUIElementQuery descendants(ElementType type) const;
  XCUIElementQuery buttons() const { return descendants(ElementType::button); }
  XCUIElementQuery keyboards() const { return descendants(ElementType::keyboard); }
  XCUIElementQuery scrollViews() const { return descendants(ElementType::scrollView); }
  XCUIElementQuery staticTexts() const { return descendants(ElementType::staticText); }
  XCUIElementQuery windows() const { return descendants(ElementType::window); }

  bool exists() const;
  bool isHittable() const;
  std::string label() const;
  std::string identifier() const;
  ElementValue value() const;
  Rect frame() const;
  std::string debugDescription() const;

  /// Whether the element exists before the time-out has passed.
  bool waitForExistence(Seconds timeout) const;

  void tap() const;
  void press(Seconds duration) const;
  void typeText(std::string_view text) const;
  void swipe(SwipeDirection direction) const;

  XCUICoordinate coordinate(NormalizedOffset offset) const;

 private:
  XCUIElementQuery query_;
  std::optional<ElementPick> pick_;
};

/// The element in words, for error texts: `the element (first) of the StaticText descendants, matching label == "x" of
/// the application "com.example.shop"`.
std::string describe(const XCUIElement& element);
std::string describe(const XCUIElementQuery& query);

}  // namespace quobrak
