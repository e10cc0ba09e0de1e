#include "quobrakUITests/CommandTable.h"

#include "quobrakUITests/Application.h"
#include "quobrakUITests/ArgumentFaults.h"
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
using BundleId = Meant<DirectField<Field, "bundleId">, Meaning::bundleId>;
/// The same where there must be one.
template <std::size_t Field>
using RequiredBundleId = Meant<DirectField<Field, "bundleId">, Meaning::bundleId, &bundleIdFault>;

// A selector, by what it is compared with.

template <std::size_t Field, FixedText Label = "selector">
using PartOfText = Meant<DirectField<Field, Label>, Meaning::partOfText>;
template <std::size_t Field, FixedText Label = "selector">
using Pattern = Meant<DirectField<Field, Label>, Meaning::pattern, &patternFault, Moment::withApplication>;
template <std::size_t Field>
using ClassName = Meant<DirectField<Field, "selector">, Meaning::className, &classNameFault>;
template <std::size_t Field>
using ButtonName = DirectField<Field, "selector">;

template <std::size_t Field>
using StepName = Meant<DirectField<Field, "stepName">, Meaning::stepName>;
template <std::size_t Field, FixedText Label>
using Distance = Meant<DirectField<Field, Label, Unit::points>, Meaning::distance, &distanceFault>;
template <std::size_t Field>
using UseBlankPage =
    CheckedField<&Parameters::getUseBlankPage, Field, "useBlankPage", Unit::truthValue, DEFAULT_USE_BLANK_PAGE>;
template <std::size_t Field, FixedText Label>
using Url = CheckedField<&Parameters::getUrl, Field, Label, Unit::text>;
template <std::size_t Field>
using PauseDuration = Meant<CheckedField<&Parameters::getPauseDuration, Field, "timeMillis", Unit::milliseconds>,
                            Meaning::pause, &pauseFault>;
template <std::size_t Field>
using PressDuration =
    CheckedField<&Parameters::getDuration, Field, "duration", Unit::milliseconds, DEFAULT_DURATION_LONG_CLICK>;
template <std::size_t Field>
using NthElement =
    Meant<CheckedField<&Parameters::getNthElement, Field, "nthElement", Unit::count, DEFAULT_NTH_ELEMENT>,
          Meaning::rank, &rankFault>;
template <std::size_t Field>
using IsEnabled = CheckedField<&Parameters::getIsEnabled, Field, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;
template <std::size_t Field>
using Timeout = CheckedField<&Parameters::getTimeout, Field, "timeout", Unit::milliseconds, DEFAULT_TIMEOUT_WAIT>;
template <std::size_t Field>
using Period =
    Meant<CheckedField<&Parameters::getPeriod, Field, "period", Unit::milliseconds, DEFAULT_ENTER_TEXT_FREQUENCY>,
          Meaning::pause, &typingPauseFault, Moment::withApplication>;
template <std::size_t Field>
using MaxSwipe = Meant<CheckedField<&Parameters::getMaxSwipe, Field, "maxSwipe", Unit::count, DEFAULT_MAX_SWIPE>,
                       Meaning::swipeCount, &swipeCountFault>;

template <std::size_t Field, FixedText Label>
using Percent =
    Meant<CheckedField<&Parameters::getCoordinate, Field, Label, Unit::percent>, Meaning::percent, &percentFault>;

/// A percentage that has a default of its own in each command.
template <std::size_t Field, FixedText Label, std::int64_t Default>
struct PercentWithDefault {
  static constexpr ArgumentInfo INFO{Field, Label.view(), Unit::percent, Default};

  static std::int64_t read(FunctionParameters fields) {
    return Parameters::getOptionalCoordinate(fields, Field, Default);
  }
};
template <std::size_t Field, FixedText Label, std::int64_t Default>
using OptionalPercent = Meant<PercentWithDefault<Field, Label, Default>, Meaning::percent, &percentFault>;

/// Its getter knows the field.
struct ClickOnlyIfExists {
  static constexpr ArgumentInfo INFO{2, "clickOnlyIfExists", Unit::truthValue, DEFAULT_CLICK_ONLY_IF_EXISTS};

  static bool read(FunctionParameters fields) { return Parameters::getClickOnlyIfExists(fields); }
};

