#include "drivers/simulator/PhoneLoader.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string_view>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/PageSource.h"
#include "platform/foundation/JSON.h"
#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::simulator {

namespace {

using std::chrono::milliseconds;

constexpr const char* PHONE_FILE = "phone.json";
constexpr const char* APPLICATION_FILE = "app.json";

std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "\"" : ", \"") + name + "\"";
  }
  return text;
}

/// A misspelt key must not pass for one that was left out.
void requireKnownKeys(const JSONReader& object, const std::vector<std::string>& known) {
  for (const auto& [key, value] : object.members()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) {
      value.fail("unknown; what may stand here is " + listed(known));
    }
  }
}

std::int64_t integerBetween(const JSONReader& json, std::int64_t least, std::int64_t most) {
  const std::int64_t number = json.integer();
  if (number < least || number > most) {
    json.fail("must be between " + std::to_string(least) + " and " + std::to_string(most) + ", found " +
              std::to_string(number));
  }
  return number;
}

std::string nonEmptyText(const JSONReader& json) {
  std::string text = json.text();
  if (text.empty()) {
    json.fail("must not be empty");
  }
  return text;
}

milliseconds duration(const JSONReader& json) {
  constexpr std::int64_t ONE_HOUR = 3'600'000;
  return milliseconds(integerBetween(json, 0, ONE_HOUR));
}

milliseconds delay(const JSONReader& phone, std::string_view name) {
  const auto delays = phone.optionalMember("delays");
  const auto named = delays ? delays->optionalMember(name) : std::nullopt;
  return named ? duration(*named) : milliseconds(0);
}

std::map<std::string, std::string> namedTexts(const JSONReader& json) {
  std::map<std::string, std::string> texts;
  for (const auto& [name, text] : json.members()) {
    texts.emplace(name, text.text());
  }
  return texts;
}

/// Reads the one JSON file of a folder; a fault in it is told with the file's name.
template <class Read>
auto readJSON(const PhoneFiles& files, const std::string& path, Read read) {
  const std::optional<std::string> text = files.read(path);
  if (!text) {
    throw PhoneDescriptionError(files.nameOf(path) + ": the file is missing or cannot be read");
  }
  try {
    const JSONValue document = JSONDecoder::decode(*text);
    return read(JSONReader(document));
  } catch (const DecodingError& error) {
    throw PhoneDescriptionError(files.nameOf(path) + ": " + error.what());
  }
}

class ApplicationReader {
 public:
  ApplicationReader(const PhoneFiles& files, std::string folder, Size screen)
      : files_(files), folder_(std::move(folder)), screen_(screen) {}

  ApplicationDescription read(const JSONReader& json) {
    requireKnownKeys(json, {"bundleIdentifier", "name", "launchTime", "firstScreen", "rules"});
    application_.bundleIdentifier = nonEmptyText(json.member("bundleIdentifier"));
    application_.name = nonEmptyText(json.member("name"));
    if (const auto launchTime = json.optionalMember("launchTime")) {
      application_.launchTime = duration(*launchTime);
    }
    application_.firstScreen = screen(json.member("firstScreen"));
    if (const auto rules = json.optionalMember("rules")) {
      for (const JSONReader& rule : rules->elements()) {
        application_.rules.push_back(readRule(rule));
      }
    }
    return std::move(application_);
  }

 private:
  /// The name of a screen, which is loaded when it is first named.
  std::string screen(const JSONReader& json) {
    std::string name = nonEmptyText(json);
    if (!application_.screens.contains(name)) {
      const std::string path = folder_ + "/" + name + ".xml";
      const std::optional<std::string> xml = files_.read(path);
      if (!xml) {
        json.fail("there is no screen \"" + name + "\": " + files_.nameOf(path) + " is missing or cannot be read");
      }
      application_.screens.emplace(name, readScreen(path, *xml));
    }
    return name;
  }

