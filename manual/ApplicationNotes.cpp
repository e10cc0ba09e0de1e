#include "manual/CommandNotes.h"
#include "manual/CommonFailures.h"

/// Starting, ending and installing applications, and the browser.
namespace quobrak::manual {

namespace {

constexpr const char* NO_SETTINGS = "Settings or the browser is not installed";

Failure refused(const std::string& when) {
  return {.message = UNKNOWN_ERROR, .when = when};
}

const Failure NO_SWITCH{.message = "The expected text CloseAllTabsSwitch was not found",
                        .when = "the page that clears the history has no such switch"};

Failure noRow(const std::string& label) {
  return {.message = "Unexpectedly raised an error: the search for " + label + " before a swipe: The expected text " +
                     label + " was not found",
          .when = "that row is nowhere in Settings, not even out of sight"};
}

const std::vector<Failure> NO_ROWS{noRow("Safari"), noRow("Clear History and Website Data")};

const std::string ERRORS_OF_CLEARING =
    "Any other step fails with the errors of [swipeDownwardToText](#swipedownwardtotext) and "
    "[clickByTextExact](#clickbytextexact) for the text that it looks for.";

}  // namespace

CommandGroup applicationNotes() {
  return {
      .title = "Applications",
      .introduction =
          "Commands act on one application, the [testing application](script-language.md#the-testing-"
          "application), until another one takes its place.",
      .notes = {
          {.name = "applicationStart",
           .description = "It begins with its first screen, also where it was running before.",
           .arguments = {"the application's bundle identifier"},
           .errors = {refused("the application is not installed"),
                      {.message = NOT_INITIALISED.message, .when = "`bundleId` is there, but empty"}},
           .stops = {},
           .example = "applicationStart,com.example.shop"},
          {.name = "applicationKill",
           .description = "Where it does not run, nothing happens. The testing application stays the same, even where "
                          "it is the one that ends: commands find nothing in it any more.",
           .arguments = {"the application's bundle identifier"},
           .errors = {},
           .stops = {},
           .example = "applicationStart,com.example.shop\napplicationKill,com.example.shop"},
      }};
}

CommandGroup browserNotes() {
  return {
      .title = "The browser",
      .introduction =
          "They drive the phone's own browser (`com.apple.mobilesafari`) and its settings (`com.apple.Preferences`) by "
          "the texts that a phone in English shows.",
      .notes = {
          {.name = "launchBrowser",
           .description = "The same as `applicationStart,com.apple.mobilesafari`.",
           .arguments = {},
           .errors = {refused("the browser is not installed")},
           .stops = {},
           .example = "launchBrowser"},
          {.name = "browserGoToUrl",
           .description = "The same as `setTextByTextExact,<url>,Address`, with its errors. It acts on the testing "
                          "application, so launch the browser first; `clickByTextExact,go` then opens the page.",
           .arguments = {"the address"},
           .errors = {NOT_INITIALISED,
                      {.message = "The expected text Address was not found",
                       .when = "the testing application shows no field called Address"}},
           .stops = {},
           .example = "launchBrowser\nbrowserGoToUrl,https://harbor.example/\nclickByTextExact,go"},
          {.name = "browserClearCache",
           .description =
               "It knows the screens of newer and of older systems:\n\n"
               "1. It starts Settings, swipes to `Safari` and taps it, and does the same with "
               "`Clear History and Website Data`.\n"
               "2. Where there is `ClearHistoryButton`: it taps `All history`, then `CloseAllTabsSwitch` if that is "
               "off, then `ClearHistoryButton`.\n"
               "3. Otherwise: it taps `Clear History and Data`, waits 3 seconds, and if there is `Keep Tabs`, taps "
               "`Close Tabs`.\n"
               "4. It ends Settings, which stays the testing application: start another one before you go on.\n\n" +
               ERRORS_OF_CLEARING,
           .arguments = {},
           .errors = {NO_SWITCH, refused("Settings is not installed")},
           .stops = NO_ROWS,
           .example = "browserClearCache"},
          {.name = "browserPrepareAndOpen",
           .description = "The same as [browserClearCache](#browserclearcache), "
                          "`applicationKill,com.apple.mobilesafari` and `launchBrowser`, with their errors.",
           .arguments = {},
           .errors = {NO_SWITCH, refused(NO_SETTINGS)},
           .stops = NO_ROWS,
           .example = "browserPrepareAndOpen"},
          {.name = "browserPrepareAndOpenForReference",
           .description = "After [browserPrepareAndOpen](#browserprepareandopen) it types the address of the page as "
                          "[browserGoToUrl](#browsergotourl) does, taps `go`, and waits 60 seconds. The black page is "
                          "the one that "
                          "the variable `QUOBRAK_REFERENCE_PAGE` names. Errors are those of the steps.",
           .arguments = {"`true` for the page about:blank, `false` for the black page"},
           .errors = {NO_SWITCH, refused(NO_SETTINGS)},
           .stops = NO_ROWS,
           .example = "browserPrepareAndOpenForReference,true"},
      }};
}

CommandGroup storeNotes() {
  return {
      .title = "The App Store",
      .introduction = "",
      .notes = {{
          .name = "installApp",
          .description =
              "On a phone in English:\n\n"
              "1. It clears the browser and starts it anew, as [browserPrepareAndOpen](#browserprepareandopen) does, "
              "types the link as [browserGoToUrl](#browsergotourl) does, and taps `go`, which must be there.\n"
              "2. The App Store becomes the testing application. It waits up to 30 seconds for a label `Share`.\n"
              "3. Where there is `re-download`, it taps that. Otherwise it waits a second, taps the element with the "
              "label `GET` or `get`, waits 2 seconds, and taps the point at 50 % of the width and 92 % of the height, "
              "where the confirmation is.\n"
              "4. It waits up to 5 minutes for the label `OPEN` or `open`, and ends the App Store, which stays the "
              "testing application.\n\n"
              "Errors of the first step are those of its commands.",
          .arguments = {"the link to the application in the App Store"},
          .errors = {{.message = "The share button was not found", .when = "the App Store shows no product in time"},
                     {.message = "The application <appStoreUrl> is already installed",
                      .when = "there is `OPEN` or `open` before anything is tapped"},
                     {.message = "The get button was not found",
                      .when = "there is neither `re-download` nor `GET` nor `get`"},
                     {.message = "The open button was not found", .when = "the download has not ended in time"},
                     NO_SWITCH,
                     refused("Settings or the browser is not installed, or the keyboard has no `go`")},
          .stops = NO_ROWS,
          .example = "installApp,https://apps.apple.com/app/lantern/id3",
      }}};
}

}  // namespace quobrak::manual
