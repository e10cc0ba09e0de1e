#include "quobrakUITests/TestStatus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak {
namespace {

using ::testing::ThrowsMessage;

TestStatus decoded(std::string_view text) {
  const JSONValue document = JSONDecoder::decode(text);
  return TestStatus::decode(JSONReader(document));
}

TEST(TestStatus, JSON) {
  EXPECT_EQ(JSONEncoder::encode(TestStatus{.status = "success", .stackTrace = ""}.encode()),
            R"({"stackTrace":"","status":"success"})");
  EXPECT_EQ(JSONEncoder::encode(TestStatus{.status = "failed", .stackTrace = "a/b \"c\"\n"}.encode()),
            R"({"stackTrace":"a\/b \"c\"\n","status":"failed"})");
}

TEST(TestStatus, ComesBackFromItsJSON) {
  for (const TestStatus& status : {TestStatus{.status = "failed", .stackTrace = "Größe / \"🙂\""},
                                   TestStatus{.status = "", .stackTrace = ""}}) {
    EXPECT_EQ(decoded(JSONEncoder::encode(status.encode())), status);
  }
}

TEST(TestStatus, FaultyJSON) {
  struct Row {
    std::string_view json;
    std::string message;
  };
  const Row ROWS[] = {
      {R"({"stackTrace":""})", "status: missing"},
      {R"({"status":""})", "stackTrace: missing"},
      {R"({"status":true,"stackTrace":""})", "status: expected a text, found a truth value"},
      {R"({"status":"","stackTrace":{}})", "stackTrace: expected a text, found an object"},
      {R"(null)", "the document: expected an object, found null"},
  };
  for (const Row& row : ROWS) {
    EXPECT_THAT([&] { decoded(row.json); }, ThrowsMessage<DecodingError>(row.message)) << row.json;
  }
}

}  // namespace
}  // namespace quobrak
