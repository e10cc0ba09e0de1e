#include "tests/documentation/DocumentedExample.h"

#include <gtest/gtest-spi.h>

namespace quobrak::documentation {
namespace {

/// Two scripts, each with what is expected of it, and what is shown of them.
class DocumentedExampleTest : public DocumentedExample {
 protected:
  static std::string block(const std::string& remarks, const std::string& script) {
    return "<!--\n" + remarks + "\n-->\n```\n" + script + "\n```\n";
  }
  static std::string measured(const std::string& step) {
    return block("expect status: success\nexpect touched: nothing\nexpect steps: " + step,
                 "applicationStart,com.example.shop\nmeasureStart,Step\npause,20\nmeasureStop");
  }
  static std::string starting() {
    return block("expect status: success\nexpect touched: nothing", "applicationStart,com.example.shop");
  }
  static std::string tapping(const std::string& status, const std::string& touched) {
    return block("in the same run\nexpect status: " + status + "\nexpect touched: " + touched, "clickByText,${WHAT}");
  }
  static std::string json(const std::string& text) { return "```json\n" + text + "\n```\n"; }
  static std::string measure(const std::string& start, const std::string& duration) {
    return json(R"({"measures":[[{"time":)" + start +
                R"(,"values":{"AH_PL":0}},{"time":120,"values":{"AH_PL":0}}],[]],)" + R"("test":"Step","testTime":)" +
                duration + "}");
  }

  void checkPage(const std::string& page) {
    for (DocumentedRun& run : runsOn(page)) {
      run.variables = {{"WHAT", "Browse"}};
      checkRun(run);
    }
  }
};

TEST_F(DocumentedExampleTest, PassesWhereAllIsAsThePageSays) {
  checkPage(measured("Step 20 ms") + json(R"([{"stackTrace":"","status":"success"}])") + measure("100", "20"));
}

TEST_F(DocumentedExampleTest, PassesWhereScriptsOfOneRunDoWhatThePageSays) {
  checkPage(starting() + tapping("success", "Allow Once, browse") +
            json(R"([{"stackTrace":"","status":"success"},{"stackTrace":"","status":"success"}])"));
}

TEST_F(DocumentedExampleTest, FailsForAScriptThatDoesSomethingElse) {
  EXPECT_NONFATAL_FAILURE(checkPage(measured("Step 21 ms")), "found: Step 20 ms");
}

TEST_F(DocumentedExampleTest, FailsForAStatusThatIsNotTheOneOfTheScript) {
  EXPECT_NONFATAL_FAILURE(checkPage(starting() + json(R"([{"stackTrace":"why","status":"failed"}])")), "failed: why");
}

TEST_F(DocumentedExampleTest, FailsForAFileThatIsNotShownAsItIsWritten) {
  EXPECT_NONFATAL_FAILURE(checkPage(starting() + json(R"([{"status":"success","stackTrace":""}])")),
                          "a file is shown as it is written");
}

TEST_F(DocumentedExampleTest, FailsForAMeasureThatIsNotTheOneOfTheScript) {
  EXPECT_NONFATAL_FAILURE(checkPage(measured("Step 20 ms") + measure("99", "21")), "Step 21 ms");
}

TEST_F(DocumentedExampleTest, FailsForAMeasureWhoseTimesDoNotAgree) {
  EXPECT_NONFATAL_FAILURE(checkPage(measured("Step 20 ms") + measure("99", "20")), "duration");
}

TEST_F(DocumentedExampleTest, FailsForAStopThatIsNotTheOneOfTheScript) {
  EXPECT_NONFATAL_FAILURE(checkPage(starting() + "```text\nFatal error: No\n```\n"), "none is expected");
}

TEST_F(DocumentedExampleTest, FailsForASecondScriptThatDoesSomethingElse) {
  EXPECT_NONFATAL_FAILURE(checkPage(starting() + tapping("failed: why", "Allow Once, browse")), "failed: why");
}

TEST_F(DocumentedExampleTest, FailsForATouchOfASecondScript) {
  EXPECT_NONFATAL_FAILURE(checkPage(starting() + tapping("success", "nothing")), "Allow Once, browse");
}

}  // namespace
}  // namespace quobrak::documentation
