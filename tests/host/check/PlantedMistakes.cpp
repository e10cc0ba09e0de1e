#include "tests/host/check/PlantedMistakes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quobrak::host::testing {

namespace {

/// A line with a mistake, and what is to be said of it behind the number of the line. A place in each where WORD
/// stands takes a word of seven characters.
struct Mistake {
  std::string_view line;
  std::string_view finding;
};

constexpr std::array MISTAKES{
    Mistake{"clikByText,WORD",
            ":1-11 error unknown-command: Function clikByText is not implemented (did you mean "
            "clickByText?)"},
    Mistake{"waituntiltext,WORD",
            ":1-14 error unknown-command: Function waituntiltext is not implemented (small and capital letters differ: "
            "write waitUntilText)"},
    Mistake{"  pressHome ,WORD",
            ":3-13 error unknown-command: Function pressHome  is not implemented (a blank before the comma belongs to "
            "the name: write pressHome)"},
    Mistake{"WORD", ":1-8 error unknown-command: Function WORD is not implemented"},
    Mistake{"setTextByText,WORD",
            ":22-22 error missing-argument, aborts: Index out of range: the field 2 (textSelector) is missing (it is "
            "written setTextByText,textToSet,textSelector)"},
    Mistake{"clickByPercent,50",
            ":18-18 error missing-argument: A coordinate is missing (it is written clickByPercent,xPercentage,"
            "yPercentage)"},
    Mistake{"waitUntilText,WORD,WORD", ":23-30 error malformed-argument: The timeout WORD should be an integer"},
    Mistake{"findByText,WORD,1, true",
            ":22-27 error malformed-argument: isEnabled  true should be an boolean (a blank beside a comma belongs to "
            "the argument: write true)"},
    Mistake{"longClickByText,WORD,",
            ":25-25 error malformed-argument: The duration  should be an integer (to leave it out, end the line before "
            "its comma)"},
    Mistake{"pause,4294968",
            ":7-14 error pause-out-of-range, aborts: The pause of 4294968 ms cannot be slept in one piece: it must lie "
            "between 0 and 4294967 ms"},
    Mistake{"enterText,WORD,9223372036854775807",
            ":19-38 error pause-out-of-range, aborts: The pause in microseconds overflows"},
    Mistake{"swipeUpwardToText,WORD,0",
            ":27-28 error swipe-count, aborts: Range requires lowerBound <= upperBound: maxSwipe is 0, but must be at "
            "least 1"},
    Mistake{"swipeUpwardToText,WORD,40",
            ":27-29 warning swipe-count: The maximum of swipes 40 is never reached: no more than 30 are made"},
    Mistake{"findByText,WORD,0",
            ":20-21 error rank-below-one: nthElement should be an integer greater than 1 (the first element has the "
            "rank 1)"},
    Mistake{"findByClass,Buttom",
            ":13-19 error unknown-class: The expected class Buttom does not exist (did you mean Button?)"},
    Mistake{"clickByTextExact,(WORD",
            ":18-26 error malformed-pattern: the regular expression \"(WORD\" cannot be read: a parenthesis has no "
            "partner, at character 8 (the status of the run says only: An unknown error occured while executing "
            "actions)"},
    Mistake{"clickByXY,WORD,5", ":11-18 warning no-number: The distance WORD is no number, and counts as 0"},
    Mistake{"swipeLeftward,150",
            ":15-18 warning outside-screen: The coordinate 150 is outside the screen, which has 0 to 100 percent"},
    Mistake{"clickByText, WORD",
            ":13-21 warning blank-beside-comma: The argument selector begins with a blank (a blank beside a comma "
            "belongs to the argument)"},
    Mistake{
        "clickByText,\"WORD\"",
        ":13-22 warning quoted-argument: The argument selector stands in quotes (the quotes belong to the argument)"},
    Mistake{"clickByText,\x1bWORD",
            ":13-14 warning control-character: The line holds the control character U+001B (it belongs to the name or "
            "the argument in which it stands)"},
    Mistake{"pause 1000",
            ":1-11 error unknown-command: Function pause 1000 is not implemented (did you mean pause? Arguments stand "
            "behind commas: pause,timeMillis)"},
    Mistake{
        "clickByText,",
        ":13-13 warning empty-argument: The argument selector is empty (an empty text is a part of none: nothing is "
        "found)"},
    Mistake{"clickByText,WORD,WORD",
            ":21-28 warning surplus-field: clickByText takes 1 argument: what follows is ignored (no argument contains "
            "a comma)"},
    Mistake{
        "enterTextFast,${MISSING_ONE}",
        ":15-29 error missing-variable: You need to pass the extra parameter MISSING_ONE to your test (pass it with "
        "--var MISSING_ONE=…)"},
    Mistake{"enterTextFast,${ENDLESS}",
            ":15-25 error endless-variable, endless: The variable ENDLESS refers to itself: the run would never end "
            "(values are searched for references too)"},
    Mistake{"enterTextFast,😀${PRODUCT}",
            ":16-26 warning unreplaced-reference: The reference ${PRODUCT} is not replaced, and stays as it is (put it "
            "before emoji and other characters of several parts)"},
    Mistake{"enterTextFast,${the product}",
            ":15-29 warning look-alike-reference: ${the product} is no reference to a variable, and stays as it is "
            "(names of variables are made of letters, digits and _)"},
};

/// Nothing is wrong with these. Steps that they begin they end.
constexpr std::array<std::string_view, 24> GOOD_LINES{"",
                                                      "# clikByText,WORD",
                                                      "   ",
                                                      "clickByText,WORD",
                                                      "  clickByText,WORD\t",
                                                      "clickByTextExact,WORD.*",
                                                      "longClickByText,WORD,500",
                                                      "clickByXY,10,20.5",
                                                      "clickByPercent,0,100",
                                                      "findByClass,Button,2,false",
                                                      "findByText,WORD,2",
                                                      "clickOnLastElementFound",
                                                      "measureStart,WORD\nclickByText,WORD\nmeasureStop",
                                                      "pause,4294967",
                                                      "pressHome",
                                                      "waitUntilTextExact,WORD|WORD,5000",
                                                      "waitUntilGoneText,WORD",
                                                      "waitUntilTextBeforeClick,WORD,true",
                                                      "enterText,WORD,20",
                                                      "setTextByText,WORD,${PRODUCT}",
                                                      "swipeDownward",
                                                      "swipeDownwardToText,WORD,30,50",
                                                      "browserGoToUrl,https://WORD.example/",
                                                      "applicationKill,com.example.WORD"};

/// Seven characters each, and near to no command.
constexpr std::array<std::string_view, 6> WORDS{"Größe 1",        "basket!", "Ürümqi.",
                                                "設定設定設定設", "Xylofon", "Ågotnes"};

std::string withWord(std::string_view pattern, std::string_view word) {
  constexpr std::string_view PLACE = "WORD";
  std::string text(pattern);
  for (std::size_t at = text.find(PLACE); at != std::string::npos; at = text.find(PLACE, at + word.size())) {
    text.replace(at, PLACE.size(), word);
  }
  return text;
}

/// Collects lines, and what is to be said of them.
class Planter {
 public:
  explicit Planter(Chance& chance) : chance_(chance) {}

