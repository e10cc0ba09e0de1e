#include "drivers/simulator/PageSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quobrak::simulator {
namespace {

using ::testing::ThrowsMessage;

constexpr Size SCREEN{390, 844};

std::size_t countBelow(const Element& root) {
  std::size_t count = 0;
  forEachDescendant(root, [&count](const Element&) { ++count; });
  return count;
}

/// The one element of a page.
std::unique_ptr<Element> pageOf(const std::string& element) {
  return readPageSource("<XCUIElementTypeApplication>" + element + "</XCUIElementTypeApplication>", SCREEN);
}

TEST(PageSource, AWholePage) {
  const std::unique_ptr<Element> page = readPageSource(R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- a comment -->
<XCUIElementTypeApplication type="XCUIElementTypeApplication" name="Shop" label="Shop" enabled="true" visible="true"
    accessible="false" x="0" y="0" width="390" height="844" index="0" processId="12" bundleId="com.example.shop">
  <XCUIElementTypeWindow type="XCUIElementTypeWindow" enabled="true" x="0" y="0" width="390" height="844">
    text between the elements
    <XCUIElementTypeButton type="XCUIElementTypeButton" name="ok" label="OK" enabled="false" selected="true" value="1"
        x="10.5" y="-20" width="30" height="40.25" traits="Button"/>
  </XCUIElementTypeWindow>
  <XCUIElementTypeWindow/>
</XCUIElementTypeApplication>
)",
                                                       SCREEN);
  EXPECT_EQ(page->type, ElementType::application);
  EXPECT_EQ(page->label, "Shop");
  EXPECT_EQ(page->frame, (Rect{{0, 0}, {390, 844}}));
  ASSERT_EQ(page->children().size(), 2);
  ASSERT_EQ(page->children()[0]->children().size(), 1);
  const Element& button = *page->children()[0]->children()[0];
  EXPECT_EQ(button.type, ElementType::button);
  EXPECT_EQ(button.parent(), page->children()[0].get());
  EXPECT_EQ(button.identifier, "ok");
  EXPECT_EQ(button.label, "OK");
  EXPECT_EQ(button.value, "1");
  EXPECT_EQ(button.placeholder, std::nullopt);
  EXPECT_FALSE(button.isEnabled);
  EXPECT_TRUE(button.isSelected);
  EXPECT_FALSE(button.hasKeyboardFocus);
  EXPECT_EQ(button.frame, (Rect{{10.5, -20}, {30, 40.25}}));
}

TEST(PageSource, TheTypeIsTheAttributeOrElseTheTag) {
  struct Row {
    std::string element;
    ElementType type;
  };
  const Row ROWS[] = {
      {"<XCUIElementTypeButton/>", ElementType::button},
      {"<Button/>", ElementType::button},
      {R"(<XCUIElementTypeOther type="XCUIElementTypeButton"/>)", ElementType::button},
      {R"(<node type="Button"/>)", ElementType::button},
      {"<XCUIElementTypeAny/>", ElementType::any},
      {"<XCUIElementTypeSwitch/>", ElementType::switchControl},
  };
  for (const auto& [element, type] : ROWS) {
    EXPECT_EQ(pageOf(element)->children().front()->type, type) << element;
  }
}

TEST(PageSource, TheWrapperOfSomeServersIsLeftOut) {
  const std::unique_ptr<Element> page =
      readPageSource(R"(<AppiumAUT><!-- first --><XCUIElementTypeApplication label="Shop">)"
                     R"(<XCUIElementTypeButton/></XCUIElementTypeApplication></AppiumAUT>)",
                     SCREEN);
  EXPECT_EQ(page->type, ElementType::application);
  EXPECT_EQ(page->label, "Shop");
  EXPECT_EQ(countBelow(*page), 1);
}

TEST(PageSource, APageWithoutAnApplicationGetsOneOfTheScreensSize) {
  const std::unique_ptr<Element> page =
      readPageSource(R"(<XCUIElementTypeWindow x="1" y="2" width="3" height="4"/>)", SCREEN);
  EXPECT_EQ(page->type, ElementType::application);
  EXPECT_EQ(page->frame, (Rect{{0, 0}, SCREEN}));
  EXPECT_EQ(page->label, "");
  ASSERT_EQ(page->children().size(), 1);
  EXPECT_EQ(page->children().front()->type, ElementType::window);
  EXPECT_EQ(page->children().front()->frame, (Rect{{1, 2}, {3, 4}}));
}

TEST(PageSource, WhatIsMissing) {
  const std::unique_ptr<Element> page = pageOf("<XCUIElementTypeButton/>");
  const Element& element = *page->children().front();
  EXPECT_TRUE(element.isEnabled);
  EXPECT_FALSE(element.isSelected);
  EXPECT_EQ(element.frame, Rect());
  EXPECT_EQ(element.identifier, "");
  EXPECT_EQ(element.label, "");
  EXPECT_EQ(element.value, std::nullopt);
  EXPECT_EQ(element.placeholder, std::nullopt);
}

