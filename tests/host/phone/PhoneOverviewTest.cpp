#include "host/phone/PhoneOverview.h"

#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "tests/host/phone/LookedAtPhone.h"

namespace quobrak::host {
namespace {

using quobrak::testing::lookedAtPhone;
using quobrak::testing::MemoryPhoneFiles;

Terminal terminalOfWidth(std::size_t width) {
  return {.isInteractive = false, .hasColour = false, .width = width};
}

TEST(PhoneOverview, TellsOfThePhoneItsApplicationsAndTheirScreens) {
  EXPECT_EQ(phoneOverview(simulator::loadPhone(lookedAtPhone()), terminalOfWidth(100)),
            R"(Small phone
  Screen  100 x 200 points, 1 pixel to a point
  System  17.5
  Volume  50 %
  Delays  touch 0 ms, button 0 ms, scroll 0 ms

Application                          Name  First screen  Screens  Rules
com.apple.springboard (home screen)  Home  home                1      0
com.example.test                     Test  start               2      2

Screens
  com.apple.springboard
    home
  com.example.test
    other, start
)");
}

TEST(PhoneOverview, TellsOfDelaysAndNamedValues) {
  MemoryPhoneFiles files = lookedAtPhone();
  files["phone.json"] =
      R"({"name": "My\nphone", "size": {"width": 390, "height": 844}, "scale": 3, "systemVersion": "17.5",
          "volume": 0, "delays": {"touch": 80, "button": 200, "scroll": 400}, "home": "com.apple.springboard",
          "applications": ["home", "test"], "values": {"shop.basket": "", "a": "\u001b[2J"}})";
  EXPECT_EQ(phoneOverview(simulator::loadPhone(files), terminalOfWidth(100)),
            R"(My␊phone
  Screen  390 x 844 points, 3 pixels to a point
  System  17.5
  Volume  0 %
  Delays  touch 80 ms, button 200 ms, scroll 400 ms

Application                          Name  First screen  Screens  Rules
com.apple.springboard (home screen)  Home  home                1      0
com.example.test                     Test  start               2      2

Screens
  com.apple.springboard
    home
  com.example.test
    other, start

Named value  Begins as
a            "␛[2J"
shop.basket  ""
)");
}

TEST(PhoneOverview, ManyScreensTakeSeveralLines) {
  const std::string overview = phoneOverview(simulator::loadPhone(simulator::BuiltinPhoneFiles()), terminalOfWidth(60));
  EXPECT_NE(overview.find("\n  com.apple.mobilesafari\n"
                          "    black, blank, edit, harbor, history, loading, meadow,\n"
                          "    notFound, river, search, start, tabs\n"
                          "  com.apple.springboard\n"),
            std::string::npos)
      << overview;
}

}  // namespace
}  // namespace quobrak::host
