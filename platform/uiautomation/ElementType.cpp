#include "platform/uiautomation/ElementType.h"

#include <algorithm>
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

}  // namespace

std::string_view nameOf(ElementType type) {
  return NAMES[static_cast<std::size_t>(type)];
}

std::optional<ElementType> elementTypeNamed(std::string_view name) {
  const auto found = std::find(NAMES.begin(), NAMES.end(), name);
  if (found == NAMES.end()) {
    return std::nullopt;
  }
  return static_cast<ElementType>(found - NAMES.begin());
}

}  // namespace quobrak
