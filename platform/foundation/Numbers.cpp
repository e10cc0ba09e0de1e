#include "platform/foundation/Numbers.h"

#include <clocale>
#include <cstdlib>
// Brings newlocale and strtod_l, in whichever of its headers a C library keeps them.
#include <locale>
#include <string>

namespace quobrak {

namespace {

/// The locale that every C library has, in which a decimal point is a point.
locale_t classicLocale() {
  static const locale_t locale = ::newlocale(LC_ALL_MASK, "C", nullptr);
  return locale;
}

}  // namespace

std::optional<double> parseDouble(std::string_view text) {
  // strtod would skip white space, but none begins a number.
  constexpr std::string_view WHITE_SPACE = " \t\n\v\f\r";
  if (text.empty() || WHITE_SPACE.find(text.front()) != std::string_view::npos) {
    return std::nullopt;
  }
  // Not std::from_chars: the phone's standard library has none for floating-point numbers.
  const std::string terminated(text);
  char* end = nullptr;
  const double number = ::strtod_l(terminated.c_str(), &end, classicLocale());
  if (end != terminated.c_str() + terminated.size()) {
    return std::nullopt;
  }
  return number;
}

}  // namespace quobrak
