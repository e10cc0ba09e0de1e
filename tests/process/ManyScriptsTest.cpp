#include <gmock/gmock.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

constexpr int SCRIPTS = 200;
constexpr int ITERATIONS = 3;

/// One of many scripts: every third measures nothing, every third one step, the others two; every fifth fails at its
/// end.
struct Script {
  int number;

  std::string name() const { return "script" + std::to_string(number); }
  std::string suite() const { return "Suite" + std::to_string(number % 4); }
  bool fails() const { return number % 5 == 0; }

  std::vector<std::string> steps() const {
    std::vector<std::string> names;
    for (int step = 1; step <= number % 3; ++step) {
      names.push_back(name() + "-" + std::to_string(step));
    }
    return names;
  }

  /// How long each step takes, in milliseconds.
  int duration() const { return 10 * number; }

  std::vector<std::string> lines() const {
    std::vector<std::string> lines{"applicationStart,com.example.test"};
    for (const std::string& step : steps()) {
      lines.insert(lines.end(), {"measureStart," + step, "pause," + std::to_string(duration()), "measureStop"});
    }
    if (fails()) {
      lines.emplace_back("clickByText,Nobody");
    }
    return lines;
  }

  std::string text() const {
    std::string text;
    for (const std::string& line : lines()) {
      text += line + "\n";
    }
    return text;
  }

  std::pair<std::string, std::string> status() const {
    if (!fails()) {
      return {"success", ""};
    }
    return {"failed", "Error on line clickByText,Nobody (line: " + std::to_string(lines().size()) +
                          "). Cause: The expected text Nobody was not found"};
  }

  /// The files that the script leaves in an iteration, but for its measures.
  std::vector<std::string> files(int iteration) const {
    const std::string folder = "tests-results/" + suite() + "/" + name() + "/iteration" + std::to_string(iteration);
    std::vector<std::string> pictures;
    for (const std::string& step : steps()) {
      pictures.insert(pictures.end(), {step + "_start", step + "_stop"});
    }
    pictures.push_back(status().first);
    std::vector<std::string> files{folder + "/dump/dump.txt"};
    for (std::size_t i = 0; i < pictures.size(); ++i) {
      files.push_back(folder + "/screenshots/00" + std::to_string(i + 1) + "_" + pictures[i] + ".png");
    }
    return files;
  }
};

std::vector<Script> allScripts() {
  std::vector<Script> scripts;
  for (int number = 1; number <= SCRIPTS; ++number) {
    scripts.push_back({number});
  }
  return scripts;
}

/// A screen whose elements, dump and picture are tens of kilobytes each: what a run would keep of one of them by
/// mistake is seen.
std::string longPage() {
  constexpr int ROWS = 200;
  std::string rows;
  for (int row = 0; row < ROWS; ++row) {
    rows += R"(<XCUIElementTypeStaticText label="Row )" + std::to_string(row) + R"(" x="0" y=")" + std::to_string(row) +
            R"(" width="100" height="1"/>)";
  }
  return R"(<XCUIElementTypeApplication label="Test" x="0" y="0" width="100" height="200">)" + rows +
         "</XCUIElementTypeApplication>";
}

/// Names and durations of the steps, in their order.
using Steps = std::vector<std::pair<std::string, std::int64_t>>;

class ManyScripts : public ProcessTest {
 protected:
  ManyScripts() {
    phone.write("test/start.xml", longPage());
    // A sanitizer keeps what is freed, to catch whoever uses it still.
    start.environment["ASAN_OPTIONS"] = "quarantine_size_mb=0:thread_local_quarantine_size_kb=0";
  }

  /// Those with numbers up to `last` that are not there yet.
  void addScriptsTo(int last) {
    for (int number = added_ + 1; number <= last; ++number) {
      const Script script{number};
      addScript(script.suite(), "scripts/" + script.name() + ".txt", script.text());
    }
    added_ = last;
  }

  /// Runs, and gives the peak of the memory in bytes.
  long peakOfRun() const {
    ProcessStart launcher = start;
    launcher.executable = QUOBRAK_PEAK_MEMORY;
    launcher.arguments = {QUOBRAK_UI_TESTS};
    const ProcessEnd end = runExecutable(launcher);
    EXPECT_EQ(end.exitStatus, 0);
    EXPECT_EQ(end.err, "");
    return std::stol(end.out);
  }

  Steps measuredSteps() const {
    Steps steps;
    for (const std::string& measure : measures()) {
      const JSONValue json = JSONDecoder::decode(measure);
      steps.emplace_back(JSONReader(json).member("test").text(), JSONReader(json).member("testTime").integer());
    }
    return steps;
  }

 private:
  int added_ = 0;
};

std::string expectedStatuses() {
  std::vector<std::pair<std::string, std::string>> statuses;
  for (const Script& script : allScripts()) {
    statuses.push_back(script.status());
  }
  return statusFile(statuses);
}

Steps expectedSteps() {
  Steps steps;
  for (const Script& script : allScripts()) {
    for (const std::string& step : script.steps()) {
      steps.emplace_back(step, script.duration());
    }
  }
  return steps;
}

/// All files after so many iterations, in the order of their names.
std::set<std::string> expectedFiles(int iterations) {
  std::set<std::string> files{"testsStatus.json"};
  for (const Script& script : allScripts()) {
    for (const std::string& step : script.steps()) {
      files.insert("measures/fernwick--" + step + "-TIME.json");
    }
    for (int iteration = 1; iteration <= iterations; ++iteration) {
      const std::vector<std::string> added = script.files(iteration);
      files.insert(added.begin(), added.end());
    }
  }
  return files;
}

}  // namespace

TEST_F(ManyScripts, LeaveAllTheirFilesInEachIteration) {
  addScriptsTo(SCRIPTS);
  for (int iteration = 1; iteration <= ITERATIONS; ++iteration) {
    start.environment["iteration"] = std::to_string(iteration);
    runsThrough();
    EXPECT_EQ(document("testsStatus.json"), expectedStatuses());
    EXPECT_EQ(measuredSteps(), expectedSteps());
    const std::vector<std::string> files = results();
    EXPECT_THAT(files, ::testing::UnorderedElementsAreArray(expectedFiles(iteration)));
  }
}

TEST_F(ManyScripts, TakeNoMoreMemoryThanTheirResults) {
  constexpr int FEW = 20;
  // For each script there are its text, its status and its measures, and the variables that name it: under 2000 bytes,
  // and a sanitizer doubles that. The rest is for what an allocator does not give back at once.
  constexpr long MOST_FOR_EACH_SCRIPT = 8000;
  addScriptsTo(FEW);
  const long few = peakOfRun();
  addScriptsTo(SCRIPTS);
  const long many = peakOfRun();
  EXPECT_LT(many - few, (SCRIPTS - FEW) * MOST_FOR_EACH_SCRIPT) << few << " and " << many << " bytes";
}

}  // namespace quobrak::testing
