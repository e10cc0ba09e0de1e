#include "host/report/Statistics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Row {
  std::size_t script;
  std::string step;
  std::vector<std::int64_t> samples;
  std::size_t leftOut;

  bool operator==(const Row&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.script << " " << row.step << " " << ::testing::PrintToString(row.samples) << " " << row.leftOut;
}

std::vector<Row> rowsOf(const RunRecord& run) {
  std::vector<Row> rows;
  for (const StepStatistics& row : stepStatisticsOf(run)) {
    rows.push_back({row.script, row.step, row.samples, row.leftOut});
  }
  return rows;
}

TEST(Figures, AreThoseOfTheSamples) {
  constexpr std::int64_t LEAST = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t MOST = std::numeric_limits<std::int64_t>::max();
  struct Case {
    std::vector<std::int64_t> samples;
    Figures figures;
  };
  for (const auto& [samples, figures] : {
           Case{{7}, {.median = 7, .mean = 7, .standardDeviation = {}, .minimum = 7, .maximum = 7}},
           Case{{9, 7}, {.median = 8, .mean = 8, .standardDeviation = 1.4142135623730951, .minimum = 7, .maximum = 9}},
           Case{{7, 8},
                {.median = 7.5, .mean = 7.5, .standardDeviation = 0.70710678118654757, .minimum = 7, .maximum = 8}},
           Case{{3, 1, 2}, {.median = 2, .mean = 2, .standardDeviation = 1, .minimum = 1, .maximum = 3}},
           Case{{10, 1, 4, 3},
                {.median = 3.5, .mean = 4.5, .standardDeviation = 3.872983346207417, .minimum = 1, .maximum = 10}},
           Case{{5, 5, 5}, {.median = 5, .mean = 5, .standardDeviation = 0, .minimum = 5, .maximum = 5}},
           Case{{-4, -2},
                {.median = -3, .mean = -3, .standardDeviation = 1.4142135623730951, .minimum = -4, .maximum = -2}},
           // Beside numbers as large as timestamps a difference of one is not lost.
           Case{{1700000000001, 1700000000000, 1700000000002},
                {.median = 1700000000001,
                .mean = 1700000000001,
                .standardDeviation = 1,
                .minimum = 1700000000000,
                .maximum = 1700000000002}},
           Case{{MOST, MOST - 2},
                {.median = 9223372036854775806.0,
                .mean = 9223372036854775806.0,
                .standardDeviation = 1.4142135623730951,
                .minimum = MOST - 2,
                .maximum = MOST}},
           Case{{LEAST, MOST},
                {.median = 0,
                .mean = 0,
                .standardDeviation = 13043817825332782212.0,
                .minimum = LEAST,
                .maximum = MOST}},
       }) {
    EXPECT_EQ(figuresOf(samples), figures) << ::testing::PrintToString(samples);
  }
}

TEST(Figures, AreNoneWithoutSamples) {
  EXPECT_EQ(figuresOf({}), std::nullopt);
}

TEST(StepStatistics, AreOfScriptsThatPassedInMeasuredIterationsThatFinished) {
  EXPECT_THAT(rowsOf(sampleRun()), ElementsAre(Row{0, "Show", {100, 103, 110}, 1}, Row{0, "Pay", {7}, 1},
                                               Row{1, "Type", {8}, 2}, Row{2, "Show", {40, 43}, 1}));
}

TEST(StepStatistics, HaveARowForAStepThatIsLeftOutEverywhere) {
  RunRecord run = sampleRun();
  run.iterations.resize(2);
  run.plannedIterations = 1;
  EXPECT_THAT(rowsOf(run), ElementsAre(Row{0, "Show", {100}, 0}, Row{0, "Pay", {7}, 0}, Row{1, "Type", {}, 1},
                                       Row{2, "Show", {40}, 0}));
  EXPECT_EQ(stepStatisticsOf(run).at(2).figures, std::nullopt);
  EXPECT_EQ(stepStatisticsOf(run).at(3).figures, figuresOf(std::vector<std::int64_t>{40}));
}

TEST(StepStatistics, LeaveOutWhatAnInterruptedIterationMeasured) {
  RunRecord run = sampleRun();
  run.iterations.at(2).outcome = IterationOutcome::interrupted;
  EXPECT_THAT(rowsOf(run), ElementsAre(Row{0, "Show", {100}, 2}, Row{0, "Pay", {7}, 2}, Row{1, "Type", {}, 3},
                                       Row{2, "Show", {40}, 2}));
}

TEST(StepStatistics, AreNoneWhereNothingWasMeasured) {
  EXPECT_THAT(stepStatisticsOf(RunRecord()), IsEmpty());
}

TEST(OutcomeCounts, AreOfMeasuredIterations) {
  EXPECT_THAT(outcomeCountsOf(sampleRun()),
              ElementsAre(OutcomeCounts{.passed = 3}, OutcomeCounts{.passed = 1, .failed = 1, .aborted = 1},
                          OutcomeCounts{.passed = 2, .notRun = 1}));
}

TEST(OutcomeCounts, AddUp) {
  OutcomeCounts counts{.passed = 1, .failed = 2, .aborted = 3, .notRun = 4};
  counts += {.passed = 10, .failed = 20, .aborted = 30, .notRun = 40};
  EXPECT_EQ(counts, (OutcomeCounts{.passed = 11, .failed = 22, .aborted = 33, .notRun = 44}));
}

}  // namespace
}  // namespace quobrak::host
