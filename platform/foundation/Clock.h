#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

namespace quobrak {

/// A length of time as the platform counts it: seconds, floating point.
using Seconds = std::chrono::duration<double>;

/// The one source of time. Now and sleep belong together: a program that fakes one of them alone spins or hangs.
class Clock {
 public:
  /// A reading for deadlines and animations. It never jumps; its origin means nothing.
  using TimePoint = std::chrono::time_point<Clock, std::chrono::nanoseconds>;

  virtual ~Clock() = default;

  /// The wall clock, since 1970-01-01T00:00:00Z: what timestamps are made of.
  virtual Seconds timeIntervalSince1970() const = 0;

  virtual TimePoint now() const = 0;

  /// Blocks the calling thread for that many microseconds. May return early after a signal, and is then not resumed.
  virtual void usleep(std::uint32_t microseconds) = 0;

  /// The clock that the whole process goes by: a `SystemClock` until another one is installed.
  static Clock& shared();

  /// Replaces the shared clock. To be called before anything has read the time.
  static void install(std::unique_ptr<Clock> clock);
};

/// The machine's own clock.
class SystemClock final : public Clock {
 public:
  Seconds timeIntervalSince1970() const override;
  TimePoint now() const override;
  void usleep(std::uint32_t microseconds) override;
};

}  // namespace quobrak
