#include "phoneserver/Applications.h"

namespace quobrak::phoneserver {

std::string notInstalled(const ServedPhone& served, const std::string& bundleIdentifier) {
  std::string installed;
  for (const auto& [identifier, application] : served.phone().description().applications) {
    installed += (installed.empty() ? "" : ", ") + identifier;
  }
  return "the application \"" + bundleIdentifier + "\" is not installed; installed are " + installed;
}

}  // namespace quobrak::phoneserver