  std::unique_ptr<Element> readScreen(const std::string& path, const std::string& xml) const {
    try {
      return readPageSource(xml, screen_);
    } catch (const PageSourceError& error) {
      throw PhoneDescriptionError(files_.nameOf(path) + ": " + error.what());
    }
  }

  Rule readRule(const JSONReader& json) {
    requireKnownKeys(json, {"on", "element", "when", "do"});
    Rule rule{.event = readEvent(json.member("on")), .element = {}, .condition = {}, .effects = {}};
    if (rule.event == RuleEvent::tap) {
      rule.element.emplace(readPredicate(json.member("element")));
    } else if (const auto element = json.optionalMember("element")) {
      element->fail("a launch has no element");
    }
    if (const auto condition = json.optionalMember("when")) {
      rule.condition = namedTexts(*condition);
    }
    for (const JSONReader& effect : json.member("do").elements()) {
      rule.effects.push_back(readEffect(effect));
    }
    return rule;
  }

  static RuleEvent readEvent(const JSONReader& json) {
    const std::string name = json.text();
    if (name != "launch" && name != "tap") {
      json.fail("must be \"launch\" or \"tap\", found \"" + name + "\"");
    }
    return name == "launch" ? RuleEvent::launch : RuleEvent::tap;
  }

  static PredicateEvaluator readPredicate(const JSONReader& json) {
    try {
      const NSPredicate predicate(json.text());
      requireKnownAttributes(predicate);
      return PredicateEvaluator(predicate);
    } catch (const PredicateFormatError& error) {
      json.fail(error.what());
    } catch (const RegularExpressionError& error) {
      json.fail(error.what());
    } catch (const UnknownAttributeError& error) {
      json.fail(error.what());
    }
  }

  Effect readEffect(const JSONReader& json) {
    const auto members = json.members();
    if (members.empty()) {
      json.fail("expected an effect: \"show\", \"set\", \"askPermission\", \"alert\" or \"open\"");
    }
    if (const auto shown = json.optionalMember("show")) {
      requireKnownKeys(json, {"show"});
      return ShowScreen{screen(*shown)};
    }
    if (const auto set = json.optionalMember("set")) {
      requireKnownKeys(json, {"set"});
      return readSetValue(*set);
    }
    if (const auto permission = json.optionalMember("askPermission")) {
      requireKnownKeys(json, {"askPermission", "message", "answer"});
      return readPermission(json, *permission);
    }
    if (const auto alert = json.optionalMember("alert")) {
      requireKnownKeys(json, {"alert", "answer"});
      return RaiseAlert{readAlert(*alert), textOr(json, "answer")};
    }
    requireKnownKeys(json, {"show", "set", "askPermission", "alert", "open"});
    return OpenApplication{nonEmptyText(json.member("open"))};
  }

  static std::string textOr(const JSONReader& json, std::string_view key) {
    const auto member = json.optionalMember(key);
    return member ? member->text() : "";
  }

  static Effect readSetValue(const JSONReader& json) {
    const auto texts = namedTexts(json);
    if (texts.size() != 1) {
      json.fail("expected one named value, found " + std::to_string(texts.size()));
    }
    return SetValue{texts.begin()->first, texts.begin()->second};
  }

  Effect readPermission(const JSONReader& json, const JSONReader& permission) const {
    std::optional<AlertText> alert = permissionAlert(permission.text(), application_.name);
    if (!alert) {
      permission.fail("must be one of " + knownPermissions() + ", found \"" + permission.text() + "\"");
    }
    if (const auto message = json.optionalMember("message")) {
      alert->message = message->text();
    }
    return RaiseAlert{*std::move(alert), textOr(json, "answer")};
  }

  static AlertText readAlert(const JSONReader& json) {
    requireKnownKeys(json, {"title", "message", "buttons"});
    AlertText alert{.title = nonEmptyText(json.member("title")), .message = textOr(json, "message"), .buttons = {}};
    const JSONReader buttons = json.member("buttons");
    for (const JSONReader& button : buttons.elements()) {
      alert.buttons.push_back(nonEmptyText(button));
    }
    if (alert.buttons.empty()) {
      buttons.fail("an alert without a button could never be answered");
    }
    return alert;
  }

