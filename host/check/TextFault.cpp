#include "host/check/TextFault.h"

#include <array>
#include <optional>

#include "platform/foundation/TextPlace.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/ScriptLines.h"

namespace quobrak::host {

namespace {

constexpr std::string_view MARK_OF_UTF8 = "\xEF\xBB\xBF";

/// The first byte of the first sequence that is no UTF-8. There must be one.
std::size_t firstIllFormed(std::string_view bytes) {
  // What is well-formed up to a place stays so up to any place before it where a character begins.
  std::size_t good = 0;
  std::size_t bad = bytes.size();
  while (good < bad) {
    std::size_t middle = good + (bad - good) / 2;
    while (middle > good && (static_cast<unsigned char>(bytes[middle]) & 0xC0U) == 0x80U) {
      --middle;
    }
    if (middle == good) {
      break;
    }
    (isUTF8(bytes.substr(good, middle - good)) ? good : bad) = middle;
  }
  // Less than two characters are left to look at.
  while (good < bad) {
    std::size_t next = good + 1;
    while (next < bytes.size() && (static_cast<unsigned char>(bytes[next]) & 0xC0U) == 0x80U) {
      ++next;
    }
    if (!isUTF8(bytes.substr(good, next - good))) {
      break;
    }
    good = next;
  }
  return good;
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
    return {.line = 1,
            .column = 1,
            .words = "it begins as " + *encoding + ", and is ill-formed behind that: save it as UTF-8",
            .text = ""};
  }
  bytes.remove_prefix(bytes.starts_with(MARK_OF_UTF8) ? MARK_OF_UTF8.size() : 0);
  const std::size_t at = firstIllFormed(bytes);
  TextFault fault{.line = 1,
                  .column = 1,
                  .words = "the byte " + inHexadecimal(bytes[at]) + " is no UTF-8: save the file as UTF-8",
                  .text = ""};
  const std::string text = repairedUTF8(bytes);
  // As many bytes before the place in both.
  ScriptLines lines(text);
  while (const auto line = lines.next()) {
    const auto begin = static_cast<std::size_t>(line->data() - text.data());
    if (begin + line->size() >= at) {
      fault.column = placeInText(*line, at - begin).column;
      fault.text = *line;
      return fault;
    }
    ++fault.line;
  }
  return fault;
}

}  // namespace quobrak::host
