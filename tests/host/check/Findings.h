#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/check/Checker.h"

namespace quobrak::host::testing {

/// A finding on one line: "2:14-20 error malformed-argument: MESSAGE (HINT)", with the outcome behind the rule where it
/// is more than a failing script, and with the number of the script before the line where it is not the first one.
std::string inShort(const Finding& finding);

std::vector<std::string> inShort(std::span<const Finding> findings);

/// What a check finds in one script.
std::vector<std::string> findingsIn(const std::string& script, const Variables& variables = {});

/// What a check finds in the scripts of one run.
std::vector<std::string> findingsInRun(const std::vector<std::string>& scripts, bool isOrderKnown = true);

Variables variablesOf(const std::vector<std::pair<std::string, std::string>>& definitions);

}  // namespace quobrak::host::testing
