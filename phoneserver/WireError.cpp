#include "phoneserver/WireError.h"

#include <array>
#include <cstddef>

namespace quobrak::phoneserver {

namespace {

struct Row {
  WireErrorCode code;
  std::string_view name;
  int status;
};

/// In the order of the codes.
constexpr std::array ROWS{
    Row{WireErrorCode::elementNotVisible, "element not visible", 400},
    Row{WireErrorCode::invalidArgument, "invalid argument", 400},
    Row{WireErrorCode::invalidElementState, "invalid element state", 400},
    Row{WireErrorCode::invalidSelector, "invalid selector", 400},
    Row{WireErrorCode::invalidSessionId, "invalid session id", 404},
    Row{WireErrorCode::noSuchAlert, "no such alert", 404},
    Row{WireErrorCode::noSuchElement, "no such element", 404},
    Row{WireErrorCode::sessionNotCreated, "session not created", 500},
    Row{WireErrorCode::staleElementReference, "stale element reference", 404},
    Row{WireErrorCode::unableToCaptureScreen, "unable to capture screen", 500},
    Row{WireErrorCode::unknownCommand, "unknown command", 404},
    Row{WireErrorCode::unknownError, "unknown error", 500},
    Row{WireErrorCode::unsupportedOperation, "unsupported operation", 500},
};

constexpr bool isInOrder() {
  for (std::size_t index = 0; index < ROWS.size(); ++index) {
    if (static_cast<std::size_t>(ROWS[index].code) != index) {
      return false;
    }
  }
  return true;
}
static_assert(isInOrder());

const Row& rowOf(WireErrorCode code) {
  return ROWS[static_cast<std::size_t>(code)];
}

}  // namespace

std::string_view nameOf(WireErrorCode code) {
  return rowOf(code).name;
}

int statusOf(WireErrorCode code) {
  return rowOf(code).status;
}

}  // namespace quobrak::phoneserver
