#include "host/report/Statistics.h"

#include <algorithm>
#include <cmath>

namespace quobrak::host {

namespace {

/// How far the sample is above the least one: no sum of such distances cancels digits out, and no distance overflows.
double distance(std::int64_t sample, std::int64_t least) {
  return static_cast<double>(static_cast<std::uint64_t>(sample) - static_cast<std::uint64_t>(least));
}

/// Of samples in ascending order.
double medianOf(std::span<const std::int64_t> sorted) {
  const std::int64_t low = sorted[(sorted.size() - 1) / 2];
  const std::int64_t high = sorted[sorted.size() / 2];
  return static_cast<double>(low) + distance(high, low) / 2;
}

/// In a second pass over the samples. The sum of the deviations, which would be 0 if nothing were rounded, takes away
/// what rounding the mean has added to the squares.
double standardDeviationOf(std::span<const std::int64_t> sorted, double meanDistance) {
  double squares = 0;
  double deviations = 0;
  for (const std::int64_t sample : sorted) {
    const double deviation = distance(sample, sorted.front()) - meanDistance;
    squares += deviation * deviation;
    deviations += deviation;
  }
  const auto count = static_cast<double>(sorted.size());
  return std::sqrt((squares - deviations * deviations / count) / (count - 1));
}

bool isMeasured(const IterationRecord& iteration, const ScriptRecord& script) {
  return iteration.outcome == IterationOutcome::finished && script.outcome == ScriptOutcome::passed;
}

/// The rows of one script, as they come about.
class StepsOfScript {
 public:
  explicit StepsOfScript(std::size_t script) : script_(script) {}

  void add(const ScriptRecord& record, bool isMeasured) {
    leftOut_ += isMeasured ? 0 : 1;
    for (const MeasuredStep& step : record.steps) {
      StepStatistics& row = rowOf(step.name);
      if (isMeasured) {
        row.samples.push_back(step.duration);
      }
    }
  }

  std::vector<StepStatistics> rows() && {
    for (StepStatistics& row : rows_) {
      row.leftOut = leftOut_;
      row.figures = figuresOf(row.samples);
    }
    return std::move(rows_);
  }

 private:
  StepStatistics& rowOf(const std::string& step) {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&step](const StepStatistics& row) { return row.step == step; });
    if (found != rows_.end()) {
      return *found;
    }
    rows_.push_back({.script = script_, .step = step, .samples = {}, .leftOut = 0, .figures = std::nullopt});
    return rows_.back();
  }

  std::size_t script_;
  std::size_t leftOut_ = 0;
  std::vector<StepStatistics> rows_;
};

}  // namespace

std::optional<Figures> figuresOf(std::span<const std::int64_t> samples) {
  if (samples.empty()) {
    return std::nullopt;
  }
  std::vector<std::int64_t> sorted(samples.begin(), samples.end());
  std::sort(sorted.begin(), sorted.end());
  double sum = 0;
  for (const std::int64_t sample : sorted) {
    sum += distance(sample, sorted.front());
  }
  const double meanDistance = sum / static_cast<double>(sorted.size());
  Figures figures{.median = medianOf(sorted),
                  .mean = static_cast<double>(sorted.front()) + meanDistance,
                  .standardDeviation = std::nullopt,
                  .minimum = sorted.front(),
                  .maximum = sorted.back()};
  if (sorted.size() > 1) {
    figures.standardDeviation = standardDeviationOf(sorted, meanDistance);
  }
  return figures;
}

std::vector<StepStatistics> stepStatisticsOf(const RunRecord& run) {
  std::vector<StepsOfScript> scripts;
  for (std::size_t i = 0; i < run.scripts.size(); ++i) {
    scripts.emplace_back(i);
  }
  for (const IterationRecord& iteration : run.iterations) {
    for (const ScriptRecord& script : iteration.scripts) {
      if (!iteration.isWarmUp) {
        scripts.at(script.script).add(script, isMeasured(iteration, script));
      }
    }
  }
  std::vector<StepStatistics> all;
  for (StepsOfScript& script : scripts) {
    for (StepStatistics& row : std::move(script).rows()) {
      all.push_back(std::move(row));
    }
  }
  return all;
}

void OutcomeCounts::count(ScriptOutcome outcome) {
  switch (outcome) {
    case ScriptOutcome::passed:
      ++passed;
      return;
    case ScriptOutcome::failed:
      ++failed;
      return;
    case ScriptOutcome::aborted:
      ++aborted;
      return;
    case ScriptOutcome::notRun:
      ++notRun;
      return;
  }
}

OutcomeCounts& OutcomeCounts::operator+=(const OutcomeCounts& other) {
  passed += other.passed;
  failed += other.failed;
  aborted += other.aborted;
  notRun += other.notRun;
  return *this;
}

std::vector<OutcomeCounts> outcomeCountsOf(const RunRecord& run) {
  std::vector<OutcomeCounts> counts(run.scripts.size());
  for (const IterationRecord& iteration : run.iterations) {
    for (const ScriptRecord& script : iteration.scripts) {
      if (!iteration.isWarmUp) {
        counts.at(script.script).count(script.outcome);
      }
    }
  }
  return counts;
}

}  // namespace quobrak::host
