#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/run/RunRecord.h"

namespace quobrak::host {

/// Environment variables by their names.
using EnvironmentVariables = std::map<std::string, std::string, std::less<>>;

/// The variables of this program's own environment.
EnvironmentVariables ownEnvironment();

/// What the options say of how the test process is configured; none where they say nothing.
struct TestProcessSettings {
  std::optional<std::string> driver;
  std::optional<std::string> clock;
  /// A folder; a relative path starts at the working directory, which is the test process's too.
  std::optional<std::filesystem::path> phone;
};

/// What is the same in all iterations: of `own`, this program's environment, that by which programs and libraries find
/// files and servers (PATH, HOME, TMPDIR, TZ, LANG, LC_..., LD_LIBRARY_PATH, proxies and certificates) and what
/// configures the test process (QUOBRAK_...); over these `variables`, which are for scripts; and over all of them the
/// settings. Nothing else gets through, so that a script finds the same on every machine.
EnvironmentVariables commonEnvironment(const EnvironmentVariables& own, const EnvironmentVariables& variables,
                                       const TestProcessSettings& settings);

/// A script as the test process is told of it.
struct ToldScript {
  std::string suite;
  /// In the Documents directory, as the test process has to be told of it.
  std::string path;
};

/// What one test process runs, and where.
struct IterationTask {
  RunKind kind = RunKind::scripts;
  /// As the test process is told it: warm-ups are 0.
  std::size_t iteration = 1;
  /// In their order.
  std::vector<ToldScript> scripts;
  /// The command line of `RunKind::command`.
  std::string command;
  /// By absolute paths.
  std::filesystem::path documents;
  std::filesystem::path trace;
};

/// The whole environment of one test process, as NAME=VALUE in the order of the names.
std::vector<std::string> iterationEnvironment(const EnvironmentVariables& common, const IterationTask& task);

}  // namespace quobrak::host
