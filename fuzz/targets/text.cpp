// Bytes of a file: as text, its lines, its characters, itself folded, as a number, as a path and in base64. What stands
// in its first line is looked for in the rest.

#include <algorithm>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/webdriver/Base64.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "phoneserver/Base64.h"
#include "platform/foundation/Numbers.h"
#include "platform/foundation/Paths.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/ScriptLines.h"

namespace quobrak::fuzz {

namespace {

void tryBytes(const std::string& bytes) {
  const std::string repaired = repairedUTF8(bytes);
  require(isUTF8(repaired), "repaired text is text");
  require((repaired == bytes) == isUTF8(bytes), "only what is broken is repaired");
  const std::optional<std::string> decoded = decodedText(bytes);
  require(!decoded || isUTF8(*decoded), "decoded text is text");
  require(decoded.has_value() || !isUTF8(bytes), "what is text can be decoded");
  const std::optional<Data> data = webdriver::decodedBase64(phoneserver::base64(bytesOf(bytes)));
  require(data && textOf(*data) == bytes, "what the phone writes in base64 is what the client reads");
  const std::optional<Data> other = webdriver::decodedBase64(bytes);
  require(!other || other->size() <= bytes.size(), "base64 is longer than what it stands for");
}

void tryCharacters(const std::string& text) {
  const std::vector<std::string_view> parts = characters(text);
  std::string joined;
  for (const std::string_view part : parts) {
    joined += part;
    require(isUTF8(part), "a character is whole");
  }
  require(joined == text && parts.size() == characterCount(text), "characters are all of a text");
  const std::string_view trimmed = trimmedBlanks(text);
  require(trimmedBlanks(trimmed) == trimmed && text.find(trimmed) != std::string::npos, "blanks are trimmed at once");
}

void tryLines(const std::string& text) {
  ScriptLines lines(text);
  std::size_t position = 0;
  while (const std::optional<std::string_view> line = lines.next()) {
    require(std::string_view(text).substr(position, line->size()) == *line, "lines are parts of the script");
    position += line->size() + newlineLength(std::string_view(text).substr(position + line->size()));
  }
  require(position == text.size(), "lines and newlines are all of a script");
}

void tryFolding(const std::string& text, const std::string& needle) {
  const FoldedText folded = caseFolded(text);
  require(caseFolded(folded.text).text == folded.text, "what is folded is folded");
  require(std::is_sorted(folded.insideOneCharacter.begin(), folded.insideOneCharacter.end()), "positions ascend");
  require(contains(folded, folded) == !text.empty(), "a text contains itself");
  const bool isPart = !needle.empty() && text.find(needle) != std::string::npos;
  require(contains(folded, caseFolded(needle)) || !isPart, "a text contains its parts in any case");
}

bool isNumber(const std::string& text) {
  static const std::regex NUMBER(
      R"([+-]?((\d+\.?\d*|\.\d+)(e[+-]?\d+)?|0x([\da-f]+\.?[\da-f]*|\.[\da-f]+)(p[+-]?\d+)?|inf|infinity|nan(\(\w*\))?))",
      std::regex::icase);
  // The library's expressions recurse for each character.
  constexpr std::size_t LONGEST = 200;
  return text.size() < LONGEST ? std::regex_match(text, NUMBER) : parseDouble(text).has_value();
}

void tryPath(const std::string& path, const std::string& component) {
  const std::string last = lastPathComponent(path);
  require(last == "/" || last.find('/') == std::string::npos, "a component is one");
  const std::string folder = deletingLastPathComponent(path);
  const std::string again = appendingPathComponent(folder, last);
  require(lastPathComponent(again) == last, "a component comes last where it is appended");
  require(lastPathComponent(deletingPathExtension(path)).size() <= last.size(), "an extension is a part of a name");
  const std::string appended = appendingPathComponent(path, component);
  require(path.empty() || component.empty() || appended.find("//") == std::string::npos ||
              path.find("//") != std::string::npos || component.find("//") != std::string::npos,
          "one slash joins two paths");
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  Input input(data, size);
  const std::string first(input.line());
  const std::string bytes(input.rest());
  tryBytes(bytes);
  const std::string text = repairedUTF8(bytes);
  const std::string needle = repairedUTF8(first);
  tryCharacters(text);
  tryLines(text);
  tryFolding(text, needle);
  require(parseDouble(needle).has_value() == isNumber(needle), "a number is what is written as one");
  tryPath(text, needle);
  return 0;
}
