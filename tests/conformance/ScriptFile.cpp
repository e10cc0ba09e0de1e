#include "tests/conformance/ScriptFile.h"

#include <algorithm>
#include <array>
#include <regex>

#include "drivers/simulator/ElementAttributes.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/ScriptLines.h"

namespace quobrak::conformance {

namespace {

constexpr std::array<std::string_view, 7> KEYS{"status", "touched", "screen", "elapsed", "volume", "steps", "pictures"};
constexpr std::array<std::string_view, 4> DRIVERS{"simulator", "wda", "appium", "xctest"};
constexpr std::string_view FATAL = "fatal: ";
constexpr std::string_view FAILED = "failed: ";

template <class Names>
bool isOneOf(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

template <class Names>
std::string listed(const Names& names) {
  std::string text;
  for (const std::string_view name : names) {
    text += (text.empty() ? "" : ", ") + std::string(name);
  }
  return text;
}

/// Whether a comment means to say something to the test. What begins like that must not pass for prose because of a
/// slip of the pen.
bool isForTheTest(const std::string& comment) {
  static const std::regex BEGINNING("^(phone\\b|value\\b|driver|expect)", std::regex::icase);
  return std::regex_search(comment, BEGINNING);
}

class ScriptFileReader {
 public:
  ScriptFileReader(const std::string& name, const std::string& text)
      : file_{.name = name,
              .text = text,
              .phone = "phone",
              .values = {},
              .drivers = {},
              .expectations = {},
              .commands = {}} {}

  ScriptFile read() && {
    ScriptLines lines(file_.text);
    for (line_ = 1; const auto raw = lines.next(); ++line_) {
      const std::string_view line = trimmedBlanks(*raw);
      if (line.starts_with('#')) {
        readComment(std::string(trimmedBlanks(line.substr(1))));
      } else if (!line.empty()) {
        std::vector<std::string_view> fields;
        splitAtCommas(line, fields);
        file_.commands.push_back({line_, std::string(fields[0])});
      }
    }
    requireWhole();
    return std::move(file_);
  }

 private:
  [[noreturn]] void fail(const std::string& reason) const { throw ScriptFileError(file_.name + ": " + reason); }
  [[noreturn]] void failHere(const std::string& reason) const { fail("line " + std::to_string(line_) + ": " + reason); }

  void readComment(const std::string& comment) {
    static const std::regex EXPECTATION("^expect ([a-z]+): (.+)$");
    static const std::regex PHONE("^phone: (\\S+)$");
    static const std::regex VALUE("^value ([A-Za-z0-9_.]+):(?: (.+))?$");
    static const std::regex DRIVERS_AND_REASON("^drivers: ([a-z, ]+) \\((.+)\\)$");
    std::smatch parts;
    if (std::regex_match(comment, parts, EXPECTATION)) {
      addExpectation({line_, parts[1], parts[2]});
    } else if (std::regex_match(comment, parts, PHONE)) {
      file_.phone = parts[1];
    } else if (std::regex_match(comment, parts, VALUE)) {
      addValue(parts[1], parts[2]);
    } else if (std::regex_match(comment, parts, DRIVERS_AND_REASON)) {
      readDrivers(parts[1]);
    } else if (isForTheTest(comment)) {
      failHere(
          "\"" + comment +
          "\" is none of \"expect KEY: TEXT\", \"phone: FOLDER\", \"value NAME: TEXT\" and \"drivers: A, B (REASON)\"");
    }
  }

  void addValue(const std::string& name, const std::string& text) {
    if (!file_.values.emplace(name, text).second) {
      failHere("the value \"" + name + "\" is given a second time");
    }
  }

  void addExpectation(Expectation expectation) {
    if (!isOneOf(KEYS, expectation.key)) {
      failHere("\"" + expectation.key + "\" cannot be expected; what can is " + listed(KEYS));
    }
    if (expectation.key != "screen" && has(expectation.key)) {
      failHere("\"" + expectation.key + "\" is expected a second time");
    }
    if (expectation.key == "screen") {
      requireReadable(expectation.text);
    }
    file_.expectations.push_back(std::move(expectation));
  }

  void requireReadable(const std::string& screen) const {
    try {
      readScreenExpectation(screen);
    } catch (const std::runtime_error& error) {
      failHere(std::string("the predicate cannot be used: ") + error.what());
    }
  }

  void readDrivers(const std::string& list) {
    std::vector<std::string_view> names;
    splitAtCommas(list, names);
    for (const std::string_view name : names) {
      const std::string driver(trimmedBlanks(name));
      if (!isOneOf(DRIVERS, driver)) {
        failHere("\"" + driver + "\" is no driver; the drivers are " + listed(DRIVERS));
      }
      file_.drivers.push_back(driver);
    }
  }

  bool has(std::string_view key) const {
    return std::any_of(file_.expectations.begin(), file_.expectations.end(),
                       [key](const Expectation& expectation) { return expectation.key == key; });
  }

  /// A status alone could be right by accident, so every script says what it touches. A process that has stopped can be
  /// asked nothing more.
  void requireWhole() const {
    if (!has("status")) {
      fail("no status is expected; add \"# expect status: success\", \"failed: MESSAGE\" or \"fatal: MESSAGE\"");
    }
    if (file_.fatalStop()) {
      if (file_.expectations.size() > 1) {
        fail("beside a fatal stop nothing else can be expected");
      }
    } else if (!has("touched")) {
      fail("it is not said what is touched; add \"# expect touched: A, B\" or \"nothing\"");
    }
  }

  ScriptFile file_;
  std::size_t line_ = 0;
};

const std::string& statusOf(const ScriptFile& file) {
  return std::find_if(file.expectations.begin(), file.expectations.end(),
                      [](const Expectation& expectation) { return expectation.key == "status"; })
      ->text;
}

/// The number of the line that a failure or a stop names; none where it names none.
std::optional<std::size_t> lineNamedIn(const std::string& status) {
  static const std::regex LINE("\\((?:line: (\\d+)\\)\\. Cause: |line (\\d+): )");
  std::smatch number;
  if (!std::regex_search(status, number, LINE)) {
    return std::nullopt;
  }
  return std::stoul(number[1].matched ? number[1] : number[2]);
}

}  // namespace

bool ScriptFile::isFor(std::string_view driver) const {
  return drivers.empty() || isOneOf(drivers, driver);
}

std::optional<std::string> ScriptFile::fatalStop() const {
  const std::string& status = statusOf(*this);
  return status.starts_with(FATAL) ? std::optional(status.substr(FATAL.size())) : std::nullopt;
}

std::optional<std::string> ScriptFile::failingCommand() const {
  const std::string& status = statusOf(*this);
  if (commands.empty() || !(status.starts_with(FAILED) || fatalStop())) {
    return std::nullopt;
  }
  // Where the reason is one of another kind, no line is named: then the last command is meant.
  const std::size_t line = lineNamedIn(status).value_or(commands.back().line);
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [line](const CommandLine& command) { return command.line == line; });
  return found == commands.end() ? std::nullopt : std::optional(found->command);
}

ScriptFile readScriptFile(const std::string& name, const std::string& text) {
  return ScriptFileReader(name, text).read();
}

ScreenExpectation readScreenExpectation(std::string_view text) {
  static const std::regex COUNTED("^(?:(not)|(\\d+) of) (.+)$");
  const std::string written(text);
  std::smatch parts;
  std::optional<std::size_t> count;
  std::string format = written;
  if (std::regex_match(written, parts, COUNTED)) {
    count = parts[1].matched ? 0 : std::stoul(parts[2]);
    format = parts[3];
  }
  const NSPredicate predicate(format);
  simulator::requireKnownAttributes(predicate);
  const PredicateEvaluator compiles(predicate);
  return {.predicate = predicate, .count = count};
}

}  // namespace quobrak::conformance
