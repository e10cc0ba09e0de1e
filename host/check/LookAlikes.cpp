#include "host/check/LookAlikes.h"

#include <algorithm>
#include <optional>

#include "platform/foundation/Unicode.h"
#include "quobrakUITests/ScriptVariables.h"

namespace quobrak::host {

namespace {

/// Nobody gives a longer name.
constexpr std::size_t LONGEST_NAME = 64;

bool isWordCharacter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '_';
}

bool isLetter(char character) {
  return isWordCharacter(character) && !(character >= '0' && character <= '9');
}

std::string_view wordAt(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && isWordCharacter(text[end])) {
    ++end;
  }
  return text.substr(begin, end - begin);
}

std::string referenceTo(std::string_view name) {
  return "${" + std::string(name) + "}";
}

/// What may stand between the words of a name that somebody gave.
constexpr std::string_view SIGNS = " \t-.:";

/// Whether what stands in braces could be such a name.
bool couldBeName(std::string_view inner) {
  return inner.size() <= LONGEST_NAME && std::any_of(inner.begin(), inner.end(), isLetter) &&
         std::all_of(inner.begin(), inner.end(), [](char character) {
           return isWordCharacter(character) || SIGNS.find(character) != std::string_view::npos;
         });
}

/// What begins with "${" at `begin`. `isClosed` tells whether there is a brace behind it that closes, however far.
std::optional<LookAlike> inBraces(std::string_view text, std::size_t begin, bool isClosed) {
  const std::size_t nameBegin = begin + 2;
  const std::string_view word = wordAt(text, nameBegin);
  if (!isClosed) {
    if (word.empty()) {
      return std::nullopt;
    }
    const std::size_t end = nameBegin + word.size();
    return LookAlike{.place = {.begin = begin, .end = end},
                     .text = std::string(text.substr(begin, end - begin)),
                     .meant = referenceTo(word)};
  }
  const std::string_view nearby = text.substr(nameBegin, LONGEST_NAME + 1);
  const std::string_view inner = nearby.substr(0, nearby.find('}'));
  if (!couldBeName(inner) || word.size() == inner.size()) {
    return std::nullopt;
  }
  const std::size_t end = nameBegin + inner.size() + 1;
  const std::string_view trimmed = trimmedBlanks(inner);
  const bool isName = wordAt(trimmed, 0).size() == trimmed.size();
  return LookAlike{.place = {.begin = begin, .end = end},
                   .text = std::string(text.substr(begin, end - begin)),
                   .meant = isName ? referenceTo(trimmed) : ""};
}

/// What begins with "$" and no brace at `begin`.
std::optional<LookAlike> withoutBraces(std::string_view text, std::size_t begin, const Variables& variables) {
  const std::string_view name = wordAt(text, begin + 1);
  if (name.empty() || variables.find(name) == nullptr) {
    return std::nullopt;
  }
  return LookAlike{.place = {.begin = begin, .end = begin + 1 + name.size()},
                   .text = "$" + std::string(name),
                   .meant = referenceTo(name)};
}

}  // namespace

std::vector<LookAlike> lookAlikesIn(std::string_view text, const Variables& variables) {
  std::vector<LookAlike> found;
  const std::size_t lastClose = text.rfind('}');
  for (std::size_t at = text.find('$'); at != std::string_view::npos; at = text.find('$', at + 1)) {
    if (at > 0 && text[at - 1] == '\\') {
      continue;
    }
    const bool hasBrace = text.substr(at + 1).starts_with('{');
    const bool isClosed = lastClose != std::string_view::npos && lastClose > at;
    if (std::optional<LookAlike> one = hasBrace ? inBraces(text, at, isClosed) : withoutBraces(text, at, variables)) {
      found.push_back(*std::move(one));
    }
  }
  return found;
}

}  // namespace quobrak::host
