#include "drivers/simulator/Keyboard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

constexpr std::string_view SHIFT = "shift";
constexpr std::string_view DELETE = "delete";
constexpr std::string_view MORE = "more";
constexpr std::string_view SPACE = "space";
constexpr const char* LAYOUT = "UIKeyboardLayoutStar Preview";

/// The names of the return keys that the phone has, without regard to case.
constexpr std::array<std::string_view, 9> RETURN_KEYS{"return", "go",   "search", "done",    "next",
                                                      "send",   "join", "route",  "continue"};

/// What one plane shows: three rows of characters, and the words on the keys that lead to other planes.
struct PlaneKeys {
  std::array<std::string_view, 3> rows;
  std::string_view shift;
  std::string_view more;
  bool isShifted = false;
};

constexpr std::array PLANES{
    PlaneKeys{{"qwertyuiop", "asdfghjkl", "zxcvbnm"}, "shift", "numbers"},
    PlaneKeys{{"QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"}, "shift", "numbers", true},
    PlaneKeys{{"1234567890", "-/:;()$&@\"", ".,?!'"}, "symbols", "letters"},
    PlaneKeys{{"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"}, "numbers", "letters"},
};

const PlaneKeys& keysOf(KeyboardPlane plane) {
  return PLANES[static_cast<std::size_t>(plane)];
}

std::string nameOf(const Element& key) {
  return key.identifier.empty() ? key.label : key.identifier;
}

bool isReturnKey(const Element& key) {
  const std::string name = caseFolded(nameOf(key)).text;
  return std::find(RETURN_KEYS.begin(), RETURN_KEYS.end(), name) != RETURN_KEYS.end();
}

bool isWithinType(const Element& element, ElementType type) {
  const Element* above = element.parent();
  while (above != nullptr && above->type != type) {
    above = above->parent();
  }
  return above != nullptr;
}

std::string returnKeyFor(const Element& field) {
  if (field.type == ElementType::searchField) {
    return "Search";
  }
  // What a browser has for the address of a page.
  const bool isAddress = field.identifier == "URL" && field.label == "Address";
  if (field.type != ElementType::textView && (isAddress || isWithinType(field, ElementType::webView))) {
    return "Go";
  }
  return "Return";
}

/// The user-perceived characters of a text, each of which is one code point.
std::vector<std::string> codePointsOf(std::string_view text) {
  std::vector<std::string> characters;
  for (const char byte : text) {
    const bool continuesCharacter = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    if (!continuesCharacter) {
      characters.emplace_back();
    }
    characters.back() += byte;
  }
  return characters;
}

/// Puts the keys of a keyboard side by side. The screen is ten letters wide, and has four rows of keys; what is below
/// them is for the bar at the phone's lower edge.
class KeyRows {
 public:
  explicit KeyRows(Element& layout) : layout_(layout), unit_(layout.frame.size.width / LETTERS) {}

  void fill(const PlaneKeys& keys, const std::string& returnKey) {
    for (std::size_t row = 0; row < 2; ++row) {
      appendCharacters(row, keys.rows[row], 1);
    }
    append(ElementType::button, SHIFT, keys.shift, 2, 0, SIDE_KEY).isSelected = keys.isShifted;
    const double middle = LETTERS - 2 * SIDE_KEY;
    const auto count = static_cast<double>(codePointsOf(keys.rows[2]).size());
    appendCharacters(2, keys.rows[2], middle / count);
    append(ElementType::key, DELETE, DELETE, 2, LETTERS - SIDE_KEY, SIDE_KEY);
    append(ElementType::key, MORE, keys.more, 3, 0, WIDE_KEY);
    append(ElementType::key, SPACE, " ", 3, WIDE_KEY, LETTERS - 2 * WIDE_KEY);
    append(ElementType::button, returnKey, caseFolded(returnKey).text, 3, LETTERS - WIDE_KEY, WIDE_KEY);
  }

 private:
  static constexpr double LETTERS = 10;
  static constexpr double SIDE_KEY = 1.5;
  static constexpr double WIDE_KEY = 2.5;
  static constexpr double ROWS = 4;

