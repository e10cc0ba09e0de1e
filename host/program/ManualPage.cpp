#include "host/program/ManualPage.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "host/program/HelpPage.h"
#include "host/program/Paragraphs.h"
#include "host/program/ShellText.h"

namespace quobrak::host {

namespace {

/// The text as roff prints it: a hyphen that can be copied into a shell, and nothing that it takes for a request.
std::string escaped(std::string_view text) {
  std::string result = withReplaced(withReplaced(std::string(text), "\\", "\\e"), "-", "\\-");
  return result.starts_with('.') || result.starts_with('\'') ? "\\&" + result : result;
}

std::string bold(std::string_view text) {
  return "\\fB" + escaped(text) + "\\fR";
}

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char character) { return static_cast<char>(std::toupper(character)); });
  return text;
}

/// "quobrak-check" of "quobrak check"
std::string pageName(const DeclaredCommand& command) {
  return withReplaced(command.line, " ", "-");
}

/// Writes a page from the top.
class Page {
 public:
  Page(const DeclaredCommand& command, const std::string& version) {
    const std::string name = pageName(command);
    // No date: the page is made at each build, and says what the program of that build does.
    line(".TH " + upper(escaped(name)) + " 1 \"\" \"" + version + "\" \"quobrak\"");
    // Names of programs have hyphens of their own, and words to search for stay whole.
    line(".nh");
    section("NAME");
    line(escaped(name) + " \\- " + escaped(command.summary));
    section("SYNOPSIS");
    line(bold(command.line) + escaped(usageOf(command).substr(command.line.size())));
  }

  void line(std::string_view text) { text_.append(text).append("\n"); }

  void section(std::string_view title) {
    line(".SH " + std::string(title));
    hasBegun_ = false;
  }

  void paragraphs(std::string_view text) {
    for (const Paragraph& paragraph : paragraphsOf(text)) {
      if (std::exchange(hasBegun_, true)) {
        line(".PP");
      }
      if (paragraph.isKept) {
        line(".nf");
      }
      for (const std::string& part : paragraph.lines) {
        line(escaped(part));
      }
      if (paragraph.isKept) {
        line(".fi");
      }
    }
  }

  void description(const DeclaredCommand& command) {
    section("DESCRIPTION");
    paragraphs(command.summary + ".\n\n" + command.description);
  }

  void options(const DeclaredCommand& command) {
    entries("ARGUMENTS", command.arguments);
    for (const OptionGroup& group : groupsOf(command.options)) {
      entries(upper(group.heading), group.options);
    }
  }

  void examples(const DeclaredCommand& command) {
    if (command.examples.empty()) {
      return;
    }
    section("EXAMPLES");
    for (const Example& example : command.examples) {
      term(bold(example.line), example.purpose);
    }
  }

  void ends(const DeclaredCommand& command) {
    section("EXIT STATUS");
    for (const ExitMeaning& exit : exitMeaningsOf(command)) {
      term(bold(std::to_string(static_cast<int>(exit.status))), exit.meaning);
    }
  }

  /// What is said of something, behind its name.
  void term(const std::string& name, std::string_view meaning) {
    line(".TP");
    line(name);
    line(escaped(meaning.empty() ? " " : meaning));
  }

  const std::string& text() const { return text_; }

 private:
  void entries(const std::string& title, const std::vector<DeclaredOption>& options) {
    if (options.empty()) {
      return;
    }
    section(title);
    for (const DeclaredOption& option : options) {
      term(bold(syntaxOf(option)), explanationOf(option));
    }
  }

  std::string text_;
  /// Whether the section has a paragraph; the first one needs no request.
  bool hasBegun_ = false;
};

}  // namespace

std::string manualOfProgram(const DeclaredProgram& program, const std::string& version) {
  Page page(program.program, version);
  page.description(program.program);
  page.section("SUBCOMMANDS");
  std::string others;
  for (const DeclaredCommand& subcommand : program.subcommands) {
    page.term(bold(subcommand.name), subcommand.summary);
    others += bold(pageName(subcommand)) + "(1),\n";
  }
  page.options(program.program);
  page.examples(program.program);
  page.ends(program.program);
  page.section("SEE ALSO");
  page.line(others + bold("quobrakUITests") + "(1),\n" + bold("quobrakPhone") + "(1)");
  return page.text();
}

std::string manualOfSubcommand(const DeclaredCommand& subcommand, const std::string& version) {
  Page page(subcommand, version);
  page.description(subcommand);
  page.options(subcommand);
  page.examples(subcommand);
  page.ends(subcommand);
  page.section("SEE ALSO");
  page.line(bold("quobrak") + "(1)");
  return page.text();
}

}  // namespace quobrak::host
