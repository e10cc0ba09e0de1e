#include "drivers/simulator/RuleReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "drivers/simulator/AlertScreens.h"
#include "drivers/simulator/ElementAttributes.h"
#include "platform/foundation/NSPredicate.h"
#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::simulator {

namespace {

enum class Need { none, optional, required };

/// An event, and what its rules may or must say beyond what all rules may.
struct EventRow {
  std::string_view name;
  RuleEvent event;
  Need element;
  std::vector<std::string> furtherKeys;
};

const std::vector<EventRow>& eventRows() {
  static const std::vector<EventRow> ROWS{
      {"launch", RuleEvent::launch, Need::none, {}},
      {"screen", RuleEvent::screen, Need::none, {}},
      {"tap", RuleEvent::tap, Need::required, {}},
      {"longPress", RuleEvent::longPress, Need::required, {}},
      {"text", RuleEvent::text, Need::required, {}},
      {"scroll", RuleEvent::scroll, Need::required, {"at"}},
      {"address", RuleEvent::address, Need::none, {}},
      {"answer", RuleEvent::answer, Need::optional, {"alert"}},
      {"time", RuleEvent::time, Need::none, {"after", "every"}},
  };
  return ROWS;
}

template <class Row>
std::vector<std::string> namesOf(const std::vector<Row>& rows) {
  std::vector<std::string> names;
  for (const Row& row : rows) {
    names.emplace_back(row.name);
  }
  return names;
}

const EventRow& readEvent(const JSONReader& json) {
  const std::string name = json.text();
  const std::vector<EventRow>& rows = eventRows();
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&name](const EventRow& known) { return known.name == name; });
  if (row == rows.end()) {
    json.fail("\"" + name + "\" is no event; there are " + listed(namesOf(rows)));
  }
  return *row;
}

TextTemplate readTemplate(const JSONReader& json) {
  std::optional<TextTemplate> text = TextTemplate::parse(json.text());
  if (!text) {
    json.fail("behind \"${\" a name of a value and \"}\" must follow");
  }
  return *std::move(text);
}

TextTemplate readNonEmptyTemplate(const JSONReader& json) {
  nonEmptyText(json);
  return readTemplate(json);
}

AttributeText readAttributeText(const JSONReader& json) {
  return {json.isNull() ? std::nullopt : std::optional(readTemplate(json))};
}

/// The member as `read` reads it; none where it is left out.
template <class Read>
auto optionally(const JSONReader& object, std::string_view key, const Read& read)
    -> std::optional<decltype(read(object))> {
  const std::optional<JSONReader> member = object.optionalMember(key);
  return member ? std::optional(read(*member)) : std::nullopt;
}

double readExtent(const JSONReader& json) {
  const double extent = json.number();
  if (extent < 0) {
    json.fail("must not be below 0");
  }
  return extent;
}

std::string readValueName(const JSONReader& json) {
  std::string name = json.text();
  requireValueName(json, name);
  return name;
}

ScrollEnd readEnd(const JSONReader& json) {
  const std::string name = json.text();
  if (name != "start" && name != "end") {
    json.fail("must be \"start\" or \"end\", found \"" + name + "\"");
  }
  return name == "start" ? ScrollEnd::start : ScrollEnd::end;
}

Insertion readInsertion(const JSONReader& json) {
  if (const std::string name = json.text(); name != "end") {
    json.fail("must be \"end\" or left out, found \"" + name + "\"");
  }
  return Insertion::atEnd;
}

void requireKnownAttribute(const JSONReader& json, const std::string& attribute) {
  const std::vector<std::string> texts{"label", "identifier", "value", "placeholderValue"};
  if (std::find(texts.begin(), texts.end(), attribute) == texts.end()) {
    json.fail("must be one of " + listed(texts) + ", found \"" + attribute + "\"");
  }
}

}  // namespace

/// An effect: the member that says which one it is, what else may stand beside it, and who reads it.
struct RuleReader::EffectRow {
  std::string_view name;
  std::vector<std::string> furtherKeys;
  Effect (RuleReader::*read)(const JSONReader& effect, const JSONReader& main);
};

