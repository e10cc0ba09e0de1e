#include "phoneserver/Settings.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;

TEST(Settings, BeginAsThoseOfAPhone) {
  const Settings settings;
  EXPECT_EQ(settings.text("defaultActiveApplication"), "auto");
  EXPECT_EQ(settings.text("elementResponseAttributes"), "type,label");
  EXPECT_TRUE(settings.truth("shouldUseCompactResponses"));
  EXPECT_FALSE(settings.truth("respectSystemAlerts"));
  EXPECT_EQ(settings.number("snapshotMaxDepth"), 50);
}

TEST(Settings, TakeOverWhatIsKnownAndPassOverTheRest) {
  Settings settings;
  settings.update({{"snapshotMaxDepth", 3.5}, {"acceptAlertButtonSelector", "x"}, {"unheardOf", 1}});
  EXPECT_EQ(settings.number("snapshotMaxDepth"), 3.5);
  EXPECT_EQ(settings.text("acceptAlertButtonSelector"), "x");
  EXPECT_FALSE(settings.all().contains("unheardOf"));
}

TEST(Settings, TruthMayBeSentAsANumberAndATextAsNull) {
  Settings settings;
  settings.update({{"shouldUseCompactResponses", 0}, {"defaultActiveApplication", JSONValue()}});
  EXPECT_FALSE(settings.truth("shouldUseCompactResponses"));
  EXPECT_EQ(settings.text("defaultActiveApplication"), "");
}

TEST(Settings, RefuseAValueOfTheWrongKindAndChangeNothing) {
  Settings settings;
  EXPECT_EQ(errorOf([&] {
              settings.update({{"acceptAlertButtonSelector", "x"}, {"shouldUseCompactResponses", "no"}});
            }),
            "invalid argument: the setting \"shouldUseCompactResponses\" must be true or false");
  EXPECT_EQ(errorOf([&] {
              settings.update({{"snapshotMaxDepth", true}});
            }),
            "invalid argument: the setting \"snapshotMaxDepth\" must be a number");
  EXPECT_EQ(errorOf([&] {
              settings.update({{"defaultActiveApplication", 1}});
            }),
            "invalid argument: the setting \"defaultActiveApplication\" must be a text");
  EXPECT_EQ(errorOf([&] {
              settings.update({{"snapshotMaxDepth", JSONValue::Array()}});
            }),
            "invalid argument: the setting \"snapshotMaxDepth\" must be a number");
  EXPECT_EQ(settings.all(), Settings().all());
}

}  // namespace
}  // namespace quobrak::phoneserver
