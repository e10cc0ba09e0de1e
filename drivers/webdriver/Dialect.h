#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "drivers/webdriver/Connection.h"

namespace quobrak::webdriver {

/// How a server wants its commands.
enum class Dialect {
  /// The Appium server with its driver for this platform.
  appium,
  /// WebDriverAgent, the server on the phone itself.
  wda,
};

/// None for a name that no dialect has; they are "appium" and "wda".
std::optional<Dialect> dialectNamed(std::string_view name);
std::string_view nameOf(Dialect dialect);

/// Commands that the two dialects spell differently, or that not both have.
enum class Verb {
  launch,
  terminate,
  applicationState,
  tapPoint,
  holdElement,
  holdPoint,
  drag,
  swipe,
  pressButton,
  describeScreen,
  checkSession,
};

/// The command of the operation in a session. `arguments` are the same in both dialects; where `element` is not empty,
/// the operation is done to the element of that id.
Command commandFor(Dialect dialect, Verb verb, const std::string& session, JSONValue::Object arguments,
                   const std::string& element = "");

/// The name of the locator strategies in the dialect.
std::string_view classChainStrategy(Dialect dialect);
std::string_view predicateStrategy(Dialect dialect);

}  // namespace quobrak::webdriver
