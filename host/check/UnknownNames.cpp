#include "host/check/UnknownNames.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "host/check/HiddenCharacters.h"
#include "host/terminal/NearestNames.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

/// What begins a comment elsewhere.
constexpr std::array<std::string_view, 4> FOREIGN_COMMENTS{"//", "/*", "--", ";"};

/// What somebody may have put in place of the first comma. The last one is the full-width comma.
constexpr std::array<std::string_view, 7> FOREIGN_COMMAS{" ", "\t", ";", ":", "(", "=", "\uFF0C"};

/// A longer one is searched for nothing but a command at its beginning.
constexpr std::size_t LONGEST_NAME = 200;

bool areAlikeButForCase(std::string_view left, std::string_view right) {
  return caseFolded(left).text == caseFolded(right).text;
}

/// Null where there is none.
const CommandRow* findInAnyCase(std::string_view name, const CommandIndex& commands) {
  const std::vector<std::string_view> near = commands.near(name);
  return near.empty() || !areAlikeButForCase(near.front(), name) ? nullptr : commands.find(near.front());
}

/// The name up to the first sign that stands for a comma; all of it where there is none.
std::string_view upToForeignComma(std::string_view name) {
  std::size_t end = name.size();
  for (const std::string_view sign : FOREIGN_COMMAS) {
    end = std::min(end, name.find(sign));
  }
  return name.substr(0, end);
}

/// A command with its arguments behind another sign than a comma; nothing is meant where it is none.
UnknownName withForeignComma(std::string_view name, const CommandIndex& commands) {
  const std::string_view beginning = upToForeignComma(name);
  const CommandRow* const row = beginning.size() == name.size() ? nullptr : findInAnyCase(beginning, commands);
  if (row == nullptr) {
    return {};
  }
  const std::string question = "did you mean " + std::string(row->name) + "? ";
  return {.hint = question + (row->argumentCount == 0 ? "It takes no arguments"
                                                      : "Arguments stand behind commas: " + usageOf(*row)),
          .meant = row};
}

UnknownName byNearNames(std::string_view name, const CommandIndex& commands) {
  const std::vector<std::string_view> near = commands.near(name);
  if (near.empty()) {
    return {};
  }
  const std::string nearest(near.front());
  const std::string_view trimmed = trimmedBlanks(name);
  const CommandRow* const meant = commands.find(nearest);
  if (trimmed == nearest) {
    return {.hint = "a blank before the comma belongs to the name: write " + nearest, .meant = meant};
  }
  if (areAlikeButForCase(trimmed, nearest)) {
    return {.hint = "small and capital letters differ: write " + nearest, .meant = meant};
  }
  return {.hint = didYouMean(near), .meant = meant};
}

/// The name without characters that take no room, and with common blanks for other ones.
std::string visible(std::string_view name) {
  std::string text;
  while (const std::optional<std::string_view> character = firstInvisible(name)) {
    const auto begin = static_cast<std::size_t>(character->data() - name.data());
    text.append(name.substr(0, begin)).append(trimmedBlanks(*character).empty() ? " " : "");
    name.remove_prefix(begin + character->size());
  }
  return text.append(name);
}

UnknownName explainedAsItIsSeen(std::string_view name, const CommandIndex& commands) {
  const UnknownName command = withForeignComma(trimmedBlanks(name), commands);
  return command.meant == nullptr ? byNearNames(name, commands) : command;
}

/// `character` is one of the name that is not seen.
UnknownName explainedByInvisible(std::string_view character, std::string_view name, const CommandIndex& commands) {
  const std::string hint = "it holds the invisible character " + numberOf(character);
  const std::string seen = visible(name);
  if (const CommandRow* const row = commands.find(trimmedBlanks(seen))) {
    return {.hint = hint + ": write " + std::string(row->name), .meant = row};
  }
  const UnknownName rest = explainedAsItIsSeen(seen, commands);
  return {.hint = rest.hint.empty() ? hint : hint + "; " + rest.hint, .meant = rest.meant};
}

}  // namespace

UnknownName explained(std::string_view name, const CommandIndex& commands) {
  if (std::any_of(FOREIGN_COMMENTS.begin(), FOREIGN_COMMENTS.end(),
                  [name](std::string_view sign) { return name.starts_with(sign); })) {
    return {.hint = "comments begin with #", .meant = nullptr};
  }
  if (name.size() <= LONGEST_NAME) {
    if (const std::optional<std::string_view> character = firstInvisible(name)) {
      return explainedByInvisible(*character, name, commands);
    }
  }
  return explainedAsItIsSeen(name, commands);
}

}  // namespace quobrak::host
