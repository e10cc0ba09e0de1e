#include "host/check/NumberedLines.h"

namespace quobrak::host {

std::optional<NumberedLine> NumberedLines::next() {
  const std::optional<std::string_view> line = lines_.next();
  if (!line) {
    return std::nullopt;
  }
  ++last_.inRun;
  if (!isBetweenReturnAndFeed(static_cast<std::size_t>(line->data() - script_.data()))) {
    ++last_.inEditor;
  }
  return NumberedLine{.text = *line, .number = last_};
}

bool NumberedLines::isBetweenReturnAndFeed(std::size_t place) const {
  return place > 0 && script_[place - 1] == '\r' && script_.substr(place).starts_with('\n');
}

}  // namespace quobrak::host
