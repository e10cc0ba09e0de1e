#pragma once

#include "drivers/webdriver/WebDriverDriver.h"
#include "runner/Configuration.h"

namespace quobrak {

/// The server with the capabilities of a session: the usual ones of its dialect, and those of the user's file, which
/// come first. Throws `ConfigurationError` where the file cannot be read or holds no JSON object.
webdriver::Server webDriverServer(const WebDriverConfiguration& configuration);

}  // namespace quobrak
