#include "phoneserver/DeviceRoutes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "drivers/simulator/ElementDescription.h"
#include "drivers/simulator/Queries.h"
#include "phoneserver/JsonSource.h"
#include "phoneserver/Lists.h"
#include "phoneserver/PageSourceWriter.h"
#include "phoneserver/Targets.h"
#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;
using Binding = ServedPhone::Binding;

namespace {

JSONValue screenshot(ServedPhone& served, const Call&) {
  return served.screenshot();
}

JSONValue::Object sizeOf(const ServedPhone& served) {
  const Size& size = served.phone().description().size;
  // A phone is described in whole points.
  return {{"width", static_cast<std::int64_t>(size.width)}, {"height", static_cast<std::int64_t>(size.height)}};
}

JSONValue windowSize(ServedPhone& served, const Call&) {
  return sizeOf(served);
}

JSONValue windowRect(ServedPhone& served, const Call&) {
  JSONValue::Object rect = sizeOf(served);
  rect.emplace("x", 0);
  rect.emplace("y", 0);
  return rect;
}

/// Each child of the application on its own, as a query of its type and position finds it.
std::string description(const ServedPhone& served, const std::string& bundleIdentifier) {
  const Element& screen = served.screenOf(bundleIdentifier);
  const simulator::QueryEvaluator queries([&served](const Element& element) { return served.isHittable(element); });
  std::string text;
  for (const auto& child : screen.children()) {
    const XCUIElementQuery ofItsType =
        XCUIElementQuery(ApplicationRoot{bundleIdentifier}).appending(DescendantsStep{child->type});
    const auto all = queries.elements(ofItsType, screen);
    const auto place = std::find(all.begin(), all.end(), child.get());
    const XCUIElement element = ofItsType.elementBoundBy(static_cast<std::size_t>(place - all.begin()));
    text += (text.empty() ? "" : "\n\n") +
            simulator::debugDescription(element, queries.stages(element, screen),
                                        served.phone().running(bundleIdentifier)->processIdentifier);
  }
  return text;
}

template <Binding BINDING>
JSONValue source(ServedPhone& served, const Call& call) {
  const auto value = [&call](const std::string& name, const std::string& otherwise) {
    const auto found = call.query.find(name);
    return found == call.query.end() ? otherwise : found->second;
  };
  const std::string format = value("format", "xml");
  const std::vector<std::string> excluded = commaSeparated(value("excluded_attributes", ""));
  const std::string application = served.activeApplication(BINDING);
  const SearchScope scope = scopeOf(served, served.screenOf(application));
  if (format == "xml") {
    return pageSource(scope, excluded);
  }
  if (format == "json") {
    return jsonSource(scope, excluded);
  }
  if (format == "description") {
    return description(served, application);
  }
  throw WireError(WireErrorCode::invalidArgument,
                  "there is no source format \"" + format + "\"; there are xml, json and description");
}

JSONValue orientation(ServedPhone&, const Call&) {
  return "PORTRAIT";
}

JSONValue setOrientation(ServedPhone&, const Call& call) {
  const std::string wanted = call.arguments.text("orientation");
  if (wanted != "PORTRAIT") {
    throw WireError(WireErrorCode::unsupportedOperation,
                    "this phone is always upright (PORTRAIT) and cannot be turned to " + wanted);
  }
  return {};
}

struct ButtonRow {
  std::string_view name;
  void (*press)(simulator::Phone& phone);
};

constexpr int ONE_STEP = 1;

const std::array BUTTONS{
    ButtonRow{"home", [](simulator::Phone& phone) { phone.pressHome(); }},
    ButtonRow{"volumeup", [](simulator::Phone& phone) { phone.changeVolume(ONE_STEP); }},
    ButtonRow{"volumedown", [](simulator::Phone& phone) { phone.changeVolume(-ONE_STEP); }},
};

std::string lowercased(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
  });
  return text;
}

