#include "host/terminal/Table.h"

#include <algorithm>
#include <cstddef>

namespace quobrak::host {

namespace {

using Row = std::vector<std::string>;

std::string aligned(const std::string& cell, std::size_t width, Alignment alignment) {
  const std::size_t used = displayWidth(cell);
  const std::string blanks(width > used ? width - used : 0, ' ');
  return alignment == Alignment::left ? cell + blanks : blanks + cell;
}

}  // namespace

std::vector<std::size_t> columnWidths(const std::vector<Column>& columns, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    widths[i] = displayWidth(columns[i].title);
    for (const Row& row : rows) {
      widths[i] = std::max(widths[i], displayWidth(row.at(i)));
    }
  }
  return widths;
}

std::string table(const std::vector<Column>& columns, const std::vector<Row>& rows, const Terminal& terminal) {
  if (rows.empty()) {
    return "";
  }
  const std::vector<std::size_t> widths = columnWidths(columns, rows);
  const auto line = [&](const Row& cells, Style style) {
    std::string text;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      text += (i == 0 ? "" : "  ") + aligned(terminal.styled(style, cells[i]), widths[i], columns[i].alignment);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text + "\n";
  };
  Row titles(columns.size());
  std::transform(columns.begin(), columns.end(), titles.begin(), [](const Column& column) { return column.title; });
  std::string text = line(titles, Style::bold);
  for (const Row& row : rows) {
    text += line(row, Style::plain);
  }
  return text;
}

}  // namespace quobrak::host
