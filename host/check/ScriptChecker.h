#pragma once

#include <cstddef>

#include "host/check/Checker.h"
#include "host/check/CommandIndex.h"
#include "host/check/PreparedLine.h"
#include "host/check/ScriptReport.h"

namespace quobrak::host {

/// What all scripts of a check have in common.
struct CheckContext {
  const Variables& variables;
  const CommandIndex& commands;
  /// Whether the host sets the variable for each run, to what nobody knows before.
  PreparedLine::IsSomehowSet isSomehowSet;
};

/// Checks one script by itself. `number` counts the scripts from 0.
ScriptReport checkScript(const ScriptSource& source, std::size_t number, const CheckContext& context);

}  // namespace quobrak::host
