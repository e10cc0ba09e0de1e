#include "host/phone/Selector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "host/Subcommand.h"
#include "platform/uiautomation/ElementType.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

Selector selector(SelectorKind kind, const std::string& text, bool isEnabled = true) {
  return {.kind = kind, .text = text, .isEnabled = isEnabled};
}

std::string predicateOf(const Selector& written) {
  const XCUIElementQuery query = queryOf(written, "com.example.test");
  return std::get<MatchingPredicateStep>(query.steps().at(1)).predicate.predicateFormat();
}

ElementType typeOf(const Selector& written) {
  return std::get<DescendantsStep>(queryOf(written, "com.example.test").steps().at(0)).type;
}

TEST(Selector, AsksWhatCommandsAsk) {
  EXPECT_EQ(predicateOf(selector(SelectorKind::text, "a")),
            R"(label CONTAINS[c] "a" AND enabled == TRUE OR identifier CONTAINS[c] "a" AND enabled == TRUE OR )"
            R"(placeholderValue CONTAINS[c] "a" AND enabled == TRUE)");
  EXPECT_EQ(predicateOf(selector(SelectorKind::textExact, "a", false)),
            R"(label MATCHES "a" AND enabled == FALSE OR identifier MATCHES "a" AND enabled == FALSE OR )"
            R"(placeholderValue MATCHES "a" AND enabled == FALSE)");
  EXPECT_EQ(predicateOf(selector(SelectorKind::label, "a")), R"(label CONTAINS[c] "a")");
  EXPECT_EQ(predicateOf(selector(SelectorKind::labelExact, "a")), R"(label MATCHES "a")");
  EXPECT_EQ(predicateOf(selector(SelectorKind::field, "a")), R"(identifier CONTAINS[c] "a")");
  EXPECT_EQ(predicateOf(selector(SelectorKind::fieldExact, "a")), R"(identifier MATCHES "a")");
  EXPECT_EQ(predicateOf(selector(SelectorKind::className, "Button", false)), "enabled == FALSE");
  EXPECT_EQ(predicateOf(selector(SelectorKind::predicate, "value == '1' && hittable == 1")),
            R"(value == "1" AND hittable == TRUE)");
}

TEST(Selector, LooksAmongAllElementsOrThoseOfAClass) {
  EXPECT_EQ(typeOf(selector(SelectorKind::text, "a")), ElementType::any);
  EXPECT_EQ(typeOf(selector(SelectorKind::className, "StaticText")), ElementType::staticText);
}

void expectRefusal(const Selector& refused, const std::string& message) {
  EXPECT_THAT([&refused] { queryOf(refused, "com.example.test"); }, ThrowsMessage<UseError>(message));
}

TEST(Selector, WhatCannotBeReadIsRefused) {
  for (const auto& [written, message] :
       {std::pair{selector(SelectorKind::textExact, "("),
                  "--text-exact: the regular expression \"(\" cannot be read: a parenthesis has no partner, at "
                  "character 1"},
        std::pair{selector(SelectorKind::fieldExact, "[a"),
                  "--field-exact: the regular expression \"[a\" cannot be read: a bracket expression has no closing "
                  "bracket, at character 2"},
        std::pair{selector(SelectorKind::predicate, "label =="),
                  "--predicate: column 9: expected a key path, a text, TRUE, FALSE or %@, found the end in the "
                  "predicate format: label =="},
        std::pair{selector(SelectorKind::predicate, "name == 'a'"),
                  "--predicate: elements have no attribute \"name\"; they have label, identifier, placeholderValue, "
                  "value, enabled, selected, exists, hittable"},
        std::pair{selector(SelectorKind::className, "Buton"), "scripts have no class \"Buton\"; did you mean Button?"},
        std::pair{selector(SelectorKind::className, "Slider"),
                  "scripts have no class \"Slider\"; the classes are Button, Cell, CheckBox, Icon, Image, Other, "
                  "RadioButton, StaticText, Table, TextField, TextView, WebView, Window"}}) {
    expectRefusal(written, message);
  }
}

/// The rank 0 is refused too, but only behind the class.
bool scriptsHaveClass(const std::string& name) {
  try {
    Find::findByClass({.selector = name, .nthElement = 0, .isEnabled = true});
  } catch (const FWKTError& error) {
    return error.message() != "The expected class " + name + " does not exist";
  }
  return true;
}

