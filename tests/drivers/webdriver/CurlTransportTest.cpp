#include "drivers/webdriver/CurlTransport.h"

#include <httplib.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <set>
#include <string>
#include <thread>

#include "tests/drivers/webdriver/ScriptedServer.h"

namespace quobrak::webdriver {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::IsEmpty;
using ::testing::Property;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::Throws;

/// Runs a server on a port of the loopback interface for as long as it lives.
class Listening {
 public:
  explicit Listening(httplib::Server& server) : server_(server) {
    server_.set_tcp_nodelay(true);
    port_ = server_.bind_to_any_port("127.0.0.1");
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    // A stop before that would be overlooked.
    while (!server_.is_running()) {
      std::this_thread::yield();
    }
  }
  ~Listening() {
    server_.stop();
    thread_.join();
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

  std::string url() const { return "http://127.0.0.1:" + std::to_string(port_); }

 private:
  httplib::Server& server_;
  int port_ = 0;
  std::thread thread_;
};

/// A server that notes what it is asked, answers "/status/<number>" with that status and "/echo" with the body, and all
/// else with nothing but success.
class CurlTransportTest : public ::testing::Test {
 protected:
  CurlTransportTest() {
    const auto handler = [this](const httplib::Request& request, httplib::Response& response) {
      handle(request, response);
    };
    server_.set_keep_alive_max_count(1000);
    server_.set_keep_alive_max_count(1000);
    server_.Get(".*", handler);
    server_.Post(".*", handler);
    server_.Delete(".*", handler);
  }
  ~CurlTransportTest() override {
    {
      const std::lock_guard lock(mutex_);
      isOver_ = true;
    }
    over_.notify_all();
  }

  HttpReply exchange(const std::string& method, const std::string& path, const std::string& body = "") {
    return transport_.exchange({.method = method, .path = path, .body = body, .timeLimit = 60s});
  }

  httplib::Request last() {
    const std::lock_guard lock(mutex_);
    return requests_.back();
  }

  std::set<int> clientPorts() {
    const std::lock_guard lock(mutex_);
    std::set<int> ports;
    for (const httplib::Request& request : requests_) {
      ports.insert(request.remote_port);
    }
    return ports;
  }

 private:
  void handle(const httplib::Request& request, httplib::Response& response) {
    constexpr std::string_view STATUS = "/status/";
    std::unique_lock lock(mutex_);
    requests_.push_back(request);
    if (request.path.starts_with(STATUS)) {
      response.status = std::stoi(request.path.substr(STATUS.size()));
      response.set_header("Location", "/echo");
      response.set_content("status", "text/plain");
    } else if (request.path == "/echo") {
      response.set_content(request.body, "application/json");
    } else if (request.path == "/never") {
      over_.wait(lock, [this] { return isOver_; });
    } else if (request.path == "/halfway") {
      constexpr std::size_t PROMISED = 100;
      response.set_content_provider(PROMISED, "text/plain", [](std::size_t, std::size_t, httplib::DataSink& sink) {
        return sink.write("half", 4) && false;
      });
    }
  }

  std::mutex mutex_;
  std::condition_variable over_;
  bool isOver_ = false;
  std::vector<httplib::Request> requests_;
  httplib::Server server_;

