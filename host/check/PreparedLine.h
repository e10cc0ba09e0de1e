#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/check/Variables.h"

namespace quobrak::host {

/// A part of a line, in bytes: where it begins, and the first byte behind it.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A reference that was looked at while a line was prepared.
struct ReferenceNote {
  enum class Kind {
    /// The variable is not set.
    missing,
    /// The variable refers to itself, so that the line never comes to an end. It is taken for one that is not known.
    endless,
    /// The reference stands too far behind to be found.
    unreplaced
  };
  Kind kind;
  std::string name;
  /// In the line as it is written: the reference, or the one whose value has brought it.
  Span written;
  /// Whether a value has brought it, and another reference is written there.
  bool isOfValue;
};

/// A line of a script as it runs, without blanks at its ends and with its variables replaced, each byte of which still
/// knows where it comes from.
class PreparedLine {
 public:
  /// Whether a variable is set though its value is not known.
  using IsSomehowSet = std::function<bool(std::string_view name)>;

  /// `written` is the line as it is written, and must outlive it.
  PreparedLine(std::string_view written, const Variables& variables, const IsSomehowSet& isSomehowSet);

  std::string_view text() const { return replaced_ ? std::string_view(replaced_->text) : trimmed_; }
  std::string_view written() const { return written_; }

  /// Where a part of `text()` stands in the line as it is written. What a value has brought stands where its reference
  /// does.
  Span writtenSpan(Span part) const;

  /// Whether the part of `text()` holds something of a variable whose value is not known.
  bool isUnknown(Span part) const;

  /// The references that cannot be replaced, as they came.
  const std::vector<ReferenceNote>& notes() const { return notes_; }

 private:
  /// Where a byte comes from, in the line as it is written.
  struct Origin {
    std::uint32_t begin;
    std::uint32_t end;
    bool isUnknown;
  };
  struct Replaced {
    std::string text;
    /// Of each byte of the text.
    std::vector<Origin> origins;
  };

  void replaceAll(const Variables& variables, const IsSomehowSet& isSomehowSet);
  /// Begins anew, with all references in place.
  void takeAsWritten();
  /// Replaces the reference wherever it stands by the value, or by something unknown.
  void replace(std::string_view reference, const std::string* value);
  void note(ReferenceNote::Kind kind, std::string_view reference);
  void noteUnreplaced();

  std::string_view written_;
  std::string_view trimmed_;
  std::optional<Replaced> replaced_;
  std::vector<ReferenceNote> notes_;
};

}  // namespace quobrak::host
