#include "drivers/simulator/BuiltinFiles.h"

#include "drivers/simulator/PhoneFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/JSON.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace quobrak::simulator {
namespace {

constexpr std::string_view APPLICATIONS[] = {"com.apple.springboard", "com.apple.AppStore", "com.apple.Preferences",
                                             "com.apple.mobilesafari", "com.example.shop"};

JSONValue decodedFile(const std::string& path) {
  const std::optional<std::string_view> text = builtinPhoneFile(path);
  EXPECT_TRUE(text.has_value()) << path;
  return JSONDecoder::decode(text.value_or("null"));
}

TEST(BuiltinFiles, HaveThePhonesDescription) {
  const JSONValue phone = decodedFile("phone.json");

  EXPECT_EQ(JSONReader(phone).member("name").text(), "Built-in phone");
  EXPECT_EQ(JSONReader(phone).member("size").member("width").integer(), 390);
  EXPECT_EQ(JSONReader(phone).member("size").member("height").integer(), 844);
}

TEST(BuiltinFiles, HaveEveryApplicationThatThePhoneLists) {
  const JSONValue phone = decodedFile("phone.json");
  const auto listed = JSONReader(phone).member("applications").elements();

  ASSERT_EQ(listed.size(), std::size(APPLICATIONS));
  for (std::size_t number = 0; number < listed.size(); ++number) {
    EXPECT_EQ(listed[number].text(), APPLICATIONS[number]);
    const JSONValue application = decodedFile(listed[number].text() + "/app.json");
    EXPECT_EQ(JSONReader(application).member("bundleIdentifier").text(), APPLICATIONS[number]);
  }
}

TEST(BuiltinFiles, HaveTheFirstScreenOfEveryApplication) {
  for (const std::string_view folder : APPLICATIONS) {
    const std::string path(folder);
    const JSONValue application = decodedFile(path + "/app.json");
    const std::string screen = JSONReader(application).member("firstScreen").text();
    EXPECT_TRUE(builtinPhoneFile(path + "/" + screen + ".xml").has_value()) << path << " " << screen;
  }
}

TEST(BuiltinFiles, DescribeAPhoneWhoseScreensFillIt) {
  const PhoneDescription phone = loadPhone(BuiltinPhoneFiles());

  EXPECT_EQ(phone.applications.size(), std::size(APPLICATIONS));
  for (const auto& [bundleIdentifier, application] : phone.applications) {
    for (const auto& [name, screen] : application.screens) {
      EXPECT_EQ(screen->frame, (Rect{{0, 0}, phone.size})) << bundleIdentifier << " " << name;
      EXPECT_FALSE(screen->children().empty()) << bundleIdentifier << " " << name;
    }
  }
}

TEST(BuiltinFiles, HaveAnIconForEveryApplicationButTheHomeScreen) {
  const PhoneDescription phone = loadPhone(BuiltinPhoneFiles());
  std::set<std::string> icons;
  forEachDescendant(*phone.applications.at(phone.home).screens.at("home"), [&icons](const Element& element) {
    if (element.type == ElementType::icon) {
      icons.insert(element.label);
    }
  });

  EXPECT_EQ(icons, (std::set<std::string>{"App Store", "Safari", "Settings", "Shop"}));
  for (const auto& [bundleIdentifier, application] : phone.applications) {
    EXPECT_EQ(icons.contains(application.name), bundleIdentifier != phone.home) << bundleIdentifier;
  }
}

TEST(BuiltinFiles, HaveNoFileAtAnUnknownPath) {
  for (const std::string_view path : {"", "phone", "PHONE.JSON", "/phone.json", "com.example.shop", "DejaVuSans.ttf"}) {
    EXPECT_EQ(builtinPhoneFile(path), std::nullopt) << path;
  }
}

TEST(BuiltinFiles, HaveAWholeTrueTypeFont) {
  constexpr std::string_view TRUE_TYPE_SIGNATURE("\x00\x01\x00\x00", 4);
  constexpr std::size_t SMALLEST_PLAUSIBLE = 500'000;

  EXPECT_TRUE(builtinFont().starts_with(TRUE_TYPE_SIGNATURE));
  EXPECT_GT(builtinFont().size(), SMALLEST_PLAUSIBLE);
}

}  // namespace
}  // namespace quobrak::simulator