 protected:
  Listening listening_{server_};
  CurlTransport transport_{listening_.url(), 10s};
};

TEST_F(CurlTransportTest, OneConnectionCarriesAllRequests) {
  for (int count = 0; count < 20; ++count) {
    exchange("GET", "/a");
    exchange("POST", "/status/404", "{}");
    exchange("DELETE", "/a");
  }
  EXPECT_THAT(clientPorts(), SizeIs(1));
}

TEST_F(CurlTransportTest, APostCarriesItsBodyAsJSONWithoutWaitingForLeave) {
  for (const std::string& body : {std::string("{}"), std::string("{\"text\":\"Größe \0🙂\"}", 22), std::string(),
                                  std::string(2'000'000, 'x')}) {
    const HttpReply reply = exchange("POST", "/echo", body);
    EXPECT_EQ(reply.status, 200);
    EXPECT_TRUE(reply.body == body) << body.size();
    const httplib::Request request = last();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.get_header_value("Content-Type"), "application/json; charset=utf-8");
    EXPECT_EQ(request.get_header_value("Accept"), "application/json");
    EXPECT_EQ(request.get_header_value("Content-Length"), std::to_string(body.size()));
    EXPECT_FALSE(request.has_header("Expect"));
    EXPECT_FALSE(request.has_header("Transfer-Encoding"));
  }
}

TEST_F(CurlTransportTest, OtherMethodsCarryNoneAlsoBehindAPost) {
  for (const char* const method : {"GET", "DELETE", "GET"}) {
    exchange("POST", "/echo", "{}");
    EXPECT_THAT(exchange(method, "/echo", "ignored").body, IsEmpty());
    const httplib::Request request = last();
    EXPECT_EQ(request.method, method);
    EXPECT_THAT(request.body, IsEmpty());
    EXPECT_FALSE(request.has_header("Content-Length"));
  }
}

TEST_F(CurlTransportTest, TheStatusIsTheServersAndNoRedirectIsFollowed) {
  for (const int status : {200, 201, 302, 307, 400, 404, 408, 500, 503}) {
    const HttpReply reply = exchange("GET", "/status/" + std::to_string(status));
    EXPECT_EQ(reply.status, status);
    EXPECT_EQ(reply.body, "status");
  }
}

TEST_F(CurlTransportTest, ThePathOfTheAddressIsKeptInFrontAndWhatIsAskedBehind) {
  CurlTransport below(listening_.url() + "/wd/hub", 10s);
  below.exchange({.method = "GET", .path = "/session/s1/source?format=description", .body = "", .timeLimit = 60s});
  EXPECT_EQ(last().target, "/wd/hub/session/s1/source?format=description");
}

TEST_F(CurlTransportTest, UserAndPasswordOfTheAddressGoAlong) {
  CurlTransport guarded("http://me:secret@" + listening_.url().substr(std::string("http://").size()), 10s);
  guarded.exchange({.method = "GET", .path = "/a", .body = "", .timeLimit = 60s});
  EXPECT_EQ(last().get_header_value("Authorization"), "Basic bWU6c2VjcmV0");
}

TEST_F(CurlTransportTest, AnAnswerMayBeAsLargeAsAllowedAndNoLarger) {
  constexpr std::size_t LARGEST = 10;
  CurlTransport limited(listening_.url(), 10s, LARGEST);
  const auto echo = [&limited](std::size_t size) {
    return limited.exchange({.method = "POST", .path = "/echo", .body = std::string(size, 'x'), .timeLimit = 60s}).body;
  };
  EXPECT_EQ(echo(LARGEST), "xxxxxxxxxx");
  EXPECT_THAT([&] { echo(LARGEST + 1); },
              throwsFault(Fault::outcomeUnknown, "no answer came: the answer is larger than 10 bytes"));
  EXPECT_EQ(echo(1), "x") << "what came before is gone";
}

/// The library's own words behind the beginning differ from version to version.
auto throwsFaultThatBegins(Fault fault, const std::string& beginning) {
  return Throws<CommandError>(AllOf(Property("fault", &CommandError::fault, fault),
                                    Property("what", &std::exception::what, StartsWith(beginning))));
}

TEST_F(CurlTransportTest, WithoutAnAnswerWithinTheTimeLimitTheOutcomeIsUnknown) {
  EXPECT_THAT([this] { transport_.exchange({.method = "POST", .path = "/never", .body = "{}", .timeLimit = 50ms}); },
              throwsFaultThatBegins(Fault::outcomeUnknown, "no answer came: Timeout was reached"));
  EXPECT_THAT([this] { transport_.exchange({.method = "GET", .path = "/never", .body = "", .timeLimit = 50ms}); },
              throwsFaultThatBegins(Fault::outcomeUnknown, "no answer came: Timeout was reached"));
}

TEST_F(CurlTransportTest, WhereTheAnswerEndsHalfwayTheOutcomeIsUnknown) {
  EXPECT_THAT([this] { exchange("POST", "/halfway", "{}"); },
              throwsFaultThatBegins(Fault::outcomeUnknown, "no answer came: "));
  EXPECT_EQ(exchange("POST", "/echo", "{}").body, "{}") << "the next request finds a connection";
}

TEST(CurlTransport, WhereNobodyListensNothingIsSent) {
  std::string url;
  {
    httplib::Server server;
    const Listening listening(server);
    url = listening.url();
  }
  CurlTransport transport(url, 10s);
  EXPECT_THAT([&] { transport.exchange({.method = "POST", .path = "/a", .body = "{}", .timeLimit = 60s}); },
              throwsFaultThatBegins(Fault::notSent, "the server cannot be reached: "));
}

TEST(CurlTransport, AnAddressOfAnotherKindIsRefused) {
  for (const char* const url : {"file:///etc", "ftp://127.0.0.1", "gopher://127.0.0.1", "http://", "http://a b", ""}) {
    CurlTransport transport(url, 10s);
    EXPECT_THAT([&] { transport.exchange({.method = "GET", .path = "/passwd", .body = "", .timeLimit = 60s}); },
                throwsFaultThatBegins(Fault::notSent, "the server cannot be reached: "))
        << url;
  }
}

/// Answers the first request of every connection, and closes the connection upon the second one without a word.
class FallingSilent final : public httplib::Server {
 public:
  int received() const { return received_; }

