#include "host/report/Summary.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <vector>

#include "host/report/FittingTable.h"
#include "host/report/Report.h"
#include "host/report/RunWords.h"
#include "host/report/Statistics.h"

namespace quobrak::host {

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr const char* NO_FIGURE = "–";

/// With one decimal, in any locale.
std::string decimal(double number) {
  // The longest one of a double has 309 digits before the point.
  std::array<char, 320> digits{};
  const std::to_chars_result end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, 1);
  return {digits.data(), end.ptr};
}

/// "10 iterations", "4 of 10 iterations".
std::string extentOf(std::size_t begun, std::size_t planned, std::string_view unit) {
  return (begun < planned ? std::to_string(begun) + " of " : "") + counted(planned, unit);
}

/// "4 of 10 iterations after 2 warm-ups".
std::string extentOf(const RunRecord& run) {
  const auto warmUps =
      static_cast<std::size_t>(std::count_if(run.iterations.begin(), run.iterations.end(),
                                             [](const IterationRecord& iteration) { return iteration.isWarmUp; }));
  const std::string iterations = extentOf(run.iterations.size() - warmUps, run.plannedIterations, "iteration");
  return run.plannedWarmUps == 0 ? iterations
                                 : iterations + " after " + extentOf(warmUps, run.plannedWarmUps, "warm-up");
}

std::string inStyle(const Terminal& terminal, Style style, std::size_t count) {
  return terminal.styled(count == 0 ? Style::plain : style, std::to_string(count));
}

std::string outcomes(const RunRecord& run, const Terminal& terminal) {
  const std::vector<Column> columns{{.title = "script"},
                                    {.title = "passed", .alignment = Alignment::right},
                                    {.title = "failed", .alignment = Alignment::right},
                                    {.title = "aborted", .alignment = Alignment::right},
                                    {.title = "not run", .alignment = Alignment::right}};
  const std::vector<OutcomeCounts> counts = outcomeCountsOf(run);
  Rows rows;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    rows.push_back({titleOf(run, i), inStyle(terminal, Style::green, counts[i].passed),
                    inStyle(terminal, Style::red, counts[i].failed), inStyle(terminal, Style::red, counts[i].aborted),
                    inStyle(terminal, Style::yellow, counts[i].notRun)});
  }
  return "Scripts, in " + extentOf(run) + ":\n" + fittingTable(columns, std::move(rows), 1, terminal);
}

bool isFailure(const ScriptRecord& script) {
  return script.outcome == ScriptOutcome::failed || script.outcome == ScriptOutcome::aborted;
}

std::string failureLine(const RunRecord& run, const IterationRecord& iteration, const ScriptRecord& script) {
  const std::string failure = failureIn(script.line, causeOf(script));
  return "  " + titleOf(run, script.script) + ", " + titleOf(iteration) + ", " + std::string(inWords(script.outcome)) +
         (failure.empty() ? "" : ": " + failure) + "\n";
}

/// The lines below a heading; nothing where there are none.
std::string section(const std::string& heading, const std::string& lines) {
  return lines.empty() ? "" : "\n" + heading + ":\n" + lines;
}

/// How each script first failed or was aborted, in a warm-up too.
std::string firstFailures(const RunRecord& run) {
  std::vector<std::string> firstOfScript(run.scripts.size());
  for (const IterationRecord& iteration : run.iterations) {
    for (const ScriptRecord& script : iteration.scripts) {
      std::string& first = firstOfScript.at(script.script);
      if (first.empty() && isFailure(script)) {
        first = failureLine(run, iteration, script);
      }
    }
  }
  return section("How they first failed", std::accumulate(firstOfScript.begin(), firstOfScript.end(), std::string()));
}

std::string unfinishedIterations(const RunRecord& run) {
  std::string lines;
  for (const IterationRecord& iteration : run.iterations) {
    if (iteration.outcome != IterationOutcome::finished) {
      lines += "  " + titleOf(iteration) + ", " + std::string(nameOf(iteration.outcome)) +
               (iteration.message.empty() ? "" : ": " + shown(iteration.message)) + "\n";
    }
  }
  return section("Iterations that did not finish", lines);
}

std::vector<std::string> stepRow(const RunRecord& run, const StepStatistics& row, const Terminal& terminal) {
  std::vector<std::string> cells{titleOf(run, row.script), shown(row.step), std::to_string(row.samples.size())};
  if (const std::optional<Figures>& figures = row.figures) {
    const std::optional<double>& deviation = figures->standardDeviation;
    cells.insert(cells.end(),
                 {decimal(figures->median), decimal(figures->mean), deviation ? decimal(*deviation) : NO_FIGURE,
                  std::to_string(figures->minimum), std::to_string(figures->maximum)});
  } else {
    cells.insert(cells.end(), 5, NO_FIGURE);
  }
  cells.push_back(inStyle(terminal, Style::yellow, row.leftOut));
  return cells;
}

std::string steps(const RunRecord& run, const Terminal& terminal) {
  std::vector<Column> columns{{.title = "script"}, {.title = "step"}};
  for (const char* title : {"n", "median", "mean", "sd", "min", "max", "left out"}) {
    columns.push_back({.title = title, .alignment = Alignment::right});
  }
  Rows rows;
  for (const StepStatistics& row : stepStatisticsOf(run)) {
    rows.push_back(stepRow(run, row, terminal));
  }
  return section("Steps, in milliseconds", fittingTable(columns, std::move(rows), 2, terminal));
}

}  // namespace

std::string summaryOf(const RunRecord& run, const Terminal& terminal) {
  const std::string early = run.endedEarly ? "\nThe run was ended early.\n" : "";
  const std::string place =
      "\nResults: " + shown(run.folder.string()) + " (" + RESULTS_FILE + ", " + JUNIT_FILE + ")\n";
  return outcomes(run, terminal) + firstFailures(run) + unfinishedIterations(run) + steps(run, terminal) + early +
         place;
}

}  // namespace quobrak::host
