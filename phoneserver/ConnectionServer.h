#pragma once

#include <httplib.h>

#include <mutex>
#include <set>

namespace quobrak::phoneserver {

/// The library's HTTP server, which can also be stopped while clients keep connections open: the library itself waits
/// for each of them to go away or to be idle for long.
class ConnectionServer final : public httplib::Server {
 public:
  ConnectionServer();

  /// Ends the listening and all connections. A request that is being answered loses its answer.
  void stopAtOnce();

 private:
  class OpenConnection;

  /// Serves one connection to its end.
  bool process_and_close_socket(socket_t socket) override;

  std::mutex mutex_;
  std::set<socket_t> connections_;
  bool isStopped_ = false;
};

}  // namespace quobrak::phoneserver
