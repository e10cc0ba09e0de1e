#include "phoneserver/PhoneServer.h"

#include <gmock/gmock.h>
#include <httplib.h>

#include <string>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::phoneserver {
namespace {

using ::testing::ElementsAre;

constexpr std::chrono::milliseconds START(1700000000000);
constexpr const char* JSON = "application/json";

simulator::PhoneDescription description() {
  return simulator::loadPhone(
      quobrak::testing::smallPhone(R"(<XCUIElementTypeTextField name="field" x="0" y="0" width="90" height="30"/>)"));
}

/// A phone that is served, and a client of it.
struct ServedTest : ::testing::Test {
  VirtualClock clock{START};
  std::vector<std::string> exchanges;
  PhoneServer server{description(), clock, {}, [this](const Request& request, const Reply& reply) {
                       exchanges.push_back(request.method + " " + request.path + " " + std::to_string(reply.status));
                     }};
  httplib::Client client{"127.0.0.1", server.port()};

  /// The body of what is answered.
  std::string post(const std::string& path, const std::string& body) {
    const httplib::Result result = client.Post(path, body, JSON);
    return result ? result->body : "no answer";
  }
};

TEST_F(ServedTest, AnswersOverHttp) {
  const httplib::Result result = client.Get("/window/size");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 200);
  EXPECT_EQ(result->get_header_value("Content-Type"), "application/json; charset=utf-8");
  EXPECT_EQ(result->body, R"({"sessionId":null,"value":{"height":200,"width":100}})");
}

TEST_F(ServedTest, TellsWhereItListens) {
  EXPECT_GT(server.port(), 0);
  EXPECT_EQ(server.url(), "http://127.0.0.1:" + std::to_string(server.port()));
}

TEST_F(ServedTest, ReadsBodiesAndQueries) {
  EXPECT_EQ(post("/alert/accept", R"({"name": 1})"),
            R"({"sessionId":null,"value":{"error":"no such alert","message":"no alert is up in the application )"
            R"(com.apple.springboard, which is looked into","stacktrace":"","traceback":""}})");
  const httplib::Result result = client.Get("/source?format=yaml");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 400);
  EXPECT_NE(result->body.find("there is no source format"), std::string::npos);
}

TEST_F(ServedTest, ActsOnThePhone) {
  EXPECT_NE(post("/session", R"({"capabilities": {"alwaysMatch": {"bundleId": "com.example.test"}}})").find("Test"),
            std::string::npos);
  EXPECT_TRUE(server.phone().isInFront("com.example.test"));
}

TEST_F(ServedTest, TellsItsObserverOfEveryExchange) {
  client.Get("/status");
  client.Post("/wda/homescreen", "{}", JSON);
  client.Delete("/session/x");
  EXPECT_THAT(exchanges, ElementsAre("GET /status 200", "POST /wda/homescreen 200", "DELETE /session/x 404"));
}

TEST_F(ServedTest, KeepsAConnectionOpen) {
  client.set_keep_alive(true);
  for (int request = 0; request < 20; ++request) {
    const httplib::Result result = client.Get("/status");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->get_header_value("Connection"), "") << request;
  }
}

TEST_F(ServedTest, ServesSeveralConnectionsAtOnce) {
  std::vector<std::unique_ptr<httplib::Client>> clients;
  for (int number = 0; number < 20; ++number) {
    clients.push_back(std::make_unique<httplib::Client>("127.0.0.1", server.port()));
    clients.back()->set_keep_alive(true);
    const httplib::Result result = clients.back()->Get("/status");
    ASSERT_TRUE(result) << number;
    EXPECT_EQ(result->status, 200);
  }
}

TEST_F(ServedTest, RefusesUnknownMethodsAsUnknownCommands) {
  for (const char* const method : {"PUT", "PATCH", "OPTIONS"}) {
    httplib::Request request;
    request.method = method;
    request.path = "/status";
    const httplib::Result result = client.send(request);
    ASSERT_TRUE(result) << method;
    EXPECT_EQ(result->status, 404) << method;
    EXPECT_NE(result->body.find(std::string("there is no command ") + method), std::string::npos) << result->body;
  }
}

TEST_F(ServedTest, RefusesABodyThatIsTooLarge) {
  const httplib::Result result = client.Post("/wda/homescreen", std::string(2'000'000, ' '), JSON);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 413);
  EXPECT_EQ(
      result->body,
      R"({"sessionId":null,"value":{"error":"invalid argument","message":"the body is larger than 1048576 bytes",)"
      R"("stacktrace":"","traceback":""}})");
  EXPECT_TRUE(exchanges.empty());
}

TEST_F(ServedTest, RefusesAPathThatIsTooLong) {
  const httplib::Result result = client.Get("/" + std::string(8000, 'a'));
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 404);
  EXPECT_NE(result->body.find("no command has so long a path"), std::string::npos);
}

TEST_F(ServedTest, LosesItsClientsWhenItStops) {
  client.set_keep_alive(true);
  ASSERT_TRUE(client.Get("/status"));
  server.stop();
  EXPECT_FALSE(client.Get("/status"));
  server.stop();
}

TEST(PhoneServer, CannotListenWhereAnotherOneDoes) {
  VirtualClock clock(START);
  const PhoneServer first(description(), clock);
  try {
    const PhoneServer second(description(), clock, {.host = "127.0.0.1", .port = first.port()});
    FAIL() << "two servers listen on one port";
  } catch (const PhoneServerError& error) {
    EXPECT_EQ(std::string(error.what()),
              "the phone cannot listen on 127.0.0.1:" + std::to_string(first.port()) +
                  ": the port is taken, or the host is none of this machine's; choose another one, or port 0 for any "
                  "that is free");
  }
}

TEST(PhoneServer, CanListenAgainWhereItListenedBefore) {
  VirtualClock clock(START);
  int port = 0;
  {
    const PhoneServer first(description(), clock);
    port = first.port();
    httplib::Client("127.0.0.1", port).Get("/status");
  }
  const PhoneServer second(description(), clock, {.host = "127.0.0.1", .port = port});
  EXPECT_TRUE(httplib::Client("127.0.0.1", port).Get("/status"));
}

}  // namespace
}  // namespace quobrak::phoneserver
