#include "phoneserver/Base64.h"

#include <sodium.h>

#include <array>

namespace quobrak::phoneserver {

std::string base64(DataView bytes) {
  std::string text(sodium_base64_encoded_len(bytes.size(), sodium_base64_VARIANT_ORIGINAL), '\0');
  sodium_bin2base64(text.data(), text.size(), reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                    sodium_base64_VARIANT_ORIGINAL);
  // The library ends the text with a NUL of its own.
  text.pop_back();
  return text;
}

std::string randomIdentifier() {
  std::array<unsigned char, 16> bytes{};
  randombytes_buf(bytes.data(), bytes.size());
  std::string text(2 * bytes.size() + 1, '\0');
  sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
  text.pop_back();
  return text;
}

}  // namespace quobrak::phoneserver
