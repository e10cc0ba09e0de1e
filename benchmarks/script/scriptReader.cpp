// Reads a script and dispatches its lines to a table of commands that do nothing, so that a whole process shows what
// reading, substituting, splitting, dispatching and reading arguments cost. scriptReader.lua does the same.
//
//   scriptReader FOLDER FILE

#include <array>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>

#include "platform/foundation/ConfinedFileManager.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/File.h"
#include "quobrakUITests/quobrakUITests.h"

namespace quobrak {

namespace {

/// What the commands were given, which the two readers must agree on.
std::int64_t commandCount = 0;
std::int64_t textLength = 0;
std::int64_t numberSum = 0;

void withNothing() {
  ++commandCount;
}

void withText(const std::string& text) {
  ++commandCount;
  textLength += static_cast<std::int64_t>(text.size());
}

void withNumber(std::int64_t number) {
  ++commandCount;
  numberSum += number;
}

void withTextAndNumber(const std::string& text, std::int64_t number) {
  withText(text);
  numberSum += number;
}

using Text = DirectField<1, "text">;
template <std::size_t Field>
using Number = CheckedField<&Parameters::getTimeout, Field, "number", Unit::milliseconds, DEFAULT_TIMEOUT_WAIT>;

/// The language's names, so that looking them up costs what it will.
constexpr std::array NAMES = std::to_array<std::string_view>({"applicationStart",
                                                              "applicationKill",
                                                              "launchBrowser",
                                                              "browserGoToUrl",
                                                              "browserClearCache",
                                                              "browserPrepareAndOpen",
                                                              "browserPrepareAndOpenForReference",
                                                              "clickByText",
                                                              "clickByTextExact",
                                                              "longClickByText",
                                                              "clickByTextOnSystemPopup",
                                                              "clickByXY",
                                                              "longClickByXY",
                                                              "clickByPercent",
                                                              "clickOnLastElementFound",
                                                              "findByClass",
                                                              "findByText",
                                                              "findByTextExact",
                                                              "installApp",
                                                              "measureStart",
                                                              "measureStop",
                                                              "pause",
                                                              "pressHome",
                                                              "pressVolumeUp",
                                                              "pressVolumeDown",
                                                              "waitUntilText",
                                                              "waitUntilTextExact",
                                                              "waitUntilAccessibilityField",
                                                              "waitUntilAccessibilityFieldExact",
                                                              "waitUntilTextOnSystemPopup",
                                                              "waitUntilGoneText",
                                                              "waitUntilGoneTextExact",
                                                              "waitUntilGoneAccessibilityField",
                                                              "waitUntilGoneAccessibilityFieldExact",
                                                              "waitUntilTextBeforeClick",
                                                              "waitUntilTextExactBeforeClick",
                                                              "waitUntilAccessibilityFieldBeforeClick",
                                                              "waitUntilAccessibilityFieldExactBeforeClick",
                                                              "enterText",
                                                              "enterTextFast",
                                                              "setTextByText",
                                                              "setTextByTextExact",
                                                              "scrollDownward",
                                                              "scrollUpward",
                                                              "scrollLeftward",
                                                              "scrollRightward",
                                                              "swipeDownward",
                                                              "swipeUpward",
                                                              "swipeLeftward",
                                                              "swipeRightward",
                                                              "swipeVertical",
                                                              "swipeHorizontal",
                                                              "swipeDownwardToText",
                                                              "swipeUpwardToText"});

/// A quarter of the commands of each shape.
template <std::size_t Index>
constexpr CommandRow emptyCommand() {
  constexpr const char* SUMMARY = "Does nothing.";
  if constexpr (Index % 4 == 0) {
    return command<&withNothing>(NAMES[Index], SUMMARY);
  } else if constexpr (Index % 4 == 1) {
    return command<&withText, Text>(NAMES[Index], SUMMARY);
  } else if constexpr (Index % 4 == 2) {
    return command<&withNumber, Number<1>>(NAMES[Index], SUMMARY);
  } else {
    return command<&withTextAndNumber, Text, Number<2>>(NAMES[Index], SUMMARY);
  }
}

constexpr auto TABLE = []<std::size_t... Index>(std::index_sequence<Index...>) {
  return std::array{emptyCommand<Index>()...};
}
(std::make_index_sequence<NAMES.size()>());

static_assert(tableFault(TABLE, 54) == TableFault::none);

class EmptyCommands final : public quobrakUITests {
 public:
  void executeCommand(FunctionParameters functionParameters) override { dispatchCommand(TABLE, functionParameters); }
};

}  // namespace

}  // namespace quobrak

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) {
    std::cerr << "usage: scriptReader FOLDER FILE\n";
    return 2;
  }
  quobrak::FileManager::install(std::make_unique<quobrak::ConfinedFileManager>(arguments[1]));
  quobrak::EmptyCommands().executeActions(quobrak::File::readFileInDocumentDirectory(arguments[2]));
  std::cout << quobrak::commandCount << ' ' << quobrak::textLength << ' ' << quobrak::numberSum << '\n';
}
