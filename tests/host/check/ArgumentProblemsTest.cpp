#include "host/check/ArgumentProblems.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAreArray;
using testing::findingsIn;
using testing::variablesOf;

struct Case {
  /// What follows on the start of an application, and is line 2.
  std::string line;
  std::vector<std::string> findings;
};

void expectFindings(const std::vector<Case>& table) {
  for (const Case& one : table) {
    EXPECT_THAT(findingsIn("applicationStart,com.example.shop\n" + one.line), ElementsAreArray(one.findings))
        << one.line;
  }
}

TEST(ArgumentProblems, AreNoneWhereArgumentsWillDo) {
  expectFindings({{"clickByText,Browse products", {}},
                  {"findByText,basket,2,false", {}},
                  {"findByClass,Button", {}},
                  {"longClickByText,x,-5", {}},
                  {"waitUntilText,x,+10", {}},
                  {"waitUntilTextBeforeClick,x,true", {}},
                  {"pause,0", {}},
                  {"pause,4294967", {}},
                  {"enterText,a,4294967", {}},
                  {"enterText,a,-9999999", {}},
                  {"swipeDownwardToText,x,1", {}},
                  {"swipeUpwardToText,x,30,0", {}},
                  {"swipeVertical,0,100,50", {}},
                  {"clickByXY,1.5e1,-3", {}},
                  {"clickByTextExact,Rug. (?:a|b)+", {}},
                  {"pressHome", {}}});
}

TEST(ArgumentProblems, ThatAreTypesOfElementsForClasses) {
  expectFindings({
      {"findByClass,XCUIElementTypeButton",
       {"2:13-34 error unknown-class: The expected class XCUIElementTypeButton does not exist (did you mean Button?)"}},
      {"findByClass,XCUIElementTypeSpaceship",
       {"2:13-37 error unknown-class: The expected class XCUIElementTypeSpaceship does not exist"}},
      {"findByClass,XCUIElementType",
       {"2:13-28 error unknown-class: The expected class XCUIElementType does not exist"}},
  });
}

TEST(ArgumentProblems, ThatAreQuotes) {
  const std::string quoted =
      " warning quoted-argument: The argument selector stands in quotes (the quotes belong to "
      "the argument)";
  expectFindings({
      {"clickByText,\"Browse products\"", {"2:13-30" + quoted}},
      {"clickByText,'a'", {"2:13-16" + quoted}},
      {"clickByText,\u201Ca\u201D", {"2:13-16" + quoted}},
      {"clickByText,\u2018a\u2019", {"2:13-16" + quoted}},
      {"clickByText,\u201Ea\u201C", {"2:13-16" + quoted}},
      {"clickByText,\"\"", {"2:13-15" + quoted}},
      {"clickByText, 'a'",
       {"2:13-17 warning blank-beside-comma: The argument selector begins with a blank (a blank beside a comma belongs "
        "to the argument)",
        "2:13-17" + quoted}},
      {"pause,\"5\"",
       {"2:7-10 error malformed-argument: The pause duration \"5\" should be a positive integer (the quotes belong to "
        "the argument: write 5)"}},
      {"pause,\"x\"", {"2:7-10 error malformed-argument: The pause duration \"x\" should be a positive integer"}},
      {"clickByText,\"a", {}},
      {"clickByText,a\"", {}},
      {"clickByText,\"", {}},
      {"clickByText,say \"a\"", {}},
      {"clickByText,'a\"", {}},
  });
}

TEST(ArgumentProblems, ThatAreMissingArguments) {
  expectFindings({
      {"clickByText",
       {"2:12-12 error missing-argument, aborts: Index out of range: the field 1 (selector) is missing (it is written "
        "clickByText,selector)"}},
      {"  longClickByXY,5  ",
       {"2:18-18 error missing-argument, aborts: Index out of range: the field 2 (y) is missing (it is written "
        "longClickByXY,x,y[,duration])"}},
      {"setTextByText,a",
       {"2:16-16 error missing-argument, aborts: Index out of range: the field 2 (textSelector) is missing (it is "
        "written setTextByText,textToSet,textSelector)"}},
      {"pause", {"2:6-6 error missing-argument: The pause duration is missing (it is written pause,timeMillis)"}},
      {"swipeVertical,10",
       {"2:17-17 error missing-argument: A coordinate is missing (it is written swipeVertical,percStartY,percEndY,"
        "percX)"}},
      {"installApp",
       {"2:11-11 error missing-argument: The url should be given (it is written installApp,appStoreUrl)"}},
  });
}

