#include "host/check/FindingsText.h"

#include <algorithm>
#include <string_view>

#include "platform/foundation/TextPlace.h"

namespace quobrak::host {

namespace {

constexpr std::string_view INDENTATION = "    ";
/// What a tab is shown as, wherever in the line it stands.
constexpr std::string_view SHOWN_TAB = "    ";
/// Code points that are shown of a line before the place, and from it on.
constexpr std::size_t MOST_BEFORE = 60;
constexpr std::size_t MOST_BEHIND = 100;
constexpr std::string_view ELLIPSIS = "…";

std::string shownWithTabs(std::string_view text) {
  std::string result;
  for (std::size_t tab = text.find('\t'); tab != std::string_view::npos; tab = text.find('\t')) {
    result.append(shown(text.substr(0, tab))).append(SHOWN_TAB);
    text.remove_prefix(tab + 1);
  }
  return result + shown(text);
}

/// A line in three parts, as it is shown; long ones without what is far from the place.
struct Excerpt {
  std::string before;
  std::string marked;
  std::string behind;
};

Excerpt excerptOf(const Finding& finding) {
  const std::string_view text = *finding.text;
  const std::size_t column = finding.column;
  const std::size_t first = offsetOfColumn(text, column - std::min(column - 1, MOST_BEFORE));
  const std::size_t begin = offsetOfColumn(text, column);
  const std::size_t end = offsetOfColumn(text, std::min(finding.endColumn, column + MOST_BEHIND));
  const std::size_t last = offsetOfColumn(text, column + MOST_BEHIND);
  return {.before = std::string(first > 0 ? ELLIPSIS : "") + shownWithTabs(text.substr(first, begin - first)),
          .marked = shownWithTabs(text.substr(begin, end - begin)),
          .behind = shownWithTabs(text.substr(end, std::max(last, end) - end)) +
                    std::string(std::max(last, end) < text.size() ? ELLIPSIS : "")};
}

std::string sentenceOf(const Finding& finding) {
  if (finding.severity == Severity::warning) {
    return "";
  }
  switch (finding.outcome) {
    case Outcome::abortsRun:
      return "this aborts the run: nothing is told of its scripts, and no measure is written";
    case Outcome::preventsRun:
      return "the run does not begin";
    case Outcome::goesOn:
    case Outcome::failsScript:
    case Outcome::neverEnds:
      return "";
  }
  return "";
}

/// Where editors count other lines than the run; empty where they do not.
std::string editorLineOf(const Finding& finding) {
  return finding.editorLine == finding.line ? ""
                                            : "line " + std::to_string(finding.editorLine) +
                                                  " in an editor: carriage return and line feed are two line ends for "
                                                  "the run";
}

}  // namespace

std::string inWords(const Finding& finding, const std::string& name, const Terminal& terminal) {
  const bool isError = finding.severity == Severity::error;
  const std::string place =
      shown(name) + ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column) + ":";
  std::string text = terminal.styled(Style::bold, place) + " " +
                     terminal.styled(isError ? Style::red : Style::yellow, isError ? "error:" : "warning:") + " " +
                     shown(finding.message) +
                     terminal.styled(Style::dim, " [" + std::string(infoOf(finding.rule).id) + "]") + "\n";
  if (!finding.text->empty()) {
    const Excerpt excerpt = excerptOf(finding);
    const std::string mark = "^" + std::string(std::max<std::size_t>(displayWidth(excerpt.marked), 1) - 1, '~');
    text.append(INDENTATION).append(excerpt.before + excerpt.marked + excerpt.behind + "\n");
    text.append(INDENTATION)
        .append(displayWidth(excerpt.before), ' ')
        .append(terminal.styled(Style::green, mark) + "\n");
  }
  for (const std::string& line : {finding.hint, sentenceOf(finding), editorLineOf(finding)}) {
    if (!line.empty()) {
      text.append(INDENTATION).append(shown(line) + "\n");
    }
  }
  return text;
}

std::string inWords(std::span<const Finding> findings, std::span<const ScriptSource> scripts,
                    const Terminal& terminal) {
  std::string text;
  for (const Finding& finding : findings) {
    text += inWords(finding, scripts[finding.script].name, terminal);
  }
  return text;
}

std::string summaryOf(std::span<const Finding> findings, std::size_t scriptCount) {
  return counted(scriptCount, "script") + ", " + counted(countOf(findings, Severity::error), "error") + ", " +
         counted(countOf(findings, Severity::warning), "warning");
}

}  // namespace quobrak::host
