#pragma once

#include <string>

namespace quobrak {

/// Saves a picture of the whole screen as "screenshots/NNN_NAME.png" in the iteration's folder, NNN being the context's
/// screenshot number, and counts it. Does nothing where the screen gives no picture. Throws
/// `FWKTError::documentDirectoryError` where the picture cannot be written; it is then not counted.
void takeScreenshot(const std::string& iterationPath, const std::string& name);

}  // namespace quobrak