  const PhoneFiles& files_;
  std::string folder_;
  Size screen_;
  ApplicationDescription application_;
};

Size readSize(const JSONReader& json) {
  constexpr std::int64_t LARGEST = 4000;
  requireKnownKeys(json, {"width", "height"});
  return {static_cast<double>(integerBetween(json.member("width"), 1, LARGEST)),
          static_cast<double>(integerBetween(json.member("height"), 1, LARGEST))};
}

void readApplications(const PhoneFiles& files, const JSONReader& json, PhoneDescription& phone) {
  for (const JSONReader& entry : json.elements()) {
    const std::string folder = nonEmptyText(entry);
    ApplicationReader reader(files, folder, phone.size);
    ApplicationDescription application =
        readJSON(files, folder + "/" + APPLICATION_FILE,
                 [&reader](const JSONReader& document) { return reader.read(document); });
    const std::string bundleIdentifier = application.bundleIdentifier;
    if (!phone.applications.emplace(bundleIdentifier, std::move(application)).second) {
      entry.fail("another application has the bundle identifier \"" + bundleIdentifier + "\" too");
    }
  }
  if (phone.applications.empty()) {
    json.fail("must hold the application that shows the home screen");
  }
}

void requireApplication(const PhoneDescription& phone, const std::string& bundleIdentifier,
                        const std::function<void(const std::string&)>& fail) {
  if (phone.applications.contains(bundleIdentifier)) {
    return;
  }
  std::vector<std::string> known;
  for (const auto& [identifier, application] : phone.applications) {
    known.push_back(identifier);
  }
  fail("no application has the bundle identifier \"" + bundleIdentifier + "\"; there are " + listed(known));
}

/// Rules may name applications that are read later, so this comes last.
void requireOpenedApplications(const PhoneFiles& files, const PhoneDescription& phone) {
  for (const auto& entry : phone.applications) {
    for (const Rule& rule : entry.second.rules) {
      for (const Effect& effect : rule.effects) {
        if (const auto* const open = std::get_if<OpenApplication>(&effect)) {
          requireApplication(phone, open->bundleIdentifier, [&](const std::string& reason) {
            throw PhoneDescriptionError(files.nameOf(PHONE_FILE) + ": a rule of \"" + entry.first +
                                        "\" opens what is not there: " + reason);
          });
        }
      }
    }
  }
}

PhoneDescription readPhone(const PhoneFiles& files, const JSONReader& json) {
  constexpr std::int64_t LARGEST_SCALE = 4;
  constexpr std::int64_t FULL = 100;
  requireKnownKeys(json, {"name", "size", "scale", "systemVersion", "volume", "delays", "home", "applications"});
  PhoneDescription phone;
  phone.name = nonEmptyText(json.member("name"));
  phone.size = readSize(json.member("size"));
  phone.scale = static_cast<double>(integerBetween(json.member("scale"), 1, LARGEST_SCALE));
  phone.systemVersion = nonEmptyText(json.member("systemVersion"));
  phone.volume = static_cast<int>(integerBetween(json.member("volume"), 0, FULL));
  if (const auto delays = json.optionalMember("delays")) {
    requireKnownKeys(*delays, {"touch", "button", "scroll"});
  }
  phone.touchDelay = delay(json, "touch");
  phone.buttonDelay = delay(json, "button");
  phone.scrollDelay = delay(json, "scroll");
  readApplications(files, json.member("applications"), phone);
  const JSONReader home = json.member("home");
  phone.home = home.text();
  requireApplication(phone, phone.home, [&home](const std::string& reason) { home.fail(reason); });
  return phone;
}

}  // namespace

PhoneDescription loadPhone(const PhoneFiles& files) {
  PhoneDescription phone =
      readJSON(files, PHONE_FILE, [&files](const JSONReader& json) { return readPhone(files, json); });
  requireOpenedApplications(files, phone);
  return phone;
}

}  // namespace quobrak::simulator
