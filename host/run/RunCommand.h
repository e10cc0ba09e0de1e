#pragma once

#include "host/Subcommand.h"

namespace quobrak::host {

/// `quobrak run`: runs scripts, a command or the reference script, as often as wanted, and keeps all that they leave.
Subcommand runSubcommand();

}  // namespace quobrak::host
