#include "phoneserver/Reply.h"

#include <gtest/gtest.h>

namespace quobrak::phoneserver {
namespace {

TEST(Reply, OfACommandThatWasCarriedOutHasItsValueAndTheSession) {
  const Reply reply = success(JSONValue::Array{1, "a"}, "S");
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.body, R"({"sessionId":"S","value":[1,"a"]})");
}

TEST(Reply, WithoutASessionSaysSo) {
  EXPECT_EQ(success({}, std::nullopt).body, R"({"sessionId":null,"value":null})");
}

TEST(Reply, OfAnErrorHasItsStatusItsNameAndItsMessage) {
  const Reply reply = failure(WireError(WireErrorCode::invalidSelector, "bad"), "S");
  EXPECT_EQ(reply.status, 400);
  EXPECT_EQ(reply.body,
            R"({"sessionId":"S","value":{"error":"invalid selector","message":"bad","stacktrace":"","traceback":""}})");
}

TEST(Reply, OfAnErrorAboutIllFormedTextIsStillJson) {
  const Reply reply = failure(WireError(WireErrorCode::unknownCommand, "/\xFF"), std::nullopt);
  EXPECT_EQ(reply.body,
            "{\"sessionId\":null,\"value\":{\"error\":\"unknown command\",\"message\":\"\\/\uFFFD\","
            "\"stacktrace\":\"\",\"traceback\":\"\"}}");
}

}  // namespace
}  // namespace quobrak::phoneserver
