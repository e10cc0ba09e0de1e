#pragma once

#include "host/Subcommand.h"

namespace quobrak::host {

/// The reference of the commands of scripts, for people and for editors.
Subcommand commandsSubcommand();

}  // namespace quobrak::host
