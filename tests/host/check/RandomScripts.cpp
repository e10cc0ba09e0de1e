#include "tests/host/check/RandomScripts.h"

namespace quobrak::host::testing {

const char* const PAGE_FOR_RANDOM_SCRIPTS = R"(
  <XCUIElementTypeButton name="go" label="Go ahead" x="0" y="0" width="50" height="10"/>
  <XCUIElementTypeButton name="go2" label="Go back" x="50" y="0" width="50" height="10"/>
  <XCUIElementTypeStaticText name="lamp" label="Lamp" x="0" y="10" width="50" height="10"/>
  <XCUIElementTypeTextField name="field" label="Field" placeholderValue="Search" x="50" y="10" width="50" height="10"/>
  <XCUIElementTypeButton name="off" label="Off" enabled="false" x="0" y="20" width="50" height="10"/>
  <XCUIElementTypeImage name="größe" label="Größe 設定" x="50" y="20" width="50" height="10"/>
  <XCUIElementTypeScrollView name="list" label="List" x="0" y="30" width="100" height="20">
    <XCUIElementTypeCell name="first" label="First" x="0" y="30" width="100" height="20"/>
  </XCUIElementTypeScrollView>)";

Variables variablesForRandomScripts() {
  Variables variables;
  variables.set("WORD", "Lamp");
  variables.set("NESTED", "${WORD}");
  variables.set("NUMBER", "20");
  variables.set("TWO_FIELDS", "Go,2");
  variables.set("EMPTY", "");
  variables.set("LINE", "clickByText,Lamp");
  variables.set("COMMENT", "# pause,x");
  variables.set("BAD", "x y");
  return variables;
}

