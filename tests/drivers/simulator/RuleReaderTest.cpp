#include "drivers/simulator/RuleReader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/ScreenChanges.h"
#include "platform/foundation/TextPlace.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::simulator {
namespace {

using quobrak::testing::MemoryPhoneFiles;

using Texts = std::map<std::string, std::string, std::less<>>;

/// What stands before a rule in its file: lines, and characters of several bytes.
constexpr std::string_view BEFORE = "\n[\"größe 🙂\",\n \"ü\", ";

/// In the description of a faulty rule the sign before what has a fault.
constexpr char MARK = '@';

/// A rule that was read, with the file that it refers to.
class ReadRule {
 public:
  /// The application has screens "start" and "two", and a page "toast" to insert; "com.example.other" is installed.
  /// Some values begin as numbers.
  explicit ReadRule(const std::string& json, bool opensAddresses = true)
      : files_({{"app.json", std::string(BEFORE) + json + "]"}}),
        file_(files_, "app.json", faults_),
        values_({{"pace", "250"}, {"fast", "9"}, {"slow", "3600001"}, {"word", "soon"}, {"ten", "10"}}),
        references_{
            .applicationName = "Shop",
            .opensAddresses = opensAddresses,
            .values = values_,
            .requireScreen =
                [](const JSONReader& at, const std::string& name) {
                  require({"start", "two"}, at, name);
                },
            .requireFragment = [](const JSONReader& at, const std::string& name) { require({"toast"}, at, name); },
            .requireApplication = [](const JSONReader& at,
                                     const std::string& name) { require({"com.example.other"}, at, name); }} {
    if (!file_.content()) {
      return;
    }
    file_.attempt([this] {
      RuleReader reader(file_, references_);
      rule_ = std::make_unique<Rule>(reader.read(file_.content()->elements().at(2)));
    });
  }

  const Rule& rule() const { return *rule_; }
  std::string faults() const { return faults_.text(); }

 private:
  static void require(const std::set<std::string>& known, const JSONReader& at, const std::string& name) {
    if (!known.contains(name)) {
      at.fail("there is no " + name);
    }
  }

  MemoryPhoneFiles files_;
  DescriptionFaults faults_;
  DescriptionFile file_;
  NamedValues values_;
  RuleReferences references_;
  std::unique_ptr<Rule> rule_;
};

// What was read, in words. Of a predicate that is how an element with the identifier "it" and the label "full", or
// named values with these keys, answer it.

std::string wordOf(bool answer) {
  return answer ? "yes" : "no";
}

std::string answerOf(const PredicateEvaluator& predicate) {
  Element element(ElementType::button);
  element.identifier = "it";
  element.label = "full";
  return wordOf(matches(element, predicate));
}

std::string answerOfValues(const PredicateEvaluator& predicate) {
  return wordOf(predicate.evaluate(NamedValues(Texts{{"basket", "full"}, {"user", "Ada"}})));
}

std::string textOf(const TextTemplate& text) {
  return "'" + text.expand(NamedValues(Texts{{"v", "V"}})) + "'";
}

std::string textOf(const RuleDuration& duration) {
  const auto* const name = std::get_if<std::string>(&duration);
  return name == nullptr ? std::to_string(std::get<std::chrono::milliseconds>(duration).count()) : *name;
}

std::string textOf(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

template <class Value, class Describe>
std::string named(std::string_view name, const std::optional<Value>& value, const Describe& describe) {
  return value ? " " + std::string(name) + "=" + describe(*value) : "";
}

std::string listOf(std::string_view name, const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() ? " " + std::string(name) + "=" : ",") + text;
  }
  return list;
}

std::string textOf(const std::vector<Effect>& effects);

struct EffectInWords {
  std::string operator()(const ShowScreen& effect) const { return "show " + effect.screen; }

  std::string operator()(const SetValues& effect) const {
    std::string text = "set";
    for (const auto& [name, source] : effect.texts) {
      const auto* const copied = std::get_if<ElementText>(&source);
      text += " " + name + "=" +
              (copied == nullptr ? textOf(std::get<TextTemplate>(source))
                                 : copied->attribute + named("of", copied->element, answerOf));
    }
    return text;
  }

  std::string operator()(const AddToValues& effect) const {
    std::string text = "add";
    for (const auto& [name, amount] : effect.amounts) {
      text += " " + name + "=" + std::to_string(amount);
    }
    return text;
  }

  std::string operator()(const ChangeElements& effect) const {
    const auto ofText = [](const AttributeText& text) { return text.text ? textOf(*text.text) : "none"; };
    const auto ofNumber = [](double number) { return textOf(number); };
    return "change " + answerOf(effect.elements) + named("label", effect.label, ofText) +
           named("identifier", effect.identifier, ofText) + named("value", effect.value, ofText) +
           named("placeholder", effect.placeholder, ofText) + named("enabled", effect.isEnabled, wordOf) +
           named("selected", effect.isSelected, wordOf) + named("visible", effect.isVisible, wordOf) +
           named("x", effect.x, ofNumber) + named("y", effect.y, ofNumber) + named("width", effect.width, ofNumber) +
           named("height", effect.height, ofNumber);
  }

  std::string operator()(const MoveElements& effect) const {
    return "move " + answerOf(effect.elements) + " " + textOf(effect.dx) + "," + textOf(effect.dy) + " over " +
           textOf(effect.over);
  }

