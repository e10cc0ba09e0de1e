#include "host/run/TraceFollower.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

class ATraceFollower : public ::testing::Test {
 protected:
  void append(const std::string& text) const { std::ofstream(file(), std::ios::app) << text; }
  std::filesystem::path file() const { return folder.path() / "trace.jsonl"; }

  const TemporaryFolder folder;
};

JSONValue event(int number) {
  return JSONValue::Object{{"n", number}};
}

TEST_F(ATraceFollower, WaitsForTheFile) {
  TraceFollower follower(file());
  EXPECT_THAT(follower.read(), IsEmpty());
  append("{\"n\":1}\n");
  EXPECT_THAT(follower.read(), ElementsAre(event(1)));
}

TEST_F(ATraceFollower, ReadsWhatIsNew) {
  TraceFollower follower(file());
  append("{\"n\":1}\n{\"n\":2}\n");
  EXPECT_THAT(follower.read(), ElementsAre(event(1), event(2)));
  EXPECT_THAT(follower.read(), IsEmpty());
  append("{\"n\":3}\n");
  EXPECT_THAT(follower.read(), ElementsAre(event(3)));
}

TEST_F(ATraceFollower, WaitsForTheRestOfALine) {
  TraceFollower follower(file());
  append("{\"n\":1}\n{\"n\"");
  EXPECT_THAT(follower.read(), ElementsAre(event(1)));
  append(":2}");
  EXPECT_THAT(follower.read(), IsEmpty());
  append("\n");
  EXPECT_THAT(follower.read(), ElementsAre(event(2)));
}

TEST_F(ATraceFollower, PassesOverWhatIsNoJSON) {
  TraceFollower follower(file());
  append("{\"n\":1}\nnonsense\n\n{\"n\":2}\n");
  EXPECT_THAT(follower.read(), ElementsAre(event(1), event(2)));
  EXPECT_EQ(follower.unreadableLines(), 2U);
}

TEST_F(ATraceFollower, ReadsMoreThanABlock) {
  TraceFollower follower(file());
  const std::string text(100'000, 'x');
  append("\"" + text + "\"\n{\"n\":2}\n");
  EXPECT_THAT(follower.read(), ElementsAre(JSONValue(text), event(2)));
}

}  // namespace
}  // namespace quobrak::host
