#include "phoneserver/ConnectionServer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

namespace quobrak::phoneserver {
namespace {

/// A server that gives back what it is sent.
struct ConnectionServerTest : ::testing::Test {
  ConnectionServerTest() {
    server.Post(".*", [](const httplib::Request& request, httplib::Response& response) {
      response.set_content(request.body, "text/plain");
    });
    port = server.bind_to_any_port("127.0.0.1");
    listening = std::thread([this] { server.listen_after_bind(); });
    while (!server.is_running()) {
      std::this_thread::yield();
    }
  }
  ~ConnectionServerTest() override {
    server.stopAtOnce();
    listening.join();
  }

  ConnectionServer server;
  int port = 0;
  std::thread listening;
};

TEST_F(ConnectionServerTest, PassesBodiesOfEverySize) {
  httplib::Client client("127.0.0.1", port);
  client.set_keep_alive(true);
  for (const std::size_t size : {0U, 1U, 16383U, 16384U, 16385U, 5'000'000U}) {
    std::string body(size, 'x');
    for (std::size_t place = 0; place < size; place += 1000) {
      body[place] = static_cast<char>('a' + place / 1000 % 26);
    }
    const httplib::Result result = client.Post("/", body, "text/plain");
    ASSERT_TRUE(result) << size;
    EXPECT_TRUE(result->body == body) << size;
  }
}

TEST_F(ConnectionServerTest, StopsWhileAClientKeepsItsConnection) {
  httplib::Client client("127.0.0.1", port);
  client.set_keep_alive(true);
  ASSERT_TRUE(client.Post("/", "x", "text/plain"));
  server.stopAtOnce();
  EXPECT_FALSE(client.Post("/", "x", "text/plain"));
}

}  // namespace
}  // namespace quobrak::phoneserver
