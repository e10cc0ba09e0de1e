#include "tests/oracles/Pages.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "tests/support/GeneratedList.h"

namespace quobrak::oracles {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LONG = 3000;

/// As servers of different ages write it, and as people do.
constexpr const char* MIXTURE = R"(<?xml version="1.0" encoding="UTF-8"?>
<AppiumAUT>
  <!-- What belongs to no element is no element. -->
  <XCUIElementTypeOther type="XCUIElementTypeOther" name="frame" label="" visible="false" x="0" y="0" width="390"
      height="844">
    <XCUIElementTypeButton name="save" label="Save" identifier="" x="0" y="0" width="100" height="44"/>
    <XCUIElementTypeButton name="Save" label="Save" identifier="toolbar.save" x="100" y="0" width="100" height="44"/>
    <XCUIElementTypeButton name="save" label="Save" enabled="false" x="200" y="0" width="100" height="44"/>
    <XCUIElementTypeButton name="Save" label="Save" enabled="" x="300" y="0" width="90" height="44"/>
    text between elements
    <XCUIElementTypeOther enabled="true" x="0" y="100" width="390" height="300">
      <XCUIElementTypeTextField name="field" label="" placeholderValue="Save as" x="0" y="100" width="390" height="44"/>
      <XCUIElementTypeTextField placeholderValue="" enabled="false" x="0" y="150" width="390" height="44"/>
      <XCUIElementTypeSecureTextField name="Kennwort" label="Kennwort" value="••••" x="0" y="200" width="390"
          height="44"></XCUIElementTypeSecureTextField>
      <XCUIElementTypeOther name="SAVE &amp; go &lt;now&gt; &quot;[a.b]*&quot; \d+$" x="0" y="250" width="390" height="9">
        <XCUIElementTypeStaticText name="Two&#10;lines&#9;and a tab" label="Two&#10;lines&#9;and a tab" x="0" y="250"/>
        <XCUIElementTypeStaticText label="two
lines" x="inf" y="inf" width="0" height="0"/>
      </XCUIElementTypeOther>
    </XCUIElementTypeOther>
    <XCUIElementTypeCell type="XCUIElementTypeCell" name="Ärger" label="ÄRGER &#x1F469;&#x1F3FD;&#x200D;&#x1F527;"
        x="0" y="400" width="390" height="44">
      <XCUIElementTypeStaticText name="ärger" label="ärger" x="0" y="400" width="100" height="44"/>
      <XCUIElementTypeStaticText name="МОСКВА москва" label="Αθήνα ΑΘΉΝΑ" x="100" y="400" width="100" height="44"/>
      <XCUIElementTypeStaticText name="漢字" label="漢字かな" enabled="false" x="200" y="400" width="100" height="44"/>
      <XCUIElementTypeStaticText name="&#xFFFC;" label="&#x200E;“Q”" x="300" y="400" width="90" height="44"/>
    </XCUIElementTypeCell>
    <XCUIElementTypeStaticText label="STRASSE Straße İ" x="0" y="450" width="390" height="20"/>
    <XCUIElementTypeOther type="XCUIElementTypeLink" label="A type other than the tag" x="0" y="470" width="9"
        height="9"/>
    <Link label="A type without its prefix" x="10" y="470" width="9" height="9"/>
    <XCUIElementTypeAny name="any" x="0" y="480" width="10" height="10"/>
    <XCUIElementTypeSwitch name="save" label="  " x="10" y="480" width="10" height="10"/>
  </XCUIElementTypeOther>
</AppiumAUT>
)";

