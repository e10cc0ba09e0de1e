#pragma once

#include <stdexcept>

namespace quobrak {

/// What a driver can foresee: an element missing at a tap, an application that is not installed, a lost connection, a
/// pattern that does not compile. `what()` names the operation, the element and the driver.
class UIAutomationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quobrak
