#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

namespace quobrak {
namespace {

/// What follow-trace.jq makes of a trace.
std::string followed(std::string_view trace) {
  const testing::TemporaryFolder folder;
  folder.write("trace", trace);
  const std::string command =
      "TZ=UTC jq -r -f '" QUOBRAK_SOURCE_FOLDER "/runner/follow-trace.jq' '" + (folder.path() / "trace").string() + "'";
  std::FILE* const output = ::popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), output)) {
    text.append(buffer.data(), count);
  }
  EXPECT_EQ(::pclose(output), 0) << command;
  return text;
}

TEST(FollowTrace, ShowsAScriptAndItsLinesBeforeAndAfterTheyRun) {
  EXPECT_EQ(followed(R"({"event":"scriptStarted","number":1,"total":2,"iterationPath":"tests-results/S/a/iteration1"}
{"event":"lineStarted","number":4,"text":"measureStop","time":1700000000123}
{"event":"step","name":"Home","duration":1500}
{"event":"lineFinished","number":4,"text":"measureStop","duration":1.4,"time":1700000000124}
{"event":"scriptFinished","status":"success","stackTrace":""}
)"),
            "Script 1 of 2, results in tests-results/S/a/iteration1\n"
            "  22:13:20  line 4: measureStop\n"
            "            measured step Home: 1.5 s\n"
            "            done in 1 ms\n"
            "Script: success\n");
}

TEST(FollowTrace, ShowsALongPauseWithItsLengthAndItsEnd) {
  EXPECT_EQ(followed(R"({"event":"lineStarted","number":1,"text":"pause,+90000,x","time":1700000000000}
{"event":"lineStarted","number":2,"text":"pause,4999","time":1700000000000}
{"event":"lineStarted","number":3,"text":"pause,x","time":1700000000000}
)"),
            "  22:13:20  line 1: pause,+90000,x   … 1 min 30 s, until 22:14:50\n"
            "  22:13:20  line 2: pause,4999\n"
            "  22:13:20  line 3: pause,x\n");
}

TEST(FollowTrace, ShowsTheReasonsOfAFailure) {
  EXPECT_EQ(followed(R"({"event":"lineFinished","number":1,"text":"x","duration":2000,"error":{"message":"Cause"}}
{"event":"scriptError","error":{"message":"Report"}}
{"event":"pictureOrDumpError","error":{"message":"No application"}}
{"event":"scriptFinished","status":"failed","stackTrace":"No application"}
)"),
            "            failed after 2 s\n"
            "  Report\n"
            "  The picture or the dump at the end failed: No application\n"
            "Script: failed\n");
}

TEST(FollowTrace, OfTheDriverShowsOnlyTheAlertsThatWereAnswered) {
  EXPECT_EQ(
      followed(
          R"({"event":"driver","operation":"tap","target":"the Button, keyed \"OK\" of the system alert \"A “B” C?\""}
{"event":"driver","operation":"tap","target":"the element (at index 0) of the descendants"}
{"event":"driver","operation":"screenshot"}
)"),
      "            answered the alert A “B” C? with OK\n");
}

}  // namespace
}  // namespace quobrak