constexpr const char* LAYERS = R"(
<XCUIElementTypeApplication label="Layers" x="0" y="0" width="402" height="874">
  <XCUIElementTypeWindow x="0" y="0" width="402" height="874">
    <XCUIElementTypeButton label="Under what is labelled" x="0" y="100" width="100" height="44"/>
    <XCUIElementTypeButton label="Half of it beside" x="301" y="100" width="200" height="44"/>
    <XCUIElementTypeOther label="Labelled" x="0" y="100" width="350" height="44"/>
    <XCUIElementTypeButton label="Under what nobody has labelled" x="0" y="200" width="100" height="44"/>
    <XCUIElementTypeOther name="a name is no label" x="0" y="200" width="402" height="44"/>
    <XCUIElementTypeScrollView x="0" y="300" width="402" height="100">
      <XCUIElementTypeTable x="0" y="350" width="402" height="300">
        <XCUIElementTypeCell label="Covered in the middle" x="0" y="350" width="402" height="100">
          <XCUIElementTypeStaticText label="In the part that is seen" x="0" y="360" width="100" height="20"/>
          <XCUIElementTypeStaticText label="In the part that is not" x="0" y="420" width="100" height="20"/>
        </XCUIElementTypeCell>
        <XCUIElementTypeCell label="Not seen" x="0" y="450" width="402" height="100"/>
      </XCUIElementTypeTable>
      <XCUIElementTypeButton label="Over the row" x="150" y="340" width="100" height="60"/>
    </XCUIElementTypeScrollView>
    <XCUIElementTypeButton label="Where the row would be" x="0" y="470" width="100" height="44"/>
    <XCUIElementTypeTable x="0" y="520" width="402" height="30">
      <XCUIElementTypeCell label="Half in its table" x="0" y="520" width="402" height="60"/>
      <XCUIElementTypeCell label="Out of its table" x="0" y="580" width="402" height="60"/>
    </XCUIElementTypeTable>
    <XCUIElementTypeButton label="Under what is called invisible" x="0" y="600" width="100" height="44"/>
    <XCUIElementTypeButton label="Called invisible" visible="false" x="0" y="600" width="100" height="44"/>
    <XCUIElementTypeButton label="At the very edge" x="402" y="600" width="100" height="44"/>
    <XCUIElementTypeButton label="Beyond the edge" x="-150" y="700" width="200" height="44"/>
  </XCUIElementTypeWindow>
  <XCUIElementTypeWindow x="0" y="0" width="402" height="874">
    <XCUIElementTypeAlert label="Behind" visible="false" x="0" y="0" width="0" height="0">
      <XCUIElementTypeButton label="Behind" visible="false" x="0" y="0" width="0" height="0"/>
    </XCUIElementTypeAlert>
  </XCUIElementTypeWindow>
</XCUIElementTypeApplication>
)";

constexpr const char* ALERT = R"(
<XCUIElementTypeApplication label="Alert" x="0" y="0" width="402" height="874">
  <XCUIElementTypeWindow x="0" y="0" width="402" height="874">
    <XCUIElementTypeButton label="Far from the alert" x="0" y="100" width="100" height="44"/>
  </XCUIElementTypeWindow>
  <XCUIElementTypeWindow x="0" y="0" width="402" height="874">
    <XCUIElementTypeAlert label="Leave?" x="66" y="350" width="270" height="160">
      <XCUIElementTypeOther x="66" y="350" width="270" height="160">
        <XCUIElementTypeScrollView x="66" y="450" width="270" height="60">
          <XCUIElementTypeButton label="Stay" x="66" y="450" width="135" height="44"/>
          <XCUIElementTypeButton label="Leave" x="201" y="450" width="135" height="44"/>
        </XCUIElementTypeScrollView>
      </XCUIElementTypeOther>
    </XCUIElementTypeAlert>
    <XCUIElementTypeButton label="In front of the alert" x="0" y="800" width="100" height="44"/>
  </XCUIElementTypeWindow>
</XCUIElementTypeApplication>
)";

bool isCapture(const fs::directory_entry& entry) {
  return entry.is_regular_file() && entry.path().extension() == ".xml";
}

Page pageIn(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  Page page{.name = file.stem().string(), .source{std::istreambuf_iterator<char>(stream), {}}};
  std::replace_if(
      page.name.begin(), page.name.end(), [](unsigned char character) { return std::isalnum(character) == 0; }, '_');
  return page;
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const Page& page) {
  return stream << page.name;
}

std::vector<Page> ownPages() {
  return {{.name = "long_list", .source = testing::generatedList(LONG)},
          {.name = "mixture", .source = MIXTURE},
          {.name = "layers", .source = LAYERS},
          {.name = "alert", .source = ALERT}};
}

std::vector<Page> capturedPages() {
  const char* const folder = std::getenv("QUOBRAK_PAGE_SOURCES");
  std::vector<Page> pages;
  if (folder == nullptr) {
    return pages;
  }
  // CTest says so where there is no such folder.
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
    if (isCapture(entry)) {
      pages.push_back(pageIn(entry.path()));
    }
  }
  std::sort(pages.begin(), pages.end(), [](const Page& one, const Page& other) { return one.name < other.name; });
  return pages;
}

}  // namespace quobrak::oracles
