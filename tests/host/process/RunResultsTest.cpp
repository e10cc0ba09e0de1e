#include <gmock/gmock.h>

#include <algorithm>
#include <regex>

#include "tests/host/process/HostRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* MEASURING = "applicationStart,com.example.test\nmeasureStart,Step\npause,40\nmeasureStop";

/// The paths, with the time in the names of measure files as "TIME".
std::vector<std::string> withoutTimes(std::vector<std::string> paths) {
  static const std::regex TIME(R"(-\d{13}\.json$)");
  std::transform(paths.begin(), paths.end(), paths.begin(),
                 [](const std::string& path) { return std::regex_replace(path, TIME, "-TIME.json"); });
  return paths;
}

std::vector<std::string> namesIn(const fs::path& path) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class RunResults : public HostRun {};

}  // namespace

TEST_F(RunResults, LieInAFolderForEachIteration) {
  folder.write("Shop/order.txt", MEASURING);
  const ProcessEnd end = run({"Shop/order.txt", "--warmup", "1"});
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.out + end.err, "");
  const std::vector<std::string> made{"dump/dump.txt", "screenshots/001_Step_start.png",
                                      "screenshots/002_Step_stop.png", "screenshots/003_success.png"};
  std::vector<std::string> expected{"Shop/order.txt", "out/.quobrak-results", "out/junit.xml", "out/results.json"};
  for (const auto& [iteration, number] : {std::pair{"iterations/001/", "1"}, std::pair{"warmups/001/", "0"}}) {
    const std::string documents = std::string("out/") + iteration;
    for (const char* file : {"measures/fernwick--Step-TIME.json", "output.txt", "scripts/001/order.txt",
                             "testsStatus.json", "trace.jsonl"}) {
      expected.push_back(documents + file);
    }
    for (const std::string& file : made) {
      expected.push_back(documents + "tests-results/Shop/order/iteration" + number + "/" + file);
    }
  }
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(withoutTimes(folder.files()), expected);
}

TEST_F(RunResults, OfThirtyIterationsOnVirtualTimeAreThirtyTimesTheSame) {
  folder.write("Shop/order.txt", MEASURING);
  const ProcessEnd end = run({"Shop", "--iterations", "30"});
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "");
  std::vector<std::string> numbers;
  for (int i = 1; i <= 30; ++i) {
    numbers.push_back((i < 10 ? "00" : "0") + std::to_string(i));
  }
  EXPECT_EQ(namesIn(folder.path() / "out/iterations"), numbers);
  const JSONValue document = results();
  std::vector<std::int64_t> durations;
  for (const JSONReader& iteration : JSONReader(document).member("iterations").elements()) {
    const JSONReader step = iteration.member("scripts").elements().at(0).member("steps").elements().at(0);
    durations.push_back(step.member("duration").integer());
  }
  EXPECT_EQ(durations, std::vector<std::int64_t>(30, 40));
}

TEST_F(RunResults, OfScriptsOfOneNameAreKeptApart) {
  folder.write("a/Shop/order.txt", "applicationStart,com.example.test\nmeasureStart,Step\npause,1\nmeasureStop");
  folder.write("b/Shop/order.txt", "measureStart,Step\npause,2\nmeasureStop");
  const ProcessEnd end = run({"a", "b"});
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_THAT(namesIn(folder.path() / "out/iterations/001/tests-results/Shop"), ElementsAre("order", "order-2"));
  const JSONValue document = results();
  EXPECT_THAT(textsOf(JSONReader(document).member("scripts"), "name"), ElementsAre("order", "order-2"));
  EXPECT_THAT(textsOf(JSONReader(document).member("scripts"), "source"),
              ElementsAre("a/Shop/order.txt", "b/Shop/order.txt"));
  const std::vector<JSONReader> scripts =
      JSONReader(document).member("iterations").elements().at(0).member("scripts").elements();
  EXPECT_EQ(scripts.at(0).member("steps").elements().at(0).member("duration").integer(), 1);
  EXPECT_EQ(scripts.at(1).member("steps").elements().at(0).member("duration").integer(), 2);
}

TEST_F(RunResults, AreToldTogetherWithTheNamesThatWereGiven) {
  folder.write("a/Shop/order.txt", "applicationStart,com.example.test");
  folder.write("b/Shop/order.txt", "pause,1");
  start.arguments = {"run", "--clock", "virtual", "--phone", phone.path().string(), "--out", "out", "a", "b"};
  const ProcessEnd end = runExecutable(start);
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_THAT(end.out, HasSubstr("The suite Shop has a script order already: the results of b/Shop/order.txt are "
                                 "those of order-2\n"));
}

