#include "tests/host/report/TestScreen.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/terminal/Terminal.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

void TestScreen::write(std::string_view text) {
  constexpr std::string_view ESCAPE = "\x1b[";
  while (!text.empty()) {
    if (text.starts_with(ESCAPE)) {
      const std::size_t end = text.find_first_not_of("0123456789;", ESCAPE.size());
      ASSERT_NE(end, std::string_view::npos) << "a sequence that does not end";
      obey(text.substr(ESCAPE.size(), end - ESCAPE.size()), text[end]);
      text.remove_prefix(end + 1);
    } else if (text.front() == '\n') {
      toNextRow();
      text.remove_prefix(1);
    } else {
      const std::size_t end = text.find_first_of("\n\x1b", 1);
      const std::string_view printed = text.substr(0, end);
      for (const std::string_view character : characters(printed)) {
        put(character);
      }
      text.remove_prefix(printed.size());
    }
  }
}

std::vector<std::string> TestScreen::rows() const {
  std::vector<std::string> texts;
  for (const Row& row : rows_) {
    std::string text;
    for (const std::string& cell : row) {
      text += cell;
    }
    text.erase(text.find_last_not_of(' ') + 1);
    texts.push_back(text);
  }
  while (!texts.empty() && texts.back().empty()) {
    texts.pop_back();
  }
  return texts;
}

void TestScreen::obey(std::string_view parameter, char command) {
  const std::string sequence = std::string(parameter) + command;
  if (command == 'A') {
    const std::size_t count = parameter.empty() ? 1 : std::stoul(std::string(parameter));
    ASSERT_LE(count, row_) << "up beyond the first row";
    row_ -= count;
  } else if (sequence == "K") {
    eraseToEndOfRow();
  } else if (sequence == "J") {
    eraseToEndOfRow();
    rows_.resize(row_ + 1);
  } else {
    ASSERT_EQ(command, 'm') << "an unknown sequence: " << sequence;
  }
}

/// A terminal stands on its last column while the next character is to begin a new row, and erases that too.
void TestScreen::eraseToEndOfRow() {
  const std::size_t column = column_ == width_ ? width_ - 1 : column_;
  row().resize(std::min(column, row().size()), " ");
}

void TestScreen::put(std::string_view character) {
  ASSERT_GE(static_cast<unsigned char>(character.front()), ' ') << "a control character";
  const std::size_t columns = displayWidth(character);
  ASSERT_LE(columns, width_) << "wider than the screen";
  if (column_ + columns > width_) {
    toNextRow();
  }
  if (row().size() < column_ + columns) {
    row().resize(column_ + columns, " ");
  }
  row()[column_] = character;
  for (std::size_t i = 1; i < columns; ++i) {
    row()[column_ + i].clear();
  }
  column_ += columns;
}

void TestScreen::toNextRow() {
  ++row_;
  column_ = 0;
  if (row_ == rows_.size()) {
    rows_.emplace_back();
  }
}

}  // namespace quobrak::host