TEST(ArgumentProblems, ThatAreMalformedArguments) {
  expectFindings({
      {"pause,1x", {"2:7-9 error malformed-argument: The pause duration 1x should be a positive integer"}},
      {"pause,-1", {"2:7-9 error malformed-argument: The pause duration -1 should be a positive integer"}},
      {"pause,99999999999999999999",
       {"2:7-27 error malformed-argument: The pause duration 99999999999999999999 should be a positive integer"}},
      {"waitUntilText,x,soon", {"2:17-21 error malformed-argument: The timeout soon should be an integer"}},
      {"waitUntilText,x,",
       {"2:17-17 error malformed-argument: The timeout  should be an integer (to leave it out, end the line before its "
        "comma)"}},
      {"pause,", {"2:7-7 error malformed-argument: The pause duration  should be a positive integer"}},
      {"longClickByText,x, 5",
       {"2:19-21 error malformed-argument: The duration  5 should be an integer (a blank beside a comma belongs to the "
        "argument: write 5)"}},
      {"swipeDownward,5%", {"2:15-17 error malformed-argument: The duration 5% should be an integer"}},
      {"clickByPercent,a,b",
       {"2:16-17 error malformed-argument: The coordinate a should be an integer",
        "2:18-19 error malformed-argument: The coordinate b should be an integer"}},
      {"enterText,x,fast", {"2:13-17 error malformed-argument: The frequency fast should be an integer"}},
      {"swipeDownwardToText,x,many",
       {"2:23-27 error malformed-argument: The maximum of swipes many should be an integer"}},
      {"findByText,x,first,maybe",
       {"2:14-19 error malformed-argument: nthElement first should be an integer",
        "2:20-25 error malformed-argument: isEnabled maybe should be an boolean"}},
      {"findByText,x,1,True",
       {"2:16-20 error malformed-argument: isEnabled True should be an boolean (did you mean true?)"}},
      {"waitUntilTextBeforeClick,x,1",
       {"2:28-29 error malformed-argument: The clickOnlyIfExists parameter 1 should be true or false"}},
      {"browserPrepareAndOpenForReference,flase",
       {"2:35-40 error malformed-argument: The use of the blank page flase should be a boolean (did you mean false?)"}},
  });
}

TEST(ArgumentProblems, ThatStopTheProcess) {
  expectFindings({
      {"pause,4294968",
       {"2:7-14 error pause-out-of-range, aborts: The pause of 4294968 ms cannot be slept in one piece: it must lie "
        "between 0 and 4294967 ms"}},
      {"pause,9223372036854775807", {"2:7-26 error pause-out-of-range, aborts: The pause in microseconds overflows"}},
      {"enterText,a,4294968",
       {"2:13-20 error pause-out-of-range, aborts: The pause of 4294968 ms cannot be slept in one piece: it must lie "
        "between 0 and 4294967 ms"}},
      {"swipeDownwardToText,x,0",
       {"2:23-24 error swipe-count, aborts: Range requires lowerBound <= upperBound: maxSwipe is 0, but must be at "
        "least 1"}},
  });
}

TEST(ArgumentProblems, OfATypingPauseNeedSomethingToType) {
  expectFindings({{"enterText,,4294968", {"2:11-11 warning empty-argument: The argument text is empty"}}});
}

TEST(ArgumentProblems, ThatFailTheScript) {
  expectFindings({
      {"applicationStart,",
       {"2:18-18 error empty-argument: The application is not initialised. Please use applicationStart or "
        "launchBrowser "
        "at the beginning of your script. (the bundle identifier is empty)"}},
      {"findByText,x,0",
       {"2:14-15 error rank-below-one: nthElement should be an integer greater than 1 (the first element has the rank "
        "1)"}},
      {"findByClass,button",
       {"2:13-19 error unknown-class: The expected class button does not exist (did you mean Button?)"}},
      {"findByClass,Buton,-1",
       {"2:13-18 error unknown-class: The expected class Buton does not exist (did you mean Button?)",
        "2:19-21 error rank-below-one: nthElement should be an integer greater than 1 (the first element has the rank "
        "1)"}},
      {"clickByTextExact,(Browse",
       {"2:18-25 error malformed-pattern: the regular expression \"(Browse\" cannot be read: a parenthesis has no "
        "partner, at character 7 (the status of the run says only: An unknown error occured while executing actions)"}},
      {"setTextByTextExact,a,[",
       {"2:22-23 error malformed-pattern: the regular expression \"[\" cannot be read: a bracket expression has no "
        "closing bracket, at character 1 (the status of the run says only: An unknown error occured while executing "
        "actions)"}},
  });
}

