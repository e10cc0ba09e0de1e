#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::testing {

/// What a line of an element description says, as written there. Texts that are left out are empty.
struct DescribedElement {
  /// How far below the element that is described.
  std::size_t depth = 0;
  std::string type;
  bool isMain = false;
  std::string address;
  std::optional<int> processIdentifier;
  std::string frame;
  std::string identifier;
  std::string label;
  std::string title;
  std::string placeholder;
  std::string value;
  bool hasKeyboardFocus = false;
  bool hasFocus = false;
  bool isSelected = false;
  bool isEnabled = true;

  bool operator==(const DescribedElement&) const = default;
};

/// Everything that a line of a subtree may say by the grammar of the platform's descriptions: none where it breaks the
/// grammar, and several where texts may hold what looks like parts of it, since quotes in them are not escaped. The
/// first one is what tools take it for: a text in quotes ends at the first quote behind which another attribute begins,
/// and else at the last quote; what looks like a flag at the end is one.
std::vector<DescribedElement> readings(std::string_view line);

/// Whether the element's texts hold nothing that looks like a part of the grammar, so that tools cannot mistake it.
bool isPlain(const DescribedElement& element);

/// The lines of a description's subtree. Lines of a text are no lines of the subtree, but belong to the element's.
std::vector<std::string> subtreeLines(std::string_view description);

}  // namespace quobrak::testing
