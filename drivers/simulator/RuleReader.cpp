#include "drivers/simulator/RuleReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

#include "drivers/simulator/AlertScreens.h"
#include "drivers/simulator/ElementAttributes.h"
#include "platform/foundation/NSPredicate.h"
#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::simulator {

namespace {

template <class Row>
std::vector<std::string> namesOf(const std::vector<Row>& rows) {
  std::vector<std::string> names;
  names.reserve(std::size(rows));
  for (const Row& row : rows) {
    names.emplace_back(row.name);
  }
  return names;
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

double readExtent(const JSONReader& json) {
  const double extent = json.number();
  if (extent < 0) {
    json.fail("must not be below 0");
  }
  return extent;
}

double readNumber(const JSONReader& json) {
  return json.number();
}

bool readTruthValue(const JSONReader& json) {
  return json.truthValue();
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

std::string readTextAttribute(const JSONReader& json) {
  const std::vector<std::string> known{"label", "identifier", "value", "placeholderValue"};
  std::string attribute = json.text();
  if (std::find(known.begin(), known.end(), attribute) == known.end()) {
    json.fail("must be one of " + listed(known) + ", found \"" + attribute + "\"");
  }
  return attribute;
}

}  // namespace

/// An event, and what its rules say beyond what all rules do.
struct RuleReader::EventRow {
  std::string_view name;
  RuleEvent event;
  std::map<std::string_view, Need> keys;

  Need needOf(std::string_view key) const {
    const auto found = keys.find(key);
    return found == keys.end() ? Need::none : found->second;
  }
};

const std::vector<RuleReader::EventRow>& RuleReader::eventRows() {
  static const std::vector<EventRow> ROWS{
      {"launch", RuleEvent::launch, {}},
      {"screen", RuleEvent::screen, {}},
      {"tap", RuleEvent::tap, {{"element", Need::required}}},
      {"longPress", RuleEvent::longPress, {{"element", Need::required}}},
      {"text", RuleEvent::text, {{"element", Need::required}}},
      {"scroll", RuleEvent::scroll, {{"element", Need::required}, {"at", Need::optional}}},
      {"address", RuleEvent::address, {}},
      {"answer", RuleEvent::answer, {{"element", Need::optional}, {"alert", Need::optional}}},
      {"time", RuleEvent::time, {{"after", Need::required}, {"every", Need::optional}}},
  };
  return ROWS;
}

const RuleReader::EventRow* RuleReader::readEvent(const JSONReader& json) {
  const std::string name = json.text();
  const std::vector<EventRow>& rows = eventRows();
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&name](const EventRow& known) { return known.name == name; });
  if (row == rows.end()) {
    json.fail("\"" + name + "\" is no event; there are " + listed(namesOf(rows)));
  }
  return &*row;
}

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
  static const EventRow UNKNOWN{"",
                                RuleEvent::launch,
                                {{"element", Need::optional},
                                 {"at", Need::optional},
                                 {"alert", Need::optional},
                                 {"after", Need::optional},
                                 {"every", Need::optional}}};
  const EventRow* const known = required(json, "on", &RuleReader::readEvent).value_or(nullptr);
  const EventRow& event = known == nullptr ? UNKNOWN : *known;
  if (known != nullptr) {
    std::vector<std::string> keys{"on", "screen", "when", "do"};
    for (const auto& [key, need] : event.keys) {
      keys.emplace_back(key);
    }
    file_.requireKnownKeys(json, keys);
  }
  if (event.event == RuleEvent::address && !references_.opensAddresses) {
    file_.note(json, "never happens: the application has no \"addresses\"");
  }
  const auto ofEvent = [&](std::string_view key, const auto& read) {
    return asNeeded(event.needOf(key), json, key, read);
  };
  return {.event = event.event,
          .element = ofEvent("element", &RuleReader::readPredicate),
          .alert = ofEvent("alert", &RuleReader::readPredicate),
          .at = ofEvent("at", readEnd),
          .screens = optionally(json, "screen", &RuleReader::readScreens).value_or(std::vector<std::string>()),
          .condition = optionally(json, "when", &RuleReader::readCondition),
          .after = ofEvent("after", &RuleReader::readRuleDuration).value_or(RuleDuration()),
          .every = ofEvent("every", &RuleReader::readInterval),
          .effects = required(json, "do", &RuleReader::readEffects).value_or(std::vector<Effect>())};
}

