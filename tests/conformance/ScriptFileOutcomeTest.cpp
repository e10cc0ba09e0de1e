#include "tests/conformance/ScriptFileOutcome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::conformance {
namespace {

using simulator::Element;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A screen of two buttons "Go", of which the second one lies behind the first, and an alert "Wait".
ScriptFileOutcome outcome() {
  ScriptFileOutcome made;
  made.told = {{"status", "failed: why"}, {"touched", "a, b"},   {"elapsed", "5 ms"},
               {"volume", "50"},          {"steps", "One 3 ms"}, {"pictures", "001_failed.png"}};
  made.reason = "The cable is out";
  for (const ElementType type : {ElementType::button, ElementType::alert}) {
    auto tree = std::make_unique<Element>(ElementType::application);
    tree->frame = {{0, 0}, {10, 10}};
    for (int i = type == ElementType::button ? 2 : 1; i > 0; --i) {
      Element& element = tree->append(type);
      element.frame = tree->frame;
      element.label = type == ElementType::button ? "Go" : "Wait";
    }
    made.screen.push_back(std::move(tree));
  }
  return made;
}

/// What there is to complain about a script with that status and touch, and with another expectation on line 3.
std::vector<std::string> complaintsAbout(const std::string& third, const std::string& status = "failed: why",
                                         const std::string& touched = "a, b") {
  return complaints(readScriptFile("s", "# expect status: " + status + "\n# expect touched: " + touched +
                                            "\n# expect " + third + "\n"),
                    outcome());
}

TEST(ScriptFileOutcome, AsExpectedGivesNoComplaint) {
  for (const char* expectation :
       {"elapsed: 5 ms", "volume: 50", "steps: One 3 ms", "pictures: 001_failed.png", R"(screen: label == "Go")",
        R"(screen: 2 of label == "Go")", R"(screen: label == "Wait")", R"(screen: not label == "Stop")",
        R"(screen: 0 of label == "Stop")", R"(screen: 1 of label == "Go" AND hittable == TRUE)",
        "screen: 3 of exists == TRUE"}) {
    EXPECT_THAT(complaintsAbout(expectation), IsEmpty()) << expectation;
  }
}

TEST(ScriptFileOutcome, EachKindOfExpectationThatIsNotMetIsTold) {
  struct Row {
    std::string expectation;
    std::string found;
  };
  for (const auto& [expectation, found] :
       {Row{"elapsed: 6 ms", "found: 5 ms"}, Row{"elapsed: 5", "found: 5 ms"}, Row{"volume: 5", "found: 50"},
        Row{"steps: nothing", "found: One 3 ms"}, Row{"pictures: 001_success.png", "found: 001_failed.png"},
        Row{R"(screen: label == "Stop")", "the screen has 0 such elements"},
        Row{R"(screen: not label == "Wait")", "the screen has 1 such elements"},
        Row{R"(screen: 1 of label == "Go")", "the screen has 2 such elements"},
        Row{R"(screen: 3 of label == "Go")", "the screen has 2 such elements"}}) {
    EXPECT_THAT(complaintsAbout(expectation), ElementsAre("s, line 3: expected " + expectation + "; " + found));
  }
}

TEST(ScriptFileOutcome, TheStatusAndTheTouchesAreComparedWhole) {
  EXPECT_THAT(complaintsAbout("volume: 50", "failed: wh", "a"),
              ElementsAre("s, line 1: expected status: failed: wh; found: failed: why; the reason: The cable is out",
                          "s, line 2: expected touched: a; found: a, b"));
  EXPECT_THAT(complaintsAbout("volume: 50", "success", "b, a"),
              ElementsAre("s, line 1: expected status: success; found: failed: why; the reason: The cable is out",
                          "s, line 2: expected touched: b, a; found: a, b"));
}

TEST(ScriptFileOutcome, WithoutAReasonBehindTheStatusNoneIsTold) {
  ScriptFileOutcome made = outcome();
  made.reason = "";
  EXPECT_THAT(complaints(readScriptFile("s", "# expect status: success\n# expect touched: a, b\n"), made),
              ElementsAre("s, line 1: expected status: success; found: failed: why"));
}

}  // namespace
}  // namespace quobrak::conformance
