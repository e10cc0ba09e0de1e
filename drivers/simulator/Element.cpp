#include "drivers/simulator/Element.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>

namespace quobrak::simulator {

namespace {

std::uint64_t nextNumber() {
  static std::atomic<std::uint64_t> last = 0;
  return ++last;
}

}  // namespace

Element::Element(ElementType elementType) : number(nextNumber()), type(elementType) {}

Element& Element::append(std::unique_ptr<Element> child) {
  child->parent_ = this;
  // Most have few children, for which a vector would be allocated anew with every second one.
  constexpr std::size_t A_FEW = 4;
  if (children_.capacity() == 0) {
    children_.reserve(A_FEW);
  }
  return *children_.emplace_back(std::move(child));
}

std::unique_ptr<Element> Element::remove(const Element& child) {
  const auto found = std::find_if(children_.begin(), children_.end(),
                                  [&child](const auto& candidate) { return candidate.get() == &child; });
  std::unique_ptr<Element> removed = std::move(*found);
  children_.erase(found);
  removed->parent_ = nullptr;
  return removed;
}

std::unique_ptr<Element> Element::copy() const {
  auto made = std::make_unique<Element>(type);
  made->identifier = identifier;
  made->label = label;
  made->value = value;
  made->placeholder = placeholder;
  made->isEnabled = isEnabled;
  made->isSelected = isSelected;
  made->hasKeyboardFocus = hasKeyboardFocus;
  made->isHidden = isHidden;
  made->background = background;
  made->frame = frame;
  made->scrolled = scrolled;
  made->secret = secret;
  for (const auto& child : children_) {
    made->append(child->copy());
  }
  return made;
}

const Element& rootOf(const Element& element) {
  const Element* root = &element;
  while (root->parent() != nullptr) {
    root = root->parent();
  }
  return *root;
}

bool clipsItsChildren(ElementType type) {
  return type == ElementType::application || type == ElementType::scrollView || type == ElementType::table ||
         type == ElementType::collectionView || type == ElementType::webView || type == ElementType::textView;
}

bool isModal(ElementType type) {
  return type == ElementType::alert || type == ElementType::sheet || type == ElementType::dialog;
}

bool isWithin(const Element& element, const Element& ancestor) {
  const Element* step = &element;
  while (step != nullptr && step != &ancestor) {
    step = step->parent();
  }
  return step != nullptr;
}

}  // namespace quobrak::simulator
