#pragma once

#include <string>
#include <string_view>

namespace quobrak {

/// Stops the test process: standard output is flushed, "Fatal error: ", the message and the script line that is
/// running, if any, go to standard error, and the process aborts.
///
/// For misuse that no script may recover from. What a script author is meant to read is an `FWKTError` instead.
[[noreturn]] void fatalError(std::string_view message);

/// Names the script line that is running for as long as it lives, so that a fatal stop can say where it happened.
/// Notes nest; the innermost one is shown.
class ScriptLineNote {
 public:
  /// `number` counts from 1. `text` must outlive the note.
  ScriptLineNote(std::size_t number, std::string_view text);
  ~ScriptLineNote();
  ScriptLineNote(const ScriptLineNote&) = delete;
  ScriptLineNote& operator=(const ScriptLineNote&) = delete;

 private:
  std::size_t number_;
  std::string_view text_;
  const ScriptLineNote* outer_;

  friend void fatalError(std::string_view message);
};

}  // namespace quobrak
