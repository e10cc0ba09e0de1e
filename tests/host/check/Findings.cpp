#include "tests/host/check/Findings.h"

#include <array>

namespace quobrak::host::testing {

namespace {

std::string outcomeInWords(Outcome outcome) {
  constexpr std::array WORDS{"", "", ", aborts", ", endless", ", prevents"};
  return WORDS.at(static_cast<std::size_t>(outcome));
}

std::vector<ScriptSource> sourcesOf(const std::vector<std::string>& scripts) {
  std::vector<ScriptSource> sources;
  for (const std::string& script : scripts) {
    sources.push_back({.name = "script" + std::to_string(sources.size() + 1) + ".txt", .bytes = script});
  }
  return sources;
}

}  // namespace

std::string inShort(const Finding& finding) {
  const std::string script = finding.script == 0 ? "" : std::to_string(finding.script + 1) + "/";
  const std::string place = script + std::to_string(finding.line) + ":" + std::to_string(finding.column) + "-" +
                            std::to_string(finding.endColumn);
  return place + (finding.severity == Severity::error ? " error " : " warning ") +
         std::string(infoOf(finding.rule).id) + outcomeInWords(finding.outcome) + ": " + finding.message +
         (finding.hint.empty() ? "" : " (" + finding.hint + ")");
}

std::vector<std::string> inShort(std::span<const Finding> findings) {
  std::vector<std::string> lines;
  for (const Finding& finding : findings) {
    lines.push_back(inShort(finding));
  }
  return lines;
}

std::vector<std::string> findingsIn(const std::string& script, const Variables& variables) {
  return inShort(check(sourcesOf({script}), {.variables = variables, .isOrderKnown = true}));
}

std::vector<std::string> findingsInRun(const std::vector<std::string>& scripts, bool isOrderKnown) {
  return inShort(check(sourcesOf(scripts), {.variables = {}, .isOrderKnown = isOrderKnown}));
}

Variables variablesOf(const std::vector<std::pair<std::string, std::string>>& definitions) {
  Variables variables;
  for (const auto& [name, value] : definitions) {
    variables.set(name, value);
  }
  return variables;
}

}  // namespace quobrak::host::testing
