#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/check/Variables.h"
#include "host/run/ChildEnvironment.h"
#include "host/run/RunRecord.h"

namespace CLI {
class App;
}

namespace quobrak::host {

/// What the command line says of a run.
struct RunOptions {
  /// Files and folders.
  std::vector<std::string> scripts;
  /// The command line to run in place of scripts.
  std::optional<std::string> command;
  /// Whether the reference script is run in place of scripts.
  bool isReference = false;

  std::size_t iterations = 1;
  std::size_t warmUps = 0;
  /// Between two iterations.
  std::chrono::milliseconds rest{};
  std::optional<std::uint64_t> shuffleSeed;
  bool isFailFast = false;

  std::optional<std::string> suite;
  VariableOptions variables;
  std::optional<std::filesystem::path> phone;
  /// "simulator" or "webdriver".
  std::optional<std::string> driver;
  /// "virtual" or "system".
  std::optional<std::string> clock;

  std::optional<std::filesystem::path> out;
  std::optional<std::filesystem::path> testProcess;
  bool isUnchecked = false;
  bool isQuiet = false;

  RunKind kind() const;
};

/// Declares the options of a run, which fill `options`. It must live until the command line has been read.
void declareRunOptions(CLI::App& app, RunOptions& options);

/// Throws `UseError` where options do not go together, or lead nowhere. Where an option is not used, what `own`, this
/// program's environment, tells the test process instead counts too (QUOBRAK_DRIVER and its like).
void requireUsable(const RunOptions& options, const EnvironmentVariables& own);

/// A duration such as "500" or "500ms" (milliseconds), "30s", "2min", "1h", at most a day; none for any other text.
std::optional<std::chrono::milliseconds> parseDuration(std::string_view text);

}  // namespace quobrak::host
