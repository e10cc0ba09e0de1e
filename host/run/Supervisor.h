#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "host/run/ChildProcess.h"
#include "host/run/EndSignals.h"

namespace quobrak::host {

/// A test process that has ended.
struct ProcessEnd {
  ChildEnd how;
  /// The number of the signal for which this program ended it; none where it ended for other reasons.
  std::optional<int> endSignal;
  /// From its start to its end, on the machine's clock.
  std::chrono::nanoseconds wallTime{};
};

/// Runs test processes and rests between them. What waits is told of the time that passes, about ten times a second.
class Supervisor {
 public:
  using Tick = std::function<void()>;

  virtual ~Supervisor() = default;

  /// Starts a process and waits for its end. Throws `EnvironmentError` where it cannot be started.
  virtual ProcessEnd run(const ChildStart& start, const Tick& tick) = 0;

  /// Waits for so long. Ends at once where this program is told to end, and gives the number of that signal.
  virtual std::optional<int> rest(std::chrono::milliseconds duration, const Tick& tick) = 0;
};

/// On this machine. A signal that asks this program to end is passed on: the process is told to end, and is killed if
/// it has not ended after `grace`, or when a second signal comes.
class ProcessSupervisor final : public Supervisor {
 public:
  static constexpr std::chrono::milliseconds GRACE{2000};

  /// `signals` must outlive the supervisor.
  explicit ProcessSupervisor(EndSignals& signals, std::chrono::milliseconds grace = GRACE)
      : signals_(signals), grace_(grace) {}

  ProcessEnd run(const ChildStart& start, const Tick& tick) override;
  std::optional<int> rest(std::chrono::milliseconds duration, const Tick& tick) override;

 private:
  EndSignals& signals_;
  std::chrono::milliseconds grace_;
};

}  // namespace quobrak::host
