#include "tests/house/IncludeRule.h"

#include <algorithm>
#include <iterator>
#include <regex>

namespace quobrak::house {

namespace {

/// Paths are compared by how they begin.
using Prefixes = std::vector<std::string_view>;

struct Permission {
  /// Whose files may include something.
  std::string_view user;
  Prefixes included;
};

const std::vector<Permission>& ours() {
  static const std::vector<Permission> PERMISSIONS{
      {"platform/foundation/", {"platform/foundation/"}},
      {"platform/uiautomation/", {"platform/foundation/", "platform/uiautomation/"}},
      {"quobrakUITests/", {"platform/", "quobrakUITests/"}},
      {"drivers/simulator/", {"platform/", "drivers/simulator/"}},
      {"drivers/webdriver/", {"platform/", "drivers/webdriver/"}},
      // The bundle is what runner/ is elsewhere.
      {"drivers/xctest/bundle/", {"platform/", "quobrakUITests/", "drivers/xctest/"}},
      {"drivers/xctest/", {"platform/", "drivers/xctest/"}},
      {"phoneserver/", {"platform/", "drivers/simulator/", "phoneserver/"}},
      {"runner/", {"platform/", "quobrakUITests/", "drivers/", "runner/"}},
      {"manual/", {"quobrakUITests/", "manual/"}},
      {"host/terminal/", {"platform/foundation/", "host/terminal/"}},
      {"host/check/", {"platform/foundation/", "quobrakUITests/", "host/"}},
      {"host/run/", {"platform/foundation/", "quobrakUITests/", "host/"}},
      {"host/report/", {"platform/foundation/", "quobrakUITests/", "host/"}},
      {"host/commands/", {"quobrakUITests/", "platform/foundation/", "manual/", "host/"}},
      {"host/phone/", {"platform/", "quobrakUITests/", "drivers/simulator/", "host/"}},
      {"host/", {"platform/foundation/", "host/"}},
      {"tests/",
       {"platform/", "quobrakUITests/", "drivers/", "phoneserver/", "runner/", "manual/", "host/", "fuzz/", "tests/"}},
      {"fuzz/", {"platform/", "quobrakUITests/", "drivers/", "phoneserver/", "host/", "tests/support/", "fuzz/"}},
      {"benchmarks/", {"platform/", "quobrakUITests/", "drivers/", "phoneserver/", "runner/", "host/", "benchmarks/"}},
  };
  return PERMISSIONS;
}

struct Library {
  Prefixes headers;
  Prefixes users;
};

const std::vector<Library>& libraries() {
  static const std::vector<Library> LIBRARIES{
      {{"unicode/"}, {"platform/foundation/icu/", "host/terminal/", "tests/drivers/xctest/standins/", "benchmarks/"}},
      {{"Foundation/", "XCTest/", "objc/", "Block.h"}, {"drivers/xctest/", "tests/drivers/xctest/", "benchmarks/"}},
      {{"nlohmann/", "simdjson.h"}, {"platform/foundation/JSON.cpp", "platform/foundation/JSONPlaces.cpp"}},
      {{"fribidi", "hb"}, {"drivers/simulator/"}},
      {{"cairo", "ft2build.h", "FT_FREETYPE_H", "freetype/", "png.h"},
       {"drivers/simulator/", "tests/drivers/simulator/", "benchmarks/"}},
      {{"pugixml.hpp"},
       {"drivers/simulator/", "phoneserver/", "host/pictures/", "host/report/", "tests/drivers/simulator/",
        "tests/phoneserver/", "tests/host/pictures/", "tests/host/report/", "tests/support/", "benchmarks/"}},
      {{"CLI/"}, {"phoneserver/", "host/", "tests/host/"}},
      {{"libxml/"}, {"tests/oracles/", "benchmarks/"}},
      {{"curl/"}, {"drivers/webdriver/", "benchmarks/"}},
      {{"httplib.h"}, {"phoneserver/", "tests/conformance/", "tests/drivers/webdriver/", "tests/phoneserver/"}},
      {{"sodium.h"}, {"drivers/webdriver/", "phoneserver/"}},
      {{"gtest/", "gmock/"}, {"tests/"}},
      {{"unistd.h", "fcntl.h", "stdlib.h", "grp.h", "pty.h", "sched.h", "signal.h", "spawn.h", "sys/"}, {""}},
  };
  return LIBRARIES;
}

bool startsWithAny(std::string_view text, const Prefixes& prefixes) {
  return std::any_of(prefixes.begin(), prefixes.end(),
                     [text](std::string_view prefix) { return text.starts_with(prefix); });
}

bool mayIncludeOurs(std::string_view path, std::string_view header) {
  const auto permission = std::find_if(
      ours().begin(), ours().end(), [path](const Permission& candidate) { return path.starts_with(candidate.user); });
  return permission != ours().end() && startsWithAny(header, permission->included);
}

/// The standard library's own headers have neither a folder nor an extension.
bool isStandard(std::string_view header) {
  return header.find_first_of("./") == std::string_view::npos;
}

std::string_view withoutQuotes(std::string_view header) {
  return header.substr(1, header.size() - 2);
}

bool mayIncludeLibrary(std::string_view path, std::string_view header) {
  const auto library = std::find_if(libraries().begin(), libraries().end(), [header](const Library& candidate) {
    return startsWithAny(header, candidate.headers);
  });
  return library != libraries().end() && startsWithAny(path, library->users);
}

/// `header` is as it is written: in quotes, in angle brackets, or a macro that a library gives for its header.
bool mayInclude(std::string_view path, std::string_view header) {
  if (header.starts_with('"')) {
    return mayIncludeOurs(path, withoutQuotes(header));
  }
  if (header.starts_with('<')) {
    return isStandard(withoutQuotes(header)) || mayIncludeLibrary(path, withoutQuotes(header));
  }
  return mayIncludeLibrary(path, header);
}

}  // namespace

std::vector<std::string> includeViolations(std::string_view path, std::string_view text) {
  static const std::regex INCLUDE(R"((?:^|\n)[ \t]*#[ \t]*(?:include_next|include|import)[ \t]*([^\s]+))");
  std::vector<std::string> violations;
  const std::string source(text);
  for (std::sregex_iterator found(source.begin(), source.end(), INCLUDE), end; found != end; ++found) {
    const std::string header = (*found)[1];
    if (!mayInclude(path, header)) {
      violations.push_back(std::string(path) + " includes " + header);
    }
  }
  return violations;
}

}  // namespace quobrak::house
