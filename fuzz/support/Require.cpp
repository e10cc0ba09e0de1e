#include "fuzz/support/Require.h"

#include <cstdlib>
#include <iostream>

namespace quobrak::fuzz {

void require(bool holds, std::string_view promise) {
  if (!holds) {
    std::cerr << "Broken promise: " << promise << std::endl;
    std::abort();
  }
}

}  // namespace quobrak::fuzz
