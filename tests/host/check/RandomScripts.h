#pragma once

#include <string>
#include <vector>

#include "host/check/Variables.h"
#include "tests/host/check/Chance.h"

namespace quobrak::host::testing {

/// The elements of the screen that the scripts are made for (see `smallPhone`): whatever a script does there that is
/// written as it should be succeeds.
extern const char* const PAGE_FOR_RANDOM_SCRIPTS;

/// The variables that the scripts refer to, but for one that is missing.
Variables variablesForRandomScripts();

/// The scripts of one run, one to three of them: most lines are good ones, some have a mistake that a check can know.
std::vector<std::string> randomScripts(Chance& chance);

}  // namespace quobrak::host::testing
