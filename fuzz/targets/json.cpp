// A text that may be JSON.

#include <optional>
#include <string>
#include <string_view>

#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "platform/foundation/JSON.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::fuzz {

namespace {

/// None where the text is no JSON; the error then says where.
std::optional<JSONValue> decoded(std::string_view text) {
  try {
    return JSONDecoder::decode(text);
  } catch (const DecodingError& error) {
    require(std::string_view(error.what()).find(": ") != std::string_view::npos, "an error names its place");
    return std::nullopt;
  }
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  const std::string text(Input(data, size).rest());
  const std::optional<JSONValue> value = decoded(text);
  // The fast parser knows no byte-order mark, so that this is the other one's reading.
  const std::optional<JSONValue> markedValue = decoded("\xEF\xBB\xBF" + text);
  require(text.starts_with("\xEF\xBB\xBF") || value == markedValue, "both parsers read the same");
  if (value) {
    require(isUTF8(text), "what is no text is no JSON");
    const std::string encoded = JSONEncoder::encode(*value);
    const JSONValue again = JSONDecoder::decode(encoded);
    require(again == *value, "what is encoded is decoded to the same value");
    require(JSONEncoder::encode(again) == encoded, "a value is always encoded in the same way");
  }
  return 0;
}
