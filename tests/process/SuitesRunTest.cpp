#include <gmock/gmock.h>

#include <chrono>
#include <regex>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* START = "applicationStart,com.example.test\n";
constexpr const char* PNG_SIGNATURE = "\x89PNG\r\n\x1a\n";

class SuitesRun : public ProcessTest {};

std::string measureFile(const std::string& step, std::int64_t start, std::int64_t stop) {
  return R"({"measures":[[{"time":)" + std::to_string(start) + R"(,"values":{"AH_PL":0}},{"time":)" +
         std::to_string(stop) + R"(,"values":{"AH_PL":0}}],[]],"test":")" + step + R"(","testTime":)" +
         std::to_string(stop - start) + "}";
}

std::int64_t timeOfTick(const JSONValue& measure, std::size_t tick) {
  return JSONReader(measure).member("measures").elements().at(0).elements().at(tick).member("time").integer();
}

}  // namespace

TEST_F(SuitesRun, LeavesTheFilesOfEachScriptAndOfTheRun) {
  addScript("Suite 1", "scripts/login.ios.txt", std::string(START) + "measureStart,Wait\npause,1500\nmeasureStop");
  addScript("Suite2", "/Documents/scripts/second", std::nullopt);
  folder.write("Documents/scripts/second", "pause,10\n\n# a comment\n  pause  ");

  const ProcessEnd end = run();

  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.out, testCaseLines("passed", "2.018"));
  EXPECT_EQ(end.err, "");
  EXPECT_THAT(
      results(),
      ElementsAre("measures/fernwick--Wait-TIME.json", "tests-results/Suite 1/login.ios/iteration1/dump/dump.txt",
                  "tests-results/Suite 1/login.ios/iteration1/screenshots/001_Wait_start.png",
                  "tests-results/Suite 1/login.ios/iteration1/screenshots/002_Wait_stop.png",
                  "tests-results/Suite 1/login.ios/iteration1/screenshots/003_success.png",
                  "tests-results/Suite2/second/iteration1/dump/dump.txt",
                  "tests-results/Suite2/second/iteration1/screenshots/001_failed.png", "testsStatus.json"));
  EXPECT_EQ(
      document("testsStatus.json"),
      statusFile({{"success", ""}, {"failed", "Error on line pause (line: 4). Cause: The pause duration is missing"}}));
  for (const std::string& path : results()) {
    if (path.ends_with(".png")) {
      EXPECT_THAT(document(path), StartsWith(PNG_SIGNATURE)) << path;
    } else if (path.ends_with(".txt")) {
      EXPECT_THAT(document(path), StartsWith("Attributes: Application")) << path;
    }
  }
}

TEST_F(SuitesRun, WritesAMeasureWithTheTimesOfItsStep) {
  addScript("S", "scripts/a.txt", std::string(START) + "measureStart,Wait\npause,1500\nmeasureStop");
  runsThrough();

  const std::vector<std::string> written = measures();
  ASSERT_EQ(written.size(), 1U);
  const JSONValue measure = JSONDecoder::decode(written[0]);
  const std::int64_t first = timeOfTick(measure, 0);
  EXPECT_EQ(written[0], measureFile("Wait", first, first + 1500));

  std::smatch match;
  for (const auto& [path, content] : snapshot(documents() / "measures")) {
    ASSERT_TRUE(std::regex_match(path, match, std::regex(R"(fernwick--Wait-(\d+)\.json)"))) << path;
    // Written after two pictures and a dump, each of which takes a millisecond.
    EXPECT_EQ(std::stoll(match[1]), first + 1500 + 3);
  }
}

TEST_F(SuitesRun, TakesTimesFromTheMachineUnlessTimeIsVirtual) {
  using std::chrono::system_clock;
  const auto milliseconds = [] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(system_clock::now().time_since_epoch()).count();
  };
  start.environment.erase("QUOBRAK_CLOCK");
  addScript("S", "scripts/a.txt", "measureStart,Step\nmeasureStop");
  const std::int64_t before = milliseconds();
  runsThrough();
  const std::int64_t after = milliseconds();

  ASSERT_EQ(measures().size(), 1U);
  const JSONValue measure = JSONDecoder::decode(measures()[0]);
  EXPECT_LE(before, timeOfTick(measure, 0));
  EXPECT_LE(timeOfTick(measure, 0), timeOfTick(measure, 1));
  EXPECT_LE(timeOfTick(measure, 1), after);
}

TEST_F(SuitesRun, KeepsBothFilesOfTwoMeasuresOfOneName) {
  addScript("S", "scripts/a.txt",
            "measureStart,Same\nmeasureStop\nmeasureStart,Same\npause,7\nmeasureStop\nmeasureStart,Other\nmeasureStop");
  runsThrough();

  std::vector<std::string> steps;
  for (const std::string& measure : measures()) {
    const JSONValue json = JSONDecoder::decode(measure);
    steps.push_back(JSONReader(json).member("test").text() + " " +
                    std::to_string(JSONReader(json).member("testTime").integer()));
  }
  EXPECT_THAT(steps, ElementsAre("Same 0", "Same 7", "Other 0"));
}

