#pragma once

namespace quobrak::host {

/// How the program ends, so that who started it can tell one cause from another.
enum class ExitStatus {
  success = 0,
  /// A script failed, a check found an error, or a selector finds nothing.
  failed = 1,
  /// The command line cannot be used.
  badUse = 2,
  /// A run of the test process was aborted: its statuses and measures were not written.
  aborted = 3,
  /// What the program needs around it failed: a file, a folder, a disk, the test process.
  environmentFailed = 4,
  /// Ended by Ctrl-C (128 and the number of the signal, as shells count).
  interrupted = 130,
  /// Ended by SIGTERM, or because its terminal went away (SIGHUP).
  terminated = 143,
};

}  // namespace quobrak::host
