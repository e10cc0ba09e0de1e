#include "host/run/RunOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "host/Subcommand.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

constexpr std::uint64_t MOST_ITERATIONS = 1'000'000;

/// The number that the whole text is, in decimal digits.
std::optional<std::uint64_t> parseNumber(std::string_view text) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return number;
}

std::uint64_t numberWithin(std::string_view option, const std::string& text, std::uint64_t least, std::uint64_t most) {
  const std::optional<std::uint64_t> number = parseNumber(text);
  if (!number || *number < least || *number > most) {
    throw UseError(std::string(option) + " is \"" + shown(text) + "\", but must be a whole number from " +
                   std::to_string(least) + " to " + std::to_string(most));
  }
  return *number;
}

void declareWhatToRun(CLI::App& app, RunOptions& options) {
  app.add_option("SCRIPT", options.scripts, "Scripts, and folders of them: all *.txt in a folder and below it");
  app.add_option("--command", options.command, "Runs this one command in place of scripts, as in pause,100")
      ->type_name("LINE");
  app.add_flag("--reference", options.isReference, "Runs the built-in reference script in place of scripts");
  app.add_option("--suite", options.suite, "The suite of all scripts, in place of the names of their folders")
      ->type_name("NAME");
  declareVariableOptions(app, options.variables);
}

void declareHowOften(CLI::App& app, RunOptions& options) {
  app.add_option_function<std::string>(
         "--iterations",
         [&options](const std::string& text) {
           options.iterations = numberWithin("--iterations", text, 1, MOST_ITERATIONS);
         },
         "How often all scripts run; once unless told")
      ->type_name("N");
  app.add_option_function<std::string>(
         "--warmup",
         [&options](const std::string& text) { options.warmUps = numberWithin("--warmup", text, 0, MOST_ITERATIONS); },
         "How often they run before that without being measured")
      ->type_name("N");
  app.add_option_function<std::string>(
         "--rest",
         [&options](const std::string& text) {
           const std::optional<std::chrono::milliseconds> rest = parseDuration(text);
           if (!rest) {
             throw UseError("--rest is \"" + shown(text) +
                            "\", but must be a whole number of milliseconds, or one with a unit, such as 500ms, 30s, "
                            "2min or 1h, a day at most");
           }
           options.rest = *rest;
         },
         "How long to wait between two iterations, in milliseconds or as in 30s, 2min")
      ->type_name("DURATION");
  app.add_option_function<std::string>(
         "--shuffle",
         [&options](const std::string& text) {
           options.shuffleSeed = numberWithin("--shuffle", text, 0, std::numeric_limits<std::uint64_t>::max());
         },
         "Runs the scripts in another order in each iteration; a number gives the same orders on every machine")
      ->type_name("SEED");
  app.add_flag("--fail-fast", options.isFailFast, "Ends after the first iteration in which not all scripts passed");
}

void declareWhereToRun(CLI::App& app, RunOptions& options) {
  app.add_option("--phone", options.phone, "The folder of the simulated phone; the built-in one unless told")
      ->type_name("FOLDER");
  app.add_option("--driver", options.driver, "simulator (unless told), or webdriver for a real phone")
      ->type_name("NAME")
      ->check(CLI::IsMember({"simulator", "webdriver"}));
  app.add_option("--clock", options.clock, "system (unless told), or virtual: pauses take no time")
      ->type_name("NAME")
      ->check(CLI::IsMember({"system", "virtual"}));
  app.add_option("--out", options.out,
                 "A new or empty folder for the results; a new one in quobrak-results unless told")
      ->type_name("FOLDER");
  app.add_option("--test-process", options.testProcess,
                 "The test process; unless told, quobrakUITests beside this program or in PATH")
      ->type_name("FILE");
  app.add_flag("--no-check", options.isUnchecked, "Runs the scripts without checking them first");
  app.add_flag("-q,--quiet", options.isQuiet, "Prints only what goes wrong");
}

/// What a person has written of an option; nothing where it was not used.
struct UsedOption {
  std::string_view name;
  bool isUsed = false;
};

