#include "manual/ArgumentFailures.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "manual/Markdown.h"
#include "quobrakUITests/FWKTError.h"

namespace quobrak::manual {

namespace {

/// What the argument says where the line ends before its field, or has `content` in it; none where it takes that.
std::optional<std::string> messageFor(const ArgumentInfo& argument, std::optional<std::string_view> content) {
  std::vector<std::string_view> fields(argument.field);
  if (content) {
    fields.push_back(*content);
  }
  try {
    argument.check(fields);
    return std::nullopt;
  } catch (const FWKTError& error) {
    return error.message();
  }
}

std::string whenMissing(const ArgumentInfo& argument) {
  return inCode(argument.label) + " is left out";
}

std::string whenMalformed(const ArgumentInfo& argument) {
  if (argument.unit == Unit::truthValue) {
    return inCode(argument.label) + " is neither `true` nor `false`";
  }
  const bool takesNegativeNumbers = !messageFor(argument, "-1");
  return inCode(argument.label) + " is not a whole number" + (takesNegativeNumbers ? "" : ", or below 0");
}

/// One message may be that of several arguments.
void add(std::vector<Failure>& failures, const Failure& failure) {
  const auto known = std::find_if(failures.begin(), failures.end(),
                                  [&failure](const Failure& other) { return other.message == failure.message; });
  if (known == failures.end()) {
    failures.push_back(failure);
  } else {
    known->when += ", or " + failure.when;
  }
}

}  // namespace

std::vector<Failure> argumentErrors(const CommandRow& row) {
  std::vector<Failure> errors;
  for (const ArgumentInfo& argument : row.arguments()) {
    if (argument.reading == Reading::direct) {
      continue;
    }
    if (const auto message = messageFor(argument, std::nullopt)) {
      add(errors, {.message = *message, .when = whenMissing(argument)});
    }
    const std::string placeholder = "<" + std::string(argument.label) + ">";
    if (const auto message = messageFor(argument, placeholder)) {
      add(errors, {.message = *message, .when = whenMalformed(argument)});
    }
  }
  return errors;
}

std::vector<Failure> argumentStops(const CommandRow& row) {
  std::vector<Failure> stops;
  for (const ArgumentInfo& argument : row.arguments()) {
    if (argument.reading == Reading::direct) {
      stops.push_back({.message = absentFieldMessage(argument), .when = whenMissing(argument)});
    }
  }
  return stops;
}

}  // namespace quobrak::manual
