#include "drivers/simulator/AlertScreens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;

constexpr Size SCREEN{390, 844};

TEST(PermissionAlert, TextsOfEachPermission) {
  struct Row {
    std::string_view permission;
    std::string title;
    std::string message;
    std::vector<std::string> buttons;
  };
  const Row ROWS[] = {
      {"location", "Allow “Shop” to use your location?", "", {"Allow Once", "Allow While Using App", "Don’t Allow"}},
      {"camera", "“Shop” Would Like to Access the Camera", "", {"Don’t Allow", "OK"}},
      {"notifications",
       "“Shop” Would Like to Send You Notifications",
       "Notifications may include alerts, sounds, and icon badges. These can be configured in Settings.",
       {"Don’t Allow", "Allow"}},
      {"tracking",
       "Allow “Shop” to track your activity across other companies’ apps and websites?",
       "",
       {"Ask App Not to Track", "Allow"}},
  };
  for (const auto& [permission, title, message, buttons] : ROWS) {
    const std::optional<AlertText> alert = permissionAlert(permission, "Shop");
    ASSERT_TRUE(alert) << permission;
    EXPECT_EQ(alert->title, title);
    EXPECT_EQ(alert->message, message);
    EXPECT_EQ(alert->buttons, buttons);
  }
}

TEST(PermissionAlert, NoneForAnotherPermission) {
  for (const std::string_view permission : {"", "Location", "contacts"}) {
    EXPECT_FALSE(permissionAlert(permission, "Shop")) << permission;
  }
}

TEST(PermissionAlert, TheKnownPermissionsAreListed) {
  EXPECT_EQ(knownPermissions(), R"("location", "camera", "notifications", "tracking")");
}

/// Each element below the root as its type, label and frame.
std::vector<std::string> partsOf(const Element& root) {
  std::vector<std::string> parts;
  forEachDescendant(root, [&parts](const Element& element) {
    const auto number = [](double value) { return std::to_string(static_cast<int>(value)); };
    const Rect& frame = element.frame;
    parts.push_back(std::string(nameOf(element.type)) + " '" + element.label + "' " + number(frame.origin.x) + "," +
                    number(frame.origin.y) + " " + number(frame.size.width) + "x" + number(frame.size.height));
  });
  return parts;
}

TEST(AlertWindow, FillsTheScreen) {
  const auto window = alertWindow({.title = "Title", .message = "", .buttons = {"OK"}}, SCREEN);
  EXPECT_EQ(window->type, ElementType::window);
  EXPECT_EQ(window->frame, (Rect{{0, 0}, SCREEN}));
  EXPECT_EQ(window->children().size(), 1);
}

TEST(AlertWindow, TwoButtonsStandSideBySide) {
  const auto window = alertWindow({.title = "Title", .message = "Message", .buttons = {"No", "Yes"}}, SCREEN);
  EXPECT_THAT(partsOf(*window), ElementsAre("Alert 'Title' 60,324 270x196", "StaticText 'Title' 76,340 238x66",
                                            "StaticText 'Message' 76,406 238x54", "Button 'No' 60,476 135x44",
                                            "Button 'Yes' 195,476 135x44"));
}

TEST(AlertWindow, ThreeButtonsStandOneBelowTheOther) {
  const auto window = alertWindow({.title = "Title", .message = "", .buttons = {"A", "B", "C"}}, SCREEN);
  EXPECT_THAT(partsOf(*window),
              ElementsAre("Alert 'Title' 60,307 270x230", "StaticText 'Title' 76,323 238x66",
                          "Button 'A' 60,405 270x44", "Button 'B' 60,449 270x44", "Button 'C' 60,493 270x44"));
}

TEST(AlertWindow, OneButtonIsAsWideAsTheAlert) {
  const auto window = alertWindow({.title = "Title", .message = "", .buttons = {"OK"}}, SCREEN);
  EXPECT_THAT(partsOf(*window), ElementsAre("Alert 'Title' 60,351 270x142", "StaticText 'Title' 76,367 238x66",
                                            "Button 'OK' 60,449 270x44"));
}

TEST(SheetWindow, LiesAlongTheLowerEdgeInAWindowOfTheWholeScreen) {
  const auto window = sheetWindow({.title = "Title", .message = "Message", .buttons = {"A", "B"}}, SCREEN);
  EXPECT_EQ(window->type, ElementType::window);
  EXPECT_EQ(window->frame, (Rect{{0, 0}, SCREEN}));
  EXPECT_THAT(partsOf(*window),
              ElementsAre("Sheet 'Title' 8,608 374x202", "StaticText 'Title' 8,608 374x44",
                          "StaticText 'Message' 8,652 374x44", "Button 'A' 8,696 374x57", "Button 'B' 8,753 374x57"));
}

TEST(SheetWindow, MayDoWithoutATitleOrAMessage) {
  EXPECT_THAT(partsOf(*sheetWindow({.title = "", .message = "", .buttons = {"A"}}, SCREEN)),
              ElementsAre("Sheet '' 8,753 374x57", "Button 'A' 8,753 374x57"));
  EXPECT_THAT(partsOf(*sheetWindow({.title = "", .message = "Message", .buttons = {"A"}}, SCREEN)),
              ElementsAre("Sheet '' 8,709 374x101", "StaticText 'Message' 8,709 374x44", "Button 'A' 8,753 374x57"));
  EXPECT_THAT(partsOf(*sheetWindow({.title = "Title", .message = "", .buttons = {"A"}}, SCREEN)),
              ElementsAre("Sheet 'Title' 8,709 374x101", "StaticText 'Title' 8,709 374x44", "Button 'A' 8,753 374x57"));
}

}  // namespace
}  // namespace quobrak::simulator
