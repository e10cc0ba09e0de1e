#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::host {

/// What a terminal of some width shows after what has been written to it. It knows the few sequences that the program
/// uses; any other control character, and a way up beyond the first row, fails the test.
class TestScreen {
 public:
  explicit TestScreen(std::size_t width) : width_(width) {}

  void write(std::string_view text);

  /// Without blanks at their ends, and without empty ones at the end.
  std::vector<std::string> rows() const;

  /// The row of the cursor, from 0.
  std::size_t cursorRow() const { return row_; }

 private:
  using Row = std::vector<std::string>;

  /// `parameter` and `command` of ESC [ parameter command.
  void obey(std::string_view parameter, char command);
  void put(std::string_view character);
  void toNextRow();
  void eraseToEndOfRow();
  Row& row() { return rows_[row_]; }

  std::size_t width_;
  /// A cell for each column; the second one of a wide character is empty.
  std::vector<Row> rows_{Row()};
  std::size_t row_ = 0;
  /// As wide as the screen while the next character is to begin a new row.
  std::size_t column_ = 0;
};

}  // namespace quobrak::host
