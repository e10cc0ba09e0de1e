#include "phoneserver/ConnectionServer.h"

#include <sys/poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <string>

namespace quobrak::phoneserver {

namespace {

constexpr std::size_t MOST_CONNECTIONS = 32;
constexpr std::chrono::milliseconds LONGEST_IDLE = std::chrono::minutes(1);
constexpr std::chrono::milliseconds LONGEST_TRANSFER = std::chrono::seconds(10);

/// Whether the socket can be read from (POLLIN) or written to (POLLOUT) within that time.
bool isReady(socket_t socket, short event, std::chrono::milliseconds timeout) {
  pollfd wanted{.fd = socket, .events = event, .revents = 0};
  int result = 0;
  do {
    result = ::poll(&wanted, 1, static_cast<int>(timeout.count()));
  } while (result < 0 && errno == EINTR);
  return result > 0;
}

/// A connected socket as the library reads and writes it.
class SocketStream final : public httplib::Stream {
 public:
  explicit SocketStream(socket_t socket) : socket_(socket) {}

  bool is_readable() const override { return isReady(socket_, POLLIN, LONGEST_TRANSFER); }
  bool is_writable() const override { return isReady(socket_, POLLOUT, LONGEST_TRANSFER); }

  ssize_t read(char* bytes, std::size_t size) override {
    if (next_ == filled_) {
      if (!is_readable()) {
        return -1;
      }
      const ssize_t received = ::recv(socket_, buffer_.data(), buffer_.size(), 0);
      if (received <= 0) {
        return received;
      }
      next_ = 0;
      filled_ = static_cast<std::size_t>(received);
    }
    // The library reads the head of a request byte by byte.
    const std::size_t count = std::min(size, filled_ - next_);
    std::copy_n(buffer_.begin() + static_cast<std::ptrdiff_t>(next_), count, bytes);
    next_ += count;
    return static_cast<ssize_t>(count);
  }

  ssize_t write(const char* bytes, std::size_t size) override {
    return is_writable() ? ::send(socket_, bytes, size, MSG_NOSIGNAL) : -1;
  }

  /// Whether another request comes before the connection ends or has been idle for long.
  bool hasNext() const { return next_ < filled_ || isReady(socket_, POLLIN, LONGEST_IDLE); }

  void get_remote_ip_and_port(std::string&, int&) const override {}
  void get_local_ip_and_port(std::string&, int&) const override {}
  socket_t socket() const override { return socket_; }

 private:
  socket_t socket_;
  std::array<char, 16384> buffer_{};
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
};

}  // namespace

/// Notes a socket for as long as it is served, and closes it.
class ConnectionServer::OpenConnection {
 public:
  OpenConnection(ConnectionServer& server, socket_t socket) : server_(server), socket_(socket) {
    const std::lock_guard lock(server_.mutex_);
    isWanted_ = !server_.isStopped_;
    server_.connections_.insert(socket_);
  }
  ~OpenConnection() {
    const std::lock_guard lock(server_.mutex_);
    server_.connections_.erase(socket_);
    ::shutdown(socket_, SHUT_RDWR);
    ::close(socket_);
  }
  OpenConnection(const OpenConnection&) = delete;
  OpenConnection& operator=(const OpenConnection&) = delete;

  bool isWanted() const { return isWanted_; }

 private:
  ConnectionServer& server_;
  socket_t socket_;
  bool isWanted_ = false;
};

ConnectionServer::ConnectionServer() {
  new_task_queue = [] { return new httplib::ThreadPool(MOST_CONNECTIONS); };
  // The library's own choice lets two servers share a port, and then nobody knows which one answers.
  set_socket_options([](socket_t socket) {
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
  });
  // Otherwise each reply may wait for the client's delayed acknowledgement.
  set_tcp_nodelay(true);
}

bool ConnectionServer::process_and_close_socket(socket_t socket) {
  const OpenConnection connection(*this, socket);
  SocketStream stream(socket);
  bool isGood = connection.isWanted();
  bool isClosed = false;
  while (isGood && !isClosed && stream.hasNext()) {
    constexpr bool STAYS_OPEN = false;
    isGood = process_request(stream, STAYS_OPEN, isClosed, nullptr);
  }
  return isGood;
}

void ConnectionServer::stopAtOnce() {
  stop();
  const std::lock_guard lock(mutex_);
  isStopped_ = true;
  for (const socket_t connection : connections_) {
    ::shutdown(connection, SHUT_RDWR);
  }
}

}  // namespace quobrak::phoneserver
