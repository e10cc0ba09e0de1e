#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <regex>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* SCRIPT = "applicationStart,com.example.test\nmeasureStart,Step\npause,40\nmeasureStop\nnonsense";

class ConfigurationRun : public ProcessTest {
 protected:
  /// A run that is refused before it touches anything.
  void expectRefusal(const std::string& message) const {
    fs::remove_all(documents());
    const ProcessEnd end = run();
    EXPECT_EQ(end.exitStatus, 2);
    EXPECT_EQ(end.out, "");
    EXPECT_EQ(end.err, message + "\n");
    EXPECT_THAT(snapshot(folder.path()), IsEmpty());
  }
};

class Pipe {
 public:
  Pipe() { EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC), 0); }
  ~Pipe() {
    closeReader();
    closeWriter();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int reader() const { return ends_[0]; }
  int writer() const { return ends_[1]; }
  void closeReader() { close(ends_[0]); }
  void closeWriter() { close(ends_[1]); }

  /// All that was written; the writers must have closed their ends.
  std::string text() const {
    std::string result;
    std::array<char, 4096> buffer{};
    for (ssize_t size = 1; size > 0;) {
      size = ::read(reader(), buffer.data(), buffer.size());
      result.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
    return result;
  }

 private:
  static constexpr int CLOSED = -1;

  static void close(int& end) {
    if (end != CLOSED) {
      ::close(end);
      end = CLOSED;
    }
  }

  std::array<int, 2> ends_{};
};

/// Width and height of a PNG picture.
std::pair<unsigned, unsigned> sizeOf(const std::string& png) {
  const auto number = [&png](std::size_t offset) {
    unsigned result = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      result = 256 * result + static_cast<unsigned char>(png.at(offset + i));
    }
    return result;
  };
  return {number(16), number(20)};
}

std::string withoutTimes(const std::string& text) {
  static const std::regex TIME(R"(\b1\d{12}\b)");
  return std::regex_replace(text, TIME, "TIME");
}

}  // namespace

TEST_F(ConfigurationRun, RefusesADriverThatItDoesNotHave) {
  start.environment["QUOBRAK_DRIVER"] = "telepathy";
  expectRefusal("configuration error: QUOBRAK_DRIVER is \"telepathy\", but must be simulator or webdriver");
}

TEST_F(ConfigurationRun, TellsAllFaultsAtOnce) {
  start.environment["QUOBRAK_DRIVER"] = "Simulator";
  start.environment["QUOBRAK_DOCUMENTS"] = "";
  start.environment["QUOBRAK_PHONE"] = "";
  start.environment["QUOBRAK_CLOCK"] = "fast";
  start.environment["QUOBRAK_REFERENCE_PAGE"] = "http://10.0.0.7/black/index.html";
  start.environment["QUOBRAK_TRACE"] = "";
  expectRefusal(
      "configuration error: QUOBRAK_DRIVER is \"Simulator\", but must be simulator or webdriver\n"
      "QUOBRAK_DOCUMENTS is \"\", but must be a folder\n"
      "QUOBRAK_PHONE is \"\", but must be a folder that describes a phone, or not be set\n"
      "QUOBRAK_CLOCK is \"fast\", but must be system or virtual\n"
      "QUOBRAK_REFERENCE_PAGE is \"http://10.0.0.7/black/index.html\", but must be an address such as "
      "https://www.example.com/black/index.html, which begins with https:// and has that path\n"
      "QUOBRAK_TRACE is \"\", but must be a file or fd:N, or not be set");
}

TEST_F(ConfigurationRun, TakesWhatItWouldTakeAnywayWhenItIsNamed) {
  start.environment["QUOBRAK_DRIVER"] = "simulator";
  start.environment["QUOBRAK_CLOCK"] = "system";
  start.environment["QUOBRAK_DOCUMENTS"] = documents().string();
  addScript("S", "scripts/a.txt", "measureStart,Step\nmeasureStop");
  runsThrough();
  EXPECT_EQ(measures().size(), 1U);
}

