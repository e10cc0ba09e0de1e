#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// How texts are compared without regard to case. Not for the stand-ins of the phone's framework: the foundation
/// beside which they run compares letter by letter, where a phone's folds fully.
class Folding : public ConformanceTest {
 protected:
  static std::vector<std::string> matching(const char* format) {
    return identifiersOf(APP.staticTexts().matching(NSPredicate(format)));
  }
};

TEST_F(Folding, LettersAreFoldedFully) {
  start(R"(<StaticText name="street" label="Lange Straße"/><StaticText name="city" label="İstanbul"/>
           <StaticText name="greek" label="ΣΊΣΥΦΟΣ"/>)");
  EXPECT_THAT(matching("label CONTAINS[c] 'STRASSE'"), ElementsAre("street"));
  EXPECT_THAT(matching("label CONTAINS[c] 'σίσυφος'"), ElementsAre("greek"));
  EXPECT_THAT(matching("label == [c] 'lange strasse'"), ElementsAre("street"));
}

TEST_F(Folding, AMatchNeitherBeginsNorEndsInsideWhatOneCharacterFoldsTo) {
  start(R"(<StaticText name="city" label="İstanbul"/>)");
  EXPECT_THAT(matching("label CONTAINS[c] 'istanbul'"), IsEmpty());
  EXPECT_THAT(matching("label CONTAINS[c] 'STANBUL'"), ElementsAre("city"));
}

TEST_F(Folding, AnEmptyNeedleIsContainedNowhere) {
  start(R"(<StaticText name="city" label="Oslo"/>)");
  EXPECT_THAT(matching("label CONTAINS ''"), IsEmpty());
  EXPECT_THAT(matching("label CONTAINS[c] ''"), IsEmpty());
  EXPECT_THAT(matching("NOT label CONTAINS ''"), ElementsAre("city"));
}

}  // namespace
}  // namespace quobrak::conformance
