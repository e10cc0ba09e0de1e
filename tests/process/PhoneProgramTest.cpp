#include <fcntl.h>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <vector>

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "phoneserver/PhoneServer.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

ProcessEnd runPhone(const std::vector<std::string>& arguments) {
  ProcessStart start;
  start.executable = QUOBRAK_PHONE_PROGRAM;
  start.arguments = arguments;
  return runExecutable(start);
}

/// The program while it serves.
class ServingPhone {
 public:
  ServingPhone() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::vector<std::string> arguments{"quobrakPhone", "--port", "0", "--clock", "virtual"};
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
      pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    EXPECT_EQ(::posix_spawn(&child_, QUOBRAK_PHONE_PROGRAM, &actions, nullptr, pointers.data(), environ), 0);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    output_ = ends[0];
  }

  ~ServingPhone() { ::close(output_); }
  ServingPhone(const ServingPhone&) = delete;
  ServingPhone& operator=(const ServingPhone&) = delete;

  std::string line() const {
    std::string text;
    for (char character = '\0'; ::read(output_, &character, sizeof(character)) == 1 && character != '\n';) {
      text += character;
    }
    return text;
  }

  /// The exit status after the signal; -1 where it did not end by itself.
  int endedBy(int signal) const {
    ::kill(child_, signal);
    int status = 0;
    EXPECT_EQ(::waitpid(child_, &status, 0), child_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t child_ = 0;
  int output_ = -1;
};

}  // namespace

TEST(PhoneProgram, SaysWhereItListensAndEndsWhenItIsToldTo) {
  for (const int signal : {SIGTERM, SIGINT}) {
    const ServingPhone phone;
    EXPECT_THAT(phone.line(), MatchesRegex("The phone listens on http://127\\.0\\.0\\.1:[0-9]+"));
    EXPECT_EQ(phone.endedBy(signal), 0);
  }
}

TEST(PhoneProgram, ShowsHowItIsUsed) {
  const ProcessEnd end = runPhone({"--help"});
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_THAT(end.out, AllOf(HasSubstr("--port"), HasSubstr("--phone"), HasSubstr("--clock"), HasSubstr("--host")));
  EXPECT_EQ(end.err, "");
}

TEST(PhoneProgram, WhatCannotBeUsedEndsItWithAReason) {
  VirtualClock clock;
  const phoneserver::PhoneServer other(simulator::loadPhone(simulator::BuiltinPhoneFiles()), clock);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--port", "x"}, std::vector<std::string>{"--port", "65536"},
        std::vector<std::string>{"--port", std::to_string(other.port())}, std::vector<std::string>{"--clock", "fast"},
        std::vector<std::string>{"--phone", "/nowhere"}, std::vector<std::string>{"--unknown"}}) {
    const ProcessEnd end = runPhone(arguments);
    EXPECT_EQ(end.exitStatus, 2) << arguments.back();
    EXPECT_EQ(end.out, "") << arguments.back();
    EXPECT_THAT(end.err, AllOf(StartsWith("quobrakPhone: "), EndsWith("\n"))) << arguments.back();
  }
}

}  // namespace quobrak::testing