TEST_F(RunResults, OfAScriptThatIsCalledAsTheDocumentsDirectory) {
  folder.write("Shop/Documents.txt", MEASURING);
  folder.write("Shop/DocumentsAndMore.txt", "pause,1");
  const ProcessEnd end = run({"Shop"});
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "");
  EXPECT_THAT(namesIn(folder.path() / "out/iterations/001/tests-results/Shop"),
              ElementsAre("Documents", "DocumentsAndMore"));
}

TEST_F(RunResults, OfAScriptWhoseNameIsNoUTF8) {
  folder.write("Shop/caf\xE9.txt", MEASURING);
  EXPECT_EQ(run({"Shop"}).exitStatus, 0);
  EXPECT_THAT(namesIn(folder.path() / "out/iterations/001/tests-results/Shop"), ElementsAre("caf\xEF\xBF\xBD"));
}

TEST_F(RunResults, ComeInTheSameOrdersForTheSameSeed) {
  for (const char* name : {"a", "b", "c", "d"}) {
    folder.write("S/" + std::string(name) + ".txt", "applicationStart,com.example.test");
  }
  EXPECT_EQ(run({"S", "--shuffle", "7", "--iterations", "3", "--warmup", "1"}).exitStatus, 0);
  const JSONValue document = results();
  std::vector<std::vector<std::int64_t>> orders;
  for (const JSONReader& iteration : JSONReader(document).member("iterations").elements()) {
    std::vector<std::int64_t>& order = orders.emplace_back();
    for (const JSONReader& script : iteration.member("scripts").elements()) {
      order.push_back(script.member("script").integer());
    }
  }
  EXPECT_THAT(orders, ElementsAre(ElementsAre(1, 2, 0, 3), ElementsAre(1, 2, 0, 3), ElementsAre(3, 0, 1, 2),
                                  ElementsAre(0, 2, 3, 1)));
}

TEST_F(RunResults, OfACommand) {
  EXPECT_EQ(run({"--command", "pause,100"}).exitStatus, 0);
  const JSONValue document = results();
  EXPECT_EQ(JSONReader(document).member("kind").text(), "command");
  EXPECT_THAT(textsOf(JSONReader(document).member("scripts"), "name"), ElementsAre("pause,100"));
  const JSONReader script =
      JSONReader(document).member("iterations").elements().at(0).member("scripts").elements().at(0);
  EXPECT_EQ(script.member("outcome").text(), "passed");
}

TEST_F(RunResults, OfACommandThatFails) {
  const ProcessEnd end = run({"--command", "clickByText,Nowhere"});
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err,
            "Iteration 1 of 1: clickByText,Nowhere failed: The application is not "
            "initialised. Please use applicationStart or launchBrowser at the beginning of your script.\n"
            "Results: out\n");
}

TEST_F(RunResults, OfTheReferenceScript) {
  start.arguments = {"run", "--reference", "--quiet", "--clock", "virtual", "--out", "out"};
  EXPECT_EQ(runExecutable(start).exitStatus, 0);
  const JSONValue document = results();
  EXPECT_EQ(JSONReader(document).member("kind").text(), "reference");
  const JSONReader script =
      JSONReader(document).member("iterations").elements().at(0).member("scripts").elements().at(0);
  EXPECT_THAT(textsOf(script.member("steps"), "name"), ElementsAre("HomeReference", "SafariReference"));
  EXPECT_TRUE(fs::exists(folder.path() / "out/iterations/001/tests-results/TestReference/LaunchTest/iteration1"));
}

TEST_F(RunResults, AreNoScriptsOfTheNextRun) {
  folder.write("Shop/order.txt", MEASURING);
  start.arguments = {"run", "--quiet", "--clock", "virtual", "--phone", phone.path().string(), "."};
  EXPECT_EQ(runExecutable(start).exitStatus, 0);
  EXPECT_EQ(runExecutable(start).exitStatus, 0);
  start.arguments = {"check", "."};
  EXPECT_EQ(runExecutable(start).out, "1 script, 0 errors, 0 warnings\n");
}

TEST_F(RunResults, LieInAFolderWithTheTimeUnlessTold) {
  folder.write("Shop/order.txt", MEASURING);
  start.arguments = {"run", "--quiet", "--clock", "virtual", "--phone", phone.path().string(), "Shop"};
  EXPECT_EQ(runExecutable(start).exitStatus, 0);
  const std::vector<std::string> names = namesIn(folder.path() / "quobrak-results");
  ASSERT_EQ(names.size(), 1U);
  EXPECT_TRUE(std::regex_match(names.front(), std::regex(R"(\d{4}-\d\d-\d\d-\d{6})"))) << names.front();
}

}  // namespace quobrak::testing