void requireScriptsFor(const RunOptions& options) {
  const std::array<UsedOption, 4> optionsOfScripts{UsedOption{"--suite", options.suite.has_value()},
                                                   UsedOption{"--shuffle", options.shuffleSeed.has_value()},
                                                   UsedOption{"--var", !options.variables.definitions.empty()},
                                                   UsedOption{"--env-file", !options.variables.files.empty()}};
  const auto used = std::find_if(optionsOfScripts.begin(), optionsOfScripts.end(),
                                 [](const UsedOption& option) { return option.isUsed; });
  if (used != optionsOfScripts.end()) {
    throw UseError(std::string(used->name) + " is for scripts, and cannot be used with " +
                   (options.command ? "--command" : "--reference"));
  }
}

/// A choice of where to run: as an option, or as the variable of the test process.
struct Choice {
  /// As a person wrote it, such as "--clock virtual" or "QUOBRAK_CLOCK=virtual"; empty where neither was used.
  std::string written;
  std::string value;
};

Choice choiceOf(std::string_view option, const std::optional<std::string>& value, const std::string& variable,
                const EnvironmentVariables& own) {
  if (value) {
    return {.written = std::string(option) + " " + *value, .value = *value};
  }
  const auto found = own.find(variable);
  return found == own.end() ? Choice{} : Choice{.written = variable + "=" + found->second, .value = found->second};
}

void requirePhone(const std::filesystem::path& folder) {
  using std::filesystem::file_type;
  // None where this program may not look: the test process tells why.
  std::error_code ignored;
  const file_type type = std::filesystem::status(folder, ignored).type();
  const std::string name = shown(folder.native());
  if (type != file_type::directory && type != file_type::none) {
    throw UseError("there is no folder " + name + "; a phone is a folder with a file phone.json");
  }
  if (std::filesystem::status(folder / "phone.json", ignored).type() == file_type::not_found) {
    throw UseError("the folder " + name + " has no file phone.json, and is no phone");
  }
}

void requireFittingPlace(const RunOptions& options, const EnvironmentVariables& own) {
  const Choice driver = choiceOf("--driver", options.driver, "QUOBRAK_DRIVER", own);
  const Choice clock = choiceOf("--clock", options.clock, "QUOBRAK_CLOCK", own);
  if (driver.value == "webdriver" && clock.value == "virtual") {
    throw UseError(clock.written + " cannot be used with " + driver.written + ": a real phone takes real time");
  }
  if (driver.value == "webdriver" && options.phone) {
    throw UseError("--phone describes a simulated phone, and cannot be used with " + driver.written);
  }
  if (options.phone) {
    requirePhone(*options.phone);
  }
}

}  // namespace

RunKind RunOptions::kind() const {
  if (command) {
    return RunKind::command;
  }
  return isReference ? RunKind::reference : RunKind::scripts;
}

void declareRunOptions(CLI::App& app, RunOptions& options) {
  declareWhatToRun(app, options);
  declareHowOften(app, options);
  declareWhereToRun(app, options);
}

void requireUsable(const RunOptions& options, const EnvironmentVariables& own) {
  const int kinds = (options.scripts.empty() ? 0 : 1) + (options.command ? 1 : 0) + (options.isReference ? 1 : 0);
  if (kinds == 0) {
    throw UseError("there is nothing to run: name scripts or folders of them, or use --command or --reference");
  }
  if (kinds > 1) {
    throw UseError("scripts, --command and --reference are three kinds of run: choose one of them");
  }
  if (options.kind() != RunKind::scripts) {
    requireScriptsFor(options);
  }
  if (options.command && options.command->empty()) {
    throw UseError("--command is empty, but must be a command, as in --command pause,100");
  }
  if (options.out && options.out->empty()) {
    throw UseError("--out is empty, but must be a folder");
  }
  requireFittingPlace(options, own);
}

std::optional<std::chrono::milliseconds> parseDuration(std::string_view text) {
  constexpr std::array<std::pair<std::string_view, std::uint64_t>, 5> UNITS{
      std::pair{"", 1}, std::pair{"ms", 1}, std::pair{"s", 1000}, std::pair{"min", 60'000}, std::pair{"h", 3'600'000}};
  constexpr std::uint64_t LONGEST = std::chrono::milliseconds(std::chrono::hours(24)).count();
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  const std::optional<std::uint64_t> number = parseNumber(text.substr(0, digits));
  const auto unit = std::find_if(UNITS.begin(), UNITS.end(),
                                 [&](const auto& candidate) { return candidate.first == text.substr(digits); });
  if (!number || unit == UNITS.end() || *number > LONGEST / unit->second) {
    return std::nullopt;
  }
  return std::chrono::milliseconds(*number * unit->second);
}

}  // namespace quobrak::host
