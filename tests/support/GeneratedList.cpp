#include "tests/support/GeneratedList.h"

#include <algorithm>
#include <array>
#include <pugixml.hpp>
#include <sstream>
#include <string_view>

namespace quobrak::testing {

namespace {

constexpr std::array<std::string_view, 24> DEVICES{
    "Lamp",   "Heating",     "Blind",  "Fan",    "Door",       "Window", "Speaker", "Camera",
    "Socket", "Thermometer", "Alarm",  "Clock",  "Radio",      "Oven",   "Kettle",  "Shower",
    "Bell",   "Lock",        "Screen", "Sensor", "Humidifier", "Piano",  "Hob",     "Printer"};

constexpr std::array<std::string_view, 20> ROOMS{
    "in the hall",       "in the kitchen",    "in the cellar",  "on the balcony",  "in the attic",
    "in the study",      "in the nursery",    "on the terrace", "in the bathroom", "in the garage",
    "in Zoë’s room",     "in the café",       "by the stairs",  "in the workshop", "beside the sofa",
    "behind the mirror", "in the greenhouse", "at the gate",    "under the roof",  "in the guest room"};

constexpr std::array<std::string_view, 24> STATES{
    "On",
    "Off since yesterday",
    "Включено до утра",
    "Выключено",
    "Ανοιχτό όλη τη νύχτα",
    "接続されています",
    "已关闭",
    "꺼져 있음",
    "مغلق الآن",
    "דלוק כל הלילה",
    "เปิดอยู่",
    "चालू है",
    "Größe geändert",
    "Straßenseite, läuft",
    "Réglé à 19 °C",
    "À réparer — appeler l’électricien",
    "İyi çalışıyor",
    "🔋 full",
    "👩🏽‍🔧 on the way",
    "🌡️ 21 °C, “quiet”",
    "Tom & Ann’s <guests>",
    "Say 'open' or \"close\"",
    "NOT REACHABLE",
    "Two lines:\nthe second",
};

constexpr double WIDTH = GENERATED_LIST_SCREEN.width;
constexpr double LIST_TOP = 150;
constexpr Rect LIST{{0, LIST_TOP}, {WIDTH, GENERATED_LIST_SCREEN.height - LIST_TOP}};

// One row in so many has it.
constexpr std::size_t ROWS_TO_A_PICTURE = 17;
constexpr std::size_t ROWS_TO_AN_INFO_BUTTON = 16;
constexpr std::size_t ROWS_TO_AN_ARROW = 58;
constexpr std::size_t ROWS_TO_A_NAMED_CELL = 35;
constexpr std::size_t ROWS_TO_A_FOURTH_CONTAINER = 3;

class Page {
 public:
  explicit Page(std::size_t elements) : left_(elements) {}

  std::string written() {
    pugi::xml_node application = add(document_, "Application", {{0, 0}, GENERATED_LIST_SCREEN});
    name(application, "House", "House");
    pugi::xml_node window = add(application, "Window", {{0, 0}, GENERATED_LIST_SCREEN});
    pugi::xml_node content = add(window, "Other", {{0, 0}, GENERATED_LIST_SCREEN});
    addBar(content);
    addSearchField(content);
    addList(content);
    std::ostringstream text;
    document_.save(text, " ");
    return text.str();
  }

 private:
  void addBar(pugi::xml_node content) {
    pugi::xml_node bar = add(content, "NavigationBar", {{0, 47}, {WIDTH, 51}});
    name(bar, "Devices", "");
    name(add(bar, "Button", {{8, 50}, {90, 44}}), "BackButton", "House");
    addText(bar, "Devices", {{150, 60}, {102, 24}});
  }

  void addSearchField(pugi::xml_node content) {
    pugi::xml_node field = add(content, "SearchField", {{16, 104}, {WIDTH - 32, 36}});
    name(field, "Search", "Search");
    field.append_attribute("value") = "Room or device";
    field.append_attribute("placeholderValue") = "Room or device";
  }

  void addList(pugi::xml_node content) {
    pugi::xml_node list = add(content, "Table", LIST);
    pugi::xml_node bar = add(list, "Other", {{WIDTH - 33, LIST_TOP}, {30, LIST.size.height}});
    name(bar, "Vertical scroll bar, 34 pages", "Vertical scroll bar, 34 pages");
    bar.append_attribute("value") = "0%";
    double top = LIST_TOP;
    for (std::size_t row = 0; left_ > 0; ++row) {
      const double height = 48 + 4 * static_cast<double>(row % 3);
      addRow(list, row, {{0, top}, {WIDTH, height}});
      top += height;
    }
  }

