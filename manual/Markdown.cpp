#include "manual/Markdown.h"

#include <algorithm>
#include <cstddef>

namespace quobrak::manual {

namespace {

constexpr std::size_t LINE_LENGTH = 120;

std::size_t endOfWord(std::string_view text) {
  bool isInCode = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    isInCode = isInCode != (text[i] == '`');
    if (text[i] == ' ' && !isInCode) {
      return i;
    }
  }
  return text.size();
}

std::size_t indentBelow(std::string_view line) {
  constexpr std::string_view BULLET = "- ";
  constexpr std::string_view NUMBER = "1. ";
  if (line.starts_with(BULLET)) {
    return BULLET.size();
  }
  const bool isNumbered = line.size() > NUMBER.size() && line[0] >= '1' && line[0] <= '9' && line.substr(1, 2) == ". ";
  return isNumbered ? NUMBER.size() : 0;
}

std::string wrappedLine(std::string_view line) {
  const std::size_t indent = indentBelow(line);
  std::string lines;
  std::size_t length = 0;
  while (!line.empty()) {
    const std::string_view word = line.substr(0, endOfWord(line));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    if (length > 0 && length + 1 + word.size() > LINE_LENGTH) {
      lines += "\n" + std::string(indent, ' ');
      length = indent;
    } else if (length > 0) {
      lines += " ";
      ++length;
    }
    lines += word;
    length += word.size();
  }
  return lines + "\n";
}

std::string tableRow(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) {
    row += " " + cell + " |";
  }
  return row + "\n";
}

}  // namespace

std::string wrapped(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    lines += wrappedLine(line);
  }
  return lines;
}

std::string table(const std::vector<std::string>& header, const std::vector<std::vector<std::string>>& rows) {
  if (rows.empty()) {
    return "";
  }
  std::string text = tableRow(header) + "|";
  for (std::size_t column = 0; column < header.size(); ++column) {
    text += "---|";
  }
  text += "\n";
  for (const std::vector<std::string>& row : rows) {
    text += tableRow(row);
  }
  return text;
}

std::string block(std::string_view lines) {
  return "```\n" + std::string(lines) + "\n```\n";
}

std::string inCode(std::string_view text) {
  return "`" + std::string(text) + "`";
}

std::string anchorOf(std::string_view heading) {
  std::string anchor;
  for (const char character : heading) {
    if (character == ' ') {
      anchor += '-';
    } else if (character >= 'A' && character <= 'Z') {
      anchor += static_cast<char>(character - 'A' + 'a');
    } else if ((character >= 'a' && character <= 'z') || (character >= '0' && character <= '9') || character == '-') {
      anchor += character;
    }
  }
  return anchor;
}

}  // namespace quobrak::manual