JSONValue pressButton(ServedPhone& served, const Call& call) {
  const std::string name = call.arguments.text("name");
  const auto button =
      std::find_if(BUTTONS.begin(), BUTTONS.end(), [&](const ButtonRow& row) { return row.name == lowercased(name); });
  if (button == BUTTONS.end()) {
    throw WireError(WireErrorCode::unknownError,
                    "the phone has no button \"" + name + "\"; it has home, volumeup and volumedown");
  }
  button->press(served.phone());
  return {};
}

JSONValue isLocked(ServedPhone&, const Call&) {
  return false;
}

JSONValue lock(ServedPhone&, const Call&) {
  throw WireError(WireErrorCode::unsupportedOperation, "this phone has no lock screen");
}

/// It is never locked.
JSONValue unlock(ServedPhone&, const Call&) {
  return {};
}

JSONValue screen(ServedPhone& served, const Call&) {
  double statusBarHeight = 0;
  forEachDescendant(served.activeScreen(), [&statusBarHeight](const Element& element) {
    if (element.type == ElementType::statusBar) {
      statusBarHeight = element.frame.size.height;
    }
  });
  const JSONValue width = static_cast<std::int64_t>(served.phone().description().size.width);
  return JSONValue::Object{{"statusBarSize", JSONValue::Object{{"width", width}, {"height", statusBarHeight}}},
                           {"screenSize", sizeOf(served)},
                           {"scale", served.phone().description().scale}};
}

JSONValue battery(ServedPhone&, const Call&) {
  constexpr int FULL = 3;
  return JSONValue::Object{{"level", 1}, {"state", FULL}};
}

JSONValue deviceInfo(ServedPhone& served, const Call&) {
  constexpr int PHONE_IDIOM = 0;
  return JSONValue::Object{{"currentLocale", "en_US"},
                           {"timeZone", "UTC"},
                           {"name", served.phone().description().name},
                           {"model", "iPhone"},
                           {"uuid", "00000000-0000-0000-0000-000000000000"},
                           {"userInterfaceIdiom", PHONE_IDIOM},
                           {"userInterfaceStyle", "light"},
                           {"isSimulator", true}};
}

JSONValue healthcheck(ServedPhone&, const Call&) {
  return {};
}

/// The value of the reply; the program that runs the server ends it.
JSONValue shutdown(ServedPhone&, const Call&) {
  return {};
}

constexpr Route ROUTES[] = {
    {"GET", "/screenshot", SessionNeed::session, screenshot},
    {"GET", "/screenshot", SessionNeed::none, screenshot},
    {"GET", "/source", SessionNeed::session, source<Binding::toSession>},
    {"GET", "/source", SessionNeed::none, source<Binding::none>},
    {"GET", "/window/size", SessionNeed::session, windowSize},
    {"GET", "/window/size", SessionNeed::none, windowSize},
    {"GET", "/window/rect", SessionNeed::session, windowRect},
    {"GET", "/orientation", SessionNeed::session, orientation},
    {"POST", "/orientation", SessionNeed::session, setOrientation},
    {"POST", "/wda/pressButton", SessionNeed::session, pressButton},
    {"GET", "/wda/locked", SessionNeed::session, isLocked},
    {"GET", "/wda/locked", SessionNeed::none, isLocked},
    {"POST", "/wda/lock", SessionNeed::session, lock},
    {"POST", "/wda/lock", SessionNeed::none, lock},
    {"POST", "/wda/unlock", SessionNeed::session, unlock},
    {"POST", "/wda/unlock", SessionNeed::none, unlock},
    {"GET", "/wda/screen", SessionNeed::session, screen},
    {"GET", "/wda/screen", SessionNeed::none, screen},
    {"GET", "/wda/batteryInfo", SessionNeed::session, battery},
    {"GET", "/wda/device/info", SessionNeed::session, deviceInfo},
    {"GET", "/wda/device/info", SessionNeed::none, deviceInfo},
    {"GET", "/wda/healthcheck", SessionNeed::none, healthcheck},
    {"GET", "/wda/shutdown", SessionNeed::none, shutdown},
};

}  // namespace

std::span<const Route> deviceRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
