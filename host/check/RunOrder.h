#pragma once

#include <span>
#include <vector>

#include "host/check/ScriptReport.h"

namespace quobrak::host {

/// Whether the scripts run in the order in which they are given, or in one that nobody knows.
enum class Order { known, unknown };

/// The findings that depend on what other scripts of the run give: the application, the last element found, a step.
///
/// Where the order is known, what earlier scripts give is there. Where it is not, what another script gives may be
/// there: its lack is a warning, and an error only where no other script gives it.
std::vector<Finding> findingsAcross(std::span<const ScriptReport> reports, Order order);

}  // namespace quobrak::host