TEST_F(SuitesRun, UsesTheFolderDocumentsInTheWorkingDirectoryAndMakesIt) {
  std::filesystem::remove(documents());
  start.environment["class"] = "dslTestReference";
  runsThrough();
  EXPECT_THAT(document("testsStatus.json"), StartsWith("[{"));
}

TEST_F(SuitesRun, UsesTheFolderThatIsNamedAsDocuments) {
  std::filesystem::remove(documents());
  folder.write("deep/documents of a run/scripts/a.txt", "pause,1");
  start.environment["QUOBRAK_DOCUMENTS"] = "deep/documents of a run/";
  addScript("S", "/scripts/a.txt", std::nullopt);
  runsThrough();
  EXPECT_EQ(folder.read("deep/documents of a run/testsStatus.json"), statusFile({{"success", NOT_INITIALISED}}));
  EXPECT_FALSE(std::filesystem::exists(documents()));
}

TEST_F(SuitesRun, StopsAScriptBeforeItsFirstLineWhenAVariableIsMissingInTheFifth) {
  addScript("S", "scripts/a.txt",
            std::string(START) + "measureStart,Step\nmeasureStop\n# ${COMMENT}\n\tpause,${LENGTH} \n");
  const std::string trace = (folder.path() / "trace").string();
  start.environment["QUOBRAK_TRACE"] = trace;
  addScript("S", "scripts/b.txt", START);
  runsThrough();

  EXPECT_EQ(document("testsStatus.json"), statusFile({{"failed", NOT_INITIALISED}, {"success", ""}}));
  EXPECT_THAT(measures(), IsEmpty());
  const std::vector<JSONValue> lines = eventsOf(traceEvents(folder.read("trace")), "lineStarted");
  ASSERT_EQ(lines.size(), 1U) << "only the second script runs";
  EXPECT_EQ(JSONReader(lines[0]).member("number").integer(), 1);
}

TEST_F(SuitesRun, ReportsAMissingVariableWithTheLineAsItIsWritten) {
  addScript("S", "scripts/a.txt", START);
  addScript("S", "scripts/b.txt", "pause,1\n\n\n\n  pause,${LENGTH} ");
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"success", ""},
                        {"failed",
                         "Error on line   pause,${LENGTH}  (line: 5). Cause: You need to pass the extra parameter "
                         "LENGTH to your test"}}));
}

TEST_F(SuitesRun, TakesVariablesFromTheEnvironment) {
  start.environment["LENGTH"] = "25";
  start.environment["COMMAND"] = "pause,${LENGTH}";
  addScript("S", "scripts/a.txt", std::string(START) + "${COMMAND}0\n${LENGTH}${LENGTH}");
  const ProcessEnd end = run();
  EXPECT_EQ(end.out, testCaseLines("passed", "0.753"));
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"failed", "Error on line 2525 (line: 3). Cause: Function 2525 is not implemented"}}));
}

TEST_F(SuitesRun, GoesOnWithTheSecondScriptAfterTheFirstFailed) {
  addScript("S", "scripts/a.txt", std::string(START) + "nonsense,1\nmeasureStart,Never\nmeasureStop");
  addScript("S", "scripts/b.txt", "measureStart,Step\nmeasureStop");
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"failed", "Error on line nonsense,1 (line: 2). Cause: Function nonsense is not implemented"},
                        {"success", ""}}));
  EXPECT_THAT(results(), ElementsAre("measures/fernwick--Step-TIME.json", "tests-results/S/a/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/screenshots/001_failed.png",
                                     "tests-results/S/b/iteration1/dump/dump.txt",
                                     "tests-results/S/b/iteration1/screenshots/001_Step_start.png",
                                     "tests-results/S/b/iteration1/screenshots/002_Step_stop.png",
                                     "tests-results/S/b/iteration1/screenshots/003_success.png", "testsStatus.json"));
}

TEST_F(SuitesRun, TellsOnlyThatAnUnknownErrorOccurredWhenThePhoneRaised) {
  addScript("S", "scripts/a.txt", std::string(START) + "applicationStart,com.example.absent");
  start.environment["QUOBRAK_TRACE"] = (folder.path() / "trace").string();
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"failed", "An unknown error occured while executing actions"}}));
  const std::vector<JSONValue> lines = eventsOf(traceEvents(folder.read("trace")), "lineFinished");
  ASSERT_EQ(lines.size(), 2U);
  const JSONReader error = JSONReader(lines[1]).member("error");
  EXPECT_EQ(error.member("kind").text(), "UIAutomationError");
  EXPECT_THAT(error.member("message").text(), HasSubstr("com.example.absent"));
}

