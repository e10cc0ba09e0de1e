#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quobrak::host {

/// What a display can tell of a line by its text alone.
struct LineMeaning {
  /// The first field.
  std::string_view command;
  /// How long a pause takes; none where the line is none, or none that could be carried out.
  std::optional<std::chrono::milliseconds> pause;
  /// The step that the line begins.
  std::optional<std::string> begunStep;
  bool endsStep = false;
};

/// `line` is as it runs, after trimming and substitution, and must outlive the answer.
LineMeaning meaningOf(std::string_view line);

}  // namespace quobrak::host
