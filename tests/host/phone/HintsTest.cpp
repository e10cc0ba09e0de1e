#include "host/phone/Hints.h"

#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "tests/host/phone/LookedAtPhone.h"

namespace quobrak::host {
namespace {

std::string hints(SelectorKind kind, const std::string& text, bool isEnabled = true) {
  ShownScreen screen = quobrak::testing::lookedAtScreen();
  return hintsFor({.kind = kind, .text = text, .isEnabled = isEnabled}, screen);
}

TEST(Hints, NameWhatIsLikeTheSelector) {
  EXPECT_EQ(hints(SelectorKind::textExact, "your baskt"), "There is something like it: did you mean Your basket?\n");
  EXPECT_EQ(hints(SelectorKind::text, "baskt"), "There is something like it: did you mean basket?\n")
      << "a word of a label, or an identifier, is enough";
  EXPECT_EQ(hints(SelectorKind::text, "Serch"), "There is something like it: did you mean Search or search?\n");
  EXPECT_EQ(hints(SelectorKind::field, "titel"), "There is something like it: did you mean title?\n");
  EXPECT_EQ(hints(SelectorKind::label, "titel"), "") << "what is no label does not count";
  EXPECT_EQ(hints(SelectorKind::text, "zzz"), "");
}

TEST(Hints, NameSelectorsThatFindSomething) {
  EXPECT_EQ(hints(SelectorKind::text, "old"), "--text \"old\" --disabled would find 1.\n");
  EXPECT_EQ(hints(SelectorKind::text, "your", false), "--text \"your\" would find 1.\n");
  EXPECT_EQ(hints(SelectorKind::labelExact, "elcom"), "--label \"elcom\" would find 1.\n");
  EXPECT_EQ(hints(SelectorKind::label, "itl"), "--field \"itl\" would find 1.\n");
  EXPECT_EQ(hints(SelectorKind::className, "CheckBox"), "");
}

TEST(Hints, WhereTheApplicationHasEndedThereAreNone) {
  quobrak::testing::MemoryPhoneFiles files = quobrak::testing::lookedAtPhone();
  files["test/app.json"] = R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start",
      "rules": [{"on": "launch", "do": [{"terminate": "com.example.test"}]}]})";
  ShownScreen screen(simulator::loadPhone(files), quobrak::testing::TEST_APPLICATION, std::nullopt);
  EXPECT_EQ(hintsFor({.kind = SelectorKind::text, .text = "baskt"}, screen), "");
}

}  // namespace
}  // namespace quobrak::host
