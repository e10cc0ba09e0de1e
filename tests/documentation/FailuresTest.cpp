// Every failure that the manual tells of is one that a script runs into, and the other way round.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "manual/CommandNotes.h"
#include "manual/CommonFailures.h"
#include "manual/DescribedCommands.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/CommandTable.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/TestContext.h"
#include "tests/conformance/ScriptFiles.h"
#include "tests/documentation/ProvokedFailure.h"
#include "tests/support/TestPlatform.h"

namespace quobrak::documentation {
namespace {

using conformance::SCRIPTS_FOLDER;
using manual::CommandNote;
using manual::Failure;

/// A command, and what the manual tells of it.
struct Command {
  const CommandRow& row;
  CommandNote note;
};

std::vector<Command> allCommands() {
  std::vector<Command> commands;
  std::span<const CommandRow> rows = commandTable();
  for (const manual::CommandGroup& group : manual::commandNotes()) {
    for (const CommandNote& note : group.notes) {
      commands.push_back({.row = rows.front(), .note = note});
      rows = rows.subspan(1);
    }
  }
  return commands;
}

/// What a script provokes, and its name.
using NamedFailure = std::pair<std::string, ProvokedFailure>;

std::vector<NamedFailure> allProvokedFailures() {
  std::vector<NamedFailure> failures;
  for (const std::string& name : conformance::scriptNamesIn(SCRIPTS_FOLDER)) {
    if (auto failure = failureProvokedBy(conformance::readScriptFileIn(SCRIPTS_FOLDER, name))) {
      failures.emplace_back(name, *std::move(failure));
    }
  }
  return failures;
}

bool isTold(const std::vector<Failure>& told, const ProvokedFailure& provoked, const CommandRow& row) {
  return std::any_of(told.begin(), told.end(),
                     [&](const Failure& failure) { return fits(failure.message, provoked, row); });
}

bool isProvoked(const Failure& told, ProvokedFailure::Kind kind, const CommandRow& row,
                const std::vector<NamedFailure>& provoked) {
  return std::any_of(provoked.begin(), provoked.end(), [&](const NamedFailure& named) {
    const ProvokedFailure& failure = named.second;
    return failure.kind == kind && failure.command == row.name && fits(told.message, failure, row);
  });
}

/// Of a script that fails with this the status does not tell the line, since the dump at its end fails likewise.
bool isAboutTheApplication(const Failure& failure) {
  return failure.message == manual::NOT_INITIALISED.message;
}

TEST(Failures, EveryErrorThatIsToldIsProvokedByAScript) {
  const std::vector<NamedFailure> provoked = allProvokedFailures();
  for (const Command& command : allCommands()) {
    for (const Failure& error : command.note.errors) {
      EXPECT_TRUE(isAboutTheApplication(error) ||
                  isProvoked(error, ProvokedFailure::Kind::error, command.row, provoked))
          << command.note.name << ": " << error.message;
    }
  }
}

TEST(Failures, EveryStopThatIsToldIsProvokedByAScript) {
  const std::vector<NamedFailure> provoked = allProvokedFailures();
  for (const Command& command : allCommands()) {
    for (const Failure& stop : command.note.stops) {
      EXPECT_TRUE(isProvoked(stop, ProvokedFailure::Kind::stop, command.row, provoked))
          << command.note.name << ": " << stop.message;
    }
  }
}

/// Where the manual only says that the words are those of the system.
const std::set<std::string> WORDS_OF_THE_SYSTEM{"measure/name_that_leads_outside"};

TEST(Failures, EveryFailureOfACommandInAScriptIsTold) {
  const std::vector<Command> commands = allCommands();
  for (const auto& [script, provoked] : allProvokedFailures()) {
    const auto command = std::find_if(commands.begin(), commands.end(), [&provoked = provoked](const Command& other) {
      return other.note.name == provoked.command;
    });
    if (command == commands.end()) {
      EXPECT_EQ(provoked.message, "Function " + provoked.command + " is not implemented") << script;
      continue;
    }
    if (WORDS_OF_THE_SYSTEM.contains(script)) {
      continue;
    }
    const std::vector<Failure> told = provoked.kind == ProvokedFailure::Kind::error
                                          ? manual::errorsOf(command->row, command->note)
                                          : manual::stopsOf(command->row, command->note);
    EXPECT_TRUE(isTold(told, provoked, command->row)) << script << ": " << provoked.message;
  }
}

/// The line of the command in its example, the last one where there are several.
std::string_view exampleLine(const CommandNote& note) {
  std::string_view line;
  for (std::string_view rest = note.example; !rest.empty();) {
    const std::string_view next = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(next.size() + 1, rest.size()));
    line = next.substr(0, next.find(',')) == note.name ? next : line;
  }
  return line;
}

bool raisesThatThereIsNoApplication(const Command& command) {
  TestContext::shared().setTestingApp("");
  std::vector<std::string_view> fields;
  splitAtCommas(exampleLine(command.note), fields);
  try {
    dispatchCommand(commandTable(), fields);
  } catch (const FWKTError& error) {
    return error.message() == manual::NOT_INITIALISED.message;
  } catch (const UIAutomationError&) {
    return false;
  }
  return false;
}

TEST(Failures, TheCommandsThatAreToldToNeedAnApplicationDoAndNoOthers) {
  const testing::TestPlatform platform;
  // These stop the process, as scripts show; and applicationStart only needs a name.
  const std::set<std::string> others{"measureStop", "swipeDownwardToText", "swipeUpwardToText", "applicationStart"};
  for (const Command& command : allCommands()) {
    if (!others.contains(command.note.name)) {
      const bool isTold = std::any_of(command.note.errors.begin(), command.note.errors.end(), isAboutTheApplication);
      EXPECT_EQ(raisesThatThereIsNoApplication(command), isTold) << command.note.name;
    }
  }
}

}  // namespace
}  // namespace quobrak::documentation