  std::string operator()(const InsertElements& effect) const {
    return "insert " + effect.fragment + named("into", effect.into, answerOf) +
           (effect.insertion == Insertion::atEnd ? " at end" : "") +
           named("for", effect.lifetime, [](const RuleDuration& duration) { return textOf(duration); });
  }

  std::string operator()(const RemoveElements& effect) const { return "remove " + answerOf(effect.elements); }
  std::string operator()(const FocusElement& effect) const { return "focus " + answerOf(effect.elements); }

  std::string operator()(const RaiseAlert& effect) const {
    constexpr std::string_view KINDS[] = {"alert", "sheet", "system"};
    std::string text(KINDS[static_cast<std::size_t>(effect.kind)]);
    text += " " + textOf(effect.title) + " " + textOf(effect.message);
    for (const TextTemplate& button : effect.buttons) {
      text += " " + textOf(button);
    }
    return text + (effect.answer.empty() ? "" : " answer=" + effect.answer);
  }

  std::string operator()(const OpenApplication& effect) const { return "open " + effect.bundleIdentifier; }
  std::string operator()(const OpenAddress& effect) const { return "openAddress " + textOf(effect.address); }
  std::string operator()(const TerminateApplication& effect) const { return "terminate " + effect.bundleIdentifier; }

  std::string operator()(const Later& effect) const {
    return "after " + textOf(effect.after) + listOf("screen", effect.screens) +
           named("when", effect.condition, answerOfValues) + " (" + textOf(effect.effects) + ")";
  }
};

std::string textOf(const std::vector<Effect>& effects) {
  std::string text;
  for (const Effect& effect : effects) {
    text += (text.empty() ? "" : "; ") + std::visit(EffectInWords(), effect.what);
  }
  return text;
}

std::string nameOf(RuleEvent event) {
  constexpr std::string_view NAMES[] = {"launch", "screen",  "tap",    "longPress", "text",
                                        "scroll", "address", "answer", "time"};
  return std::string(NAMES[static_cast<std::size_t>(event)]);
}

std::string textOf(const Rule& rule) {
  const auto ofEnd = [](ScrollEnd end) { return std::string(end == ScrollEnd::end ? "end" : "start"); };
  return nameOf(rule.event) + named("element", rule.element, answerOf) + named("alert", rule.alert, answerOf) +
         named("at", rule.at, ofEnd) + listOf("screen", rule.screens) + named("when", rule.condition, answerOfValues) +
         " after " + textOf(rule.after) +
         named("every", rule.every, [](const RuleDuration& duration) { return textOf(duration); }) + ": " +
         textOf(rule.effects);
}

/// The rule without the marks.
std::string unmarked(std::string json) {
  std::erase(json, MARK);
  return json;
}

/// The faults of these reasons at the marks.
std::string faultsAt(const std::string& json, const std::vector<std::string>& reasons) {
  std::string faults;
  std::size_t mark = json.find(MARK);
  for (const std::string& reason : reasons) {
    const std::string before = std::string(BEFORE) + unmarked(json.substr(0, mark));
    const TextPlace place = placeInText(before, before.size());
    faults += (faults.empty() ? "app.json:" : "\napp.json:") + std::to_string(place.line) + ":" +
              std::to_string(place.column) + ": [2]" + reason;
    mark = json.find(MARK, mark + 1);
  }
  EXPECT_EQ(mark, std::string::npos) << "there are more marks than reasons";
  return faults;
}

/// A rule with marks, and its faults in the order of the marks.
struct FaultyRow {
  std::string json;
  std::vector<std::string> reasons;
};

void expectFaults(const FaultyRow& row) {
  EXPECT_EQ(ReadRule(unmarked(row.json)).faults(), faultsAt(row.json, row.reasons)) << row.json;
}

/// A rule around effects.
std::string doing(const std::string& effects) {
  return R"({"on": "launch", "do": [)" + effects + "]}";
}

// Rules.

TEST(RuleReader, EveryEvent) {
  const std::pair<std::string, std::string> ROWS[] = {
      {R"({"on": "launch", "do": []})", "launch after 0: "},
      {R"({"on": "screen", "do": []})", "screen after 0: "},
      {R"({"on": "tap", "element": "identifier == 'it'", "do": []})", "tap element=yes after 0: "},
      {R"({"on": "longPress", "element": "identifier == 'no'", "do": []})", "longPress element=no after 0: "},
      {R"({"on": "text", "element": "label MATCHES 'f.*'", "do": []})", "text element=yes after 0: "},
      {R"({"on": "scroll", "element": "TRUEPREDICATE", "do": []})", "scroll element=yes after 0: "},
      {R"({"on": "scroll", "element": "TRUEPREDICATE", "at": "start", "do": []})",
       "scroll element=yes at=start after 0: "},
      {R"({"on": "scroll", "element": "TRUEPREDICATE", "at": "end", "do": []})", "scroll element=yes at=end after 0: "},
      {R"({"on": "address", "do": []})", "address after 0: "},
      {R"({"on": "answer", "do": []})", "answer after 0: "},
      {R"({"on": "answer", "element": "label == 'full'", "alert": "label == 'Delete?'", "do": []})",
       "answer element=yes alert=no after 0: "},
      {R"({"on": "time", "after": 0, "do": []})", "time after 0: "},
      {R"({"on": "time", "after": 3600000, "every": 10, "do": []})", "time after 3600000 every=10: "},
      {R"({"on": "time", "after": "pace", "every": "ten", "do": []})", "time after pace every=ten: "},
  };
  for (const auto& [json, words] : ROWS) {
    const ReadRule read(json);
    EXPECT_EQ(read.faults(), "") << json;
    EXPECT_EQ(textOf(read.rule()), words) << json;
  }
}

