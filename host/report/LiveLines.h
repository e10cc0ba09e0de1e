#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::host {

/// A few lines at the end of what a terminal shows, which are drawn over. The cursor stands below them. Of the
/// sequences of ECMA-48 it uses three: cursor up, erase to the end of the line, erase to the end of the page.
class LiveLines {
 public:
  /// `out` leads to the terminal and must outlive the lines.
  explicit LiveLines(std::ostream& out) : out_(out) {}
  /// Leaves nothing behind.
  ~LiveLines() { erase(); }
  LiveLines(const LiveLines&) = delete;
  LiveLines& operator=(const LiveLines&) = delete;

  /// Shows these lines in place of those before. Each must be narrower than the terminal, by a column at least: a line
  /// that fills it leaves the cursor where terminals differ.
  void draw(const std::vector<std::string>& lines);

  /// Prints a line above, which stays. It may be wider than the terminal.
  void print(std::string_view line);

  void erase();

 private:
  void toFirstLine();
  void write();

  std::ostream& out_;
  std::vector<std::string> lines_;
};

}  // namespace quobrak::host
