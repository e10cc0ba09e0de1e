#pragma once

#include <string>
#include <vector>

namespace quobrak::host {

/// What a line of `sh` printed, on both streams; the test fails where the line ends with another status than 0.
std::string printedBy(const std::string& line);

/// The lines of it, in ascending order.
std::vector<std::string> sortedLines(const std::string& text);

/// Where the program is not installed, says so and ends the test as skipped.
void needsProgram(const std::string& program);

}  // namespace quobrak::host
