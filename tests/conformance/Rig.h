#pragma once

#include <memory>
#include <string>
#include <vector>

#include "drivers/simulator/Phone.h"
#include "drivers/simulator/PhoneDescription.h"
#include "platform/uiautomation/UIDriver.h"

namespace quobrak::conformance {

/// A driver with the simulated phone that it drives, both in this process, on the clock of this process.
class Rig {
 public:
  virtual ~Rig() = default;

  /// To be called once. The driver must not outlive the rig.
  virtual std::unique_ptr<UIDriver> takeDriver() = 0;

  /// To be touched only while the driver is not at work.
  virtual simulator::Phone& phone() = 0;

  /// The requests that have reached the phone, as "METHOD path"; none where nothing lies between driver and phone.
  virtual std::vector<std::string> exchanges() const { return {}; }
};

/// The rig of this program: each program of the suite brings its own.
std::unique_ptr<Rig> makeRig(simulator::PhoneDescription phone);

}  // namespace quobrak::conformance
