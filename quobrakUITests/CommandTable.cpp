#include "quobrakUITests/CommandTable.h"

#include "quobrakUITests/Application.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/Probe.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/Screenshot.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

// A measured step is framed by pictures, which are taken outside it.

void measureStart(const std::string& stepName) {
  takeScreenshot(TestContext::shared().getIterationPath(), stepName + "_start");
  Probe::measureStart(stepName);
}

void measureStop() {
  const std::string iterationPath = TestContext::shared().getIterationPath();
  Probe::measureStop();
  RunObserver::tell(&RunObserver::stepFinished, TestContext::shared().getTestResults().back());
  takeScreenshot(iterationPath, TestContext::shared().getCurrentTestResult().test + "_stop");
}

template <std::size_t Field>
using BundleId = DirectField<Field, "bundleId">;
template <std::size_t Field>
using Selector = DirectField<Field, "selector">;
template <std::size_t Field>
using PauseDuration = CheckedField<&Parameters::getPauseDuration, Field, "timeMillis", Unit::milliseconds>;

constexpr std::array ROWS{
    command<&Application::applicationStart, BundleId<1>>(
        "applicationStart", "Starts an application, or restarts it, and makes it the one that commands act on."),
    command<&Application::applicationKill, BundleId<1>>("applicationKill", "Ends an application."),
    command<&Click::clickByText, Selector<1>>(
        "clickByText", "Taps the first element whose label, identifier or placeholder contains a text."),
    command<&measureStart, DirectField<1, "stepName">>("measureStart",
                                                       "Takes a screenshot and begins a measured step."),
    command<&measureStop>("measureStop", "Ends the measured step and takes a screenshot."),
    command<&Device::pause, PauseDuration<1>>("pause", "Waits for a number of milliseconds."),
    command<&Device::pressHome>("pressHome", "Presses the Home button."),
    command<&Device::pressVolumeUp>("pressVolumeUp", "Presses the Volume Up button."),
    command<&Device::pressVolumeDown>("pressVolumeDown", "Presses the Volume Down button."),
};

static_assert(tableFault(ROWS, 9) == TableFault::none);

}  // namespace

std::span<const CommandRow> commandTable() {
  return ROWS;
}

}  // namespace quobrak
