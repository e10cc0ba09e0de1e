#include "platform/foundation/ProcessInfo.h"

#include <cstdlib>

#include "platform/foundation/Unicode.h"

namespace quobrak {

std::optional<std::string> ProcessInfo::environmentVariable(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  if (value == nullptr) {
    return std::nullopt;
  }
  return repairedUTF8(value);
}

}  // namespace quobrak
