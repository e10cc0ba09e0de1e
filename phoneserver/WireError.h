#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace quobrak::phoneserver {

/// What can be wrong with a request, as the protocol tells it apart.
enum class WireErrorCode {
  elementNotVisible,
  invalidArgument,
  invalidElementState,
  invalidSelector,
  invalidSessionId,
  noSuchAlert,
  noSuchElement,
  sessionNotCreated,
  staleElementReference,
  unableToCaptureScreen,
  unknownCommand,
  unknownError,
  unsupportedOperation
};

/// The code as replies carry it: "no such element".
std::string_view nameOf(WireErrorCode code);

/// The HTTP status that goes with the code.
int statusOf(WireErrorCode code);

/// A request that cannot be carried out. `what()` says to a person what is wrong and what would be right.
class WireError : public std::runtime_error {
 public:
  WireError(WireErrorCode code, const std::string& message) : std::runtime_error(message), code_(code) {}

  WireErrorCode code() const { return code_; }

 private:
  WireErrorCode code_;
};

}  // namespace quobrak::phoneserver
