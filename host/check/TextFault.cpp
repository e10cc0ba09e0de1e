#include "host/check/TextFault.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/foundation/TextPlace.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

constexpr std::string_view MARK_OF_UTF8 = "\xEF\xBB\xBF";

/// Where the first sequence that is no UTF-8 begins. There must be one. `repaired` is the text with U+FFFD in place of
/// those.
std::size_t firstIllFormed(std::string_view bytes, std::string_view repaired) {
  const auto difference = std::mismatch(bytes.begin(), bytes.end(), repaired.begin(), repaired.end()).second;
  auto at = static_cast<std::size_t>(difference - repaired.begin());
  // What is ill-formed may begin as its replacement does.
  while (at > 0 && (static_cast<unsigned char>(repaired[at]) & 0xC0U) == 0x80U) {
    --at;
  }
  return at;
}

std::string inHexadecimal(char byte) {
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return {'0', 'x', DIGITS[value / 16U], DIGITS[value % 16U]};
}

/// The name of the encoding whose mark begins the bytes, where that is not UTF-8.
std::optional<std::string> markedEncoding(std::string_view bytes) {
  struct Mark {
    std::string_view bytes;
    std::string_view name;
  };
  using namespace std::string_view_literals;
  constexpr std::array MARKS{Mark{"\xFF\xFE\0\0"sv, "UTF-32"}, Mark{"\0\0\xFE\xFF"sv, "UTF-32"},
                             Mark{"\xFF\xFE"sv, "UTF-16"}, Mark{"\xFE\xFF"sv, "UTF-16"}};
  for (const Mark& mark : MARKS) {
    if (bytes.starts_with(mark.bytes)) {
      return std::string(mark.name);
    }
  }
  return std::nullopt;
}

}  // namespace

TextFault textFaultIn(std::string_view bytes) {
  if (const std::optional<std::string> encoding = markedEncoding(bytes)) {
    return {.line = {},
            .column = 1,
            .words = "it begins as " + *encoding + ", and is ill-formed behind that: save it as UTF-8",
            .text = ""};
  }
  bytes.remove_prefix(bytes.starts_with(MARK_OF_UTF8) ? MARK_OF_UTF8.size() : 0);
  const std::string text = repairedUTF8(bytes);
  const std::size_t at = firstIllFormed(bytes, text);
  TextFault fault{.line = {},
                  .column = 1,
                  .words = "the byte " + inHexadecimal(bytes[at]) + " is no UTF-8: save the file as UTF-8",
                  .text = ""};
  // As many bytes before the place in both.
  NumberedLines lines(text);
  while (const std::optional<NumberedLine> line = lines.next()) {
    const auto begin = static_cast<std::size_t>(line->text.data() - text.data());
    if (begin + line->text.size() >= at) {
      fault.line = line->number;
      fault.column = placeInText(line->text, at - begin).column;
      fault.text = line->text;
      return fault;
    }
  }
  return fault;
}

}  // namespace quobrak::host
