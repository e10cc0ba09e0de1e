#include "phoneserver/PhoneServer.h"

#include <mutex>
#include <thread>
#include <utility>

#include "phoneserver/ConnectionServer.h"

namespace quobrak::phoneserver {

namespace {

constexpr std::size_t LARGEST_BODY = 1 << 20;
constexpr std::size_t LONGEST_PATH = 1024;
constexpr const char* JSON_TYPE = "application/json; charset=utf-8";

Request requestFrom(const httplib::Request& received) {
  Request request{.method = received.method, .path = received.path, .body = received.body};
  for (const auto& [name, value] : received.params) {
    request.query.emplace(name, value);
  }
  return request;
}

void send(const Reply& reply, httplib::Response& response) {
  response.status = reply.status;
  response.set_content(reply.body, JSON_TYPE);
}

/// Faults that the library finds carry its status.
void describeFault(const httplib::Request& request, httplib::Response& response) {
  if (!response.body.empty()) {
    return;
  }
  constexpr int TOO_LARGE = 413;
  const int status = response.status;
  const WireError error =
      status == TOO_LARGE
          ? WireError(WireErrorCode::invalidArgument,
                      "the body is larger than " + std::to_string(LARGEST_BODY) + " bytes")
          : WireError(WireErrorCode::unknownCommand, "there is no command " + request.method + " " + request.path);
  send(failure(error, std::nullopt), response);
  response.status = status;
}

}  // namespace

class PhoneServer::Listening {
 public:
  Listening(simulator::PhoneDescription description, Clock& clock, const ListenAddress& address,
            ExchangeObserver observer)
      : served_(std::move(description), clock), host_(address.host), observer_(std::move(observer)) {
    configure();
    port_ = bind(address);
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    // A stop before that would be overlooked.
    while (!server_.is_running()) {
      std::this_thread::yield();
    }
  }

  ~Listening() { stop(); }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

  const std::string& host() const { return host_; }
  int port() const { return port_; }
  ServedPhone& served() { return served_; }

  void stop() {
    if (thread_.joinable()) {
      server_.stopAtOnce();
      thread_.join();
    }
  }

 private:
  void configure() {
    server_.set_payload_max_length(LARGEST_BODY);
    server_.set_pre_routing_handler([](const httplib::Request& request, httplib::Response& response) {
      // The library matches paths by a recursion that a long one would drive too deep.
      if (request.path.size() <= LONGEST_PATH) {
        return httplib::Server::HandlerResponse::Unhandled;
      }
      send(failure(WireError(WireErrorCode::unknownCommand, "no command has so long a path"), std::nullopt), response);
      return httplib::Server::HandlerResponse::Handled;
    });
    const auto handler = [this](const httplib::Request& request, httplib::Response& response) {
      send(answered(requestFrom(request)), response);
    };
    constexpr const char* ANY_PATH = ".*";
    server_.Get(ANY_PATH, handler);
    server_.Post(ANY_PATH, handler);
    server_.Delete(ANY_PATH, handler);
    server_.Put(ANY_PATH, handler);
    server_.Patch(ANY_PATH, handler);
    server_.Options(ANY_PATH, handler);
    server_.set_error_handler(httplib::Server::Handler(describeFault));
  }

  int bind(const ListenAddress& address) {
    const int port = address.port == 0 ? server_.bind_to_any_port(address.host)
                                       : (server_.bind_to_port(address.host, address.port) ? address.port : -1);
    if (port < 0) {
      throw PhoneServerError("the phone cannot listen on " + address.host + ":" + std::to_string(address.port) +
                             ": the port is taken, or the host is none of this machine's; choose another one, or " +
                             "port 0 for any that is free");
    }
    return port;
  }

  Reply answered(const Request& request) {
    const std::lock_guard lock(mutex_);
    Reply reply = answer(served_, request);
    if (observer_) {
      observer_(request, reply);
    }
    return reply;
  }

  std::mutex mutex_;
  ServedPhone served_;
  std::string host_;
  ExchangeObserver observer_;
  ConnectionServer server_;
  int port_ = 0;
  std::thread thread_;
};

PhoneServer::PhoneServer(simulator::PhoneDescription description, Clock& clock, const ListenAddress& address,
                         ExchangeObserver observer)
    : listening_(std::make_unique<Listening>(std::move(description), clock, address, std::move(observer))) {}

PhoneServer::~PhoneServer() = default;

int PhoneServer::port() const {
  return listening_->port();
}

std::string PhoneServer::url() const {
  return "http://" + listening_->host() + ":" + std::to_string(port());
}

simulator::Phone& PhoneServer::phone() {
  return listening_->served().phone();
}

void PhoneServer::stop() {
  listening_->stop();
}

}  // namespace quobrak::phoneserver
