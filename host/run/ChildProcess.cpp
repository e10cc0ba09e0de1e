#include "host/run/ChildProcess.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <utility>

#include "host/Subcommand.h"
#include "host/run/Files.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

/// Through which a child tells why it could not become the executable. It closes when it does become it.
struct ErrorPipe {
  FileDescriptor reader;
  FileDescriptor writer;
};

[[noreturn]] void fail(const std::filesystem::path& executable, int error) {
  throw EnvironmentError("the test process " + shown(executable.native()) + " cannot be started: " + reasonOf(error));
}

ErrorPipe openErrorPipe(const std::filesystem::path& executable) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    fail(executable, errno);
  }
  return {.reader = FileDescriptor(ends[0]), .writer = FileDescriptor(ends[1])};
}

FileDescriptor openOutput(const std::filesystem::path& file) {
  constexpr mode_t EVERYBODY_AS_ALLOWED = 0666;
  FileDescriptor output(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, EVERYBODY_AS_ALLOWED));
  if (!output.isOpen()) {
    throw EnvironmentError(shown(file.native()) + " cannot be written: " + reasonOf(errno));
  }
  return output;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  std::transform(texts.begin(), texts.end(), std::back_inserter(pointers),
                 [](std::string& text) { return text.data(); });
  pointers.push_back(nullptr);
  return pointers;
}

/// The library's own function cannot be called from C++ in this version of it (its header lacks extern "C").
FileDescriptor openProcess(pid_t process) {
  return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

/// Gives back what this program changed for itself, and ties the child's life to it.
bool prepareChild(pid_t parent, int output) {
  sigset_t none{};
  ::sigemptyset(&none);
  ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
  std::signal(SIGPIPE, SIG_DFL);
  const int input = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  constexpr unsigned FIRST = 3;
  const bool isReady = ::close_range(FIRST, ~0U, CLOSE_RANGE_CLOEXEC) == 0 && ::setpgid(0, 0) == 0 &&
                       ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && ::dup2(input, STDIN_FILENO) != -1 &&
                       ::dup2(output, STDOUT_FILENO) != -1 && ::dup2(output, STDERR_FILENO) != -1;
  if (::getppid() != parent) {
    // It ended before the child could be tied to it.
    ::_exit(EXIT_FAILURE);
  }
  return isReady;
}

}  // namespace

ChildProcess::ChildProcess(const ChildStart& start) {
  // Who ignores the ends of its children passes that on to them; then nobody could learn how this one ended.
  std::signal(SIGCHLD, SIG_DFL);
  ErrorPipe errors = openErrorPipe(start.executable);
  const FileDescriptor output = openOutput(start.output);
  // All that needs memory comes before the fork.
  std::vector<std::string> arguments{start.executable.native()};
  std::vector<std::string> environment = start.environment;
  const std::vector<char*> argumentPointers = pointersTo(arguments);
  const std::vector<char*> environmentPointers = pointersTo(environment);
  const pid_t parent = ::getpid();
  process_ = ::fork();
  if (process_ < 0) {
    fail(start.executable, errno);
  }
  if (process_ == 0) {
    if (prepareChild(parent, output.number())) {
      ::execve(arguments.front().c_str(), argumentPointers.data(), environmentPointers.data());
    }
    const int error = errno;
    ::_exit(::write(errors.writer.number(), &error, sizeof error) < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
  }
  // The child does the same; whoever comes first has done it in time.
  ::setpgid(process_, process_);
  descriptor_ = openProcess(process_);
  const int openingError = errno;
  errors.writer.close();
  int error = 0;
  if (::read(errors.reader.number(), &error, sizeof error) == sizeof error || !descriptor_.isOpen()) {
    send(SIGKILL);
    static_cast<void>(waitForEnd());
    fail(start.executable, error != 0 ? error : openingError);
  }
}

ChildProcess::~ChildProcess() {
  if (process_ > 0) {
    send(SIGKILL);
    static_cast<void>(waitForEnd());
  }
}

void ChildProcess::send(int signal) const {
  ::kill(-process_, signal);
}

ChildEnd ChildProcess::waitForEnd() {
  siginfo_t ended{};
  // The number stays taken until it is waited for without WNOWAIT, so the group is still the child's own.
  while (::waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
  }
  send(SIGKILL);
  const pid_t process = std::exchange(process_, 0);
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status)) {
    return {.exitStatus = WEXITSTATUS(status), .signal = {}};
  }
  return {.exitStatus = {}, .signal = WTERMSIG(status)};
}

}  // namespace quobrak::host
