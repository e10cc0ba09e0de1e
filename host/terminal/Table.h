#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// On which side a column's cells begin.
enum class Alignment { left, right };

struct Column {
  std::string title;
  Alignment alignment = Alignment::left;
};

/// How wide the columns are: as wide as the widest of the title and the cells.
std::vector<std::size_t> columnWidths(const std::vector<Column>& columns,
                                      const std::vector<std::vector<std::string>>& rows);

/// A table of plain text: titles, then the rows, two blanks between columns, no blanks at the ends of lines. Cells may
/// have styles. Each row has as many cells as there are columns. Titles are bold where there is colour. Nothing where
/// there are no rows.
std::string table(const std::vector<Column>& columns, const std::vector<std::vector<std::string>>& rows,
                  const Terminal& terminal);

}  // namespace quobrak::host
