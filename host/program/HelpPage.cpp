#include "host/program/HelpPage.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "host/program/Paragraphs.h"

namespace quobrak::host {

namespace {

/// Longer lines are hard to follow with the eye.
constexpr std::size_t WIDEST = 100;
constexpr std::size_t NARROWEST = 40;
/// A longer syntax has a line of its own, and its explanation begins below it.
constexpr std::size_t LONGEST_SYNTAX = 28;
constexpr std::string_view INDENT = "  ";

/// A term and what is said of it.
using Entry = std::pair<std::string, std::string>;

/// Writes a page from the top.
class Page {
 public:
  explicit Page(const Terminal& terminal)
      : terminal_(terminal), width_(std::clamp(terminal.width, NARROWEST, WIDEST)) {}

  void line(std::string_view text) { text_.append(text).append("\n"); }

  void usage(const DeclaredCommand& command) { line(terminal_.styled(Style::bold, "Usage:") + " " + usageOf(command)); }

  /// A heading, with an empty line before it.
  void heading(std::string_view text) {
    line("");
    line(terminal_.styled(Style::bold, std::string(text) + ":"));
  }

  void broken(std::string_view text, std::string_view indent) {
    for (const std::string& part : brokenInto(width_ - indent.size(), text)) {
      line(std::string(indent) + part);
    }
  }

  void paragraphs(std::string_view text) {
    for (const Paragraph& paragraph : paragraphsOf(text)) {
      line("");
      if (paragraph.isKept) {
        line(joined(paragraph.lines, "\n"));
      } else {
        broken(joined(paragraph.lines, " "), "");
      }
    }
  }

  /// Terms in one column, what is said of them in another.
  void entries(std::string_view title, const std::vector<Entry>& entries) {
    if (entries.empty()) {
      return;
    }
    heading(title);
    std::size_t column = 0;
    for (const auto& [term, meaning] : entries) {
      const std::size_t width = displayWidth(term);
      column = std::max(column, width <= LONGEST_SYNTAX ? width : 0);
    }
    const std::string indent(INDENT.size() + column + INDENT.size(), ' ');
    for (const auto& [term, meaning] : entries) {
      entry(term, meaning, indent);
    }
  }

  const std::string& text() const { return text_; }

 private:
  void entry(const std::string& term, const std::string& meaning, const std::string& indent) {
    const std::string begin = std::string(INDENT) + term;
    std::vector<std::string> parts = brokenInto(width_ - indent.size(), meaning);
    if (parts.front().empty() || displayWidth(begin) + INDENT.size() > indent.size()) {
      line(begin);
    } else {
      line(padded(begin, indent.size()) + parts.front());
      parts.erase(parts.begin());
    }
    for (const std::string& part : parts) {
      if (!part.empty()) {
        line(indent + part);
      }
    }
  }

