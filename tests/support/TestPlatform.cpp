#include "tests/support/TestPlatform.h"

#include <memory>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/ConfinedFileManager.h"

namespace quobrak::testing {

TestPlatform::TestPlatform(const simulator::PhoneFiles& phoneFiles) {
  Clock::install(std::make_unique<VirtualClock>(START));

  auto files = std::make_unique<FaultyFileManager>(std::make_unique<ConfinedFileManager>(documents_.path().string()));
  files_ = files.get();
  FileManager::install(std::move(files));

  auto simulated = std::make_unique<simulator::SimulatedDriver>(simulator::loadPhone(phoneFiles), Clock::shared());
  phone_ = &simulated->phone();
  auto driver = std::make_unique<RecordingDriver>(std::move(simulated));
  driver_ = driver.get();
  UIDriver::install(std::move(driver));
}

TestPlatform::~TestPlatform() {
  UIDriver::install(nullptr);
}

std::chrono::milliseconds TestPlatform::elapsed() const {
  const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::shared().timeIntervalSince1970());
  return now - START;
}

}  // namespace quobrak::testing