  /// In the middle of their row; `width` is that of a key in letters.
  void appendCharacters(std::size_t row, std::string_view characters, double width) {
    const std::vector<std::string> labels = codePointsOf(characters);
    double start = (LETTERS - static_cast<double>(labels.size()) * width) / 2;
    for (const std::string& label : labels) {
      append(ElementType::key, "", label, row, start, width);
      start += width;
    }
  }

  /// `start` and `width` in letters.
  Element& append(ElementType type, std::string_view identifier, std::string_view label, std::size_t row, double start,
                  double width) {
    Element& key = layout_.append(type);
    key.identifier = identifier == label ? "" : identifier;
    key.label = label;
    const double height = layout_.frame.size.height / ROWS;
    key.frame = {{layout_.frame.origin.x + start * unit_, layout_.frame.origin.y + static_cast<double>(row) * height},
                 {width * unit_, height}};
    return key;
  }

  Element& layout_;
  double unit_;
};

Element& layoutIn(Element& window) {
  return *window.children().front()->children().front()->children().front();
}

void fill(Element& window, KeyboardPlane plane, const std::string& returnKey) {
  KeyRows(layoutIn(window)).fill(keysOf(plane), returnKey);
}

}  // namespace

std::unique_ptr<Element> keyboardWindow(const Element& field, Size screen) {
  // As on a phone of 844 points, and on a lower one never so high that nothing else is seen.
  constexpr double HEIGHT = 292;
  constexpr double LARGEST_SHARE = 0.4;
  constexpr double SHARE_OF_KEYS = 0.75;
  const double height = std::min(HEIGHT, LARGEST_SHARE * screen.height);
  auto window = std::make_unique<Element>(ElementType::window);
  window->frame = {{0, 0}, screen};
  Element& keyboard = window->append(ElementType::keyboard);
  keyboard.frame = {{0, screen.height - height}, {screen.width, height}};
  Element& keys = keyboard.append(ElementType::other);
  keys.frame = {keyboard.frame.origin, {screen.width, SHARE_OF_KEYS * height}};
  Element& layout = keys.append(ElementType::other);
  layout.identifier = LAYOUT;
  layout.frame = keys.frame;
  fill(*window, KeyboardPlane::letters, returnKeyFor(field));
  return window;
}

void showPlane(Element& window, KeyboardPlane plane) {
  const std::string returnKey = nameOf(*returnKeyIn(window));
  Element& layout = layoutIn(window);
  while (!layout.children().empty()) {
    layout.remove(*layout.children().back());
  }
  fill(window, plane, returnKey);
}

bool isOnKeyboard(const Element& element) {
  return isWithinType(element, ElementType::keyboard);
}

std::optional<std::string> typedBy(const Element& key) {
  const std::string name = nameOf(key);
  if (name == DELETE) {
    return "\b";
  }
  if (name == SPACE || name == " ") {
    return " ";
  }
  if (isReturnKey(key)) {
    return "\n";
  }
  const bool isCharacter = key.type == ElementType::key && characterCount(key.label) == 1;
  return isCharacter ? std::optional(key.label) : std::nullopt;
}

KeyboardPlane planeAfter(const Element& key, KeyboardPlane plane) {
  const std::string name = nameOf(key);
  const bool showsLetters = plane == KeyboardPlane::letters || plane == KeyboardPlane::capitals;
  if (name == MORE) {
    return showsLetters ? KeyboardPlane::numbers : KeyboardPlane::letters;
  }
  if (name == SHIFT) {
    constexpr std::array OTHERS{KeyboardPlane::capitals, KeyboardPlane::letters, KeyboardPlane::symbols,
                                KeyboardPlane::numbers};
    return OTHERS[static_cast<std::size_t>(plane)];
  }
  // A capital is for one letter, and a blank ends a number.
  const bool isLetter = plane == KeyboardPlane::capitals && characterCount(key.label) == 1 && key.label != " ";
  return isLetter || name == SPACE ? KeyboardPlane::letters : plane;
}

const Element* returnKeyIn(const Element& parent) {
  const Element* found = nullptr;
  forEachDescendant(parent, [&found](const Element& element) {
    if (found == nullptr && isOnKeyboard(element) && isReturnKey(element)) {
      found = &element;
    }
  });
  return found;
}

}  // namespace quobrak::simulator