  void addRow(pugi::xml_node list, std::size_t row, const Rect& frame) {
    pugi::xml_node cell = add(list, "Cell", frame);
    const std::string title = titleOf(row);
    if (isOneIn(ROWS_TO_A_NAMED_CELL, row)) {
      name(cell, "device." + std::to_string(row), title);
    }
    add(cell, "Other", frame);
    pugi::xml_node outer = add(cell, "Other", frame);
    pugi::xml_node inner = add(outer, "Other", {{16, frame.origin.y}, {300, frame.size.height}});
    addText(inner, title, {{16, frame.origin.y + 4}, {300, 20.5}});
    addText(inner, STATES[row % STATES.size()], {{16, frame.origin.y + 25.5}, {300, 16}});
    if (isOneIn(ROWS_TO_A_FOURTH_CONTAINER, row)) {
      add(cell, "Other", {{16, frame.origin.y + frame.size.height}, {WIDTH - 16, 0}});
    }
    addControls(cell, row, frame);
  }

  void addControls(pugi::xml_node cell, std::size_t row, const Rect& frame) {
    const double middle = frame.origin.y + frame.size.height / 2;
    if (isOneIn(ROWS_TO_A_PICTURE, row)) {
      name(add(cell, "Image", {{318, middle - 10}, {20, 20}}), "picture." + std::to_string(row % 5), "");
    }
    if (isOneIn(ROWS_TO_AN_INFO_BUTTON, row)) {
      name(add(cell, "Button", {{340, middle - 11}, {22, 22}}), "info." + std::to_string(row), "More Info");
    }
    if (isOneIn(ROWS_TO_AN_ARROW, row)) {
      pugi::xml_node arrow = add(cell, "Button", {{WIDTH - 28, middle - 7}, {12, 14}});
      name(arrow, "chevron", "chevron");
      arrow.attribute("enabled") = "false";
    }
  }

  static bool isOneIn(std::size_t rows, std::size_t row) { return row % rows == rows / 2; }

  static std::string titleOf(std::size_t row) {
    const std::size_t turn = row / DEVICES.size();
    const std::size_t round = turn / ROOMS.size();
    const std::size_t device = row % DEVICES.size();
    const std::string title = std::string(DEVICES[device]) + " " + std::string(ROOMS[(turn + device) % ROOMS.size()]);
    return round == 0 ? title : title + " " + std::to_string(round + 1);
  }

  void addText(pugi::xml_node parent, std::string_view label, const Rect& frame) {
    pugi::xml_node text = add(parent, "StaticText", frame);
    name(text, label, label);
    text.append_attribute("value") = std::string(label).c_str();
  }

  /// An empty label is left out, as in captures.
  static void name(pugi::xml_node element, std::string_view name, std::string_view label) {
    element.append_attribute("name") = std::string(name).c_str();
    if (!label.empty()) {
      element.append_attribute("label") = std::string(label).c_str();
    }
  }

  pugi::xml_node add(pugi::xml_node parent, const std::string& type, const Rect& frame) {
    if (left_ == 0) {
      return spare_.append_child("spare");
    }
    --left_;
    pugi::xml_node element = parent.append_child(("XCUIElementType" + type).c_str());
    element.append_attribute("type") = element.name();
    element.append_attribute("enabled") = "true";
    element.append_attribute("visible") = isInSight(frame) ? "true" : "false";
    element.append_attribute("x") = frame.origin.x;
    element.append_attribute("y") = frame.origin.y;
    element.append_attribute("width") = frame.size.width;
    element.append_attribute("height") = frame.size.height;
    return element;
  }

  static bool isInSight(const Rect& frame) { return frame.origin.y < GENERATED_LIST_SCREEN.height; }

  pugi::xml_document document_;
  std::size_t left_;
  /// Takes what comes after the last element.
  pugi::xml_document spare_;
};

}  // namespace

std::string generatedList(std::size_t elements) {
  return Page(elements).written();
}

}  // namespace quobrak::testing
