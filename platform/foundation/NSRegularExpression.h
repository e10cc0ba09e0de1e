#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quobrak {

/// A pattern that does not compile, or a match that was given up because it would backtrack for ever.
class RegularExpressionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A compiled regular expression in the platform's dialect (ICU's): `\w` and its kind know all of Unicode.
class NSRegularExpression {
 public:
  /// Throws `RegularExpressionError` that names the pattern, the fault and its place when the pattern does not compile.
  explicit NSRegularExpression(std::string_view pattern);
  ~NSRegularExpression();
  NSRegularExpression(NSRegularExpression&&) noexcept;
  NSRegularExpression& operator=(NSRegularExpression&&) noexcept;

  /// The first match, as a part of `text`, that lies within the first `searchedUTF16Units` UTF-16 units of the text;
  /// none where there is no match. The search is not bounded, so it is for patterns of our own, on texts of any length.
  std::optional<std::string_view> firstMatch(std::string_view text, std::size_t searchedUTF16Units) const;

  /// Whether the whole text matches. Throws `RegularExpressionError` when that takes too long to find out.
  bool matchesWhole(std::string_view text) const;

 private:
  struct Compiled;
  std::unique_ptr<Compiled> compiled_;
};

}  // namespace quobrak