/// An object of names and texts is a way to write that all of them are equal.
PredicateEvaluator RuleReader::readCondition(const JSONReader& json) {
  try {
    if (json.isText()) {
      return PredicateEvaluator(NSPredicate(json.text()));
    }
    if (!json.isObject()) {
      json.fail("expected an object of named values and their texts, or a predicate over named values");
    }
    std::vector<NSPredicate> equalities;
    for (const auto& [name, text] : readNamedTexts(file_, json)) {
      equalities.emplace_back(name + " == %@", std::initializer_list<NSPredicate::Argument>{text});
    }
    return PredicateEvaluator(NSCompoundPredicate::andPredicate(std::move(equalities)));
  } catch (const PredicateFormatError& error) {
    json.fail(error.what());
  } catch (const RegularExpressionError& error) {
    json.fail(error.what());
  }
}

std::vector<Effect> RuleReader::readEffects(const JSONReader& json) {
  std::vector<Effect> effects;
  for (const JSONReader& entry : json.elements()) {
    if (std::optional<Effect> effect = attempted(entry, &RuleReader::readEffect)) {
      effects.push_back(*std::move(effect));
    }
  }
  return effects;
}

Effect RuleReader::readEffect(const JSONReader& json) {
  const std::vector<EffectRow>& rows = effectRows();
  const auto named = [&json](const EffectRow& row) { return json.optionalMember(row.name).has_value(); };
  if (std::count_if(rows.begin(), rows.end(), named) != 1) {
    json.fail("expected an effect, which has one of the members " + listed(namesOf(rows)) + ", and only one of them");
  }
  const EffectRow& row = *std::find_if(rows.begin(), rows.end(), named);
  std::vector<std::string> keys{std::string(row.name)};
  keys.insert(keys.end(), row.furtherKeys.begin(), row.furtherKeys.end());
  file_.requireKnownKeys(json, keys);
  return (this->*row.read)(json, json.member(row.name));
}

