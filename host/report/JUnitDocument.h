#pragma once

#include <string>

#include "host/run/RunRecord.h"

namespace quobrak::host {

/// What `junit.xml` holds, in the form that servers of continuous integration read. docs/results.md tells of it.
/// Characters that XML cannot hold are replaced by what stands for them.
std::string junitDocument(const RunRecord& run);

}  // namespace quobrak::host
