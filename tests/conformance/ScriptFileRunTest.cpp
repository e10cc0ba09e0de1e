#include "tests/conformance/ScriptFileRun.h"

#include <gtest/gtest-spi.h>

#include "tests/conformance/PhoneWithValues.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;

class ScriptFileRunTest : public ScriptFileRun {
 protected:
  /// A script that taps a button, with that expectation of its status, and another one.
  static ScriptFile tapping(const std::string& status, const std::string& other) {
    return readScriptFile("tap", "# expect status: " + status + "\n# expect " + other +
                                     "\napplicationStart,com.example.form\nclickByText,Save\n");
  }
  static ScriptFile stopping(const std::string& status) {
    return readScriptFile("stop", "# expect status: " + status + "\nmeasureStop\n");
  }
};

TEST_F(ScriptFileRunTest, PassesWhereAllIsAsTheScriptSays) {
  check(tapping("success", "touched: save"));
}

TEST_F(ScriptFileRunTest, FailsForATouchThatIsNotExpected) {
  EXPECT_NONFATAL_FAILURE(check(tapping("success", "touched: nothing")),
                          "tap, line 2: expected touched: nothing; found: save");
}

TEST_F(ScriptFileRunTest, FailsForAnotherStatus) {
  EXPECT_NONFATAL_FAILURE(check(tapping("failed: why", "touched: save")),
                          "tap, line 1: expected status: failed: why; found: success");
}

TEST_F(ScriptFileRunTest, PassesForTheStopThatTheScriptSays) {
  check(stopping("fatal: Index out of range: measureStop without a measureStart before it (line 2: measureStop)"));
}

TEST_F(ScriptFileRunTest, FailsForAnotherStop) {
  EXPECT_NONFATAL_FAILURE(check(stopping("fatal: measureStop without a measureStart before it (line 2: measureStop)")),
                          "measureStop without a measureStart before it");
}

TEST_F(ScriptFileRunTest, FailsWhereTheProcessGoesOn) {
  EXPECT_NONFATAL_FAILURE(check(readScriptFile("s", "# expect status: fatal: It is over\npause,1\n")), "failed to die");
}

TEST_F(ScriptFileRunTest, TellsAllThatAScriptHasDone) {
  const ScriptFile script = readScriptFile(
      "all",
      "# expect status: success\n# expect touched: field\nmeasureStart,Step\napplicationStart,com.example.form\n"
      "pressVolumeUp\npause,30\nmeasureStop\nclickByText,field\nenterTextFast,Ada\nfindByText,Nobody\npause,500\n");
  const ScriptFileOutcome outcome = outcomeOf(script);
  EXPECT_THAT(outcome.told,
              ElementsAre(::testing::Pair("elapsed", "30 ms"),
                          ::testing::Pair("pictures", "001_Step_start.png, 002_Step_stop.png, 003_failed.png"),
                          ::testing::Pair("status",
                                          "failed: Error on line findByText,Nobody (line: 10). Cause: The "
                                          "expected text Nobody was not found"),
                          ::testing::Pair("steps", "Step 30 ms"), ::testing::Pair("touched", "field"),
                          ::testing::Pair("volume", "56.25")));
  ASSERT_EQ(outcome.screen.size(), 1U);
  EXPECT_EQ(outcome.screen[0]->label, "Form") << "as it was before the run ended on the home screen";
}

TEST_F(ScriptFileRunTest, OfAScriptThatDoesNothingNothingIsTold) {
  const ScriptFileOutcome outcome =
      outcomeOf(readScriptFile("idle", "# phone: built-in\n# expect status: success\n# expect touched: nothing\n"));
  EXPECT_THAT(outcome.told,
              ElementsAre(::testing::Pair("elapsed", "0 ms"), ::testing::Pair("pictures", "001_success.png"),
                          ::testing::Pair("status",
                                          "success: The application is not initialised. Please use applicationStart or "
                                          "launchBrowser at the beginning of your script."),
                          ::testing::Pair("steps", "nothing"), ::testing::Pair("touched", "nothing"),
                          ::testing::Pair("volume", "50")));
  EXPECT_EQ(phone().description().name, "Built-in phone");
}

TEST_F(ScriptFileRunTest, ThePhoneBeginsWithTheValuesThatTheScriptGives) {
  const ScriptFileOutcome outcome = outcomeOf(
      readScriptFile("values",
                     "# phone: built-in\n# value settings.closeAllTabs: on\n# value store.downloadTime: 5\n"
                     "# expect status: success\n# expect touched: nothing\napplicationStart,com.apple.Preferences\n"));
  EXPECT_EQ(phone().description().values.text("settings.closeAllTabs"), "on");
  EXPECT_EQ(phone().description().values.text("store.downloadTime"), "5");
  EXPECT_EQ(outcome.told.at("status"), "success");
}

TEST_F(ScriptFileRunTest, AValueThatThePhoneDoesNotKnowIsRefused) {
  const ScriptFile script =
      readScriptFile("values", "# value form.colour: red\n# expect status: success\n# expect touched: nothing\n");
  EXPECT_THAT([&] { outcomeOf(script); }, ::testing::Throws<UnknownValueError>());
}

}  // namespace
}  // namespace quobrak::conformance
