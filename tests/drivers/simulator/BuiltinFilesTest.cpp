#include "drivers/simulator/BuiltinFiles.h"

#include "drivers/simulator/PageSource.h"
#include "platform/foundation/JSON.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace quobrak::simulator {
namespace {

constexpr std::string_view APPLICATIONS[] = {"com.apple.springboard", "com.example.shop"};
constexpr std::string_view SCREENS[] = {"com.apple.springboard/home.xml", "com.example.shop/basket.xml",
                                        "com.example.shop/confirmed.xml", "com.example.shop/product.xml",
                                        "com.example.shop/products.xml",  "com.example.shop/start.xml"};

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

TEST(BuiltinFiles, HaveScreensThatArePageSourcesOfTheWholeScreen) {
  for (const std::string_view path : SCREENS) {
    const std::optional<std::string_view> xml = builtinPhoneFile(path);
    ASSERT_TRUE(xml.has_value()) << path;
    const auto page = readPageSource(*xml, {390, 844});
    EXPECT_EQ(page->frame, (Rect{{0, 0}, {390, 844}})) << path;
    EXPECT_FALSE(page->children().empty()) << path;
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