TEST(RuleReader, ScreensAndConditions) {
  const std::pair<std::string, std::string> ROWS[] = {
      {R"("screen": "start")", " screen=start"},
      {R"("screen": ["start"])", " screen=start"},
      {R"("screen": ["two", "start"])", " screen=two,start"},
      {R"("when": {"basket": "full", "user": "Ada"})", " when=yes"},
      {R"("when": {"basket": "full", "user": "Bob"})", " when=no"},
      {R"("when": {"basket": "it's \"full\" %@"})", " when=no"},
      {R"("when": {"never.set": ""})", " when=yes"},
      {R"("when": {})", " when=yes"},
      {R"("when": "basket CONTAINS 'ul' AND user != ''")", " when=yes"},
      {R"("when": "NOT user IN {'Ada', 'Bob'}")", " when=no"},
      {R"("screen": "two", "when": {})", " screen=two when=yes"},
  };
  for (const auto& [keys, words] : ROWS) {
    const ReadRule read(R"({"on": "launch", "do": [], )" + keys + "}");
    EXPECT_EQ(read.faults(), "") << keys;
    EXPECT_EQ(textOf(read.rule()), "launch" + words + " after 0: ") << keys;
  }
}

TEST(RuleReader, EveryEffect) {
  const std::pair<std::string, std::string> ROWS[] = {
      {R"({"show": "two"})", "show two"},
      {R"({"set": {"shop.basket": "full"}})", "set shop.basket='full'"},
      {R"({"set": {"b": "", "a": "<${v}>"}})", "set a='<V>' b=''"},
      {R"({"set": {"a": {"attribute": "label"}}})", "set a=label"},
      {R"({"set": {"a": {"attribute": "identifier"}, "b": {"attribute": "placeholderValue"}}})",
       "set a=identifier b=placeholderValue"},
      {R"({"set": {"a": {"element": "identifier == 'it'", "attribute": "value"}}})", "set a=value of=yes"},
      {R"({"add": {"count": 1, "other": -3}})", "add count=1 other=-3"},
      {R"({"add": {"count": 0.0}})", "add count=0"},
      {R"({"change": "identifier == 'it'", "to": {"label": "${v}", "identifier": "i", "value": "", "placeholderValue": "p",
          "enabled": true, "selected": false, "visible": true, "x": -1.5, "y": -2, "width": 0, "height": 4.25}})",
       "change yes label='V' identifier='i' value='' placeholder='p' enabled=yes selected=no visible=yes x=-1.5 y=-2 "
       "width=0 height=4.25"},
      {R"({"change": "label == 'x'", "to": {"label": null, "identifier": null, "value": null, "placeholderValue": null,
          "enabled": false, "selected": true, "visible": false}})",
       "change no label=none identifier=none value=none placeholder=none enabled=no selected=yes visible=no"},
      {R"({"move": "identifier == 'it'", "by": {"x": 1.5, "y": -200}})", "move yes 1.5,-200 over 0"},
      {R"({"move": "label == 'x'", "by": {"x": 0.5, "y": 7}, "over": 300})", "move no 0.5,7 over 300"},
      {R"({"move": "label == 'x'", "by": {"x": 1, "y": 1}, "over": "pace"})", "move no 1,1 over pace"},
      {R"({"insert": "toast"})", "insert toast"},
      {R"({"insert": "toast", "into": "identifier == 'it'"})", "insert toast into=yes"},
      {R"({"insert": "toast", "into": "label == 'x'", "at": "end", "for": 2000})",
       "insert toast into=no at end for=2000"},
      {R"({"insert": "toast", "for": "pace"})", "insert toast for=pace"},
      {R"({"remove": "identifier == 'it'"})", "remove yes"},
      {R"({"focus": "identifier == 'it'"})", "focus yes"},
      {R"({"alert": {"title": "Delete ${v}?", "message": "For ${v}.", "buttons": ["No", "${v}"]}, "answer": "a.b"})",
       "alert 'Delete V?' 'For V.' 'No' 'V' answer=a.b"},
      {R"({"alert": {"title": "Sure?", "buttons": ["OK"]}})", "alert 'Sure?' '' 'OK'"},
      {R"({"sheet": {"title": "Tabs", "message": "Many", "buttons": ["Close", "Keep"]}, "answer": "a"})",
       "sheet 'Tabs' 'Many' 'Close' 'Keep' answer=a"},
      {R"({"sheet": {"buttons": ["Close"]}})", "sheet '' '' 'Close'"},
      {R"({"systemAlert": {"title": "System", "message": "", "buttons": ["OK"]}, "answer": "a"})",
       "system 'System' '' 'OK' answer=a"},
      {R"({"askPermission": "location"})",
       "system 'Allow “Shop” to use your location?' '' 'Allow Once' 'Allow While Using App' 'Don’t Allow'"},
      {R"({"askPermission": "camera", "message": "For ${v}.", "answer": "shop.camera"})",
       "system '“Shop” Would Like to Access the Camera' 'For V.' 'Don’t Allow' 'OK' answer=shop.camera"},
      {R"({"askPermission": "notifications"})",
       "system '“Shop” Would Like to Send You Notifications' 'Notifications may include alerts, sounds, and icon "
       "badges. "
       "These can be configured in Settings.' 'Don’t Allow' 'Allow'"},
      {R"({"askPermission": "tracking", "message": ""})",
       "system 'Allow “Shop” to track your activity across other companies’ apps and websites?' '' 'Ask App Not to "
       "Track' 'Allow'"},
      {R"({"open": "com.example.other"})", "open com.example.other"},
      {R"({"openAddress": "https://shop.example/${v}"})", "openAddress 'https://shop.example/V'"},
      {R"({"terminate": "com.example.other"})", "terminate com.example.other"},
      {R"({"after": 2000, "do": [{"show": "two"}, {"after": "pace", "do": [{"show": "start"}]}]})",
       "after 2000 (show two; after pace (show start))"},
      {R"({"after": 0, "screen": ["start", "two"], "when": {"basket": "full"}, "do": []})",
       "after 0 screen=start,two when=yes ()"},
      {R"({"after": 0, "when": "basket == 'empty'", "do": []})", "after 0 when=no ()"},
      {R"({"show": "two"}, {"show": "start"}, {"remove": "TRUEPREDICATE"})", "show two; show start; remove yes"},
  };
  for (const auto& [effects, words] : ROWS) {
    const ReadRule read(doing(effects));
    EXPECT_EQ(read.faults(), "") << effects;
    EXPECT_EQ(textOf(read.rule().effects), words) << effects;
  }
}

