#include "host/run/Supervisor.h"

#include <sys/poll.h>

#include <algorithm>
#include <array>
#include <csignal>

namespace quobrak::host {

namespace {

using Time = std::chrono::steady_clock::time_point;

Time now() {
  return std::chrono::steady_clock::now();
}

/// Tells of the time that passes, at even intervals.
class Ticker {
 public:
  explicit Ticker(const Supervisor::Tick& tick) : tick_(tick) {}

  Time next() const { return next_; }

  void tickIfDue() {
    if (const Time time = now(); time >= next_) {
      tick_();
      next_ = time + INTERVAL;
    }
  }

 private:
  static constexpr std::chrono::milliseconds INTERVAL{100};

  const Supervisor::Tick& tick_;
  Time next_ = now() + INTERVAL;
};

struct Readable {
  bool signals = false;
  bool process = false;
};

/// Waits until one of them can be read from, or the time has come. `process` may be negative for none.
Readable waitUntil(Time time, const EndSignals& signals, int process) {
  std::array<pollfd, 2> descriptors{pollfd{.fd = signals.descriptor(), .events = POLLIN, .revents = 0},
                                    pollfd{.fd = process, .events = POLLIN, .revents = 0}};
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - now()).count();
  if (::poll(descriptors.data(), descriptors.size(), static_cast<int>(std::max<std::int64_t>(left, 0))) <= 0) {
    return {};
  }
  return {.signals = descriptors[0].revents != 0, .process = descriptors[1].revents != 0};
}

/// Ends a process when this program is told to end: first with a request, then by force.
class OrderlyEnd {
 public:
  OrderlyEnd(EndSignals& signals, const ChildProcess& child, std::chrono::milliseconds grace)
      : signals_(signals), child_(child), grace_(grace) {}

  const std::optional<int>& signal() const { return signal_; }

  /// When the process is to be killed; the end of time where it is not.
  Time killTime() const { return killTime_; }

  void takeSignal() {
    const std::optional<int> signal = signals_.take();
    if (!signal) {
      return;
    }
    if (signal_) {
      child_.send(SIGKILL);
      return;
    }
    signal_ = signal;
    killTime_ = now() + grace_;
    child_.send(SIGTERM);
    // One that is stopped would not hear of it.
    child_.send(SIGCONT);
  }

  void killIfDue() {
    if (now() >= killTime_) {
      child_.send(SIGKILL);
      killTime_ = Time::max();
    }
  }

 private:
  EndSignals& signals_;
  const ChildProcess& child_;
  std::chrono::milliseconds grace_;
  std::optional<int> signal_;
  Time killTime_ = Time::max();
};

}  // namespace

ProcessEnd ProcessSupervisor::run(const ChildStart& start, const Tick& tick) {
  const Time begin = now();
  ChildProcess child(start);
  OrderlyEnd end(signals_, child, grace_);
  Ticker ticker(tick);
  for (Readable readable; !readable.process;) {
    readable = waitUntil(std::min(ticker.next(), end.killTime()), signals_, child.descriptor());
    if (readable.signals) {
      end.takeSignal();
    }
    end.killIfDue();
    if (!readable.process) {
      ticker.tickIfDue();
    }
  }
  const std::chrono::nanoseconds wallTime = now() - begin;
  return {.how = child.waitForEnd(), .endSignal = end.signal(), .wallTime = wallTime};
}

std::optional<int> ProcessSupervisor::rest(std::chrono::milliseconds duration, const Tick& tick) {
  constexpr int NO_PROCESS = -1;
  const Time end = now() + duration;
  Ticker ticker(tick);
  while (true) {
    if (waitUntil(std::min(ticker.next(), end), signals_, NO_PROCESS).signals) {
      return signals_.take();
    }
    if (now() >= end) {
      return std::nullopt;
    }
    ticker.tickIfDue();
  }
}

}  // namespace quobrak::host
