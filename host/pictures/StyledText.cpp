#include "host/pictures/StyledText.h"

#include <algorithm>
#include <stdexcept>

namespace quobrak::host {

namespace {

constexpr char ESCAPE = '\x1b';

/// Reads what a program printed from its beginning.
class Reader {
 public:
  std::vector<StyledLine> read(std::string_view printed) {
    while (!printed.empty()) {
      if (printed.front() == '\n') {
        printed.remove_prefix(1);
        lines_.emplace_back();
        column_ = 0;
      } else if (printed.front() == ESCAPE) {
        printed.remove_prefix(applySequence(printed));
      } else {
        const auto end =
            static_cast<std::size_t>(std::find_if(printed.begin(), printed.end(), isControl) - printed.begin());
        if (end == 0) {
          throw std::invalid_argument("a picture of a terminal cannot show control characters");
        }
        addText(printed.substr(0, end));
        printed.remove_prefix(end);
      }
    }
    // What stands behind the last newline is a line only where there is something.
    if (lines_.back().empty()) {
      lines_.pop_back();
    }
    return lines_;
  }

 private:
  static bool isControl(char character) { return static_cast<unsigned char>(character) < 0x20 || character == 0x7F; }

  /// Gives the sequence's length.
  std::size_t applySequence(std::string_view text) {
    const std::size_t end = text.find_first_not_of("0123456789;", 2);
    if (!text.starts_with("\x1b[") || end == std::string_view::npos || text[end] != 'm') {
      throw std::invalid_argument("a picture of a terminal cannot show sequences that do more than choose a style");
    }
    std::string_view codes = text.substr(2, end - 2);
    do {
      const std::size_t semicolon = std::min(codes.find(';'), codes.size());
      apply(codes.substr(0, semicolon));
      codes.remove_prefix(std::min(semicolon + 1, codes.size()));
    } while (!codes.empty());
    return end + 1;
  }

  void apply(std::string_view code) {
    if (code.empty() || code == "0") {
      isBold_ = false;
      colour_ = Style::plain;
    } else if (code == "1") {
      isBold_ = true;
    } else if (code == "2") {
      colour_ = Style::dim;
    } else if (code == "31") {
      colour_ = Style::red;
    } else if (code == "32") {
      colour_ = Style::green;
    } else if (code == "33") {
      colour_ = Style::yellow;
    } else if (code == "34") {
      colour_ = Style::blue;
    } else {
      throw std::invalid_argument("a picture of a terminal does not know the style " + std::string(code));
    }
  }

  /// Adds the pieces between gaps.
  void addText(std::string_view text) {
    constexpr std::string_view GAP = "  ";
    while (!text.empty()) {
      const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
      column_ += blanks;
      text.remove_prefix(blanks);
      const std::string_view upToGap = text.substr(0, text.find(GAP));
      const std::string_view piece = upToGap.substr(0, upToGap.find_last_not_of(' ') + 1);
      if (!piece.empty()) {
        lines_.back().push_back({.column = column_, .isBold = isBold_, .colour = colour_, .text = std::string(piece)});
      }
      column_ += displayWidth(upToGap);
      text.remove_prefix(upToGap.size());
    }
  }

  std::vector<StyledLine> lines_{StyledLine()};
  std::size_t column_ = 0;
  bool isBold_ = false;
  Style colour_ = Style::plain;
};

}  // namespace

std::vector<StyledLine> styledLines(std::string_view printed) {
  return Reader().read(printed);
}

}  // namespace quobrak::host
