#pragma once

#include <chrono>
#include <string>

#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/FaultyFileManager.h"
#include "tests/support/MemoryPhoneFiles.h"
#include "tests/support/RecordingDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::testing {

/// The whole platform of one test, installed for the system: virtual time that starts at `START`, a Documents directory
/// of its own, and a simulated phone whose operations are recorded. Files take no time. One for each test process.
class TestPlatform {
 public:
  static constexpr std::chrono::milliseconds START{1700000000000};

  /// The phone shows `page` once its application "com.example.test" is started (see `smallPhone`).
  explicit TestPlatform(const std::string& page = "", const std::string& rules = "[]")
      : TestPlatform(smallPhone(page, rules)) {}
  explicit TestPlatform(const simulator::PhoneFiles& phoneFiles);
  ~TestPlatform();
  TestPlatform(const TestPlatform&) = delete;
  TestPlatform& operator=(const TestPlatform&) = delete;

  const TemporaryFolder& documents() const { return documents_; }
  FaultyFileManager& files() { return *files_; }
  RecordingDriver& driver() { return *driver_; }
  const simulator::Phone& phone() const { return *phone_; }

  /// How long the clock has moved since `START`.
  std::chrono::milliseconds elapsed() const;

 private:
  TemporaryFolder documents_;
  FaultyFileManager* files_;
  RecordingDriver* driver_;
  const simulator::Phone* phone_;
};

}  // namespace quobrak::testing
