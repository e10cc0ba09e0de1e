#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "quobrakUITests/ReferencePage.h"

namespace quobrak {

/// Environment variables that cannot be used: a line for each fault, saying which variable, what it holds and what
/// would be right.
class ConfigurationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class ClockKind { system, virtualTime };

enum class DriverKind { simulator, webdriver };

/// The WebDriver server that leads to a real phone.
struct WebDriverConfiguration {
  /// Without a "/" at its end.
  std::string url;
  /// "appium" or "wda".
  std::string dialect;
  /// The JSON file with the capabilities that a session must have; none for the usual ones.
  std::optional<std::string> capabilities;
};

/// How the test process runs off the phone, besides what the run itself is told.
struct Configuration {
  /// The Documents directory.
  std::string documents;
  DriverKind driver;
  /// The folder that describes the simulated phone; none for the built-in one.
  std::optional<std::string> phone;
  WebDriverConfiguration webdriver;
  ClockKind clock;
  ReferencePage referencePage;
  /// The file, or "fd:N", that receives the trace; none for no trace.
  std::optional<std::string> trace;
};

/// Names among those given that look like a configuration variable and are none, in their order.
std::vector<std::string> unknownVariables(const std::vector<std::string>& names);

/// Names among those given that are set without effect: they configure the driver that is not chosen.
std::vector<std::string> idleVariables(const std::vector<std::string>& names, DriverKind driver);

/// Reads the configuration from environment variables. Throws `ConfigurationError` with all faults.
Configuration configurationFrom(const std::function<std::optional<std::string>(const std::string&)>& variable);

}  // namespace quobrak
