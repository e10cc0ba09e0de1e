#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "host/check/Checker.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// A finding for a person: "FILE:LINE:COLUMN: error: MESSAGE [rule]", the line with a mark below the place, and what
/// would be right. `name` is that of its script. Nothing in it can move a terminal's cursor.
std::string inWords(const Finding& finding, const std::string& name, const Terminal& terminal);

/// All of them, by the names of their scripts.
std::string inWords(std::span<const Finding> findings, std::span<const ScriptSource> scripts, const Terminal& terminal);

/// "3 scripts, 1 error, 2 warnings".
std::string summaryOf(std::span<const Finding> findings, std::size_t scriptCount);

}  // namespace quobrak::host
