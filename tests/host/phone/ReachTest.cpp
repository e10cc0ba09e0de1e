#include "host/phone/Reach.h"

#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "tests/host/phone/LookedAtPhone.h"

namespace quobrak::host {
namespace {

using quobrak::testing::elementNamed;
using quobrak::testing::lookedAtPhone;
using quobrak::testing::lookedAtScreen;
using quobrak::testing::TEST_APPLICATION;
using simulator::Element;

TEST(Reach, TellsWhatIsInTheWayOfATap) {
  const ShownScreen screen = lookedAtScreen();
  struct Case {
    std::string identifier;
    Obstacle obstacle;
    std::string remark;
    std::string fate;
  };
  for (const auto& [identifier, obstacle, remark, fate] :
       {Case{"basket", Obstacle::none, "", "a tap lands on it"}, Case{"off", Obstacle::none, "", "a tap lands on it"},
        Case{"under", Obstacle::covered, "covered", "not hittable: Image \"Cover\" covers it at 50, 90"},
        Case{"cover", Obstacle::none, "", "a tap lands on it"},
        Case{"below", Obstacle::outside, "outside", "not hittable: it lies outside what is seen of ScrollView 'list'"},
        Case{"away", Obstacle::outside, "outside", "not hittable: it lies outside the screen"},
        Case{"flat", Obstacle::withoutExtent, "no extent", "not hittable: it has no extent"},
        Case{"ghost", Obstacle::hidden, "invisible",
             "not hittable: it is invisible, for no reason that can be seen"}}) {
    const Element& element = elementNamed(screen, identifier);
    EXPECT_EQ(obstacleTo(element, screen), obstacle) << identifier;
    EXPECT_EQ(remarkOn(obstacleTo(element, screen)), remark) << identifier;
    EXPECT_EQ(fateOfTap(element, screen), fate) << identifier;
  }
}

TEST(Reach, ATapMayLandOnWhatIsInTheElementOrOnNothing) {
  const ShownScreen screen = lookedAtScreen();
  EXPECT_EQ(fateOfTap(elementNamed(screen, "list"), screen), "a tap lands on it");
  EXPECT_EQ(fateOfTap(*elementNamed(screen, "list").parent(), screen), "a tap lands on ScrollView 'list' in it");
  const ShownScreen other(simulator::loadPhone(lookedAtPhone()), TEST_APPLICATION, "other");
  EXPECT_EQ(fateOfTap(*other.root(), other),
            "a tap lands on nothing: neither it nor what is in it takes touches there");
}

TEST(Reach, WhatIsBehindAnotherApplicationIsOutOfReach) {
  quobrak::testing::MemoryPhoneFiles files = lookedAtPhone();
  files["test/app.json"] = R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start",
      "rules": [{"on": "launch", "do": [{"open": "com.apple.springboard"}]}]})";
  const ShownScreen screen(simulator::loadPhone(files), TEST_APPLICATION, std::nullopt);
  const Element& element = elementNamed(screen, "basket");
  EXPECT_EQ(obstacleTo(element, screen), Obstacle::behind);
  EXPECT_EQ(remarkOn(Obstacle::behind), "behind");
  EXPECT_EQ(fateOfTap(element, screen), "not hittable: the application com.apple.springboard is in front");
}

TEST(Reach, ASystemAlertIsAnsweredBeforeATap) {
  quobrak::testing::MemoryPhoneFiles files = lookedAtPhone();
  files["test/app.json"] = R"({"bundleIdentifier": "com.example.test", "name": "Test", "firstScreen": "start",
      "rules": [{"on": "launch", "do": [{"askPermission": "location"}]}]})";
  const ShownScreen screen(simulator::loadPhone(files), TEST_APPLICATION, std::nullopt);
  EXPECT_EQ(fateOfTap(elementNamed(screen, "basket"), screen),
            "a tap lands on it, once the system alert has been answered");
  EXPECT_EQ(fateOfTap(*screen.systemAlert(), screen), "a tap lands on Button \"Allow Once\" in it");
}

}  // namespace
}  // namespace quobrak::host
