#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/check/Finding.h"
#include "host/check/NumberedLines.h"
#include "host/check/PreparedLine.h"

namespace quobrak::host {

/// A line with its fields, and the findings that are made of it.
class CheckedLine {
 public:
  /// `line` and `fields` must outlive it; the fields are those of the line's text. `script` counts from 0.
  CheckedLine(std::size_t script, LineNumber number, const PreparedLine& line, std::span<const std::string_view> fields)
      : script_(script), number_(number), line_(line), fields_(fields) {}

  std::span<const std::string_view> fields() const { return fields_; }

  /// Whether a field holds something of a variable whose value is not known.
  bool isUnknown(std::size_t field) const { return line_.isUnknown(spanOf(field)); }
  bool hasUnknown() const { return line_.isUnknown({.begin = 0, .end = line_.text().size()}); }

  Finding atField(std::size_t field, Problem problem) const;
  /// From the field to the end of the line.
  Finding fromField(std::size_t field, Problem problem) const;
  /// Behind the line.
  Finding atEnd(Problem problem) const;
  /// `part` is in bytes of the line as it is written.
  Finding atWritten(Span part, Problem problem) const;

 private:
  /// In the line's text.
  Span spanOf(std::size_t field) const;

  std::size_t script_;
  LineNumber number_;
  const PreparedLine& line_;
  std::span<const std::string_view> fields_;
  /// The line as it is written; made when it is first asked for.
  mutable std::shared_ptr<const std::string> written_;
};

}  // namespace quobrak::host
