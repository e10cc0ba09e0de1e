#include "platform/foundation/JSON.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#if __has_include(<simdjson.h>)
#include <simdjson.h>
#endif

namespace quobrak {

namespace {

constexpr int NUMBER_OVERFLOW_ID = 406;

[[noreturn]] void failAt(const std::string& place, const std::string& reason) {
  throw DecodingError(place, reason);
}

/// What the parser says of a text that is no JSON, besides the place.
struct ParserWords {
  /// Whether what it read was no token, so that it stopped within it, and not one of the wrong kind.
  bool isAboutCharacters = false;
  /// What is wrong with the characters of a text or a number, in its words; empty where that is not it.
  std::string_view ofCharacters;
  /// What would have been right, in our words; empty where the parser does not say.
  std::string_view expected;
};

/// The parser has no more than one sentence for all of it: "... - invalid literal; last read: '[nul]'; expected ']'".
ParserWords wordsOf(const nlohmann::json::exception& error) {
  constexpr std::string_view A_VALUE =
      "a value: a text in double quotes, a number, true, false, null, an array or an object";
  constexpr std::pair<std::string_view, std::string_view> EXPECTED[] = {
      {"; expected '[', '{', or a literal", A_VALUE},
      {"; expected string literal", "a key in double quotes"},
      {"; expected ':'", "':'"},
      {"; expected ']'", "',' or ']'"},
      {"; expected '}'", "',' or '}'"},
      {"; expected end of input", "the end of the text"},
  };
  constexpr std::string_view DETAILS = " - ";
  constexpr std::string_view NO_LITERAL = "invalid literal";
  const std::string_view text = error.what();
  const std::size_t start = text.find(DETAILS) + DETAILS.size();
  const std::size_t quotation = text.find("; last read: '");
  ParserWords words;
  if (quotation != std::string_view::npos) {
    words.isAboutCharacters = true;
    words.ofCharacters = text.substr(start, quotation - start);
    if (words.ofCharacters != NO_LITERAL) {
      return words;
    }
    words.ofCharacters = {};
    words.expected = A_VALUE;
  }
  for (const auto& [theirs, ours] : EXPECTED) {
    words.expected = text.ends_with(theirs) ? ours : words.expected;
  }
  return words;
}

[[noreturn]] void failAtOffset(std::string_view text, std::size_t offset, ParserWords words) {
  std::string reason = offset < text.size() ? "unexpected character" : "the text ends too early";
  if (!words.ofCharacters.empty()) {
    reason.append(": ").append(words.ofCharacters);
  }
  if (!words.expected.empty()) {
    reason.append("; expected ").append(words.expected);
  }
  throw DecodingError(placeInText(text, offset), reason);
}

/// Where the token begins that ends before `end`: a text or a number of that length, a literal, or one character.
std::size_t startOfToken(std::string_view text, std::size_t end, std::size_t length) {
  const char last = text[end - 1];
  if (last == '"' || (last >= '0' && last <= '9')) {
    return end - length;
  }
  std::size_t start = end - 1;
  while (last >= 'a' && last <= 'z' && start > 0 && text[start - 1] >= 'a' && text[start - 1] <= 'z') {
    --start;
  }
  return start;
}

// Builds the value from the parser's events. The parser keeps its own stack, so nesting costs no stack of the thread.
class ValueBuilder final : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit ValueBuilder(std::string_view text) : text_(text) {}

  JSONValue takeResult() { return std::move(result_); }

  bool null() override { return add({}); }
  bool boolean(bool value) override { return add(value); }
  bool number_integer(number_integer_t value) override { return add(value); }

  bool number_unsigned(number_unsigned_t value) override {
    if (value > static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max())) {
      failNumberTooLarge();
    }
    return add(static_cast<std::int64_t>(value));
  }

  // An integer beyond 64 bits arrives here as well; its text tells it from a floating-point number.
  bool number_float(number_float_t value, const string_t& digits) override {
    if (digits.find_first_of(".eE") == string_t::npos) {
      failNumberTooLarge();
    }
    return add(value);
  }

  bool string(string_t& value) override { return add(std::move(value)); }

  bool binary(binary_t&) override { throw std::logic_error("JSON texts hold no binary values"); }

