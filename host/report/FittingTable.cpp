#include "host/report/FittingTable.h"

#include <algorithm>
#include <numeric>

namespace quobrak::host {

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr std::size_t BETWEEN_COLUMNS = 2;

std::vector<std::size_t> widthsOf(const std::vector<Column>& columns, const Rows& rows) {
  std::vector<std::size_t> widths;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    widths.push_back(displayWidth(columns[i].title));
    for (const std::vector<std::string>& row : rows) {
      widths[i] = std::max(widths[i], displayWidth(row.at(i)));
    }
  }
  return widths;
}

}  // namespace

std::string fittingTable(const std::vector<Column>& columns, std::vector<std::vector<std::string>> rows,
                         std::size_t nameColumns, const Terminal& terminal) {
  if (!terminal.isInteractive) {
    return table(columns, rows, terminal);
  }
  std::vector<std::size_t> widths = widthsOf(columns, rows);
  const auto namesEnd = widths.begin() + static_cast<std::ptrdiff_t>(nameColumns);
  std::size_t lineWidth =
      std::accumulate(widths.begin(), widths.end(), BETWEEN_COLUMNS * (std::max<std::size_t>(1, widths.size()) - 1));
  for (; lineWidth > terminal.width; --lineWidth) {
    const auto widest = std::max_element(widths.begin(), namesEnd);
    if (widest == namesEnd || *widest <= NARROWEST_NAME) {
      break;
    }
    --*widest;
  }
  for (std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < nameColumns; ++i) {
      row[i] = shortened(row[i], widths[i]);
    }
  }
  return table(columns, rows, terminal);
}

}  // namespace quobrak::host