  const Terminal& terminal_;
  std::size_t width_;
  std::string text_;
};

/// "-q, --quiet"; long names stand below one another where some options of the group have short ones.
std::string aligned(const DeclaredOption& option, bool groupHasShortNames) {
  const bool isLongAlone = !option.names.empty() && option.names.front().starts_with("--");
  return (groupHasShortNames && isLongAlone ? "    " : "") + syntaxOf(option);
}

std::vector<Entry> entriesOf(const std::vector<DeclaredOption>& options) {
  const bool haveShortNames = std::any_of(options.begin(), options.end(), [](const DeclaredOption& option) {
    return !option.names.empty() && !option.names.front().starts_with("--");
  });
  std::vector<Entry> entries(options.size());
  std::transform(options.begin(), options.end(), entries.begin(), [&](const DeclaredOption& option) {
    return Entry(aligned(option, haveShortNames), explanationOf(option));
  });
  return entries;
}

std::vector<Entry> entriesOf(const std::vector<DeclaredCommand>& subcommands) {
  std::vector<Entry> entries(subcommands.size());
  std::transform(subcommands.begin(), subcommands.end(), entries.begin(),
                 [](const DeclaredCommand& subcommand) { return Entry(subcommand.name, subcommand.summary); });
  return entries;
}

std::vector<Entry> entriesOf(const std::vector<ExitMeaning>& meanings) {
  std::vector<Entry> entries(meanings.size());
  std::transform(meanings.begin(), meanings.end(), entries.begin(), [](const ExitMeaning& exit) {
    return Entry(std::to_string(static_cast<int>(exit.status)), exit.meaning);
  });
  return entries;
}

void writeOptions(Page& page, const DeclaredCommand& command) {
  page.entries("Arguments", entriesOf(command.arguments));
  for (const OptionGroup& group : groupsOf(command.options)) {
    page.entries(group.heading, entriesOf(group.options));
  }
}

void writeExamples(Page& page, const DeclaredCommand& command) {
  if (command.examples.empty()) {
    return;
  }
  page.heading("Examples");
  for (const Example& example : command.examples) {
    page.line(std::string(INDENT).append(example.line));
    page.broken(example.purpose, "      ");
  }
}

}  // namespace

std::string syntaxOf(const DeclaredOption& option) {
  std::string text = joined(option.names, ", ");
  if (!option.valueName.empty()) {
    text += (text.empty() ? "" : " ") + option.valueName;
  }
  return option.repeats ? text + "..." : text;
}

std::string explanationOf(const DeclaredOption& option) {
  constexpr std::size_t MOST_NAMES = 12;
  std::string text = option.help;
  const std::string told = option.valueName + " " + option.help;
  const bool areNamesTold = std::all_of(option.values.begin(), option.values.end(), [&told](const std::string& name) {
    return told.find(name) != std::string::npos;
  });
  if (!areNamesTold && option.values.size() <= MOST_NAMES) {
    text += (text.empty() ? "One of " : "; one of ") + joined(option.values, ", ");
  }
  if (!option.preset.empty()) {
    text += (text.empty() ? "" : " ") + ("(default: " + option.preset + ")");
  }
  return text;
}

std::string usageOf(const DeclaredCommand& command) {
  const bool isProgram = command.line == command.name;
  if (isProgram) {
    return command.line + " SUBCOMMAND [OPTION]... [ARGUMENT]...";
  }
  std::string usage = command.line + " [OPTION]...";
  for (const DeclaredOption& option : command.options) {
    if (option.isRequired) {
      usage += " " + option.names.back() + (option.valueName.empty() ? "" : " " + option.valueName);
    }
  }
  for (const DeclaredOption& argument : command.arguments) {
    const std::string syntax = syntaxOf(argument);
    usage += argument.isRequired ? " " + syntax : " [" + syntax + "]";
  }
  return usage;
}

std::vector<ExitMeaning> exitMeaningsOf(const DeclaredCommand& command) {
  static const std::vector<ExitMeaning> GENERAL{
      {.status = ExitStatus::success, .meaning = "All went well"},
      {.status = ExitStatus::failed, .meaning = "A script failed, or a check found an error"},
      {.status = ExitStatus::badUse, .meaning = "The command line cannot be used"},
      {.status = ExitStatus::aborted, .meaning = "A run was aborted: its statuses and measures were not written"},
      {.status = ExitStatus::environmentFailed,
       .meaning = "What the program needs around it failed: a file, a folder, a disk, the test process"},
      {.status = ExitStatus::interrupted, .meaning = "Ended by Ctrl-C"},
      {.status = ExitStatus::terminated, .meaning = "Ended by SIGTERM"}};
  return command.exitMeanings.empty() ? GENERAL : command.exitMeanings;
}

std::vector<OptionGroup> groupsOf(const std::vector<DeclaredOption>& options) {
  std::vector<OptionGroup> groups;
  for (const DeclaredOption& option : options) {
    auto group = std::find_if(groups.begin(), groups.end(),
                              [&option](const OptionGroup& known) { return known.heading == option.group; });
    if (group == groups.end()) {
      group = groups.insert(groups.end(), {.heading = option.group, .options = {}});
    }
    group->options.push_back(option);
  }
  return groups;
}

std::string helpOfProgram(const DeclaredProgram& program, const Terminal& terminal) {
  Page page(terminal);
  page.broken(program.program.summary, "");
  page.line("");
  page.usage(program.program);
  page.paragraphs(program.program.description);
  page.entries("Subcommands", entriesOf(program.subcommands));
  writeOptions(page, program.program);
  writeExamples(page, program.program);
  page.entries("Exit status", entriesOf(exitMeaningsOf(program.program)));
  page.paragraphs("\"quobrak help SUBCOMMAND\" tells all of a subcommand.");
  return page.text();
}

std::string shortHelp(const DeclaredProgram& program, const Terminal& terminal) {
  Page page(terminal);
  page.usage(program.program);
  page.entries("Subcommands", entriesOf(program.subcommands));
  page.paragraphs("\"quobrak help\" tells more, and \"quobrak help SUBCOMMAND\" all of a subcommand.");
  return page.text();
}

std::string helpOfSubcommand(const DeclaredCommand& subcommand, const Terminal& terminal) {
  Page page(terminal);
  page.broken(subcommand.summary, "");
  page.line("");
  page.usage(subcommand);
  page.paragraphs(subcommand.description);
  writeOptions(page, subcommand);
  writeExamples(page, subcommand);
  page.entries("Exit status", entriesOf(exitMeaningsOf(subcommand)));
  return page.text();
}

}  // namespace quobrak::host
