#include "drivers/webdriver/WirePredicate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "drivers/webdriver/ElementAttributes.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::webdriver {
namespace {

using ::testing::ThrowsMessage;

/// The predicate as it goes out, or "all" or "none" where every element gets the same answer.
std::string wireFormat(const WirePredicate& predicate) {
  if (const bool* const constant = std::get_if<bool>(&predicate)) {
    return *constant ? "all" : "none";
  }
  return std::get<NSPredicate>(predicate).predicateFormat();
}

struct Row {
  std::string predicate;
  std::string onTheWire;
};

const Row LABEL_ROWS[] = {
    {"label == 'a'", R"(label == "a")"},
    {"label == [c] 'a'", R"(label ==[c] "a")"},
    {"label CONTAINS 'a'", R"(label CONTAINS "a")"},
    {"label CONTAINS[c] 'a'", R"(label CONTAINS[c] "a")"},
    {"label MATCHES 'a.'", R"(label MATCHES "a.")"},
    {"label MATCHES[c] 'a.'", R"(label MATCHES[c] "a.")"},
    // An empty label is missing on the wire.
    {"label == ''", R"(label == "" OR NOT label MATCHES "(?s).*")"},
    {"label ==[c] ''", R"(label ==[c] "" OR NOT label MATCHES "(?s).*")"},
    {"label MATCHES '.*'", R"(label MATCHES ".*" OR NOT label MATCHES "(?s).*")"},
    {"label MATCHES[c] 'a?'", R"(label MATCHES[c] "a?" OR NOT label MATCHES "(?s).*")"},
    {"label MATCHES ''", R"(label MATCHES "" OR NOT label MATCHES "(?s).*")"},
    {"label CONTAINS ''", R"(label CONTAINS "")"},
    {"label CONTAINS[c] ''", R"(label CONTAINS[c] "")"},
    {"label != 'a'", R"(NOT label == "a")"},
    {"label BEGINSWITH 'a'", R"(label MATCHES "(?s)a.*")"},
    {"label == TRUE", "none"},
    {"label CONTAINS FALSE", "none"},
    {"NOT label == TRUE", "all"},
};

const Row IDENTIFIER_ROWS[] = {
    {"identifier == 'a'", R"(name == "a" AND NOT name == label)"},
    {"identifier ==[c] 'a'", R"(name ==[c] "a" AND NOT name == label)"},
    {"identifier CONTAINS 'a'", R"(name CONTAINS "a" AND NOT name == label)"},
    {"identifier CONTAINS[c] 'a'", R"(name CONTAINS[c] "a" AND NOT name == label)"},
    {"identifier MATCHES 'a.'", R"(name MATCHES "a." AND NOT name == label)"},
    {"identifier MATCHES[c] 'a.'", R"(name MATCHES[c] "a." AND NOT name == label)"},
    {"identifier == ''", R"(name == "" AND NOT name == label OR name == label OR NOT name MATCHES "(?s).*")"},
    {"identifier MATCHES '.*'",
     R"(name MATCHES ".*" AND NOT name == label OR name == label OR NOT name MATCHES "(?s).*")"},
    {"identifier CONTAINS ''", R"(name CONTAINS "" AND NOT name == label)"},
    {"identifier == FALSE", "none"},
};

const Row VALUE_ROWS[] = {
    {"value == 'a'", R"(value == "a" AND NOT (type == "XCUIElementTypeStaticText" AND value == label) AND NOT )"
                     R"((type == "XCUIElementTypeButton" AND selected == TRUE AND value == "1"))"},
    {"value CONTAINS[c] 'a'",
     R"(value CONTAINS[c] "a" AND NOT (type == "XCUIElementTypeStaticText" AND value == label) AND NOT )"
     R"((type == "XCUIElementTypeButton" AND selected == TRUE AND value == "1"))"},
    {"value MATCHES '.*'",
     R"(value MATCHES ".*" AND NOT (type == "XCUIElementTypeStaticText" AND value == label) AND NOT )"
     R"((type == "XCUIElementTypeButton" AND selected == TRUE AND value == "1"))"},
    {"value == ''", R"(value == "" AND NOT (type == "XCUIElementTypeStaticText" AND value == label) AND NOT )"
                    R"((type == "XCUIElementTypeButton" AND selected == TRUE AND value == "1"))"},
    {"value == TRUE", "none"},
    {"placeholderValue == 'a'", R"(placeholderValue == "a")"},
    {"placeholderValue == ''", R"(placeholderValue == "")"},
    {"placeholderValue CONTAINS[c] 'a'", R"(placeholderValue CONTAINS[c] "a")"},
    {"placeholderValue MATCHES 'a.'", R"(placeholderValue MATCHES "a.")"},
    {"placeholderValue == FALSE", "none"},
};

const Row TRUTH_ROWS[] = {
    {"enabled == TRUE", "enabled == TRUE"},
    {"enabled == 0", "enabled == FALSE"},
    {"enabled ==[c] YES", "enabled ==[c] TRUE"},
    {"selected == FALSE", "selected == FALSE"},
    {"hittable == TRUE", "hittable == TRUE"},
    {"NOT hittable == TRUE", "NOT hittable == TRUE"},
    // What a query finds exists.
    {"exists == TRUE", "all"},
    {"exists == FALSE", "none"},
    {"exists != TRUE", "none"},
    {"enabled == 'TRUE'", "none"},
    {"selected CONTAINS TRUE", "none"},
    {"hittable MATCHES 'TRUE'", "none"},
    {"exists == ''", "none"},
};

const Row OTHER_ROWS[] = {
    {"'a' == label", R"(label == "a")"},
    {"'a' ==[c] label", R"(label ==[c] "a")"},
    {"'' == label", R"(label == "" OR NOT label MATCHES "(?s).*")"},
    {"TRUE == enabled", "enabled == TRUE"},
    {"TRUE == exists", "all"},
    {"label IN {'a', 'b'}", R"(label == "a" OR label == "b")"},
    {"label IN {}", "none"},
    {"'a' IN label", R"(label CONTAINS "a")"},
    {"'a' == 'a'", "all"},
    {"'a' == 'b'", "none"},
    {"'a' ==[c] 'A'", "all"},
    {"'abc' CONTAINS 'b'", "all"},
    {"'abc' MATCHES 'b'", "none"},
    {"TRUE == TRUE", "all"},
    {"TRUE == 'a'", "none"},
    {"TRUEPREDICATE", "all"},
    {"FALSEPREDICATE", "none"},
    {"NOT TRUEPREDICATE", "none"},
    {"label == 'a' AND enabled == TRUE", R"(label == "a" AND enabled == TRUE)"},
    {"label == 'a' AND exists == TRUE", R"(label == "a")"},
    {"label == 'a' AND exists == FALSE", "none"},
    {"exists == TRUE AND TRUEPREDICATE", "all"},
    {"label == 'a' OR enabled == TRUE", R"(label == "a" OR enabled == TRUE)"},
    {"label == 'a' OR exists == TRUE", "all"},
    {"label == 'a' OR exists == FALSE", R"(label == "a")"},
    {"exists == FALSE OR FALSEPREDICATE", "none"},
    {"NOT (label == 'a' AND NOT enabled == TRUE)", R"(NOT (label == "a" AND NOT enabled == TRUE))"},
    {"(label == 'a' OR exists == FALSE) AND NOT (exists == FALSE AND enabled == TRUE)", R"(label == "a")"},
};

std::vector<Row> allRows() {
  std::vector<Row> rows;
  rows.insert(rows.end(), std::begin(LABEL_ROWS), std::end(LABEL_ROWS));
  rows.insert(rows.end(), std::begin(IDENTIFIER_ROWS), std::end(IDENTIFIER_ROWS));
  rows.insert(rows.end(), std::begin(VALUE_ROWS), std::end(VALUE_ROWS));
  rows.insert(rows.end(), std::begin(TRUTH_ROWS), std::end(TRUTH_ROWS));
  rows.insert(rows.end(), std::begin(OTHER_ROWS), std::end(OTHER_ROWS));
  return rows;
}

TEST(WirePredicate, IsWrittenInTheWordsOfTheServer) {
  for (const auto& [predicate, onTheWire] : allRows()) {
    EXPECT_EQ(wireFormat(wirePredicate(NSPredicate(predicate))), onTheWire) << predicate;
  }
}

TEST(WirePredicate, TextsPassThroughItUnharmed) {
  for (const std::string& text :
       {std::string(R"(say "a")"), std::string("it's"), std::string(R"(\)"), std::string("`"),
        std::string("🙂 Größe"), std::string("one\ntwo\tthree"), std::string("%@"), std::string("\x01\x7F")}) {
    const NSPredicate predicate("label == %@", {text});
    EXPECT_EQ(wireFormat(wirePredicate(predicate)), predicate.predicateFormat());
    EXPECT_EQ(wireFormat(wireIdentifierPredicate(text)),
              NSPredicate("name == %@ OR label == %@", {text, text}).predicateFormat());
  }
}

/// An element as a server evaluates predicates over it.
struct ServedElement {
  std::string type;
  std::optional<std::string> label;
  std::optional<std::string> name;
  std::optional<std::string> value;
  std::optional<std::string> placeholder;
  bool isEnabled;
  bool isSelected;
  bool isHittable;
};

class ServedAttributes final : public KeyValueSource {
 public:
  explicit ServedAttributes(const ServedElement& element) : element_(element) {}

