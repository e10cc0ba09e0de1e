#include "phoneserver/ElementIds.h"

#include <charconv>

namespace quobrak::phoneserver {

namespace {

// An id looks like those of phones: a UUID, which begins with the number.
constexpr std::size_t DIGITS = 16;
constexpr std::string_view ENDING = "-0000-000000000000";
constexpr int HEXADECIMAL = 16;

std::string idFor(std::uint64_t number) {
  constexpr std::string_view FIGURES = "0123456789ABCDEF";
  std::string digits(DIGITS, '0');
  for (std::size_t place = DIGITS; place > 0; --place) {
    digits[place - 1] = FIGURES[number % HEXADECIMAL];
    number /= HEXADECIMAL;
  }
  return digits.substr(0, 8) + '-' + digits.substr(8, 4) + '-' + digits.substr(12, 4) + std::string(ENDING);
}

std::optional<std::uint64_t> numberIn(std::string_view id) {
  std::string digits;
  for (const char character : id.substr(0, id.size() < ENDING.size() ? 0 : id.size() - ENDING.size())) {
    if (character != '-') {
      digits += character;
    }
  }
  std::uint64_t number{};
  const char* const end = digits.data() + digits.size();
  const auto [parsedTo, error] = std::from_chars(digits.data(), end, number, HEXADECIMAL);
  const bool isWhole = error == std::errc{} && parsedTo == end;
  return isWhole && idFor(number) == id ? std::optional(number) : std::nullopt;
}

}  // namespace

void ElementIds::use(std::uint64_t number) {
  if (const auto known = places_.find(number); known != places_.end()) {
    used_.splice(used_.begin(), used_, known->second);
    return;
  }
  used_.push_front(number);
  places_.emplace(number, used_.begin());
  if (used_.size() > CAPACITY) {
    places_.erase(used_.back());
    used_.pop_back();
  }
}

std::string ElementIds::idOf(std::uint64_t number) {
  use(number);
  return idFor(number);
}

std::optional<std::uint64_t> ElementIds::numberOf(std::string_view id) {
  const std::optional<std::uint64_t> number = numberIn(id);
  if (!number || !places_.contains(*number)) {
    return std::nullopt;
  }
  use(*number);
  return number;
}

}  // namespace quobrak::phoneserver
