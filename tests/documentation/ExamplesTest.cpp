// Every example of the documentation runs, each as a test of its own.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "manual/CommandNotes.h"
#include "manual/CommonFailures.h"
#include "tests/documentation/DocumentedExample.h"

namespace quobrak::documentation {
namespace {

using manual::CommandNote;

const std::string ALERT = "Allow Once";
const std::string CLEARING =
    "Control Center, Passwords, Safari, Open Links, Clear History and Website Data, All history, CloseAllTabsSwitch, "
    "ClearHistoryButton";

/// What the example of each command touches. Those that are not here touch nothing.
const std::map<std::string, std::string> TOUCHES{
    {"browserGoToUrl", "URL, Go"},
    {"browserClearCache", CLEARING},
    {"browserPrepareAndOpen", CLEARING},
    {"browserPrepareAndOpenForReference", CLEARING + ", URL, Go"},
    {"clickByText", ALERT + ", browse"},
    {"clickByTextExact", ALERT + ", browse"},
    {"longClickByText", ALERT + ", browse"},
    {"clickByTextOnSystemPopup", ALERT},
    {"clickByXY", ALERT + ", browse"},
    {"longClickByXY", ALERT + ", browse"},
    {"clickByPercent", ALERT + ", browse"},
    {"clickOnLastElementFound", ALERT + ", browse"},
    {"findByClass", ALERT + ", basket"},
    {"findByText", ALERT + ", tab.basket"},
    {"findByTextExact", ALERT + ", $24.00"},
    {"installApp", CLEARING + ", URL, Go, AppStore.offerButton[state=get], payment-sheet.install"},
    {"waitUntilGoneText", ALERT + ", browse"},
    {"waitUntilGoneTextExact", ALERT + ", browse"},
    {"waitUntilGoneAccessibilityField", ALERT + ", browse"},
    {"waitUntilGoneAccessibilityFieldExact", ALERT + ", browse"},
    {"waitUntilTextBeforeClick", ALERT + ", browse"},
    {"waitUntilAccessibilityFieldBeforeClick", ALERT + ", browse"},
    {"waitUntilAccessibilityFieldExactBeforeClick", ALERT + ", browse"},
    {"enterText", ALERT + ", search"},
    {"enterTextFast", ALERT + ", search"},
    {"setTextByText", ALERT + ", search"},
    {"setTextByTextExact", ALERT + ", search"},
    {"scrollDownward", ALERT + ", offer"},
    {"scrollUpward", ALERT + ", offer"},
    {"scrollLeftward", ALERT + ", offer"},
    {"scrollRightward", ALERT + ", offer"},
    {"swipeDownward", "Control Center, Battery"},
    {"swipeUpward", "Control Center, Home Screen & App Library"},
    {"swipeLeftward", "Personal Hotspot"},
    {"swipeRightward", "Off"},
    {"swipeVertical", "General"},
    {"swipeHorizontal", "Off"},
    {"swipeDownwardToText", "Control Center, Passwords"},
};

/// The examples that start no application.
const std::vector<std::string> WITHOUT_APPLICATION{"measureStart", "measureStop",   "pause",
                                                   "pressHome",    "pressVolumeUp", "pressVolumeDown"};

TEST(Examples, WhatTheyTouchIsToldOfCommandsThatThereAre) {
  std::set<std::string> commands;
  for (const manual::CommandGroup& group : manual::commandNotes()) {
    for (const CommandNote& note : group.notes) {
      commands.insert(note.name);
    }
  }
  for (const auto& [command, touches] : TOUCHES) {
    EXPECT_TRUE(commands.contains(command)) << command;
  }
  EXPECT_THAT(commands, ::testing::IsSupersetOf(WITHOUT_APPLICATION));
}

class RunTest final : public DocumentedExample {
 public:
  explicit RunTest(DocumentedRun run) : run_(std::move(run)) {}

 private:
  void TestBody() override { checkRun(run_); }

  DocumentedRun run_;
};

void registerRun(const char* suite, const DocumentedRun& run) {
  ::testing::RegisterTest(suite, run.name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [run]() -> DocumentedExample* { return new RunTest(run); });
}

std::string expectationsOf(const CommandNote& note) {
  const bool hasApplication = std::count(WITHOUT_APPLICATION.begin(), WITHOUT_APPLICATION.end(), note.name) == 0;
  const auto touches = TOUCHES.find(note.name);
  return "\n# phone: built-in\n# expect status: success" +
         (hasApplication ? "" : ": " + manual::NOT_INITIALISED.message) +
         "\n# expect touched: " + (touches == TOUCHES.end() ? "nothing" : touches->second) + "\n";
}

void registerExamplesOfCommands() {
  for (const manual::CommandGroup& group : manual::commandNotes()) {
    for (const CommandNote& note : group.notes) {
      DocumentedRun run;
      run.name = note.name;
      run.scripts.push_back(conformance::readScriptFile(note.name, note.example + expectationsOf(note)));
      registerRun("CommandExample", run);
    }
  }
}

void registerExamplesOfPage(const char* suite, const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  for (const DocumentedRun& run : runsOn({std::istreambuf_iterator<char>(file), {}})) {
    registerRun(suite, run);
  }
}

}  // namespace
}  // namespace quobrak::documentation

/// Takes the place of the test library's own: the examples are known only when it runs.
int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  quobrak::documentation::registerExamplesOfCommands();
  quobrak::documentation::registerExamplesOfPage("ScriptLanguage", QUOBRAK_SOURCE_FOLDER "/docs/script-language.md");
  return RUN_ALL_TESTS();
}
