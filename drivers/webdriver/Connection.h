#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "drivers/webdriver/Transport.h"
#include "platform/foundation/JSON.h"

namespace quobrak::webdriver {

/// One command as the server takes it.
struct Command {
  std::string method;
  std::string path;
  /// Of a POST.
  JSONValue::Object body;
};

/// Speaks the protocol with one server: commands go out as JSON, and the `value` of an answer or an error comes back.
class Connection {
 public:
  explicit Connection(std::unique_ptr<Transport> transport) : transport_(std::move(transport)) {}

  /// Throws `CommandError`.
  JSONValue carryOut(const Command& command, std::chrono::milliseconds timeLimit);

 private:
  std::unique_ptr<Transport> transport_;
};

}  // namespace quobrak::webdriver
