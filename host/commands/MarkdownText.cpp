#include "host/commands/MarkdownText.h"

#include <algorithm>
#include <vector>

namespace quobrak::host {

namespace {

/// Narrower terminals get lines that are too long rather than columns of single words.
constexpr std::size_t LEAST_WIDTH = 20;

/// "[text](place)" that begins the text: its text, and how many bytes it takes; nothing of no length where there is
/// none.
struct Link {
  std::string_view text;
  std::size_t length = 0;
};

Link linkAt(std::string_view text) {
  if (!text.starts_with('[')) {
    return {};
  }
  const std::size_t middle = text.find("](");
  const std::size_t end = text.find(')', middle);
  return end == std::string_view::npos ? Link{} : Link{.text = text.substr(1, middle - 1), .length = end + 1};
}

std::string withoutLinks(std::string_view text) {
  std::string result;
  bool isInCode = false;
  while (!text.empty()) {
    isInCode = isInCode != text.starts_with('`');
    const Link link = isInCode ? Link{} : linkAt(text);
    result += link.length > 0 ? link.text : text.substr(0, 1);
    text.remove_prefix(std::max<std::size_t>(1, link.length));
  }
  return result;
}

std::size_t indentBelow(std::string_view line) {
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  if (digits > 0 && line.substr(digits, 2) == ". ") {
    return digits + 2;
  }
  return line.starts_with("- ") ? 2 : 0;
}

/// The words of a line that has no links. Where there is colour, what is in backticks is bold instead.
std::vector<std::string> wordsOf(std::string_view line, const Terminal& terminal) {
  std::vector<std::string> words(1);
  bool isInCode = false;
  const auto isEnd = [](char character) { return character == ' ' || character == '`'; };
  while (!line.empty()) {
    const auto length = static_cast<std::size_t>(std::find_if(line.begin(), line.end(), isEnd) - line.begin());
    words.back() += terminal.styled(isInCode ? Style::bold : Style::plain, line.substr(0, length));
    line.remove_prefix(length);
    if (line.starts_with(' ')) {
      words.emplace_back();
    } else if (line.starts_with('`')) {
      isInCode = !isInCode;
      words.back() += terminal.hasColour ? "" : "`";
    }
    line.remove_prefix(std::min<std::size_t>(1, line.size()));
  }
  return words;
}

/// Puts words into lines.
class LineFiller {
 public:
  LineFiller(std::size_t indent, std::size_t indentBelow, std::size_t width)
      : width_(std::max(width, indent + LEAST_WIDTH)), below_(indent + indentBelow), line_(indent, ' ') {}

  void add(const std::string& word) {
    const std::size_t length = displayWidth(word);
    if (!isLineEmpty_ && columns_ + 1 + length > width_) {
      text_ += line_ + "\n";
      line_.assign(below_, ' ');
      isLineEmpty_ = true;
    }
    line_ += (isLineEmpty_ ? "" : " ") + word;
    columns_ = displayWidth(line_);
    isLineEmpty_ = false;
  }

  std::string text() && { return text_ + line_ + "\n"; }

 private:
  std::size_t width_;
  std::size_t below_;
  std::string line_;
  std::size_t columns_ = 0;
  bool isLineEmpty_ = true;
  std::string text_;
};

std::string filled(const std::vector<std::string>& words, std::size_t indent, std::size_t below,
                   const Terminal& terminal) {
  LineFiller filler(indent, below, terminal.width);
  for (const std::string& word : words) {
    filler.add(word);
  }
  return std::move(filler).text();
}

}  // namespace

std::string markdownText(std::string_view markdown, std::size_t indent, const Terminal& terminal) {
  const std::string text = withoutLinks(markdown);
  std::string result;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    result += line.empty() ? "\n" : filled(wordsOf(line, terminal), indent, indentBelow(line), terminal);
  }
  return result;
}

std::string wrappedText(std::string_view text, std::size_t indent, const Terminal& terminal) {
  std::vector<std::string> words(1);
  for (const char character : text) {
    if (character == ' ') {
      words.emplace_back();
    } else {
      words.back() += character;
    }
  }
  return filled(words, indent, 0, terminal);
}

}  // namespace quobrak::host
