#include "host/program/Declarations.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "host/program/Paragraphs.h"

namespace quobrak::host {

namespace {

using Words = std::vector<std::string>;

Words split(std::string_view text, char separator) {
  Words words;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(separator, begin), text.size());
    words.emplace_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

/// What the library says of an option's value: "TEXT:{system,virtual}", "FOLDER:DIR", "INT:INT in [0 - 9]".
struct ValueType {
  std::string name;
  std::string check;
};

ValueType typeOf(const CLI::Option& option) {
  const std::string text = option.get_type_name();
  const std::size_t colon = std::min(text.find(':'), text.size());
  return {.name = text.substr(0, colon), .check = text.substr(std::min(colon + 1, text.size()))};
}

/// The members of the set that a check is; none where it is another check.
Words membersOf(const std::string& check) {
  const bool isSet = check.size() > 2 && check.front() == '{' && check.back() == '}';
  return isSet ? split(std::string_view(check).substr(1, check.size() - 2), ',') : Words{};
}

std::optional<ValueKind> kindOfCheck(const std::string& check) {
  if (check == "FILE") {
    return ValueKind::file;
  }
  if (check == "DIR") {
    return ValueKind::folder;
  }
  return check.starts_with("PATH(") ? std::optional(ValueKind::path) : std::nullopt;
}

/// What the name of a value or an argument promises.
ValueKind kindOfName(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, ValueKind>, 9> KINDS{{{"FILE", ValueKind::file},
                                                                         {"FILES", ValueKind::file},
                                                                         {"FOLDER", ValueKind::folder},
                                                                         {"FOLDERS", ValueKind::folder},
                                                                         {"DIRECTORY", ValueKind::folder},
                                                                         {"PATH", ValueKind::path},
                                                                         {"PATHS", ValueKind::path},
                                                                         {"SCRIPT", ValueKind::path},
                                                                         {"SCRIPTS", ValueKind::path}}};
  const auto known = std::find_if(KINDS.begin(), KINDS.end(), [name](const auto& kind) { return kind.first == name; });
  return known == KINDS.end() ? ValueKind::anything : known->second;
}

/// The library's word for a type, where nobody gave the value a name, in our words.
std::string valueName(const std::string& type, ValueKind kind, const Words& values) {
  constexpr std::size_t MOST_IN_NAME = 24;
  if (type == "INT" || type == "UINT" || type == "FLOAT") {
    return "NUMBER";
  }
  if (type != "TEXT") {
    return type;
  }
  switch (kind) {
    case ValueKind::file:
      return "FILE";
    case ValueKind::folder:
      return "FOLDER";
    case ValueKind::path:
      return "PATH";
    case ValueKind::name: {
      const std::string all = joined(values, "|");
      return all.size() <= MOST_IN_NAME ? all : "NAME";
    }
    case ValueKind::none:
    case ValueKind::anything:
      break;
  }
  return type;
}

Words namesOf(const CLI::Option& option) {
  Words names;
  for (const std::string& name : option.get_snames()) {
    names.push_back("-" + name);
  }
  for (const std::string& name : option.get_lnames()) {
    names.push_back("--" + name);
  }
  return names;
}

const OfferedValues* offeredFor(const DeclaredOption& option, const Subcommand& subcommand) {
  const auto found =
      std::find_if(subcommand.offeredValues.begin(), subcommand.offeredValues.end(), [&](const OfferedValues& offered) {
        return option.names.empty() ? offered.option == option.valueName
                                    : std::count(option.names.begin(), option.names.end(), offered.option) > 0;
      });
  return found == subcommand.offeredValues.end() ? nullptr : &*found;
}

DeclaredOption declaredOption(const CLI::Option& option, const Subcommand& subcommand) {
  DeclaredOption declared{.names = namesOf(option),
                          .valueName = {},
                          .help = option.get_description(),
                          .group = option.get_group(),
                          .kind = ValueKind::none,
                          .values = {},
                          .preset = option.get_default_str(),
                          .isRequired = option.get_required(),
                          .repeats = option.get_items_expected_max() > 1};
  if (option.get_items_expected_max() == 0) {
    return declared;
  }
  const ValueType type = typeOf(option);
  declared.values = membersOf(type.check);
  const std::string ownName = option.get_positional() ? option.get_name(true) : type.name;
  declared.kind = declared.values.empty() ? kindOfCheck(type.check).value_or(kindOfName(ownName)) : ValueKind::name;
  declared.valueName = option.get_positional() ? ownName : valueName(type.name, declared.kind, declared.values);
  if (const OfferedValues* const offered = offeredFor(declared, subcommand)) {
    declared.kind = ValueKind::name;
    declared.values = offered->values;
  }
  return declared;
}

/// Those of groups within it too, which the library keeps as subcommands without a name.
std::vector<const CLI::Option*> optionsOf(const CLI::App& app) {
  std::vector<const CLI::Option*> options = app.get_options();
  for (const CLI::App* const group :
       app.get_subcommands([](const CLI::App* part) { return part->get_name().empty(); })) {
    // A group declares help once more.
    std::vector<const CLI::Option*> more = group->get_options();
    std::erase(more, group->get_help_ptr());
    options.insert(options.end(), more.begin(), more.end());
  }
  // A group without a name hides what is in it.
  std::erase_if(options, [](const CLI::Option* option) { return option->get_group().empty(); });
  const auto isHelp = [&app](const CLI::Option* option) { return option == app.get_help_ptr(); };
  std::stable_partition(options.begin(), options.end(), [&isHelp](const auto* option) { return !isHelp(option); });
  return options;
}

}  // namespace

DeclaredCommand declaredCommand(const CLI::App& app, const Subcommand& subcommand, std::string_view line) {
  DeclaredCommand command{.line = std::string(line),
                          .name = std::string(subcommand.name),
                          .summary = std::string(subcommand.summary),
                          .description = std::string(subcommand.description),
                          .examples = subcommand.examples,
                          .exitMeanings = subcommand.exitMeanings,
                          .options = {},
                          .arguments = {}};
  for (const CLI::Option* const option : optionsOf(app)) {
    (option->get_positional() ? command.arguments : command.options).push_back(declaredOption(*option, subcommand));
  }
  return command;
}

const DeclaredOption* optionNamed(const DeclaredCommand& command, std::string_view name) {
  for (const DeclaredOption& option : command.options) {
    if (std::count(option.names.begin(), option.names.end(), name) > 0) {
      return &option;
    }
  }
  const auto argument = std::find_if(command.arguments.begin(), command.arguments.end(),
                                     [name](const DeclaredOption& option) { return option.valueName == name; });
  return argument == command.arguments.end() ? nullptr : &*argument;
}

const DeclaredCommand* subcommandNamed(const DeclaredProgram& program, std::string_view name) {
  const auto found = std::find_if(program.subcommands.begin(), program.subcommands.end(),
                                  [name](const DeclaredCommand& subcommand) { return subcommand.name == name; });
  return found == program.subcommands.end() ? nullptr : &*found;
}

}  // namespace quobrak::host