  bool start_object(std::size_t) override { return open<JSONValue::Object>(); }

  bool key(string_t& value) override {
    open_.back().key = std::move(value);
    return true;
  }

  bool end_object() override { return close<JSONValue::Object>(); }
  bool start_array(std::size_t) override { return open<JSONValue::Array>(); }
  bool end_array() override { return close<JSONValue::Array>(); }

  // `position` is one past the last character that the parser has read.
  bool parse_error(std::size_t position, const std::string& token, const nlohmann::json::exception& error) override {
    if (error.id == NUMBER_OVERFLOW_ID) {
      failNumberTooLarge();
    }
    const ParserWords words = wordsOf(error);
    const bool isWholeToken = !words.isAboutCharacters && position <= text_.size();
    failAtOffset(text_, isWholeToken ? startOfToken(text_, position, token.size()) : position - 1, words);
  }

 private:
  // An array or object whose end has not been read yet.
  struct Container {
    std::variant<JSONValue::Array, JSONValue::Object> items;
    std::string key;  // of the member that comes next, in an object
  };

  bool add(JSONValue value) {
    if (open_.empty()) {
      result_ = std::move(value);
    } else if (auto* array = std::get_if<JSONValue::Array>(&open_.back().items)) {
      array->push_back(std::move(value));
    } else {
      std::get<JSONValue::Object>(open_.back().items).insert_or_assign(open_.back().key, std::move(value));
    }
    return true;
  }

  template <typename Items>
  bool open() {
    if (open_.size() == JSONDecoder::MAXIMUM_NESTING) {
      failAt("", "nested deeper than " + std::to_string(JSONDecoder::MAXIMUM_NESTING) + " levels");
    }
    open_.emplace_back().items.template emplace<Items>();
    return true;
  }

  template <typename Items>
  bool close() {
    Items items = std::get<Items>(std::move(open_.back().items));
    open_.pop_back();
    return add(std::move(items));
  }

  [[noreturn]] void failNumberTooLarge() const {
    std::string place;
    for (const Container& container : open_) {
      const auto* array = std::get_if<JSONValue::Array>(&container.items);
      place = array != nullptr ? keyPathOfElement(place, array->size()) : keyPathOfMember(place, container.key);
    }
    failAt(place, "the number is too large");
  }

  std::string_view text_;
  std::vector<Container> open_;
  JSONValue result_;
};

#if __has_include(<simdjson.h>)

/// The value of an element that the fast parser has read; none for a number that we have no place for.
std::optional<JSONValue> valueOf(const simdjson::dom::element& element);

std::optional<JSONValue> arrayOf(const simdjson::dom::array& elements) {
  JSONValue::Array array;
  array.reserve(elements.size());
  for (const simdjson::dom::element element : elements) {
    std::optional<JSONValue> value = valueOf(element);
    if (!value) {
      return std::nullopt;
    }
    array.push_back(*std::move(value));
  }
  return array;
}

std::optional<JSONValue> objectOf(const simdjson::dom::object& members) {
  JSONValue::Object object;
  for (const simdjson::dom::key_value_pair& member : members) {
    std::optional<JSONValue> value = valueOf(member.value);
    if (!value) {
      return std::nullopt;
    }
    object.insert_or_assign(std::string(member.key), *std::move(value));
  }
  return object;
}

std::optional<JSONValue> valueOf(const simdjson::dom::element& element) {
  switch (element.type()) {
    case simdjson::dom::element_type::ARRAY:
      return arrayOf(element.get_array().value_unsafe());
    case simdjson::dom::element_type::OBJECT:
      return objectOf(element.get_object().value_unsafe());
    case simdjson::dom::element_type::INT64:
      return element.get_int64().value_unsafe();
    case simdjson::dom::element_type::UINT64:
      return std::nullopt;
    case simdjson::dom::element_type::DOUBLE:
      return element.get_double().value_unsafe();
    case simdjson::dom::element_type::STRING:
      return element.get_string().value_unsafe();
    case simdjson::dom::element_type::BOOL:
      return element.get_bool().value_unsafe();
    case simdjson::dom::element_type::NULL_VALUE:
      return JSONValue();
  }
  return std::nullopt;
}

