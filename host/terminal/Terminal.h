#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quobrak::host {

/// Colours and weights of text. Which colours they are is the terminal's choice.
enum class Style { plain, bold, dim, red, green, yellow, blue };

/// What a stream leads to: a person at a terminal, or a file or a program.
struct Terminal {
  /// Whether lines already written can be written over.
  bool isInteractive = false;
  bool hasColour = false;
  /// Columns.
  std::size_t width = 80;

  /// The text in a style; as it is where there is no colour. An empty text stays empty.
  std::string styled(Style style, std::string_view text) const;
};

using EnvironmentVariable = std::function<std::optional<std::string>(const std::string&)>;

/// What the system tells of a stream.
struct Stream {
  bool isTerminal = false;
  /// 0 where it does not tell.
  std::size_t columns = 0;
};

/// What a stream leads to. Colour is off where the environment has NO_COLOR (not empty), whatever it leads to;
/// otherwise on where it has CLICOLOR_FORCE (not 0), or where a terminal is that TERM does not call dumb.
Terminal terminalOf(const Stream& stream, const EnvironmentVariable& variable);

/// The same for an open descriptor (1 is standard output, 2 standard error).
Terminal terminalOf(int descriptor, const EnvironmentVariable& variable);

/// How many columns of a terminal the text takes: wide characters take two, combining ones none. Sequences that choose
/// a style take none. Control characters take none.
std::size_t displayWidth(std::string_view text);

/// "1 script", "3 scripts".
std::string counted(std::size_t count, std::string_view singular);

/// The text with blanks behind it up to that many columns.
std::string padded(std::string_view text, std::size_t columns);

/// The text as it may be shown on one line of a terminal: control characters, which could move its cursor or change its
/// colours, are replaced by what is made for showing them (U+2400 and behind). Ill-formed UTF-8 becomes U+FFFD.
std::string shown(std::string_view text);

/// The text cut to that many columns, with … at its end where something was cut off. It must have no style.
std::string shortened(std::string_view text, std::size_t columns);

}  // namespace quobrak::host
