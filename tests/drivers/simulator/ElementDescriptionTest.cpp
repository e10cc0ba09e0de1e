#include "drivers/simulator/ElementDescription.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Queries.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "tests/drivers/simulator/DescriptionReader.h"

namespace quobrak::simulator {
namespace {

using quobrak::testing::DescribedElement;
using quobrak::testing::isPlain;
using quobrak::testing::readings;
using quobrak::testing::subtreeLines;
using ::testing::SizeIs;

constexpr Size SCREEN{100, 200};
constexpr int PROCESS = 101;
const XCUIApplication APP("com.example.test");

class NoteHandle final : public ElementHandle {
 public:
  std::string description() const override { return "the note"; }
};

std::string descriptionOf(const Element& page, const XCUIElement& element) {
  const QueryEvaluator queries([](const Element&) { return true; });
  return debugDescription(element, queries.stages(element, page), PROCESS);
}

/// The line of an element in the description of its application.
std::string lineOf(const std::string& element) {
  const std::unique_ptr<Element> page = readPageSource("<Application>" + element + "</Application>", SCREEN);
  const std::string text = descriptionOf(*page, APP);
  constexpr std::string_view BEFORE = "pid: 101\n    ";
  const std::size_t begin = text.find(BEFORE, text.find("subtree")) + BEFORE.size();
  return text.substr(begin, text.find("Path to element:") - begin);
}

TEST(ElementDescription, OfAnApplication) {
  const std::unique_ptr<Element> page = readPageSource(R"(
<Application label="Test" x="0" y="0" width="100" height="200">
  <Window x="0" y="0" width="100" height="200">
    <Other x="0" y="0" width="100" height="119.66">
      <Button name="ok" label="OK" x="-0.01" y="20" width="30" height="40"/>
    </Other>
    <StaticText label="Lamp" value="Lamp" x="inf" y="0" width="1" height="1"/>
  </Window>
  <Window/>
</Application>)",
                                                       SCREEN);
  EXPECT_EQ(descriptionOf(*page, APP), R"(Attributes: Application, 0x100000000, pid: 101, label: 'Test'
Element subtree:
 →Application, 0x100000000, pid: 101, label: 'Test'
    Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}
      Other, 0x100000080, {{0.0, 0.0}, {100.0, 119.7}}
        Button, 0x1000000c0, {{-0.0, 20.0}, {30.0, 40.0}}, identifier: 'ok', label: 'OK'
      StaticText, 0x100000100, {{inf, 0.0}, {1.0, 1.0}}, label: 'Lamp'
    Window, 0x100000140, {{0.0, 0.0}, {0.0, 0.0}}
Path to element:
 →Application, 0x100000000, pid: 101, label: 'Test'
Query chain:
 →Find: Application 'com.example.test'
  Output: {
    Application, 0x100000000, pid: 101, label: 'Test'
  }

)");
}

TEST(ElementDescription, OfAnElementWithinAnApplication) {
  const std::unique_ptr<Element> page = readPageSource(
      R"(<Application label=" "><Window><Cell name="row"><Button label="OK"/></Cell></Window></Application>)", SCREEN);
  EXPECT_EQ(descriptionOf(*page, APP.descendants(ElementType::any).elementBoundBy(1)),
            R"(Attributes: Cell, 0x100000080, {{0.0, 0.0}, {0.0, 0.0}}, identifier: 'row'
Element subtree:
 →Cell, 0x100000080, {{0.0, 0.0}, {0.0, 0.0}}, identifier: 'row'
    Button, 0x1000000c0, {{0.0, 0.0}, {0.0, 0.0}}, label: 'OK'
Path to element:
 →Application, 0x100000000, pid: 101, label: ' '
  ↳Window (Main), 0x100000040, {{0.0, 0.0}, {0.0, 0.0}}
   ↳Cell, 0x100000080, {{0.0, 0.0}, {0.0, 0.0}}, identifier: 'row'
Query chain:
 →Find: Application 'com.example.test'
  Output: {
    Application, 0x100000000, pid: 101, label: ' '
  }
  ↪︎Find: Descendants matching type Any
    Output: {
      Window (Main), 0x100000040, {{0.0, 0.0}, {0.0, 0.0}}
      Cell, 0x100000080, {{0.0, 0.0}, {0.0, 0.0}}, identifier: 'row'
      Button, 0x1000000c0, {{0.0, 0.0}, {0.0, 0.0}}, label: 'OK'
    }
    ↪︎Find: Element at index 1
      Output: {
        Cell, 0x100000080, {{0.0, 0.0}, {0.0, 0.0}}, identifier: 'row'
      }

)");
}

