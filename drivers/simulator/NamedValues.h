#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::simulator {

/// Whether the text may be the name of a named value: words of ASCII letters, digits and "_", with dots between them,
/// none of which begins with a digit or means something in predicates.
bool isValueName(std::string_view text);

/// A length of time in milliseconds as descriptions write it, 0 to an hour: digits alone. None for another text.
std::optional<std::chrono::milliseconds> durationIn(std::string_view text);

/// What a phone's applications remember: texts by name. One that was never set is empty. To a predicate its names are
/// the attributes.
class NamedValues final : public KeyValueSource {
 public:
  NamedValues() = default;
  explicit NamedValues(std::map<std::string, std::string, std::less<>> texts) : texts_(std::move(texts)) {}

  const std::string& text(std::string_view name) const;
  /// Those that were set, by name.
  const std::map<std::string, std::string, std::less<>>& texts() const { return texts_; }
  void set(const std::string& name, std::string text) { texts_.insert_or_assign(name, std::move(text)); }

  /// Counts on from the value's whole number, or from 0 where its text is none. Stops at the ends of 64 bits.
  void add(const std::string& name, std::int64_t amount);

  /// The value as a length of time; 0 where its text is none.
  std::chrono::milliseconds duration(std::string_view name) const;

  Value valueForKey(std::string_view key) const override { return std::string_view(text(key)); }

 private:
  std::map<std::string, std::string, std::less<>> texts_;
};

/// A text in which "${NAME}" stands for a named value.
class TextTemplate {
 public:
  TextTemplate() = default;
  /// The text as it stands, with nothing to replace.
  explicit TextTemplate(std::string text) : pieces_{{.text = std::move(text), .name = {}}} {}

  /// None where a "${" is not followed by a name and "}".
  static std::optional<TextTemplate> parse(std::string_view text);

  std::string expand(const NamedValues& values) const;

 private:
  /// A text as it stands, and behind it the value of that name, if any.
  struct Piece {
    std::string text;
    std::string name;
  };

  std::vector<Piece> pieces_;
};

}  // namespace quobrak::simulator
