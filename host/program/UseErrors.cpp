#include "host/program/UseErrors.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "host/program/HelpPage.h"
#include "host/terminal/NearestNames.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

using Names = std::vector<std::string_view>;

/// `conjunction` stands before the last one, with blanks around: " and ".
std::string listed(const Names& names, std::string_view conjunction) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    text.append(i == 0 ? "" : (i + 1 == names.size() ? conjunction : ", ")).append(names[i]);
  }
  return text;
}

/// What to say after "there is no ...": the nearest of the names, or another sentence.
std::string suggestion(std::string_view written, const Names& names, const std::string& otherwise) {
  const Names nearest = nearestNames(written, names);
  return "; " + (nearest.empty() ? otherwise : didYouMean(nearest));
}

Names subcommandNames(const DeclaredProgram& program) {
  Names names;
  for (const DeclaredCommand& subcommand : program.subcommands) {
    names.emplace_back(subcommand.name);
  }
  return names;
}

std::string helpHint(const DeclaredCommand& command) {
  return command.line + " --help tells more";
}

bool takesValue(const DeclaredOption& option) {
  return option.kind != ValueKind::none;
}

bool isOption(std::string_view argument) {
  return argument.size() > 1 && argument.front() == '-';
}

std::string unknownOption(std::string_view written, const DeclaredCommand& command) {
  Names names;
  for (const DeclaredOption& option : command.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return command.line + " has no option " + shown(written) +
         suggestion(written, names, command.line + " --help tells all that it has");
}

/// Follows a command line as far as it makes sense, without the library, which does not tell where it stopped.
class Reader {
 public:
  explicit Reader(const DeclaredProgram& program) : program_(program), command_(&program.program) {}

  /// What is wrong with the first argument that is not known, if there is one.
  std::optional<std::string> firstUnknown(std::span<const std::string> arguments) {
    for (const std::string& argument : arguments) {
      if (std::optional<std::string> unknown =
              isOption(argument) && !onlyArguments_ ? option(argument) : word(argument)) {
        return unknown;
      }
    }
    return std::nullopt;
  }

  /// The subcommand that was named, or the program.
  const DeclaredCommand& command() const { return *command_; }

 private:
  std::optional<std::string> option(const std::string& argument) {
    if (argument == "--") {
      onlyArguments_ = true;
      return std::nullopt;
    }
    if (valuesLeft_ == Values::one) {
      valuesLeft_ = Values::none;
      return std::nullopt;
    }
    const std::size_t equals = argument.find('=');
    const DeclaredOption* const known = optionNamed(*command_, argument.substr(0, equals));
    if (known != nullptr) {
      expectValues(*known, equals != std::string::npos);
      return std::nullopt;
    }
    return argument.starts_with("--") ? unknownOption(argument.substr(0, equals), *command_) : letters(argument);
  }

  /// "-qx": flags, up to one that takes the rest as its value.
  std::optional<std::string> letters(const std::string& argument) {
    for (std::size_t i = 1; i < argument.size(); ++i) {
      const std::string name{'-', argument[i]};
      const DeclaredOption* const known = optionNamed(*command_, name);
      if (known == nullptr) {
        return unknownOption(i == 1 ? argument : name, *command_);
      }
      if (takesValue(*known)) {
        expectValues(*known, i + 1 < argument.size());
        return std::nullopt;
      }
    }
    return std::nullopt;
  }

  void expectValues(const DeclaredOption& option, bool hasOne) {
    if (takesValue(option)) {
      valuesLeft_ = option.repeats ? Values::any : (hasOne ? Values::none : Values::one);
    }
  }

  std::optional<std::string> word(const std::string& word) {
    if (valuesLeft_ != Values::none && !onlyArguments_) {
      valuesLeft_ = valuesLeft_ == Values::any ? Values::any : Values::none;
      return std::nullopt;
    }
    if (command_ == &program_.program) {
      command_ = subcommandNamed(program_, word);
      return command_ == nullptr ? std::optional(unknownSubcommand(word, program_)) : std::nullopt;
    }
    return argument(word);
  }

  std::optional<std::string> argument(const std::string& word) {
    const std::vector<DeclaredOption>& arguments = command_->arguments;
    const bool takesMore = std::any_of(arguments.begin(), arguments.end(), [](const auto& one) { return one.repeats; });
    if (place_++ < arguments.size() || takesMore) {
      return std::nullopt;
    }
    return command_->line + " does not know what to do with " + shown(word) + ": it is used as \"" +
           usageOf(*command_) + "\"";
  }

  enum class Values { none, one, any };

  const DeclaredProgram& program_;
  const DeclaredCommand* command_;
  std::size_t place_ = 0;
  Values valuesLeft_ = Values::none;
  bool onlyArguments_ = false;
};

/// What the library says before ": ", and behind it.
struct Complaint {
  std::string about;
  std::string reason;
};

Complaint complaintOf(std::string_view text) {
  const std::size_t colon = text.find(": ");
  return colon == std::string_view::npos
             ? Complaint{.about = "", .reason = std::string(text)}
             : Complaint{.about = std::string(text.substr(0, colon)), .reason = std::string(text.substr(colon + 2))};
}

std::string withHelp(const std::string& text, const DeclaredOption* option) {
  return option == nullptr || option->help.empty() ? text : text + " (" + option->help + ")";
}

/// "SCRIPT is required", "A subcommand is required"
std::string missing(std::string_view text, const DeclaredCommand& command, const DeclaredProgram& program) {
  if (text == "A subcommand is required") {
    return "no subcommand is named; there are " + listed(subcommandNames(program), " and ");
  }
  const std::string name(text.substr(0, text.find(" is required")));
  const DeclaredOption* const option = optionNamed(command, name);
  const std::string what = option == nullptr || option->help.empty() ? "" : ": " + option->help;
  return command.line + " needs " + name + what + "; " + helpHint(command);
}

/// "--clock: sun not in {system,virtual}", "SCRIPT: File does not exist: order.txt"
std::string refusedValue(std::string_view text, const DeclaredCommand& command) {
  const Complaint complaint = complaintOf(text);
  const DeclaredOption* const option = optionNamed(command, complaint.about);
  const std::size_t notIn = complaint.reason.rfind(" not in {");
  if (option != nullptr && option->kind == ValueKind::name && notIn != std::string::npos) {
    const std::string written = complaint.reason.substr(0, notIn);
    const Names names(option->values.begin(), option->values.end());
    return complaint.about + " cannot be \"" + shown(written) + "\"" +
           suggestion(written, names, "it can be " + listed(names, " or "));
  }
  // The checks themselves say what would be right: a range, an existing file.
  return complaint.about + ": " + shown(complaint.reason);
}

/// "--port: 1 required INT missing", "--port: At Most 1 required but received 2"
std::string wrongNumberOfValues(std::string_view text, const DeclaredCommand& command) {
  const Complaint complaint = complaintOf(text);
  const DeclaredOption* const option = optionNamed(command, complaint.about);
  if (option != nullptr && complaint.reason.ends_with(" missing")) {
    return withHelp(complaint.about + " needs a value: " + option->valueName, option);
  }
  if (complaint.reason.starts_with("At Most 1 required")) {
    return complaint.about + " can be given only once";
  }
  return std::string(text) + "; " + helpHint(command);
}

/// "Could not convert: --port = x"
std::string unreadableValue(std::string_view text, const DeclaredCommand& command) {
  const std::string pair = complaintOf(text).reason;
  const std::size_t equals = pair.find(" = ");
  const std::string name = pair.substr(0, equals);
  const DeclaredOption* const option = optionNamed(command, name);
  if (option == nullptr || equals == std::string::npos) {
    return shown(text) + "; " + helpHint(command);
  }
  return withHelp(name + " cannot be \"" + shown(pair.substr(equals + 3)) + "\": it takes a " + option->valueName,
                  option);
}

/// "--a excludes --b", "--a requires --b"
std::string betweenOptions(std::string_view text, std::string_view verb, std::string_view explanation) {
  const std::size_t at = text.find(verb);
  return std::string(text.substr(0, at)).append(explanation).append(text.substr(at + verb.size()));
}

}  // namespace

std::string unknownSubcommand(std::string_view written, const DeclaredProgram& program) {
  const Names names = subcommandNames(program);
  return "there is no subcommand " + shown(written) + suggestion(written, names, "there are " + listed(names, " and "));
}

std::string explained(const CLI::ParseError& error, std::span<const std::string> arguments,
                      const DeclaredProgram& program) {
  Reader reader(program);
  if (const std::optional<std::string> unknown = reader.firstUnknown(arguments)) {
    return *unknown;
  }
  const DeclaredCommand& command = reader.command();
  const std::string text = error.what();
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr && text.ends_with(" is required")) {
    return missing(text, command, program);
  }
  if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr) {
    return refusedValue(text, command);
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    return wrongNumberOfValues(text, command);
  }
  if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) {
    return unreadableValue(text, command);
  }
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
    return betweenOptions(text, " excludes ", " cannot be given together with ");
  }
  if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr) {
    return betweenOptions(text, " requires ", " can be given only together with ");
  }
  return shown(text) + "; " + helpHint(command);
}

}  // namespace quobrak::host
