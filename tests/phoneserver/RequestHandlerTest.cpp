#include "phoneserver/RequestHandler.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

TEST(RequestHandler, AnswersWithTheValueAndTheSession) {
  TestPhone phone;
  const Reply reply = phone.reply("GET", "session/orientation");
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.body, R"({"sessionId":"S","value":"PORTRAIT"})");
}

TEST(RequestHandler, RefusesWhatIsNoCommand) {
  TestPhone phone;
  EXPECT_EQ(phone.get("nothing"), "unknown command: there is no command GET /nothing");
  EXPECT_EQ(phone.ask("PUT", "status"), "unknown command: there is no command PUT /status");
  EXPECT_EQ(phone.reply("GET", "nothing").status, 404);
}

TEST(RequestHandler, RefusesAnotherSession) {
  TestPhone phone;
  EXPECT_EQ(answer(phone.served(), {.method = "GET", .path = "/session/T/orientation"}).body,
            R"({"sessionId":"S","value":{"error":"invalid session id","message":"the session T does not exist, or )"
            R"(another one took its place","stacktrace":"","traceback":""}})");
  phone.served().session().reset();
  EXPECT_EQ(phone.get("session/orientation"),
            "invalid session id: the session S does not exist, or another one took its place");
}

TEST(RequestHandler, RefusesABodyThatIsNoJsonObject) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session/wda/tap", "[1]"), "invalid argument: the body must be a JSON object");
  EXPECT_EQ(phone.post("session/wda/tap", "{"),
            "invalid argument: the body is no JSON: line 1, column 2: the text ends too early");
}

TEST(RequestHandler, TakesNoBodyForAnEmptyOne) {
  TestPhone phone;
  EXPECT_EQ(phone.ask("POST", "session/timeouts"), "null");
}

}  // namespace
}  // namespace quobrak::phoneserver
