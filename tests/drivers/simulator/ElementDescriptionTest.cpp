#include "drivers/simulator/ElementDescription.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Queries.h"
#include "platform/uiautomation/XCUIApplication.h"

namespace quobrak::simulator {
namespace {

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

}  // namespace
}  // namespace quobrak::simulator
