#include "host/check/CheckedLine.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/TextPlace.h"

namespace quobrak::host {

Span CheckedLine::spanOf(std::size_t field) const {
  const auto begin = static_cast<std::size_t>(fields_[field].data() - line_.text().data());
  return {.begin = begin, .end = begin + fields_[field].size()};
}

Finding CheckedLine::atField(std::size_t field, Problem problem) const {
  return atWritten(line_.writtenSpan(spanOf(field)), std::move(problem));
}

Finding CheckedLine::fromField(std::size_t field, Problem problem) const {
  const Span rest{.begin = spanOf(field).begin, .end = line_.text().size()};
  return atWritten(line_.writtenSpan(rest), std::move(problem));
}

Finding CheckedLine::atEnd(Problem problem) const {
  const std::size_t end = line_.text().size();
  return atWritten(line_.writtenSpan({.begin = end, .end = end}), std::move(problem));
}

Finding CheckedLine::atWritten(Span part, Problem problem) const {
  if (!written_) {
    written_ = std::make_shared<const std::string>(line_.written());
  }
  Finding finding{std::move(problem)};
  finding.script = script_;
  finding.line = number_.inRun;
  finding.editorLine = number_.inEditor;
  finding.column = placeInText(*written_, part.begin).column;
  finding.endColumn = placeInText(*written_, part.end).column;
  finding.text = written_;
  return finding;
}

}  // namespace quobrak::host
