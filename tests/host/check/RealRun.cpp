#include "tests/host/check/RealRun.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string_view>

#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/faults/ChildProcess.h"
#include "tests/quobrakUITests/Environment.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host::testing {

namespace {

/// What the child process prints before the number of a script, before that of a line, and before a cause.
constexpr std::string_view SCRIPT = "script ";
constexpr std::string_view LINE = "line ";
constexpr std::string_view CAUSE = "cause ";
constexpr std::string_view STOP = "Fatal error: ";

/// Prints each line before it runs, and what it raises.
class LinePrinter final : public RunObserver {
 public:
  LinePrinter() { install(this); }
  ~LinePrinter() override { install(nullptr); }
  LinePrinter(const LinePrinter&) = delete;
  LinePrinter& operator=(const LinePrinter&) = delete;

  bool hasFailed() const { return hasFailed_; }

  void lineStarted(std::size_t number, std::string_view) override { std::cout << LINE << number << std::endl; }
  void lineFinished(std::size_t, std::string_view, Seconds, const std::exception* error) override {
    if (error != nullptr) {
      std::cout << CAUSE << error->what() << std::endl;
      hasFailed_ = true;
    }
  }
  void scriptStarted(const TestFile&, std::size_t, std::size_t) override {}
  void scriptFinished(const TestFile&, const TestStatus&) override {}
  void scriptRaised(const std::exception&) override {}
  void pictureOrDumpRaised(const std::exception&) override {}
  void stepFinished(const TestResultV2&) override {}

 private:
  bool hasFailed_ = false;
};

/// A fault before any line has run: its report has the line's number.
void printPreparationFault(const std::string& report) {
  constexpr std::string_view NUMBER = " (line: ";
  constexpr std::string_view BEFORE_CAUSE = "). Cause: ";
  const std::size_t number = report.rfind(NUMBER);
  const std::size_t cause = report.rfind(BEFORE_CAUSE);
  std::cout << LINE << report.substr(number + NUMBER.size(), cause - number - NUMBER.size()) << std::endl;
  std::cout << CAUSE << report.substr(cause + BEFORE_CAUSE.size()) << std::endl;
}

void runScripts(const std::vector<std::string>& scripts, const Variables& variables) {
  for (const auto& [name, value] : variables) {
    quobrak::testing::setVariable(name, value);
  }
  TestContext::shared().setIterationPath("results");
  const LinePrinter printer;
  for (std::size_t i = 0; i < scripts.size(); ++i) {
    std::cout << SCRIPT << i << std::endl;
    try {
      quobrakUITests().executeActions(scripts[i]);
    } catch (const std::exception& error) {
      if (!printer.hasFailed()) {
        printPreparationFault(error.what());
      }
      return;
    }
  }
}

/// What stands behind the last line that begins so; none where no line does.
std::optional<std::string> lastBehind(std::string_view beginning, const std::string& printed) {
  const std::string text = "\n" + printed;
  const std::size_t at = text.rfind("\n" + std::string(beginning));
  if (at == std::string::npos) {
    return std::nullopt;
  }
  const std::size_t begin = at + 1 + beginning.size();
  return text.substr(begin, text.find('\n', begin) - begin);
}

}  // namespace

std::optional<RunFailure> realRun(const std::vector<std::string>& scripts, const Variables& variables) {
  const quobrak::testing::TemporaryFolder folder;
  const faults::ChildEnd end =
      faults::inChildProcess([&] { runScripts(scripts, variables); }, folder.path() / "printed");
  const bool isStop = end.signal == SIGABRT;
  EXPECT_TRUE(isStop || end.exitStatus == 0) << end.printed;
  std::optional<std::string> cause = lastBehind(isStop ? STOP : CAUSE, end.printed);
  if (!cause) {
    EXPECT_FALSE(isStop) << end.printed;
    return std::nullopt;
  }
  if (isStop) {
    // Behind the message stands the line.
    cause->erase(cause->rfind(" (line "));
  }
  return RunFailure{.script = std::stoul(lastBehind(SCRIPT, end.printed).value_or("")),
                    .line = std::stoul(lastBehind(LINE, end.printed).value_or("")),
                    .cause = *cause,
                    .isStop = isStop};
}

}  // namespace quobrak::host::testing
