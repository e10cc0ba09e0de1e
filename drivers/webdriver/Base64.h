#pragma once

#include <optional>
#include <string_view>

#include "platform/foundation/Data.h"

namespace quobrak::webdriver {

/// The bytes that the text stands for, which may be broken by newlines; none where it is no base64.
std::optional<Data> decodedBase64(std::string_view text);

}  // namespace quobrak::webdriver