TEST(ArgumentProblems, ThatMayBeMeantSo) {
  expectFindings({
      {"swipeDownwardToText,x,31",
       {"2:23-25 warning swipe-count: The maximum of swipes 31 is never reached: no more than 30 are made"}},
      {"clickByPercent,101,-1",
       {"2:16-19 warning outside-screen: The coordinate 101 is outside the screen, which has 0 to 100 percent",
        "2:20-22 warning outside-screen: The coordinate -1 is outside the screen, which has 0 to 100 percent"}},
      {"clickByXY,ten,",
       {"2:11-14 warning no-number: The distance ten is no number, and counts as 0",
        "2:15-15 warning no-number: The distance  is no number, and counts as 0"}},
  });
}

TEST(ArgumentProblems, OfBlanksAndCommas) {
  expectFindings({
      {"clickByText, Browse",
       {"2:13-20 warning blank-beside-comma: The argument selector begins with a blank (a blank beside a comma belongs "
        "to the argument)"}},
      {"findByText,a\t,1",
       {"2:12-14 warning blank-beside-comma: The argument selector ends with a blank (a blank beside a comma belongs "
        "to "
        "the argument)"}},
      {"findByText, a ,1",
       {"2:12-15 warning blank-beside-comma: The argument selector begins and ends with a blank (a blank beside a "
        "comma "
        "belongs to the argument)"}},
      {"setTextByText, ,Search",
       {"2:15-16 warning blank-beside-comma: The argument textToSet consists of blanks (a blank beside a comma belongs "
        "to the argument)"}},
      {"clickByText,",
       {"2:13-13 warning empty-argument: The argument selector is empty (an empty text is a part of none: nothing is "
        "found)"}},
      {"enterTextFast,", {"2:15-15 warning empty-argument: The argument text is empty"}},
      {"clickByText,Soft, with high arms",
       {"2:18-33 warning surplus-field: clickByText takes 1 argument: what follows is ignored (no argument contains a "
        "comma)"}},
      {"pressHome,now",
       {"2:11-14 warning surplus-field: pressHome takes no arguments: what follows is ignored (no argument contains a "
        "comma)"}},
      {"clickByPercent,1,2,3,4",
       {"2:20-23 warning surplus-field: clickByPercent takes 2 arguments: what follows is ignored (no argument "
        "contains "
        "a comma)"}},
      {"clickByText,Browse,",
       {"2:20-20 warning surplus-field: clickByText takes 1 argument: what follows is ignored (no argument contains a "
        "comma)"}},
  });
}

TEST(ArgumentProblems, OfTextThatIsNotKnownAreNotGuessed) {
  for (const char* line : {"pause,${iteration}", "findByClass,${iteration},1", "clickByTextExact,(${iteration}",
                           "clickByXY,${iteration}", "swipeVertical,${iteration}", "enterText,${iteration},9999999"}) {
    expectFindings({{line, {}}});
  }
  expectFindings(
      {{"findByText,${iteration},x", {"2:25-26 error malformed-argument: nthElement x should be an integer"}}});
}

TEST(ArgumentProblems, OfValuesStandAtTheirReferences) {
  EXPECT_THAT(findingsIn("\tpause,${TIME} # ü ${WORD}", variablesOf({{"TIME", "soon"}, {"WORD", ", x"}})),
              ElementsAreArray({"1:8-20 error malformed-argument: The pause duration soon # ü  should be a positive "
                                "integer",
                                "1:20-27 warning surplus-field: pause takes 1 argument: what follows is ignored (no "
                                "argument contains a comma)"}));
}

}  // namespace
}  // namespace quobrak::host
