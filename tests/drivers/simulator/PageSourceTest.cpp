#include "drivers/simulator/PageSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
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

using namespace std::string_literals;
using ::testing::SizeIs;
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
  EXPECT_EQ(button.value, std::nullopt);
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
      {R"(<Button label="2" value="2"/>)", "2", std::nullopt},
      {R"(<Switch value="0"/>)", "0", std::nullopt},
      {R"(<Other value=""/>)", "", std::nullopt},
      {R"(<TextField value="Name" placeholderValue="Name"/>)", std::nullopt, "Name"},
      {R"(<TextField value="Ada" placeholderValue="Name"/>)", "Ada", "Name"},
      {R"(<TextField placeholderValue=""/>)", std::nullopt, ""},
      {R"(<SecureTextField value="Password" label="" placeholderValue="Password"/>)", std::nullopt, "Password"},
      // A capture from before servers told the placeholder: it may as well have been typed.
      {R"(<TextField value="Name" label="Name"/>)", "Name", std::nullopt},
      // The level of a heading of a web page.
      {R"(<StaticText value="2" name="News" label="News"/>)", "2", std::nullopt},
      {R"(<StaticText value="News" name="News"/>)", "News", std::nullopt},
      {R"(<TextView value="one&#10;two"/>)", "one\ntwo", std::nullopt},
  };
  for (const auto& [element, value, placeholder] : ROWS) {
    const std::unique_ptr<Element> page = pageOf(element);
    EXPECT_EQ(page->children().front()->value, value) << element;
    EXPECT_EQ(page->children().front()->placeholder, placeholder) << element;
  }
}

TEST(PageSource, EnabledAndSelected) {
  struct Row {
    std::string element;
    bool isEnabled;
    bool isSelected;
    std::optional<std::string> value;
  };
  const Row ROWS[] = {
      {R"(<Button/>)", true, false, std::nullopt},
      {R"(<Button enabled="false" selected="true"/>)", false, true, std::nullopt},
      {R"(<Button value="1"/>)", true, true, std::nullopt},
      {R"(<Button value="1" selected="true"/>)", true, true, std::nullopt},
      {R"(<Button value="1" selected="false"/>)", true, false, "1"},
      {R"(<Button value="1" selected=""/>)", true, true, std::nullopt},
      {R"(<Button value="1" traits="Selected, Button"/>)", true, true, std::nullopt},
      {R"(<Button value="1" traits="Button"/>)", true, false, "1"},
      {R"(<Button value="1" traits=""/>)", true, false, "1"},
      {R"(<Button value="11"/>)", true, false, "11"},
      {R"(<Switch value="1"/>)", true, false, "1"},
      {R"(<Cell value="1"/>)", true, false, "1"},
      {R"(<Key traits="Selected, PlaysSound, KeyboardKey, Button" value="a"/>)", true, true, "a"},
      {R"(<Cell traits="Button, Selected"/>)", true, true, std::nullopt},
      {R"(<Cell traits="Selected" selected="false"/>)", true, false, std::nullopt},
      {R"(<Cell traits="NotSelected, SelectedToo, Unselected"/>)", true, false, std::nullopt},
      {R"(<Button traits="NotEnabled, Button"/>)", false, false, std::nullopt},
      {R"(<Button traits="NotEnabled, Selected" enabled=""/>)", false, true, std::nullopt},
      {R"(<Button traits="NotEnabled" enabled="true"/>)", true, false, std::nullopt},
      {R"(<Button traits="Button,NotEnabled"/>)", false, false, std::nullopt},
  };
  for (const auto& [element, isEnabled, isSelected, value] : ROWS) {
    const std::unique_ptr<Element> page = pageOf(element);
    EXPECT_EQ(page->children().front()->isEnabled, isEnabled) << element;
    EXPECT_EQ(page->children().front()->isSelected, isSelected) << element;
    EXPECT_EQ(page->children().front()->value, value) << element;
  }
}

// A phone has no remote control.
TEST(PageSource, TheFocusOfARemoteControlIsNotTheKeyboards) {
  const std::unique_ptr<Element> page = pageOf(R"(<Button focused="true"/>)");
  EXPECT_FALSE(page->children().front()->hasKeyboardFocus);
}

