#include "host/check/FindingsData.h"

#include <cstdint>
#include <utility>

#include "platform/foundation/JSON.h"
#include "platform/foundation/TextPlace.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

using Array = JSONValue::Array;
using Object = JSONValue::Object;

constexpr const char* SARIF_SCHEMA =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
constexpr const char* RULES_PAGE = "docs/check.md";

JSONValue number(std::size_t value) {
  return static_cast<std::int64_t>(value);
}

std::string_view wordOf(Severity severity) {
  return severity == Severity::error ? "error" : "warning";
}

std::string_view wordOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::goesOn:
      return "goesOn";
    case Outcome::failsScript:
      return "failsScript";
    case Outcome::abortsRun:
      return "abortsRun";
    case Outcome::neverEnds:
      return "neverEnds";
    case Outcome::preventsRun:
      return "preventsRun";
  }
  return "";
}

JSONValue dataOf(const Finding& finding, const ScriptSource& script) {
  return Object{{"file", repairedUTF8(script.name)},
                {"line", number(finding.line)},
                {"editorLine", number(finding.editorLine)},
                {"column", number(finding.column)},
                {"endColumn", number(finding.endColumn)},
                {"severity", wordOf(finding.severity)},
                {"outcome", wordOf(finding.outcome)},
                {"rule", infoOf(finding.rule).id},
                {"message", finding.message},
                {"hint", finding.hint}};
}

/// A path as a URI reference.
std::string uriOf(std::string_view path) {
  constexpr std::string_view UNRESERVED = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  std::string uri;
  for (const char byte : path) {
    const auto value = static_cast<unsigned char>(byte);
    if (UNRESERVED.find(byte) != std::string_view::npos) {
      uri += byte;
    } else {
      uri.append({'%', DIGITS[value / 16U], DIGITS[value % 16U]});
    }
  }
  return path.starts_with('/') ? "file://" + uri : uri;
}

JSONValue textObject(std::string_view text) {
  return Object{{"text", text}};
}

JSONValue ruleObject(const RuleInfo& rule) {
  return Object{{"id", rule.id},
                {"shortDescription", textObject(rule.summary)},
                {"help", textObject(std::string(rule.summary) + " See " + RULES_PAGE + "#" + std::string(rule.id))}};
}

/// What stands in the place of the finding.
std::string_view markedText(const Finding& finding) {
  const std::string_view line = *finding.text;
  const std::size_t begin = offsetOfColumn(line, finding.column);
  return line.substr(begin, offsetOfColumn(line, finding.endColumn) - begin);
}

JSONValue resultObject(const Finding& finding, const ScriptSource& script) {
  // Viewers divide texts into lines as editors do, whatever the log says.
  const JSONValue region = Object{{"startLine", number(finding.editorLine)},
                                  {"startColumn", number(finding.column)},
                                  {"endColumn", number(finding.endColumn)},
                                  {"snippet", textObject(markedText(finding))}};
  const JSONValue location = Object{
      {"physicalLocation", Object{{"artifactLocation", Object{{"uri", uriOf(script.name)}}}, {"region", region}}}};
  const std::string hint = finding.hint.empty() ? "" : " (" + finding.hint + ")";
  return Object{{"ruleId", infoOf(finding.rule).id},
                {"ruleIndex", number(static_cast<std::size_t>(finding.rule))},
                {"level", wordOf(finding.severity)},
                {"message", textObject(finding.message + hint)},
                {"locations", Array{location}}};
}

}  // namespace

std::string asJSON(std::span<const Finding> findings, std::span<const ScriptSource> scripts) {
  Array all;
  for (const Finding& finding : findings) {
    all.push_back(dataOf(finding, scripts[finding.script]));
  }
  return JSONEncoder::encode(Object{{"scripts", number(scripts.size())},
                                    {"errors", number(countOf(findings, Severity::error))},
                                    {"warnings", number(countOf(findings, Severity::warning))},
                                    {"findings", std::move(all)}});
}

std::string asSARIF(std::span<const Finding> findings, std::span<const ScriptSource> scripts) {
  Array ruleObjects;
  for (const RuleInfo& rule : rules()) {
    ruleObjects.push_back(ruleObject(rule));
  }
  Array results;
  for (const Finding& finding : findings) {
    results.push_back(resultObject(finding, scripts[finding.script]));
  }
  // As scripts are divided into lines, but for a carriage return and a line feed.
  const JSONValue newlines = Array{"\r\n", "\n", "\v", "\f", "\r", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};
  const JSONValue run =
      Object{{"tool", Object{{"driver", Object{{"name", "quobrak"}, {"rules", std::move(ruleObjects)}}}}},
             {"columnKind", "unicodeCodePoints"},
             {"newlineSequences", newlines},
             {"results", std::move(results)}};
  return JSONEncoder::encode(Object{{"$schema", SARIF_SCHEMA}, {"version", "2.1.0"}, {"runs", Array{run}}});
}

}  // namespace quobrak::host
