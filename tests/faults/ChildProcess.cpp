#include "tests/faults/ChildProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

namespace quobrak::faults {

namespace {

constexpr unsigned TIME_LIMIT_IN_SECONDS = 30;

/// Without `noexcept` the test framework would catch what is raised, and the child would go on with its tests.
[[noreturn]] void runAndExit(const std::function<void()>& body, const std::filesystem::path& printed) noexcept {
  const int output = ::open(printed.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(output, STDERR_FILENO);
  ::alarm(TIME_LIMIT_IN_SECONDS);
  body();
  ::_exit(0);
}

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

ChildEnd inChildProcess(const std::function<void()>& body, const std::filesystem::path& printed) {
  // What is still to be printed would be printed by both.
  std::cout.flush();
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    runAndExit(body, printed);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  ChildEnd end{.exitStatus = {}, .signal = {}, .printed = contentOf(printed)};
  if (WIFEXITED(status)) {
    end.exitStatus = WEXITSTATUS(status);
  } else {
    end.signal = WTERMSIG(status);
  }
  return end;
}

}  // namespace quobrak::faults
