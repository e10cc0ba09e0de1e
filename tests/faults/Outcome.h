#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/JSON.h"

namespace quobrak::faults {

/// Where the system is connected to what is outside of it.
enum class Seam { files, driver };

/// The part of a run that something happens in.
enum class Phase {
  /// The scripts are read, and the results of earlier runs cleared.
  beforeScripts,
  inLine,
  /// The picture and the dump.
  atEndOfScript,
  /// The results are written, and the phone is left.
  afterScripts
};

/// A call of the system across a seam.
struct Call {
  /// Among all calls of the run, in the order in which they began, from 0.
  std::size_t position;
  Seam seam;
  /// Among the calls across its seam, from 1.
  std::size_t number;
  /// "write", "tap".
  std::string name;
  /// The path from the Documents directory on, or what is acted on, in words.
  std::string target;
  Phase phase;
  /// The script that runs, or that ran last, counted from 0.
  std::size_t script;
  /// The line that runs, from 1; 0 where none does.
  std::size_t line;
};

/// A step that came to its end, whether or not its file was written.
struct Step {
  std::string name;
  std::size_t script;
  /// Milliseconds.
  std::int64_t duration;
  // How many calls of the run were made before it began, and before it ended.
  std::size_t callsBeforeStart;
  std::size_t callsBeforeStop;
};

/// A measure file. Times are in milliseconds since 1970; the one of writing is that in the file's name.
struct Measure {
  std::string name;
  std::int64_t start;
  std::int64_t stop;
  std::int64_t duration;
  std::int64_t written;

  bool operator==(const Measure&) const = default;
};

/// For the messages of tests.
void PrintTo(const Measure& measure, std::ostream* stream);

/// "Login 250 ms"
std::string inWords(const std::string& step, std::int64_t duration);

/// What a run leaves behind and says, in words that can be compared.
struct Summary {
  /// What the test raised.
  std::optional<std::string> raised;
  /// In `testsStatus.json`: "success", "failed: REASON". None where there is no such file.
  std::optional<std::vector<std::string>> statuses;
  /// What the trace tells of errors that scripts end with: "scriptError fdslError: MESSAGE", by script.
  std::map<std::size_t, std::vector<std::string>> errors;
  /// In the measure files, in the order in which they were written, `inWords`.
  std::vector<std::string> steps;
  /// The other files in the Documents directory, sorted.
  std::vector<std::string> files;

  bool operator==(const Summary&) const = default;
};

/// For the messages of tests.
void PrintTo(const Summary& summary, std::ostream* stream);

/// Contents by path.
using Files = std::map<std::string, std::string>;

/// What a run has left in its Documents directory, and what its log tells.
class Outcome {
 public:
  /// `before` and `after` are all that was in the Documents directory. `log` holds the events of the trace and, among
  /// them, one for each call (`fileCallEvent`, `driverCallEvent`) and each touch (`touchEvent`), and one for the end of
  /// the run (`endEvent`).
  Outcome(const Files& before, const Files& after, const std::string& log);

  /// In the order in which they began.
  const std::vector<Call>& calls() const { return calls_; }
  std::vector<Call> callsOf(Seam seam) const;
  const std::vector<Step>& steps() const { return steps_; }
  /// Sorted by the time of writing.
  const std::vector<Measure>& measures() const { return measures_; }
  /// The labels, or else the identifiers, of the elements that were touched, in order.
  const std::vector<std::string>& touched() const { return touched_; }
  const Summary& summary() const { return summary_; }

  /// What is wrong with the files: what is neither what stood there before nor the whole of what was to be written
  /// there, what its reader could not read, what no call wrote. Empty where nothing is.
  const std::vector<std::string>& damages() const { return damages_; }

 private:
  void read(const JSONReader& event);
  void readPhase(const JSONReader& event);
  void readCall(const JSONReader& event, Seam seam);
  void checkContent(const std::string& path, const std::string& content, const Files& before);
  void readFile(const std::string& path, const std::string& content);
  void readMeasure(const std::string& path, const std::string& content);
  void readStatuses(const std::string& content);
  void damage(const std::string& path, const std::string& reason);

  std::vector<Call> calls_;
  std::vector<Step> steps_;
  std::vector<Measure> measures_;
  std::vector<std::string> touched_;
  Summary summary_;
  std::vector<std::string> damages_;

  /// What was to be written to a path, as `digest` has it.
  std::map<std::string, std::set<std::string>> wanted_;

  // Where the reading of the log stands.
  Phase phase_ = Phase::beforeScripts;
  std::size_t script_ = 0;
  std::size_t line_ = 0;
  bool isLastScript_ = false;
  std::size_t callsBeforeStep_ = 0;
};

// Events that the log of a run has besides those of the trace.
JSONValue::Object fileCallEvent(std::string_view operation, std::string_view path, std::string_view content);
JSONValue::Object driverCallEvent(std::string_view primitive, std::string_view target);
JSONValue::Object touchEvent(std::string_view element);
JSONValue::Object endEvent(const std::optional<std::string>& raised);

}  // namespace quobrak::faults
