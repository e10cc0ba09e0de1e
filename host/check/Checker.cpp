#include "host/check/Checker.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>
#include <utility>

#include "host/check/CommandIndex.h"
#include "host/check/RunOrder.h"
#include "host/check/ScriptChecker.h"
#include "quobrakUITests/CommandTable.h"

namespace quobrak::host {

namespace {

/// Whether a run of that many scripts has the variable from the host.
bool isSetForRun(std::string_view name, std::size_t scriptCount) {
  constexpr std::array<std::string_view, 3> NAMES{"class", "iteration", "testFileNumber"};
  if (std::find(NAMES.begin(), NAMES.end(), name) != NAMES.end()) {
    return true;
  }
  for (const std::string_view beginning : {"testFileSuiteName", "testFilePath"}) {
    if (name.starts_with(beginning)) {
      const std::string_view digits = name.substr(beginning.size());
      const std::optional<std::int64_t> number = parseInteger(digits);
      return number && *number >= 1 && *number <= static_cast<std::int64_t>(scriptCount) &&
             digits == std::to_string(*number);
    }
  }
  return false;
}

/// In the order in which the run comes to them.
auto turnOf(const Finding& finding) {
  const bool isBeforeLines = finding.stage == Stage::reading || finding.stage == Stage::preparation;
  // All files are read before the first script is prepared.
  return std::make_tuple(finding.stage != Stage::reading, finding.script, isBeforeLines ? 0 : finding.line,
                         isBeforeLines ? finding.line : 0, finding.stage, finding.column);
}

}  // namespace

std::vector<Finding> check(std::span<const ScriptSource> scripts, const CheckOptions& options) {
  const CommandIndex commands(commandTable());
  const CheckContext context{
      .variables = options.variables, .commands = commands, .isSomehowSet = [&scripts](std::string_view name) {
        return isSetForRun(name, scripts.size());
      }};
  std::vector<ScriptReport> reports;
  reports.reserve(scripts.size());
  for (std::size_t i = 0; i < scripts.size(); ++i) {
    reports.push_back(checkScript(scripts[i], i, context));
  }
  std::vector<Finding> findings = findingsAcross(reports, options.isOrderKnown ? Order::known : Order::unknown);
  for (ScriptReport& report : reports) {
    std::move(report.findings.begin(), report.findings.end(), std::back_inserter(findings));
  }
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& left, const Finding& right) {
    return std::tie(left.script, left.line, left.column, left.stage, left.rule) <
           std::tie(right.script, right.line, right.column, right.stage, right.rule);
  });
  return findings;
}

const Finding* firstFailure(std::span<const Finding> findings) {
  const Finding* first = nullptr;
  for (const Finding& finding : findings) {
    if (finding.severity == Severity::error && (first == nullptr || turnOf(finding) < turnOf(*first))) {
      first = &finding;
    }
  }
  return first;
}

std::size_t countOf(std::span<const Finding> findings, Severity severity) {
  return static_cast<std::size_t>(std::count_if(
      findings.begin(), findings.end(), [severity](const Finding& finding) { return finding.severity == severity; }));
}

}  // namespace quobrak::host
