#include <utility>

#include "tests/conformance/Rig.h"
#include "tests/drivers/xctest/standins/StandIns.h"

namespace quobrak::conformance {

namespace {

/// Through the phone's framework, of which stand-ins take the place.
class XCTestRig final : public Rig {
 public:
  explicit XCTestRig(simulator::PhoneDescription phone) : phone_(std::move(phone), Clock::shared()) {}

  std::unique_ptr<UIDriver> takeDriver() override { return testing::makeDriverOnStandIns(phone_); }
  simulator::Phone& phone() override { return phone_; }

 private:
  simulator::Phone phone_;
};

}  // namespace

std::unique_ptr<Rig> makeRig(simulator::PhoneDescription phone) {
  return std::make_unique<XCTestRig>(std::move(phone));
}

}  // namespace quobrak::conformance
