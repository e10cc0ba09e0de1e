#include "drivers/webdriver/Connection.h"

#include "tests/drivers/webdriver/ScriptedServer.h"

namespace quobrak::webdriver {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

/// A connection to a server that answers one request.
class ConnectionTest : public ::testing::Test {
 protected:
  JSONValue answerTo(HttpReply reply) {
    server_.expectReply("GET /status", std::move(reply));
    return connection_.carryOut({.method = "GET", .path = "/status", .body = {}}, 1s);
  }

  ScriptedServer server_;
  Connection connection_{server_.transport()};
};

TEST_F(ConnectionTest, ItsAnswerIsTheValueOfTheReply) {
  EXPECT_EQ(answerTo({.status = 200, .body = R"({"value":{"ready":true},"sessionId":null})"}),
            JSONValue(JSONValue::Object{{"ready", true}}));
  EXPECT_EQ(answerTo({.status = 200, .body = R"({"value":null})"}), JSONValue());
  EXPECT_EQ(answerTo({.status = 201, .body = R"({"value":7})"}), JSONValue(7));
  EXPECT_EQ(answerTo({.status = 299, .body = R"( {"value" : "a"} )"}), JSONValue("a"));
}

TEST_F(ConnectionTest, APostHasABodyAlsoWithoutArguments) {
  server_.expect("POST /a {}");
  connection_.carryOut({.method = "POST", .path = "/a", .body = {}}, 1s);
  server_.expect(R"(POST /b {"text":"Größe \"x\"/🙂","count":1,"share":0.5,"list":[true]})");
  connection_.carryOut(
      {.method = "POST",
       .path = "/b",
       .body = {{"text", "Größe \"x\"/🙂"}, {"count", 1}, {"share", 0.5}, {"list", JSONValue::Array{true}}}},
      1s);
}

TEST_F(ConnectionTest, OtherMethodsHaveNoBody) {
  connection_.carryOut({.method = "DELETE", .path = "/session/s1", .body = {{"a", 1}}}, 1s);
  server_.expect("GET /a");
  connection_.carryOut({.method = "GET", .path = "/a", .body = {{"a", 1}}}, 1s);
  EXPECT_THAT(server_.requests(), ElementsAre("DELETE /session/s1", "GET /a"));
}

TEST_F(ConnectionTest, TheTimeLimitIsTheTransports) {
  server_.expect("GET /a");
  connection_.carryOut({.method = "GET", .path = "/a", .body = {}}, 1234ms);
  EXPECT_THAT(server_.timeLimits(), ElementsAre(1234ms));
}

TEST_F(ConnectionTest, FailsAsTheErrorCodeSays) {
  struct Row {
    const char* code;
    Fault fault;
  };
  constexpr Row ROWS[] = {
      {"no such element", Fault::noSuchElement},
      {"stale element reference", Fault::staleElement},
      {"no such alert", Fault::noSuchAlert},
      {"invalid session id", Fault::sessionLost},
      {"timeout", Fault::outcomeUnknown},
      {"unknown command", Fault::refused},
      {"unknown error", Fault::refused},
      {"invalid selector", Fault::refused},
      {"invalid argument", Fault::refused},
      {"invalid element state", Fault::refused},
      {"element not visible", Fault::refused},
      {"session not created", Fault::refused},
      {"unable to capture screen", Fault::refused},
      {"unsupported operation", Fault::refused},
      {"stale element", Fault::refused},
      {"No Such Element", Fault::refused},
      {"", Fault::refused},
  };
  for (const auto& [code, fault] : ROWS) {
    const std::string body = R"({"value":{"error":")" + std::string(code) + R"(","message":"why","traceback":""}})";
    for (const long status : {400L, 404L, 408L, 500L}) {
      EXPECT_THAT([&] { answerTo({.status = status, .body = body}); }, throwsFault(fault, std::string(code) + ": why"));
    }
  }
}

TEST_F(ConnectionTest, AnErrorWithoutAMessageIsItsCode) {
  for (const char* const body :
       {R"({"value":{"error":"unknown error"}})", R"({"value":{"error":"unknown error","message":""}})",
        R"({"value":{"error":"unknown error","message":null}})",
        R"({"value":{"error":"unknown error","message":7}})"}) {
    EXPECT_THAT([&] { answerTo({.status = 500, .body = body}); }, throwsFault(Fault::refused, "unknown error"));
  }
}

TEST_F(ConnectionTest, NothingIsDecidedByTheWordsOfAMessage) {
  EXPECT_THAT(
      [&] {
        answerTo({.status = 500, .body = R"({"value":{"error":"unknown error","message":"invalid session id"}})"});
      },
      throwsFault(Fault::refused, "unknown error: invalid session id"));
}

TEST_F(ConnectionTest, WhatIsNoAnswerIsShownAsFarAsItHelps) {
  struct Row {
    long status;
    std::string body;
    std::string reason;
  };
  const std::string page = "<html>" + std::string(100, 'x');
  const Row ROWS[] = {
      {502, "<html>Bad gateway</html>",
       "status 502 with what is no answer of a WebDriver server: <html>Bad gateway</html>"},
      {200, "", "status 200 with what is no answer of a WebDriver server: nothing"},
      {200, R"({"value":{"ready":tr)",
       R"(status 200 with what is no answer of a WebDriver server: {"value":{"ready":tr)"},
      {200, R"({"status":0})", R"(status 200 with what is no answer of a WebDriver server: {"status":0})"},
      {200, "[1]", "status 200 with what is no answer of a WebDriver server: [1]"},
      {200, "null", "status 200 with what is no answer of a WebDriver server: null"},
      {404, R"({"error":"no such element"})",
       R"(status 404 with what is no answer of a WebDriver server: {"error":"no such element"})"},
      {500, R"({"value":{"message":"why"}})",
       R"(status 500 with what is no answer of a WebDriver server: {"value":{"message":"why"}})"},
      {500, R"({"value":null})", R"(status 500 with what is no answer of a WebDriver server: {"value":null})"},
      {500, R"({"value":{"error":7}})",
       R"(status 500 with what is no answer of a WebDriver server: {"value":{"error":7}})"},
      {302, R"({"value":"x"})", R"(status 302 with what is no answer of a WebDriver server: {"value":"x"})"},
      {500, std::string(80, 'x'), "status 500 with what is no answer of a WebDriver server: " + std::string(80, 'x')},
      {500, page, "status 500 with what is no answer of a WebDriver server: <html>" + std::string(74, 'x') + "…"},
      {500, std::string(79, 'x') + "ä",
       "status 500 with what is no answer of a WebDriver server: " + std::string(79, 'x') + "\uFFFD…"},
      {500, "\xFF", "status 500 with what is no answer of a WebDriver server: \uFFFD"},
  };
  for (const Row& row : ROWS) {
    EXPECT_THAT([&] { answerTo({.status = row.status, .body = row.body}); }, throwsFault(Fault::nonsense, row.reason));
  }
}

TEST_F(ConnectionTest, WhatTheTransportRaisesPasses) {
  server_.expectFault("GET /a", Fault::notSent, "nobody listens");
  EXPECT_THAT([this] { connection_.carryOut({.method = "GET", .path = "/a", .body = {}}, 1s); },
              throwsFault(Fault::notSent, "nobody listens"));
}

}  // namespace
}  // namespace quobrak::webdriver
