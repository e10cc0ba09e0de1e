#include "host/program/ZshCompletion.h"

#include "host/program/ShellText.h"

namespace quobrak::host {

namespace {

/// In an entry of `_arguments` a colon ends a part, and a bracket an explanation.
std::string escaped(std::string text) {
  for (const char* const special : {"\\", ":", "[", "]"}) {
    text = withReplaced(std::move(text), special, std::string("\\") + special);
  }
  return text;
}

/// The names in a list of `_arguments`: "(text json)".
std::string listOf(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    list += (list.empty() ? "" : " ") + withReplaced(quotedForShell(name), ":", "\\:");
  }
  return "(" + list + ")";
}

std::string actionOf(const DeclaredOption& option) {
  switch (option.kind) {
    case ValueKind::name:
      return listOf(option.values);
    case ValueKind::file:
    case ValueKind::path:
      return "_files";
    case ValueKind::folder:
      return "_files -/";
    case ValueKind::none:
    case ValueKind::anything:
      break;
  }
  // Nothing, but its message is shown.
  return " ";
}

std::string valueOf(const DeclaredOption& option) {
  return option.kind == ValueKind::none ? "" : ":" + escaped(option.valueName) + ":" + actionOf(option);
}

/// "'(-q --quiet)-q[Shows less]'", one for each name. An option that repeats does not exclude itself.
std::vector<std::string> entriesOf(const DeclaredOption& option) {
  std::string all;
  for (const std::string& name : option.names) {
    all += (all.empty() ? "" : " ") + name;
  }
  std::vector<std::string> entries;
  for (const std::string& name : option.names) {
    const bool hasValue = option.kind != ValueKind::none;
    const std::string ending = hasValue ? (name.starts_with("--") ? "=" : "+") : "";
    entries.push_back((option.repeats ? "*" : "(" + all + ")") + name + ending + "[" + escaped(option.help) + "]" +
                      valueOf(option));
  }
  return entries;
}

/// "'1:SCRIPT:_files'", "'*:SCRIPT:_files'"
std::string entryOf(const DeclaredOption& argument, std::size_t place) {
  return (argument.repeats ? "*" : std::to_string(place)) + valueOf(argument);
}

/// A call of `_arguments` with one entry on each line.
std::string argumentsCall(const std::string& call, const std::vector<std::string>& entries, const std::string& indent) {
  std::string text = indent + call;
  for (const std::string& entry : entries) {
    text += " \\\n" + indent + "  " + quotedForShell(entry);
  }
  return text;
}

std::vector<std::string> optionsOf(const DeclaredCommand& command) {
  std::vector<std::string> entries;
  for (const DeclaredOption& option : command.options) {
    const std::vector<std::string> more = entriesOf(option);
    entries.insert(entries.end(), more.begin(), more.end());
  }
  return entries;
}

std::string branchOf(const DeclaredCommand& subcommand) {
  std::vector<std::string> entries = optionsOf(subcommand);
  for (std::size_t i = 0; i < subcommand.arguments.size(); ++i) {
    entries.push_back(entryOf(subcommand.arguments[i], i + 1));
  }
  return "        " + quotedForShell(subcommand.name) + ")\n" +
         argumentsCall("_arguments -s -S", entries, "          ") + "\n          ;;\n";
}

std::string descriptions(const DeclaredProgram& program) {
  std::string text;
  for (const DeclaredCommand& subcommand : program.subcommands) {
    text += "        " +
            quotedForShell(subcommand.name + ":" +
                           withReplaced(withReplaced(subcommand.summary, "\\", "\\\\"), ":", "\\:")) +
            "\n";
  }
  return text;
}

}  // namespace

std::string zshCompletion(const DeclaredProgram& program) {
  std::vector<std::string> ofProgram = optionsOf(program.program);
  ofProgram.emplace_back("1: :->subcommand");
  ofProgram.emplace_back("*:: :->arguments");
  std::string branches;
  for (const DeclaredCommand& subcommand : program.subcommands) {
    branches += branchOf(subcommand);
  }
  return R"(#compdef quobrak
# Completion of quobrak for zsh. Made by "quobrak completion zsh".

_quobrak() {
  local curcontext=$curcontext state line
  local -a subcommands
  typeset -A opt_args

)" + argumentsCall("_arguments -C", ofProgram, "  ") +
         R"( && return

  case $state in
    subcommand)
      subcommands=(
)" + descriptions(program) +
         R"(      )
      _describe -t subcommands 'subcommand' subcommands
      ;;
    arguments)
      curcontext=${curcontext%:*}-$line[1]:
      case $line[1] in
)" + branches +
         R"(      esac
      ;;
  esac
}

# Found by its name among completions it is called; read by "source" it is made known.
if [[ $funcstack[1] == _quobrak ]]; then
  _quobrak "$@"
else
  compdef _quobrak quobrak
fi
)";
}

}  // namespace quobrak::host
