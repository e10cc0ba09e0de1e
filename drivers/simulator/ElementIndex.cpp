#include "drivers/simulator/ElementIndex.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

std::optional<std::string_view> textOf(const Element& element, TextAttribute attribute) {
  switch (attribute) {
    case TextAttribute::label:
      return element.label;
    case TextAttribute::identifier:
      return element.identifier;
    case TextAttribute::placeholder:
      return element.placeholder;
    case TextAttribute::value:
      return element.value;
  }
  return std::nullopt;
}

}  // namespace

ElementIndex::ElementIndex(const Element& root) : enabled_(0), selected_(0) {
  add(root);
  enabled_ = selected_ = noPlace();
  for (std::size_t place = 0; place < size(); ++place) {
    if (element(place).isEnabled) {
      enabled_.insert(place);
    }
    if (element(place).isSelected) {
      selected_.insert(place);
    }
  }
}

void ElementIndex::add(const Element& element) {
  const std::size_t place = elements_.size();
  elements_.push_back(&element);
  ends_.emplace_back();
  for (const auto& child : element.children()) {
    add(*child);
  }
  ends_[place] = elements_.size();
}

PlaceSet ElementIndex::descendants(const PlaceSet& elements, ElementType type) const {
  PlaceSet below = noPlace();
  std::size_t walked = 0;
  elements.forEach([&](std::size_t place) {
    // What lies within an element that came before has been seen.
    if (ends_[place] <= walked) {
      return;
    }
    walked = ends_[place];
    if (type == ElementType::any) {
      below.insert(place + 1, walked);
      return;
    }
    for (std::size_t descendant = place + 1; descendant < walked; ++descendant) {
      if (element(descendant).type == type) {
        below.insert(descendant);
      }
    }
  });
  return below;
}

const TextColumn& ElementIndex::texts(TextAttribute attribute, TextForm form) const {
  std::optional<TextColumn>& kept = columns_[static_cast<std::size_t>(attribute)][static_cast<std::size_t>(form)];
  if (!kept) {
    kept = column(attribute, form);
  }
  return *kept;
}

TextColumn ElementIndex::column(TextAttribute attribute, TextForm form) const {
  TextColumn column;
  for (const Element* const element : elements_) {
    const std::optional<std::string_view> text = textOf(*element, attribute);
    if (!text) {
      column.appendMissing();
    } else if (form == TextForm::folded) {
      column.append(caseFolded(*text));
    } else {
      column.append(*text);
    }
  }
  return column;
}

}  // namespace quobrak::simulator
