#include "tests/process/TestProcessRun.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <sstream>

#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;

constexpr unsigned TIME_LIMIT_IN_SECONDS = 60;
constexpr unsigned NOBODY = 65534;
/// What a shell answers for a command that cannot be started.
constexpr int NOT_STARTED = 127;

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// A nameless file for what the child prints: unlike a pipe it never fills up.
class Capture {
 public:
  Capture() : file_(std::tmpfile()) {}

  int descriptor() const { return ::fileno(file_.get()); }

  std::string text() const {
    std::rewind(file_.get());
    std::string result;
    for (int character = std::fgetc(file_.get()); character != EOF; character = std::fgetc(file_.get())) {
      result += static_cast<char>(character);
    }
    return result;
  }

 private:
  std::unique_ptr<std::FILE, Closer> file_;
};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  std::transform(texts.begin(), texts.end(), std::back_inserter(pointers),
                 [](std::string& text) { return text.data(); });
  pointers.push_back(nullptr);
  return pointers;
}

bool dropPrivileges() {
  return ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(NOBODY) == 0 && ::setuid(NOBODY) == 0);
}

bool limitFileSize(std::uint64_t size) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{.rlim_cur = size, .rlim_max = size};
  return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

/// The descriptor under the number that the child knows it by; it stays open when the executable starts.
bool passOn(int ours, int child) {
  return ours == child ? ::fcntl(child, F_SETFD, 0) != -1 : ::dup2(ours, child) != -1;
}

bool prepareChild(const ProcessStart& start, int out, int err) {
  bool isReady = ::dup2(out, STDOUT_FILENO) != -1 && ::dup2(err, STDERR_FILENO) != -1;
  for (const auto& [child, ours] : start.descriptors) {
    isReady = isReady && passOn(ours, child);
  }
  isReady = isReady && ::chdir(start.workingDirectory.c_str()) == 0;
  isReady = isReady && (!start.largestFile || limitFileSize(*start.largestFile));
  ::alarm(TIME_LIMIT_IN_SECONDS);
  return isReady && (!start.isUnprivileged || dropPrivileges());
}

std::string describe(const fs::directory_entry& entry) {
  if (entry.is_symlink()) {
    return "link to " + fs::read_symlink(entry.path()).string();
  }
  if (entry.is_directory()) {
    return "folder";
  }
  std::ifstream stream(entry.path(), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

ProcessEnd runExecutable(const ProcessStart& start) {
  const Capture out;
  const Capture err;
  std::vector<std::string> arguments{start.executable.filename().string()};
  arguments.insert(arguments.end(), start.arguments.begin(), start.arguments.end());
  std::vector<std::string> environment;
  for (const auto& [name, value] : start.environment) {
    environment.push_back(name + "=" + value);
  }
  const std::vector<char*> argv = pointersTo(arguments);
  const std::vector<char*> envp = pointersTo(environment);
  // Opened while it certainly can be: another user may not be let into the folder that it stands in.
  const int executable = ::open(start.executable.c_str(), O_PATH | O_CLOEXEC);

  const pid_t child = ::fork();
  if (child == 0) {
    if (prepareChild(start, out.descriptor(), err.descriptor())) {
      ::fexecve(executable, argv.data(), envp.data());
    }
    ::_exit(NOT_STARTED);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  ::close(executable);
  ProcessEnd end{.exitStatus = {}, .signal = {}, .out = out.text(), .err = err.text()};
  if (WIFEXITED(status)) {
    end.exitStatus = WEXITSTATUS(status);
  } else {
    end.signal = WTERMSIG(status);
  }
  return end;
}

std::map<std::string, std::string> snapshot(const fs::path& folder) {
  std::map<std::string, std::string> found;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    found.emplace(entry.path().lexically_relative(folder).string(), describe(entry));
  }
  return found;
}

std::vector<JSONValue> traceEvents(const std::string& trace) {
  EXPECT_TRUE(trace.empty() || trace.ends_with('\n')) << "the trace ends within a line";
  std::vector<JSONValue> events;
  std::istringstream stream(trace);
  for (std::string line; std::getline(stream, line);) {
    events.push_back(JSONDecoder::decode(line));
  }
  return events;
}

std::vector<JSONValue> eventsOf(const std::vector<JSONValue>& events, std::string_view kind) {
  std::vector<JSONValue> found;
  std::copy_if(events.begin(), events.end(), std::back_inserter(found),
               [kind](const JSONValue& event) { return JSONReader(event).member("event").text() == kind; });
  return found;
}

ProcessTest::ProcessTest() {
  const MemoryPhoneFiles files = smallPhone("");
  for (const char* path : {"phone.json", "home/app.json", "home/home.xml", "test/app.json", "test/start.xml"}) {
    phone.write(path, files.read(path).value());
  }
  fs::create_directory(documents());
  start.workingDirectory = folder.path();
  start.environment = {{"class", "dslTestsSuites"},
                       {"iteration", "1"},
                       {"testFileNumber", "0"},
                       {"QUOBRAK_CLOCK", "virtual"},
                       {"QUOBRAK_PHONE", phone.path().string()}};
}

void ProcessTest::addScript(const std::string& suite, const std::string& path, const std::optional<std::string>& text) {
  ++scriptCount_;
  const std::string number = std::to_string(scriptCount_);
  start.environment["testFileNumber"] = number;
  start.environment["testFileSuiteName" + number] = suite;
  start.environment["testFilePath" + number] = path;
  if (text) {
    folder.write("Documents/" + path, *text);
  }
}

void ProcessTest::runsThrough() {
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.err, "");
}

std::vector<std::string> ProcessTest::results() const {
  static const std::regex TIME_IN_NAME(R"(-\d{13}\.json$)");
  std::vector<std::string> names;
  for (const auto& [path, content] : snapshot(documents())) {
    if (content != "folder" && !path.starts_with("scripts/")) {
      names.push_back(std::regex_replace(path, TIME_IN_NAME, "-TIME.json"));
    }
  }
  return names;
}

std::vector<std::string> ProcessTest::measures() const {
  static const std::regex MEASURE_FILE(R"(measures/.*-(\d{13})\.json)");
  std::map<std::string, std::string> contentsByTime;
  for (const auto& [path, content] : snapshot(documents())) {
    if (std::smatch match; std::regex_match(path, match, MEASURE_FILE)) {
      EXPECT_TRUE(contentsByTime.emplace(match[1], content).second) << "two measure files were written at one time";
    }
  }
  std::vector<std::string> contents;
  std::transform(contentsByTime.begin(), contentsByTime.end(), std::back_inserter(contents),
                 [](const auto& entry) { return entry.second; });
  return contents;
}

std::string statusFile(const std::vector<std::pair<std::string, std::string>>& statuses) {
  std::string text;
  for (const auto& [status, stackTrace] : statuses) {
    text += (text.empty() ? "" : ",");
    text += R"({"stackTrace":")" + stackTrace + R"(","status":")" + status + R"("})";
  }
  return "[" + text + "]";
}

std::string testCaseLines(const std::string& outcome, const std::string& seconds) {
  const std::string testCase = "Test Case '-[quobrakUITests testMain]' ";
  return testCase + "started.\n" + testCase + outcome + " (" + seconds + " seconds).\n";
}

std::string caughtError(const std::string& message) {
  return "error: -[quobrakUITests testMain] : failed: caught error: \"" + message + "\"\n";
}

}  // namespace quobrak::testing