  Value valueForKey(std::string_view key) const override {
    const std::pair<std::string_view, Value> attributes[] = {{"type", std::string_view(element_.type)},
                                                             {"label", text(element_.label)},
                                                             {"name", text(element_.name)},
                                                             {"value", text(element_.value)},
                                                             {"enabled", element_.isEnabled},
                                                             {"placeholderValue", text(element_.placeholder)},
                                                             {"selected", element_.isSelected},
                                                             {"hittable", element_.isHittable}};
    for (const auto& [name, value] : attributes) {
      if (name == key) {
        return value;
      }
    }
    throw std::runtime_error("no attribute " + std::string(key));
  }

 private:
  static Value text(const std::optional<std::string>& text) { return text ? Value(std::string_view(*text)) : Value(); }

  const ServedElement& element_;
};

JSONValue json(const std::optional<std::string>& text) {
  return text ? JSONValue(*text) : JSONValue();
}

FoundElement asFound(const ServedElement& element) {
  return foundElements(JSONValue::Array{JSONValue::Object{{"ELEMENT", "e1"},
                                                          {"type", element.type},
                                                          {"label", json(element.label)},
                                                          {"enabled", element.isEnabled},
                                                          {"selected", element.isSelected},
                                                          {"attribute/name", json(element.name)},
                                                          {"attribute/value", json(element.value)},
                                                          {"attribute/placeholderValue", json(element.placeholder)},
                                                          {"attribute/hittable", element.isHittable}}})
      .front();
}

std::vector<ServedElement> servedElements() {
  using Text = std::optional<std::string>;
  std::vector<ServedElement> elements;
  for (const bool isOn : {true, false}) {
    for (const Text& label : {Text(), Text("a"), Text("ab"), Text("B")}) {
      for (const Text& name : {label, Text("a"), Text("ax")}) {
        elements.push_back({"XCUIElementTypeStaticText", label, name, label, std::nullopt, isOn, false, isOn});
        elements.push_back({"XCUIElementTypeStaticText", label, name, "a value", std::nullopt, isOn, false, isOn});
        elements.push_back(
            {"XCUIElementTypeButton", label, name, isOn ? Text("1") : Text(), std::nullopt, true, isOn, isOn});
        elements.push_back({"XCUIElementTypeButton", label, name, "a", std::nullopt, true, isOn, isOn});
        elements.push_back({"XCUIElementTypeSwitch", label, name, isOn ? "1" : "0", std::nullopt, isOn, isOn, true});
      }
    }
    for (const Text& placeholder : {Text(), Text(""), Text("ab")}) {
      elements.push_back({"XCUIElementTypeTextField", "", std::nullopt, placeholder, placeholder, isOn, false, isOn});
      elements.push_back({"XCUIElementTypeTextField", "", "", "", placeholder, isOn, false, isOn});
      elements.push_back({"XCUIElementTypeTextField", "", "a", "A", placeholder, isOn, false, isOn});
    }
  }
  return elements;
}

bool holdsOnTheWire(const WirePredicate& predicate, const ServedElement& element) {
  const bool* const constant = std::get_if<bool>(&predicate);
  return constant == nullptr ? PredicateEvaluator(std::get<NSPredicate>(predicate)).evaluate(ServedAttributes(element))
                             : *constant;
}

std::string inWords(const ServedElement& element) {
  const auto text = [](const std::optional<std::string>& attribute) { return attribute.value_or("(none)"); };
  return element.type + " label " + text(element.label) + " name " + text(element.name) + " value " +
         text(element.value) + " placeholder " + text(element.placeholder) + (element.isSelected ? " selected" : "");
}

TEST(WirePredicate, HoldsForTheVeryElementsForWhichThePredicateHolds) {
  for (const Row& row : allRows()) {
    const NSPredicate predicate(row.predicate);
    const WirePredicate onTheWire = wirePredicate(predicate);
    for (const ServedElement& element : servedElements()) {
      const std::optional<FoundElement> found = asFound(element);
      const bool holds =
          PredicateEvaluator(predicate).evaluate(ElementAttributes(found, [&] { return found->isHittable; }));
      EXPECT_EQ(holdsOnTheWire(onTheWire, element), holds) << row.predicate << " of " << inWords(element);
    }
  }
}

TEST(WireIdentifierPredicate, HoldsWhereIdentifierOrLabelIsTheText) {
  for (const char* const text : {"", "a", "ab", "ax", "A", "`"}) {
    const NSPredicate onTheWire = wireIdentifierPredicate(text);
    for (const ServedElement& element : servedElements()) {
      const FoundElement found = asFound(element);
      EXPECT_EQ(holdsOnTheWire(onTheWire, element), found.identifier == text || found.label == text)
          << '"' << text << "\" of " << inWords(element);
    }
  }
}

TEST(WireIdentifierPredicate, OfNoTextIsAboutWhatHasNone) {
  EXPECT_EQ(wireIdentifierPredicate("").predicateFormat(),
            R"(NOT label MATCHES "(?s).*" OR label == "" OR name == label)");
  EXPECT_EQ(wireIdentifierPredicate("a").predicateFormat(), R"(name == "a" OR label == "a")");
}

TEST(WirePredicate, WhatTheProtocolHasNoWordsForCannotBeAsked) {
  for (const std::string format :
       {"label == identifier", "label == label", "enabled == selected", "\"a\" CONTAINS label", "\"a\" MATCHES label",
        "label CONTAINS identifier", "TRUE CONTAINS enabled"}) {
    EXPECT_THAT([&] { wirePredicate(NSPredicate(format)); },
                ThrowsMessage<UnaskableQuery>("over WebDriver, only comparisons of an attribute with a text or a truth "
                                              "value can be asked: " +
                                              format));
    EXPECT_THAT([&] { wirePredicate(NSPredicate("enabled == TRUE AND NOT (" + format + ")")); },
                ThrowsMessage<UnaskableQuery>("over WebDriver, only comparisons of an attribute with a text or a truth "
                                              "value can be asked: " +
                                              format));
  }
}

TEST(RequireAskable, PassesAllThatElementsHave) {
  for (const auto& [predicate, onTheWire] : allRows()) {
    EXPECT_NO_THROW(requireAskable(NSPredicate(predicate))) << predicate;
  }
  EXPECT_NO_THROW(requireAskable(NSPredicate("label == identifier"))) << "a driver can answer that itself";
  EXPECT_NO_THROW(requireAskable(NSPredicate("label CONTAINS '['")));
}

TEST(RequireAskable, RefusesAttributesThatElementsDoNotHave) {
  for (const std::string key : {"name", "type", "visible", "Label", "frame.x", "wdLabel"}) {
    for (const std::string& format :
         {key + " == 'a'", "'a' == " + key, "label == 'a' AND NOT (enabled == TRUE OR " + key + " CONTAINS 'a')"}) {
      EXPECT_THAT([&] { requireAskable(NSPredicate(format)); },
                  ThrowsMessage<UnaskableQuery>("elements have no attribute \"" + key +
                                                "\"; they have label, identifier, placeholderValue, value, enabled, "
                                                "selected, exists, hittable"));
    }
  }
}

TEST(RequireAskable, RefusesPatternsThatDoNotCompile) {
  std::string reason;
  try {
    const NSRegularExpression pattern("a[");
  } catch (const RegularExpressionError& error) {
    reason = error.what();
  }
  ASSERT_NE(reason, "");
  for (const char* const format : {"label MATCHES 'a['", "label MATCHES[c] 'a['", "'a' MATCHES 'a['",
                                   "enabled == TRUE AND NOT (label == 'a' OR value MATCHES 'a[')"}) {
    EXPECT_THAT([&] { requireAskable(NSPredicate(format)); }, ThrowsMessage<UnaskableQuery>(reason)) << format;
  }
}

}  // namespace
}  // namespace quobrak::webdriver
