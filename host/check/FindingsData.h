#pragma once

#include <span>
#include <string>

#include "host/check/Checker.h"

/// Findings for programs.
namespace quobrak::host {

/// One JSON object: the numbers of scripts, errors and warnings, and the findings.
std::string asJSON(std::span<const Finding> findings, std::span<const ScriptSource> scripts);

/// One log of the Static Analysis Results Interchange Format, version 2.1.0.
std::string asSARIF(std::span<const Finding> findings, std::span<const ScriptSource> scripts);

}  // namespace quobrak::host
