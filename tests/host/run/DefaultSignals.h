#pragma once

#include <csignal>

namespace quobrak::host {

/// The signals that end a program do so, as if it had been started at a terminal: in the background of a shell they may
/// be ignored.
struct DefaultSignals {
  DefaultSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
      std::signal(signal, SIG_DFL);
    }
  }
};

}  // namespace quobrak::host