// Faults.

constexpr const char* EVENTS =
    R"("launch", "screen", "tap", "longPress", "text", "scroll", "address", "answer", "time")";
constexpr const char* ATTRIBUTES =
    "elements have no attribute \"title\"; they have label, identifier, placeholderValue, value, enabled, selected, "
    "exists, hittable";

std::string noName(const std::string& name) {
  return "\"" + name +
         "\" is no name of a value; one is like \"shop.basket_1\": words of ASCII letters, digits and _, with dots "
         "between them, none of which begins with a digit or means something in predicates, as \"in\" does";
}

std::string noDuration(const std::string& name, const std::string& found) {
  return "as a duration, the value \"" + name +
         "\" must begin as a whole number of milliseconds, at most 3600000, under \"values\" in phone.json; " + found;
}

std::string unknown(const std::string& known) {
  return ": unknown; what may stand here is " + known;
}

TEST(RuleReader, FaultsOfARule) {
  const std::string events = std::string("\" is no event; there are ") + EVENTS;
  const FaultyRow ROWS[] = {
      {"@7", {": expected an object, found a number"}},
      {"@[]", {": expected an object, found an array"}},
      {R"(@{"do": []})", {".on: missing"}},
      {R"(@{"on": "launch"})", {".do: missing"}},
      {R"({@"on": 7, "do": []})", {".on: expected a text, found a number"}},
      {R"({@"on": "swipe", "do": []})", {".on: \"swipe" + events}},
      {R"({@"on": "Tap", "do": []})", {".on: \"Tap" + events}},
      {R"({"on": "launch", @"do": {}})", {".do: expected an array, found an object"}},
      {R"({"on": "launch", @"screen": 7, "do": []})", {".screen: expected an array, found a number"}},
      {R"({"on": "launch", @"screen": "", "do": []})", {".screen: must not be empty"}},
      {R"({"on": "launch", @"screen": "three", "do": []})", {".screen: there is no three"}},
      {R"({"on": "launch", @"screen": [], "do": []})", {".screen: must name a screen"}},
      {R"({"on": "launch", "screen": [@"three", "two", @"", @7], "do": []})",
       {".screen[0]: there is no three", ".screen[2]: must not be empty",
        ".screen[3]: expected a text, found a number"}},
      {R"({"on": "launch", @"when": 7, "do": []})",
       {".when: expected an object of named values and their texts, or a predicate over named values"}},
      {R"({"on": "launch", @"when": "basket = ", "do": []})",
       {".when: column 10: expected a key path, a text, TRUE, FALSE or %@, found the end in the predicate format: "
        "basket = "}},
      {R"({"on": "launch", @"when": "basket MATCHES '('", "do": []})",
       {".when: the regular expression \"(\" cannot be read: a parenthesis has no partner, at character 1"}},
      {R"({"on": "launch", "when": {@"a-b": "", @"c": 1, "d": ""}, "do": []})",
       {".when.a-b: " + noName("a-b"), ".when.c: expected a text, found a number"}},
  };
  for (const FaultyRow& row : ROWS) {
    expectFaults(row);
  }
}