 private:
  static bool receive(socket_t socket) {
    std::string request;
    std::array<char, 4096> part{};
    // Each request that this server is sent has a JSON object as its body.
    while (!request.ends_with('}')) {
      const ssize_t count = ::recv(socket, part.data(), part.size(), 0);
      if (count <= 0) {
        return false;
      }
      request.append(part.data(), static_cast<std::size_t>(count));
    }
    return true;
  }

  bool process_and_close_socket(socket_t socket) override {
    constexpr std::string_view ANSWER = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n{}";
    if (receive(socket)) {
      ++received_;
      ::send(socket, ANSWER.data(), ANSWER.size(), MSG_NOSIGNAL);
      received_ += receive(socket) ? 1 : 0;
    }
    ::shutdown(socket, SHUT_RDWR);
    return ::close(socket) == 0;
  }

  std::atomic<int> received_ = 0;
};

TEST(CurlTransport, SendsARequestOnceAlsoWhereAKeptConnectionBreaks) {
  FallingSilent server;
  const Listening listening(server);
  CurlTransport transport(listening.url(), 10s);
  const HttpRequest tap{.method = "POST", .path = "/tap", .body = "{}", .timeLimit = 60s};
  EXPECT_EQ(transport.exchange(tap).body, "{}");
  EXPECT_THAT([&] { transport.exchange(tap); },
              throwsFault(Fault::outcomeUnknown, "no answer came: the server closed the connection"));
  EXPECT_EQ(server.received(), 2);
  EXPECT_EQ(transport.exchange(tap).body, "{}") << "the next request finds a connection";
}

TEST(CurlTransport, WhereTheServerEndsUponAKeptConnectionTheOutcomeIsUnknown) {
  FallingSilent server;
  auto listening = std::make_unique<Listening>(server);
  CurlTransport transport(listening->url(), 10s);
  const HttpRequest tap{.method = "POST", .path = "/tap", .body = "{}", .timeLimit = 60s};
  EXPECT_EQ(transport.exchange(tap).body, "{}");
  // Whoever listens no longer still serves the connections that stand.
  server.stop();
  EXPECT_THAT([&] { transport.exchange(tap); },
              throwsFault(Fault::outcomeUnknown, "no answer came: the server closed the connection"));
  EXPECT_EQ(server.received(), 2);
  EXPECT_THAT([&] { transport.exchange(tap); },
              throwsFaultThatBegins(Fault::notSent, "the server cannot be reached: "));
}

}  // namespace
}  // namespace quobrak::webdriver
