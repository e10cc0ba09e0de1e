#include "host/program/BashCompletion.h"

#include "host/program/ShellText.h"

namespace quobrak::host {

namespace {

/// What does not depend on what is declared. Four functions that do follow it: whether "SUBCOMMAND OPTION" takes a
/// value, and what begins with a word among the values of "SUBCOMMAND OPTION", the options of "SUBCOMMAND", and what
/// may stand at "SUBCOMMAND PLACE".
constexpr const char* FRAME = R"(# Completion of quobrak for bash. Made by "quobrak completion bash".

# _quobrak_names WORD NAME...: the names that begin with the word
_quobrak_names() {
  local word=$1 name
  shift
  for name in "$@"; do
    if [[ $name == "$word"* ]]; then COMPREPLY+=("$name"); fi
  done
}

# _quobrak_files WORD, _quobrak_folders WORD
_quobrak_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}
_quobrak_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$1")
}

_quobrak() {
  local word=${COMP_WORDS[COMP_CWORD]} subcommand= option= place=0 only_arguments= i item
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; ++i)); do
    item=${COMP_WORDS[i]}
    # What is typed as --option=value comes as three words.
    if [[ $item == = ]]; then
      continue
    elif [[ -n $option ]]; then
      option=
    elif [[ $item == -- ]]; then
      only_arguments=1
    elif [[ $item == -?* && -z $only_arguments ]]; then
      if _quobrak_takes_value "$subcommand $item"; then option=$item; fi
    elif [[ -z $subcommand ]]; then
      subcommand=$item
    else
      place=$((place + 1))
    fi
  done
  if [[ $word == = ]]; then word=; fi
  if [[ -n $option ]]; then
    _quobrak_value "$subcommand $option" "$word"
  elif [[ $word == -* && -z $only_arguments ]]; then
    _quobrak_options "$subcommand" "$word"
  else
    _quobrak_argument "$subcommand $place" "$word"
  fi
}
)";

/// The command that offers what the option or argument takes; empty where that can be anything.
std::string offer(const DeclaredOption& option) {
  switch (option.kind) {
    case ValueKind::name:
      return "_quobrak_names \"$2\" " + quotedForShell(option.values);
    case ValueKind::file:
    case ValueKind::path:
      return "_quobrak_files \"$2\"";
    case ValueKind::folder:
      return "_quobrak_folders \"$2\"";
    case ValueKind::none:
    case ValueKind::anything:
      break;
  }
  return "";
}

/// The branches of one `case`, which is a function of its own.
class Branches {
 public:
  explicit Branches(const std::string& function) : text_(function + "() {\n  case $1 in\n") {}

  void add(const std::string& pattern, const std::string& action) {
    text_ += "    " + pattern + ") " + action + " ;;\n";
  }

  std::string finished() const { return text_ + "  esac\n}\n"; }

 private:
  std::string text_;
};

/// "'check -f'|'check --format'"
std::string patternOf(const std::string& subcommand, const DeclaredOption& option) {
  std::string pattern;
  for (const std::string& name : option.names) {
    pattern += (pattern.empty() ? "" : "|") + quotedForShell(subcommand + " " + name);
  }
  return pattern;
}

std::vector<std::string> namesOf(const std::vector<DeclaredOption>& options) {
  std::vector<std::string> names;
  for (const DeclaredOption& option : options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return names;
}

class Script {
 public:
  void addProgram(const DeclaredProgram& program) {
    std::vector<std::string> names;
    for (const DeclaredCommand& subcommand : program.subcommands) {
      names.push_back(subcommand.name);
    }
    add("", program.program);
    arguments_.add("' 0'", "_quobrak_names \"$2\" " + quotedForShell(names));
  }

  void add(const std::string& subcommand, const DeclaredCommand& command) {
    options_.add(quotedForShell(subcommand), "_quobrak_names \"$2\" " + quotedForShell(namesOf(command.options)));
    for (const DeclaredOption& option : command.options) {
      if (option.kind != ValueKind::none) {
        takesValue_.add(patternOf(subcommand, option), "return 0");
      }
      if (const std::string action = offer(option); !action.empty()) {
        values_.add(patternOf(subcommand, option), action);
      }
    }
    for (std::size_t place = 0; place < command.arguments.size(); ++place) {
      const DeclaredOption& argument = command.arguments[place];
      const std::string pattern = argument.repeats ? quotedForShell(subcommand + " ") + "*"
                                                   : quotedForShell(subcommand + " " + std::to_string(place));
      if (const std::string action = offer(argument); !action.empty()) {
        arguments_.add(pattern, action);
      }
    }
  }

  std::string finished() {
    takesValue_.add("*", "return 1");
    return FRAME + ("\n" + takesValue_.finished()) + "\n" + values_.finished() + "\n" + options_.finished() + "\n" +
           arguments_.finished() + "\ncomplete -F _quobrak quobrak\n";
  }

 private:
  Branches takesValue_{"_quobrak_takes_value"};
  Branches values_{"_quobrak_value"};
  Branches options_{"_quobrak_options"};
  Branches arguments_{"_quobrak_argument"};
};

}  // namespace

std::string bashCompletion(const DeclaredProgram& program) {
  Script script;
  script.addProgram(program);
  for (const DeclaredCommand& subcommand : program.subcommands) {
    script.add(subcommand.name, subcommand);
  }
  return script.finished();
}

}  // namespace quobrak::host
