#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "host/check/Finding.h"
#include "host/check/Variables.h"

namespace quobrak::host {

/// A script that has not been read yet.
struct ScriptSource {
  /// As a person knows it: the path of its file.
  std::string name;
  /// What the file holds.
  std::string bytes;
};

struct CheckOptions {
  /// Besides them scripts know those that the host sets for each run, whose values nobody knows before.
  Variables variables;
  /// Whether the scripts run one after the other as they are given. Otherwise any of them may come before any other.
  bool isOrderKnown = true;
};

/// All problems of the scripts of one run, in the order of scripts, lines and columns, and at one place of
/// stages and rules. Nothing is run, and nothing but the arguments is looked at, so that a check says the same on every
/// machine.
///
/// A problem is told once, at the first line that meets it: what follows from it alone is left out. So lines behind an
/// error are checked as if it had been mended.
std::vector<Finding> check(std::span<const ScriptSource> scripts, const CheckOptions& options);

/// The error that the run meets first; null where there is none. Runs that go by the given order come to it.
const Finding* firstFailure(std::span<const Finding> findings);

std::size_t countOf(std::span<const Finding> findings, Severity severity);

}  // namespace quobrak::host