TEST_F(ConfigurationRun, RefusesAReferencePageWithAnotherPath) {
  start.environment["QUOBRAK_REFERENCE_PAGE"] = "https://10.0.0.7/";
  expectRefusal(
      "configuration error: QUOBRAK_REFERENCE_PAGE is \"https://10.0.0.7/\", but must be an address such as "
      "https://www.example.com/black/index.html, which begins with https:// and has that path");
}

TEST_F(ConfigurationRun, RefusesAPhoneThatIsNotThere) {
  start.environment["QUOBRAK_PHONE"] = "/nowhere/phone";
  expectRefusal("configuration error: /nowhere/phone/phone.json: the file is missing or cannot be read");
}

TEST_F(ConfigurationRun, RefusesAPhoneThatIsDamaged) {
  phone.write("test/app.json", R"({"bundleIdentifier": "com.example.test", "name": "Test"})");
  expectRefusal("configuration error: " + phone.path().string() + "/test/app.json:1:1: firstScreen: missing");
  phone.write("phone.json", "{");
  expectRefusal("configuration error: " + phone.path().string() +
                "/phone.json:1:2: the text ends too early; expected a key in double quotes");
}

TEST_F(ConfigurationRun, DrawsThePhoneThatIsNamed) {
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test");
  runsThrough();
  EXPECT_EQ(sizeOf(document("tests-results/S/a/iteration1/screenshots/001_success.png")), std::pair(100U, 200U));
}

TEST_F(ConfigurationRun, FindsAPhoneFromTheWorkingDirectory) {
  fs::copy(phone.path(), folder.path() / "my phone", fs::copy_options::recursive);
  start.environment["QUOBRAK_PHONE"] = "my phone";
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test");
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
}

TEST_F(ConfigurationRun, RefusesADocumentsDirectoryThatIsAFile) {
  folder.write("file", "");
  start.environment["QUOBRAK_DOCUMENTS"] = "file";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(end.err, "configuration error: QUOBRAK_DOCUMENTS is \"file\", which cannot be used: it is no folder\n");
}

TEST_F(ConfigurationRun, WarnsOfAVariableThatIsNone) {
  start.environment["QUOBRAK_CLOK"] = "virtual";
  start.environment["class"] = "dslCommandTest";
  start.environment["command"] = "pause,0";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "warning: QUOBRAK_CLOK is set, but is no variable of this program\n");
}

TEST_F(ConfigurationRun, RefusesADocumentsDirectoryWhoseNameIsTooLong) {
  const std::string name(300, 'n');
  start.environment["QUOBRAK_DOCUMENTS"] = name;
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(end.err,
            "configuration error: QUOBRAK_DOCUMENTS is \"" + name + "\", which cannot be made: File name too long\n");
}

TEST_F(ConfigurationRun, ARefusedRunLeavesTheTraceOfAnEarlierOne) {
  folder.write("file", "");
  folder.write("trace", "old");
  start.environment["QUOBRAK_DOCUMENTS"] = "file/Documents";
  start.environment["QUOBRAK_TRACE"] = "trace";
  EXPECT_EQ(run().exitStatus, 2);
  EXPECT_EQ(folder.read("trace"), "old");
}

TEST_F(ConfigurationRun, ARunRefusedForItsTraceMakesNoFolder) {
  start.environment["QUOBRAK_DOCUMENTS"] = "new/Documents";
  start.environment["QUOBRAK_TRACE"] = "fd:77";
  EXPECT_EQ(run().exitStatus, 2);
  EXPECT_FALSE(fs::exists(folder.path() / "new"));
}

TEST_F(ConfigurationRun, ATraceMayLieInADocumentsDirectoryThatIsMade) {
  start.environment["QUOBRAK_DOCUMENTS"] = "new";
  start.environment["QUOBRAK_TRACE"] = "new/trace";
  start.environment["class"] = "dslCommandTest";
  start.environment["command"] = "pause,0";
  EXPECT_EQ(run().exitStatus, 0);
  EXPECT_TRUE(fs::exists(folder.path() / "new/trace"));
}

