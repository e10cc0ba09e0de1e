#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "drivers/simulator/Phone.h"
#include "phoneserver/Reply.h"
#include "phoneserver/RequestHandler.h"
#include "platform/foundation/Clock.h"

namespace quobrak::phoneserver {

/// The server cannot listen where it was told to.
class PhoneServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where to listen.
struct ListenAddress {
  std::string host = "127.0.0.1";
  /// 0 for any that is free.
  int port = 0;
};

/// Called with each request after it was answered, on a thread of the server; one at a time.
using ExchangeObserver = std::function<void(const Request& request, const Reply& reply)>;

/// A simulated phone that clients reach over HTTP, from construction to destruction. Requests are carried out one at a
/// time.
class PhoneServer {
 public:
  /// `clock` must outlive the server. Throws `PhoneServerError`.
  PhoneServer(simulator::PhoneDescription description, Clock& clock, const ListenAddress& address = {},
              ExchangeObserver observer = {});
  ~PhoneServer();
  PhoneServer(const PhoneServer&) = delete;
  PhoneServer& operator=(const PhoneServer&) = delete;

  int port() const;

  /// "http://127.0.0.1:8100".
  std::string url() const;

  /// The phone. To be used only while no request is under way.
  simulator::Phone& phone();

  /// Ends all connections and the listening; done when it returns. The phone stays as it is.
  void stop();

 private:
  class Listening;
  std::unique_ptr<Listening> listening_;
};

}  // namespace quobrak::phoneserver
