#include "tests/faults/Outcome.h"

#include <algorithm>
#include <functional>
#include <ostream>
#include <regex>
#include <sstream>
#include <utility>

#include "quobrakUITests/TestResultV2.h"
#include "quobrakUITests/TestStatus.h"

namespace quobrak::faults {

namespace {

std::string digest(std::string_view content) {
  return std::to_string(content.size()) + " bytes, " + std::to_string(std::hash<std::string_view>()(content));
}

std::string inWords(const TestStatus& status) {
  return status.status + (status.stackTrace.empty() ? "" : ": " + status.stackTrace);
}

void print(const std::vector<std::string>& lines, std::ostream& stream) {
  for (const std::string& line : lines) {
    stream << "\n    " << line;
  }
}

}  // namespace

std::string inWords(const std::string& step, std::int64_t duration) {
  return step + " " + std::to_string(duration) + " ms";
}

void PrintTo(const Measure& measure, std::ostream* stream) {
  *stream << inWords(measure.name, measure.duration) << ", from " << measure.start << " to " << measure.stop
          << ", written at " << measure.written;
}

void PrintTo(const Summary& summary, std::ostream* stream) {
  *stream << "\n  raised: " << summary.raised.value_or("nothing") << "\n  statuses:";
  print(summary.statuses.value_or(std::vector<std::string>{"none"}), *stream);
  *stream << "\n  errors:";
  for (const auto& [script, errors] : summary.errors) {
    *stream << "\n   of script " << script << ":";
    print(errors, *stream);
  }
  *stream << "\n  steps:";
  print(summary.steps, *stream);
  *stream << "\n  files:";
  print(summary.files, *stream);
  *stream << '\n';
}

Outcome::Outcome(const Files& before, const Files& after, const std::string& log) {
  std::istringstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    const JSONValue event = JSONDecoder::decode(line);
    read(JSONReader(event));
  }
  for (const auto& [path, content] : after) {
    checkContent(path, content, before);
    readFile(path, content);
  }
  std::sort(measures_.begin(), measures_.end(),
            [](const Measure& one, const Measure& other) { return one.written < other.written; });
  for (const Measure& measure : measures_) {
    summary_.steps.push_back(inWords(measure.name, measure.duration));
  }
}

std::vector<Call> Outcome::callsOf(Seam seam) const {
  std::vector<Call> calls = calls_;
  std::erase_if(calls, [seam](const Call& call) { return call.seam != seam; });
  return calls;
}

void Outcome::read(const JSONReader& event) {
  const std::string kind = event.member("event").text();
  if (kind == "fileCall") {
    readCall(event, Seam::files);
  } else if (kind == "driverCall") {
    readCall(event, Seam::driver);
  } else if (kind == "touch") {
    touched_.push_back(event.member("element").text());
  } else if (kind == "step") {
    steps_.push_back({.name = event.member("name").text(),
                      .script = script_,
                      .duration = event.member("duration").integer(),
                      .callsBeforeStart = callsBeforeStep_,
                      .callsBeforeStop = calls_.size()});
  } else if (kind == "scriptError" || kind == "pictureOrDumpError") {
    const JSONReader error = event.member("error");
    summary_.errors[script_].push_back(kind + " " + error.member("kind").text() + ": " +
                                       error.member("message").text());
  } else if (kind == "end") {
    if (const std::optional<JSONReader> raised = event.optionalMember("raised")) {
      summary_.raised = raised->text();
    }
  } else {
    readPhase(event);
  }
}

void Outcome::readPhase(const JSONReader& event) {
  const std::string kind = event.member("event").text();
  if (kind == "scriptStarted") {
    script_ = static_cast<std::size_t>(event.member("number").integer()) - 1;
    isLastScript_ = event.member("number").integer() == event.member("total").integer();
    phase_ = Phase::atEndOfScript;
  } else if (kind == "lineStarted") {
    phase_ = Phase::inLine;
    line_ = static_cast<std::size_t>(event.member("number").integer());
  } else if (kind == "lineFinished") {
    phase_ = Phase::atEndOfScript;
    line_ = 0;
    if (event.member("text").text().starts_with("measureStart")) {
      callsBeforeStep_ = calls_.size();
    }
  } else if (kind == "scriptFinished" && isLastScript_) {
    phase_ = Phase::afterScripts;
  }
}

void Outcome::readCall(const JSONReader& event, Seam seam) {
  const std::size_t number = callsOf(seam).size() + 1;
  calls_.push_back({.position = calls_.size(),
                    .seam = seam,
                    .number = number,
                    .name = event.member("name").text(),
                    .target = event.member("target").text(),
                    .phase = phase_,
                    .script = script_,
                    .line = line_});
  if (calls_.back().name == "write") {
    wanted_[calls_.back().target].insert(event.member("content").text());
  }
}

void Outcome::damage(const std::string& path, const std::string& reason) {
  damages_.push_back(path + ": " + reason);
}

void Outcome::checkContent(const std::string& path, const std::string& content, const Files& before) {
  const auto old = before.find(path);
  if ((old == before.end() || old->second != content) && !wanted_[path].contains(digest(content))) {
    damage(path, "neither what it held before nor the whole of what was written to it");
  }
}

void Outcome::readFile(const std::string& path, const std::string& content) {
  try {
    if (path == "testsStatus.json") {
      readStatuses(content);
    } else if (path.starts_with("measures/")) {
      readMeasure(path, content);
    } else {
      summary_.files.push_back(path);
    }
  } catch (const DecodingError& error) {
    damage(path, error.what());
  }
}

void Outcome::readStatuses(const std::string& content) {
  summary_.statuses.emplace();
  const JSONValue document = JSONDecoder::decode(content);
  for (const JSONReader& status : JSONReader(document).elements()) {
    summary_.statuses->push_back(inWords(TestStatus::decode(status)));
  }
}

void Outcome::readMeasure(const std::string& path, const std::string& content) {
  static const std::regex NAME(R"(measures/fernwick--(.*)-(\d{13})\.json)");
  const JSONValue document = JSONDecoder::decode(content);
  const TestResultV2 result = TestResultV2::decode(JSONReader(document));
  std::smatch match;
  if (!std::regex_match(path, match, NAME) || match[1] != result.test) {
    damage(path, "the name of a file of another step, or of none");
  } else if (result.measures.size() != 2 || result.measures[0].size() != 2 || !result.measures[1].empty()) {
    damage(path, "not a start and a stop");
  } else {
    const std::int64_t start = result.measures[0][0].time;
    const std::int64_t stop = result.measures[0][1].time;
    if (result.testTime != stop - start) {
      damage(path, "a duration that is not the time from the start to the stop");
    }
    measures_.push_back({.name = result.test,
                         .start = start,
                         .stop = stop,
                         .duration = result.testTime,
                         .written = std::stoll(match[2].str())});
  }
}

JSONValue::Object fileCallEvent(std::string_view operation, std::string_view path, std::string_view content) {
  return {{"event", "fileCall"}, {"name", operation}, {"target", path}, {"content", digest(content)}};
}

JSONValue::Object driverCallEvent(std::string_view primitive, std::string_view target) {
  return {{"event", "driverCall"}, {"name", primitive}, {"target", target}};
}

JSONValue::Object touchEvent(std::string_view element) {
  return {{"event", "touch"}, {"element", element}};
}

JSONValue::Object endEvent(const std::optional<std::string>& raised) {
  JSONValue::Object event{{"event", "end"}};
  if (raised) {
    event.emplace("raised", *raised);
  }
  return event;
}

}  // namespace quobrak::faults
