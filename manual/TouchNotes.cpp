#include "manual/CommandNotes.h"
#include "manual/CommonFailures.h"

/// Taps, presses, scrolling and swiping.
namespace quobrak::manual {

namespace {

constexpr const char* PART_OF_TEXT = "a part of the label, identifier or placeholder, in any case";
constexpr const char* PATTERN =
    "a [pattern](script-language.md#patterns) for the whole label, identifier or placeholder";
constexpr const char* POINTS_FROM_THE_LEFT =
    "how far from the left edge of the application; a text that is no number counts as 0";
constexpr const char* POINTS_FROM_THE_TOP = "how far from the upper edge; likewise";
constexpr const char* DURATION = "how long the finger stays";
constexpr const char* SCROLL_VIEW_ALONE =
    "One swipe on the first element of type ScrollView; a table, a collection or a web page does not count.";

const Failure NO_SCROLL_VIEW{.message = "No scrollable view", .when = "there is no scroll view"};

CommandNote scrolling(const std::string& name, const std::string& example) {
  return {.name = name,
          .description = SCROLL_VIEW_ALONE,
          .arguments = {},
          .errors = {NOT_INITIALISED, NO_SCROLL_VIEW},
          .stops = {},
          .example = example};
}

CommandNote dragging(const std::string& name, const std::string& description, const std::vector<std::string>& arguments,
                     const std::string& example) {
  return {.name = name,
          .description = description,
          .arguments = arguments,
          .errors = {NOT_INITIALISED},
          .stops = {},
          .example = "applicationStart,com.apple.Preferences\n" + example};
}

CommandNote swipingToText(const std::string& name, const std::string& swipe, const std::string& remark,
                          const std::string& example) {
  return {
      .name = name,
      .description =
          "It looks for the first enabled element with the text, which must be in the element tree already, if only "
          "out "
          "of sight. While that cannot be tapped it swipes as `" +
          swipe +
          "` does and waits a second, up to `maxSwipe` times, and never more than 30. After the last swipe it does not "
          "look again." +
          remark,
      .arguments = {PART_OF_TEXT, "how many swipes at most", "where the finger goes, from the left edge"},
      .errors = {{.message = "The selector <selector> has not been found after the swipe",
                  .when = "after the last swipe"}},
      .stops = {{.message = "Unexpectedly raised an error: the search for <selector> before a swipe: "
                            "The expected text <selector> was not found",
                 .when = "no enabled element has such a text, not even out of sight"},
                {.message = "Unexpectedly raised an error: the search for <selector> before a swipe: " +
                            NOT_INITIALISED.message,
                 .when = NOT_INITIALISED.when},
                {.message = "Range requires lowerBound <= upperBound: maxSwipe is <maxSwipe>, but must be at least 1",
                 .when = "`maxSwipe` is below 1"}},
      .example = "applicationStart,com.apple.Preferences\n" + example};
}

}  // namespace

CommandGroup tapNotes() {
  return {
      .title = "Taps and presses",
      .introduction =
          "By text they find the first enabled element in the order of the element tree; see "
          "[selectors](script-language.md#selectors). Before a tap, a permission alert is answered: see "
          "[permission alerts](script-language.md#permission-alerts).",
      .notes = {
          {.name = "clickByText",
           .description = "",
           .arguments = {PART_OF_TEXT},
           .errors = {NOT_INITIALISED, TEXT_NOT_FOUND, NOT_HITTABLE, NOT_HITTABLE_WITHOUT_LABEL},
           .stops = {},
           .example = "applicationStart,com.example.shop\nclickByText,Browse products"},
          {.name = "clickByTextExact",
           .description = "",
           .arguments = {PATTERN},
           .errors = {NOT_INITIALISED, TEXT_NOT_FOUND, NOT_HITTABLE, NOT_HITTABLE_WITHOUT_LABEL, NO_PATTERN},
           .stops = {},
           .example = "applicationStart,com.example.shop\nclickByTextExact,Browse .*"},
          {.name = "longClickByText",
           .description =
               "It does not ask whether the element can be tapped: what lies in front of it takes the press.",
           .arguments = {PART_OF_TEXT, DURATION},
           .errors = {NOT_INITIALISED,
                      TEXT_NOT_FOUND,
                      {.message = UNKNOWN_ERROR,
                       .when = "no part of the element is on the screen, on the simulated phone; others may press "
                               "nothing"}},
           .stops = {},
           .example = "applicationStart,com.example.shop\nlongClickByText,Browse products,2000"},
          {.name = "clickByTextOnSystemPopup",
           .description = "It looks at alerts of the system, and at the home screen. It does not wait, and needs no "
                          "application; [waitUntilTextOnSystemPopup](#waituntiltextonsystempopup) waits.",
           .arguments = {"the whole label or identifier of the button, case-sensitive; no pattern"},
           .errors = {{.message = "The expected element <selector> was not found", .when = "there is no such button"}},
           .stops = {},
           .example = "applicationStart,com.example.shop\nclickByTextOnSystemPopup,Allow Once"},
          {.name = "clickByXY",
           .description = "What is there takes the tap. Outside the screen, and in an application without a window, "
                          "nothing does.",
           .arguments = {POINTS_FROM_THE_LEFT, POINTS_FROM_THE_TOP},
           .errors = {NOT_INITIALISED},
           .stops = {},
           .example = "applicationStart,com.example.shop\nclickByXY,195,273.5"},
          {.name = "longClickByXY",
           .description = "As [clickByXY](#clickbyxy), but longer.",
           .arguments = {POINTS_FROM_THE_LEFT, POINTS_FROM_THE_TOP, DURATION},
           .errors = {NOT_INITIALISED},
           .stops = {},
           .example = "applicationStart,com.example.shop\nlongClickByXY,195,273.5,2000"},
          {.name = "clickByPercent",
           .description = "0 is the left or upper edge, 100 the right or lower one; beyond them nothing is tapped.",
           .arguments = {"from the left edge", "from the upper edge"},
           .errors = {NOT_INITIALISED},
           .stops = {},
           .example = "applicationStart,com.example.shop\nclickByPercent,50,32"},
          {.name = "clickOnLastElementFound",
           .description = "See [the last element found](script-language.md#the-last-element-found). The element is "
                          "looked up anew, by the search that found it.",
           .arguments = {},
           .errors = {{.message = "Please search for an element before using this method",
                       .when = "no search of the run has found one"},
                      NOT_HITTABLE,
                      {.message = NOT_HITTABLE_WITHOUT_LABEL.message,
                       .when = "the same, and the element has no label, or is gone"}},
           .stops = {},
           .example = "applicationStart,com.example.shop\nfindByText,Browse products\nclickOnLastElementFound"},
      }};
}

CommandGroup scrollNotes() {
  return {.title = "Scrolling",
          .introduction = "",
          .notes = {
              scrolling("scrollDownward", "applicationStart,com.example.shop\nscrollDownward"),
              scrolling("scrollUpward", "applicationStart,com.example.shop\nscrollUpward"),
              scrolling("scrollLeftward", "applicationStart,com.example.shop\nscrollLeftward"),
              scrolling("scrollRightward", "applicationStart,com.example.shop\nscrollRightward"),
          }};
}

CommandGroup swipeNotes() {
  return {
      .title = "Swipes",
      .introduction =
          "A swipe is a quick drag from one point to another, whatever is there. Directions tell which way one looks "
          "further, so the finger goes the other way. Positions are percent of the screen, from the left or the upper "
          "edge; beyond 0 to 100 they lie outside, where nothing is.",
      .notes = {
          dragging("swipeDownward", "", {"where the finger goes, from the left edge", "where it starts, from above"},
                   "swipeDownward\nswipeDownward,30,60"),
          dragging("swipeUpward", "A bar at the upper edge does not scroll: where there is one, start below it.",
                   {"where the finger goes, from the left edge", "where it starts, from above"},
                   "swipeDownward\nswipeUpward,50,30"),
          dragging("swipeLeftward", "", {"how far from above"}, "swipeLeftward,50"),
          dragging("swipeRightward", "", {"how far from above"}, "swipeRightward,50"),
          dragging("swipeVertical", "",
                   {"where it starts, from above", "where it ends, from above", "how far from the left edge"},
                   "swipeVertical,82,20,30"),
          dragging("swipeHorizontal", "",
                   {"where it starts, from the left edge", "where it ends, from the left edge", "how far from above"},
                   "swipeHorizontal,80,20,50"),
          swipingToText("swipeDownwardToText", "swipeDownward,<percX>,90", "", "swipeDownwardToText,Safari,10"),
          swipingToText("swipeUpwardToText", "swipeUpward,<percX>,10",
                        " A bar at the upper edge does not scroll: where the finger starts on one, nothing moves.",
                        "swipeUpwardToText,Wi-Fi,10"),
      }};
}

}  // namespace quobrak::manual
