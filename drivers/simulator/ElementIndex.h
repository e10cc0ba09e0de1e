#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/PlaceSet.h"
#include "drivers/simulator/TextColumn.h"

namespace quobrak::simulator {

/// The attributes of elements that are texts.
enum class TextAttribute { label, identifier, placeholder, value };

/// Texts as they are, or folded for comparing without regard to case.
enum class TextForm { plain, folded };

/// A tree as searches read it: its elements in document order, the root at place 0, and each attribute of all of them
/// side by side. It is made by one walk, and texts are copied and folded when they are first asked for; so it is good
/// only for as long as nothing in the tree changes.
class ElementIndex {
 public:
  /// `root` must outlive the index.
  explicit ElementIndex(const Element& root);

  std::size_t size() const { return elements_.size(); }
  const Element& element(std::size_t place) const { return *elements_[place]; }

  PlaceSet noPlace() const { return PlaceSet(size()); }

  /// The descendants of the elements that are of the type; `ElementType::any` is all types.
  PlaceSet descendants(const PlaceSet& elements, ElementType type) const;

  const PlaceSet& enabled() const { return enabled_; }
  const PlaceSet& selected() const { return selected_; }

  const TextColumn& texts(TextAttribute attribute, TextForm form) const;

 private:
  static constexpr std::size_t ATTRIBUTES = 4;
  static constexpr std::size_t FORMS = 2;

  void add(const Element& element);
  TextColumn column(TextAttribute attribute, TextForm form) const;

  std::vector<const Element*> elements_;
  /// The place behind each element's last descendant.
  std::vector<std::size_t> ends_;
  PlaceSet enabled_;
  PlaceSet selected_;
  mutable std::array<std::array<std::optional<TextColumn>, FORMS>, ATTRIBUTES> columns_;
};

}  // namespace quobrak::simulator
