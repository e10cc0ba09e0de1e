#include "host/program/Paragraphs.h"

#include <algorithm>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

std::vector<Paragraph> paragraphsOf(std::string_view text) {
  std::vector<Paragraph> paragraphs;
  bool isBetween = true;
  for (const std::string_view line : linesOf(text)) {
    if (line.empty()) {
      isBetween = true;
      continue;
    }
    if (isBetween) {
      paragraphs.push_back({.lines = {}, .isKept = line.starts_with(' ')});
      isBetween = false;
    }
    paragraphs.back().lines.emplace_back(line);
  }
  return paragraphs;
}

std::vector<std::string> brokenInto(std::size_t columns, std::string_view text) {
  constexpr std::string_view BLANKS = " \n";
  std::vector<std::string> lines{""};
  for (std::size_t begin = text.find_first_not_of(BLANKS); begin != std::string_view::npos;
       begin = text.find_first_not_of(BLANKS, begin)) {
    const std::size_t end = std::min(text.find_first_of(BLANKS, begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    if (!lines.back().empty() && displayWidth(lines.back()) + 1 + displayWidth(word) > columns) {
      lines.emplace_back();
    }
    lines.back().append(lines.back().empty() ? "" : " ").append(word);
    begin = end;
  }
  return lines;
}

std::string joined(const std::vector<std::string>& words, std::string_view separator) {
  std::string text;
  for (const std::string& word : words) {
    text.append(text.empty() ? "" : separator).append(word);
  }
  return text;
}

}  // namespace quobrak::host
