#include "host/phone/PhoneCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"
#include "host/phone/Hints.h"
#include "host/phone/PhoneDocument.h"
#include "host/phone/PhoneOverview.h"
#include "host/phone/PictureFiles.h"
#include "host/phone/Reach.h"
#include "host/phone/ScreenPages.h"
#include "host/phone/Selector.h"
#include "host/phone/ShownScreen.h"
#include "host/terminal/NearestNames.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/Unicode.h"
#include "platform/uiautomation/UIAutomationError.h"

namespace quobrak::host {

namespace {

using simulator::ApplicationDescription;
using simulator::PhoneDescription;

struct Options {
  std::optional<std::string> folder;
  std::optional<std::string> application;
  std::optional<std::string> screen;
  std::optional<std::string> picture;
  std::optional<std::string> pictures;
  std::map<SelectorKind, std::optional<std::string>> selectors;
  bool isDisabled = false;
  std::string format = "text";

  bool isForPrograms() const { return format == "json"; }
};

// What the options say together.

/// Throws where there are two.
std::optional<Selector> selectorOf(const Options& options) {
  std::optional<Selector> selector;
  for (const auto& [kind, text] : options.selectors) {
    if (!text) {
      continue;
    }
    if (selector) {
      throw UseError(std::string(optionOf(selector->kind)) + " and " + std::string(optionOf(kind)) +
                     " cannot be tried together; try one after the other");
    }
    selector = Selector{.kind = kind, .text = *text, .isEnabled = !options.isDisabled};
  }
  if (options.isDisabled && !(selector && asksForState(selector->kind))) {
    throw UseError("--disabled goes with --text, --text-exact and --class; the others find disabled elements too");
  }
  return selector;
}

void requireSensible(const Options& options, const std::optional<Selector>& selector) {
  if (options.pictures && (options.screen || options.picture || selector)) {
    throw UseError("--pictures draws all screens as they are; use --picture for a single one, or to see what is found");
  }
}

bool isAboutAScreen(const Options& options, const std::optional<Selector>& selector) {
  return options.application || options.screen || options.picture || selector;
}

/// The names, to choose from in an error text.
std::string choices(const std::vector<std::string_view>& names) {
  std::string text;
  for (const std::string_view name : names) {
    text += (text.empty() ? "" : ", ") + shown(name);
  }
  return text;
}

std::string question(std::string_view written, const std::vector<std::string_view>& names) {
  const std::string text = shown(didYouMean(nearestNames(written, names)));
  return text.empty() ? "the choices are: " + choices(names) : text;
}

template <class Values>
std::vector<std::string_view> keysOf(const Values& values) {
  std::vector<std::string_view> keys(values.size());
  std::transform(values.begin(), values.end(), keys.begin(),
                 [](const auto& entry) -> std::string_view { return entry.first; });
  return keys;
}

void requireApplication(const PhoneDescription& phone, const std::string& identifier) {
  if (!phone.applications.contains(identifier)) {
    throw UseError("the phone has no application \"" + shown(identifier) + "\"; " +
                   question(identifier, keysOf(phone.applications)));
  }
}

void requireScreen(const ApplicationDescription& application, const std::string& name) {
  if (!application.screens.contains(name)) {
    throw UseError("the application " + shown(application.bundleIdentifier) + " has no screen \"" + shown(name) +
                   "\" that it begins with or that a rule shows; " + question(name, keysOf(application.screens)));
  }
}

/// Those that have a screen of that name.
std::vector<std::string_view> applicationsWith(const PhoneDescription& phone, const std::string& screen) {
  std::vector<std::string_view> identifiers;
  for (const auto& [identifier, application] : phone.applications) {
    if (application.screens.contains(screen)) {
      identifiers.push_back(identifier);
    }
  }
  return identifiers;
}

std::vector<std::string_view> allScreens(const PhoneDescription& phone) {
  std::set<std::string_view> names;
  for (const auto& [identifier, application] : phone.applications) {
    for (const auto& [name, screen] : application.screens) {
      names.insert(name);
    }
  }
  return {names.begin(), names.end()};
}

/// The only application beside the home screen; where there are none or several, the one that is in front when the
/// phone has been switched on.
std::string defaultApplication(const PhoneDescription& phone) {
  constexpr std::size_t HOME_AND_ANOTHER = 2;
  if (phone.applications.size() == HOME_AND_ANOTHER) {
    const auto first = phone.applications.begin();
    return first->first == phone.home ? std::next(first)->first : first->first;
  }
  return phone.home;
}

std::string chosenApplication(const PhoneDescription& phone, const Options& options) {
  if (options.application) {
    requireApplication(phone, *options.application);
    return *options.application;
  }
  if (!options.screen) {
    return defaultApplication(phone);
  }
  const std::vector<std::string_view> identifiers = applicationsWith(phone, *options.screen);
  if (identifiers.size() > 1) {
    throw UseError("several applications have a screen \"" + shown(*options.screen) +
                   "\"; choose one with --application: " + choices(identifiers));
  }
  if (identifiers.empty()) {
    throw UseError("no application has a screen \"" + shown(*options.screen) + "\"; " +
                   question(*options.screen, allScreens(phone)));
  }
  return std::string(identifiers.front());
}

// What is done.

/// What is wrong with a description, a fault in a line.
void tellFaults(const std::string& text, const Options& options) {
  JSONValue::Array faults;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::cout << (options.isForPrograms() ? "" : shown(line) + "\n");
    faults.emplace_back(repairedUTF8(line));
  }
  if (options.isForPrograms()) {
    std::cout << JSONEncoder::encode(JSONValue::Object{{"faults", std::move(faults)}}) << "\n";
  }
}

/// None where the description has faults, which are told.
std::optional<PhoneDescription> loaded(const Options& options) {
  std::error_code error;
  if (options.folder && !std::filesystem::is_directory(*options.folder, error)) {
    throw UseError("there is no folder " + shown(*options.folder) + "; a phone is a folder with a file phone.json");
  }
  try {
    return options.folder ? simulator::loadPhone(simulator::FolderPhoneFiles(*options.folder))
                          : simulator::loadPhone(simulator::BuiltinPhoneFiles());
  } catch (const simulator::PhoneDescriptionError& fault) {
    tellFaults(fault.what(), options);
    return std::nullopt;
  }
}

ExitStatus drawScreens(const PhoneDescription& phone, const Options& options) {
  std::vector<std::string> applications;
  if (options.application) {
    requireApplication(phone, *options.application);
    applications.push_back(*options.application);
  } else {
    const std::vector<std::string_view> all = keysOf(phone.applications);
    applications.assign(all.begin(), all.end());
  }
  JSONValue::Array names;
  for (const std::filesystem::path& file : writePictures(phone, applications, *options.pictures)) {
    std::cout << (options.isForPrograms() ? "" : shown(file.string()) + "\n");
    names.emplace_back(repairedUTF8(file.string()));
  }
  if (options.isForPrograms()) {
    std::cout << JSONEncoder::encode(JSONValue::Object{{"pictures", std::move(names)}}) << "\n";
  }
  return ExitStatus::success;
}

std::vector<simulator::Mark> marksOf(const Elements& matches, const ShownScreen& screen) {
  std::vector<simulator::Mark> marks;
  for (const simulator::Element* match : matches) {
    marks.push_back({.frame = match->frame,
                     .word = std::to_string(marks.size() + 1),
                     .isFaint = obstacleTo(*match, screen) != Obstacle::none});
  }
  return marks;
}

std::string textOf(ShownScreen& screen, const std::optional<Selector>& selector, const Elements& matches,
                   const Terminal& terminal) {
  std::string text = screenTitle(screen, terminal) + "\n";
  if (selector) {
    text += matchList(*selector, matches, screen, terminal) + (matches.empty() ? hintsFor(*selector, screen) : "");
  }
  const std::string tree = screenTree(screen, matches, terminal);
  return text + (selector && !tree.empty() ? "\n" : "") + tree;
}

ExitStatus showScreen(PhoneDescription phone, const Options& options, const std::optional<Selector>& selector) {
  const std::string application = chosenApplication(phone, options);
  if (options.screen) {
    requireScreen(phone.applications.at(application), *options.screen);
  }
  const std::optional<XCUIElementQuery> query =
      selector ? std::optional(queryOf(*selector, application)) : std::nullopt;
  ShownScreen screen(std::move(phone), application, options.screen);
  const Elements matches = query ? screen.elements(*query) : Elements{};
  if (options.picture) {
    writePicture(screen.picture(marksOf(matches, screen)), *options.picture);
  }
  std::cout << (options.isForPrograms()
                    ? JSONEncoder::encode(screenDocument(screen, selector, matches)) + "\n"
                    : textOf(screen, selector, matches, terminalOf(1, ProcessInfo::environmentVariable)));
  if (options.picture && !options.isForPrograms()) {
    std::cout << "\nPicture: " << shown(*options.picture) << "\n";
  }
  return selector && matches.empty() ? ExitStatus::failed : ExitStatus::success;
}

ExitStatus lookAtPhone(const Options& options) {
  const std::optional<Selector> selector = selectorOf(options);
  requireSensible(options, selector);
  std::optional<PhoneDescription> phone = loaded(options);
  if (!phone) {
    return ExitStatus::failed;
  }
  if (options.pictures) {
    return drawScreens(*phone, options);
  }
  if (!isAboutAScreen(options, selector)) {
    std::cout << (options.isForPrograms() ? JSONEncoder::encode(phoneDocument(*phone)) + "\n"
                                          : phoneOverview(*phone, terminalOf(1, ProcessInfo::environmentVariable)));
    return ExitStatus::success;
  }
  try {
    return showScreen(*std::move(phone), options, selector);
  } catch (const UIAutomationError& fault) {
    // Rules without end, or a pattern that backtracks for ever.
    std::cerr << "quobrak: " << shown(fault.what()) << "\n";
    return ExitStatus::failed;
  }
}

std::function<ExitStatus()> declare(CLI::App& app) {
  const auto options = std::make_shared<Options>();
  app.add_option("FOLDER", options->folder, "The phone's folder; without one, the phone that comes with the program");
  app.add_option("--application", options->application,
                 "The bundle identifier of the application to show; by default the only one beside the home screen, or "
                 "else the home screen")
      ->type_name("IDENTIFIER");
  app.add_option("--screen", options->screen,
                 "The screen to show, as its file has it; by default what the application shows when it has started")
      ->type_name("NAME");
  for (const SelectorKind kind : selectorKinds()) {
    app.add_option(std::string(optionOf(kind)), options->selectors[kind], std::string(purposeOf(kind)))
        ->group("Selectors")
        ->type_name("SELECTOR");
  }
  app.add_flag("--disabled", options->isDisabled, "Find disabled elements, as an isEnabled of false does")
      ->group("Selectors");
  app.add_option("--picture", options->picture,
                 "Draw the screen as PNG into this file, with frames around what is found")
      ->type_name("FILE");
  app.add_option("--pictures", options->pictures, "Draw all screens into this folder, as APPLICATION/SCREEN.png")
      ->type_name("FOLDER");
  app.add_option("--format", options->format, "For people (text) or for programs (json)")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
  return [options] { return lookAtPhone(*options); };
}

}  // namespace

