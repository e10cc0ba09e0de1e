#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

#include "platform/foundation/JSON.h"
#include "quobrakUITests/RunObserver.h"

namespace quobrak {

/// A duration as traces show it: milliseconds with three decimals, which is as much as a microsecond clock can tell.
double inMilliseconds(Seconds duration);

/// Where a trace goes: one JSON object a line. When it can no longer be written (a full disk, a reader that has gone)
/// it says so once on standard error and falls silent; a run never fails for its trace.
class TraceOutput {
 public:
  /// Opens a file, which is emptied, or the open descriptor N of "fd:N". Throws `ConfigurationError` where that is not
  /// possible.
  explicit TraceOutput(const std::string& destination);

  void write(JSONValue::Object event);
  void flush();

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void giveUpUnless(bool worked);

  std::unique_ptr<std::FILE, Closer> file_;
};

/// Writes what happens in a run: scripts, lines before and after they run, measured steps. Flushed at each line event,
/// so that whoever follows it sees a line before it runs, and a stop of the process loses nothing that was before it.
class Trace final : public RunObserver {
 public:
  /// `output` must outlive the trace.
  explicit Trace(TraceOutput& output) : output_(output) {}

  void scriptStarted(const TestFile& testFile, std::size_t number, std::size_t total) override;
  void scriptFinished(const TestFile& testFile, const TestStatus& status) override;
  void scriptRaised(const std::exception& error) override;
  void pictureOrDumpRaised(const std::exception& error) override;
  void lineStarted(std::size_t number, std::string_view text) override;
  void lineFinished(std::size_t number, std::string_view text, Seconds duration, const std::exception* error) override;
  void stepFinished(const TestResultV2& step) override;

 private:
  TraceOutput& output_;
};

}  // namespace quobrak