TEST(RuleReader, FaultsOfThePredicatesOfARule) {
  const FaultyRow ROWS[] = {
      {R"({"on": "tap", @"element": 7, "do": []})", {".element: expected a text, found a number"}},
      {R"({"on": "tap", @"element": "label = ", "do": []})",
       {".element: column 9: expected a key path, a text, TRUE, FALSE or %@, found the end in the predicate format: "
        "label = "}},
      {R"({"on": "tap", @"element": "", "do": []})",
       {".element: column 1: expected a comparison, NOT or (, found the end in the predicate format: "}},
      {R"({"on": "tap", @"element": "label MATCHES '('", "do": []})",
       {".element: the regular expression \"(\" cannot be read: a parenthesis has no partner, at character 1"}},
      {R"({"on": "tap", @"element": "enabled == FALSE AND title == 'OK'", "do": []})",
       {std::string(".element: ") + ATTRIBUTES}},
      {R"({"on": "answer", @"alert": "title == 'OK'", @"element": true, "do": []})",
       {std::string(".alert: ") + ATTRIBUTES, ".element: expected a text, found a truth value"}},
  };
  for (const FaultyRow& row : ROWS) {
    expectFaults(row);
  }
}

TEST(RuleReader, EveryEventHasItsOwnKeys) {
  struct Row {
    std::string event;
    std::set<std::string> keys;
    std::string known;
  };
  const Row ROWS[] = {
      {"launch", {}, R"("on", "screen", "when", "do")"},
      {"screen", {}, R"("on", "screen", "when", "do")"},
      {"tap", {"element"}, R"("on", "screen", "when", "do", "element")"},
      {"longPress", {"element"}, R"("on", "screen", "when", "do", "element")"},
      {"text", {"element"}, R"("on", "screen", "when", "do", "element")"},
      {"scroll", {"element", "at"}, R"("on", "screen", "when", "do", "at", "element")"},
      {"address", {}, R"("on", "screen", "when", "do")"},
      {"answer", {"element", "alert"}, R"("on", "screen", "when", "do", "alert", "element")"},
      {"time", {"after", "every"}, R"("on", "screen", "when", "do", "after", "every")"},
  };
  const std::pair<std::string, std::string> MEMBERS[] = {{"element", R"("TRUEPREDICATE")"},
                                                         {"alert", R"("TRUEPREDICATE")"},
                                                         {"at", R"("end")"},
                                                         {"after", "100"},
                                                         {"every", "100"},
                                                         {"if", "{}"},
                                                         {"On", "{}"}};
  for (const auto& [event, keys, known] : ROWS) {
    FaultyRow all{.json = R"({"on": ")" + event + R"(", "screen": "start", "when": {}, "do": [])", .reasons = {}};
    for (const auto& [key, json] : MEMBERS) {
      all.json += keys.contains(key) ? ", " : ", @";
      all.json += "\"" + key + "\": " + json;
      if (!keys.contains(key)) {
        all.reasons.push_back("." + key + unknown(known));
      }
    }
    all.json += "}";
    expectFaults(all);
  }
}

TEST(RuleReader, WhatAnEventNeeds) {
  const FaultyRow ROWS[] = {
      {R"(@{"on": "tap", "do": []})", {".element: missing"}},
      {R"(@{"on": "longPress", "do": []})", {".element: missing"}},
      {R"(@{"on": "text", "do": []})", {".element: missing"}},
      {R"(@{"on": "scroll", "at": "end", "do": []})", {".element: missing"}},
      {R"(@{"on": "time", "do": []})", {".after: missing"}},
  };
  for (const FaultyRow& row : ROWS) {
    expectFaults(row);
  }
}

TEST(RuleReader, FaultsOfTheEndOfScrolling) {
  expectFaults({R"({"on": "scroll", "element": "TRUEPREDICATE", @"at": "bottom", "do": []})",
                {R"(.at: must be "start" or "end", found "bottom")"}});
  expectFaults({R"({"on": "scroll", "element": "TRUEPREDICATE", @"at": true, "do": []})",
                {".at: expected a text, found a truth value"}});
}

TEST(RuleReader, FaultsOfTimes) {
  const FaultyRow ROWS[] = {
      {R"({"on": "time", @"after": -1, "do": []})", {".after: must be between 0 and 3600000, found -1"}},
      {R"({"on": "time", @"after": 3600001, "do": []})", {".after: must be between 0 and 3600000, found 3600001"}},
      {R"({"on": "time", @"after": 0.5, "do": []})", {".after: expected a whole number, found a number"}},
      {R"({"on": "time", @"after": null, "do": []})", {".after: expected a whole number, found null"}},
      {R"({"on": "time", @"after": "a b", "do": []})", {".after: " + noName("a b")}},
      {R"({"on": "time", @"after": "250", "do": []})", {".after: " + noName("250")}},
      {R"({"on": "time", @"after": "never.set", "do": []})",
       {".after: " + noDuration("never.set", "it does not stand there")}},
      {R"({"on": "time", @"after": "word", "do": []})", {".after: " + noDuration("word", "there it is \"soon\"")}},
      {R"({"on": "time", @"after": "slow", "do": []})", {".after: " + noDuration("slow", "there it is \"3600001\"")}},
      {R"({"on": "time", "after": 0, @"every": 9, "do": []})", {".every: must be at least 10, found 9"}},
      {R"({"on": "time", "after": 0, @"every": 0, "do": []})", {".every: must be at least 10, found 0"}},
      {R"({"on": "time", "after": 0, @"every": -1, "do": []})", {".every: must be between 0 and 3600000, found -1"}},
      {R"({"on": "time", "after": 0, @"every": "fast", "do": []})", {".every: must be at least 10, found 9"}},
      {R"({"on": "time", "after": 0, @"every": "word", "do": []})",
       {".every: " + noDuration("word", "there it is \"soon\"")}},
      {R"({"on": "time", @"every": 5, @"after": true, "do": []})",
       {".every: must be at least 10, found 5", ".after: expected a whole number, found a truth value"}},
  };
  for (const FaultyRow& row : ROWS) {
    expectFaults(row);
  }
}

