#include "host/check/PreparedLine.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "platform/foundation/Unicode.h"
#include "quobrakUITests/Replacing.h"
#include "quobrakUITests/ScriptLines.h"
#include "quobrakUITests/ScriptVariables.h"

namespace quobrak::host {

namespace {

/// More replacements of one variable than any line needs that comes to an end, one after the other, and more bytes than
/// they add to any: as many as the longest variable of an environment has, or for one that is replaced once, as many as
/// a whole environment has.
constexpr std::size_t MOST_REPLACEMENTS = 100;
constexpr std::size_t MOST_GROWTH = 1U << 17U;
constexpr std::size_t MOST_GROWTH_BY_OTHERS = 1U << 21U;

/// Whether a variable that has been replaced so often, in a line that has become so much longer, comes to no end.
bool isEndless(std::size_t replacements, std::size_t growth) {
  return replacements > MOST_REPLACEMENTS || growth > (replacements > 1 ? MOST_GROWTH : MOST_GROWTH_BY_OTHERS);
}

/// Stands for text that is not known: one character of one UTF-16 unit, so that the search for references goes as far
/// as with one letter, and none that a reference, a comma or a name could be made of.
constexpr std::string_view UNKNOWN_TEXT = "?";

}  // namespace

PreparedLine::PreparedLine(std::string_view written, const Variables& variables, const IsSomehowSet& isSomehowSet)
    : written_(written), trimmed_(trimmedBlanks(written)) {
  if (!isSkipped(trimmed_) && mayHaveReference(trimmed_)) {
    replaceAll(variables, isSomehowSet);
  }
}

void PreparedLine::takeAsWritten() {
  const auto offset = static_cast<std::uint32_t>(trimmed_.data() - written_.data());
  replaced_ = Replaced{.text = std::string(trimmed_), .origins = {}};
  replaced_->origins.reserve(trimmed_.size());
  for (std::uint32_t i = offset; i < offset + trimmed_.size(); ++i) {
    replaced_->origins.push_back({.begin = i, .end = i + 1, .isUnknown = false});
  }
}

void PreparedLine::replaceAll(const Variables& variables, const IsSomehowSet& isSomehowSet) {
  std::set<std::string, std::less<>> endless;
  std::set<std::string, std::less<>> missing;
  std::map<std::string, std::size_t, std::less<>> replacements;
  takeAsWritten();
  while (const std::optional<VariableReference> reference = firstReference(replaced_->text)) {
    const std::string name(reference->name());
    const std::string* const known = variables.find(name);
    const std::string* const value = endless.contains(name) ? nullptr : known;
    const std::size_t growth = std::max(replaced_->text.size(), trimmed_.size()) - trimmed_.size();
    if (value != nullptr && isEndless(++replacements[name], growth)) {
      note(ReferenceNote::Kind::endless, reference->text);
      endless.insert(name);
      replacements.clear();
      takeAsWritten();
      continue;
    }
    if (known == nullptr && !isSomehowSet(name) && missing.insert(name).second) {
      note(ReferenceNote::Kind::missing, reference->text);
    }
    replace(reference->text, value);
  }
  noteUnreplaced();
}

void PreparedLine::replace(std::string_view reference, const std::string* value) {
  const std::string_view replacement = value == nullptr ? UNKNOWN_TEXT : std::string_view(*value);
  Replaced next;
  std::size_t begin = 0;
  const auto keepUpTo = [&](std::size_t end) {
    const auto origin = [this](std::size_t at) { return replaced_->origins.begin() + static_cast<std::ptrdiff_t>(at); };
    next.text.append(replaced_->text, begin, end - begin);
    next.origins.insert(next.origins.end(), origin(begin), origin(end));
  };
  forEachOccurrence(replaced_->text, reference, [&](std::size_t at) {
    keepUpTo(at);
    begin = at + reference.size();
    const Span written = writtenSpan({.begin = at, .end = begin});
    next.text.append(replacement);
    next.origins.insert(next.origins.end(), replacement.size(),
                        Origin{.begin = static_cast<std::uint32_t>(written.begin),
                               .end = static_cast<std::uint32_t>(written.end),
                               .isUnknown = value == nullptr});
  });
  keepUpTo(replaced_->text.size());
  replaced_ = std::move(next);
}

void PreparedLine::note(ReferenceNote::Kind kind, std::string_view reference) {
  const auto at = static_cast<std::size_t>(reference.data() - replaced_->text.data());
  const Span written = writtenSpan({.begin = at, .end = at + reference.size()});
  notes_.push_back({.kind = kind,
                    .name = std::string(VariableReference{reference}.name()),
                    .written = written,
                    .isOfValue = written_.substr(written.begin, written.end - written.begin) != reference});
}

void PreparedLine::noteUnreplaced() {
  std::string_view rest = replaced_->text;
  while (const std::optional<VariableReference> reference = firstReferenceAnywhere(rest)) {
    note(ReferenceNote::Kind::unreplaced, reference->text);
    rest.remove_prefix(static_cast<std::size_t>(reference->text.data() - rest.data()) + reference->text.size());
  }
}

Span PreparedLine::writtenSpan(Span part) const {
  if (!replaced_) {
    const auto offset = static_cast<std::size_t>(trimmed_.data() - written_.data());
    return {.begin = offset + part.begin, .end = offset + part.end};
  }
  const std::vector<Origin>& origins = replaced_->origins;
  if (part.begin < part.end) {
    return {.begin = origins[part.begin].begin, .end = origins[part.end - 1].end};
  }
  // An empty part stands behind the byte before it, or else before the line.
  const std::size_t at =
      part.begin == 0 ? static_cast<std::size_t>(trimmed_.data() - written_.data()) : origins[part.begin - 1].end;
  return {.begin = at, .end = at};
}

bool PreparedLine::isUnknown(Span part) const {
  if (!replaced_) {
    return false;
  }
  const auto origin = [this](std::size_t at) { return replaced_->origins.begin() + static_cast<std::ptrdiff_t>(at); };
  return std::any_of(origin(part.begin), origin(part.end), [](const Origin& one) { return one.isUnknown; });
}

}  // namespace quobrak::host
