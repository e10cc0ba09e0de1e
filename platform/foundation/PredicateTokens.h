#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quobrak {

/// A predicate format, and the words for what is wrong with it. The text must outlive it.
class PredicateFormat {
 public:
  explicit PredicateFormat(std::string_view text) : text_(text) {}

  std::string_view text() const { return text_; }

  /// The column of a byte position, counted from 1 in user-perceived characters.
  std::size_t column(std::size_t position) const;

  /// Throws a `PredicateFormatError` that names the column, what was expected there and what was found.
  [[noreturn]] void fail(std::size_t position, std::string_view expected, std::string_view found) const;

 private:
  std::string_view text_;
};

/// What a predicate format is made of.
struct PredicateToken {
  enum class Kind { end, word, text, symbol };

  Kind kind;
  std::size_t position;
  std::string_view source;
  /// What a text literal stands for.
  std::string text;

  /// The token in words, for what was found in place of something else.
  std::string found() const;
};

/// The token that begins at the byte position, or behind the blanks there. Throws `PredicateFormatError` for a text
/// literal that cannot be read.
PredicateToken predicateTokenAt(const PredicateFormat& format, std::size_t position);

}  // namespace quobrak
