#pragma once

#include <vector>

#include "manual/DescribedCommands.h"
#include "platform/foundation/JSON.h"

namespace quobrak::host {

/// The commands of the groups for editors and other programs, as docs/commands.schema.json describes it. Groups without
/// commands are left out.
JSONValue commandDocument(const std::vector<manual::DescribedGroup>& groups);

}  // namespace quobrak::host
