#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/uiautomation/ElementType.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator {

/// One element of a simulated screen, with all below it. It owns its children and knows its parent, so it stays where
/// it was made.
class Element {
 public:
  explicit Element(ElementType elementType);
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;

  /// Adds a child behind the others, which is in front of them on the screen.
  Element& append(std::unique_ptr<Element> child);
  Element& append(ElementType childType) { return append(std::make_unique<Element>(childType)); }

  const Element* parent() const { return parent_; }
  Element* parent() { return parent_; }
  const std::vector<std::unique_ptr<Element>>& children() const { return children_; }

  /// Takes a child out. It must be one.
  std::unique_ptr<Element> remove(const Element& child);

  /// The tree above it is not copied: the copy is a root.
  std::unique_ptr<Element> copy() const;

  /// No other element that was ever made has it.
  const std::uint64_t number;

  ElementType type;
  std::string identifier;
  std::string label;
  std::optional<std::string> value;
  std::optional<std::string> placeholder;
  bool isEnabled = true;
  bool isSelected = false;
  bool hasKeyboardFocus = false;
  /// Whether the element itself, unlike what is in it, is neither seen nor touched where it lies.
  bool isHidden = false;
  /// A colour, 0xRRGGBB, that fills its frame behind what is in it; none for how its type looks.
  std::optional<std::uint32_t> background;
  /// In points of the screen.
  Rect frame;
  /// How far what is in the element has been scrolled from where its screen had it.
  Point scrolled;
  /// What the bullets that a secure field has as its value stand for. Empty before anything is typed into it.
  std::string secret;

 private:
  Element* parent_ = nullptr;
  std::vector<std::unique_ptr<Element>> children_;
};

/// The element that has no parent, of those around the element and itself.
const Element& rootOf(const Element& element);

/// Whether nothing of the children of such an element is seen, or can be touched, outside its frame.
bool clipsItsChildren(ElementType type);

/// Whether such an element dims what is behind it, and takes every touch that nothing in front of it takes, wherever
/// the touch lands.
bool isModal(ElementType type);

/// Whether the element is `ancestor` or lies anywhere in it.
bool isWithin(const Element& element, const Element& ancestor);

/// Calls `visit` with every element below `root`, not with `root` itself, in document order. `root` may be const or
/// not, and so is what `visit` receives.
template <class Root, class Visit>
requires std::same_as<std::remove_const_t<Root>, Element>
void forEachDescendant(Root& root, const Visit& visit) {
  for (const auto& child : root.children()) {
    Root& element = *child;
    visit(element);
    forEachDescendant(element, visit);
  }
}

}  // namespace quobrak::simulator
