#include "host/commands/CommandPages.h"

#include <algorithm>
#include <cstddef>

#include "host/commands/MarkdownText.h"
#include "manual/ArgumentWords.h"

namespace quobrak::host {

namespace {

constexpr std::size_t INDENT = 2;
constexpr std::size_t GAP = 2;

/// How far a text begins behind what it explains: as far as the longest of these reaches, but not so far that it has
/// less room than they. What reaches farther stands on a line of its own.
std::size_t columnBehind(const std::vector<std::string>& terms, const Terminal& terminal) {
  std::size_t longest = 0;
  for (const std::string& term : terms) {
    longest = std::max(longest, displayWidth(term));
  }
  return INDENT + std::min(longest, terminal.width * 2 / 5) + GAP;
}

/// A term, and behind it, from that column on, lines of text that are indented as far.
std::string explained(const std::string& term, std::size_t column, const std::string& lines, const Terminal& terminal) {
  const std::string begin = std::string(INDENT, ' ') + terminal.styled(Style::bold, term);
  const bool fits = displayWidth(begin) + GAP <= column;
  return fits ? padded(begin, column) + lines.substr(std::min(column, lines.size())) : begin + "\n" + lines;
}

std::string heading(std::string_view text, const Terminal& terminal) {
  return "\n" + terminal.styled(Style::bold, text) + "\n";
}

std::vector<std::string> usagesOf(const std::vector<manual::DescribedGroup>& groups) {
  std::vector<std::string> usages;
  for (const manual::DescribedGroup& group : groups) {
    for (const manual::DescribedCommand& command : group.commands) {
      usages.push_back(usageOf(command.row));
    }
  }
  return usages;
}

std::string argumentsOf(const manual::DescribedCommand& command, const Terminal& terminal) {
  const std::span<const ArgumentInfo> arguments = command.row.arguments();
  std::vector<std::string> labels;
  for (const ArgumentInfo& argument : arguments) {
    labels.emplace_back(argument.label);
  }
  const std::size_t column = columnBehind(labels, terminal);
  std::string text = arguments.empty() ? "" : heading("Arguments", terminal);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string writing =
        std::string(manual::writtenAs(arguments[i].unit)) + "; left out: " + manual::whenLeftOut(arguments[i]);
    text += explained(
        labels[i], column,
        markdownText(command.note.arguments[i], column, terminal) + markdownText(writing, column, terminal), terminal);
  }
  return text;
}

std::string failuresOf(std::string_view title, const std::vector<manual::Failure>& failures, const Terminal& terminal) {
  std::string text = failures.empty() ? "" : heading(title, terminal);
  for (const manual::Failure& failure : failures) {
    text +=
        wrappedText(failure.message, INDENT, terminal) + markdownText("when: " + failure.when, 3 * INDENT, terminal);
  }
  return text;
}

std::string exampleOf(std::string_view lines, const Terminal& terminal) {
  std::string text = heading("Example", terminal);
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    // A line of a script is what it is, however long.
    text += std::string(INDENT, ' ').append(line) + "\n";
  }
  return text;
}

}  // namespace

std::string commandList(const std::vector<manual::DescribedGroup>& groups, const Terminal& terminal) {
  const std::size_t column = columnBehind(usagesOf(groups), terminal);
  std::string text;
  for (const manual::DescribedGroup& group : groups) {
    text += (text.empty() ? "" : "\n") + terminal.styled(Style::bold, group.title) + "\n";
    for (const manual::DescribedCommand& command : group.commands) {
      text += explained(usageOf(command.row), column, markdownText(command.row.summary, column, terminal), terminal);
    }
  }
  return text;
}

std::string commandPage(const manual::DescribedCommand& command, const Terminal& terminal) {
  const std::string blank = command.note.description.empty() ? "" : " ";
  return terminal.styled(Style::bold, usageOf(command.row)) + "\n\n" +
         markdownText(std::string(command.row.summary) + blank + command.note.description, INDENT, terminal) +
         argumentsOf(command, terminal) + failuresOf("Errors", manual::errorsOf(command.row, command.note), terminal) +
         failuresOf("Stops the process", manual::stopsOf(command.row, command.note), terminal) +
         exampleOf(command.note.example, terminal);
}

}  // namespace quobrak::host
