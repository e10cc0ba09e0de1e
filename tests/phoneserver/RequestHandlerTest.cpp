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
  EXPECT_EQ(
      phone.post("session/wda/tap", "{"),
      "invalid argument: the body is no JSON: line 1, column 2: the text ends too early; expected a key in double "
      "quotes");
}

TEST(RequestHandler, LetsHappenWhatHasComeDueBeforeItAnswers) {
  TestPhone phone(
      R"(<Button name="a" label="early"/>)",
      R"([{"on": "time", "after": 1000, "do": [{"change": "identifier == 'a'", "to": {"label": "late"}}]}])");
  const std::string label = "session/element/" + phone.id("a") + "/attribute/label";
  phone.clock().usleep(999'000);
  EXPECT_EQ(phone.get(label), "'early'");
  phone.clock().usleep(1'000);
  EXPECT_EQ(phone.get(label), "'late'");
}

TEST(RequestHandler, RulesWithoutEndAreAnErrorOfTheRequest) {
  TestPhone phone("", R"([{"on": "time", "screen": "start", "after": 0, "when": {"on": "1"}, "do": [{"show": "start"}]},
                          {"on": "time", "after": 500, "do": [{"set": {"on": "1"}}, {"show": "start"}]}])");
  EXPECT_EQ(phone.get("session/orientation"), "'PORTRAIT'");
  phone.clock().usleep(500'000);
  const Reply reply = phone.reply("GET", "session/orientation");
  EXPECT_EQ(reply.status, 500);
  EXPECT_EQ(
      reply.body,
      R"({"sessionId":"S","value":{"error":"unknown error","message":"the rules of \"com.example.test\" set each )"
      R"(other off without end","stacktrace":"","traceback":""}})");
}

TEST(RequestHandler, TakesNoBodyForAnEmptyOne) {
  TestPhone phone;
  EXPECT_EQ(phone.ask("POST", "session/timeouts"), "null");
}

}  // namespace
}  // namespace quobrak::phoneserver
