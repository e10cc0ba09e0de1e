#pragma once

#include <stdexcept>
#include <string>

namespace quobrak::webdriver {

/// How an exchange with the server failed. Nothing is ever decided by the words of a message.
enum class Fault {
  /// The command never reached the server.
  notSent,
  /// The command was sent, and no complete answer came: whether it was carried out is unknown.
  outcomeUnknown,
  /// What came is no answer of a WebDriver server.
  nonsense,
  noSuchElement,
  staleElement,
  noSuchAlert,
  sessionLost,
  /// Any other error that the server reports.
  refused,
};

/// An exchange that failed. `what()` tells a person why.
class CommandError : public std::runtime_error {
 public:
  CommandError(Fault fault, const std::string& reason) : std::runtime_error(reason), fault_(fault) {}

  Fault fault() const { return fault_; }

 private:
  Fault fault_;
};

}  // namespace quobrak::webdriver
