#include "host/report/TimeLeft.h"

#include <algorithm>
#include <cstdint>

namespace quobrak::host {

void TimeLeft::iterationStarted(Clock::TimePoint now) {
  iterationStart_ = now;
  restEnd_.reset();
}

void TimeLeft::iterationFinished(Clock::TimePoint now) {
  spent_ += now - iterationStart_.value_or(now);
  iterationStart_.reset();
  ++done_;
}

void TimeLeft::restStarted(Clock::TimePoint now, Duration duration) {
  rest_ = duration;
  restEnd_ = now + duration;
}

std::optional<std::chrono::nanoseconds> TimeLeft::at(Clock::TimePoint now) const {
  if (done_ == 0 || done_ >= planned_) {
    return std::nullopt;
  }
  const Duration mean = spent_ / static_cast<std::int64_t>(done_);
  const auto toCome = static_cast<std::int64_t>(planned_ - done_);
  Duration left = mean * toCome + rest_ * (toCome - 1);
  if (iterationStart_) {
    left -= std::min(mean, now - *iterationStart_);
  }
  if (restEnd_) {
    left += std::max(Duration::zero(), *restEnd_ - now);
  }
  return left;
}

}  // namespace quobrak::host
