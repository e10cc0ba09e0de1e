#include "platform/uiautomation/ElementType.h"

#include <array>
#include <cstddef>

namespace quobrak {

namespace {

/// In the order of the raw values.
constexpr std::array NAMES = std::to_array<std::string_view>({"Any",
                                                              "Other",
                                                              "Application",
                                                              "Group",
                                                              "Window",
                                                              "Sheet",
                                                              "Drawer",
                                                              "Alert",
                                                              "Dialog",
                                                              "Button",
                                                              "RadioButton",
                                                              "RadioGroup",
                                                              "CheckBox",
                                                              "DisclosureTriangle",
                                                              "PopUpButton",
                                                              "ComboBox",
                                                              "MenuButton",
                                                              "ToolbarButton",
                                                              "Popover",
                                                              "Keyboard",
                                                              "Key",
                                                              "NavigationBar",
                                                              "TabBar",
                                                              "TabGroup",
                                                              "Toolbar",
                                                              "StatusBar",
                                                              "Table",
                                                              "TableRow",
                                                              "TableColumn",
                                                              "Outline",
                                                              "OutlineRow",
                                                              "Browser",
                                                              "CollectionView",
                                                              "Slider",
                                                              "PageIndicator",
                                                              "ProgressIndicator",
                                                              "ActivityIndicator",
                                                              "SegmentedControl",
                                                              "Picker",
                                                              "PickerWheel",
                                                              "Switch",
                                                              "Toggle",
                                                              "Link",
                                                              "Image",
                                                              "Icon",
                                                              "SearchField",
                                                              "ScrollView",
                                                              "ScrollBar",
                                                              "StaticText",
                                                              "TextField",
                                                              "SecureTextField",
                                                              "DatePicker",
                                                              "TextView",
                                                              "Menu",
                                                              "MenuItem",
                                                              "MenuBar",
                                                              "MenuBarItem",
                                                              "Map",
                                                              "WebView",
                                                              "IncrementArrow",
                                                              "DecrementArrow",
                                                              "Timeline",
                                                              "RatingIndicator",
                                                              "ValueIndicator",
                                                              "SplitGroup",
                                                              "Splitter",
                                                              "RelevanceIndicator",
                                                              "ColorWell",
                                                              "HelpTag",
                                                              "Matte",
                                                              "DockItem",
                                                              "Ruler",
                                                              "RulerMarker",
                                                              "Grid",
                                                              "LevelIndicator",
                                                              "Cell",
                                                              "LayoutArea",
                                                              "LayoutItem",
                                                              "Handle",
                                                              "Stepper",
                                                              "Tab",
                                                              "TouchBar",
                                                              "StatusItem"});

static_assert(NAMES.size() == static_cast<std::size_t>(ElementType::statusItem) + 1);
static_assert(NAMES[static_cast<std::size_t>(ElementType::cell)] == "Cell");
static_assert(NAMES[static_cast<std::size_t>(ElementType::staticText)] == "StaticText");

/// A hash table of the names, half empty and more, so that a look-up seldom meets another name. Screens have thousands
/// of types to look up.
constexpr std::size_t SLOTS = 256;
constexpr std::uint8_t NO_TYPE = 0xFF;

constexpr std::size_t slotOf(std::string_view name) {
  // FNV-1a
  std::uint32_t hash = 2166136261;
  for (const char letter : name) {
    hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619;
  }
  return hash % SLOTS;
}

constexpr std::size_t slotBehind(std::size_t slot) {
  return (slot + 1) % SLOTS;
}

constexpr std::array TYPES_BY_SLOT = [] {
  std::array<std::uint8_t, SLOTS> types{};
  types.fill(NO_TYPE);
  for (std::size_t type = 0; type < NAMES.size(); ++type) {
    std::size_t slot = slotOf(NAMES[type]);
    while (types[slot] != NO_TYPE) {
      slot = slotBehind(slot);
    }
    types[slot] = static_cast<std::uint8_t>(type);
  }
  return types;
}();

}  // namespace

std::string_view nameOf(ElementType type) {
  return NAMES[static_cast<std::size_t>(type)];
}

std::optional<ElementType> elementTypeNamed(std::string_view name) {
  for (std::size_t slot = slotOf(name); TYPES_BY_SLOT[slot] != NO_TYPE; slot = slotBehind(slot)) {
    if (NAMES[TYPES_BY_SLOT[slot]] == name) {
      return static_cast<ElementType>(TYPES_BY_SLOT[slot]);
    }
  }
  return std::nullopt;
}

}  // namespace quobrak
