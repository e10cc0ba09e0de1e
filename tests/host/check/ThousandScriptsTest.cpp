// A thousand scripts in a folder, with mistakes of all kinds planted in some: a check finds these, and nothing else.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "host/check/Checker.h"
#include "host/check/ScriptPaths.h"
#include "tests/host/check/Findings.h"
#include "tests/host/check/PlantedMistakes.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using testing::Chance;
using ::testing::ElementsAreArray;
using testing::PlantedScript;
using testing::StepMistake;

constexpr std::size_t SCRIPTS = 1000;

std::string nameOf(std::size_t script) {
  const std::string number = std::to_string(script);
  // In folders of a hundred, so that names in ascending order are the scripts in theirs.
  return "folder" + std::to_string(script / 100) + "/script" + std::string(3 - number.size(), '0') + number + ".txt";
}

/// Half of them good ones.
std::vector<PlantedScript> plantedScripts() {
  Chance chance(2024);
  std::vector<PlantedScript> scripts;
  for (std::size_t i = 0; i < SCRIPTS; ++i) {
    const std::size_t mistakes = i % 2 == 0 ? 0 : 1 + chance.below(4);
    const bool leavesStepOpen = mistakes > 0 && chance.inHundred(20);
    scripts.push_back(plantedScript(chance, 5 + chance.below(30), mistakes,
                                    leavesStepOpen ? StepMistake::neverStopped : StepMistake::none));
  }
  return scripts;
}

std::vector<std::string> findingsOf(std::span<const Finding> findings, std::size_t script) {
  std::vector<std::string> lines;
  for (Finding finding : findings) {
    if (finding.script == script) {
      finding.script = 0;
      lines.push_back(testing::inShort(finding));
    }
  }
  return lines;
}

TEST(ThousandScripts, HaveTheFindingsThatWerePlantedAndNoOther) {
  const quobrak::testing::TemporaryFolder folder;
  const std::vector<PlantedScript> planted = plantedScripts();
  for (std::size_t i = 0; i < planted.size(); ++i) {
    folder.write(nameOf(i), planted[i].text);
  }
  const NamedScripts named = readScripts({folder.path().string()});
  ASSERT_EQ(named.scripts.size(), SCRIPTS);
  const std::vector<Finding> findings =
      check(named.scripts, {.variables = testing::variablesOf({{"PRODUCT", "Lamp"}, {"ENDLESS", "+${ENDLESS}"}}),
                            .isOrderKnown = named.isOrderKnown});
  std::size_t good = 0;
  std::set<Rule> rulesSeen;
  for (std::size_t i = 0; i < planted.size(); ++i) {
    EXPECT_THAT(findingsOf(findings, i), ElementsAreArray(planted[i].findings)) << nameOf(i) << "\n" << planted[i].text;
    good += planted[i].findings.empty() ? 1U : 0U;
  }
  for (const Finding& finding : findings) {
    rulesSeen.insert(finding.rule);
  }
  EXPECT_EQ(good, SCRIPTS / 2);
  // All but those that a whole script or a run has: no text, no command, and what depends on other scripts.
  EXPECT_EQ(rulesSeen.size(), rules().size() - 6);
}

TEST(ThousandScripts, InOneRunHaveTheFindingsOfARun) {
  Chance chance(7);
  std::vector<std::string> scripts{"measureStop", "clickByText,a", "clickOnLastElementFound"};
  std::vector<std::string> expected{
      "1:1-12 error stop-without-start, aborts: Index out of range: measureStop without a measureStart before it "
      "(begin "
      "a step with measureStart)",
      "2/1:1-12 error no-application: The application is not initialised. Please use applicationStart or launchBrowser "
      "at the beginning of your script."};
  while (scripts.size() < SCRIPTS) {
    scripts.push_back(plantedScript(chance, 20, 0, StepMistake::none).text);
  }
  EXPECT_THAT(testing::findingsInRun(scripts), ::testing::IsSupersetOf(expected));
}

}  // namespace
}  // namespace quobrak::host
