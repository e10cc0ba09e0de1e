#include "host/program/Program.h"

#include <sys/poll.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <string_view>
#include <system_error>

#include "host/program/CommandLine.h"
#include "host/program/HelpPage.h"
#include "host/program/UseErrors.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/ProcessInfo.h"

namespace quobrak::host {

namespace {

constexpr int STANDARD_OUTPUT = 1;
constexpr int STANDARD_ERROR = 2;

Terminal terminalAt(int descriptor) {
  return terminalOf(descriptor, ProcessInfo::environmentVariable);
}

/// Whether it leads to a program that reads no more, such as head, which has had what it wanted.
bool hasLostItsReader(int descriptor) {
  pollfd polled{.fd = descriptor, .events = 0, .revents = 0};
  return ::poll(&polled, 1, 0) == 1 && (polled.revents & POLLERR) != 0;
}

ExitStatus complain(std::string_view text, ExitStatus status) {
  std::cerr << "quobrak: " << text << std::endl;
  return status;
}

ExitStatus showHelp(const CommandLine& commandLine) {
  const DeclaredCommand* const chosen = commandLine.chosen();
  const Terminal terminal = terminalAt(STANDARD_OUTPUT);
  std::cout << (chosen == nullptr ? helpOfProgram(commandLine.program(), terminal)
                                  : helpOfSubcommand(*chosen, terminal));
  return ExitStatus::success;
}

ExitStatus obey(std::span<const Subcommand> subcommands, const std::vector<std::string>& arguments) {
  CommandLine commandLine(subcommands);
  if (arguments.empty()) {
    std::cerr << shortHelp(commandLine.program(), terminalAt(STANDARD_ERROR));
    return ExitStatus::badUse;
  }
  try {
    return commandLine.run(arguments);
  } catch (const CLI::CallForHelp&) {
    return showHelp(commandLine);
  } catch (const CLI::CallForVersion&) {
    std::cout << programVersion() << std::endl;
    return ExitStatus::success;
  } catch (const CLI::ParseError& error) {
    return complain(explained(error, arguments, commandLine.program()), ExitStatus::badUse);
  } catch (const UseError& error) {
    return complain(error.what(), ExitStatus::badUse);
  } catch (const EnvironmentError& error) {
    return complain(error.what(), ExitStatus::environmentFailed);
  } catch (const std::system_error& error) {
    // What nobody foresaw of files and folders, such as a working directory that was removed.
    return complain(shown(error.what()), ExitStatus::environmentFailed);
  }
}

}  // namespace

ExitStatus runProgram(std::span<const Subcommand> subcommands, const std::vector<std::string>& arguments) {
  const ExitStatus status = obey(subcommands, arguments);
  if (std::cout.flush() || hasLostItsReader(STANDARD_OUTPUT)) {
    return status;
  }
  const ExitStatus failure = complain("standard output cannot be written", ExitStatus::environmentFailed);
  return status == ExitStatus::success ? failure : status;
}

}  // namespace quobrak::host
