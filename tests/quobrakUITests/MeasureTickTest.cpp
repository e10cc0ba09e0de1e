#include "quobrakUITests/MeasureTick.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quobrak {
namespace {

using ::testing::ThrowsMessage;

MeasureTick decoded(std::string_view text) {
  const JSONValue document = JSONDecoder::decode(text);
  return MeasureTick::decode(JSONReader(document));
}

TEST(MeasureTick, JSON) {
  const MeasureTick tick{.time = 1700000000000, .values = {{"AH_PL", 0}}};
  EXPECT_EQ(JSONEncoder::encode(tick.encode()), R"({"time":1700000000000,"values":{"AH_PL":0}})");
}

TEST(MeasureTick, NamesOfValuesAreSortedByTheirBytes) {
  const MeasureTick tick{.time = -1, .values = {{"é", 4}, {"a", 3}, {"Z", 2}, {"", 1}}};
  EXPECT_EQ(JSONEncoder::encode(tick.encode()), R"({"time":-1,"values":{"":1,"Z":2,"a":3,"é":4}})");
}

TEST(MeasureTick, ComesBackFromItsJSON) {
  constexpr std::int64_t LARGEST = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t SMALLEST = std::numeric_limits<std::int64_t>::min();
  for (const MeasureTick& tick : {MeasureTick{.time = LARGEST, .values = {{"AH_PL", 0}, {"b/c", SMALLEST}}},
                                  MeasureTick{.time = 0, .values = {}}}) {
    EXPECT_EQ(decoded(JSONEncoder::encode(tick.encode())), tick);
  }
}

TEST(MeasureTick, FaultyJSON) {
  struct Row {
    std::string_view json;
    std::string message;
  };
  const Row ROWS[] = {
      {R"({"values":{}})", "time: missing"},
      {R"({"time":1})", "values: missing"},
      {R"({"time":"1","values":{}})", "time: expected a whole number, found a text"},
      {R"({"time":1.5,"values":{}})", "time: expected a whole number, found a number"},
      {R"({"time":1,"values":[]})", "values: expected an object, found an array"},
      {R"({"time":1,"values":{"AH_PL":null}})", "values.AH_PL: expected a whole number, found null"},
      {R"([])", "the document: expected an object, found an array"},
  };
  for (const Row& row : ROWS) {
    EXPECT_THAT([&] { decoded(row.json); }, ThrowsMessage<DecodingError>(row.message)) << row.json;
  }
}

}  // namespace
}  // namespace quobrak