TEST(Selector, ClassesAreThoseOfScripts) {
  std::size_t classes = 0;
  for (int raw = 0; raw <= static_cast<int>(ElementType::statusItem); ++raw) {
    const std::string name(nameOf(static_cast<ElementType>(raw)));
    if (scriptsHaveClass(name)) {
      EXPECT_EQ(typeOf(selector(SelectorKind::className, name)), static_cast<ElementType>(raw));
      ++classes;
    } else {
      EXPECT_THROW(typeOf(selector(SelectorKind::className, name)), UseError) << name;
    }
  }
  EXPECT_EQ(classes, 13U);
}

TEST(Selector, IsToldInWords) {
  for (const auto& [written, meaning] :
       {std::pair{selector(SelectorKind::text, "a"),
                  "enabled elements whose label, identifier or placeholder contains \"a\", in any case"},
        std::pair{selector(SelectorKind::textExact, "a", false),
                  "disabled elements whose label, identifier or placeholder matches the pattern \"a\", as a whole"},
        std::pair{selector(SelectorKind::label, "a"), "elements whose label contains \"a\", in any case"},
        std::pair{selector(SelectorKind::fieldExact, "a"),
                  "elements whose identifier matches the pattern \"a\", as a whole"},
        std::pair{selector(SelectorKind::className, "Cell"), "enabled elements of the class Cell"},
        std::pair{selector(SelectorKind::predicate, "value == 'a'"), "elements for which value == 'a'"}}) {
    EXPECT_EQ(meaningOf(written), meaning);
  }
  EXPECT_EQ(written(selector(SelectorKind::text, "a")), "--text \"a\"");
  EXPECT_EQ(written(selector(SelectorKind::className, "Cell", false)), "--class \"Cell\" --disabled");
  EXPECT_EQ(written(selector(SelectorKind::label, "\x1b", false)), "--label \"␛\"");
}

TEST(Selector, CommandsThatLookSoAreToldAsAScriptHasThem) {
  EXPECT_THAT(commandsOf(selector(SelectorKind::text, "a")), ElementsAre("clickByText,a", "findByText,a,N"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::text, "a", false)), ElementsAre("findByText,a,N,false"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::textExact, "a")),
              ElementsAre("clickByTextExact,a", "findByTextExact,a,N"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::label, "a")), ElementsAre("waitUntilText,a", "waitUntilGoneText,a"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::labelExact, "a")),
              ElementsAre("waitUntilTextExact,a", "waitUntilGoneTextExact,a"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::field, "a")),
              ElementsAre("waitUntilAccessibilityField,a", "waitUntilGoneAccessibilityField,a"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::fieldExact, "a")),
              ElementsAre("waitUntilAccessibilityFieldExact,a", "waitUntilGoneAccessibilityFieldExact,a"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::className, "Cell", false)), ElementsAre("findByClass,Cell,N,false"));
  EXPECT_THAT(commandsOf(selector(SelectorKind::predicate, "a == b")), IsEmpty());
}

TEST(Selector, EachKindHasAnOptionAndAPurpose) {
  for (const SelectorKind kind : selectorKinds()) {
    EXPECT_THAT(std::string(optionOf(kind)), ::testing::StartsWith("--"));
    EXPECT_THAT(std::string(purposeOf(kind)), HasSubstr("Find "));
  }
  EXPECT_EQ(selectorKinds().size(), 8U);
}

TEST(Selector, RelativesAreWhatMayHaveBeenMeant) {
  const auto relativesOf = [](SelectorKind kind) {
    std::vector<std::string> texts;
    for (const Selector& relative : relatives(selector(kind, "a"))) {
      texts.push_back(written(relative));
    }
    return texts;
  };
  EXPECT_THAT(relativesOf(SelectorKind::text), ElementsAre("--text \"a\" --disabled"));
  EXPECT_THAT(relativesOf(SelectorKind::textExact), ElementsAre("--text-exact \"a\" --disabled", "--text \"a\""));
  EXPECT_THAT(relativesOf(SelectorKind::label), ElementsAre("--field \"a\""));
  EXPECT_THAT(relativesOf(SelectorKind::labelExact), ElementsAre("--label \"a\"", "--field-exact \"a\""));
  EXPECT_THAT(relativesOf(SelectorKind::field), ElementsAre("--label \"a\""));
  EXPECT_THAT(relativesOf(SelectorKind::fieldExact), ElementsAre("--field \"a\"", "--label-exact \"a\""));
  EXPECT_THAT(relativesOf(SelectorKind::className), ElementsAre("--class \"a\" --disabled"));
  EXPECT_THAT(relativesOf(SelectorKind::predicate), IsEmpty());
}

}  // namespace
}  // namespace quobrak::host
