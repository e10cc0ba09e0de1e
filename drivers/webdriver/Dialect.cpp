#include "drivers/webdriver/Dialect.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace quobrak::webdriver {

namespace {

/// How each dialect spells an operation: the path and the method of the one, the script of the other.
struct Spelling {
  Verb verb;
  std::string_view method;
  /// Below the session; `:element` stands for the id of an element.
  std::string_view path;
  std::string_view script;
};

constexpr std::array SPELLINGS{
    Spelling{Verb::launch, "POST", "/wda/apps/launch", "mobile: launchApp"},
    Spelling{Verb::terminate, "POST", "/wda/apps/terminate", "mobile: terminateApp"},
    Spelling{Verb::applicationState, "POST", "/wda/apps/state", "mobile: queryAppState"},
    Spelling{Verb::tapPoint, "POST", "/wda/tap", "mobile: tap"},
    Spelling{Verb::holdElement, "POST", "/wda/element/:element/touchAndHold", "mobile: touchAndHold"},
    Spelling{Verb::holdPoint, "POST", "/wda/touchAndHold", "mobile: touchAndHold"},
    Spelling{Verb::drag, "POST", "/wda/dragfromtoforduration", "mobile: dragFromToForDuration"},
    Spelling{Verb::swipe, "POST", "/wda/element/:element/swipe", "mobile: swipe"},
    Spelling{Verb::pressButton, "POST", "/wda/pressButton", "mobile: pressButton"},
    Spelling{Verb::describeScreen, "GET", "/source?format=description", "mobile: source"},
    Spelling{Verb::checkSession, "GET", "/wda/locked", "mobile: isLocked"},
};

constexpr bool isInOrder() {
  for (std::size_t index = 0; index < SPELLINGS.size(); ++index) {
    if (static_cast<std::size_t>(SPELLINGS[index].verb) != index) {
      return false;
    }
  }
  return true;
}
static_assert(isInOrder(), "each operation is found at its number");

constexpr std::string_view ELEMENT = ":element";

std::string withElement(std::string_view path, const std::string& element) {
  std::string filled(path);
  if (const std::size_t place = filled.find(ELEMENT); place != std::string::npos) {
    filled.replace(place, ELEMENT.size(), element);
  }
  return filled;
}

Command scriptCommand(const Spelling& spelling, const std::string& session, JSONValue::Object arguments,
                      const std::string& element) {
  if (!element.empty()) {
    arguments.insert_or_assign("elementId", element);
  }
  if (spelling.verb == Verb::describeScreen) {
    arguments.insert_or_assign("format", "description");
  }
  return {.method = "POST",
          .path = "/session/" + session + "/execute/sync",
          .body = {{"script", std::string(spelling.script)}, {"args", JSONValue::Array{std::move(arguments)}}}};
}

}  // namespace

std::optional<Dialect> dialectNamed(std::string_view name) {
  for (const Dialect dialect : {Dialect::appium, Dialect::wda}) {
    if (nameOf(dialect) == name) {
      return dialect;
    }
  }
  return std::nullopt;
}

std::string_view nameOf(Dialect dialect) {
  return dialect == Dialect::appium ? "appium" : "wda";
}

Command commandFor(Dialect dialect, Verb verb, const std::string& session, JSONValue::Object arguments,
                   const std::string& element) {
  const Spelling& spelling = SPELLINGS[static_cast<std::size_t>(verb)];
  if (dialect == Dialect::appium) {
    return scriptCommand(spelling, session, std::move(arguments), element);
  }
  return {.method = std::string(spelling.method),
          .path = "/session/" + session + withElement(spelling.path, element),
          .body = std::move(arguments)};
}

std::string_view classChainStrategy(Dialect dialect) {
  return dialect == Dialect::appium ? "-ios class chain" : "class chain";
}

std::string_view predicateStrategy(Dialect dialect) {
  return dialect == Dialect::appium ? "-ios predicate string" : "predicate string";
}

}  // namespace quobrak::webdriver
