#include "quobrakUITests/CommandTable.h"

#include "quobrakUITests/Application.h"
#include "quobrakUITests/BrowserManager.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/Probe.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/Screenshot.h"
#include "quobrakUITests/Scroll.h"
#include "quobrakUITests/SetText.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/WaitObject.h"

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

// A search is for what it remembers.

void findByClass(std::string_view selector, std::int64_t nthElement, bool isEnabled) {
  Find::findByClass({.selector = selector, .nthElement = nthElement, .isEnabled = isEnabled});
}

void findByText(std::string_view selector, std::int64_t nthElement, bool isEnabled) {
  Find::findByText({.selector = selector, .nthElement = nthElement, .isEnabled = isEnabled, .isTextExact = false});
}

void findByTextExact(std::string_view selector, std::int64_t nthElement, bool isEnabled) {
  Find::findByText({.selector = selector, .nthElement = nthElement, .isEnabled = isEnabled, .isTextExact = true});
}

// A wait whose time runs out fails its script.

template <auto Wait>
void requireFound(const std::string& selector, std::int64_t timeout) {
  if (!Wait(selector, timeout)) {
    throw FWKTError::fdslError("The expected element " + selector + " was not found");
  }
}

template <auto Wait>
void requireGone(const std::string& selector, std::int64_t timeout) {
  if (!Wait(selector, timeout)) {
    throw FWKTError::fdslError("Not expected element was found " + selector);
  }
}

template <std::size_t Field>
using BundleId = DirectField<Field, "bundleId">;
template <std::size_t Field>
using Selector = DirectField<Field, "selector">;
template <std::size_t Field>
using UseBlankPage =
    CheckedField<&Parameters::getUseBlankPage, Field, "useBlankPage", Unit::truthValue, DEFAULT_USE_BLANK_PAGE>;
template <std::size_t Field, FixedText Label>
using Url = CheckedField<&Parameters::getUrl, Field, Label, Unit::text>;
template <std::size_t Field>
using PauseDuration = CheckedField<&Parameters::getPauseDuration, Field, "timeMillis", Unit::milliseconds>;
template <std::size_t Field>
using PressDuration =
    CheckedField<&Parameters::getDuration, Field, "duration", Unit::milliseconds, DEFAULT_DURATION_LONG_CLICK>;
template <std::size_t Field>
using NthElement = CheckedField<&Parameters::getNthElement, Field, "nthElement", Unit::count, DEFAULT_NTH_ELEMENT>;
template <std::size_t Field>
using IsEnabled = CheckedField<&Parameters::getIsEnabled, Field, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;
template <std::size_t Field>
using Timeout = CheckedField<&Parameters::getTimeout, Field, "timeout", Unit::milliseconds, DEFAULT_TIMEOUT_WAIT>;
template <std::size_t Field>
using Period = CheckedField<&Parameters::getPeriod, Field, "period", Unit::milliseconds, DEFAULT_ENTER_TEXT_FREQUENCY>;
template <std::size_t Field>
using MaxSwipe = CheckedField<&Parameters::getMaxSwipe, Field, "maxSwipe", Unit::count, DEFAULT_MAX_SWIPE>;
template <std::size_t Field, FixedText Label>
using Percent = CheckedField<&Parameters::getCoordinate, Field, Label, Unit::percent>;

/// A percentage that has a default of its own in each command.
template <std::size_t Field, FixedText Label, std::int64_t Default>
struct OptionalPercent {
  static constexpr ArgumentInfo INFO{Field, Label.view(), Unit::percent, Default};

  static std::int64_t read(FunctionParameters fields) {
    return Parameters::getOptionalCoordinate(fields, Field, Default);
  }
};

/// Its getter knows the field.
struct ClickOnlyIfExists {
  static constexpr ArgumentInfo INFO{2, "clickOnlyIfExists", Unit::truthValue, DEFAULT_CLICK_ONLY_IF_EXISTS};

  static bool read(FunctionParameters fields) { return Parameters::getClickOnlyIfExists(fields); }
};