// What commands need of the run, and leave to it.

using ApplicationEffect = CommandEffects::Application;
using SearchEffect = CommandEffects::Search;
using StepEffect = CommandEffects::Step;

constexpr CommandEffects STARTS_APPLICATION{.application = ApplicationEffect::started};
constexpr CommandEffects STARTS_AND_SEARCHES{.application = ApplicationEffect::started,
                                             .search = SearchEffect::remembered};
constexpr CommandEffects ACTS_ON_APPLICATION{.application = ApplicationEffect::needed};
constexpr CommandEffects SEARCHES{.application = ApplicationEffect::needed, .search = SearchEffect::remembered};
constexpr CommandEffects SEARCHES_OR_STOPS{
    .application = ApplicationEffect::needed,
    .search = SearchEffect::remembered,
    .stopWithoutApplication = [](FunctionParameters fields, std::string_view reason) {
      return Scroll::failedSearchMessage(fields[1], reason);
    }};
constexpr CommandEffects ACTS_ON_LAST_ELEMENT{.search = SearchEffect::needed};
constexpr CommandEffects BEGINS_STEP{.step = StepEffect::begun};
constexpr CommandEffects ENDS_STEP{.step = StepEffect::ended};

constexpr std::array ROWS{
    command<&Application::applicationStart, RequiredBundleId<1>>(
        "applicationStart", "Starts an application, or restarts it, and makes it the one that commands act on.",
        STARTS_APPLICATION),
    command<&Application::applicationKill, BundleId<1>>("applicationKill", "Ends an application."),

    command<&BrowserManager::launchBrowser>(
        "launchBrowser", "Starts the browser, or restarts it, and makes it the application that commands act on.",
        STARTS_APPLICATION),
    command<&BrowserManager::browserGoToUrl, DirectField<1, "url">>(
        "browserGoToUrl", "Types an address into the browser's address field, without submitting it.", SEARCHES),
    command<&BrowserManager::clearCache>("browserClearCache", "Clears the browser's history and data in Settings.",
                                         STARTS_AND_SEARCHES),
    command<&BrowserManager::prepareAndOpen>("browserPrepareAndOpen",
                                             "Clears the browser's history and data, and starts the browser anew.",
                                             STARTS_AND_SEARCHES),
    command<&BrowserManager::prepareAndOpenForReference, UseBlankPage<1>>(
        "browserPrepareAndOpenForReference",
        "Prepares and opens the browser, and shows a black or a blank page for a minute.", STARTS_AND_SEARCHES),

    command<&Click::clickByText, PartOfText<1>>(
        "clickByText", "Taps the first element whose label, identifier or placeholder contains a text.", SEARCHES),
    command<&Click::clickByTextExact, Pattern<1>>(
        "clickByTextExact", "Taps the first element whose label, identifier or placeholder matches a pattern.",
        SEARCHES),
    command<&Click::longClickByText, PartOfText<1>, PressDuration<2>>(
        "longClickByText", "Presses the first element whose label, identifier or placeholder contains a text.",
        SEARCHES),
    command<&Click::clickByTextOnSystemPopup, ButtonName<1>>("clickByTextOnSystemPopup",
                                                             "Taps a button of the system's pop-up."),
    command<&Click::clickByXY, Distance<1, "x">, Distance<2, "y">>(
        "clickByXY", "Taps a point given in points from the top-left corner.", ACTS_ON_APPLICATION),
    command<&Click::longClickByXY, Distance<1, "x">, Distance<2, "y">, PressDuration<3>>(
        "longClickByXY", "Presses a point given in points from the top-left corner.", ACTS_ON_APPLICATION),
    command<&Click::clickByPercent, Percent<1, "xPercentage">, Percent<2, "yPercentage">>(
        "clickByPercent", "Taps a point given in percent of the screen.", ACTS_ON_APPLICATION),
    command<&Click::clickOnLastElementFound>("clickOnLastElementFound", "Taps the element that was found last.",
                                             ACTS_ON_LAST_ELEMENT),

    command<&findByClass, ClassName<1>, NthElement<2>, IsEnabled<3>>("findByClass", "Finds an element of a class.",
                                                                     SEARCHES),
    command<&findByText, PartOfText<1>, NthElement<2>, IsEnabled<3>>(
        "findByText", "Finds an element whose label, identifier or placeholder contains a text.", SEARCHES),
    command<&findByTextExact, Pattern<1>, NthElement<2>, IsEnabled<3>>(
        "findByTextExact", "Finds an element whose label, identifier or placeholder matches a pattern.", SEARCHES),

    command<&Application::installApp, Url<1, "appStoreUrl">>(
        "installApp", "Installs the application of an App Store link.", STARTS_AND_SEARCHES),

    command<&measureStart, StepName<1>>("measureStart", "Takes a screenshot and begins a measured step.", BEGINS_STEP),
    command<&measureStop>("measureStop", "Ends the measured step and takes a screenshot.", ENDS_STEP),

    command<&Device::pause, PauseDuration<1>>("pause", "Waits for a number of milliseconds."),
    command<&Device::pressHome>("pressHome", "Presses the Home button."),
    command<&Device::pressVolumeUp>("pressVolumeUp", "Presses the Volume Up button."),
    command<&Device::pressVolumeDown>("pressVolumeDown", "Presses the Volume Down button."),

    command<&requireFound<&WaitObject::waitUntilText>, PartOfText<1>, Timeout<2>>(
        "waitUntilText", "Waits for an element whose label contains a text.", ACTS_ON_APPLICATION),
    command<&requireFound<&WaitObject::waitUntilTextExact>, Pattern<1>, Timeout<2>>(
        "waitUntilTextExact", "Waits for an element whose label matches a pattern.", ACTS_ON_APPLICATION),
    command<&requireFound<&WaitObject::waitUntilAccessibilityField>, PartOfText<1>, Timeout<2>>(
        "waitUntilAccessibilityField", "Waits for an element whose identifier contains a text.", ACTS_ON_APPLICATION),
    command<&requireFound<&WaitObject::waitUntilAccessibilityFieldExact>, Pattern<1>, Timeout<2>>(
        "waitUntilAccessibilityFieldExact", "Waits for an element whose identifier matches a pattern.",
        ACTS_ON_APPLICATION),
    command<&requireFound<&WaitObject::waitUntilTextOnSystemPopup>, ButtonName<1>, Timeout<2>>(
        "waitUntilTextOnSystemPopup", "Waits for a button of the system's pop-up."),
    command<&requireGone<&WaitObject::waitUntilGoneText>, PartOfText<1>, Timeout<2>>(
        "waitUntilGoneText", "Waits until no element's label contains a text.", ACTS_ON_APPLICATION),
    command<&requireGone<&WaitObject::waitUntilGoneTextExact>, Pattern<1>, Timeout<2>>(
        "waitUntilGoneTextExact", "Waits until no element's label matches a pattern.", ACTS_ON_APPLICATION),
    command<&requireGone<&WaitObject::waitUntilGoneAccessibilityField>, PartOfText<1>, Timeout<2>>(
        "waitUntilGoneAccessibilityField", "Waits until no element's identifier contains a text.", ACTS_ON_APPLICATION),
    command<&requireGone<&WaitObject::waitUntilGoneAccessibilityFieldExact>, Pattern<1>, Timeout<2>>(
        "waitUntilGoneAccessibilityFieldExact", "Waits until no element's identifier matches a pattern.",
        ACTS_ON_APPLICATION),
    command<&WaitObject::waitUntilTextBeforeClick, PartOfText<1>, ClickOnlyIfExists>(
        "waitUntilTextBeforeClick", "Waits for an element whose label contains a text, then taps it.", SEARCHES),
    command<&WaitObject::waitUntilTextExactBeforeClick, Pattern<1>, ClickOnlyIfExists>(
        "waitUntilTextExactBeforeClick", "Waits for an element whose label matches a pattern, then taps it.", SEARCHES),
    command<&WaitObject::waitUntilAccessibilityFieldBeforeClick, PartOfText<1>, ClickOnlyIfExists>(
        "waitUntilAccessibilityFieldBeforeClick",
        "Waits for an element whose identifier contains a text, then taps it.", SEARCHES),
    command<&WaitObject::waitUntilAccessibilityFieldExactBeforeClick, Pattern<1>, ClickOnlyIfExists>(
        "waitUntilAccessibilityFieldExactBeforeClick",
        "Waits for an element whose identifier matches a pattern, then taps it.", SEARCHES),

    command<&SetText::enterText, DirectField<1, "text">, Period<2>>(
        "enterText", "Types a text, character by character, where the keyboard's focus is.", ACTS_ON_APPLICATION),
    command<&SetText::enterTextFast, DirectField<1, "text">>(
        "enterTextFast", "Types a text at once where the keyboard's focus is.", ACTS_ON_APPLICATION),
    command<&SetText::setTextByText, DirectField<1, "textToSet">, PartOfText<2, "textSelector">>(
        "setTextByText", "Types a text into the field whose label, identifier or placeholder contains another text.",
        SEARCHES),
    command<&SetText::setTextByTextExact, DirectField<1, "textToSet">, Pattern<2, "textSelector">>(
        "setTextByTextExact", "Types a text into the field whose label, identifier or placeholder matches a pattern.",
        SEARCHES),

    command<&Scroll::scrollDownward>("scrollDownward", "Scrolls the first scroll view, so that what is below shows.",
                                     ACTS_ON_APPLICATION),
    command<&Scroll::scrollUpward>("scrollUpward", "Scrolls the first scroll view, so that what is above shows.",
                                   ACTS_ON_APPLICATION),
    command<&Scroll::scrollLeftward>(
        "scrollLeftward", "Scrolls the first scroll view, so that what is to the left shows.", ACTS_ON_APPLICATION),
    command<&Scroll::scrollRightward>(
        "scrollRightward", "Scrolls the first scroll view, so that what is to the right shows.", ACTS_ON_APPLICATION),
    command<&Scroll::swipeDownward, OptionalPercent<1, "percX", DEFAULT_MEDIUM_COORDINATE>,
            OptionalPercent<2, "percStartY", DEFAULT_HIGH_COORDINATE>>(
        "swipeDownward", "Drags up to 20 % of the height, so that what is below shows.", ACTS_ON_APPLICATION),
    command<&Scroll::swipeUpward, OptionalPercent<1, "percX", DEFAULT_MEDIUM_COORDINATE>,
            OptionalPercent<2, "percStartY", DEFAULT_LOW_COORDINATE>>(
        "swipeUpward", "Drags down to 80 % of the height, so that what is above shows.", ACTS_ON_APPLICATION),
    command<&Scroll::swipeLeftward, Percent<1, "percY">>(
        "swipeLeftward", "Drags from 20 % to 80 % of the width, so that what is to the left shows.",
        ACTS_ON_APPLICATION),
    command<&Scroll::swipeRightward, Percent<1, "percY">>(
        "swipeRightward", "Drags from 80 % to 20 % of the width, so that what is to the right shows.",
        ACTS_ON_APPLICATION),
    command<&Scroll::swipeVertical, Percent<1, "percStartY">, Percent<2, "percEndY">, Percent<3, "percX">>(
        "swipeVertical", "Drags along a vertical line.", ACTS_ON_APPLICATION),
    command<&Scroll::swipeHorizontal, Percent<1, "percStartX">, Percent<2, "percEndX">, Percent<3, "percY">>(
        "swipeHorizontal", "Drags along a horizontal line.", ACTS_ON_APPLICATION),
    command<&Scroll::swipeDownwardToText, PartOfText<1>, MaxSwipe<2>,
            OptionalPercent<3, "percX", DEFAULT_MEDIUM_COORDINATE>>(
        "swipeDownwardToText", "Swipes downward until the element that contains a text can be tapped.",
        SEARCHES_OR_STOPS),
    command<&Scroll::swipeUpwardToText, PartOfText<1>, MaxSwipe<2>,
            OptionalPercent<3, "percX", DEFAULT_MEDIUM_COORDINATE>>(
        "swipeUpwardToText", "Swipes upward until the element that contains a text can be tapped.", SEARCHES_OR_STOPS),
};

static_assert(tableFault(ROWS, 54) == TableFault::none);

}  // namespace

std::span<const CommandRow> commandTable() {
  return ROWS;
}

}  // namespace quobrak
