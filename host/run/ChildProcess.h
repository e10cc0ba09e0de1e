#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/run/FileDescriptor.h"

namespace quobrak::host {

/// What a process is started with. It has no arguments, reads nothing, and inherits nothing else.
struct ChildStart {
  /// An absolute path.
  std::filesystem::path executable;
  /// NAME=VALUE.
  std::vector<std::string> environment;
  /// A new file, which receives what the process prints on standard output and standard error.
  std::filesystem::path output;

  bool operator==(const ChildStart&) const = default;
};

/// How a process ended: either an exit status or the signal that ended it.
struct ChildEnd {
  std::optional<int> exitStatus;
  std::optional<int> signal;

  bool operator==(const ChildEnd&) const = default;
};

/// A process that this program started, in a process group of its own, so that a key pressed at the terminal reaches
/// this program alone. When this program ends, whatever the reason, the process is killed. When the process ends, so
/// is all that it left running in its group.
class ChildProcess {
 public:
  /// Throws `EnvironmentError` where it cannot be started.
  explicit ChildProcess(const ChildStart& start);
  /// Kills it where it still runs.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Can be read from, as `poll` tells, when the process has ended.
  int descriptor() const { return descriptor_.number(); }

  /// Sends a signal to it and to all of its group.
  void send(int signal) const;

  /// Waits until it has ended. To be called once.
  ChildEnd waitForEnd();

 private:
  pid_t process_ = 0;
  FileDescriptor descriptor_;
};

}  // namespace quobrak::host
