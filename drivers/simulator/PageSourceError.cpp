#include "drivers/simulator/PageSourceError.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

std::string inLines(const std::vector<PageSourceFault>& faults, std::size_t unlisted) {
  std::string text;
  for (const auto& [line, column, reason] : faults) {
    text += (text.empty() ? "line " : "\nline ") + std::to_string(line) + ", column " + std::to_string(column) + ": " +
            reason;
  }
  return unlisted == 0 ? text : text + "\nand " + std::to_string(unlisted) + " more";
}

}  // namespace

PageSourceError::PageSourceError(std::vector<PageSourceFault> faults, std::size_t unlisted)
    : std::runtime_error(inLines(faults, unlisted)), faults_(std::move(faults)), unlisted_(unlisted) {}

void PageSourceFaults::add(std::size_t offset, std::string reason) {
  if (faults_.size() == PageSourceError::MOST_FAULTS) {
    ++unlisted_;
    return;
  }
  std::string_view passed = text_.substr(offset_, offset - offset_);
  if (const auto newline = passed.rfind('\n'); newline != passed.npos) {
    line_ += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
    column_ = 1;
    passed.remove_prefix(newline + 1);
  }
  column_ += characterCount(passed);
  offset_ = offset;
  faults_.push_back({line_, column_, std::move(reason)});
}

}  // namespace quobrak::simulator
