#pragma once

#include <exception>
#include <string>

namespace quobrak {

/// The one error that the system itself raises: a failure that a script's author or the host tool is meant to read.
/// Every other exception that passes through is "another error" to the system.
class FWKTError : public std::exception {
 public:
  enum class Case { envVariableError, documentDirectoryError, fdslError };

  /// A fault of the environment variables that say what to run.
  static FWKTError envVariableError(std::string message) { return {Case::envVariableError, std::move(message)}; }
  /// A failed operation in the Documents directory.
  static FWKTError documentDirectoryError(std::string message) {
    return {Case::documentDirectoryError, std::move(message)};
  }
  /// Whatever a script command can get wrong. The only case that is reported with its line.
  static FWKTError fdslError(std::string message) { return {Case::fdslError, std::move(message)}; }

  Case errorCase() const { return case_; }
  const std::string& message() const { return message_; }
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  FWKTError(Case errorCase, std::string message) : case_(errorCase), message_(std::move(message)) {}

  Case case_;
  std::string message_;
};

}  // namespace quobrak
