#include "quobrakUITests/Probe.h"

#include <utility>

#include "platform/foundation/FatalError.h"
#include "quobrakUITests/CheckedArithmetic.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/Timestamp.h"

namespace quobrak {

namespace {

/// The one value of every tick, by which the host tool knows the marker.
constexpr const char* MARKER_KEY = "AH_PL";

MeasureTick tickNow() {
  return {.time = getTimestampMillis(), .values = {{MARKER_KEY, 0}}};
}

}  // namespace

void Probe::measureStart(std::string stepName) {
  TestContext::shared().setCurrentTestResult(
      {.test = std::move(stepName), .testTime = 0, .measures = {{tickNow()}, {}}});
}

void Probe::measureStop() {
  TestResultV2 result = TestContext::shared().getCurrentTestResult();
  if (result.measures.empty() || result.measures[0].empty()) {
    fatalError(NO_STEP);
  }
  const std::int64_t start = result.measures[0][0].time;
  const MeasureTick tick = tickNow();
  result.measures[0].push_back(tick);
  result.testTime = checkedSubtract(tick.time, start, "The duration of the step overflows");
  TestContext::shared().appendTestResults(std::move(result));
}

}  // namespace quobrak
