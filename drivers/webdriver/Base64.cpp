#include "drivers/webdriver/Base64.h"

#include <sodium.h>

#include <cstddef>

namespace quobrak::webdriver {

std::optional<Data> decodedBase64(std::string_view text) {
  // Four characters stand for three bytes.
  Data bytes(text.size() / 4 * 3 + 3);
  std::size_t count = 0;
  const char* end = nullptr;
  constexpr const char* IGNORED = "\r\n";
  const int result = ::sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), text.data(),
                                         text.size(), IGNORED, &count, &end, sodium_base64_VARIANT_ORIGINAL);
  if (result != 0 || end != text.data() + text.size()) {
    return std::nullopt;
  }
  bytes.resize(count);
  return bytes;
}

}  // namespace quobrak::webdriver
