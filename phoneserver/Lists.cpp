#include "phoneserver/Lists.h"

#include "platform/foundation/Unicode.h"

namespace quobrak::phoneserver {

std::vector<std::string> commaSeparated(std::string_view text) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const auto comma = text.find(',');
    if (const std::string_view part = trimmedBlanks(text.substr(0, comma)); !part.empty()) {
      parts.emplace_back(part);
    }
    text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
  }
  return parts;
}

}  // namespace quobrak::phoneserver