TEST(ElementDescription, AttributesOfALine) {
  struct Row {
    std::string element;
    std::string_view line;
  };
  const Row ROWS[] = {
      {R"(<Other/>)", ""},
      {R"(<Cell identifier="en-US" label="English" value="iPhone Language"/>)",
       ", identifier: 'en-US', label: 'English', value: iPhone Language"},
      {R"(<Button label="I'm" value=""/>)", ", label: 'I'm'"},
      {R"(<Button label="'Green Gem'"/>)", ", label: ''Green Gem''"},
      {R"(<Button label="one&#10;two"/>)", ", label: 'one\ntwo'"},
      {R"(<SearchField label="Search" placeholderValue="Find"/>)", ", label: 'Search', placeholderValue: 'Find'"},
      {R"(<TextField placeholderValue="Username" value="Ada"/>)", ", placeholderValue: 'Username', value: Ada"},
      {R"(<Button label="Alive" selected="true"/>)", ", label: 'Alive', Selected"},
      {R"(<Button label="chevron" enabled="false"/>)", ", label: 'chevron', Disabled"},
      {R"(<Switch value="1" selected="true" enabled="false"/>)", ", value: 1, Selected, Disabled"},
  };
  for (const auto& [element, line] : ROWS) {
    const std::string type = element.substr(1, element.find_first_of(" /") - 1);
    EXPECT_EQ(lineOf(element), type + ", 0x100000040, {{0.0, 0.0}, {0.0, 0.0}}" + std::string(line) + "\n") << element;
  }
}

TEST(ElementDescription, TheKeyboardsFocusComesBeforeTheOtherFlags) {
  Element field(ElementType::textField);
  field.placeholder = "Username";
  field.value = "Ada";
  field.hasKeyboardFocus = true;
  field.isSelected = true;
  field.isEnabled = false;
  const std::string text = descriptionOf(field, APP);
  EXPECT_EQ(text.substr(0, text.find('\n')),
            "Attributes: TextField, 0x100000000, {{0.0, 0.0}, {0.0, 0.0}}, placeholderValue: 'Username', value: Ada, "
            "Keyboard Focused, Selected, Disabled");
}

TEST(ElementDescription, TheFirstWindowIsTheMainOneWhateverComesBeforeIt) {
  EXPECT_EQ(lineOf("<Other/><Window><Window/></Window><Window/>"),
            "Other, 0x100000040, {{0.0, 0.0}, {0.0, 0.0}}\n"
            "    Window (Main), 0x100000080, {{0.0, 0.0}, {0.0, 0.0}}\n"
            "      Window, 0x1000000c0, {{0.0, 0.0}, {0.0, 0.0}}\n"
            "    Window, 0x100000100, {{0.0, 0.0}, {0.0, 0.0}}\n");
}

// Tools that read the platform's descriptions.

TEST(ElementDescription, LinesOfThePlatformAreReadAsTheyAreMeant) {
  struct Row {
    std::string line;
    DescribedElement element;
  };
  const auto described = [](const std::string& type, auto change) {
    DescribedElement element{.depth = 3,
                             .type = type,
                             .isMain = false,
                             .address = "0x118212bc0",
                             .processIdentifier = {},
                             .frame = "{{16.0, 119.7}, {133.0, 40.7}}",
                             .identifier = {},
                             .label = {},
                             .title = {},
                             .placeholder = {},
                             .value = {}};
    change(element);
    return element;
  };
  const auto line = [](const std::string& type, const std::string& rest) {
    return "        " + type + ", 0x118212bc0, {{16.0, 119.7}, {133.0, 40.7}}" + rest;
  };
  const Row ROWS[] = {
      {line("Other", ""), described("Other", [](DescribedElement&) {})},
      {line("Window (Main)", ""), described("Window", [](DescribedElement& element) { element.isMain = true; })},
      {line("Other", ", label: 'Vertical scroll bar, 43 pages', value: 0%"),
       described("Other",
                 [](DescribedElement& element) {
                   element.label = "Vertical scroll bar, 43 pages";
                   element.value = "0%";
                 })},
      {line("Cell", ", identifier: 'en-US', label: 'English', value: iPhone Language"),
       described("Cell",
                 [](DescribedElement& element) {
                   element.identifier = "en-US";
                   element.label = "English";
                   element.value = "iPhone Language";
                 })},
      {line("StaticText", ", label: 'Indian Laurel Fig Tree 'Green Gem''"),
       described("StaticText",
                 [](DescribedElement& element) { element.label = "Indian Laurel Fig Tree 'Green Gem'"; })},
      {line("TextField", ", placeholderValue: 'Username', value: Username, Keyboard Focused"),
       described("TextField",
                 [](DescribedElement& element) {
                   element.placeholder = "Username";
                   element.value = "Username";
                   element.hasKeyboardFocus = true;
                 })},
      {line("Button", ", Keyboard Focused, Disabled"), described("Button",
                                                                 [](DescribedElement& element) {
                                                                   element.hasKeyboardFocus = true;
                                                                   element.isEnabled = false;
                                                                 })},
      {line("Button", ", title: 'My Book', Focused"), described("Button",
                                                                [](DescribedElement& element) {
                                                                  element.title = "My Book";
                                                                  element.hasFocus = true;
                                                                })},
      {line("Button", ", label: 'Alive', Selected"), described("Button",
                                                               [](DescribedElement& element) {
                                                                 element.label = "Alive";
                                                                 element.isSelected = true;
                                                               })},
  };
  for (const auto& [text, element] : ROWS) {
    const auto found = readings(text);
    ASSERT_FALSE(found.empty()) << text;
    EXPECT_EQ(found.front(), element) << text;
  }
  for (const std::string& broken :
       {std::string("Other, 0x1, {{0.0, 0.0}, {1.0, 1.0}}"), line("Knob", ""), line("Other", " "),
        line("Other", ", label: ''"), line("Other", ", value: "), line("Other", ", label: 'a"),
        line("Other", ", Disabled, Selected"), std::string("    Other, 0x1, {{0, 0}, {1, 1}}")}) {
    EXPECT_THAT(readings(broken), SizeIs(0)) << broken;
  }
}

/// As the C library writes it.
std::string frameText(const Rect& frame) {
  std::array<char, 2000> text{};
  const int length = std::snprintf(text.data(), text.size(), "{{%.1f, %.1f}, {%.1f, %.1f}}", frame.origin.x,
                                   frame.origin.y, frame.size.width, frame.size.height);
  return {text.data(), static_cast<std::size_t>(length)};
}

/// What the lines of the element and of all below it have to say.
void appendExpected(const Element& element, std::size_t depth, std::vector<DescribedElement>& expected) {
  const bool isApplication = element.type == ElementType::application;
  const auto isWindow = [](const auto& sibling) { return sibling->type == ElementType::window; };
  const Element* const parent = element.parent();
  const bool isMain = parent != nullptr && parent->type == ElementType::application &&
                      element.type == ElementType::window &&
                      std::find_if(parent->children().begin(), parent->children().end(), isWindow)->get() == &element;
  std::array<char, 24> address{};
  std::snprintf(address.data(), address.size(), "0x%zx", std::size_t{0x100000000} + 0x40 * expected.size());
  expected.push_back({.depth = depth,
                      .type = std::string(nameOf(element.type)),
                      .isMain = isMain,
                      .address = address.data(),
                      .processIdentifier = isApplication ? std::optional(PROCESS) : std::nullopt,
                      .frame = isApplication ? "" : frameText(element.frame),
                      .identifier = element.identifier,
                      .label = element.label,
                      .title = "",
                      .placeholder = element.placeholder.value_or(""),
                      .value = element.value.value_or(""),
                      .hasKeyboardFocus = element.hasKeyboardFocus,
                      .hasFocus = false,
                      .isSelected = element.isSelected,
                      .isEnabled = element.isEnabled});
  for (const auto& child : element.children()) {
    appendExpected(*child, depth + 1, expected);
  }
}

/// Checks that each line of the description of an application can mean its element, and is taken for that where the
/// element's texts are plain; answers how many have such texts.
std::size_t expectReadable(const Element& application, const std::string& name) {
  std::vector<DescribedElement> expected;
  appendExpected(application, 0, expected);
  const std::vector<std::string> lines = subtreeLines(descriptionOf(application, APP));
  EXPECT_EQ(lines.size(), expected.size()) << name;
  std::size_t plain = 0;
  for (std::size_t place = 0; place < std::min(lines.size(), expected.size()); ++place) {
    const auto found = readings(lines[place]);
    const auto meant = std::find(found.begin(), found.end(), expected[place]);
    EXPECT_TRUE(meant != found.end()) << name << ": " << lines[place];
    if (isPlain(expected[place])) {
      EXPECT_TRUE(meant == found.begin()) << name << ": " << lines[place];
      ++plain;
    }
  }
  return plain;
}

class TreeGenerator {
 public:
  explicit TreeGenerator(unsigned seed) : generator_(seed) {}

  std::unique_ptr<Element> tree(std::size_t elements) {
    auto application = std::make_unique<Element>(ElementType::application);
    std::vector<Element*> parents{application.get()};
    for (std::size_t count = 1; count < elements; ++count) {
      Element& element = parents[below(parents.size())]->append(static_cast<ElementType>(below(TYPES)));
      fill(element);
      parents.push_back(&element);
    }
    return application;
  }

 private:
  static constexpr std::size_t TYPES = static_cast<std::size_t>(ElementType::statusItem) + 1;

  void fill(Element& element) {
    element.frame = {{number(), number()}, {number(), number()}};
    element.identifier = text();
    element.label = text();
    if (below(4) == 0) {
      element.placeholder = text();
    }
    if (below(3) == 0) {
      element.value = text();
    }
    element.hasKeyboardFocus = below(8) == 0;
    element.isSelected = below(8) == 0;
    element.isEnabled = below(8) != 0;
  }

  double number() {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    constexpr double LARGEST = std::numeric_limits<double>::max();
    constexpr double NUMBERS[] = {0,     -0.0,     1,   402,      874,       119.66,  0.05, -0.01,
                                  -20.5, INFINITE, 1e9, 12345678, 1e9 - 0.5, LARGEST, -3,   0.25};
    return NUMBERS[below(std::size(NUMBERS))];
  }

  /// Of parts that look like what stands around texts.
  std::string text() {
    constexpr std::string_view PARTS[] = {"OK",
                                          "I'm",
                                          "'",
                                          "'Green Gem'",
                                          ", value: 'x'",
                                          "', value: y",
                                          "', label: 'z",
                                          "one\ntwo",
                                          ", Selected",
                                          "', Disabled",
                                          ", Focused",
                                          "日本語 🙂",
                                          "\n",
                                          ", label: '",
                                          "{{0.0, 0.0}, {1.0, 1.0}}",
                                          " "};
    std::string text;
    for (std::size_t parts = below(4); parts > 0; --parts) {
      text += PARTS[below(std::size(PARTS))];
    }
    return text;
  }

  std::size_t below(std::size_t end) { return static_cast<std::size_t>(generator_() % end); }

  std::mt19937 generator_;
};

TEST(ElementDescription, EachLineCanBeReadWhateverTheTextsSay) {
  constexpr unsigned TREES = 40;
  constexpr std::size_t ELEMENTS = 60;
  std::size_t plain = 0;
  for (unsigned seed = 1; seed <= TREES; ++seed) {
    plain += expectReadable(*TreeGenerator(seed).tree(ELEMENTS), "tree " + std::to_string(seed));
  }
  EXPECT_GT(plain, TREES * ELEMENTS / 2);
}

// Captures of real screens belong to those who made them, so they are not kept here.
TEST(ElementDescription, EachLineOfACaptureIsTakenForWhatItMeans) {
  const char* const folder = std::getenv("QUOBRAK_PAGE_SOURCES");
  if (folder == nullptr) {
    std::cout << "no captures: QUOBRAK_PAGE_SOURCES is not set\n";
    const auto page = readPageSource(R"(<Application label="Notes"><Window><Other x="16" y="119" width="1" height="2">
        <Cell name="NOTE" label="Mum's"/></Other></Window><Other label="1 page" value="0%"/></Application>)",
                                     SCREEN);
    EXPECT_EQ(expectReadable(*page, "notes"), 5);
    return;
  }
  std::size_t captures = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".xml") {
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string xml{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
      const auto page = readPageSource(xml, SCREEN);
      std::size_t elements = 1;
      forEachDescendant(*page, [&elements](const Element&) { ++elements; });
      EXPECT_EQ(expectReadable(*page, entry.path()), elements) << entry.path();
      ++captures;
    }
  }
  EXPECT_GT(captures, 0) << "there is no capture in " << folder;
}

}  // namespace
}  // namespace quobrak::simulator
