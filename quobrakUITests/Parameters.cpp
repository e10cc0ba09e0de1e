#include "quobrakUITests/Parameters.h"

#include <charconv>

#include "quobrakUITests/FWKTError.h"

namespace quobrak {

namespace {

/// How the messages about one kind of argument read: before and after the field's text.
struct Wording {
  std::string_view before;
  std::string_view after;
};

[[noreturn]] void reject(std::string_view field, Wording wording) {
  throw FWKTError::fdslError(std::string(wording.before) + std::string(field) + std::string(wording.after));
}

bool isAbsent(FunctionParameters fields, std::size_t index) {
  return index >= fields.size();
}

void require(FunctionParameters fields, std::size_t index, const char* messageWhereMissing) {
  if (isAbsent(fields, index)) {
    throw FWKTError::fdslError(messageWhereMissing);
  }
}

std::int64_t integerIn(std::string_view field, Wording wording) {
  const std::optional<std::int64_t> number = parseInteger(field);
  if (!number) {
    reject(field, wording);
  }
  return *number;
}

std::int64_t integerOr(FunctionParameters fields, std::size_t index, std::int64_t defaultValue, Wording wording) {
  return isAbsent(fields, index) ? defaultValue : integerIn(fields[index], wording);
}

bool truthValueOr(FunctionParameters fields, std::size_t index, bool defaultValue, Wording wording) {
  if (isAbsent(fields, index)) {
    return defaultValue;
  }
  if (fields[index] != "true" && fields[index] != "false") {
    reject(fields[index], wording);
  }
  return fields[index] == "true";
}

}  // namespace

std::optional<std::int64_t> parseInteger(std::string_view text) {
  // std::from_chars knows "-" but not "+", and must not be given both.
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) {
      return std::nullopt;
    }
  }
  std::int64_t number{};
  const char* const end = text.data() + text.size();
  const auto [parsedTo, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || parsedTo != end) {
    return std::nullopt;
  }
  return number;
}

std::int64_t Parameters::getTimeout(FunctionParameters functionParameters, std::size_t index) {
  return integerOr(functionParameters, index, DEFAULT_TIMEOUT_WAIT, {"The timeout ", " should be an integer"});
}

std::int64_t Parameters::getDuration(FunctionParameters functionParameters, std::size_t index) {
  return integerOr(functionParameters, index, DEFAULT_DURATION_LONG_CLICK, {"The duration ", " should be an integer"});
}

std::int64_t Parameters::getPauseDuration(FunctionParameters functionParameters, std::size_t index) {
  constexpr Wording WORDING{"The pause duration ", " should be a positive integer"};
  require(functionParameters, index, "The pause duration is missing");
  const std::int64_t duration = integerIn(functionParameters[index], WORDING);
  if (duration < 0) {
    reject(functionParameters[index], WORDING);
  }
  return duration;
}

std::int64_t Parameters::getCoordinate(FunctionParameters functionParameters, std::size_t index) {
  require(functionParameters, index, "A coordinate is missing");
  return integerIn(functionParameters[index], {"The coordinate ", " should be an integer"});
}

std::int64_t Parameters::getOptionalCoordinate(FunctionParameters functionParameters, std::size_t index,
                                               std::int64_t defaultCoordinate) {
  // Host tools know the message with "duration" in it.
  return integerOr(functionParameters, index, defaultCoordinate, {"The duration ", " should be an integer"});
}

bool Parameters::getClickOnlyIfExists(FunctionParameters functionParameters) {
  constexpr std::size_t FIELD = 2;
  return truthValueOr(functionParameters, FIELD, DEFAULT_CLICK_ONLY_IF_EXISTS,
                      {"The clickOnlyIfExists parameter ", " should be true or false"});
}

std::int64_t Parameters::getPeriod(FunctionParameters functionParameters, std::size_t index) {
  return integerOr(functionParameters, index, DEFAULT_ENTER_TEXT_FREQUENCY,
                   {"The frequency ", " should be an integer"});
}

std::string Parameters::getUrl(FunctionParameters functionParameters, std::size_t index) {
  require(functionParameters, index, "The url should be given");
  return std::string(functionParameters[index]);
}

std::int64_t Parameters::getMaxSwipe(FunctionParameters functionParameters, std::size_t index) {
  return integerOr(functionParameters, index, DEFAULT_MAX_SWIPE, {"The maximum of swipes ", " should be an integer"});
}

bool Parameters::getUseBlankPage(FunctionParameters functionParameters, std::size_t index) {
  return truthValueOr(functionParameters, index, DEFAULT_USE_BLANK_PAGE,
                      {"The use of the blank page ", " should be a boolean"});
}

std::int64_t Parameters::getNthElement(FunctionParameters functionParameters, std::size_t index) {
  return integerOr(functionParameters, index, DEFAULT_NTH_ELEMENT, {"nthElement ", " should be an integer"});
}

bool Parameters::getIsEnabled(FunctionParameters functionParameters, std::size_t index) {
  return truthValueOr(functionParameters, index, DEFAULT_IS_ENABLED, {"isEnabled ", " should be an boolean"});
}

}  // namespace quobrak
