#pragma once

#include <cstddef>
#include <exception>
#include <string_view>

#include "platform/foundation/Clock.h"
#include "quobrakUITests/TestFile.h"
#include "quobrakUITests/TestResultV2.h"
#include "quobrakUITests/TestStatus.h"

namespace quobrak {

/// Is told what happens in a run, as it happens. What it does changes no result. Where none is installed nothing is
/// computed for it.
class RunObserver {
 public:
  virtual ~RunObserver() = default;

  /// `number` counts the scripts of the run from 1 to `total`.
  virtual void scriptStarted(const TestFile& testFile, std::size_t number, std::size_t total) = 0;
  virtual void scriptFinished(const TestFile& testFile, const TestStatus& status) = 0;

  /// What ended the script: the real reason, of which the status may tell less.
  virtual void scriptRaised(const std::exception& error) = 0;
  /// What kept the picture or the dump at the end of the script from being taken. In the status it replaces the reason
  /// that the script failed for.
  virtual void pictureOrDumpRaised(const std::exception& error) = 0;

  /// A line that is about to run: its number in the script, from 1, and its text after trimming and substitution.
  virtual void lineStarted(std::size_t number, std::string_view text) = 0;
  /// `error` is what the command raised, or null. A line that stops the process never finishes.
  virtual void lineFinished(std::size_t number, std::string_view text, Seconds duration,
                            const std::exception* error) = 0;

  virtual void stepFinished(const TestResultV2& step) = 0;

  /// Tells the observer, if there is one, of an event: `tell(&RunObserver::scriptRaised, error)`.
  template <class... Parameters, class... Arguments>
  static void tell(void (RunObserver::*event)(Parameters...), const Arguments&... arguments) {
    if (RunObserver* const observer = installed()) {
      (observer->*event)(arguments...);
    }
  }

  /// The observer, or null.
  static RunObserver* installed();
  /// `observer` must live until another one, or null, is installed.
  static void install(RunObserver* observer);
};

}  // namespace quobrak