Subcommand phoneSubcommand() {
  return {
      .name = "phone",
      .summary = "Looks at a simulated phone, and tries selectors on its screens",
      .description =
          "The description of the phone is checked; what is wrong with it is told with file, line and column. Without "
          "further options the phone is told of: its screen, applications, screens and named values.\n\n"
          "An application is shown as the tree of its elements, with their frames in points. A selector is tried as "
          "the "
          "commands of scripts do: the matches are listed in the order in which nthElement counts them, with what a "
          "tap "
          "on each would do.\n\n"
          "A picture takes the place of another picture (PNG) of that name, and of no other file.",
      .examples = {{.line = "quobrak phone my-phone", .purpose = "checks the description in my-phone, and tells of it"},
                   {.line = "quobrak phone --application com.example.shop --screen basket",
                    .purpose = "the elements of a screen of the built-in phone"},
                   {.line = "quobrak phone --application com.example.shop --text basket --picture found.png",
                    .purpose = "what clickByText,basket finds after the start, framed in a picture"},
                   {.line = "quobrak phone my-phone --pictures pictures", .purpose = "draws all screens of my-phone"}},
      .declare = declare,
      .offeredValues = {},
      .exitMeanings = {
          {.status = ExitStatus::success, .meaning = "What was asked for was shown or drawn"},
          {.status = ExitStatus::failed, .meaning = "The selector finds nothing, or the description has faults"},
          {.status = ExitStatus::badUse, .meaning = "The command line cannot be used"},
          {.status = ExitStatus::environmentFailed, .meaning = "A folder or a picture cannot be read or written"}}};
}

}  // namespace quobrak::host
