#pragma once

#include <string>
#include <string_view>

#include "host/check/CommandIndex.h"
#include "quobrakUITests/CommandRow.h"

namespace quobrak::host {

/// What is to be known of a name that no command has.
struct UnknownName {
  /// What would be right; empty where nobody knows.
  std::string hint;
  /// The command that was meant; null where nobody knows.
  const CommandRow* meant = nullptr;
};

/// `name` is the first field of a line.
UnknownName explained(std::string_view name, const CommandIndex& commands);

}  // namespace quobrak::host
