#include "platform/uiautomation/ElementType.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string_view>

namespace quobrak {
namespace {

constexpr int LAST_RAW_VALUE = 82;

TEST(ElementType, RawValuesAndNamesOfThePlatform) {
  struct Row {
    ElementType type;
    int rawValue;
    std::string_view name;
  };
  const Row ROWS[] = {
      {ElementType::any, 0, "Any"},
      {ElementType::other, 1, "Other"},
      {ElementType::application, 2, "Application"},
      {ElementType::window, 4, "Window"},
      {ElementType::sheet, 5, "Sheet"},
      {ElementType::alert, 7, "Alert"},
      {ElementType::button, 9, "Button"},
      {ElementType::radioButton, 10, "RadioButton"},
      {ElementType::checkBox, 12, "CheckBox"},
      {ElementType::keyboard, 19, "Keyboard"},
      {ElementType::table, 26, "Table"},
      {ElementType::collectionView, 32, "CollectionView"},
      {ElementType::switchControl, 40, "Switch"},
      {ElementType::image, 43, "Image"},
      {ElementType::icon, 44, "Icon"},
      {ElementType::scrollView, 46, "ScrollView"},
      {ElementType::staticText, 48, "StaticText"},
      {ElementType::textField, 49, "TextField"},
      {ElementType::secureTextField, 50, "SecureTextField"},
      {ElementType::textView, 52, "TextView"},
      {ElementType::webView, 58, "WebView"},
      {ElementType::cell, 75, "Cell"},
      {ElementType::statusItem, LAST_RAW_VALUE, "StatusItem"},
  };
  for (const auto& [type, rawValue, name] : ROWS) {
    EXPECT_EQ(static_cast<int>(type), rawValue) << name;
    EXPECT_EQ(nameOf(type), name);
  }
}

TEST(ElementType, NamesLeadBackToTheTypes) {
  std::set<std::string_view> names;
  for (int rawValue = 0; rawValue <= LAST_RAW_VALUE; ++rawValue) {
    const auto type = static_cast<ElementType>(rawValue);
    EXPECT_EQ(elementTypeNamed(nameOf(type)), type) << nameOf(type);
    names.insert(nameOf(type));
  }
  EXPECT_EQ(names.size(), LAST_RAW_VALUE + 1);
}

TEST(ElementType, NamesThatAreNoTypes) {
  for (const std::string_view name :
       {"", "button", "BUTTON", "Button ", "XCUIElementTypeButton", "RemotePlaceholder"}) {
    EXPECT_EQ(elementTypeNamed(name), std::nullopt) << name;
  }
}

}  // namespace
}  // namespace quobrak
