#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/terminal/Table.h"

namespace quobrak::host {

/// A table as `table` makes it, of which the first `nameColumns` columns hold names. On a terminal the widest of them
/// are shortened until the lines fit, but none below `NARROWEST_NAME`. Cells with names have no style.
std::string fittingTable(const std::vector<Column>& columns, std::vector<std::vector<std::string>> rows,
                         std::size_t nameColumns, const Terminal& terminal);

/// Columns in which a name can still be told from others.
inline constexpr std::size_t NARROWEST_NAME = 8;

}  // namespace quobrak::host