const std::vector<RuleReader::EffectRow>& RuleReader::effectRows() {
  static const std::vector<EffectRow> ROWS{
      {"show", {}, &RuleReader::show},
      {"set", {}, &RuleReader::set},
      {"add", {}, &RuleReader::add},
      {"change", {"to"}, &RuleReader::change},
      {"move", {"by", "over"}, &RuleReader::move},
      {"insert", {"into", "at", "for"}, &RuleReader::insert},
      {"remove", {}, &RuleReader::remove},
      {"focus", {}, &RuleReader::focus},
      {"alert", {"answer"}, &RuleReader::alert},
      {"sheet", {"answer"}, &RuleReader::sheet},
      {"systemAlert", {"answer"}, &RuleReader::systemAlert},
      {"askPermission", {"message", "answer"}, &RuleReader::askPermission},
      {"open", {}, &RuleReader::open},
      {"openAddress", {}, &RuleReader::openAddress},
      {"terminate", {}, &RuleReader::terminate},
      {"after", {"screen", "when", "do"}, &RuleReader::later},
  };
  return ROWS;
}

Rule RuleReader::read(const JSONReader& json) {
  Rule rule;
  const EventRow* event = nullptr;
  file_.attempt([&] { event = &readEvent(json.member("on")); });
  std::vector<std::string> keys{"on", "screen", "when", "do"};
  if (event != nullptr) {
    rule.event = event->event;
    keys.insert(keys.end(), event->furtherKeys.begin(), event->furtherKeys.end());
    if (event->element != Need::none) {
      keys.emplace_back("element");
    }
    file_.requireKnownKeys(json, keys);
    file_.attempt([&] {
      if (event->element == Need::required || json.optionalMember("element")) {
        rule.element.emplace(readPredicate(json.member("element")));
      }
    });
  }
  if (rule.event == RuleEvent::address && !references_.opensAddresses) {
    file_.note(json, "never happens: the application has no \"addresses\"");
  }
  const auto predicate = [this](const JSONReader& member) { return readPredicate(member); };
  const auto duration = [this](const JSONReader& member) { return readRuleDuration(member); };
  file_.attempt([&] {
    if (const auto alert = json.optionalMember("alert")) {
      rule.alert.emplace(predicate(*alert));
    }
  });
  file_.attempt([&] { rule.at = optionally(json, "at", readEnd); });
  file_.attempt([&] { rule.screens = readScreens(json); });
  file_.attempt([&] {
    if (std::optional<PredicateEvaluator> condition = readCondition(json)) {
      rule.condition.emplace(*std::move(condition));
    }
  });
  if (rule.event == RuleEvent::time) {
    file_.attempt([&] { rule.after = duration(json.member("after")); });
    file_.attempt([&] {
      rule.every = optionally(json, "every", [this](const JSONReader& member) { return readInterval(member); });
    });
  }
  file_.attempt([&] { rule.effects = readEffects(json.member("do")); });
  return rule;
}

/// An object of names and texts is a way to write that all of them are equal.
std::optional<PredicateEvaluator> RuleReader::readCondition(const JSONReader& json) const {
  const auto when = json.optionalMember("when");
  if (!when) {
    return std::nullopt;
  }
  try {
    if (when->isText()) {
      return PredicateEvaluator(NSPredicate(when->text()));
    }
    if (!when->isObject()) {
      when->fail("expected an object of named values and their texts, or a predicate over named values");
    }
    std::vector<NSPredicate> equalities;
    for (const auto& [name, text] : readNamedTexts(*when)) {
      equalities.emplace_back(name + " == %@", std::initializer_list<NSPredicate::Argument>{text});
    }
    return PredicateEvaluator(NSCompoundPredicate::andPredicate(std::move(equalities)));
  } catch (const PredicateFormatError& error) {
    when->fail(error.what());
  } catch (const RegularExpressionError& error) {
    when->fail(error.what());
  }
}

std::vector<Effect> RuleReader::readEffects(const JSONReader& json) {
  std::vector<Effect> effects;
  for (const JSONReader& entry : json.elements()) {
    file_.attempt([&] {
      if (std::optional<Effect> effect = readEffect(entry)) {
        effects.push_back(*std::move(effect));
      }
    });
  }
  return effects;
}

std::optional<Effect> RuleReader::readEffect(const JSONReader& json) {
  const std::vector<EffectRow>& rows = effectRows();
  const auto named = [&json](const EffectRow& row) { return json.optionalMember(row.name).has_value(); };
  if (std::count_if(rows.begin(), rows.end(), named) != 1) {
    json.fail("expected an effect with one of the members " + listed(namesOf(rows)));
  }
  const EffectRow& row = *std::find_if(rows.begin(), rows.end(), named);
  std::vector<std::string> keys{std::string(row.name)};
  keys.insert(keys.end(), row.furtherKeys.begin(), row.furtherKeys.end());
  file_.requireKnownKeys(json, keys);
  return (this->*row.read)(json, json.member(row.name));
}

