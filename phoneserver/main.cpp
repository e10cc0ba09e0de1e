#include <sys/types.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "phoneserver/Options.h"
#include "phoneserver/PhoneServer.h"
#include "platform/foundation/VirtualClock.h"

namespace {

using namespace quobrak;
using phoneserver::Options;

constexpr int BAD_USE = 2;

simulator::PhoneDescription describedPhone(const Options& options) {
  if (options.phone) {
    return simulator::loadPhone(simulator::FolderPhoneFiles(*options.phone));
  }
  return simulator::loadPhone(simulator::BuiltinPhoneFiles());
}

std::unique_ptr<Clock> chosenClock(const Options& options) {
  if (options.clock == phoneserver::ClockChoice::virtualTime) {
    return std::make_unique<VirtualClock>();
  }
  return std::make_unique<SystemClock>();
}

/// The signals that end the program, which only its main thread takes, and takes when it waits for them.
class EndSignals {
 public:
  EndSignals() {
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGINT);
    sigaddset(&signals_, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
  }

  void wait() const {
    int received = 0;
    sigwait(&signals_, &received);
  }

 private:
  sigset_t signals_{};
};

void serve(const Options& options) {
  // Threads inherit what is blocked, so this comes before any is started.
  const EndSignals signals;
  std::signal(SIGPIPE, SIG_IGN);
  simulator::PhoneDescription description = describedPhone(options);
  const std::unique_ptr<Clock> clock = chosenClock(options);
  phoneserver::PhoneServer server(std::move(description), *clock, {.host = options.host, .port = options.port},
                                  [](const phoneserver::Request& request, const phoneserver::Reply&) {
                                    if (request.path == "/wda/shutdown") {
                                      ::kill(::getpid(), SIGTERM);
                                    }
                                  });
  std::cout << "The phone listens on " << server.url() << std::endl;
  signals.wait();
}

int run(const std::vector<std::string>& arguments) {
  const auto read = phoneserver::readOptions(arguments);
  if (const auto* const information = std::get_if<phoneserver::Information>(&read)) {
    std::cout << information->text;
  } else {
    serve(std::get<Options>(read));
  }
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  try {
    return run({arguments + 1, arguments + argumentCount});
  } catch (const std::runtime_error& error) {
    std::cerr << "quobrakPhone: " << error.what() << std::endl;
    return BAD_USE;
  }
}
