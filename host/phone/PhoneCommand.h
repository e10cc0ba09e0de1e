#pragma once

#include "host/Subcommand.h"

namespace quobrak::host {

/// Looks at a simulated phone: checks its description, shows its screens, tries selectors on them.
Subcommand phoneSubcommand();

}  // namespace quobrak::host
