#include "host/check/UnknownNames.h"

#include <gtest/gtest.h>

#include <vector>

#include "quobrakUITests/CommandTable.h"

namespace quobrak::host {
namespace {

struct Case {
  std::string name;
  std::string hint;
  /// The name of the command; empty where none is meant.
  std::string meant;
};

void expectExplanations(const std::vector<Case>& table) {
  const CommandIndex commands(commandTable());
  for (const Case& one : table) {
    const UnknownName found = explained(one.name, commands);
    EXPECT_EQ(found.hint, one.hint) << one.name;
    EXPECT_EQ(found.meant == nullptr ? "" : std::string(found.meant->name), one.meant) << one.name;
  }
}

TEST(UnknownNames, AreExplainedByNearOnes) {
  expectExplanations(
      {{"clickByTxt", "did you mean clickByText or clickByXY?", "clickByText"},
       {"clickbytext", "small and capital letters differ: write clickByText", "clickByText"},
       {"clickByText ", "a blank before the comma belongs to the name: write clickByText", "clickByText"},
       {"unthinkable", "", ""},
       {"", "", ""}});
}

TEST(UnknownNames, AreExplainedByOtherSignsThanCommas) {
  const std::string pause = "did you mean pause? Arguments stand behind commas: pause,timeMillis";
  expectExplanations(
      {{"pause 1000", pause, "pause"},
       {"pause\t1000", pause, "pause"},
       {"pause;1000", pause, "pause"},
       {"pause: 1000", pause, "pause"},
       {"PAUSE(1000)", pause, "pause"},
       {"pause=1000", pause, "pause"},
       {"pause\uFF0C1000", pause, "pause"},
       {"pause  ;1000 ", pause, "pause"},
       {"pause " + std::string(1000, 'x'), pause, "pause"},
       {"measureStart Foo", "did you mean measureStart? Arguments stand behind commas: measureStart,stepName",
        "measureStart"},
       {"clickByText(Foo)", "did you mean clickByText? Arguments stand behind commas: clickByText,selector",
        "clickByText"},
       {"pressHome()", "did you mean pressHome? It takes no arguments", "pressHome"},
       {"unthinkable 1000", "", ""},
       {"(pause)", "did you mean pause?", "pause"}});
}

TEST(UnknownNames, AreExplainedByCommentsOfOtherLanguages) {
  const std::string hint = "comments begin with #";
  expectExplanations({{"// pause", hint, ""},
                      {"/* pause */", hint, ""},
                      {"-- pause", hint, ""},
                      {"; pause", hint, ""},
                      {";pause", hint, ""},
                      {"- pause", "did you mean pause?", "pause"}});
}

TEST(UnknownNames, AreExplainedByInvisibleCharacters) {
  expectExplanations({{"\u200Bpause", "it holds the invisible character U+200B: write pause", "pause"},
                      {"pa\u00ADu\u200Bse", "it holds the invisible character U+00AD: write pause", "pause"},
                      {"pause\u00A0", "it holds the invisible character U+00A0: write pause", "pause"},
                      {"pause\u00A01000",
                       "it holds the invisible character U+00A0; did you mean pause? Arguments stand behind commas: "
                       "pause,timeMillis",
                       "pause"},
                      {"\uFEFFpauze", "it holds the invisible character U+FEFF; did you mean pause?", "pause"},
                      {"un\u200Dthinkable", "it holds the invisible character U+200D", ""},
                      {"\u200B" + std::string(200, 'x'), "", ""}});
}

}  // namespace
}  // namespace quobrak::host