TEST(RuleReader, ARuleForAddressesOfAnApplicationWithoutAny) {
  EXPECT_EQ(ReadRule(R"({"on": "address", "do": []})", false).faults(),
            R"(app.json:3:7: [2]: never happens: the application has no "addresses")");
  EXPECT_EQ(ReadRule(R"({"on": "launch", "do": []})", false).faults(), "");
}

TEST(RuleReader, ARuleOfAnUnknownEventIsReadAllTheSame) {
  expectFaults({R"({@"on": "swipe", @"element": "title == ''", @"alert": 1, @"at": "top", @"after": -1, @"every": 1,
                    "other": 1, @"screen": "three", @"when": 1, "do": [@{}]})",
                {std::string(".on: \"swipe\" is no event; there are ") + EVENTS, std::string(".element: ") + ATTRIBUTES,
                 ".alert: expected a text, found a number", R"(.at: must be "start" or "end", found "top")",
                 ".after: must be between 0 and 3600000, found -1", ".every: must be at least 10, found 1",
                 ".screen: there is no three",
                 ".when: expected an object of named values and their texts, or a predicate over named values",
                 std::string(".do[0]: expected an effect, which has one of the members ") +
                     R"("show", "set", "add", "change", "move", "insert", "remove", "focus", "alert", "sheet", )"
                     R"("systemAlert", "askPermission", "open", "openAddress", "terminate", "after", and only one of )"
                     "them"}});
}

/// Faults of effects, which stand alone in a rule; the reasons go on behind "do[0]".
void expectFaultsOfEffects(const std::vector<FaultyRow>& rows) {
  for (const FaultyRow& row : rows) {
    FaultyRow whole{.json = doing(row.json), .reasons = {}};
    for (const std::string& reason : row.reasons) {
      whole.reasons.push_back(".do[0]" + reason);
    }
    expectFaults(whole);
  }
}

TEST(RuleReader, FaultsOfEffects) {
  const std::string effects =
      R"("show", "set", "add", "change", "move", "insert", "remove", "focus", "alert", "sheet", "systemAlert", )"
      R"("askPermission", "open", "openAddress", "terminate", "after")";
  const std::string which = ": expected an effect, which has one of the members " + effects + ", and only one of them";
  expectFaultsOfEffects({
      {"@{}", {which}},
      {R"(@{"hide": "start"})", {which}},
      {R"(@{"Show": "start"})", {which}},
      {R"(@{"show": "two", "open": "com.example.other"})", {which}},
      {R"(@{"alert": {"title": "A", "buttons": ["OK"]}, "sheet": {"buttons": ["OK"]}})", {which}},
      {"@\"show\"", {": expected an object, found a text"}},
      {"@null", {": expected an object, found null"}},
  });
}

TEST(RuleReader, EveryEffectHasItsOwnKeys) {
  struct Row {
    std::string effect;
    std::string known;
  };
  const Row ROWS[] = {
      {R"("show": "two")", R"("show")"},
      {R"("set": {"a": ""})", R"("set")"},
      {R"("add": {"a": 1})", R"("add")"},
      {R"("change": "TRUEPREDICATE", "to": {"x": 1})", R"("change", "to")"},
      {R"("move": "TRUEPREDICATE", "by": {"x": 1, "y": 1}, "over": 1)", R"("move", "by", "over")"},
      {R"("insert": "toast", "into": "TRUEPREDICATE", "at": "end", "for": 1)", R"("insert", "into", "at", "for")"},
      {R"("remove": "TRUEPREDICATE")", R"("remove")"},
      {R"("focus": "TRUEPREDICATE")", R"("focus")"},
      {R"("alert": {"title": "A", "message": "", "buttons": ["B"]}, "answer": "a")", R"("alert", "answer")"},
      {R"("sheet": {"title": "A", "message": "", "buttons": ["B"]}, "answer": "a")", R"("sheet", "answer")"},
      {R"("systemAlert": {"title": "A", "message": "", "buttons": ["B"]}, "answer": "a")",
       R"("systemAlert", "answer")"},
      {R"("askPermission": "camera", "message": "", "answer": "a")", R"("askPermission", "message", "answer")"},
      {R"("open": "com.example.other")", R"("open")"},
      {R"("openAddress": "a:")", R"("openAddress")"},
      {R"("terminate": "com.example.other")", R"("terminate")"},
      {R"("after": 1, "screen": "two", "when": {}, "do": [])", R"("after", "screen", "when", "do")"},
  };
  for (const auto& [effect, known] : ROWS) {
    expectFaultsOfEffects({{"{@\"colour\": 1, " + effect + "}", {".colour" + unknown(known)}}});
  }
}

