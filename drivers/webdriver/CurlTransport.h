#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "drivers/webdriver/Transport.h"

namespace quobrak::webdriver {

/// HTTP over one connection that is kept alive. Sends each request at most once, follows no redirects, and waits for no
/// "100 Continue".
class CurlTransport final : public Transport {
 public:
  /// A picture of the largest phone takes a tenth of it.
  static constexpr std::size_t LARGEST_REPLY = 256 << 20;

  /// `url` is the server's address, with the path below which it answers, if any, and without a "/" at its end.
  /// `connectTimeLimit` bounds the making of a connection.
  CurlTransport(std::string url, std::chrono::milliseconds connectTimeLimit, std::size_t largestReply = LARGEST_REPLY);
  ~CurlTransport() override;
  CurlTransport(const CurlTransport&) = delete;
  CurlTransport& operator=(const CurlTransport&) = delete;

  HttpReply exchange(const HttpRequest& request) override;

 private:
  struct Connection;

  std::string url_;
  std::unique_ptr<Connection> connection_;
};

}  // namespace quobrak::webdriver
