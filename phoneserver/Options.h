#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace quobrak::phoneserver {

/// Arguments of the program that cannot be used: says what is wrong and what would be right.
class OptionsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class ClockChoice { systemTime, virtualTime };

/// What the program is told on its command line.
struct Options {
  std::string host = "127.0.0.1";
  /// 0 for any that is free.
  int port = 8100;
  /// The folder that describes the phone; none for the built-in phone.
  std::optional<std::string> phone{};
  ClockChoice clock = ClockChoice::systemTime;
};

/// A text that was asked for in place of a run.
struct Information {
  std::string text;
};

/// Reads the arguments, the program's name not among them. Throws `OptionsError`.
std::variant<Options, Information> readOptions(std::vector<std::string> arguments);

}  // namespace quobrak::phoneserver
