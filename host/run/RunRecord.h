#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quobrak::host {

/// What became of one script in one iteration.
enum class ScriptOutcome {
  passed,
  failed,
  /// The test process ended while the script ran.
  aborted,
  /// The test process ended before the script's turn.
  notRun
};

/// A line of a script as it ran, after trimming and substitution.
struct RunLine {
  /// From 1.
  std::size_t number = 0;
  std::string text;

  bool operator==(const RunLine&) const = default;
};

/// A measured step, as its measure file tells it. Times are milliseconds since 1970-01-01T00:00:00Z.
struct MeasuredStep {
  std::string name;
  std::int64_t start = 0;
  std::int64_t stop = 0;
  /// Milliseconds.
  std::int64_t duration = 0;

  bool operator==(const MeasuredStep&) const = default;
};

/// A script of a run, the same in all iterations.
struct RunScript {
  std::string suite;
  /// The name of its folder of results: that of the file without its extension, made unique within the suite.
  std::string name;
  /// Where the person's file is, as it was given or found; empty for the reference script and a single command.
  std::filesystem::path source;
  /// How many lines it has, empty ones and comments too.
  std::size_t lineCount = 0;
};

/// A script in one iteration.
struct ScriptRecord {
  /// The index of the script in `RunRecord::scripts`.
  std::size_t script = 0;
  ScriptOutcome outcome = ScriptOutcome::notRun;
  /// As the status file has it; empty where there is nothing to tell.
  std::string stackTrace;
  /// What really ended the script, from the trace: the status may tell less. Empty where it passed.
  std::string cause;
  /// The line that failed, or at which the test process ended.
  std::optional<RunLine> line;
  /// Milliseconds since 1970 and milliseconds, on the test process's clock; none where the script never started, or
  /// never finished.
  std::optional<std::int64_t> started;
  std::optional<std::int64_t> duration;
  /// The steps that were stopped in this script, in their order. Empty in an iteration that was aborted, whose measures
  /// were never written.
  std::vector<MeasuredStep> steps;
};

/// How the test process of one iteration ended.
enum class IterationOutcome {
  /// It went through; scripts may have failed.
  finished,
  /// It stopped itself on a fatal error, or a signal from outside ended it.
  aborted,
  /// It ended with an error: scripts or the Documents directory could not be used.
  failed,
  /// It refused its configuration, or could not be started.
  misconfigured,
  /// This program ended it, because it was told to end (Ctrl-C).
  interrupted
};

/// One run of the test process.
struct IterationRecord {
  /// From 1; warm-ups are counted apart.
  std::size_t number = 0;
  bool isWarmUp = false;
  IterationOutcome outcome = IterationOutcome::finished;
  /// Why it did not finish, in a sentence for a person; empty where it did.
  std::string message;
  /// The Documents directory of this iteration, with its trace and what it printed, relative to `RunRecord::folder`.
  std::filesystem::path folder;
  /// In the order in which they ran, or would have.
  std::vector<ScriptRecord> scripts;
  /// How long the test process ran, on the machine's clock.
  std::chrono::nanoseconds wallTime{};
};

enum class RunKind { scripts, command, reference };

/// All that a run left.
struct RunRecord {
  RunKind kind = RunKind::scripts;
  /// Where everything is.
  std::filesystem::path folder;
  std::vector<RunScript> scripts;
  /// Warm-ups first; as many as were begun.
  std::vector<IterationRecord> iterations;
  /// As they were asked for.
  std::size_t plannedWarmUps = 0;
  std::size_t plannedIterations = 1;
  /// "virtual" or "system".
  std::string clock;
  /// "simulator" or "webdriver".
  std::string driver;
  /// The folder of the phone; empty for the built-in one.
  std::string phone;
  /// The seed of the order of scripts, where it was shuffled.
  std::optional<std::uint64_t> shuffleSeed;
  /// Whether the run was ended before all iterations were through, by Ctrl-C or because of a failure.
  bool endedEarly = false;
};

}  // namespace quobrak::host
