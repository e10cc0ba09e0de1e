#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/Clock.h"
#include "platform/foundation/JSON.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::phoneserver {

/// The arguments in a request's body, an object. A member that is null is as good as one that is missing. What is
/// missing or of the wrong kind raises `WireError` "invalid argument".
class Arguments {
 public:
  Arguments() = default;
  explicit Arguments(JSONValue::Object members) : members_(std::move(members)) {}

  const JSONValue::Object& members() const { return members_; }
  bool has(std::string_view key) const { return member(key) != nullptr; }

  std::string text(std::string_view key) const;
  std::optional<std::string> optionalText(std::string_view key) const;
  double number(std::string_view key) const;
  std::optional<double> optionalNumber(std::string_view key) const;
  /// Truth values are also understood as the numbers 0 and 1.
  std::optional<bool> optionalTruth(std::string_view key) const;
  std::optional<JSONValue::Object> optionalObject(std::string_view key) const;
  std::optional<JSONValue::Array> optionalArray(std::string_view key) const;

  /// Seconds, not negative.
  Seconds duration(std::string_view key) const;
  /// The numbers of these two members.
  Point point(std::string_view x, std::string_view y) const;
  /// None where both are missing; one of them alone is an error.
  std::optional<Point> optionalPoint(std::string_view x, std::string_view y) const;
  /// The text in `value` or `text`, which is a text or a list of texts.
  std::string typedText() const;

 private:
  const JSONValue* member(std::string_view key) const;

  JSONValue::Object members_;
};

}  // namespace quobrak::phoneserver
