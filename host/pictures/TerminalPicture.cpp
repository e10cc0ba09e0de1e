#include "host/pictures/TerminalPicture.h"

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <locale>
#include <pugixml.hpp>
#include <sstream>

#include "host/pictures/StyledText.h"

namespace quobrak::host {

namespace {

/// In pixels; most monospaced fonts are six tenths as wide as they are high.
constexpr double FONT_SIZE = 14;
constexpr double CELL_WIDTH = FONT_SIZE * 0.6;
constexpr double LINE_HEIGHT = 20;
constexpr double MARGIN = 16;
/// From a line's top to where its letters stand.
constexpr double BASELINE = 15;
constexpr std::size_t FEWEST_COLUMNS = 80;

constexpr const char* STYLESHEET = R"(
text { font: 14px ui-monospace, "DejaVu Sans Mono", "Liberation Mono", Menlo, Consolas, monospace; fill: #1f2328; }
.screen { fill: #f6f8fa; stroke: #d0d7de; }
.bold { font-weight: bold; }
.dim { fill: #59636e; }
.red { fill: #c0202a; }
.green { fill: #1a7f37; }
.yellow { fill: #8a6000; }
.blue { fill: #0860c9; }
@media (prefers-color-scheme: dark) {
  text { fill: #e6edf3; }
  .screen { fill: #0d1117; stroke: #3d444d; }
  .dim { fill: #9198a1; }
  .red { fill: #ff7b72; }
  .green { fill: #3fb950; }
  .yellow { fill: #d29922; }
  .blue { fill: #6cb6ff; }
}
)";

std::string classOf(const StyledRun& run) {
  const auto colour = [&run]() -> std::string {
    switch (run.colour) {
      case Style::dim:
        return "dim";
      case Style::red:
        return "red";
      case Style::green:
        return "green";
      case Style::yellow:
        return "yellow";
      case Style::blue:
        return "blue";
      case Style::plain:
      case Style::bold:
        break;
    }
    return "";
  }();
  return run.isBold ? (colour.empty() ? "bold" : "bold " + colour) : colour;
}

/// With a tenth at most, the same wherever it is written.
std::string number(double value) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::fixed << std::setprecision(1) << value;
  std::string digits = text.str();
  return digits.ends_with(".0") ? digits.substr(0, digits.size() - 2) : digits;
}

void set(pugi::xml_node node, const char* name, const std::string& value) {
  node.append_attribute(name).set_value(value.c_str());
}

void addChild(pugi::xml_node parent, const char* name, const std::string& text) {
  parent.append_child(name).text().set(text.c_str());
}

void addRun(pugi::xml_node svg, const StyledRun& run, std::size_t line) {
  pugi::xml_node text = svg.append_child("text");
  set(text, "x", number(MARGIN + CELL_WIDTH * static_cast<double>(run.column)));
  set(text, "y", number(MARGIN + LINE_HEIGHT * static_cast<double>(line) + BASELINE));
  set(text, "textLength", number(CELL_WIDTH * static_cast<double>(displayWidth(run.text))));
  set(text, "lengthAdjust", "spacingAndGlyphs");
  if (const std::string styles = classOf(run); !styles.empty()) {
    set(text, "class", styles);
  }
  text.text().set(run.text.c_str());
}

std::vector<StyledLine> linesOf(const std::vector<Exchange>& exchanges) {
  std::vector<StyledLine> lines;
  for (const Exchange& exchange : exchanges) {
    if (!lines.empty()) {
      lines.emplace_back();
    }
    lines.push_back({{.column = 0, .isBold = false, .colour = Style::dim, .text = "$"},
                     {.column = 2, .isBold = true, .colour = Style::plain, .text = exchange.typed}});
    const std::vector<StyledLine> printed = styledLines(exchange.printed);
    lines.insert(lines.end(), printed.begin(), printed.end());
  }
  return lines;
}

std::size_t columnsOf(const std::vector<StyledLine>& lines) {
  std::size_t columns = FEWEST_COLUMNS;
  for (const StyledLine& line : lines) {
    if (!line.empty()) {
      columns = std::max(columns, line.back().column + displayWidth(line.back().text));
    }
  }
  return columns;
}

pugi::xml_node addScreen(pugi::xml_document& document, const std::string& title, double width, double height) {
  pugi::xml_node svg = document.append_child("svg");
  set(svg, "xmlns", "http://www.w3.org/2000/svg");
  set(svg, "role", "img");
  set(svg, "width", number(width));
  set(svg, "height", number(height));
  set(svg, "viewBox", "0 0 " + number(width) + " " + number(height));
  addChild(svg, "title", title);
  addChild(svg, "style", STYLESHEET);
  pugi::xml_node screen = svg.append_child("rect");
  set(screen, "class", "screen");
  set(screen, "x", "0.5");
  set(screen, "y", "0.5");
  set(screen, "width", number(width - 1));
  set(screen, "height", number(height - 1));
  set(screen, "rx", "6");
  return svg;
}

}  // namespace

std::string terminalPicture(const std::string& title, const std::vector<Exchange>& exchanges) {
  const std::vector<StyledLine> lines = linesOf(exchanges);
  pugi::xml_document document;
  const pugi::xml_node svg = addScreen(document, title, 2 * MARGIN + CELL_WIDTH * static_cast<double>(columnsOf(lines)),
                                       2 * MARGIN + LINE_HEIGHT * static_cast<double>(lines.size()));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (const StyledRun& run : lines[i]) {
      addRun(svg, run, i);
    }
  }
  std::ostringstream text;
  document.save(text, "", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
  return text.str();
}

}  // namespace quobrak::host
