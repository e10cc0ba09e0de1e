#include "host/report/LiveLines.h"

namespace quobrak::host {

namespace {

constexpr const char* ERASE_LINE = "\x1b[K";
constexpr const char* ERASE_BELOW = "\x1b[J";

}  // namespace

void LiveLines::draw(const std::vector<std::string>& lines) {
  if (lines == lines_) {
    return;
  }
  toFirstLine();
  lines_ = lines;
  write();
}

void LiveLines::print(std::string_view line) {
  toFirstLine();
  out_ << ERASE_BELOW << line << '\n';
  write();
}

void LiveLines::erase() {
  draw({});
}

void LiveLines::toFirstLine() {
  if (!lines_.empty()) {
    out_ << "\x1b[" << lines_.size() << 'A';
  }
}

/// A line is erased before it is written over and not all at once, so that nothing flickers.
void LiveLines::write() {
  for (const std::string& line : lines_) {
    out_ << ERASE_LINE << line << '\n';
  }
  out_ << ERASE_BELOW << std::flush;
}

}  // namespace quobrak::host
