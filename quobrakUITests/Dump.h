#pragma once

#include <string>

namespace quobrak {

/// Saves the element tree of the application under test as "dump/dump.txt" in the iteration's folder, in place of an
/// earlier dump. Throws `FWKTError::fdslError` where no application was started, and `documentDirectoryError` where the
/// file cannot be written.
void takeDump(const std::string& iterationPath);

}  // namespace quobrak
