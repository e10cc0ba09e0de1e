#include "quobrakUITests/Replacing.h"

namespace quobrak {

std::string replacingOccurrences(std::string_view text, std::string_view target, std::string_view replacement) {
  std::string replaced;
  std::size_t begin = 0;
  forEachOccurrence(text, target, [&](std::size_t at) {
    replaced.append(text, begin, at - begin).append(replacement);
    begin = at + target.size();
  });
  return replaced.append(text, begin);
}

}  // namespace quobrak
