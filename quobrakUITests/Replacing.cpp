#include "quobrakUITests/Replacing.h"

#include <cstddef>

namespace quobrak {

std::string replacingOccurrences(std::string_view text, std::string_view target, std::string_view replacement) {
  std::string replaced;
  std::size_t begin = 0;
  for (std::size_t at = text.find(target); at != std::string_view::npos; at = text.find(target, begin)) {
    replaced.append(text, begin, at - begin).append(replacement);
    begin = at + target.size();
  }
  return replaced.append(text, begin);
}

}  // namespace quobrak
