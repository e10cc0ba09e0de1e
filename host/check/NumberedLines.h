#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "quobrakUITests/ScriptLines.h"

namespace quobrak::host {

/// The number of a line of a script, from 1.
struct LineNumber {
  /// As the run counts: a carriage return and the line feed behind it are two line ends.
  std::size_t inRun = 1;
  /// As editors count: they are one line end.
  std::size_t inEditor = 1;

  bool operator==(const LineNumber&) const = default;
};

struct NumberedLine {
  std::string_view text;
  LineNumber number;
};

/// Goes through a script line by line, as the run does.
class NumberedLines {
 public:
  /// The script must outlive it.
  explicit NumberedLines(std::string_view script) : script_(script), lines_(script) {}

  /// The next line as written, without its newline; none after the last one.
  std::optional<NumberedLine> next();

 private:
  /// Whether a carriage return stands before the place, and a line feed at it.
  bool isBetweenReturnAndFeed(std::size_t place) const;

  std::string_view script_;
  ScriptLines lines_;
  LineNumber last_{.inRun = 0, .inEditor = 0};
};

}  // namespace quobrak::host
