#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::simulator {

/// One thing that is wrong with a page source. Line and column count from 1, columns in characters as people see them.
struct PageSourceFault {
  std::size_t line;
  std::size_t column;
  std::string reason;

  bool operator==(const PageSourceFault&) const = default;
};

/// A page source that cannot be used. It says all that is wrong with it, a line for each fault: "line 2, column 4:
/// reason".
class PageSourceError : public std::runtime_error {
 public:
  /// Nobody mends more at a time.
  static constexpr std::size_t MOST_FAULTS = 20;

  /// `unlisted` is how many further faults there are; where there are any, they are the last line.
  explicit PageSourceError(std::vector<PageSourceFault> faults, std::size_t unlisted = 0);

  /// In the order of the page.
  const std::vector<PageSourceFault>& faults() const { return faults_; }
  std::size_t unlisted() const { return unlisted_; }

 private:
  std::vector<PageSourceFault> faults_;
  std::size_t unlisted_;
};

/// Collects what is wrong with a text. It walks the text once, however many faults there are.
class PageSourceFaults {
 public:
  /// The text must outlive this object.
  explicit PageSourceFaults(std::string_view text) : text_(text) {}

  /// `offset` is a byte of the text or its end, and not before that of the fault before it.
  void add(std::size_t offset, std::string reason);

  bool empty() const { return faults_.empty(); }

  /// All that was added.
  PageSourceError error() const { return PageSourceError(faults_, unlisted_); }

 private:
  std::string_view text_;
  std::vector<PageSourceFault> faults_;
  std::size_t unlisted_ = 0;
  /// Where the last fault lies.
  std::size_t offset_ = 0;
  std::size_t line_ = 1;
  std::size_t column_ = 1;
};

}  // namespace quobrak::simulator
