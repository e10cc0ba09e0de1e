#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/foundation/Data.h"
#include "platform/foundation/TextPlace.h"

namespace quobrak {

/// JSON that cannot be read: says what is wrong and where, as a key path such as "measures[0][1].time" or, for text
/// that is no JSON, as line and column (from 1).
class DecodingError : public std::runtime_error {
 public:
  /// A key path, which is empty for the document itself, or a place in the text.
  using Place = std::variant<std::string, TextPlace>;

  DecodingError(Place place, const std::string& reason);

  const Place& place() const { return place_; }
  /// What is wrong, without the place.
  const std::string& reason() const { return reason_; }

 private:
  Place place_;
  std::string reason_;
};

/// The key path of a member of the object, or of an element of the array, that has the key path `place`. An empty key
/// is written as "".
std::string keyPathOfMember(const std::string& place, std::string_view key);
std::string keyPathOfElement(const std::string& place, std::size_t index);

/// A JSON value in memory. The keys of an object are in ascending byte order.
class JSONValue {
 public:
  using Array = std::vector<JSONValue>;
  using Object = std::map<std::string, JSONValue, std::less<>>;
  using Variant = std::variant<std::nullptr_t, bool, std::int64_t, double, std::string, Array, Object>;

  JSONValue() : value_(nullptr) {}
  JSONValue(bool value) : value_(value) {}
  JSONValue(int value) : value_(std::int64_t{value}) {}
  JSONValue(std::int64_t value) : value_(value) {}
  JSONValue(double value) : value_(value) {}
  JSONValue(const char* value) : value_(std::string(value)) {}
  JSONValue(std::string_view value) : value_(std::string(value)) {}
  JSONValue(std::string value) : value_(std::move(value)) {}
  JSONValue(Array value) : value_(std::move(value)) {}
  JSONValue(Object value) : value_(std::move(value)) {}

  const Variant& variant() const& { return value_; }
  Variant&& variant() && { return std::move(value_); }

  bool operator==(const JSONValue&) const = default;

 private:
  Variant value_;
};

/// The one writer of JSON: compact, keys ascending by bytes at every level, "/" written as "\/".
class JSONEncoder {
 public:
  JSONEncoder() = delete;

  /// Throws `std::runtime_error` where a text is not UTF-8 or a number is not finite.
  static std::string encode(const JSONValue& value);
};

class JSONDecoder {
 public:
  JSONDecoder() = delete;

  /// How many arrays and objects may lie in each other: comparing, encoding and releasing a value recurse, so its depth
  /// has to fit the stack.
  static constexpr std::size_t MAXIMUM_NESTING = 500;

  /// Throws `DecodingError` where the text is not one JSON value, is nested deeper, or holds a number that is too
  /// large: an integer beyond 64 bits, another one beyond a double.
  static JSONValue decode(std::string_view text);
};

/// A place in a decoded document, for reading records out of it: every mismatch is a `DecodingError` that names the
/// place, what was expected there and what stands there.
class JSONReader {
 public:
  /// The document must outlive the reader.
  explicit JSONReader(const JSONValue& document) : value_(&document) {}

  /// The member of an object; a missing key is an error.
  JSONReader member(std::string_view key) const;
  /// The member of an object; none where the key is missing.
  std::optional<JSONReader> optionalMember(std::string_view key) const;
  /// The members of an object, with their keys.
  std::vector<std::pair<std::string, JSONReader>> members() const;
  /// The elements of an array.
  std::vector<JSONReader> elements() const;
  /// A whole number of signed 64 bits; 2.0 is one.
  std::int64_t integer() const;
  double number() const;
  std::string text() const;
  bool truthValue() const;
  bool isNull() const;
  bool isText() const;
  bool isObject() const;

  /// Empty for the document itself.
  const std::string& keyPath() const { return place_; }

  /// Throws a `DecodingError` that names this place and the reason.
  [[noreturn]] void fail(const std::string& reason) const;

 private:
  JSONReader(const JSONValue& value, std::string place) : value_(&value), place_(std::move(place)) {}
  [[noreturn]] void failExpecting(std::string_view expected) const;

  const JSONValue* value_;
  std::string place_;
};

}  // namespace quobrak