TEST_F(ConfigurationRun, RefusesATraceThatCannotBeWritten) {
  start.environment["QUOBRAK_TRACE"] = "fd:9";
  expectRefusal(
      "configuration error: QUOBRAK_TRACE is \"fd:9\": there is no such open descriptor; fd:N names one by its number, "
      "as in fd:3");
  start.environment["QUOBRAK_TRACE"] = "nowhere/trace";
  expectRefusal("configuration error: QUOBRAK_TRACE is \"nowhere/trace\": the file cannot be opened for writing");
}

TEST_F(ConfigurationRun, RefusesATraceToADescriptorThatIsOnlyRead) {
  const Pipe pipe;
  start.descriptors = {{3, pipe.reader()}};
  start.environment["QUOBRAK_TRACE"] = "fd:3";
  expectRefusal("configuration error: QUOBRAK_TRACE is \"fd:3\": the descriptor is not open for writing");
}

TEST_F(ConfigurationRun, WritesATraceToAFile) {
  addScript("S", "scripts/a.txt", SCRIPT);
  folder.write("trace", "an earlier trace");
  start.environment["QUOBRAK_TRACE"] = "trace";
  runsThrough();

  const std::vector<JSONValue> events = traceEvents(folder.read("trace"));
  std::vector<std::string> kinds;
  for (const JSONValue& event : events) {
    const JSONReader json(event);
    const std::string kind = json.member("event").text();
    kinds.push_back(kind == "driver" ? json.member("operation").text() : kind);
  }
  EXPECT_THAT(kinds, ElementsAre("addInterruptionMonitor", "scriptStarted", "lineStarted", "launch", "lineFinished",
                                 "lineStarted", "screenshot", "lineFinished", "lineStarted", "lineFinished",
                                 "lineStarted", "step", "screenshot", "lineFinished", "lineStarted", "lineFinished",
                                 "scriptError", "screenshot", "debugDescription", "scriptFinished", "pressButton",
                                 "removeInterruptionMonitor"));
}

TEST_F(ConfigurationRun, WritesATraceToAnOpenDescriptor) {
  addScript("S", "scripts/a.txt", SCRIPT);
  Pipe pipe;
  start.descriptors = {{3, pipe.writer()}};
  start.environment["QUOBRAK_TRACE"] = "fd:3";
  runsThrough();
  pipe.closeWriter();
  EXPECT_EQ(eventsOf(traceEvents(pipe.text()), "lineFinished").size(), 5U);
}

TEST_F(ConfigurationRun, GoesOnWhenTheReaderOfTheTraceHasGone) {
  addScript("S", "scripts/a.txt", SCRIPT);
  Pipe pipe;
  pipe.closeReader();
  start.descriptors = {{3, pipe.writer()}};
  start.environment["QUOBRAK_TRACE"] = "fd:3";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "warning: the trace cannot be written any more; the run goes on without it\n");
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"failed", "Error on line nonsense (line: 5). Cause: Function nonsense is not implemented"}}));
}

TEST_F(ConfigurationRun, GivesTheSameResultsWithATraceAsWithout) {
  addScript("S", "scripts/a.txt", SCRIPT);
  runsThrough();
  const auto untraced = snapshot(documents());
  start.environment["QUOBRAK_TRACE"] = "trace";
  runsThrough();
  const auto traced = snapshot(documents());

  ASSERT_EQ(traced.size(), untraced.size());
  for (auto with = traced.begin(), without = untraced.begin(); with != traced.end(); ++with, ++without) {
    EXPECT_EQ(withoutTimes(with->first), withoutTimes(without->first));
    // The times of two runs differ; what was measured between them does not.
    EXPECT_TRUE(withoutTimes(with->second) == withoutTimes(without->second)) << with->first;
  }
}

TEST_F(ConfigurationRun, RefusesArguments) {
  start.arguments = {"scripts/a.txt"};
  expectRefusal(
      "quobrakUITests takes no arguments: what it runs is told by environment variables, such as class, iteration and "
      "testFilePath1. docs/test-process.md explains them.");
  start.arguments = {""};
  expectRefusal(
      "quobrakUITests takes no arguments: what it runs is told by environment variables, such as class, iteration and "
      "testFilePath1. docs/test-process.md explains them.");
}

}  // namespace quobrak::testing