/// What the text holds; none where there is anything wrong with it, or too much of it. The other parser tells what and
/// where, and is slower: a screenshot comes as a text of megabytes, and a look-up falls into what is measured.
std::optional<JSONValue> quicklyDecoded(std::string_view text) {
  // Kept, because most texts are small and it is not: but not the room that a screenshot took.
  thread_local simdjson::dom::parser parser;
  constexpr std::size_t MOST_KEPT = 1 << 20;
  if (parser.capacity() > MOST_KEPT) {
    parser = simdjson::dom::parser();
  }
  if (parser.capacity() < text.size() &&
      parser.allocate(text.size(), JSONDecoder::MAXIMUM_NESTING) != simdjson::SUCCESS) {
    return std::nullopt;
  }
  simdjson::dom::element root;
  if (parser.parse(text.data(), text.size()).get(root) != simdjson::SUCCESS) {
    return std::nullopt;
  }
  return valueOf(root);
}

#else

/// Where there is no fast parser, the other one does it all.
std::optional<JSONValue> quicklyDecoded(std::string_view) {
  return std::nullopt;
}

#endif

nlohmann::json writable(const JSONValue& value);

struct Writable {
  nlohmann::json operator()(double value) const {
    if (!std::isfinite(value)) {
      throw std::runtime_error("JSON has no number that is not finite.");
    }
    return value;
  }

  nlohmann::json operator()(const JSONValue::Array& array) const {
    nlohmann::json result = nlohmann::json::array();
    for (const JSONValue& element : array) {
      result.push_back(writable(element));
    }
    return result;
  }

  nlohmann::json operator()(const JSONValue::Object& object) const {
    nlohmann::json result = nlohmann::json::object();
    for (const auto& [key, member] : object) {
      result[key] = writable(member);
    }
    return result;
  }

  template <typename Simple>
  nlohmann::json operator()(const Simple& value) const {
    return value;
  }
};

nlohmann::json writable(const JSONValue& value) {
  return std::visit(Writable(), value.variant());
}

std::string compactText(const nlohmann::json& document) {
  try {
    return document.dump();
  } catch (const nlohmann::json::type_error&) {
    throw std::runtime_error("A text to be written as JSON is not UTF-8.");
  }
}

std::string_view kindOf(const JSONValue& value) {
  struct Kind {
    std::string_view operator()(std::nullptr_t) const { return "null"; }
    std::string_view operator()(bool) const { return "a truth value"; }
    std::string_view operator()(std::int64_t) const { return "a number"; }
    std::string_view operator()(double) const { return "a number"; }
    std::string_view operator()(const std::string&) const { return "a text"; }
    std::string_view operator()(const JSONValue::Array&) const { return "an array"; }
    std::string_view operator()(const JSONValue::Object&) const { return "an object"; }
  };
  return std::visit(Kind(), value.variant());
}

bool isWholeNumber(double number) {
  constexpr double LIMIT = 9223372036854775808.0;  // 2 to the 63rd
  return number >= -LIMIT && number < LIMIT && std::trunc(number) == number;
}

/// A key that is empty or has control characters is shown as JSON writes it, in quotes: an empty step would be none,
/// and the text of an error ends at a NUL.
std::string shownKey(std::string_view key) {
  const bool isPlain = !key.empty() && std::none_of(key.begin(), key.end(),
                                                    [](char byte) { return static_cast<unsigned char>(byte) < ' '; });
  return isPlain ? std::string(key) : nlohmann::json(key).dump();
}

std::string textOf(const DecodingError::Place& place) {
  if (const auto* const inText = std::get_if<TextPlace>(&place)) {
    return "line " + std::to_string(inText->line) + ", column " + std::to_string(inText->column);
  }
  const auto& keyPath = std::get<std::string>(place);
  return keyPath.empty() ? "the document" : keyPath;
}

}  // namespace

DecodingError::DecodingError(Place place, const std::string& reason)
    : std::runtime_error(textOf(place) + ": " + reason), place_(std::move(place)), reason_(reason) {}

std::string keyPathOfMember(const std::string& place, std::string_view key) {
  const std::string step = shownKey(key);
  return place.empty() ? step : place + '.' + step;
}

