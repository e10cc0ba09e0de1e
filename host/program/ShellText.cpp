#include "host/program/ShellText.h"

#include <cstddef>

namespace quobrak::host {

std::string quotedForShell(std::string_view text) {
  return "'" + withReplaced(std::string(text), "'", R"('\'')") + "'";
}

std::string quotedForShell(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + quotedForShell(word);
  }
  return text;
}

std::string withReplaced(std::string text, std::string_view what, std::string_view replacement) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + replacement.size())) {
    text.replace(at, what.size(), replacement);
  }
  return text;
}

}  // namespace quobrak::host
