#include "host/run/Measures.h"

#include <algorithm>
#include <system_error>
#include <tuple>

#include "host/Subcommand.h"
#include "host/check/FileBytes.h"
#include "host/terminal/Terminal.h"
#include "quobrakUITests/TestResultV2.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

MeasuredStep decodedMeasure(const std::string& text) {
  const JSONValue document = JSONDecoder::decode(text);
  const JSONReader reader(document);
  const TestResultV2 result = TestResultV2::decode(reader);
  if (result.measures.empty() || result.measures.front().empty()) {
    reader.member("measures").fail("there is no tick of a start and a stop");
  }
  const std::vector<MeasureTick>& ticks = result.measures.front();
  return {.name = result.test, .start = ticks.front().time, .stop = ticks.back().time, .duration = result.testTime};
}

/// Sorted, because a folder has no order.
std::vector<fs::path> filesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code none;
  // A step whose name has a slash lies in a folder of its own.
  for (fs::recursive_directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
    if (entry->is_regular_file(none)) {
      files.push_back(entry->path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// The script that gets what the trace does not know; null where there is no script.
ScriptRecord* lastBegun(IterationRecord& iteration) {
  const auto last = std::find_if(iteration.scripts.rbegin(), iteration.scripts.rend(),
                                 [](const ScriptRecord& script) { return script.started.has_value(); });
  if (last != iteration.scripts.rend()) {
    return &*last;
  }
  return iteration.scripts.empty() ? nullptr : &iteration.scripts.back();
}

}  // namespace

std::vector<MeasuredStep> readMeasures(const fs::path& folder, std::vector<std::string>& notices) {
  std::vector<MeasuredStep> measures;
  for (const fs::path& file : filesBelow(folder)) {
    try {
      measures.push_back(decodedMeasure(fileBytes(file)));
    } catch (const DecodingError& error) {
      notices.push_back("The measure " + shown(file.native()) + " cannot be used: " + error.what());
    } catch (const EnvironmentError& error) {
      notices.push_back(std::string("A measure is missing: ") + error.what());
    }
  }
  std::stable_sort(measures.begin(), measures.end(), [](const MeasuredStep& left, const MeasuredStep& right) {
    return std::tie(left.start, left.stop) < std::tie(right.start, right.stop);
  });
  return measures;
}

void assignMeasures(std::vector<MeasuredStep> measures, const std::vector<TracedStep>& traced,
                    IterationRecord& iteration, std::vector<std::string>& notices) {
  for (const auto& [position, step] : traced) {
    const auto measure =
        std::find_if(measures.begin(), measures.end(), [&wanted = step](const MeasuredStep& candidate) {
          return candidate.name == wanted.name && candidate.start == wanted.start;
        });
    if (measure != measures.end()) {
      iteration.scripts.at(position).steps.push_back(*measure);
      measures.erase(measure);
    } else if (iteration.outcome == IterationOutcome::finished) {
      iteration.scripts.at(position).steps.push_back(step);
      notices.push_back("The step " + step.name + " has no measure file; its times are those of the trace");
    }
  }
  ScriptRecord* const script = lastBegun(iteration);
  for (const MeasuredStep& measure : measures) {
    if (script != nullptr) {
      script->steps.push_back(measure);
      notices.push_back("The trace does not tell which script has measured the step " + measure.name +
                        "; it is counted to the last one");
    }
  }
}

}  // namespace quobrak::host
