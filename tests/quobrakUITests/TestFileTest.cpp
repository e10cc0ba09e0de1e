#include "quobrakUITests/TestFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak {
namespace {

using ::testing::ThrowsMessage;

TestFile decoded(std::string_view text) {
  const JSONValue document = JSONDecoder::decode(text);
  return TestFile::decode(JSONReader(document));
}

TEST(TestFile, JSON) {
  const TestFile file{.script = "pause,1\nmeasureStop", .iterationPath = "tests-results/S/t/iteration1"};
  EXPECT_EQ(JSONEncoder::encode(file.encode()),
            R"({"iterationPath":"tests-results\/S\/t\/iteration1","script":"pause,1\nmeasureStop"})");
}

TEST(TestFile, ComesBackFromItsJSON) {
  for (const TestFile& file : {TestFile{.script = "clickByText,\"Größe\" 🙂\t", .iterationPath = "a/b"},
                               TestFile{.script = "", .iterationPath = ""}}) {
    EXPECT_EQ(decoded(JSONEncoder::encode(file.encode())), file);
  }
}

TEST(TestFile, FaultyJSON) {
  struct Row {
    std::string_view json;
    std::string message;
  };
  const Row ROWS[] = {
      {R"({"iterationPath":""})", "script: missing"},
      {R"({"script":""})", "iterationPath: missing"},
      {R"({"script":1,"iterationPath":""})", "script: expected a text, found a number"},
      {R"({"script":"","iterationPath":null})", "iterationPath: expected a text, found null"},
      {R"("script")", "the document: expected an object, found a text"},
  };
  for (const Row& row : ROWS) {
    EXPECT_THAT([&] { decoded(row.json); }, ThrowsMessage<DecodingError>(row.message)) << row.json;
  }
}

}  // namespace
}  // namespace quobrak