  void addGood(std::string_view line) { add(withWord(line, chance_.of(WORDS))); }

  void addMistaken(const Mistake& mistake) {
    const std::string_view word = chance_.of(WORDS);
    script_.findings.push_back(std::to_string(lines_ + 1) + withWord(mistake.finding, word));
    add(withWord(mistake.line, word));
  }

  PlantedScript take() { return std::move(script_); }

 private:
  void add(const std::string& text) {
    script_.text += text + "\n";
    lines_ += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  }

  Chance& chance_;
  PlantedScript script_;
  std::size_t lines_ = 0;
};

}  // namespace

PlantedScript plantedScript(Chance& chance, std::size_t lines, std::size_t mistakes, StepMistake stepMistake) {
  Planter planter(chance);
  planter.addGood("applicationStart,com.example.shop");
  planter.addGood("findByText,WORD");
  if (stepMistake == StepMistake::stoppedBeforeStart) {
    planter.addMistaken({"measureStop",
                         ":1-12 error stop-without-start, aborts: Index out of range: measureStop without a "
                         "measureStart before it (begin a step with measureStart)"});
  }
  // Mistakes at places that are drawn, without putting one place twice.
  for (std::size_t line = 0; line < lines; ++line) {
    const bool isMistaken = chance.below(lines - line) < mistakes;
    if (isMistaken) {
      planter.addMistaken(chance.of(MISTAKES));
      --mistakes;
    } else {
      planter.addGood(chance.of(GOOD_LINES));
    }
  }
  if (stepMistake == StepMistake::neverStopped) {
    planter.addMistaken({"measureStart,WORD",
                         ":14-21 warning never-stopped: The step WORD is never stopped, and leaves no measure (end it "
                         "with measureStop)"});
  }
  return planter.take();
}

std::size_t mistakeKinds() {
  return MISTAKES.size();
}

}  // namespace quobrak::host::testing
