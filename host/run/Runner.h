#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/ExitStatus.h"
#include "host/run/ChildEnvironment.h"
#include "host/run/RunListener.h"
#include "host/run/RunRecord.h"
#include "host/run/ScriptCollection.h"
#include "host/run/Supervisor.h"

namespace quobrak::host {

/// All that a run needs to know.
struct RunPlan {
  RunKind kind = RunKind::scripts;
  /// Of `RunKind::scripts`.
  std::vector<CollectedScript> scripts;
  /// Of `RunKind::command`.
  std::string command;
  std::size_t warmUps = 0;
  std::size_t iterations = 1;
  std::chrono::milliseconds rest{};
  std::optional<std::uint64_t> shuffleSeed;
  /// Whether it ends after the first iteration in which not all scripts passed.
  bool isFailFast = false;
  /// By an absolute path.
  std::filesystem::path testProcess;
  /// What is the same in all iterations.
  EnvironmentVariables environment;
  /// An empty folder, which receives all that the run leaves.
  std::filesystem::path folder;
  /// What a person should know before it begins.
  std::vector<std::string> notices;
};

struct FinishedRun {
  RunRecord record;
  /// The number of the signal that ended it; none where it was not told to end.
  std::optional<int> endSignal;
};

/// Runs the warm-ups and the iterations, each with a Documents directory and a test process of its own, and collects
/// what one has left before the next begins. A run goes on after an iteration that was aborted, and ends where the test
/// process cannot be used, because it could not in the next one either.
FinishedRun carryOut(const RunPlan& plan, Supervisor& supervisor, RunListener& listener);

/// What the program ends with: the signal that ended the run, else the worst of all iterations and warm-ups.
ExitStatus exitStatusOf(const FinishedRun& run);

}  // namespace quobrak::host
