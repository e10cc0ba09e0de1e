#include "phoneserver/Arguments.h"

#include <cmath>
#include <variant>

#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

namespace {

[[noreturn]] void failMissing(std::string_view key, std::string_view expected) {
  throw WireError(WireErrorCode::invalidArgument,
                  "\"" + std::string(key) + "\" is missing; it must be " + std::string(expected));
}

[[noreturn]] void failWrong(std::string_view key, std::string_view expected) {
  throw WireError(WireErrorCode::invalidArgument, "\"" + std::string(key) + "\" must be " + std::string(expected));
}

constexpr std::string_view A_TEXT = "a text";
constexpr std::string_view A_NUMBER = "a number";

template <class Kind>
std::optional<Kind> optional(const JSONValue* value, std::string_view key, std::string_view expected) {
  if (value == nullptr) {
    return std::nullopt;
  }
  const auto* const found = std::get_if<Kind>(&value->variant());
  if (found == nullptr) {
    failWrong(key, expected);
  }
  return *found;
}

}  // namespace

const JSONValue* Arguments::member(std::string_view key) const {
  const auto found = members_.find(key);
  const bool isThere = found != members_.end() && found->second != JSONValue();
  return isThere ? &found->second : nullptr;
}

std::optional<std::string> Arguments::optionalText(std::string_view key) const {
  return optional<std::string>(member(key), key, A_TEXT);
}

std::string Arguments::text(std::string_view key) const {
  std::optional<std::string> found = optionalText(key);
  if (!found) {
    failMissing(key, A_TEXT);
  }
  return *std::move(found);
}

std::optional<double> Arguments::optionalNumber(std::string_view key) const {
  const JSONValue* const value = member(key);
  if (value == nullptr) {
    return std::nullopt;
  }
  if (const auto* const whole = std::get_if<std::int64_t>(&value->variant())) {
    return static_cast<double>(*whole);
  }
  return optional<double>(value, key, A_NUMBER);
}

double Arguments::number(std::string_view key) const {
  const std::optional<double> found = optionalNumber(key);
  if (!found) {
    failMissing(key, A_NUMBER);
  }
  return *found;
}

std::optional<bool> Arguments::optionalTruth(std::string_view key) const {
  const JSONValue* const value = member(key);
  const auto* const number = value == nullptr ? nullptr : std::get_if<std::int64_t>(&value->variant());
  if (number != nullptr && (*number == 0 || *number == 1)) {
    return *number == 1;
  }
  return optional<bool>(value, key, "true or false");
}

std::optional<JSONValue::Object> Arguments::optionalObject(std::string_view key) const {
  return optional<JSONValue::Object>(member(key), key, "an object");
}

std::optional<JSONValue::Array> Arguments::optionalArray(std::string_view key) const {
  return optional<JSONValue::Array>(member(key), key, "a list");
}

Seconds Arguments::duration(std::string_view key) const {
  const double seconds = number(key);
  if (seconds < 0) {
    failWrong(key, "a number of seconds, 0 or more");
  }
  return Seconds(seconds);
}

Point Arguments::point(std::string_view x, std::string_view y) const {
  return {number(x), number(y)};
}

std::optional<Point> Arguments::optionalPoint(std::string_view x, std::string_view y) const {
  return has(x) || has(y) ? std::optional(point(x, y)) : std::nullopt;
}

std::string Arguments::typedText() const {
  const std::string_view key = has("value") ? "value" : "text";
  const JSONValue* const value = member(key);
  constexpr std::string_view EXPECTED = "a text or a list of texts";
  if (value == nullptr) {
    failMissing("value", EXPECTED);
  }
  if (const auto* const text = std::get_if<std::string>(&value->variant())) {
    return *text;
  }
  const std::optional<JSONValue::Array> parts = optional<JSONValue::Array>(value, key, EXPECTED);
  std::string joined;
  for (const JSONValue& part : *parts) {
    joined += *optional<std::string>(&part, key, EXPECTED);
  }
  return joined;
}

}  // namespace quobrak::phoneserver
