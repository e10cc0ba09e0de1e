#include "benchmarks/screens/SettingsPage.h"

#include <pugixml.hpp>

#include <array>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>

namespace quobrak::benchmarks {

namespace {

constexpr std::array<std::string_view, 14> LANGUAGES{
    "English", "Deutsch", "Français (Canada)", "Español", "日本語",     "简体中文",         "한국어",
    "Čeština", "Русский", "Українська",        "हिन्दी",   "Tiếng Việt", "Bahasa Indonesia", "Português (Brasil)",
};

constexpr long ROW_HEIGHT = 59;
constexpr long WIDTH = 402;
constexpr long TOP_OF_LIST = 116;

struct Place {
  long x;
  long y;
  long width;
  long height;
};

struct Texts {
  std::string identifier = {};
  std::string label = {};
  std::string value = {};
};

enum class IsEnabled { yes, no };

std::string_view traitsOf(std::string_view type, IsEnabled isEnabled) {
  if (type == "Button") {
    return isEnabled == IsEnabled::yes ? "Button" : "NotEnabled, Button";
  }
  return type == "StaticText" || type == "Image" ? type : "";
}

class PageBuilder {
 public:
  explicit PageBuilder(std::size_t elements) : left_(elements) {
    constexpr Place SCREEN{0, 0, WIDTH, 874};
    pugi::xml_node around = append(document_, "Application", SCREEN, {.label = "Settings"});
    around.append_attribute("processId") = "3165";
    around.append_attribute("bundleId") = "com.apple.Preferences";
    for (const std::string_view container : {"Window", "Other", "Other", "Other"}) {
      around = append(around, container, SCREEN);
    }
    pugi::xml_node bar = append(around, "NavigationBar", {0, 62, WIDTH, 54}, {.label = "Language"});
    append(bar, "Button", {0, 62, 90, 54}, {.identifier = "BackButton", .label = "General"});
    pugi::xml_node table = append(around, "Table", SCREEN);
    append(table, "Other", {WIDTH - 6, 116, 3, 725}, {.label = "Vertical scroll bar, 43 pages", .value = "0%"});
    for (long row = 0; left_ > 0; ++row) {
      appendRow(table, row);
    }
  }

  std::string text() const {
    std::ostringstream text;
    document_.save(text, "  ");
    return text.str();
  }

 private:
  void appendRow(pugi::xml_node table, long row) {
    const long top = TOP_OF_LIST + row * ROW_HEIGHT;
    const std::string number = std::to_string(row);
    const std::string language(LANGUAGES[static_cast<std::size_t>(row) % LANGUAGES.size()]);
    pugi::xml_node cell = append(table, "Cell", {0, top, WIDTH, ROW_HEIGHT});
    append(cell, "Other", {0, top, WIDTH, ROW_HEIGHT});
    pugi::xml_node content = append(cell, "Other", {16, top, WIDTH - 32, ROW_HEIGHT});
    append(content, "StaticText", {16, top + 8, 133, 21}, {.label = language + " " + number});
    append(content, "StaticText", {16, top + 31, 133, 18}, {.label = "Language number " + number + " of this phone"});
    append(cell, "Other", {16, top + ROW_HEIGHT - 1, WIDTH - 16, 1});
    if (row % 3 == 0) {
      append(cell, "Other", {0, top, WIDTH, 1});
    }
    if (row % 14 == 0) {
      append(cell, "Button", {330, top + 10, 40, 40}, {.identifier = "info." + number, .label = "More Info"});
    }
    if (row % 17 == 0) {
      append(cell, "Image", {370, top + 20, 20, 20}, {.identifier = "checkmark." + number});
    }
    if (row % 58 == 0) {
      append(cell, "Button", {380, top + 20, 10, 20}, {.label = "chevron"}, IsEnabled::no);
    }
  }

  pugi::xml_node append(pugi::xml_node parent, std::string_view type, const Place& place, const Texts& texts = {},
                        IsEnabled isEnabled = IsEnabled::yes) {
    if (left_ == 0) {
      return spare_.append_child("Spare");
    }
    --left_;
    const std::string name = "XCUIElementType" + std::string(type);
    pugi::xml_node node = parent.append_child(name.c_str());
    constexpr int NONE_BEFORE = -1;
    const int index = node.previous_sibling().attribute("index").as_int(NONE_BEFORE) + 1;
    const auto set = [&node](const char* attribute, const std::string& text) {
      node.append_attribute(attribute) = text.c_str();
    };
    set("type", name);
    if (const std::string& value = type == "StaticText" ? texts.label : texts.value; !value.empty()) {
      set("value", value);
    }
    if (const std::string& either = texts.identifier.empty() ? texts.label : texts.identifier; !either.empty()) {
      set("name", either);
    }
    if (!texts.label.empty()) {
      set("label", texts.label);
    }
    const bool isSeen = place.y < static_cast<long>(SETTINGS_SCREEN.height);
    set("enabled", isEnabled == IsEnabled::yes ? "true" : "false");
    set("visible", isSeen ? "true" : "false");
    set("accessible", texts.label.empty() ? "false" : "true");
    set("x", std::to_string(place.x));
    set("y", std::to_string(place.y));
    set("width", std::to_string(place.width));
    set("height", std::to_string(place.height));
    set("index", std::to_string(index));
    set("traits", std::string(traitsOf(type, isEnabled)));
    return node;
  }

  std::size_t left_;
  pugi::xml_document document_;
  /// Takes what comes after the last element.
  pugi::xml_document spare_;
};

}  // namespace

std::string settingsPage(std::size_t elements) {
  return PageBuilder(elements).text();
}

}  // namespace quobrak::benchmarks
