#pragma once

#include <csignal>
#include <optional>

#include "host/run/FileDescriptor.h"

namespace quobrak::host {

/// The signals that ask this program to end (Ctrl-C is SIGINT; SIGTERM; SIGHUP where its terminal goes away), held
/// back for as long as it lives, so that what is running can be ended in order. A signal that was ignored before, as
/// under `nohup`, stays ignored. A reader of what is printed that goes away (SIGPIPE) does not end the program either.
/// To be made in the main thread, before others start.
class EndSignals {
 public:
  /// Throws `EnvironmentError` where the system has no room for it.
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  /// Can be read from, as `poll` tells, when there is a signal to be taken.
  int descriptor() const { return descriptor_.number(); }

  /// The number of a signal that came and was not taken yet; none where none has come.
  std::optional<int> take();

 private:
  sigset_t formerMask_{};
  struct sigaction formerPipeAction_ {};
  FileDescriptor descriptor_;
};

}  // namespace quobrak::host
