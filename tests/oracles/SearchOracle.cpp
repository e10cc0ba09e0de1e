#include "tests/oracles/SearchOracle.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "tests/oracles/Alphabets.h"

namespace quobrak::oracles {

namespace {

// What searches look at is noted on the elements, under names that no page source has.
constexpr const char* TYPE = "oracle-type";
constexpr const char* LABEL = "oracle-label";
constexpr const char* IDENTIFIER = "oracle-identifier";
constexpr const char* PLACEHOLDER = "oracle-placeholder";
constexpr const char* FOLDED = "-in-small-letters";

constexpr const char* ALL = "//*[@oracle-type]";
/// Most elements have no text. They are left out once, because it takes long to find out anew in every search.
constexpr const char* WITH_TEXT = "$withText";

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

std::string inSmallLetters(const std::string& expression) {
  return "translate(" + expression + ", " + quoted(CAPITALS) + ", " + quoted(SMALL_LETTERS) + ")";
}

/// The condition for one of the three attributes that a text is looked for in.
template <class Condition>
std::string ofAnyText(Condition condition) {
  return condition(LABEL) + " or " + condition(IDENTIFIER) + " or " + condition(PLACEHOLDER);
}

}  // namespace

SearchOracle::SearchOracle(std::string_view pageSource) : document_(pageSource), facts_(factsOf(document_)) {
  for (const ElementFacts& element : facts_.elements) {
    places_.emplace(element.node, places_.size());
    note(element);
  }
  document_.setSelection("withText", std::string(ALL) + "[" + ofAnyText([](const std::string& name) {
                                       return "string(@" + name + ") != ''";
                                     }) + "]");
}

void SearchOracle::note(const ElementFacts& element) {
  const auto noteText = [&](const std::string& name, const std::string& text) {
    XPathDocument::setAttribute(element.node, name, text);
    XPathDocument::setAttribute(element.node, name + FOLDED,
                                document_.textAt(element.node, inSmallLetters("@" + name)));
  };
  noteText(LABEL, element.label);
  noteText(IDENTIFIER, element.identifier);
  if (element.placeholder) {
    noteText(PLACEHOLDER, *element.placeholder);
  }
  XPathDocument::setAttribute(element.node, TYPE, element.type);
}

std::vector<std::string> SearchOracle::texts() {
  std::set<std::string> texts;
  for (const ElementFacts& element : elements()) {
    for (const char* const attribute : {"@label", "@name", "@identifier", "@placeholderValue"}) {
      texts.insert(document_.textAt(element.node, attribute));
    }
  }
  texts.erase("");
  return {texts.begin(), texts.end()};
}

std::vector<std::string> SearchOracle::types() const {
  std::set<std::string> types;
  for (const ElementFacts& element : elements()) {
    types.insert(element.type);
  }
  return {types.begin(), types.end()};
}

Places SearchOracle::placesOf(const std::vector<xmlNode*>& elements) const {
  Places places;
  for (const xmlNode* const element : elements) {
    places.push_back(places_.at(element));
  }
  return places;
}

Places SearchOracle::selected(const std::string& selection, const std::string& condition) {
  return placesOf(document_.select(document_.root(), selection + "[" + condition + "]"));
}

Places SearchOracle::containing(const std::string& text) {
  document_.setVariable("text", valueOf(inSmallLetters("$text"), text));
  return selected(WITH_TEXT,
                  ofAnyText([](const std::string& name) { return "contains(@" + name + FOLDED + ", $text)"; }));
}

Places SearchOracle::having(const std::string& text) {
  document_.setVariable("text", text);
  return selected(text.empty() ? ALL : WITH_TEXT,
                  ofAnyText([](const std::string& name) { return "@" + name + " = $text"; }));
}

Places SearchOracle::ofType(const std::string& type) {
  document_.setVariable("type", type);
  return selected(ALL, "$type = 'Any' or $type = @" + std::string(TYPE));
}

Places SearchOracle::staticTextsIn(std::size_t place, const std::string& text) {
  document_.setVariable("text", valueOf(inSmallLetters("$text"), text));
  const std::string isStaticText = "@" + std::string(TYPE) + " = 'StaticText'";
  const std::string hasText = "contains(@" + std::string(LABEL) + FOLDED + ", $text)";
  return placesOf(document_.select(elements()[place].node, "descendant::*[" + isStaticText + "][" + hasText + "]"));
}

Places SearchOracle::inState(const Places& places, bool isEnabled) const {
  Places inState;
  std::copy_if(places.begin(), places.end(), std::back_inserter(inState),
               [&](std::size_t place) { return elements()[place].isEnabled == isEnabled; });
  return inState;
}

bool SearchOracle::canFold(std::size_t place) const {
  const ElementFacts& element = elements()[place];
  return areAllTheAlphabets(element.label + element.identifier + element.placeholder.value_or(""));
}

std::string SearchOracle::valueOf(const std::string& expression, const std::string& text) {
  document_.setVariable("text", text);
  return document_.textAt(document_.root(), expression);
}

std::string SearchOracle::middleOf(const std::string& text) {
  return valueOf("substring($text, floor(string-length($text) div 4) + 1, ceiling(string-length($text) div 2))", text);
}

std::string SearchOracle::inOtherCase(const std::string& text) {
  const std::string letters = std::string(CAPITALS) + std::string(SMALL_LETTERS);
  const std::string partners = std::string(SMALL_LETTERS) + std::string(CAPITALS);
  return valueOf("translate($text, " + quoted(letters) + ", " + quoted(partners) + ")", text);
}

}  // namespace quobrak::oracles
