// A line of definitions of variables, NAME=VALUE with tabs between them, and behind it scripts of one run, with NUL
// bytes between them: they are checked, and what is found is written in all formats.

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "host/check/Checker.h"
#include "host/check/FindingsData.h"
#include "host/check/FindingsText.h"
#include "platform/foundation/JSON.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/ScriptLines.h"

namespace quobrak::fuzz {

namespace {

using host::Finding;

/// The pieces between the signs, with empty ones.
std::vector<std::string_view> piecesOf(std::string_view text, char sign) {
  std::vector<std::string_view> pieces;
  for (std::size_t at = text.find(sign); at != std::string_view::npos; at = text.find(sign)) {
    pieces.push_back(text.substr(0, at));
    text.remove_prefix(at + 1);
  }
  pieces.push_back(text);
  return pieces;
}

host::Variables variablesIn(std::string_view line) {
  host::Variables variables;
  for (const std::string_view definition : piecesOf(line, '\t')) {
    const std::size_t equals = definition.find('=');
    if (equals != std::string_view::npos) {
      variables.set(std::string(definition.substr(0, equals)), definition.substr(equals + 1));
    }
  }
  return variables;
}

std::vector<host::ScriptSource> scriptsIn(std::string_view bytes) {
  // More of them tell nothing new.
  constexpr std::size_t MOST_SCRIPTS = 4;
  std::vector<host::ScriptSource> scripts;
  for (const std::string_view piece : piecesOf(bytes, '\0')) {
    if (scripts.size() < MOST_SCRIPTS) {
      scripts.push_back({.name = "s\x1b" + std::to_string(scripts.size()), .bytes = std::string(piece)});
    }
  }
  return scripts;
}

std::size_t codePointsOf(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

/// The lines of a script, as they are written; none where it is no text.
std::vector<std::string> linesOf(const host::ScriptSource& script) {
  std::vector<std::string> all;
  if (const std::optional<std::string> text = decodedText(script.bytes)) {
    ScriptLines lines(*text);
    while (const auto line = lines.next()) {
      all.emplace_back(*line);
    }
  }
  return all;
}

void requirePlace(const Finding& finding, const std::vector<std::string>& lines) {
  require(finding.column >= 1 && finding.column <= finding.endColumn, "a place ends behind its begin");
  if (finding.rule == host::Rule::unreadableText) {
    require(lines.empty(), "only what is no text cannot be read");
    return;
  }
  require(finding.editorLine >= 1 && finding.editorLine <= finding.line, "editors count no more lines");
  require(finding.line >= 1 && finding.line <= lines.size(), "a finding is in a line of its script");
  if (finding.rule != host::Rule::noCommand) {
    require(*finding.text == lines[finding.line - 1], "a finding has the line that it is in");
  }
  require(finding.endColumn <= codePointsOf(lines[finding.line - 1]) + 1, "a place lies within its line");
}

/// Whether the text, which is UTF-8, has no control characters but newlines.
bool isSane(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool isSecondSet = byte == 0xC2U && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0U;
    if ((byte < 0x20U && byte != '\n') || byte == 0x7FU || isSecondSet) {
      return false;
    }
  }
  return true;
}

void requireWords(const std::vector<Finding>& findings, const std::vector<host::ScriptSource>& scripts) {
  const std::string text = host::inWords(findings, scripts, host::Terminal());
  require(isUTF8(text) && isSane(text), "what is shown has no control characters");
  const JSONValue data = JSONDecoder::decode(host::asJSON(findings, scripts));
  require(JSONReader(data).member("findings").elements().size() == findings.size(), "JSON has all findings");
  const JSONValue log = JSONDecoder::decode(host::asSARIF(findings, scripts));
  require(JSONReader(log).member("runs").elements().front().member("results").elements().size() == findings.size(),
          "SARIF has all findings");
}

void tryRun(const std::vector<host::ScriptSource>& scripts, const host::CheckOptions& options) {
  const std::vector<Finding> findings = host::check(scripts, options);
  std::vector<std::vector<std::string>> lines(scripts.size());
  std::transform(scripts.begin(), scripts.end(), lines.begin(), linesOf);
  for (const Finding& finding : findings) {
    require(finding.script < scripts.size(), "a finding is in a script");
    require(!finding.message.empty() && isUTF8(finding.message) && isUTF8(finding.hint), "a finding can be read");
    requirePlace(finding, lines[finding.script]);
  }
  require(std::is_sorted(findings.begin(), findings.end(),
                         [](const Finding& left, const Finding& right) {
                           return std::tie(left.script, left.line, left.column) <
                                  std::tie(right.script, right.line, right.column);
                         }),
          "findings are in order");
  const Finding* const first = host::firstFailure(findings);
  require((first == nullptr) == (host::countOf(findings, host::Severity::error) == 0),
          "a run fails where there is an error");
  requireWords(findings, scripts);
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  Input input(data, size);
  const host::Variables variables = variablesIn(input.line());
  const std::vector<host::ScriptSource> scripts = scriptsIn(input.rest());
  tryRun(scripts, {.variables = variables, .isOrderKnown = true});
  tryRun(scripts, {.variables = variables, .isOrderKnown = false});
  return 0;
}