TEST(RuleReader, FaultsOfShowSetAndAdd) {
  const std::string name = "behind \"${\" a name of a value and \"}\" must follow";
  expectFaultsOfEffects({
      {R"({@"show": "three"})", {".show: there is no three"}},
      {R"({@"show": ""})", {".show: must not be empty"}},
      {R"({@"show": ["two"]})", {".show: expected a text, found an array"}},
      {R"({@"set": {}})", {".set: must set a named value"}},
      {R"({@"set": "a"})", {".set: expected an object, found a text"}},
      {R"({"set": {@"a": true}})", {".set.a: expected a text, found a truth value"}},
      {R"({"set": {@"a b": "", "c": "", @"d": 1, @"e": "${x y}", @"9": {}}})",
       {".set.a b: " + noName("a b"), ".set.d: expected a text, found a number", ".set.e: " + name,
        ".set.9: " + noName("9")}},
      {R"({"set": {@"a": {}}})", {".set.a.attribute: missing"}},
      {R"({"set": {"a": {@"attribute": "enabled"}}})",
       {R"(.set.a.attribute: must be one of "label", "identifier", "value", "placeholderValue", found "enabled")"}},
      {R"({"set": {"a": {@"attribute": 1, @"element": "title == ''", @"of": ""}}})",
       {".set.a.attribute: expected a text, found a number", std::string(".set.a.element: ") + ATTRIBUTES,
        R"(.set.a.of: unknown; what may stand here is "element", "attribute")"}},
      {R"({@"add": {}})", {".add: must add to a named value"}},
      {R"({@"add": 1})", {".add: expected an object, found a number"}},
      {R"({"add": {@"a": "1", @"b": 0.5, "c": 1, @"in": 1}})",
       {".add.a: expected a whole number, found a text", ".add.b: expected a whole number, found a number",
        ".add.in: " + noName("in")}},
  });
}

TEST(RuleReader, FaultsOfChangesOfTheScreen) {
  const std::string attributes = ": " + std::string(ATTRIBUTES);
  expectFaultsOfEffects({
      {R"(@{"change": "TRUEPREDICATE"})", {".to: missing"}},
      {R"({@"change": "title == ''", @"to": {}})", {".change" + attributes, ".to: must name an attribute to change"}},
      {R"({@"change": 1, @"to": []})",
       {".change: expected a text, found a number", ".to: expected an object, found an array"}},
      {R"({@"change": "label", "to": {@"label": 1, @"identifier": true, @"value": "${", @"placeholderValue": [],
           @"enabled": null, @"selected": "yes", @"visible": 1, @"x": "1", @"y": null, @"width": -1, @"height": "2",
           @"title": ""}})",
       {".change: column 6: expected an operator (==, !=, CONTAINS, BEGINSWITH, ENDSWITH, LIKE, MATCHES or IN), found "
        "the end in the predicate format: label",
        ".to.label: expected a text, found a number", ".to.identifier: expected a text, found a truth value",
        ".to.value: behind \"${\" a name of a value and \"}\" must follow",
        ".to.placeholderValue: expected a text, found an array", ".to.enabled: expected true or false, found null",
        ".to.selected: expected true or false, found a text", ".to.visible: expected true or false, found a number",
        ".to.x: expected a number, found a text", ".to.y: expected a number, found null",
        ".to.width: must not be below 0", ".to.height: expected a number, found a text",
        ".to.title" + unknown(R"("label", "identifier", "value", "placeholderValue", "enabled", "selected", )"
                              R"("visible", "x", "y", "width", "height")")}},
      {R"({"change": "TRUEPREDICATE", "to": {@"height": -0.5}})", {".to.height: must not be below 0"}},
      {R"(@{"move": "TRUEPREDICATE"})", {".by: missing"}},
      {R"({@"move": "title == ''", @"by": 1, @"over": "word"})",
       {".move" + attributes, ".by: expected an object, found a number",
        ".over: " + noDuration("word", "there it is \"soon\"")}},
      {R"({"move": "TRUEPREDICATE", @@"by": {}})", {".by.x: missing", ".by.y: missing"}},
      {R"({"move": "TRUEPREDICATE", "by": {@"x": "1", @"y": null, @"z": 1}, @"over": -1})",
       {".by.x: expected a number, found a text", ".by.y: expected a number, found null",
        R"(.by.z: unknown; what may stand here is "x", "y")", ".over: must be between 0 and 3600000, found -1"}},
      {R"({@"insert": "toaster"})", {".insert: there is no toaster"}},
      {R"({@"insert": ""})", {".insert: must not be empty"}},
      {R"({@"insert": 1, @"into": 1, @"at": "start", @"for": "slow"})",
       {".insert: expected a text, found a number", ".into: expected a text, found a number",
        R"(.at: must be "end" or left out, found "start")", ".for: " + noDuration("slow", "there it is \"3600001\"")}},
      {R"({"insert": "toast", @"at": "end"})",
       {".at: needs \"into\": the element below whose content the page is inserted"}},
      {R"({"insert": "toast", "into": "TRUEPREDICATE", @"at": 1})", {".at: expected a text, found a number"}},
      {R"({@"remove": "title == ''"})", {".remove" + attributes}},
      {R"({@"remove": null})", {".remove: expected a text, found null"}},
      {R"({@"focus": "title == ''"})", {".focus" + attributes}},
      {R"({@"focus": 1})", {".focus: expected a text, found a number"}},
  });
}

