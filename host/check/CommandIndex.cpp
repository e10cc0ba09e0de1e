#include "host/check/CommandIndex.h"

#include "host/terminal/NearestNames.h"

namespace quobrak::host {

CommandIndex::CommandIndex(std::span<const CommandRow> table) {
  rows_.reserve(table.size());
  for (const CommandRow& row : table) {
    rows_.emplace(row.name, &row);
    names_.push_back(row.name);
  }
}

const CommandRow* CommandIndex::find(std::string_view name) const {
  const auto found = rows_.find(name);
  return found == rows_.end() ? nullptr : found->second;
}

std::vector<std::string_view> CommandIndex::near(std::string_view name) const {
  // Comparing takes time by the length, and nobody mistypes a name so.
  constexpr std::size_t LONGEST_SLIP = 80;
  return name.size() > LONGEST_SLIP ? std::vector<std::string_view>() : nearestNames(name, names_);
}

}  // namespace quobrak::host