PredicateEvaluator RuleReader::readPredicate(const JSONReader& json) const {
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

RuleDuration RuleReader::readRuleDuration(const JSONReader& json) const {
  if (!json.isText()) {
    return readDuration(json);
  }
  std::string name = readValueName(json);
  if (!durationIn(references_.values.text(name))) {
    json.fail(
        "as a duration, the value \"" + name +
        "\" must begin as a whole number of milliseconds, at most 3600000, under \"values\" in phone.json; there it "
        "is \"" +
        references_.values.text(name) + "\"");
  }
  return name;
}

RuleDuration RuleReader::readInterval(const JSONReader& json) const {
  RuleDuration interval = readRuleDuration(json);
  const auto* const name = std::get_if<std::string>(&interval);
  const auto length =
      name == nullptr ? std::get<std::chrono::milliseconds>(interval) : references_.values.duration(*name);
  if (length < SHORTEST_INTERVAL) {
    json.fail("must be at least " + std::to_string(SHORTEST_INTERVAL.count()) + ", found " +
              std::to_string(length.count()));
  }
  return interval;
}

std::vector<std::string> RuleReader::readScreens(const JSONReader& rule) const {
  std::vector<std::string> names;
  const auto screens = rule.optionalMember("screen");
  if (!screens) {
    return names;
  }
  const JSONReader& json = *screens;
  const auto add = [&](const JSONReader& one) {
    names.push_back(nonEmptyText(one));
    references_.requireScreen(one, names.back());
  };
  if (json.isText()) {
    add(json);
    return names;
  }
  for (const JSONReader& one : json.elements()) {
    add(one);
  }
  if (names.empty()) {
    json.fail("must name a screen");
  }
  return names;
}

SetValues::Source RuleReader::readSource(const JSONReader& json) {
  if (!json.isObject()) {
    return readTemplate(json);
  }
  file_.requireKnownKeys(json, {"element", "attribute"});
  std::string attribute = json.member("attribute").text();
  requireKnownAttribute(json.member("attribute"), attribute);
  return ElementText{optionally(json, "element", [this](const JSONReader& member) { return readPredicate(member); }),
                     std::move(attribute)};
}

Effect RuleReader::show(const JSONReader&, const JSONReader& main) {
  std::string screen = nonEmptyText(main);
  references_.requireScreen(main, screen);
  return {ShowScreen{std::move(screen)}};
}

Effect RuleReader::set(const JSONReader&, const JSONReader& main) {
  SetValues effect;
  for (const auto& [name, source] : main.members()) {
    requireValueName(source, name);
    effect.texts.emplace_back(name, readSource(source));
  }
  if (effect.texts.empty()) {
    main.fail("must set a named value");
  }
  return {std::move(effect)};
}

Effect RuleReader::add(const JSONReader&, const JSONReader& main) {
  AddToValues effect;
  for (const auto& [name, amount] : main.members()) {
    requireValueName(amount, name);
    effect.amounts.emplace(name, amount.integer());
  }
  if (effect.amounts.empty()) {
    main.fail("must add to a named value");
  }
  return {std::move(effect)};
}

Effect RuleReader::change(const JSONReader& effect, const JSONReader& main) {
  const JSONReader to = effect.member("to");
  file_.requireKnownKeys(to, {"label", "identifier", "value", "placeholderValue", "enabled", "selected", "visible", "x",
                              "y", "width", "height"});
  if (to.members().empty()) {
    to.fail("must name an attribute to change");
  }
  const auto truth = [](const JSONReader& json) { return json.truthValue(); };
  const auto number = [](const JSONReader& json) { return json.number(); };
  return {ChangeElements{.elements = readPredicate(main),
                         .label = optionally(to, "label", readAttributeText),
                         .identifier = optionally(to, "identifier", readAttributeText),
                         .value = optionally(to, "value", readAttributeText),
                         .placeholder = optionally(to, "placeholderValue", readAttributeText),
                         .isEnabled = optionally(to, "enabled", truth),
                         .isSelected = optionally(to, "selected", truth),
                         .isVisible = optionally(to, "visible", truth),
                         .x = optionally(to, "x", number),
                         .y = optionally(to, "y", number),
                         .width = optionally(to, "width", readExtent),
                         .height = optionally(to, "height", readExtent)}};
}

Effect RuleReader::move(const JSONReader& effect, const JSONReader& main) {
  const JSONReader by = effect.member("by");
  file_.requireKnownKeys(by, {"x", "y"});
  const auto duration = [this](const JSONReader& json) { return readRuleDuration(json); };
  return {MoveElements{.elements = readPredicate(main),
                       .dx = by.member("x").number(),
                       .dy = by.member("y").number(),
                       .over = optionally(effect, "over", duration).value_or(std::chrono::milliseconds(0))}};
}

Effect RuleReader::insert(const JSONReader& effect, const JSONReader& main) {
  std::string fragment = nonEmptyText(main);
  references_.requireFragment(main, fragment);
  if (const auto at = effect.optionalMember("at"); at && !effect.optionalMember("into")) {
    at->fail("needs \"into\": the element below whose content the page is inserted");
  }
  const auto duration = [this](const JSONReader& json) { return readRuleDuration(json); };
  const auto predicate = [this](const JSONReader& json) { return readPredicate(json); };
  return {InsertElements{.fragment = std::move(fragment),
                         .into = optionally(effect, "into", predicate),
                         .insertion = optionally(effect, "at", readInsertion).value_or(Insertion::asCaptured),
                         .lifetime = optionally(effect, "for", duration)}};
}

Effect RuleReader::remove(const JSONReader&, const JSONReader& main) {
  return {RemoveElements{readPredicate(main)}};
}

Effect RuleReader::focus(const JSONReader&, const JSONReader& main) {
  return {FocusElement{readPredicate(main)}};
}

RaiseAlert RuleReader::readAlert(const JSONReader& effect, const JSONReader& main, AlertKind kind) {
  file_.requireKnownKeys(main, {"title", "message", "buttons"});
  RaiseAlert alert{.kind = kind,
                   .title = {},
                   .message = optionally(main, "message", readTemplate).value_or(TextTemplate()),
                   .buttons = {},
                   .answer = optionally(effect, "answer", readValueName).value_or("")};
  if (kind != AlertKind::sheet || main.optionalMember("title")) {
    alert.title = readNonEmptyTemplate(main.member("title"));
  }
  const JSONReader buttons = main.member("buttons");
  for (const JSONReader& button : buttons.elements()) {
    alert.buttons.push_back(readNonEmptyTemplate(button));
  }
  if (alert.buttons.empty()) {
    buttons.fail("without a button it could never be answered");
  }
  return alert;
}

Effect RuleReader::alert(const JSONReader& effect, const JSONReader& main) {
  return {readAlert(effect, main, AlertKind::alert)};
}

Effect RuleReader::sheet(const JSONReader& effect, const JSONReader& main) {
  return {readAlert(effect, main, AlertKind::sheet)};
}

Effect RuleReader::systemAlert(const JSONReader& effect, const JSONReader& main) {
  return {readAlert(effect, main, AlertKind::system)};
}

Effect RuleReader::askPermission(const JSONReader& effect, const JSONReader& main) {
  const std::optional<AlertText> texts = permissionAlert(main.text(), references_.applicationName);
  if (!texts) {
    main.fail("must be one of " + knownPermissions() + ", found \"" + main.text() + "\"");
  }
  RaiseAlert alert{.kind = AlertKind::system,
                   .title = TextTemplate(texts->title),
                   .message = optionally(effect, "message", readTemplate).value_or(TextTemplate(texts->message)),
                   .buttons = {},
                   .answer = optionally(effect, "answer", readValueName).value_or("")};
  for (const std::string& button : texts->buttons) {
    alert.buttons.emplace_back(button);
  }
  return {std::move(alert)};
}

Effect RuleReader::open(const JSONReader&, const JSONReader& main) {
  std::string bundleIdentifier = nonEmptyText(main);
  references_.requireApplication(main, bundleIdentifier);
  return {OpenApplication{std::move(bundleIdentifier)}};
}

Effect RuleReader::openAddress(const JSONReader&, const JSONReader& main) {
  return {OpenAddress{readNonEmptyTemplate(main)}};
}

Effect RuleReader::terminate(const JSONReader&, const JSONReader& main) {
  std::string bundleIdentifier = nonEmptyText(main);
  references_.requireApplication(main, bundleIdentifier);
  return {TerminateApplication{std::move(bundleIdentifier)}};
}

Effect RuleReader::later(const JSONReader& effect, const JSONReader& main) {
  return {Later{.after = readRuleDuration(main),
                .screens = readScreens(effect),
                .condition = readCondition(effect),
                .effects = readEffects(effect.member("do"))}};
}

}  // namespace quobrak::simulator
