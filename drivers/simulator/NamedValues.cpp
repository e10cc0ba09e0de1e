#include "drivers/simulator/NamedValues.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

#include "platform/foundation/NSPredicate.h"

namespace quobrak::simulator {

namespace {

/// None where the text is not a whole number of 64 bits from its first to its last character.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t number{};
  const char* const end = text.data() + text.size();
  const auto [parsedTo, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && parsedTo == end ? std::optional(number) : std::nullopt;
}

}  // namespace

bool isValueName(std::string_view text) {
  while (true) {
    const std::size_t dot = text.find('.');
    if (!NSPredicate::isKeyPath(text.substr(0, dot))) {
      return false;
    }
    if (dot == std::string_view::npos) {
      return true;
    }
    text.remove_prefix(dot + 1);
  }
}

std::optional<std::chrono::milliseconds> durationIn(std::string_view text) {
  const std::optional<std::int64_t> number = wholeNumber(text);
  if (!number || *number < 0 || *number > std::chrono::milliseconds(std::chrono::hours(1)).count()) {
    return std::nullopt;
  }
  return std::chrono::milliseconds(*number);
}

const std::string& NamedValues::text(std::string_view name) const {
  static const std::string NEVER_SET;
  const auto found = texts_.find(name);
  return found == texts_.end() ? NEVER_SET : found->second;
}

void NamedValues::add(const std::string& name, std::int64_t amount) {
  std::int64_t sum = wholeNumber(text(name)).value_or(0);
  if (__builtin_add_overflow(sum, amount, &sum)) {
    sum = amount < 0 ? INT64_MIN : INT64_MAX;
  }
  set(name, std::to_string(sum));
}

std::chrono::milliseconds NamedValues::duration(std::string_view name) const {
  return durationIn(text(name)).value_or(std::chrono::milliseconds(0));
}

std::optional<TextTemplate> TextTemplate::parse(std::string_view text) {
  constexpr std::string_view START = "${";
  TextTemplate parsed;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find(START), text.size());
    Piece piece{.text = std::string(text.substr(0, start)), .name = {}};
    text.remove_prefix(start);
    if (!text.empty()) {
      const std::size_t end = text.find('}');
      piece.name = text.substr(START.size(), end == std::string_view::npos ? end : end - START.size());
      if (end == std::string_view::npos || !isValueName(piece.name)) {
        return std::nullopt;
      }
      text.remove_prefix(end + 1);
    }
    parsed.pieces_.push_back(std::move(piece));
  }
  return parsed;
}

std::string TextTemplate::expand(const NamedValues& values) const {
  std::string text;
  for (const Piece& piece : pieces_) {
    text += piece.text;
    if (!piece.name.empty()) {
      text += values.text(piece.name);
    }
  }
  return text;
}

}  // namespace quobrak::simulator