std::string keyPathOfElement(const std::string& place, std::size_t index) {
  return place + '[' + std::to_string(index) + ']';
}

std::string JSONEncoder::encode(const JSONValue& value) {
  const std::string text = compactText(writable(value));
  // Outside of texts JSON knows no "/", so each one is a character of a text.
  std::string result;
  result.reserve(text.size());
  for (const char character : text) {
    if (character == '/') {
      result += '\\';
    }
    result += character;
  }
  return result;
}

JSONValue JSONDecoder::decode(std::string_view text) {
  if (std::optional<JSONValue> value = quicklyDecoded(text)) {
    return *std::move(value);
  }
  ValueBuilder builder(text);
  nlohmann::json::sax_parse(text, &builder);
  // The parser takes a NUL after the value for the end of the text.
  if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
    failAtOffset(text, nul, {.isAboutCharacters = true, .ofCharacters = {}, .expected = "the end of the text"});
  }
  return builder.takeResult();
}

JSONReader JSONReader::member(std::string_view key) const {
  const std::optional<JSONReader> found = optionalMember(key);
  if (!found) {
    failAt(keyPathOfMember(place_, key), "missing");
  }
  return *found;
}

std::optional<JSONReader> JSONReader::optionalMember(std::string_view key) const {
  const auto* object = std::get_if<JSONValue::Object>(&value_->variant());
  if (object == nullptr) {
    failExpecting("an object");
  }
  const auto found = object->find(key);
  if (found == object->end()) {
    return std::nullopt;
  }
  return JSONReader(found->second, keyPathOfMember(place_, key));
}

std::vector<std::pair<std::string, JSONReader>> JSONReader::members() const {
  const auto* object = std::get_if<JSONValue::Object>(&value_->variant());
  if (object == nullptr) {
    failExpecting("an object");
  }
  std::vector<std::pair<std::string, JSONReader>> result;
  for (const auto& [key, member] : *object) {
    result.emplace_back(key, JSONReader(member, keyPathOfMember(place_, key)));
  }
  return result;
}

std::vector<JSONReader> JSONReader::elements() const {
  const auto* array = std::get_if<JSONValue::Array>(&value_->variant());
  if (array == nullptr) {
    failExpecting("an array");
  }
  std::vector<JSONReader> result;
  for (const JSONValue& element : *array) {
    result.push_back(JSONReader(element, keyPathOfElement(place_, result.size())));
  }
  return result;
}

std::int64_t JSONReader::integer() const {
  if (const auto* integer = std::get_if<std::int64_t>(&value_->variant())) {
    return *integer;
  }
  const auto* number = std::get_if<double>(&value_->variant());
  if (number == nullptr || !isWholeNumber(*number)) {
    failExpecting("a whole number");
  }
  return static_cast<std::int64_t>(*number);
}

double JSONReader::number() const {
  if (const auto* integer = std::get_if<std::int64_t>(&value_->variant())) {
    return static_cast<double>(*integer);
  }
  const auto* number = std::get_if<double>(&value_->variant());
  if (number == nullptr) {
    failExpecting("a number");
  }
  return *number;
}

std::string JSONReader::text() const {
  const auto* text = std::get_if<std::string>(&value_->variant());
  if (text == nullptr) {
    failExpecting("a text");
  }
  return *text;
}

bool JSONReader::truthValue() const {
  const auto* truth = std::get_if<bool>(&value_->variant());
  if (truth == nullptr) {
    failExpecting("true or false");
  }
  return *truth;
}

bool JSONReader::isNull() const {
  return std::holds_alternative<std::nullptr_t>(value_->variant());
}

bool JSONReader::isText() const {
  return std::holds_alternative<std::string>(value_->variant());
}

bool JSONReader::isObject() const {
  return std::holds_alternative<JSONValue::Object>(value_->variant());
}

void JSONReader::fail(const std::string& reason) const {
  failAt(place_, reason);
}

void JSONReader::failExpecting(std::string_view expected) const {
  failAt(place_, "expected " + std::string(expected) + ", found " + std::string(kindOf(*value_)));
}

}  // namespace quobrak
