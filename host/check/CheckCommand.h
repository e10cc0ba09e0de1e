#pragma once

#include "host/Subcommand.h"

namespace quobrak::host {

/// `quobrak check`.
Subcommand checkSubcommand();

}  // namespace quobrak::host
