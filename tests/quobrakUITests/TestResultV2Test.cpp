#include "quobrakUITests/TestResultV2.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak {
namespace {

using ::testing::ThrowsMessage;

TestResultV2 decoded(std::string_view text) {
  const JSONValue document = JSONDecoder::decode(text);
  return TestResultV2::decode(JSONReader(document));
}

MeasureTick tickAt(std::int64_t time) {
  return {.time = time, .values = {{"AH_PL", 0}}};
}

TEST(TestResultV2, JSONOfAFinishedStep) {
  const TestResultV2 result{
      .test = "HomeReference", .testTime = 4250, .measures = {{tickAt(1700000000000), tickAt(1700000004250)}, {}}};
  EXPECT_EQ(JSONEncoder::encode(result.encode()),
            R"({"measures":[[{"time":1700000000000,"values":{"AH_PL":0}},)"
            R"({"time":1700000004250,"values":{"AH_PL":0}}],[]],"test":"HomeReference","testTime":4250})");
}

TEST(TestResultV2, JSONOfAStepThatWasNeverStopped) {
  const TestResultV2 result{.test = "a/b", .testTime = 0, .measures = {{tickAt(7)}, {}}};
  EXPECT_EQ(JSONEncoder::encode(result.encode()),
            R"({"measures":[[{"time":7,"values":{"AH_PL":0}}],[]],"test":"a\/b","testTime":0})");
}

TEST(TestResultV2, ComesBackFromItsJSON) {
  for (const TestResultV2& result :
       {TestResultV2{.test = "Größe \"1\"", .testTime = -3, .measures = {{tickAt(1), tickAt(-2)}, {}, {tickAt(3)}}},
        TestResultV2{.test = "", .testTime = 0, .measures = {}}}) {
    EXPECT_EQ(decoded(JSONEncoder::encode(result.encode())), result);
  }
}

TEST(TestResultV2, FaultyJSON) {
  struct Row {
    std::string_view json;
    std::string message;
  };
  const Row ROWS[] = {
      {R"({"testTime":0,"measures":[]})", "test: missing"},
      {R"({"test":"","measures":[]})", "testTime: missing"},
      {R"({"test":"","testTime":0})", "measures: missing"},
      {R"({"test":1,"testTime":0,"measures":[]})", "test: expected a text, found a number"},
      {R"({"test":"","testTime":"0","measures":[]})", "testTime: expected a whole number, found a text"},
      {R"({"test":"","testTime":0,"measures":{}})", "measures: expected an array, found an object"},
      {R"({"test":"","testTime":0,"measures":[[],0]})", "measures[1]: expected an array, found a number"},
      {R"({"test":"","testTime":0,"measures":[[{"time":0,"values":{}},{"values":{}}]]})",
       "measures[0][1].time: missing"},
      {R"([])", "the document: expected an object, found an array"},
  };
  for (const Row& row : ROWS) {
    EXPECT_THAT([&] { decoded(row.json); }, ThrowsMessage<DecodingError>(row.message)) << row.json;
  }
}

}  // namespace
}  // namespace quobrak
