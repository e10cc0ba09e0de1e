#pragma once

#include <map>
#include <string>

#include "phoneserver/Reply.h"
#include "phoneserver/ServedPhone.h"

namespace quobrak::phoneserver {

struct Request {
  std::string method;
  /// Without what stands behind a question mark.
  std::string path;
  /// JSON, or empty.
  std::string body{};
  /// What stands behind the question mark.
  std::map<std::string, std::string, std::less<>> query{};
};

/// Carries one request out: finds its route, checks its session and its body, and turns what its handler gives or
/// raises into a reply. Never raises.
Reply answer(ServedPhone& served, const Request& request);

}  // namespace quobrak::phoneserver
