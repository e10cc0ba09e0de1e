#include "host/phone/ScreenPages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "tests/host/phone/LookedAtPhone.h"

namespace quobrak::host {
namespace {

using quobrak::testing::lookedAtPhone;
using quobrak::testing::lookedAtScreen;
using quobrak::testing::TEST_APPLICATION;

Terminal terminalOfWidth(std::size_t width) {
  return {.isInteractive = false, .hasColour = false, .width = width};
}

const Selector BASKET{.kind = SelectorKind::label, .text = "basket"};

Elements found(const Selector& selector, ShownScreen& screen) {
  return screen.elements(queryOf(selector, TEST_APPLICATION));
}

ShownScreen screenWithRules(const std::string& rules) {
  quobrak::testing::MemoryPhoneFiles files = lookedAtPhone();
  files["test/app.json"] =
      R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start", "rules": )" + rules + "}";
  return {simulator::loadPhone(files), TEST_APPLICATION, std::nullopt};
}

TEST(ScreenPages, ATreeHasALineForEachElement) {
  EXPECT_EQ(screenTree(lookedAtScreen(), {}, terminalOfWidth(100)),
            R"(X      Y  Width  Height  Element
0      0    100     200  Application "Test"
0      0    100     200    Window
0      0    100      20      StaticText "Welcome" identifier 'title'
0     20    100      20      Button "Your basket" identifier 'basket'
0     40    100      20      Button [disabled] "Old basket" identifier 'off'
0     60    100      20      TextField identifier 'search' value 'la' placeholder 'Search'
0     80    100      20      Button [covered] "Under" identifier 'under'
0     80    100      20      Image "Cover" identifier 'cover'
0    100    100      40      ScrollView identifier 'list'
0  150.5    100      20        Button [outside] "Below" identifier 'below'
0    500    100      20      Button [outside] "Away" identifier 'away'
0    140      0      20      Button [no extent] "Flat" identifier 'flat'
0    150    100      20      Button [invisible] "Ghost" identifier 'ghost'
0      0      0       0      Other [no extent]
)");
}

TEST(ScreenPages, ATreeIsCutToTheTerminal) {
  EXPECT_EQ(screenTree(lookedAtScreen(), {}, terminalOfWidth(60)),
            R"(X      Y  Width  Height  Element
0      0    100     200  Application "Test"
0      0    100     200    Window
0      0    100      20      StaticText "Welcome" identifie…
0     20    100      20      Button "Your basket" identifie…
0     40    100      20      Button [disabled] "Old basket"…
0     60    100      20      TextField identifier 'search' …
0     80    100      20      Button [covered] "Under" ident…
0     80    100      20      Image "Cover" identifier 'cove…
0    100    100      40      ScrollView identifier 'list'
0  150.5    100      20        Button [outside] "Below" ide…
0    500    100      20      Button [outside] "Away" identi…
0    140      0      20      Button [no extent] "Flat" iden…
0    150    100      20      Button [invisible] "Ghost" ide…
0      0      0       0      Other [no extent]
)");
}

TEST(ScreenPages, MatchesHaveTheirRanksBeforeThem) {
  ShownScreen screen = lookedAtScreen();
  EXPECT_EQ(screenTree(screen, found(BASKET, screen), terminalOfWidth(60)),
            R"(#  X      Y  Width  Height  Element
   0      0    100     200  Application "Test"
   0      0    100     200    Window
   0      0    100      20      StaticText "Welcome" identi…
1  0     20    100      20      Button "Your basket" identi…
2  0     40    100      20      Button [disabled] "Old bask…
   0     60    100      20      TextField identifier 'searc…
   0     80    100      20      Button [covered] "Under" id…
   0     80    100      20      Image "Cover" identifier 'c…
   0    100    100      40      ScrollView identifier 'list'
   0  150.5    100      20        Button [outside] "Below" …
   0    500    100      20      Button [outside] "Away" ide…
   0    140      0      20      Button [no extent] "Flat" i…
   0    150    100      20      Button [invisible] "Ghost" …
   0      0      0       0      Other [no extent]
)");
}

TEST(ScreenPages, MatchesAndTitlesStandOutWhereThereIsColour) {
  ShownScreen screen = lookedAtScreen();
  const Terminal terminal{.isInteractive = true, .hasColour = true, .width = 60};
  const std::string tree = screenTree(screen, found(BASKET, screen), terminal);
  EXPECT_THAT(tree, ::testing::StartsWith("\x1b[2m#  X      Y  Width  Height  Element\x1b[0m\n"));
  EXPECT_THAT(tree, ::testing::HasSubstr("\n\x1b[1m1  0     20    100      20      Button \"Your basket\""));
}

TEST(ScreenPages, ATitleTellsTheScreenAndWhatElseIsUp) {
  EXPECT_EQ(screenTitle(lookedAtScreen(), terminalOfWidth(60)), "com.example.test, screen \"start\"\n");
  EXPECT_EQ(screenTitle(screenWithRules(R"([{"on": "launch", "do": [{"open": "com.apple.springboard"}]}])"),
                        terminalOfWidth(60)),
            "com.example.test, screen \"start\"\nIn front of it is com.apple.springboard.\n");
  EXPECT_EQ(screenTitle(screenWithRules(
                            R"([{"on": "launch", "do": [{"systemAlert": {"title": "Sure?", "buttons": ["OK"]}}]}])"),
                        terminalOfWidth(60)),
            "com.example.test, screen \"start\"\n"
            "A system alert is up, which belongs to the home screen: Alert \"Sure?\".\n");
}

TEST(ScreenPages, OfAnApplicationThatHasEndedThereIsNoTree) {
  const ShownScreen screen = screenWithRules(R"([{"on": "launch", "do": [{"terminate": "com.example.test"}]}])");
  EXPECT_EQ(screenTitle(screen, terminalOfWidth(60)), "com.example.test: its rules have ended it when it started\n");
  EXPECT_EQ(screenTree(screen, {}, terminalOfWidth(60)), "");
}

TEST(ScreenPages, MatchesAreListedWithWhatATapDoes) {
  ShownScreen screen = lookedAtScreen();
  EXPECT_EQ(matchList(BASKET, found(BASKET, screen), screen, terminalOfWidth(100)),
            R"(--label "basket" finds elements whose label contains "basket", in any case.
So do waitUntilText,basket and waitUntilGoneText,basket.
2 elements match, in the order in which nthElement counts them.
  1. Button "Your basket" identifier 'basket'
     in Application "Test" > Window
     at 0, 20, 100 x 20: a tap lands on it
  2. Button "Old basket" identifier 'off'
     in Application "Test" > Window
     at 0, 40, 100 x 20: a tap lands on it
     disabled: commands that tap by text do not find it
)");
  const Selector below{.kind = SelectorKind::text, .text = "bel"};
  EXPECT_EQ(matchList(below, found(below, screen), screen, terminalOfWidth(60)),
            R"(--text "bel" finds enabled elements whose label, identifier or placeholder contains "bel", in any case.
So do clickByText,bel and findByText,bel,N.
1 element matches.
  1. Button "Below" identifier 'below'
     in Application "Test" > Window > ScrollView 'list'
     at 0, 150.5, 100 x 20: not hittable: it lies outside what is seen of ScrollView 'list'
)");
}

TEST(ScreenPages, OfNoMatchItIsSaid) {
  ShownScreen screen = lookedAtScreen();
  const Selector none{.kind = SelectorKind::predicate, .text = "value == 'x'"};
  EXPECT_EQ(matchList(none, {}, screen, terminalOfWidth(60)),
            R"(--predicate "value == 'x'" finds elements for which value == 'x'.
No element matches.
)");
}

TEST(ScreenPages, ASelectorWithACommaIsNoneOfACommand) {
  ShownScreen screen = lookedAtScreen();
  const Selector comma{.kind = SelectorKind::text, .text = "a,b"};
  EXPECT_EQ(matchList(comma, {}, screen, terminalOfWidth(60)),
            R"(--text "a,b" finds enabled elements whose label, identifier or placeholder contains "a,b", in any case.
No command can have this selector: in a line of a script, a comma ends it.
No element matches.
)");
}

}  // namespace
}  // namespace quobrak::host
