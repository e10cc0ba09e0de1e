#include "host/check/Variables.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "host/Subcommand.h"
#include "host/check/FileBytes.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view FORM = "expected NAME=VALUE, with a name of letters, digits and _";

/// What scripts can refer to.
bool isName(std::string_view name) {
  static const NSRegularExpression NAME(R"(\w+)");
  return NAME.matchesWhole(name);
}

bool isNumbered(std::string_view name, std::string_view beginning) {
  return name.size() > beginning.size() && name.starts_with(beginning) &&
         name.find_first_not_of("0123456789", beginning.size()) == std::string_view::npos;
}

/// `place` stands before the words of errors: where the definition is.
void requireUsable(std::string_view name, const std::string& place) {
  if (!isName(name)) {
    throw UseError(place + "\"" + shown(name) + "\" is no name of a variable: " + std::string(FORM));
  }
  if (isSetByRun(name)) {
    throw UseError(place + "the variable " + std::string(name) +
                   " is set by the run itself: choose another name for yours");
  }
}

void readLine(const std::string& line, const std::string& place, Variables& variables) {
  const std::string_view text = trimmedBlanks(line);
  if (text.empty() || text.starts_with('#')) {
    return;
  }
  // Blanks at the end belong to the value.
  const std::string_view definition = std::string_view(line).substr(line.find(text));
  const std::size_t equals = definition.find('=');
  if (equals == std::string_view::npos) {
    throw UseError(place + "\"" + shown(text) + "\" has no value: " + std::string(FORM));
  }
  const std::string name(definition.substr(0, equals));
  requireUsable(name, place);
  // The environment of a process ends a value there.
  if (definition.find('\0') != std::string_view::npos) {
    throw UseError(place + "the value of " + name + " has a NUL character, which no variable can hold");
  }
  variables.set(name, definition.substr(equals + 1));
}

/// What the file holds, decoded as a script is.
std::string textOf(const fs::path& file) {
  const std::string name = shown(file.string());
  std::error_code error;
  if (fs::status(file, error).type() == fs::file_type::not_found) {
    throw UseError("there is no file " + name + " to read variables from");
  }
  std::optional<std::string> text = decodedText(fileBytes(file));
  if (!text) {
    throw UseError("the file " + name + " is not UTF-8");
  }
  return *std::move(text);
}

void readFile(const fs::path& file, Variables& variables) {
  std::istringstream text(textOf(file));
  std::string line;
  for (std::size_t number = 1; std::getline(text, line); ++number) {
    if (line.ends_with('\r')) {
      line.pop_back();
    }
    readLine(line, shown(file.string()) + ":" + std::to_string(number) + ": ", variables);
  }
}

void readDefinition(const std::string& definition, const EnvironmentLookup& environment, Variables& variables) {
  const std::size_t equals = definition.find('=');
  const std::string name = definition.substr(0, equals);
  requireUsable(name, "--var " + shown(definition) + ": ");
  if (equals != std::string::npos) {
    variables.set(name, definition.substr(equals + 1));
    return;
  }
  const std::optional<std::string> value = environment(name);
  if (!value) {
    throw UseError("--var " + name + ": the environment has no such variable; give its value: --var " + name + "=…");
  }
  variables.set(name, *value);
}

}  // namespace

void Variables::set(std::string name, std::string_view value) {
  values_.insert_or_assign(std::move(name), repairedUTF8(value));
}

const std::string* Variables::find(std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

void declareVariableOptions(CLI::App& app, VariableOptions& options) {
  app.add_option("--var", options.definitions,
                 "A variable for the scripts; NAME alone takes its value from the environment. May be repeated")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  app.add_option("--env-file", options.files,
                 "Reads variables from a file of lines NAME=VALUE, # before comments. May be repeated; later ones win, "
                 "and --var wins over all")
      ->type_name("FILE")
      ->allow_extra_args(false);
}

Variables readVariables(const VariableOptions& options, const EnvironmentLookup& environment) {
  Variables variables;
  for (const fs::path& file : options.files) {
    readFile(file, variables);
  }
  for (const std::string& definition : options.definitions) {
    readDefinition(definition, environment, variables);
  }
  return variables;
}

bool isSetByRun(std::string_view name) {
  constexpr std::array<std::string_view, 4> NAMES{"class", "iteration", "command", "testFileNumber"};
  return std::find(NAMES.begin(), NAMES.end(), name) != NAMES.end() || isNumbered(name, "testFileSuiteName") ||
         isNumbered(name, "testFilePath") || name.starts_with("QUOBRAK_");
}

}  // namespace quobrak::host
