#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include "platform/foundation/Clock.h"

namespace quobrak::host {

/// How long a run will still take, if the iterations to come take as long as those done took on average, and the rests
/// between them as long as the last one.
class TimeLeft {
 public:
  TimeLeft() = default;
  /// Warm-ups count.
  explicit TimeLeft(std::size_t plannedIterations) : planned_(plannedIterations) {}

  void iterationStarted(Clock::TimePoint now);
  void iterationFinished(Clock::TimePoint now);
  void restStarted(Clock::TimePoint now, std::chrono::nanoseconds duration);

  /// None before an iteration is done, and when all are.
  std::optional<std::chrono::nanoseconds> at(Clock::TimePoint now) const;

 private:
  using Duration = std::chrono::nanoseconds;

  std::size_t planned_ = 0;
  std::size_t done_ = 0;
  Duration spent_{};
  Duration rest_{};
  std::optional<Clock::TimePoint> iterationStart_;
  std::optional<Clock::TimePoint> restEnd_;
};

}  // namespace quobrak::host
