#include "host/phone/PhoneOverview.h"

#include <utility>
#include <vector>

#include "host/phone/ElementWords.h"
#include "host/terminal/Table.h"

namespace quobrak::host {

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string heading(std::string_view text, const Terminal& terminal) {
  return "\n" + terminal.styled(Style::bold, text) + "\n";
}

std::string inMilliseconds(std::chrono::milliseconds duration) {
  return std::to_string(duration.count()) + " ms";
}

std::string factsOf(const simulator::PhoneDescription& phone) {
  const std::vector<std::pair<std::string, std::string>> facts{
      {"Screen", inPoints(phone.size.width) + " x " + inPoints(phone.size.height) + " points, " +
                     inPoints(phone.scale) + (phone.scale == 1 ? " pixel" : " pixels") + " to a point"},
      {"System", shown(phone.systemVersion)},
      {"Volume", std::to_string(phone.volume) + " %"},
      {"Delays", "touch " + inMilliseconds(phone.touchDelay) + ", button " + inMilliseconds(phone.buttonDelay) +
                     ", scroll " + inMilliseconds(phone.scrollDelay)}};
  std::string text;
  for (const auto& [name, fact] : facts) {
    text += "  " + padded(name, 8) + fact + "\n";
  }
  return text;
}

std::string applicationsOf(const simulator::PhoneDescription& phone, const Terminal& terminal) {
  Rows rows;
  for (const auto& [identifier, application] : phone.applications) {
    rows.push_back({shown(identifier) + (identifier == phone.home ? " (home screen)" : ""), shown(application.name),
                    shown(application.firstScreen), std::to_string(application.screens.size()),
                    std::to_string(application.rules.size())});
  }
  return table({{.title = "Application"},
                {.title = "Name"},
                {.title = "First screen"},
                {.title = "Screens", .alignment = Alignment::right},
                {.title = "Rules", .alignment = Alignment::right}},
               rows, terminal);
}

/// Names with commas between them, in lines that end before the terminal does.
std::string listed(const std::vector<std::string>& names, std::size_t width) {
  const std::string indent = "    ";
  std::string text;
  std::string line = indent;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string entry = names[i] + (i + 1 == names.size() ? "" : ",");
    if (line != indent && displayWidth(line) + 1 + displayWidth(entry) > width) {
      text += std::exchange(line, indent) + "\n";
    }
    line += (line == indent ? "" : " ") + entry;
  }
  return text + line + "\n";
}

std::string screensOf(const simulator::PhoneDescription& phone, const Terminal& terminal) {
  std::string text = heading("Screens", terminal);
  for (const auto& [identifier, application] : phone.applications) {
    std::vector<std::string> names;
    for (const auto& [name, screen] : application.screens) {
      names.push_back(shown(name));
    }
    text += "  " + shown(identifier) + "\n" + listed(names, terminal.width);
  }
  return text;
}

std::string valuesOf(const simulator::PhoneDescription& phone, const Terminal& terminal) {
  Rows rows;
  for (const auto& [name, text] : phone.values.texts()) {
    rows.push_back({name, "\"" + shown(text) + "\""});
  }
  return rows.empty() ? "" : "\n" + table({{.title = "Named value"}, {.title = "Begins as"}}, rows, terminal);
}

}  // namespace

std::string phoneOverview(const simulator::PhoneDescription& phone, const Terminal& terminal) {
  return terminal.styled(Style::bold, shown(phone.name)) + "\n" + factsOf(phone) + "\n" +
         applicationsOf(phone, terminal) + screensOf(phone, terminal) + valuesOf(phone, terminal);
}

}  // namespace quobrak::host