TEST(PageSource, WhatIsLeftEmptyIsAsGoodAsMissing) {
  const std::unique_ptr<Element> page =
      pageOf(R"(<Button enabled="" selected="" visible="" x="" y="" width="" height=""/>)");
  const Element& element = *page->children().front();
  EXPECT_FALSE(element.isHidden);
  EXPECT_TRUE(element.isEnabled);
  EXPECT_FALSE(element.isSelected);
  EXPECT_EQ(element.frame, Rect());
}

TEST(PageSource, WhatIsInvisibleWhereItLiesIsHidden) {
  const std::unique_ptr<Element> page = readPageSource(R"(<Application x="0" y="0" width="390" height="844">
  <Button visible="false" x="0" y="0" width="50" height="50"/>
  <Button visible="true" x="50" y="0" width="50" height="50"/>
  <Button visible="false" x="0" y="900" width="50" height="50"/>
</Application>)",
                                                       SCREEN);
  EXPECT_TRUE(page->children()[0]->isHidden);
  EXPECT_FALSE(page->children()[1]->isHidden);
  EXPECT_FALSE(page->children()[2]->isHidden);
}

TEST(PageSource, IdentifierAndLabel) {
  struct Row {
    std::string attributes;
    std::string_view identifier;
    std::string_view label;
  };
  const Row ROWS[] = {
      {R"(name="OK" label="OK")", "", "OK"},
      {R"(name="ok" label="OK")", "ok", "OK"},
      {R"(name="ok")", "ok", ""},
      {R"(label="OK")", "", "OK"},
      {R"(name="" label="")", "", ""},
      {R"(name=" " label=" ")", "", " "},
      {R"(name="OK" label="OK" identifier="OK")", "OK", "OK"},
      {R"(name="ok" label="OK" identifier="other")", "other", "OK"},
      {R"(name="ok" label="OK" identifier="")", "", "OK"},
  };
  for (const auto& [attributes, identifier, label] : ROWS) {
    const std::unique_ptr<Element> page = pageOf("<XCUIElementTypeButton " + attributes + "/>");
    EXPECT_EQ(page->children().front()->identifier, identifier) << attributes;
    EXPECT_EQ(page->children().front()->label, label) << attributes;
  }
}

TEST(PageSource, ValueAndPlaceholder) {
  struct Row {
    std::string element;
    std::optional<std::string> value;
    std::optional<std::string> placeholder;
  };
  const Row ROWS[] = {
      {R"(<StaticText label="Lamp" value="Lamp"/>)", std::nullopt, std::nullopt},
      {R"(<StaticText label="Lamp" value="2"/>)", "2", std::nullopt},
      {R"(<Button label="1" value="1"/>)", "1", std::nullopt},
      {R"(<Switch value="0"/>)", "0", std::nullopt},
      {R"(<Other value=""/>)", "", std::nullopt},
      {R"(<TextField value="Name" placeholderValue="Name"/>)", std::nullopt, "Name"},
      {R"(<TextField value="Ada" placeholderValue="Name"/>)", "Ada", "Name"},
      {R"(<TextField placeholderValue=""/>)", std::nullopt, ""},
  };
  for (const auto& [element, value, placeholder] : ROWS) {
    const std::unique_ptr<Element> page = pageOf(element);
    EXPECT_EQ(page->children().front()->value, value) << element;
    EXPECT_EQ(page->children().front()->placeholder, placeholder) << element;
  }
}

TEST(PageSource, CharactersOfTexts) {
  struct Row {
    std::string written;
    std::string_view text;
  };
  const Row ROWS[] = {
      {"one&#10;two", "one\ntwo"},
      {"a &amp; b &lt;c&gt; &quot;d&quot; &apos;e&apos;", "a & b <c> \"d\" 'e'"},
      {"Don’t “quote” 🙂", "Don’t “quote” 🙂"},
      {"&#x1F642;", "🙂"},
      {"\u200Eebay.com \uFFFC", "\u200Eebay.com \uFFFC"},
      {"  kept  ", "  kept  "},
  };
  for (const auto& [written, text] : ROWS) {
    EXPECT_EQ(pageOf("<Button label=\"" + written + "\"/>")->children().front()->label, text) << written;
  }
}

TEST(PageSource, FramesOfOldCaptures) {
  const std::unique_ptr<Element> page = pageOf(R"(<Button x="inf" y="-inf" width="-1" height="1e2"/>)");
  const Rect& frame = page->children().front()->frame;
  EXPECT_EQ(frame.origin, (Point{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}));
  EXPECT_EQ(frame.size, (Size{-1, 100}));
}

