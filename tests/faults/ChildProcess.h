#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quobrak::faults {

/// How a process ended: either an exit status or the signal that killed it.
struct ChildEnd {
  std::optional<int> exitStatus;
  std::optional<int> signal;
  /// On standard output and standard error.
  std::string printed;

  bool operator==(const ChildEnd&) const = default;
};

/// How a process ends that returns and prints nothing.
inline const ChildEnd RAN_THROUGH{.exitStatus = 0, .signal = {}, .printed = ""};

/// Runs `body` in a process of its own, which ends with 0 when it returns, and with SIGABRT when it raises. What it
/// changes in memory is gone afterwards: the shared state of the system begins anew. One that runs for longer than half
/// a minute is killed by SIGALRM. What it prints goes to the file `printed`.
ChildEnd inChildProcess(const std::function<void()>& body, const std::filesystem::path& printed);

}  // namespace quobrak::faults
