#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "quobrakUITests/CommandRow.h"

namespace quobrak::host {

/// The commands by their names.
class CommandIndex {
 public:
  /// `table` must outlive it.
  explicit CommandIndex(std::span<const CommandRow> table);

  /// Null where there is no such command.
  const CommandRow* find(std::string_view name) const;

  /// The names that may have been meant, the nearest first; none for what is longer than a name can be.
  std::vector<std::string_view> near(std::string_view name) const;

 private:
  std::unordered_map<std::string_view, const CommandRow*> rows_;
  std::vector<std::string_view> names_;
};

}  // namespace quobrak::host
