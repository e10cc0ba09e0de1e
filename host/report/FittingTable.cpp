#include "host/report/FittingTable.h"

#include <algorithm>
#include <numeric>

namespace quobrak::host {

namespace {

constexpr std::size_t BETWEEN_COLUMNS = 2;

}  // namespace

std::string fittingTable(const std::vector<Column>& columns, std::vector<std::vector<std::string>> rows,
                         std::size_t nameColumns, const Terminal& terminal) {
  if (!terminal.isInteractive) {
    return table(columns, rows, terminal);
  }
  std::vector<std::size_t> widths = columnWidths(columns, rows);
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
