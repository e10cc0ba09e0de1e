#include "host/run/EndSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>

#include "host/Subcommand.h"
#include "host/run/Files.h"

namespace quobrak::host {

namespace {

bool isIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

sigset_t signalsToHold() {
  sigset_t signals{};
  ::sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    // One that is blocked would come though it is ignored.
    if (!isIgnored(signal)) {
      ::sigaddset(&signals, signal);
    }
  }
  return signals;
}

}  // namespace

EndSignals::EndSignals() {
  const sigset_t signals = signalsToHold();
  descriptor_ = FileDescriptor(::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
  if (!descriptor_.isOpen()) {
    throw EnvironmentError("signals cannot be waited for: " + reasonOf(errno));
  }
  ::pthread_sigmask(SIG_BLOCK, &signals, &formerMask_);
  struct sigaction ignored {};
  ignored.sa_handler = SIG_IGN;
  ::sigaction(SIGPIPE, &ignored, &formerPipeAction_);
}

EndSignals::~EndSignals() {
  ::sigaction(SIGPIPE, &formerPipeAction_, nullptr);
  ::pthread_sigmask(SIG_SETMASK, &formerMask_, nullptr);
}

std::optional<int> EndSignals::take() {
  signalfd_siginfo information{};
  if (::read(descriptor_.number(), &information, sizeof information) != sizeof information) {
    return std::nullopt;
  }
  return static_cast<int>(information.ssi_signo);
}

}  // namespace quobrak::host
