#include "host/program/FishCompletion.h"

#include "host/program/ShellText.h"

namespace quobrak::host {

namespace {

/// In single quotes fish reads \\ and \' and nothing else.
std::string quoted(std::string text) {
  return "'" + withReplaced(withReplaced(std::move(text), "\\", "\\\\"), "'", "\\'") + "'";
}

/// What `-a` takes: a text that fish reads once more as a list of words.
std::string listOf(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    list += (list.empty() ? "" : " ") + quoted(name);
  }
  return quoted(list);
}

std::string valueOf(const DeclaredOption& option) {
  switch (option.kind) {
    case ValueKind::none:
      return "";
    case ValueKind::name:
      return " -x -a " + listOf(option.values);
    case ValueKind::file:
    case ValueKind::path:
      return " -r -F";
    case ValueKind::folder:
      return " -x -a '(__fish_complete_directories (commandline -ct))'";
    case ValueKind::anything:
      break;
  }
  return " -x";
}

std::string begin(const std::string& subcommand) {
  return "complete -c quobrak -n " + quoted("__quobrak_is_at" + (subcommand.empty() ? "" : " " + subcommand));
}

std::string lineOf(const DeclaredOption& option, const std::string& subcommand) {
  std::string line = begin(subcommand);
  for (const std::string& name : option.names) {
    const bool isLong = name.starts_with("--");
    line += (isLong ? " -l " : " -s ") + quoted(name.substr(isLong ? 2 : 1));
  }
  return line + valueOf(option) + " -d " + quoted(option.help) + "\n";
}

std::string argumentLine(const DeclaredOption& argument, const std::string& subcommand) {
  switch (argument.kind) {
    case ValueKind::name:
      return begin(subcommand) + " -a " + listOf(argument.values) + "\n";
    case ValueKind::file:
    case ValueKind::path:
      return begin(subcommand) + " -F\n";
    case ValueKind::folder:
      return begin(subcommand) + " -a '(__fish_complete_directories (commandline -ct))'\n";
    case ValueKind::none:
    case ValueKind::anything:
      break;
  }
  return "";
}

std::string linesOf(const DeclaredCommand& command, const std::string& subcommand) {
  std::string lines;
  for (const DeclaredOption& option : command.options) {
    lines += lineOf(option, subcommand);
  }
  return lines;
}

}  // namespace

std::string fishCompletion(const DeclaredProgram& program) {
  std::string script = R"(# Completion of quobrak for fish. Made by "quobrak completion fish".

# Whether that subcommand was typed, or none where none is given.
function __quobrak_is_at
    set -l words (commandline -opc)
    for word in $words[2..-1]
        if not string match -q -- '-*' $word
            test "$word" = "$argv[1]"
            return
        end
    end
    test -z "$argv[1]"
end

complete -c quobrak -f
)";
  script += linesOf(program.program, "");
  for (const DeclaredCommand& subcommand : program.subcommands) {
    script += begin("") + " -a " + quoted(subcommand.name) + " -d " + quoted(subcommand.summary) + "\n";
  }
  for (const DeclaredCommand& subcommand : program.subcommands) {
    script += "\n" + linesOf(subcommand, subcommand.name);
    for (const DeclaredOption& argument : subcommand.arguments) {
      script += argumentLine(argument, subcommand.name);
    }
  }
  return script;
}

}  // namespace quobrak::host