TEST_F(SuitesRun, ReplacesTheReasonOfAFailureWhenNoApplicationWasStarted) {
  addScript("S", "scripts/a.txt", "\nnonsense");
  start.environment["QUOBRAK_TRACE"] = (folder.path() / "trace").string();
  runsThrough();

  EXPECT_EQ(document("testsStatus.json"), statusFile({{"failed", NOT_INITIALISED}}));
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration1/screenshots/001_failed.png", "testsStatus.json"));
  const std::vector<JSONValue> lines = eventsOf(traceEvents(folder.read("trace")), "lineFinished");
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(JSONReader(lines[0]).member("number").integer(), 2);
  EXPECT_EQ(JSONReader(lines[0]).member("error").member("message").text(), "Function nonsense is not implemented");
}

class SuitesRunWithEarlierResults : public SuitesRun {
 protected:
  SuitesRunWithEarlierResults() {
    folder.write("Documents/measures/fernwick--Old-1700000000000.json", "{}");
    folder.write("Documents/tests-results/S/a/iteration1/dump/dump.txt", "old");
    folder.write("Documents/tests-results/Old/b/iteration1/dump/dump.txt", "old");
    folder.write("Documents/testsStatus.json", "old");
    folder.write("Documents/other.txt", "the host's");
    addScript("S", "scripts/a.txt", START);
  }
};

TEST_F(SuitesRunWithEarlierResults, TheFirstIterationClearsAllOfThem) {
  runsThrough();
  EXPECT_THAT(results(), ElementsAre("other.txt", "tests-results/S/a/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_THAT(document("tests-results/S/a/iteration1/dump/dump.txt"), StartsWith("Attributes: Application"));
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
}

TEST_F(SuitesRunWithEarlierResults, ALaterIterationClearsTheMeasuresAlone) {
  start.environment["iteration"] = "2";
  runsThrough();
  EXPECT_THAT(results(),
              ElementsAre("other.txt", "tests-results/Old/b/iteration1/dump/dump.txt",
                          "tests-results/S/a/iteration1/dump/dump.txt", "tests-results/S/a/iteration2/dump/dump.txt",
                          "tests-results/S/a/iteration2/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_EQ(document("tests-results/S/a/iteration1/dump/dump.txt"), "old");
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
}

TEST_F(SuitesRunWithEarlierResults, ARunThatCannotBeginLeavesThem) {
  addScript("S", "scripts/missing.txt", std::nullopt);
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("The file scripts/missing.txt is missing in the document directory"));
  EXPECT_THAT(results(), ElementsAre("measures/fernwick--Old-TIME.json", "other.txt",
                                     "tests-results/Old/b/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/dump/dump.txt", "testsStatus.json"));
  EXPECT_EQ(document("testsStatus.json"), "old");
}

TEST_F(SuitesRun, KeepsEachMeasureOfOneNameOnAnyClock) {
  addScript("S", "scripts/a.txt",
            std::string(START) + "measureStart,Step\nmeasureStop\nmeasureStop\nmeasureStop\nmeasureStop\nmeasureStop");
  for (const std::string clock : {"virtual", "system"}) {
    start.environment["QUOBRAK_CLOCK"] = clock;
    runsThrough();
    EXPECT_EQ(measures().size(), 5U) << clock;
  }
}

TEST_F(SuitesRun, WritesTheSameFilesOnTheBuiltinPhone) {
  start.environment.erase("QUOBRAK_PHONE");
  addScript("S", "scripts/a.txt", "applicationStart,com.example.shop");
  runsThrough();
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_THAT(document("tests-results/S/a/iteration1/dump/dump.txt"), HasSubstr("label: 'Shop'"));
  EXPECT_THAT(document("tests-results/S/a/iteration1/screenshots/001_success.png"), StartsWith(PNG_SIGNATURE));
}

TEST_F(SuitesRun, RefusesWrongVariablesOfTheRun) {
  struct Case {
    std::string name;
    std::optional<std::string> value;
    std::string message;
  };
  addScript("S", "scripts/a.txt", "pause,1");
  const ProcessStart right = start;
  for (const Case& wrong : {Case{"iteration", std::nullopt, "The iteration is not set"},
                            Case{"iteration", "one", "The iteration should be an integer"},
                            Case{"testFileNumber", std::nullopt, "The test suite number is not set"},
                            Case{"testFileNumber", "two", "The test suite number two should be an integer"}}) {
    start = right;
    start.environment.erase(wrong.name);
    if (wrong.value) {
      start.environment[wrong.name] = *wrong.value;
    }
    const ProcessEnd end = run();
    EXPECT_EQ(end.exitStatus, 1) << wrong.message;
    EXPECT_EQ(end.err, caughtError(wrong.message));
    EXPECT_EQ(end.out, testCaseLines("failed", "0.000"));
    EXPECT_THAT(results(), IsEmpty());
  }
}

}  // namespace quobrak::testing
