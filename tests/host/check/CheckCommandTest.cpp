#include "host/check/CheckCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "host/program/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::HasSubstr;

struct Ending {
  ExitStatus status = ExitStatus::success;
  std::string output;
  std::string errors;
};

/// Standard output and standard error in memory, as long as it lives.
class Captured {
 public:
  Captured() : output_(std::cout.rdbuf(outputText_.rdbuf())), errors_(std::cerr.rdbuf(errorsText_.rdbuf())) {}
  ~Captured() {
    std::cout.rdbuf(output_);
    std::cerr.rdbuf(errors_);
  }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;

  std::string output() const { return outputText_.str(); }
  std::string errors() const { return errorsText_.str(); }

 private:
  std::ostringstream outputText_;
  std::ostringstream errorsText_;
  std::streambuf* output_;
  std::streambuf* errors_;
};

class CheckCommand : public ::testing::Test {
 protected:
  CheckCommand() {
    folder_.write("good.txt", "pause,${TIME}\n");
    folder_.write("bad.txt", "pause,x\n");
    folder_.write("odd.txt", "pause,1,2\n");
  }

  std::string pathOf(const std::string& name) const { return (folder_.path() / name).string(); }

  static Ending run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "check");
    const std::vector<Subcommand> subcommands{checkSubcommand()};
    const Captured captured;
    const ExitStatus status = runProgram(subcommands, arguments);
    return {.status = status, .output = captured.output(), .errors = captured.errors()};
  }

  quobrak::testing::TemporaryFolder folder_;
};

TEST_F(CheckCommand, SucceedsWhereThereIsNoError) {
  const Ending ending = run({pathOf("good.txt"), "--var", "TIME=5"});
  EXPECT_EQ(ending.status, ExitStatus::success);
  EXPECT_EQ(ending.output, "1 script, 0 errors, 0 warnings\n");
  EXPECT_EQ(ending.errors, "");
}

TEST_F(CheckCommand, FailsWhereThereIsAnError) {
  const Ending ending = run({pathOf("bad.txt"), pathOf("odd.txt")});
  EXPECT_EQ(ending.status, ExitStatus::failed);
  EXPECT_EQ(ending.output, pathOf("bad.txt") +
                               ":1:7: error: The pause duration x should be a positive integer [malformed-argument]\n"
                               "    pause,x\n"
                               "          ^\n" +
                               pathOf("odd.txt") +
                               ":1:9: warning: pause takes 1 argument: what follows is ignored [surplus-field]\n"
                               "    pause,1,2\n"
                               "            ^\n"
                               "    no argument contains a comma\n"
                               "2 scripts, 1 error, 1 warning\n");
}

TEST_F(CheckCommand, TellsOfErrorsAloneWhereItIsToBeQuiet) {
  const Ending ending = run({"--quiet", pathOf("bad.txt"), pathOf("odd.txt")});
  EXPECT_EQ(ending.status, ExitStatus::failed);
  EXPECT_EQ(ending.output, pathOf("bad.txt") +
                               ":1:7: error: The pause duration x should be a positive integer [malformed-argument]\n"
                               "    pause,x\n"
                               "          ^\n");
  EXPECT_EQ(run({"-q", pathOf("odd.txt")}).output, "");
}

TEST_F(CheckCommand, MayTakeWarningsForErrors) {
  EXPECT_EQ(run({pathOf("odd.txt")}).status, ExitStatus::success);
  const Ending ending = run({"--warnings-as-errors", pathOf("odd.txt")});
  EXPECT_EQ(ending.status, ExitStatus::failed);
  EXPECT_THAT(ending.output, HasSubstr("odd.txt:1:9: error: pause takes 1 argument"));
  EXPECT_THAT(ending.output, HasSubstr("1 script, 1 error, 0 warnings\n"));
}

TEST_F(CheckCommand, ReadsVariablesFromFiles) {
  folder_.write("a.env", "TIME=x\n");
  EXPECT_EQ(run({pathOf("good.txt"), "--env-file", pathOf("a.env")}).status, ExitStatus::failed);
  EXPECT_EQ(run({pathOf("good.txt"), "--env-file", pathOf("a.env"), "--var", "TIME=1"}).status, ExitStatus::success);
}

TEST_F(CheckCommand, WritesOtherFormats) {
  EXPECT_EQ(run({"--format", "json", pathOf("good.txt"), "--var", "TIME=1"}).output,
            "{\"errors\":0,\"findings\":[],\"scripts\":1,\"warnings\":0}\n");
  const Ending sarif = run({"--format=sarif", pathOf("bad.txt")});
  EXPECT_EQ(sarif.status, ExitStatus::failed);
  EXPECT_THAT(sarif.output, HasSubstr(R"("version":"2.1.0")"));
  EXPECT_THAT(sarif.output, HasSubstr(R"("ruleId":"malformed-argument")"));
}

TEST_F(CheckCommand, RefusesWhatItCannotUse) {
  const Ending missing = run({pathOf("none.txt")});
  EXPECT_EQ(missing.status, ExitStatus::badUse);
  EXPECT_EQ(missing.errors, "quobrak: there is no file or folder " + pathOf("none.txt") + "\n");
  EXPECT_EQ(run({}).status, ExitStatus::badUse);
  const Ending format = run({"--format", "xml", pathOf("bad.txt")});
  EXPECT_EQ(format.status, ExitStatus::badUse);
  EXPECT_EQ(format.errors, "quobrak: --format cannot be \"xml\"; it can be text, json or sarif\n");
}

}  // namespace
}  // namespace quobrak::host
