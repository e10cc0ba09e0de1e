#include "tests/support/RecordingDriver.h"

namespace quobrak::testing {

void RecordingDriver::around(std::string_view name, const std::function<std::string()>& target,
                             const std::function<void()>& primitive) {
  const std::string words = target();
  operations.push_back(std::string(name) + (words.empty() ? "" : ": " + words));
  before(name, words);
  primitive();
}

}  // namespace quobrak::testing
