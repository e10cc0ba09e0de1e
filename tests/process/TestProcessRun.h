#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/JSON.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::testing {

/// What an executable is started with. It inherits nothing else.
struct ProcessStart {
  std::filesystem::path executable = QUOBRAK_UI_TESTS;
  std::vector<std::string> arguments;
  std::map<std::string, std::string> environment;
  std::filesystem::path workingDirectory = "/";
  /// Descriptors besides the three standard ones: the child's number, and ours.
  std::vector<std::pair<int, int>> descriptors;
  /// The size in bytes that a file cannot grow beyond, as on a disk that is nearly full.
  std::optional<std::uint64_t> largestFile;
  /// Whether a process of root becomes an ordinary user's, whom file permissions hold back.
  bool isUnprivileged = false;
};

/// How the executable ended: either an exit status or the signal that killed it.
struct ProcessEnd {
  std::optional<int> exitStatus;
  std::optional<int> signal;
  std::string out;
  std::string err;
};

/// Starts the executable and waits for it; one that runs for longer than a minute is killed by SIGALRM.
ProcessEnd runExecutable(const ProcessStart& start);

/// Everything below a folder by its path from there: the content of files, "folder", or "link to TARGET".
std::map<std::string, std::string> snapshot(const std::filesystem::path& folder);

/// The lines of a trace, each read as JSON.
std::vector<JSONValue> traceEvents(const std::string& trace);

/// The events of one kind, such as "lineStarted".
std::vector<JSONValue> eventsOf(const std::vector<JSONValue>& events, std::string_view kind);

/// A Documents directory with scripts in it, and what the executable is to be started with: the scripts as suites at
/// iteration 1, on virtual time and a small phone.
class ProcessTest : public ::testing::Test {
 protected:
  ProcessTest();

  /// Adds a script to the run, and writes it where `text` is given. `path` starts at the Documents directory.
  void addScript(const std::string& suite, const std::string& path, const std::optional<std::string>& text);

  /// Runs and expects that the test returned; gives what is left in Documents besides the scripts.
  void runsThrough();

  ProcessEnd run() const { return runExecutable(start); }

  std::filesystem::path documents() const { return folder.path() / "Documents"; }
  /// The content of a file in Documents; the test fails where there is none.
  std::string document(const std::string& path) const { return folder.read("Documents/" + path); }
  /// The files in Documents but those below "scripts", with the time in the names of measure files as "TIME".
  std::vector<std::string> results() const;
  /// The contents of the measure files, the earliest first.
  std::vector<std::string> measures() const;

  /// Holds the Documents directory and nothing else.
  const TemporaryFolder folder;
  const TemporaryFolder phone;
  ProcessStart start;

 private:
  int scriptCount_ = 0;
};

/// The status file of a run with one status for each pair of a status and its stack trace.
std::string statusFile(const std::vector<std::pair<std::string, std::string>>& statuses);

/// The lines on standard output of a run that ended as `outcome` ("passed" or "failed") after `seconds`.
std::string testCaseLines(const std::string& outcome, const std::string& seconds);

/// The line on standard error of a run that raised.
std::string caughtError(const std::string& message);

/// What every script's report turns into when no application was started: its picture is taken, its dump cannot be.
inline constexpr const char* NOT_INITIALISED =
    "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your script.";

}  // namespace quobrak::testing
