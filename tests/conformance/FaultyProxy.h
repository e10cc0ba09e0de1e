#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace httplib {
class Client;
class Server;
struct Request;
struct Response;
}  // namespace httplib

namespace quobrak::conformance {

/// What becomes of a request on its way to the phone.
enum class Fault {
  none,
  /// No answer comes, for as long as the proxy stands.
  hang,
  /// The request reaches the phone, and the connection breaks before the answer is complete.
  truncatedReply,
  /// The answer is a page for people.
  nonsense,
  /// The phone answers, but says that no such session exists.
  sessionLost,
  /// The phone answers that the element is gone.
  staleElement,
};

/// Stands between a driver and a phone that is served on loopback, hands everything on, and misbehaves when told to.
class FaultyProxy {
 public:
  /// Tells what becomes of a request, given as "METHOD path". Called from the proxy's own threads, one at a time.
  using Plan = std::function<Fault(const std::string& request)>;

  explicit FaultyProxy(int phonePort);
  ~FaultyProxy();
  FaultyProxy(const FaultyProxy&) = delete;
  FaultyProxy& operator=(const FaultyProxy&) = delete;

  int port() const { return port_; }

  void setPlan(Plan plan);

  /// From now on nobody listens.
  void kill();

 private:
  void handle(const httplib::Request& request, httplib::Response& response);
  void handOn(const httplib::Request& request, httplib::Response& response);

  int phonePort_;
  std::unique_ptr<httplib::Server> server_;
  int port_;
  std::mutex mutex_;
  std::condition_variable released_;
  bool isReleased_ = false;
  Plan plan_;
  std::thread thread_;
};

}  // namespace quobrak::conformance
