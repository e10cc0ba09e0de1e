#include <utility>

#include "drivers/simulator/SimulatedDriver.h"
#include "tests/conformance/Rig.h"

namespace quobrak::conformance {

namespace {

class SimulatorRig final : public Rig {
 public:
  explicit SimulatorRig(simulator::PhoneDescription phone)
      : made_(std::make_unique<simulator::SimulatedDriver>(std::move(phone), Clock::shared())), driver_(*made_) {}

  std::unique_ptr<UIDriver> takeDriver() override { return std::move(made_); }
  simulator::Phone& phone() override { return driver_.phone(); }

 private:
  std::unique_ptr<simulator::SimulatedDriver> made_;
  simulator::SimulatedDriver& driver_;
};

}  // namespace

std::unique_ptr<Rig> makeRig(simulator::PhoneDescription phone) {
  return std::make_unique<SimulatorRig>(std::move(phone));
}

}  // namespace quobrak::conformance
