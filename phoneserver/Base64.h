#pragma once

#include <string>

#include "platform/foundation/Data.h"

namespace quobrak::phoneserver {

/// The bytes in base64, with padding and without line breaks.
std::string base64(DataView bytes);

/// Sixteen random bytes as 32 hexadecimal digits.
std::string randomIdentifier();

}  // namespace quobrak::phoneserver
