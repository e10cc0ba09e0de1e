#pragma once

#include <vector>

#include "host/check/CheckedLine.h"
#include "quobrakUITests/CommandRow.h"

namespace quobrak::host {

/// What is wrong with the arguments of a command, whose row is given.
void findArgumentProblems(const CheckedLine& line, const CommandRow& row, std::vector<Finding>& findings);

}  // namespace quobrak::host