TEST(PageSource, Faults) {
  struct Row {
    std::string xml;
    std::string message;
  };
  const Row ROWS[] = {
      {"", "line 1, column 1: No document element found"},
      {"  \n ", "line 2, column 2: No document element found"},
      {"no page", "line 1, column 8: No document element found"},
      {"<AppiumAUT/>", "line 1, column 1: the page has no element"},
      {"<Application>\n  <Button", "line 2, column 9: Error parsing start element tag"},
      {"<Application>\n  <Button></Window>\n</Application>", "line 2, column 13: Start-end tags mismatch"},
      {"<Application>\n  <Knob/>\n</Application>",
       R"(line 2, column 4: "Knob" is no element type; one is written like "XCUIElementTypeButton")"},
      {R"(<Other type="XCUIElementTypeKnob"/>)",
       R"(line 1, column 2: "XCUIElementTypeKnob" is no element type; one is written like "XCUIElementTypeButton")"},
      {R"(<Other type=""/>)",
       R"(line 1, column 2: "" is no element type; one is written like "XCUIElementTypeButton")"},
      {R"(<Button x="left"/>)", R"(line 1, column 2: x is "left", but must be a number of points)"},
      {R"(<Button y="12pt"/>)", R"(line 1, column 2: y is "12pt", but must be a number of points)"},
      {R"(<Button width=" 1"/>)", R"(line 1, column 2: width is " 1", but must be a number of points)"},
      {R"(<Button height="nan"/>)", R"(line 1, column 2: height is "nan", but must be a number of points)"},
      {R"(<Button height="1e999"/>)", R"(line 1, column 2: height is "1e999", but must be a number of points)"},
      {R"(<Button enabled="1"/>)", R"(line 1, column 2: enabled is "1", but must be true or false)"},
      {R"(<Button visible="0"/>)", R"(line 1, column 2: visible is "0", but must be true or false)"},
      {R"(<Button selected="yes"/>)", R"(line 1, column 2: selected is "yes", but must be true or false)"},
      {R"(<Application label="Äpfel 🙂"><Button enabled="no"/></Application>)",
       R"(line 1, column 31: enabled is "no", but must be true or false)"},
  };
  for (const auto& [xml, message] : ROWS) {
    EXPECT_THAT([&xml = xml] { readPageSource(xml, SCREEN); }, ThrowsMessage<PageSourceError>(message)) << xml;
  }
}

std::string nested(std::size_t levels) {
  std::string xml;
  for (std::size_t level = 0; level < levels; ++level) {
    xml += "<Other>";
  }
  for (std::size_t level = 0; level < levels; ++level) {
    xml += "</Other>";
  }
  return xml;
}

TEST(PageSource, NestingHasALimit) {
  EXPECT_EQ(countBelow(*readPageSource(nested(500), SCREEN)), 500);
  EXPECT_THAT([] { readPageSource(nested(501), SCREEN); },
              ThrowsMessage<PageSourceError>("line 1, column 3502: elements are nested more than 500 levels deep"));
}

/// Loads every page source of a folder; answers how many there were.
int loadAll(const std::filesystem::path& folder) {
  int loaded = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".xml") {
      continue;
    }
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string xml{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_NO_THROW(EXPECT_GT(countBelow(*readPageSource(xml, SCREEN)), 0) << entry.path()) << entry.path();
    ++loaded;
  }
  return loaded;
}

// Captures of real screens belong to those who made them, so they are not kept here.
TEST(PageSource, CapturesLoad) {
  const char* const folder = std::getenv("QUOBRAK_PAGE_SOURCES");
  if (folder == nullptr) {
    std::cout << "no captures: QUOBRAK_PAGE_SOURCES is not set\n";
    const std::unique_ptr<Element> page = readPageSource(
        R"(<AppiumAUT>
  <XCUIElementTypeApplication type="XCUIElementTypeApplication" name="Notes" label="Notes" x="0" y="0" width="320"
      height="568">
    <XCUIElementTypeOther type="XCUIElementTypeOther" enabled="" x="inf" y="inf" width="0" height="0"/>
    <XCUIElementTypeTextView type="XCUIElementTypeTextView" value="Milk&#10;Bread 🍞" enabled="true" visible="true"
        x="0" y="64" width="320" height="504" index="1" traits=""/>
  </XCUIElementTypeApplication>
</AppiumAUT>)",
        SCREEN);
    EXPECT_EQ(countBelow(*page), 2);
    EXPECT_EQ(page->children().back()->value, "Milk\nBread 🍞");
    return;
  }
  const int loaded = loadAll(folder);
  std::cout << loaded << " captures\n";
  EXPECT_GT(loaded, 0) << "there is no capture in " << folder;
}

}  // namespace
}  // namespace quobrak::simulator
