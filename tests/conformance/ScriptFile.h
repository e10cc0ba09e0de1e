#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/NSPredicate.h"

namespace quobrak::conformance {

/// A script's comments do not say, or not clearly, what is expected of it: names the file, the line and what would be
/// right.
class ScriptFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a script is expected to do, in one respect.
struct Expectation {
  /// Where it stands in the script, from 1.
  std::size_t line;
  /// "status", "touched", ...: see tests/scripts/README.md.
  std::string key;
  std::string text;
};

/// How many elements of a screen fulfil a predicate.
struct ScreenExpectation {
  NSPredicate predicate;
  /// None for one or more.
  std::optional<std::size_t> count;
};

/// A command line of a script.
struct CommandLine {
  /// From 1.
  std::size_t line;
  std::string command;
};

/// A script that says in its comments what it does, and so is a test.
struct ScriptFile {
  std::string name;
  std::string text;
  /// The folder of the phone that it runs on, or "built-in".
  std::string phone;
  /// Named values that the phone begins with in place of its own, and their texts.
  std::map<std::string, std::string> values;
  /// The drivers that it is meant for; none named means all.
  std::vector<std::string> drivers;
  std::vector<Expectation> expectations;
  std::vector<CommandLine> commands;

  bool isFor(std::string_view driver) const;

  /// What the process is expected to stop with, as `fatalError` writes it; none where it is not expected to stop.
  std::optional<std::string> fatalStop() const;

  /// The command that the script is expected to fail or stop at; none where it is expected to succeed.
  std::optional<std::string> failingCommand() const;
};

/// Reads the comments of a script. Throws `ScriptFileError`.
ScriptFile readScriptFile(const std::string& name, const std::string& text);

/// Reads the text of an expectation "screen": a predicate that at least one element fulfils, "not " and one that none
/// does, or "3 of " and one that so many do. Throws `PredicateFormatError`, or an error about the predicate's pattern
/// or attribute.
ScreenExpectation readScreenExpectation(std::string_view text);

}  // namespace quobrak::conformance
