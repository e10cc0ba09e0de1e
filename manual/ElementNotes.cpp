#include "manual/CommandNotes.h"
#include "manual/CommonFailures.h"

/// Searching, waiting, and typing.
namespace quobrak::manual {

namespace {

const std::string SHOP = "applicationStart,com.example.shop\n";

constexpr const char* PART_OF_TEXT = "a part of the label, identifier or placeholder, in any case";
constexpr const char* PATTERN =
    "a [pattern](script-language.md#patterns) for the whole label, identifier or placeholder";
constexpr const char* NTH = "which of the elements that are found, counted from 1";
constexpr const char* ENABLED = "`true` to look among enabled elements only, `false` among disabled ones only";
constexpr const char* TIMEOUT = "how long at most; at 0 and below it looks once";

const Failure RANK_BELOW_ONE{.message = "nthElement should be an integer greater than 1",
                             .when = "`nthElement` is below 1; 1 is right"};

Failure fewer(const std::string& sought) {
  return {.message = "The expected " + sought +
                     " <selector> was found but there is less than <nthElement> occurences on the screen",
          .when = "there are fewer than `nthElement`"};
}

/// What is waited for.
struct Attribute {
  std::string words;
  bool isPattern;
};

const Attribute LABEL{"a part of the label, in any case", false};
const Attribute LABEL_PATTERN{"a [pattern](script-language.md#patterns) for the whole label", true};
const Attribute IDENTIFIER{"a part of the identifier, in any case", false};
const Attribute IDENTIFIER_PATTERN{"a [pattern](script-language.md#patterns) for the whole identifier", true};

std::vector<Failure> withPattern(std::vector<Failure> failures, const Attribute& attribute) {
  if (attribute.isPattern) {
    failures.push_back(NO_PATTERN);
  }
  return failures;
}

CommandNote appearing(const std::string& name, const Attribute& attribute, const std::string& example) {
  return {
      .name = name,
      .description = "",
      .arguments = {attribute.words, TIMEOUT},
      .errors = withPattern(
          {NOT_INITIALISED, {.message = "The expected element <selector> was not found", .when = "the time runs out"}},
          attribute),
      .stops = {},
      .example = SHOP + example};
}

CommandNote vanishing(const std::string& name, const Attribute& attribute, const std::string& example) {
  return {.name = name,
          .description = "",
          .arguments = {attribute.words, TIMEOUT},
          .errors = withPattern(
              {NOT_INITIALISED, {.message = "Not expected element was found <selector>", .when = "the time runs out"}},
              attribute),
          .stops = {},
          .example = SHOP + "clickByText,Browse products\n" + example};
}

CommandNote waitingThenTapping(const std::string& name, const Attribute& attribute, const std::string& tap,
                               const std::string& example) {
  return {.name = name,
          .description = "The tap is that of [" + tap + "](#" +
                         (attribute.isPattern ? "clickbytextexact" : "clickbytext") + "), with the same selector.",
          .arguments = {attribute.words,
                        "`true` to wait 2 seconds and go on where there is none, `false` to wait 10 "
                        "seconds and tap in any case"},
          .errors = withPattern({NOT_INITIALISED,
                                 {.message = TEXT_NOT_FOUND.message,
                                  .when = "the time runs out without `true`, or what came is not enabled"},
                                 NOT_HITTABLE,
                                 NOT_HITTABLE_WITHOUT_LABEL},
                                attribute),
          .stops = {},
          .example = SHOP + example};
}

CommandNote settingText(const std::string& name, const std::string& selector, const std::string& refused,
                        const std::string& example) {
  return {.name = name,
          .description =
              "It taps the first enabled element that has that, types behind what is in it, and taps the last "
              "button called `return`, if there is one. Note the order: first the text, then the field.",
          .arguments = {"what is typed", selector},
          .errors = {NOT_INITIALISED,
                     {.message = "The expected text <textSelector> was not found", .when = TEXT_NOT_FOUND.when},
                     {.message = NOT_HITTABLE.message,
                      .when = "the field, or the key `return`, is covered, or not on the screen"},
                     NOT_HITTABLE_WITHOUT_LABEL,
                     {.message = UNKNOWN_ERROR, .when = refused}},
          .stops = {},
          .example = SHOP + example};
}

const Failure NO_KEYBOARD{.message = "The keyboard is not visible", .when = "there is no keyboard: tap a field first"};

}  // namespace

CommandGroup searchNotes() {
  return {.title = "Searches",
          .introduction =
              "A search fails where it finds nothing, and remembers what it finds as [the last element "
              "found](script-language.md#the-last-element-found). It does not wait.",
          .notes = {
              {.name = "findByClass",
               .description = "The classes are Button, Cell, CheckBox, Icon, Image, Other, RadioButton, StaticText, "
                              "Table, TextField, TextView, WebView and Window.",
               .arguments = {"the name of the class, written so", NTH, ENABLED},
               .errors = {{.message = "The expected class <selector> does not exist",
                           .when = "`selector` is none of these names"},
                          RANK_BELOW_ONE,
                          NOT_INITIALISED,
                          {.message = "The expected class <selector> was not found",
                           .when = "there is no such element in that state"},
                          fewer("class")},
               .stops = {},
               .example = SHOP + "findByClass,Button,2\nclickOnLastElementFound"},
              {.name = "findByText",
               .description = "",
               .arguments = {PART_OF_TEXT, NTH, ENABLED},
               .errors = {RANK_BELOW_ONE,
                          NOT_INITIALISED,
                          {.message = TEXT_NOT_FOUND.message, .when = "no element in that state has such a text"},
                          fewer("text")},
               .stops = {},
               .example = SHOP + "findByText,basket,2\nclickOnLastElementFound"},
              {.name = "findByTextExact",
               .description = "",
               .arguments = {PATTERN, NTH, ENABLED},
               .errors = {RANK_BELOW_ONE,
                          NOT_INITIALISED,
                          {.message = TEXT_NOT_FOUND.message, .when = "no element in that state has such a text"},
                          fewer("text"),
                          NO_PATTERN},
               .stops = {},
               .example = SHOP + "findByTextExact,\\$\\d+\\.\\d\\d\nclickOnLastElementFound"},
          }};
}

CommandGroup waitNotes() {
  return {.title = "Waits",
          .introduction =
              "A wait ends as soon as what it waits for is there, or gone. It looks at labels, or at identifiers (the "
              "accessibility field), and at no other attribute; disabled elements count too.",
          .notes = {
              appearing("waitUntilText", LABEL, "waitUntilText,Browse,5000"),
              appearing("waitUntilTextExact", LABEL_PATTERN, "waitUntilTextExact,Browse products,5000"),
              appearing("waitUntilAccessibilityField", IDENTIFIER, "waitUntilAccessibilityField,brow,5000"),
              appearing("waitUntilAccessibilityFieldExact", IDENTIFIER_PATTERN,
                        "waitUntilAccessibilityFieldExact,browse,5000"),
              {.name = "waitUntilTextOnSystemPopup",
               .description = "It looks at alerts of the system, and at the home screen, and needs no application.",
               .arguments = {"the whole label or identifier of the button, case-sensitive; no pattern", TIMEOUT},
               .errors = {{.message = "The expected element <selector> was not found", .when = "the time runs out"}},
               .stops = {},
               .example = SHOP + "waitUntilTextOnSystemPopup,Allow Once,5000"},
              vanishing("waitUntilGoneText", LABEL, "waitUntilGoneText,Welcome,5000"),
              vanishing("waitUntilGoneTextExact", LABEL_PATTERN, "waitUntilGoneTextExact,Good things .*,5000"),
              vanishing("waitUntilGoneAccessibilityField", IDENTIFIER, "waitUntilGoneAccessibilityField,brow,5000"),
              vanishing("waitUntilGoneAccessibilityFieldExact", IDENTIFIER_PATTERN,
                        "waitUntilGoneAccessibilityFieldExact,browse,5000"),
          }};
}

CommandGroup waitThenTapNotes() {
  return {
      .title = "Waits that end in a tap",
      .introduction =
          "They wait for a label, or an identifier, and then tap. The tap looks for an enabled element, and at label, "
          "identifier and placeholder alike, so it may be another element that is tapped.",
      .notes = {
          waitingThenTapping("waitUntilTextBeforeClick", LABEL, "clickByText", "waitUntilTextBeforeClick,Browse"),
          waitingThenTapping("waitUntilTextExactBeforeClick", LABEL_PATTERN, "clickByTextExact",
                             "waitUntilTextExactBeforeClick,Not now,true"),
          waitingThenTapping("waitUntilAccessibilityFieldBeforeClick", IDENTIFIER, "clickByText",
                             "waitUntilAccessibilityFieldBeforeClick,brow"),
          waitingThenTapping("waitUntilAccessibilityFieldExactBeforeClick", IDENTIFIER_PATTERN, "clickByTextExact",
                             "waitUntilAccessibilityFieldExactBeforeClick,browse"),
      }};
}

CommandGroup typingNotes() {
  return {
      .title = "Typing",
      .introduction = "",
      .notes = {
          {.name = "enterText",
           .description =
               "An accented letter or an emoji is one character, of however many parts. What was typed before "
               "a failure stays.",
           .arguments = {"what is typed; it may be empty",
                         "a pause after each character, the last one too; none at 0 and below"},
           .errors = {NOT_INITIALISED, NO_KEYBOARD},
           .stops = {{.message = "The pause of <period> ms cannot be slept in one piece: it must lie between 0 and "
                                 "4294967 ms",
                      .when = "`period` is more than that"},
                     {.message = "The pause in microseconds overflows", .when = "`period` is more than 2^63 / 1000"}},
           .example = SHOP + "clickByText,Search\nenterText,lamp,100"},
          {.name = "enterTextFast",
           .description = "",
           .arguments = {"what is typed"},
           .errors = {NOT_INITIALISED, NO_KEYBOARD},
           .stops = {},
           .example = SHOP + "clickByText,Search\nenterTextFast,lamp"},
          settingText("setTextByText", PART_OF_TEXT, "what is found takes no text", "setTextByText,lamp,Search"),
          settingText("setTextByTextExact", PATTERN,
                      "what is found takes no text, or `textSelector` is not a pattern that can be read",
                      "setTextByTextExact,lamp,Search"),
      }};
}

}  // namespace quobrak::manual
