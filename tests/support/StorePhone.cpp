#include "tests/support/StorePhone.h"

#include <vector>

namespace quobrak::testing {

namespace {

constexpr int ROW_HEIGHT = 40;

std::string element(const std::string& type, const std::string& attributes, int y) {
  return "<XCUIElementType" + type + " " + attributes + " x=\"0\" y=\"" + std::to_string(y) +
         "\" width=\"100\" height=\"" + std::to_string(ROW_HEIGHT) + "\"/>";
}

std::string labelled(const std::string& label) {
  return "label=\"" + label + "\"";
}

/// Elements one below the other.
std::string screen(const std::vector<std::string>& typesAndAttributes) {
  std::string elements;
  int y = 0;
  for (const std::string& one : typesAndAttributes) {
    const std::size_t blank = one.find(' ');
    elements += element(one.substr(0, blank), one.substr(blank + 1), y);
    y += ROW_HEIGHT;
  }
  return R"(<XCUIElementTypeWindow x="0" y="0" width="100" height="200">)" + elements + "</XCUIElementTypeWindow>";
}

/// A list that is longer than the screen, with a row at its end.
std::string longList(const std::string& lastRow) {
  constexpr int ROWS = 7;
  std::string rows;
  for (int row = 0; row < ROWS; ++row) {
    rows += element("Cell", labelled("Row " + std::to_string(row)), row * ROW_HEIGHT);
  }
  return "<XCUIElementTypeTable x=\"0\" y=\"0\" width=\"100\" height=\"200\">" + rows +
         element("Cell", labelled(lastRow), ROWS * ROW_HEIGHT) + "</XCUIElementTypeTable>";
}

std::string rule(const std::string& predicate, const std::string& effect) {
  return R"({"on": "tap", "element": ")" + predicate + R"(", "do": [)" + effect + "]}";
}

std::string show(const std::string& shown) {
  return R"({"show": ")" + shown + "\"}";
}

std::string application(const std::string& bundleIdentifier, const std::string& rules) {
  return R"({"bundleIdentifier": ")" + bundleIdentifier + R"(", "name": ")" + bundleIdentifier +
         R"(", "firstScreen": "start", "rules": [)" + rules + "]}";
}

std::string settings(bool asksAboutTabs) {
  return application("com.apple.Preferences",
                     rule("label == 'Safari'", show("safari")) + "," +
                         rule("label == 'Clear History and Website Data'", show("confirm")) + "," +
                         rule("label == 'Clear History and Data'", show(asksAboutTabs ? "tabs" : "safari")) + "," +
                         rule("label == 'Close Tabs' OR identifier == 'ClearHistoryButton'", show("safari")));
}

std::string confirmation(const StorePhone& phone) {
  if (phone.isOlder) {
    return screen({"Button label=\"Clear History and Data\"", "Button label=\"Cancel\""});
  }
  return screen({"Cell label=\"Last hour\"", "Cell label=\"All history\"",
                 "Switch name=\"CloseAllTabsSwitch\" label=\"Close All Tabs\" value=\"" + phone.closeAllTabs + "\"",
                 "Button name=\"ClearHistoryButton\" label=\"Clear History\""});
}

/// The picture stands for the product, and for the download while there is one.
std::string product(const std::string& button) {
  return screen({"Image label=\"Picture\"", "Button label=\"Share\"", "Button " + labelled(button)});
}

}  // namespace

MemoryPhoneFiles filesOf(const StorePhone& phone) {
  MemoryPhoneFiles files = smallPhone("");
  files["phone.json"] =
      R"({"name": "Phone with a store", "size": {"width": 100, "height": 200}, "scale": 1, "systemVersion": "17.5",
          "volume": 50, "home": "com.apple.springboard",
          "applications": ["home", "test", "settings", "browser", "store"]})";

  files["settings/app.json"] = settings(phone.asksAboutTabs);
  files["settings/start.xml"] = longList("Safari");
  files["settings/safari.xml"] = longList("Clear History and Website Data");
  files["settings/confirm.xml"] = confirmation(phone);
  files["settings/tabs.xml"] = screen({"Button label=\"Close Tabs\"", "Button label=\"Keep Tabs\""});

  files["browser/app.json"] =
      application("com.apple.mobilesafari",
                  rule("label == 'go'", phone.hasAppStoreLink ? R"({"open": "com.apple.AppStore"})" : show("page")));
  files["browser/start.xml"] = screen({"TextField name=\"URL\" label=\"Address\"", "StaticText label=\"Favourites\""});
  files["browser/page.xml"] = screen({"TextField name=\"URL\" label=\"Address\"", "WebView label=\"Page\""});

  files["store/app.json"] =
      application("com.apple.AppStore", rule("label == 'GET'", show("confirm")) + "," +
                                            rule("label == 'Install' OR label == 're-download'", show("download")) +
                                            "," + rule("label == 'Loading'", show("installed")));
  files["store/start.xml"] = product(phone.productButton);
  // The button is at 92 percent of the height.
  files["store/confirm.xml"] =
      screen({"Image label=\"Picture\"", "StaticText label=\"App\"", "StaticText label=\"Account\"",
              "StaticText label=\"Price\"", "Button label=\"Install\""});
  files["store/download.xml"] = screen({"Image label=\"Loading\"", "Button label=\"Share\""});
  files["store/installed.xml"] = product("OPEN");
  return files;
}

}  // namespace quobrak::testing
