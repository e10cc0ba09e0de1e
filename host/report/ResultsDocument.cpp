#include "host/report/ResultsDocument.h"

#include <optional>
#include <string>

#include "host/report/RunWords.h"
#include "host/report/Statistics.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

JSONValue number(std::size_t count) {
  return static_cast<std::int64_t>(count);
}

/// Paths are bytes, of which JSON could not hold all.
JSONValue text(const std::string& bytes) {
  return repairedUTF8(bytes);
}

template <typename Value>
JSONValue valueOrNull(const std::optional<Value>& value) {
  return value ? JSONValue(*value) : JSONValue();
}

/// An array with what `encode` makes of each item.
template <typename Items, typename Encode>
JSONValue arrayOf(const Items& items, Encode encode) {
  JSONValue::Array array;
  for (const auto& item : items) {
    array.push_back(encode(item));
  }
  return array;
}

/// A seed has 64 bits without a sign, which no number of JSON is sure to keep.
JSONValue seedOf(const RunRecord& run) {
  return run.shuffleSeed ? JSONValue(std::to_string(*run.shuffleSeed)) : JSONValue();
}

JSONValue encodeRunScript(const RunScript& script) {
  return JSONValue::Object{{"lineCount", number(script.lineCount)},
                           {"name", text(script.name)},
                           {"source", text(script.source.string())},
                           {"suite", text(script.suite)}};
}

JSONValue encodeLine(const std::optional<RunLine>& line) {
  return line ? JSONValue(JSONValue::Object{{"number", number(line->number)}, {"text", text(line->text)}})
              : JSONValue();
}

JSONValue encodeStep(const MeasuredStep& step) {
  return JSONValue::Object{
      {"duration", step.duration}, {"name", text(step.name)}, {"start", step.start}, {"stop", step.stop}};
}

JSONValue encodeScript(const ScriptRecord& script) {
  return JSONValue::Object{{"cause", text(script.cause)},
                           {"duration", valueOrNull(script.duration)},
                           {"line", encodeLine(script.line)},
                           {"outcome", nameOf(script.outcome)},
                           {"script", number(script.script)},
                           {"stackTrace", text(script.stackTrace)},
                           {"started", valueOrNull(script.started)},
                           {"steps", arrayOf(script.steps, encodeStep)}};
}

JSONValue encodeIteration(const IterationRecord& iteration) {
  using Milliseconds = std::chrono::duration<double, std::milli>;
  return JSONValue::Object{{"folder", text(iteration.folder.generic_string())},
                           {"isWarmUp", iteration.isWarmUp},
                           {"message", text(iteration.message)},
                           {"number", number(iteration.number)},
                           {"outcome", nameOf(iteration.outcome)},
                           {"scripts", arrayOf(iteration.scripts, encodeScript)},
                           {"wallTime", Milliseconds(iteration.wallTime).count()}};
}

JSONValue encodeStatistics(const StepStatistics& row) {
  const std::optional<Figures>& figures = row.figures;
  return JSONValue::Object{{"leftOut", number(row.leftOut)},
                           {"maximum", figures ? JSONValue(figures->maximum) : JSONValue()},
                           {"mean", figures ? JSONValue(figures->mean) : JSONValue()},
                           {"median", figures ? JSONValue(figures->median) : JSONValue()},
                           {"minimum", figures ? JSONValue(figures->minimum) : JSONValue()},
                           {"n", number(row.samples.size())},
                           {"script", number(row.script)},
                           {"standardDeviation", figures ? valueOrNull(figures->standardDeviation) : JSONValue()},
                           {"step", text(row.step)}};
}

JSONValue encodeOutcomes(const RunRecord& run) {
  JSONValue::Array array;
  for (const OutcomeCounts& counts : outcomeCountsOf(run)) {
    array.push_back(JSONValue::Object{{"aborted", number(counts.aborted)},
                                      {"failed", number(counts.failed)},
                                      {"notRun", number(counts.notRun)},
                                      {"passed", number(counts.passed)},
                                      {"script", number(array.size())}});
  }
  return array;
}

}  // namespace

JSONValue resultsDocument(const RunRecord& run) {
  return JSONValue::Object{{"clock", text(run.clock)},
                           {"driver", text(run.driver)},
                           {"endedEarly", run.endedEarly},
                           {"format", RESULTS_FORMAT},
                           {"iterations", arrayOf(run.iterations, encodeIteration)},
                           {"kind", nameOf(run.kind)},
                           {"outcomes", encodeOutcomes(run)},
                           {"phone", text(run.phone)},
                           {"plannedIterations", number(run.plannedIterations)},
                           {"plannedWarmUps", number(run.plannedWarmUps)},
                           {"scripts", arrayOf(run.scripts, encodeRunScript)},
                           {"shuffleSeed", seedOf(run)},
                           {"statistics", arrayOf(stepStatisticsOf(run), encodeStatistics)}};
}

}  // namespace quobrak::host
