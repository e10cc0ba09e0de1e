#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "drivers/simulator/Phone.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/Outcome.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::faults {

struct Script {
  /// The script "order" is the file "scripts/order.txt", and its results are those of the suite "Shop".
  std::string name;
  std::string text;
};

/// What a host starts a run with.
struct Suite {
  testing::MemoryPhoneFiles phone;
  std::vector<Script> scripts;
  int iteration = 1;
  /// What is in the Documents directory besides the scripts.
  Files documents;
};

/// All that is in the Documents directory before the run.
Files documentsBefore(const Suite& suite);

/// What happens to a run from outside. It happens in the process of the run: what is captured changes there alone.
struct Interventions {
  /// Called in place of the file operation of that number, from 1, which `carryOut` carries out; may raise.
  std::function<void(std::size_t number, const std::function<void()>& carryOut)> files =
      [](std::size_t, const std::function<void()>& carryOut) { carryOut(); };

  /// Called before the primitive of that number, from 1; may raise in its place.
  std::function<void(std::size_t number, simulator::Phone& phone)> driver = [](std::size_t, simulator::Phone&) {};
};

/// A run of the test, as the test process runs it on virtual time with a trace: the same wrappers of the file manager
/// and of the driver, and within them those that let things happen.
struct SuiteRun {
  ChildEnd end;
  Outcome outcome;

  /// Runs in a process of its own, so that one run finds nothing of another.
  static SuiteRun of(const Suite& suite, const Interventions& interventions = {});

  /// When runs begin, since 1970.
  static constexpr std::chrono::milliseconds START{1700000000000};
};

}  // namespace quobrak::faults
