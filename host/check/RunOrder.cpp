#include "host/check/RunOrder.h"

#include <algorithm>
#include <utility>

namespace quobrak::host {

namespace {

/// What scripts give to later ones.
using Gift = bool ScriptReport::*;
using Need = std::optional<Finding> ScriptReport::*;

struct Dependence {
  Need need;
  Gift gift;
  /// Where another script may give it before.
  const char* hint;
};

constexpr Dependence DEPENDENCES[] = {
    {&ScriptReport::needsApplication, &ScriptReport::givesApplication,
     "another script of this check starts an application: it must run before this one"},
    {&ScriptReport::needsElement, &ScriptReport::givesElement,
     "another script of this check finds elements: it must run before this one"},
    {&ScriptReport::needsStep, &ScriptReport::beginsStep,
     "another script of this check begins a step: it must run before this one"},
};

Finding asWarning(Finding finding, const char* hint) {
  finding.severity = Severity::warning;
  finding.hint = hint;
  return finding;
}

/// The scripts go one after the other.
std::vector<Finding> inOrder(std::span<const ScriptReport> reports) {
  std::vector<Finding> findings;
  for (const Dependence& dependence : DEPENDENCES) {
    bool isGiven = false;
    for (const ScriptReport& report : reports) {
      if (report.*dependence.need && !isGiven) {
        findings.push_back(*(report.*dependence.need));
        // Once is enough: what the later ones lack is the same.
        isGiven = true;
      }
      isGiven = isGiven || report.*dependence.gift;
    }
  }
  std::optional<Finding> openStep;
  for (const ScriptReport& report : reports) {
    if (openStep && report.replacesStep) {
      findings.push_back(*report.replacesStep);
    }
    if (report.stopsStep || report.beginsStep) {
      openStep = report.leavesStepOpen;
    }
  }
  if (openStep) {
    findings.push_back(*std::move(openStep));
  }
  return findings;
}

/// Any script may come before any other.
std::vector<Finding> inAnyOrder(std::span<const ScriptReport> reports) {
  std::vector<Finding> findings;
  for (const Dependence& dependence : DEPENDENCES) {
    const auto givers = std::count_if(reports.begin(), reports.end(),
                                      [&](const ScriptReport& report) { return report.*dependence.gift; });
    for (const ScriptReport& report : reports) {
      if (const std::optional<Finding>& need = report.*dependence.need) {
        const bool isGivenByOther = givers > (report.*dependence.gift ? 1 : 0);
        findings.push_back(isGivenByOther ? asWarning(*need, dependence.hint) : *need);
      }
    }
  }
  const auto stoppers =
      std::count_if(reports.begin(), reports.end(), [](const ScriptReport& report) { return report.stopsStep; });
  for (const ScriptReport& report : reports) {
    if (report.leavesStepOpen && stoppers <= (report.stopsStep ? 1 : 0)) {
      findings.push_back(*report.leavesStepOpen);
    }
  }
  return findings;
}

}  // namespace

std::vector<Finding> findingsAcross(std::span<const ScriptReport> reports, Order order) {
  return order == Order::known ? inOrder(reports) : inAnyOrder(reports);
}

}  // namespace quobrak::host