TEST(RuleReader, FaultsOfAlertsAndSheets) {
  const std::string known = R"(: unknown; what may stand here is "title", "message", "buttons")";
  const std::string name = ": behind \"${\" a name of a value and \"}\" must follow";
  for (const std::string kind : {"alert", "systemAlert"}) {
    expectFaultsOfEffects({
        {"{@\"" + kind + R"(": {"buttons": ["OK"]}})", {"." + kind + ".title: missing"}},
        {"{\"" + kind + R"(": {@"title": "", "buttons": ["OK"]}})", {"." + kind + ".title: must not be empty"}},
    });
  }
  for (const std::string kind : {"alert", "sheet", "systemAlert"}) {
    const std::string place = "." + kind;
    expectFaultsOfEffects({
        {"{@\"" + kind + "\": []}", {place + ": expected an object, found an array"}},
        {"{@\"" + kind + R"(": {"title": "A"}})", {place + ".buttons: missing"}},
        {"{\"" + kind + R"(": {"title": "A", @"buttons": []}})",
         {place + ".buttons: without a button it could never be answered"}},
        {"{\"" + kind + R"(": {"title": "A", @"buttons": "OK"}})",
         {place + ".buttons: expected an array, found a text"}},
        {"{\"" + kind + R"(": {"title": "A", "buttons": [@"", "OK", @1, @"${"]}})",
         {place + ".buttons[0]: must not be empty", place + ".buttons[2]: expected a text, found a number",
          place + ".buttons[3]" + name}},
        {"{\"" + kind + R"(": {@"title": "${", @"message": 1, @"text": "", "buttons": ["OK"]}, @"answer": "a-b"})",
         {place + ".title" + name, place + ".message: expected a text, found a number", place + ".text" + known,
          ".answer: " + noName("a-b")}},
        {"{\"" + kind + R"(": {@"title": 1, @"message": "$${", "buttons": ["OK"]}, @"answer": 1})",
         {place + ".title: expected a text, found a number", place + ".message" + name,
          ".answer: expected a text, found a number"}},
    });
  }
  expectFaultsOfEffects({{R"({"sheet": {@"title": "", "buttons": ["OK"]}})", {".sheet.title: must not be empty"}}});
}

TEST(RuleReader, FaultsOfPermissions) {
  const std::string known = R"(must be one of "location", "camera", "notifications", "tracking", found )";
  expectFaultsOfEffects({
      {R"({@"askPermission": "contacts"})", {".askPermission: " + known + "\"contacts\""}},
      {R"({@"askPermission": 1})", {".askPermission: expected a text, found a number"}},
      {R"({@"askPermission": "", @"message": "${a", @"answer": "${a}"})",
       {".askPermission: " + known + "\"\"", ".message: behind \"${\" a name of a value and \"}\" must follow",
        ".answer: " + noName("${a}")}},
  });
}

TEST(RuleReader, FaultsOfOtherApplicationsAndAddresses) {
  expectFaultsOfEffects({
      {R"({@"open": ""})", {".open: must not be empty"}},
      {R"({@"open": "com.example.none"})", {".open: there is no com.example.none"}},
      {R"({@"open": []})", {".open: expected a text, found an array"}},
      {R"({@"terminate": ""})", {".terminate: must not be empty"}},
      {R"({@"terminate": "com.example.none"})", {".terminate: there is no com.example.none"}},
      {R"({@"terminate": {}})", {".terminate: expected a text, found an object"}},
      {R"({@"openAddress": ""})", {".openAddress: must not be empty"}},
      {R"({@"openAddress": "${"})", {".openAddress: behind \"${\" a name of a value and \"}\" must follow"}},
      {R"({@"openAddress": 1})", {".openAddress: expected a text, found a number"}},
  });
}

TEST(RuleReader, FaultsOfLaterEffects) {
  expectFaultsOfEffects({
      {R"(@{"after": 0})", {".do: missing"}},
      {R"({@"after": "never", @"screen": [], @"when": [], @"do": {}})",
       {".after: " + noDuration("never", "it does not stand there"), ".screen: must name a screen",
        ".when: expected an object of named values and their texts, or a predicate over named values",
        ".do: expected an array, found an object"}},
      {R"({@"after": -1, "when": {@"in": "", @"b": 1}, "do": [{@"show": "three"}, {"show": "two"},
           {"after": 1, "do": [@7, {@"insert": "x", @"for": true}]}]})",
       {".after: must be between 0 and 3600000, found -1", ".when.in: " + noName("in"),
        ".when.b: expected a text, found a number", ".do[0].show: there is no three",
        ".do[2].do[0]: expected an object, found a number", ".do[2].do[1].insert: there is no x",
        ".do[2].do[1].for: expected a whole number, found a truth value"}},
  });
}

TEST(RuleReader, EffectsBehindOneWithAFaultAreReadToo) {
  expectFaults({doing(R"({@"show": "three"}, {"show": "two"}, @1, {@"remove": 1})"),
                {".do[0].show: there is no three", ".do[2]: expected an object, found a number",
                 ".do[3].remove: expected a text, found a number"}});
}

}  // namespace
}  // namespace quobrak::simulator