PredicateEvaluator RuleReader::readPredicate(const JSONReader& json) {
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

PredicateEvaluator RuleReader::picked(const JSONReader& predicate) {
  return attempted(predicate, &RuleReader::readPredicate)
      .value_or(PredicateEvaluator(NSCompoundPredicate::orPredicate({})));
}

RuleDuration RuleReader::readRuleDuration(const JSONReader& json) {
  if (!json.isText()) {
    return readDuration(json);
  }
  std::string name = readValueName(json);
  const std::string& text = references_.values.text(name);
  if (!durationIn(text)) {
    json.fail("as a duration, the value \"" + name +
              "\" must begin as a whole number of milliseconds, at most 3600000, under \"values\" in phone.json; " +
              (text.empty() ? "it does not stand there" : "there it is \"" + text + "\""));
  }
  return name;
}

RuleDuration RuleReader::readInterval(const JSONReader& json) {
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

std::string RuleReader::readScreen(const JSONReader& json) {
  std::string name = nonEmptyText(json);
  references_.requireScreen(json, name);
  return name;
}

std::string RuleReader::readApplication(const JSONReader& json) {
  std::string bundleIdentifier = nonEmptyText(json);
  references_.requireApplication(json, bundleIdentifier);
  return bundleIdentifier;
}

std::vector<std::string> RuleReader::readScreens(const JSONReader& json) {
  if (json.isText()) {
    return {readScreen(json)};
  }
  std::vector<std::string> names;
  for (const JSONReader& one : json.elements()) {
    if (std::optional<std::string> name = attempted(one, &RuleReader::readScreen)) {
      names.push_back(*std::move(name));
    }
  }
  if (json.elements().empty()) {
    json.fail("must name a screen");
  }
  return names;
}

SetValues::Source RuleReader::readSource(const JSONReader& json) {
  if (!json.isObject()) {
    return readTemplate(json);
  }
  file_.requireKnownKeys(json, {"element", "attribute"});
  return ElementText{.element = optionally(json, "element", &RuleReader::readPredicate),
                     .attribute = required(json, "attribute", readTextAttribute).value_or("")};
}

Effect RuleReader::show(const JSONReader&, const JSONReader& main) {
  return {ShowScreen{readScreen(main)}};
}

Effect RuleReader::set(const JSONReader&, const JSONReader& main) {
  SetValues effect;
  for (const auto& member : main.members()) {
    file_.attempt([&] {
      const auto& [name, source] = member;
      requireValueName(source, name);
      effect.texts.emplace_back(name, readSource(source));
    });
  }
  if (main.members().empty()) {
    main.fail("must set a named value");
  }
  return {std::move(effect)};
}

Effect RuleReader::add(const JSONReader&, const JSONReader& main) {
  AddToValues effect;
  for (const auto& member : main.members()) {
    file_.attempt([&] {
      const auto& [name, amount] = member;
      requireValueName(amount, name);
      effect.amounts.emplace(name, amount.integer());
    });
  }
  if (main.members().empty()) {
    main.fail("must add to a named value");
  }
  return {std::move(effect)};
}

Effect RuleReader::change(const JSONReader& effect, const JSONReader& main) {
  static const JSONValue NOTHING(JSONValue::Object{});
  const auto readChanges = [this](const JSONReader& json) {
    file_.requireKnownKeys(json, {"label", "identifier", "value", "placeholderValue", "enabled", "selected", "visible",
                                  "x", "y", "width", "height"});
    if (json.members().empty()) {
      json.fail("must name an attribute to change");
    }
    return json;
  };
  const JSONReader to = required(effect, "to", readChanges).value_or(JSONReader(NOTHING));
  return {ChangeElements{.elements = picked(main),
                         .label = optionally(to, "label", readAttributeText),
                         .identifier = optionally(to, "identifier", readAttributeText),
                         .value = optionally(to, "value", readAttributeText),
                         .placeholder = optionally(to, "placeholderValue", readAttributeText),
                         .isEnabled = optionally(to, "enabled", readTruthValue),
                         .isSelected = optionally(to, "selected", readTruthValue),
                         .isVisible = optionally(to, "visible", readTruthValue),
                         .x = optionally(to, "x", readNumber),
                         .y = optionally(to, "y", readNumber),
                         .width = optionally(to, "width", readExtent),
                         .height = optionally(to, "height", readExtent)}};
}

Effect RuleReader::move(const JSONReader& effect, const JSONReader& main) {
  MoveElements move{.elements = picked(main),
                    .dx = 0,
                    .dy = 0,
                    .over = optionally(effect, "over", &RuleReader::readRuleDuration).value_or(RuleDuration())};
  file_.attempt([&] { readMove(effect.member("by"), move); });
  return {std::move(move)};
}

void RuleReader::readMove(const JSONReader& by, MoveElements& effect) {
  file_.requireKnownKeys(by, {"x", "y"});
  effect.dx = required(by, "x", readNumber).value_or(0);
  effect.dy = required(by, "y", readNumber).value_or(0);
}

Effect RuleReader::insert(const JSONReader& effect, const JSONReader& main) {
  const auto readFragment = [this](const JSONReader& json) {
    std::string name = nonEmptyText(json);
    references_.requireFragment(json, name);
    return name;
  };
  const auto readInsertionInto = [&effect](const JSONReader& json) {
    if (!effect.optionalMember("into")) {
      json.fail("needs \"into\": the element below whose content the page is inserted");
    }
    return readInsertion(json);
  };
  return {InsertElements{.fragment = attempted(main, readFragment).value_or(""),
                         .into = optionally(effect, "into", &RuleReader::readPredicate),
                         .insertion = optionally(effect, "at", readInsertionInto).value_or(Insertion::asCaptured),
                         .lifetime = optionally(effect, "for", &RuleReader::readRuleDuration)}};
}

Effect RuleReader::remove(const JSONReader&, const JSONReader& main) {
  return {RemoveElements{readPredicate(main)}};
}

Effect RuleReader::focus(const JSONReader&, const JSONReader& main) {
  return {FocusElement{readPredicate(main)}};
}

Effect RuleReader::raise(const JSONReader& effect, const JSONReader& main, AlertKind kind) {
  RaiseAlert alert{.kind = kind,
                   .title = {},
                   .message = {},
                   .buttons = {},
                   .answer = optionally(effect, "answer", readValueName).value_or("")};
  file_.attempt([&] { readAlert(main, alert); });
  return {std::move(alert)};
}

void RuleReader::readAlert(const JSONReader& texts, RaiseAlert& alert) {
  file_.requireKnownKeys(texts, {"title", "message", "buttons"});
  const Need title = alert.kind == AlertKind::sheet ? Need::optional : Need::required;
  alert.title = asNeeded(title, texts, "title", readNonEmptyTemplate).value_or(TextTemplate());
  alert.message = optionally(texts, "message", readTemplate).value_or(TextTemplate());
  const JSONReader buttons = texts.member("buttons");
  for (const JSONReader& button : buttons.elements()) {
    alert.buttons.push_back(attempted(button, readNonEmptyTemplate).value_or(TextTemplate()));
  }
  if (alert.buttons.empty()) {
    buttons.fail("without a button it could never be answered");
  }
}

Effect RuleReader::alert(const JSONReader& effect, const JSONReader& main) {
  return raise(effect, main, AlertKind::alert);
}

Effect RuleReader::sheet(const JSONReader& effect, const JSONReader& main) {
  return raise(effect, main, AlertKind::sheet);
}

Effect RuleReader::systemAlert(const JSONReader& effect, const JSONReader& main) {
  return raise(effect, main, AlertKind::system);
}

Effect RuleReader::askPermission(const JSONReader& effect, const JSONReader& main) {
  const auto readPermission = [this](const JSONReader& json) {
    const std::optional<AlertText> texts = permissionAlert(json.text(), references_.applicationName);
    if (!texts) {
      json.fail("must be one of " + knownPermissions() + ", found \"" + json.text() + "\"");
    }
    return *texts;
  };
  const AlertText texts = attempted(main, readPermission).value_or(AlertText());
  RaiseAlert alert{.kind = AlertKind::system,
                   .title = TextTemplate(texts.title),
                   .message = optionally(effect, "message", readTemplate).value_or(TextTemplate(texts.message)),
                   .buttons = {},
                   .answer = optionally(effect, "answer", readValueName).value_or("")};
  for (const std::string& button : texts.buttons) {
    alert.buttons.emplace_back(button);
  }
  return {std::move(alert)};
}

Effect RuleReader::open(const JSONReader&, const JSONReader& main) {
  return {OpenApplication{readApplication(main)}};
}

Effect RuleReader::openAddress(const JSONReader&, const JSONReader& main) {
  return {OpenAddress{readNonEmptyTemplate(main)}};
}

Effect RuleReader::terminate(const JSONReader&, const JSONReader& main) {
  return {TerminateApplication{readApplication(main)}};
}

Effect RuleReader::later(const JSONReader& effect, const JSONReader& main) {
  return {Later{.after = attempted(main, &RuleReader::readRuleDuration).value_or(RuleDuration()),
                .screens = optionally(effect, "screen", &RuleReader::readScreens).value_or(std::vector<std::string>()),
                .condition = optionally(effect, "when", &RuleReader::readCondition),
                .effects = required(effect, "do", &RuleReader::readEffects).value_or(std::vector<Effect>())}};
}

}  // namespace quobrak::simulator