constexpr std::array ROWS{
    command<&Application::applicationStart, BundleId<1>>(
        "applicationStart", "Starts an application, or restarts it, and makes it the one that commands act on."),
    command<&Application::applicationKill, BundleId<1>>("applicationKill", "Ends an application."),

    command<&BrowserManager::launchBrowser>(
        "launchBrowser", "Starts the browser, or restarts it, and makes it the application that commands act on."),
    command<&BrowserManager::browserGoToUrl, DirectField<1, "url">>(
        "browserGoToUrl", "Types an address into the browser's address field, without submitting it."),
    command<&BrowserManager::clearCache>("browserClearCache", "Clears the browser's history and data in Settings."),
    command<&BrowserManager::prepareAndOpen>("browserPrepareAndOpen",
                                             "Clears the browser's history and data, and starts the browser anew."),
    command<&BrowserManager::prepareAndOpenForReference, UseBlankPage<1>>(
        "browserPrepareAndOpenForReference",
        "Prepares and opens the browser, and shows a black or a blank page for a minute."),

    command<&Click::clickByText, Selector<1>>(
        "clickByText", "Taps the first element whose label, identifier or placeholder contains a text."),
    command<&Click::clickByTextExact, Selector<1>>(
        "clickByTextExact", "Taps the first element whose label, identifier or placeholder matches a pattern."),
    command<&Click::longClickByText, Selector<1>, PressDuration<2>>(
        "longClickByText", "Presses the first element whose label, identifier or placeholder contains a text."),
    command<&Click::clickByTextOnSystemPopup, Selector<1>>("clickByTextOnSystemPopup",
                                                           "Taps a button of the system's pop-up."),
    command<&Click::clickByXY, DirectField<1, "x", Unit::points>, DirectField<2, "y", Unit::points>>(
        "clickByXY", "Taps a point given in points from the top-left corner."),
    command<&Click::longClickByXY, DirectField<1, "x", Unit::points>, DirectField<2, "y", Unit::points>,
            PressDuration<3>>("longClickByXY", "Presses a point given in points from the top-left corner."),
    command<&Click::clickByPercent, Percent<1, "xPercentage">, Percent<2, "yPercentage">>(
        "clickByPercent", "Taps a point given in percent of the screen."),
    command<&Click::clickOnLastElementFound>("clickOnLastElementFound", "Taps the element that was found last."),

    command<&findByClass, Selector<1>, NthElement<2>, IsEnabled<3>>("findByClass", "Finds an element of a class."),
    command<&findByText, Selector<1>, NthElement<2>, IsEnabled<3>>(
        "findByText", "Finds an element whose label, identifier or placeholder contains a text."),
    command<&findByTextExact, Selector<1>, NthElement<2>, IsEnabled<3>>(
        "findByTextExact", "Finds an element whose label, identifier or placeholder matches a pattern."),

    command<&Application::installApp, Url<1, "appStoreUrl">>("installApp",
                                                             "Installs the application of an App Store link."),

    command<&measureStart, DirectField<1, "stepName">>("measureStart",
                                                       "Takes a screenshot and begins a measured step."),
    command<&measureStop>("measureStop", "Ends the measured step and takes a screenshot."),

    command<&Device::pause, PauseDuration<1>>("pause", "Waits for a number of milliseconds."),
    command<&Device::pressHome>("pressHome", "Presses the Home button."),
    command<&Device::pressVolumeUp>("pressVolumeUp", "Presses the Volume Up button."),
    command<&Device::pressVolumeDown>("pressVolumeDown", "Presses the Volume Down button."),

    command<&requireFound<&WaitObject::waitUntilText>, Selector<1>, Timeout<2>>(
        "waitUntilText", "Waits for an element whose label contains a text."),
    command<&requireFound<&WaitObject::waitUntilTextExact>, Selector<1>, Timeout<2>>(
        "waitUntilTextExact", "Waits for an element whose label matches a pattern."),
    command<&requireFound<&WaitObject::waitUntilAccessibilityField>, Selector<1>, Timeout<2>>(
        "waitUntilAccessibilityField", "Waits for an element whose identifier contains a text."),
    command<&requireFound<&WaitObject::waitUntilAccessibilityFieldExact>, Selector<1>, Timeout<2>>(
        "waitUntilAccessibilityFieldExact", "Waits for an element whose identifier matches a pattern."),
    command<&requireFound<&WaitObject::waitUntilTextOnSystemPopup>, Selector<1>, Timeout<2>>(
        "waitUntilTextOnSystemPopup", "Waits for a button of the system's pop-up."),
    command<&requireGone<&WaitObject::waitUntilGoneText>, Selector<1>, Timeout<2>>(
        "waitUntilGoneText", "Waits until no element's label contains a text."),
    command<&requireGone<&WaitObject::waitUntilGoneTextExact>, Selector<1>, Timeout<2>>(
        "waitUntilGoneTextExact", "Waits until no element's label matches a pattern."),
    command<&requireGone<&WaitObject::waitUntilGoneAccessibilityField>, Selector<1>, Timeout<2>>(
        "waitUntilGoneAccessibilityField", "Waits until no element's identifier contains a text."),
    command<&requireGone<&WaitObject::waitUntilGoneAccessibilityFieldExact>, Selector<1>, Timeout<2>>(
        "waitUntilGoneAccessibilityFieldExact", "Waits until no element's identifier matches a pattern."),
    command<&WaitObject::waitUntilTextBeforeClick, Selector<1>, ClickOnlyIfExists>(
        "waitUntilTextBeforeClick", "Waits for an element whose label contains a text, then taps it."),
    command<&WaitObject::waitUntilTextExactBeforeClick, Selector<1>, ClickOnlyIfExists>(
        "waitUntilTextExactBeforeClick", "Waits for an element whose label matches a pattern, then taps it."),
    command<&WaitObject::waitUntilAccessibilityFieldBeforeClick, Selector<1>, ClickOnlyIfExists>(
        "waitUntilAccessibilityFieldBeforeClick",
        "Waits for an element whose identifier contains a text, then taps it."),
    command<&WaitObject::waitUntilAccessibilityFieldExactBeforeClick, Selector<1>, ClickOnlyIfExists>(
        "waitUntilAccessibilityFieldExactBeforeClick",
        "Waits for an element whose identifier matches a pattern, then taps it."),

    command<&SetText::enterText, DirectField<1, "text">, Period<2>>(
        "enterText", "Types a text, character by character, where the keyboard's focus is."),
    command<&SetText::enterTextFast, DirectField<1, "text">>("enterTextFast",
                                                             "Types a text at once where the keyboard's focus is."),
    command<&SetText::setTextByText, DirectField<1, "textToSet">, DirectField<2, "textSelector">>(
        "setTextByText", "Types a text into the field whose label, identifier or placeholder contains another text."),
    command<&SetText::setTextByTextExact, DirectField<1, "textToSet">, DirectField<2, "textSelector">>(
        "setTextByTextExact", "Types a text into the field whose label, identifier or placeholder matches a pattern."),

    command<&Scroll::scrollDownward>("scrollDownward", "Scrolls the first scroll view, so that what is below shows."),
    command<&Scroll::scrollUpward>("scrollUpward", "Scrolls the first scroll view, so that what is above shows."),
    command<&Scroll::scrollLeftward>("scrollLeftward",
                                     "Scrolls the first scroll view, so that what is to the left shows."),
    command<&Scroll::scrollRightward>("scrollRightward",
                                      "Scrolls the first scroll view, so that what is to the right shows."),
    command<&Scroll::swipeDownward, OptionalPercent<1, "percX", DEFAULT_MEDIUM_COORDINATE>,
            OptionalPercent<2, "percStartY", DEFAULT_HIGH_COORDINATE>>(
        "swipeDownward", "Drags up to 20 % of the height, so that what is below shows."),
    command<&Scroll::swipeUpward, OptionalPercent<1, "percX", DEFAULT_MEDIUM_COORDINATE>,
            OptionalPercent<2, "percStartY", DEFAULT_LOW_COORDINATE>>(
        "swipeUpward", "Drags down to 80 % of the height, so that what is above shows."),
    command<&Scroll::swipeLeftward, Percent<1, "percY">>(
        "swipeLeftward", "Drags from 20 % to 80 % of the width, so that what is to the left shows."),
    command<&Scroll::swipeRightward, Percent<1, "percY">>(
        "swipeRightward", "Drags from 80 % to 20 % of the width, so that what is to the right shows."),
    command<&Scroll::swipeVertical, Percent<1, "percStartY">, Percent<2, "percEndY">, Percent<3, "percX">>(
        "swipeVertical", "Drags along a vertical line."),
    command<&Scroll::swipeHorizontal, Percent<1, "percStartX">, Percent<2, "percEndX">, Percent<3, "percY">>(
        "swipeHorizontal", "Drags along a horizontal line."),
    command<&Scroll::swipeDownwardToText, Selector<1>, MaxSwipe<2>,
            OptionalPercent<3, "percX", DEFAULT_MEDIUM_COORDINATE>>(
        "swipeDownwardToText", "Swipes downward until the element that contains a text can be tapped."),
    command<&Scroll::swipeUpwardToText, Selector<1>, MaxSwipe<2>,
            OptionalPercent<3, "percX", DEFAULT_MEDIUM_COORDINATE>>(
        "swipeUpwardToText", "Swipes upward until the element that contains a text can be tapped."),
};

static_assert(tableFault(ROWS, 54) == TableFault::none);

}  // namespace

std::span<const CommandRow> commandTable() {
  return ROWS;
}

}  // namespace quobrak