namespace {

using Words = std::vector<std::string>;

const Words PARTS{"Go", "go ahead", "LAMP", "Search", "GRÖSSE", "設定", "first", "${WORD}", "${NESTED}", "Go back"};
/// Of labels alone.
const Words LABEL_PARTS{"Go", "go ahead", "LAMP", "GRÖSSE", "設定", "first", "${WORD}", "${NESTED}"};
const Words FIELDS{"Search", "field"};
const Words FIELD_PATTERNS{"Search", "F.*d"};
const Words PATTERNS{"Lamp", "Go .*", "(?i)GO AHEAD", "Gr..e .*", "Lamp|Go back", "${WORD}"};
const Words BAD_PATTERNS{"(Lamp", "[a", "*", "a{2", "\\", "(?<=a*)b", "\\p{nothing}"};
const Words IDENTIFIERS{"go", "LAMP", "fie", "größe"};
const Words IDENTIFIER_PATTERNS{"go", "la.p", "gr.*", "field"};
const Words ABSENT{"Nobody", "nowhere at all", "Go nowhere"};
const Words CLASSES{"Button", "StaticText", "TextField", "Image", "Cell", "Window"};
const Words BAD_CLASSES{"button", "Buton", "", "ScrollView", "Button ", "Any"};
const Words RANKS{"1", "+1", "01"};
const Words BAD_RANKS{"0", "-3", "", "x", " 1", "1 ", "9223372036854775808"};
const Words TRUTHS{"true"};
const Words BAD_TRUTHS{"True", "yes", "", "1", " true"};
const Words NUMBERS{"0", "20", "-5", "+7", "${NUMBER}"};
const Words BAD_NUMBERS{"", "x", "1.5", "5 ", "0x5", "99999999999999999999", "${BAD}"};
const Words PAUSES{"0", "1", "500", "4294967", "${NUMBER}"};
const Words BAD_PAUSES{"4294968", "9223372036854775807", "-1", "", "soon", "1 "};
const Words SWIPES{"1", "30", "31", "1000"};
const Words BAD_SWIPES{"0", "-1", "", "all", "-9223372036854775808"};
const Words PERCENTS{"0", "50", "100", "-20", "101"};
const Words BAD_PERCENTS{"", "50%", "half", " 5"};
const Words DISTANCES{"1", "5.5", "1e1", "none", "", "-4", "nan"};
const Words STEPS{"Step", "Start of all", "ü", ""};
const Words TEXTS{"abc", "ü設", " two words ", "${WORD}"};
const Words BUNDLES{"com.example.test"};
const Words BAD_BUNDLES{""};
const Words ANY_TEXT{"x", "", "com.example.other"};

/// The argument of a command: what it may be, and what it must not be.
struct Argument {
  const Words& good;
  const Words* bad = nullptr;
  bool isOptional = false;
};

struct Command {
  const char* name;
  std::vector<Argument> arguments;
};

const std::vector<Command>& commands() {
  static const std::vector<Command> COMMANDS{
      {"applicationStart", {{BUNDLES, &BAD_BUNDLES}}},
      {"applicationKill", {{ANY_TEXT}}},
      {"clickByText", {{PARTS}}},
      {"clickByTextExact", {{PATTERNS, &BAD_PATTERNS}}},
      {"longClickByText", {{PARTS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"clickByXY", {{DISTANCES}, {DISTANCES}}},
      {"longClickByXY", {{DISTANCES}, {DISTANCES}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"clickByPercent", {{PERCENTS, &BAD_PERCENTS}, {PERCENTS, &BAD_PERCENTS}}},
      {"findByClass", {{CLASSES, &BAD_CLASSES}, {RANKS, &BAD_RANKS, true}, {TRUTHS, &BAD_TRUTHS, true}}},
      {"findByText", {{PARTS}, {RANKS, &BAD_RANKS, true}, {TRUTHS, &BAD_TRUTHS, true}}},
      {"findByTextExact", {{PATTERNS, &BAD_PATTERNS}, {RANKS, &BAD_RANKS, true}, {TRUTHS, &BAD_TRUTHS, true}}},
      {"measureStart", {{STEPS}}},
      {"measureStop", {}},
      {"pause", {{PAUSES, &BAD_PAUSES}}},
      {"pressVolumeUp", {}},
      {"waitUntilText", {{LABEL_PARTS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilTextExact", {{PATTERNS, &BAD_PATTERNS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilAccessibilityField", {{IDENTIFIERS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilAccessibilityFieldExact", {{IDENTIFIER_PATTERNS, &BAD_PATTERNS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilGoneText", {{ABSENT}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilGoneTextExact", {{ABSENT, &BAD_PATTERNS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilGoneAccessibilityField", {{ABSENT}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilGoneAccessibilityFieldExact", {{ABSENT, &BAD_PATTERNS}, {NUMBERS, &BAD_NUMBERS, true}}},
      {"waitUntilTextBeforeClick", {{LABEL_PARTS}, {TRUTHS, &BAD_TRUTHS, true}}},
      {"waitUntilTextExactBeforeClick", {{PATTERNS, &BAD_PATTERNS}, {TRUTHS, &BAD_TRUTHS, true}}},
      {"waitUntilAccessibilityFieldBeforeClick", {{IDENTIFIERS}, {TRUTHS, &BAD_TRUTHS, true}}},
      {"setTextByText", {{TEXTS}, {FIELDS}}},
      {"setTextByTextExact", {{TEXTS}, {FIELD_PATTERNS, &BAD_PATTERNS}}},
      {"scrollDownward", {}},
      {"scrollLeftward", {}},
      {"swipeDownward", {{PERCENTS, &BAD_PERCENTS, true}, {PERCENTS, &BAD_PERCENTS, true}}},
      {"swipeLeftward", {{PERCENTS, &BAD_PERCENTS}}},
      {"swipeVertical", {{PERCENTS, &BAD_PERCENTS}, {PERCENTS, &BAD_PERCENTS}, {PERCENTS, &BAD_PERCENTS}}},
      {"swipeDownwardToText", {{PARTS}, {SWIPES, &BAD_SWIPES, true}, {PERCENTS, &BAD_PERCENTS, true}}},
      {"swipeUpwardToText", {{PARTS}, {SWIPES, &BAD_SWIPES, true}}},
  };
  return COMMANDS;
}

/// Lines that are no command of the table above: commented, empty, made by variables, or with a mistake of their own.
const Words OTHER_LINES{"",
                        "# clickByText",
                        "  \t",
                        "${LINE}",
                        "${COMMENT}",
                        "${EMPTY}",
                        "findByText,${TWO_FIELDS}",
                        "findByText,Lamp\nclickOnLastElementFound",
                        "clickByText,Search\nenterTextFast,abc",
                        "clickByText,Search\nenterText,abc,20",
                        "setTextByText,\xF0\x9F\x98\x80${WORD},Search"};
const Words MISTAKEN_LINES{"pause,${MISSING}",
                           "#",
                           "clickByTextOnSystemPopup",
                           "clickByText, Lamp ${WORD}${MISSING}",
                           "clickOnLastElementFound",
                           "clickByText,Search\nenterText,abc,4294968",
                           "clickByText,Search\nenterText,abc,slow",
                           "Pause,1",
                           "pause ,1",
                           ",",
                           "${BAD}",
                           "installApp",
                           "setTextByText,a",
                           "measureStart"};

/// In a hundred lines or arguments.
constexpr std::size_t MISTAKES = 2;
constexpr std::size_t HALF = 50;

std::string argumentFrom(const Argument& argument, Chance& chance) {
  return argument.bad != nullptr && chance.inHundred(MISTAKES) ? chance.of(*argument.bad) : chance.of(argument.good);
}

std::string commandLine(Chance& chance) {
  const Command& command = chance.of(commands());
  std::string line = command.name;
  if (chance.inHundred(1)) {
    line.erase(chance.below(line.size()), 1);
  }
  for (const Argument& argument : command.arguments) {
    if ((argument.isOptional && chance.inHundred(HALF)) || chance.inHundred(1)) {
      return line;
    }
    line += "," + argumentFrom(argument, chance);
  }
  return chance.inHundred(MISTAKES) ? line + ",surplus" : line;
}

std::string randomLine(Chance& chance) {
  if (chance.inHundred(MISTAKES)) {
    return chance.of(MISTAKEN_LINES);
  }
  constexpr std::size_t OTHERS = 15;
  return chance.inHundred(OTHERS) ? chance.of(OTHER_LINES) : commandLine(chance);
}

std::string randomScript(Chance& chance, bool startsApplication) {
  constexpr std::size_t MOST_LINES = 12;
  const std::string newline = chance.inHundred(10) ? "\r\n" : "\n";
  std::string script = startsApplication ? "applicationStart,com.example.test" + newline : "";
  for (std::size_t lines = chance.below(MOST_LINES) + 1; lines > 0; --lines) {
    script += (chance.inHundred(10) ? "  " : "") + randomLine(chance) + newline;
  }
  return script;
}

}  // namespace

std::vector<std::string> randomScripts(Chance& chance) {
  constexpr std::size_t MOST_SCRIPTS = 3;
  constexpr std::size_t STARTED = 90;
  std::vector<std::string> scripts{randomScript(chance, chance.inHundred(STARTED))};
  while (scripts.size() < MOST_SCRIPTS && chance.inHundred(HALF)) {
    scripts.push_back(randomScript(chance, chance.inHundred(HALF)));
  }
  return scripts;
}

}  // namespace quobrak::host::testing
