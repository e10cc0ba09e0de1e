#pragma once

#include <chrono>
#include <string>

namespace quobrak::webdriver {

struct HttpRequest {
  /// GET, POST or DELETE.
  std::string method;
  /// From the server's address on, with a leading "/".
  std::string path;
  /// Sent with POST alone.
  std::string body;
  /// For the whole exchange, on the machine's own clock.
  std::chrono::milliseconds timeLimit;
};

struct HttpReply {
  long status;
  std::string body;
};

/// Carries requests to one server, one at a time.
class Transport {
 public:
  virtual ~Transport() = default;

  /// Throws `CommandError` with the fault `notSent` or `outcomeUnknown`.
  virtual HttpReply exchange(const HttpRequest& request) = 0;
};

}  // namespace quobrak::webdriver
