#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/run/RunRecord.h"

namespace quobrak::host {

/// The figures of one list of samples, in the unit of the samples.
struct Figures {
  /// The middle sample in ascending order, or the mean of the two in the middle.
  double median = 0;
  double mean = 0;
  /// That of a sample: the sum of squares is divided by one less than there are samples. None for a single one.
  std::optional<double> standardDeviation;
  std::int64_t minimum = 0;
  std::int64_t maximum = 0;

  bool operator==(const Figures&) const = default;
};

/// None where there are no samples. Any samples of 64 bits are fine.
std::optional<Figures> figuresOf(std::span<const std::int64_t> samples);

/// A step of a script over the measured iterations.
struct StepStatistics {
  /// The index of the script in `RunRecord::scripts`.
  std::size_t script = 0;
  std::string step;
  /// Milliseconds, in the order in which they were measured: those of the measured iterations that finished and in
  /// which the script passed. A step that occurs more than once in a script gives as many samples.
  std::vector<std::int64_t> samples;
  /// How many measured iterations are left out because they did not finish, or the script did not pass in them.
  std::size_t leftOut = 0;
  /// None where there are no samples.
  std::optional<Figures> figures;
};

/// A row for each step of each script that any measured iteration has: the scripts in the order of the run, the steps
/// of each as they first appeared. A step that only occurred where it is left out has no samples. Warm-ups do not
/// count.
std::vector<StepStatistics> stepStatisticsOf(const RunRecord& run);

/// What became of a script in the measured iterations that were begun. Warm-ups do not count.
struct OutcomeCounts {
  std::size_t passed = 0;
  std::size_t failed = 0;
  std::size_t aborted = 0;
  std::size_t notRun = 0;

  void count(ScriptOutcome outcome);
  OutcomeCounts& operator+=(const OutcomeCounts& other);
  bool operator==(const OutcomeCounts&) const = default;
};

/// One for each script of the run, in the order of the run.
std::vector<OutcomeCounts> outcomeCountsOf(const RunRecord& run);

}  // namespace quobrak::host
