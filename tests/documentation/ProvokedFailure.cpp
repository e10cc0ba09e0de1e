#include "tests/documentation/ProvokedFailure.h"

#include <algorithm>
#include <regex>

#include "quobrakUITests/Fields.h"
#include "quobrakUITests/Replacing.h"

namespace quobrak::documentation {

namespace {

/// A text of any length, in words whose arguments have been put in.
constexpr std::string_view ANYTHING = "<label>";

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string_view> fields;
  splitAtCommas(line, fields);
  return {fields.begin(), fields.end()};
}

const std::string& statusOf(const conformance::ScriptFile& script) {
  return std::find_if(script.expectations.begin(), script.expectations.end(),
                      [](const conformance::Expectation& expectation) { return expectation.key == "status"; })
      ->text;
}

std::string withArguments(std::string_view words, const ProvokedFailure& failure, const CommandRow& row) {
  std::string message(words);
  for (const ArgumentInfo& argument : row.arguments()) {
    if (argument.field < failure.fields.size()) {
      message = replacingOccurrences(message, "<" + std::string(argument.label) + ">", failure.fields[argument.field]);
    }
  }
  return message;
}

}  // namespace

std::optional<ProvokedFailure> failureProvokedBy(const conformance::ScriptFile& script) {
  static const std::regex ERROR(R"(failed: Error on line (.*) \(line: \d+\)\. Cause: (.*))");
  static const std::regex STOP(R"(fatal: (.*) \(line \d+: (.*)\))");
  static const std::string FAILED = "failed: ";
  const std::string& status = statusOf(script);
  std::smatch parts;
  if (std::regex_match(status, parts, ERROR)) {
    const std::vector<std::string> fields = fieldsOf(parts[1]);
    return ProvokedFailure{
        .kind = ProvokedFailure::Kind::error, .command = fields[0], .fields = fields, .message = parts[2]};
  }
  if (std::regex_match(status, parts, STOP)) {
    const std::vector<std::string> fields = fieldsOf(parts[2]);
    return ProvokedFailure{
        .kind = ProvokedFailure::Kind::stop, .command = fields[0], .fields = fields, .message = parts[1]};
  }
  if (const auto command = script.failingCommand()) {
    return ProvokedFailure{.kind = ProvokedFailure::Kind::error,
                           .command = *command,
                           .fields = {},
                           .message = status.substr(FAILED.size())};
  }
  return std::nullopt;
}

bool fits(std::string_view words, const ProvokedFailure& failure, const CommandRow& row) {
  const std::string expected = withArguments(words, failure, row);
  const std::size_t gap = expected.find(ANYTHING);
  if (gap == std::string::npos) {
    return failure.message == expected;
  }
  const std::string before = expected.substr(0, gap);
  const std::string after = expected.substr(gap + ANYTHING.size());
  return failure.message.size() > before.size() + after.size() && failure.message.starts_with(before) &&
         failure.message.ends_with(after);
}

}  // namespace quobrak::documentation