TEST(PageSource, ABackground) {
  const auto backgroundOf = [](const std::string& attribute) {
    return readPageSource("<Application " + attribute + "/>", {100, 200})->background;
  };
  EXPECT_EQ(backgroundOf(""), std::nullopt);
  EXPECT_EQ(backgroundOf("background='#1e90FF'"), 0x1E90FF);
  for (const std::string text : {"", "black", "#000", "#00000G", "0000000", "#-00001", "#0000000"}) {
    EXPECT_THAT([&] { backgroundOf("background='" + text + "'"); },
                ThrowsMessage<PageSourceError>("line 1, column 2: background is \"" + text +
                                               "\", but must be a colour like #1E90FF"));
  }
}

TEST(PageSource, TheOrderOfAttributesMeansNothing) {
  for (
      const char* element : {
          R"(<Button type="XCUIElementTypeButton" value="v" name="n" label="l" enabled="false" visible="true"
               accessible="true" x="1" y="2" width="3" height="4" index="0" placeholderValue="p" traits="Selected"/>)",
          R"(<Button type="XCUIElementTypeButton" enabled="false" visible="true" accessible="true" focused="false" x="1"
               y="2" width="3" height="4" name="n" label="l" value="v" selected="true" placeholderValue="p"></Button>)",
          R"(<XCUIElementTypeButton traits="Button, Selected" placeholderValue='p' height='4' width='3' y='2' x='1'
               enabled='false' label='l' name='n' value='v' customActions="" nativeFrame="" hittable="true"/>)",
      }) {
    const std::unique_ptr<Element> page = pageOf(element);
    const Element& button = *page->children().front();
    EXPECT_EQ(button.type, ElementType::button) << element;
    EXPECT_EQ(button.frame, (Rect{{1, 2}, {3, 4}})) << element;
    EXPECT_EQ(button.identifier, "n") << element;
    EXPECT_EQ(button.label, "l") << element;
    EXPECT_EQ(button.value, "v") << element;
    EXPECT_EQ(button.placeholder, "p") << element;
    EXPECT_FALSE(button.isEnabled) << element;
    EXPECT_TRUE(button.isSelected) << element;
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
      {"\u202Cone\u202D", "\u202Cone\u202D"},
      {"&#10;&#13;&#9;&#x20;", "\n\r\t "},
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

TEST(PageSource, Numbers) {
  struct Row {
    std::string written;
    double number;
  };
  const Row ROWS[] = {
      {"0", 0},   {"-0", -0.0},     {"007", 7},   {"999999999", 999999999},     {"1000000000", 1e9},
      {"-1", -1}, {"119.7", 119.7}, {"1e2", 100}, {"12345678901", 12345678901},
  };
  for (const auto& [written, number] : ROWS) {
    const std::unique_ptr<Element> page = pageOf("<Button x=\"" + written + "\"/>");
    const double x = page->children().front()->frame.origin.x;
    EXPECT_EQ(x, number) << written;
    EXPECT_EQ(std::signbit(x), std::signbit(number)) << written;
  }
}

TEST(PageSource, EncodingsAndDeclarations) {
  for (const std::string& xml :
       {std::string(
            "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<Button label=\"é\"/>"),
        std::string("<?xml version='1.0' encoding='utf-16'?><!DOCTYPE a><Button label=\"é\"/><!-- end -->"),
        std::string("<?xml version='1.0' encoding='ISO-8859-1'?><Button label=\"\xE9\"/>"),
        "\xFF\xFE<\0B\0u\0t\0t\0o\0n\0 \0l\0a\0b\0e\0l\0=\0'\0\xE9\0'\0/\0>\0"s}) {
    EXPECT_EQ(readPageSource(xml, SCREEN)->children().front()->label, "é") << xml;
  }
}

TEST(PageSource, Faults) {
  struct Row {
    std::string xml;
    std::string message;
  };
  const Row ROWS[] = {
      {"", "line 1, column 1: the page has no element; it must begin like <XCUIElementTypeApplication>"},
      {"  \n ", "line 2, column 2: the page has no element; it must begin like <XCUIElementTypeApplication>"},
      {"no page", "line 1, column 8: the page has no element; it must begin like <XCUIElementTypeApplication>"},
      {"<AppiumAUT/>",
       R"(line 1, column 2: "AppiumAUT" is no element type; one is written like "XCUIElementTypeButton")"},
      {"<Application>\n  <Button",
       R"(line 2, column 9: the tag must end with > or />, and have attributes like name="OK" in between)"},
      {"<Application>\n  <Button></Window>\n</Application>",
       "line 2, column 13: this is not the end tag of the element that it ends"},
      {"<Application>\n  <Button/>\n", "line 2, column 12: the page ends within an element; its end tag must be there"},
      {"<Application label=\"a < b\">1 < 2</Application>",
       "line 1, column 31: this is no tag; in a text < must be written &lt;"},
      {"<Button label=OK/>", R"(line 1, column 15: an attribute must be written like name="OK")"},
      {R"(<Button label=\"OK\"/>)",
       R"(line 1, column 15: quotes are written \" as in JSON, from which the page has to be taken out with, for )"
       R"(example, jq -r .value)"},
      {"<!-- open", "line 1, column 9: Error parsing comment"},
      {R"({"value": "<Button/>"})",
       R"(line 1, column 1: this is JSON, and a page is XML; in a server's reply it is the text of "value", which is )"
       R"(taken out with, for example, jq -r .value REPLY > PAGE)"},
      {"<Button label=\"\xE9\"/>", "line 1, column 16: the page is not UTF-8; it must be saved in UTF-8"},
      {R"(<Button label="&#xD83D;&#xDE42;"/>)",
       "line 1, column 2: label has a number that is no character's; an emoji must be written as it is, or as one "
       "number like &#x1F642;"},
      {R"(<Button x="1" label="OK" x="1"/>)", "line 1, column 2: x is there more than once"},
      {"<Application>\n  <Knob/>\n</Application>",
       R"(line 2, column 4: "Knob" is no element type; one is written like "XCUIElementTypeButton")"},
      {R"(<Other type="XCUIElementTypeKnob"/>)",
       R"(line 1, column 2: "XCUIElementTypeKnob" is no element type; one is written like "XCUIElementTypeButton")"},
      {R"(<Other type=""/>)",
       R"(line 1, column 2: "" is no element type; one is written like "XCUIElementTypeButton")"},
      {R"(<Button type="&#xD83D;"/>)",
       "line 1, column 2: \"\uFFFD\uFFFD\uFFFD\" is no element type; one is written like \"XCUIElementTypeButton\""},
      {"<Window/>\n<Window/>",
       "line 2, column 2: the page has ended before; all elements must be within one, the application"},
      {"<AppiumAUT><Application/>\n<Application/></AppiumAUT>",
       "line 2, column 2: the page has ended before; all elements must be within one, the application"},
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

TEST(PageSource, AllFaultsAreToldAtOnce) {
  const std::string xml = R"(<Application>
  <Knob x="left" enabled="1"><Button y=""/></Knob>
  <Button visible="0" width="1" width="2">
    <Wheel/>
  </Button>
</Application>)";
  const auto read = [&xml] { readPageSource(xml, SCREEN); };
  EXPECT_THAT(read, ThrowsMessage<PageSourceError>(
                        R"(line 2, column 4: "Knob" is no element type; one is written like "XCUIElementTypeButton"
line 2, column 4: x is "left", but must be a number of points
line 2, column 4: enabled is "1", but must be true or false
line 3, column 4: width is there more than once
line 3, column 4: visible is "0", but must be true or false
line 4, column 6: "Wheel" is no element type; one is written like "XCUIElementTypeButton")"));
  try {
    read();
  } catch (const PageSourceError& error) {
    EXPECT_THAT(error.faults(), SizeIs(6));
    EXPECT_EQ(error.faults().back(), (PageSourceFault{4, 6,
                                                      "\"Wheel\" is no element type; one is written like "
                                                      "\"XCUIElementTypeButton\""}));
  }
}

TEST(PageSource, OfManyFaultsTheFirstAreTold) {
  std::string xml = "<Application>";
  for (int number = 1; number <= 25; ++number) {
    xml += "<Button x=\"a\"/>\n";
  }
  try {
    readPageSource(xml + "</Application>", SCREEN);
    FAIL() << "the page was read";
  } catch (const PageSourceError& error) {
    EXPECT_THAT(error.faults(), SizeIs(20));
    EXPECT_EQ(error.unlisted(), 5);
    EXPECT_TRUE(std::string(error.what())
                    .ends_with("\nline 20, column 2: x is \"a\", but must be a number of points\nand 5 more"))
        << error.what();
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
