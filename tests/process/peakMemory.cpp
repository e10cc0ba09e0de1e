// Runs a program with the environment it was given and prints the peak of the program's memory, in bytes.
//
//   peakMemory PROGRAM

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <iostream>

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::cerr << "usage: peakMemory PROGRAM\n";
    return 2;
  }
  posix_spawn_file_actions_t silent;
  ::posix_spawn_file_actions_init(&silent);
  ::posix_spawn_file_actions_addopen(&silent, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t program = 0;
  const int error = ::posix_spawn(&program, arguments[1], &silent, nullptr, arguments + 1, environ);
  ::posix_spawn_file_actions_destroy(&silent);
  if (error != 0) {
    std::cerr << "peakMemory: " << arguments[1] << " cannot be started\n";
    return 2;
  }
  int status = 0;
  rusage usage{};
  ::wait4(program, &status, 0, &usage);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::cerr << "peakMemory: " << arguments[1] << " failed\n";
    return 1;
  }
  constexpr long BYTES_IN_A_UNIT = 1024;
  std::cout << usage.ru_maxrss * BYTES_IN_A_UNIT << '\n';
}
