#include "host/terminal/Terminal.h"

#include <sys/ioctl.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unistd.h>

#include <array>
#include <cstdint>

#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

constexpr char ESCAPE = '\x1b';

/// The codes of ECMA-48 (SGR) in the order of `Style`.
constexpr std::array<std::string_view, 7> CODES{"0", "1", "2", "31", "32", "33", "34"};

std::size_t columnsOf(UChar32 character) {
  const auto width = static_cast<UEastAsianWidth>(u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH));
  switch (u_charType(character)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_FORMAT_CHAR:
    case U_CONTROL_CHAR:
      return 0;
    default:
      return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
  }
}

/// The length in bytes of the style sequence that begins the text, 0 where none does: ESC [ … m.
std::size_t styleSequenceLength(std::string_view text) {
  if (!text.starts_with("\x1b[")) {
    return 0;
  }
  const std::size_t end = text.find_first_not_of("0123456789;", 2);
  return end != std::string_view::npos && text[end] == 'm' ? end + 1 : 0;
}

/// The columns of text that has no style sequence. An ill-formed sequence of bytes is U+FFFD.
std::size_t columnsOfCharacters(std::string_view text) {
  const icu::UnicodeString characters = icu::UnicodeString::fromUTF8(text);
  std::size_t columns = 0;
  for (std::int32_t i = 0; i < characters.length(); i = characters.moveIndex32(i, 1)) {
    columns += columnsOf(characters.char32At(i));
  }
  return columns;
}

Stream streamAt(int descriptor) {
  winsize size{};
  const bool tellsSize = ::ioctl(descriptor, TIOCGWINSZ, &size) == 0;
  return {.isTerminal = ::isatty(descriptor) == 1, .columns = tellsSize ? std::size_t{size.ws_col} : 0};
}

/// What shows a control character; any other one is itself.
UChar32 shownCharacter(UChar32 character) {
  constexpr UChar32 PICTURES = 0x2400;
  constexpr UChar32 PICTURE_OF_DELETE = 0x2421;
  constexpr UChar32 DELETE = 0x7F;
  constexpr UChar32 BLANK = 0x20;
  constexpr UChar32 REPLACEMENT = 0xFFFD;
  if (character < BLANK) {
    return PICTURES + character;
  }
  if (character == DELETE) {
    return PICTURE_OF_DELETE;
  }
  // Those of the second control set have no picture.
  return u_charType(character) == U_CONTROL_CHAR ? REPLACEMENT : character;
}

}  // namespace

std::string Terminal::styled(Style style, std::string_view text) const {
  if (!hasColour || style == Style::plain || text.empty()) {
    return std::string(text);
  }
  const std::string begin{ESCAPE, '['};
  return begin + std::string(CODES.at(static_cast<std::size_t>(style))) + "m" + std::string(text) + begin + "0m";
}

Terminal terminalOf(const Stream& stream, const EnvironmentVariable& variable) {
  const bool isDumb = variable("TERM").value_or("dumb") == "dumb";
  const bool isColourUnwanted = !variable("NO_COLOR").value_or("").empty();
  const bool isColourForced = variable("CLICOLOR_FORCE").value_or("0") != "0";
  return {.isInteractive = stream.isTerminal && !isDumb,
          .hasColour = (isColourForced || (stream.isTerminal && !isDumb)) && !isColourUnwanted,
          .width = stream.columns > 0 ? stream.columns : Terminal().width};
}

Terminal terminalOf(int descriptor, const EnvironmentVariable& variable) {
  return terminalOf(streamAt(descriptor), variable);
}

std::size_t displayWidth(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) {
    text.remove_prefix(styleSequenceLength(text));
    // The byte of an escape that begins no style belongs to the characters.
    const std::string_view characters = text.substr(0, text.find(ESCAPE, 1));
    columns += columnsOfCharacters(characters);
    text.remove_prefix(characters.size());
  }
  return columns;
}

std::string counted(std::size_t count, std::string_view singular) {
  return std::to_string(count) + " " + std::string(singular) + (count == 1 ? "" : "s");
}

std::string padded(std::string_view text, std::size_t columns) {
  const std::size_t width = displayWidth(text);
  return std::string(text) + std::string(columns > width ? columns - width : 0, ' ');
}

std::string shown(std::string_view text) {
  const icu::UnicodeString characters = icu::UnicodeString::fromUTF8(text);
  icu::UnicodeString result;
  for (std::int32_t i = 0; i < characters.length(); i = characters.moveIndex32(i, 1)) {
    result.append(shownCharacter(characters.char32At(i)));
  }
  std::string utf8;
  return result.toUTF8String(utf8);
}

std::string shortened(std::string_view text, std::size_t columns) {
  if (displayWidth(text) <= columns) {
    return std::string(text);
  }
  std::string kept;
  std::size_t used = 1;
  for (const std::string_view character : characters(text)) {
    used += displayWidth(character);
    if (used > columns) {
      break;
    }
    kept += character;
  }
  return columns == 0 ? "" : kept + "…";
}

}  // namespace quobrak::host
