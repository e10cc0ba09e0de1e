#import "drivers/xctest/foundation/PlatformText.h"

#include "drivers/xctest/foundation/TextEncodings.h"

namespace quobrak::xctest {

PlatformText::PlatformText(std::string_view bytes) {
  constexpr char32_t REPLACEMENT_CHARACTER = 0xFFFD;
  std::vector<unichar> units;
  for (std::size_t position = 0; position < bytes.size();) {
    const std::size_t begin = position;
    const char32_t code = nextCharacter(bytes, position).value_or(REPLACEMENT_CHARACTER);
    offsets.push_back(begin);
    if (code < 0x10000) {
      units.push_back(static_cast<unichar>(code));
    } else {
      offsets.push_back(begin);
      units.push_back(static_cast<unichar>(0xD800 + ((code - 0x10000) >> 10U)));
      units.push_back(static_cast<unichar>(0xDC00 + ((code - 0x10000) & 0x3FFU)));
    }
  }
  offsets.push_back(bytes.size());
  string = Ref<NSString*>::adopting([[NSString alloc] initWithCharacters:units.data() length:units.size()]);
}

}  // namespace quobrak::xctest
