#include "host/phone/Selector.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "drivers/simulator/ElementAttributes.h"
#include "host/Subcommand.h"
#include "host/terminal/NearestNames.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/SelectorPredicates.h"

namespace quobrak::host {

namespace {

/// The attribute that all of an element's texts together are called.
constexpr std::string_view ANY_TEXT{};

/// What is known of a kind.
struct Row {
  SelectorKind kind;
  std::string_view option;
  std::string_view purpose;
  std::string_view attribute;
  bool isExact;
  /// Commands that look so: "name," and what follows the selector.
  std::array<std::array<std::string_view, 2>, 2> commands;
};

constexpr std::array ROWS{
    Row{SelectorKind::text,
        "--text",
        "Find as clickByText and findByText do: a part of label, identifier or placeholder",
        ANY_TEXT,
        false,
        {{{"clickByText,", ""}, {"findByText,", ",N"}}}},
    Row{SelectorKind::textExact,
        "--text-exact",
        "Find as clickByTextExact and findByTextExact do: a pattern for all of one of these",
        ANY_TEXT,
        true,
        {{{"clickByTextExact,", ""}, {"findByTextExact,", ",N"}}}},
    Row{SelectorKind::label,
        "--label",
        "Find as waitUntilText does: a part of the label",
        "label",
        false,
        {{{"waitUntilText,", ""}, {"waitUntilGoneText,", ""}}}},
    Row{SelectorKind::labelExact,
        "--label-exact",
        "Find as waitUntilTextExact does: a pattern for the whole label",
        "label",
        true,
        {{{"waitUntilTextExact,", ""}, {"waitUntilGoneTextExact,", ""}}}},
    Row{SelectorKind::field,
        "--field",
        "Find as waitUntilAccessibilityField does: a part of the identifier",
        "identifier",
        false,
        {{{"waitUntilAccessibilityField,", ""}, {"waitUntilGoneAccessibilityField,", ""}}}},
    Row{SelectorKind::fieldExact,
        "--field-exact",
        "Find as waitUntilAccessibilityFieldExact does: a pattern for the whole identifier",
        "identifier",
        true,
        {{{"waitUntilAccessibilityFieldExact,", ""}, {"waitUntilGoneAccessibilityFieldExact,", ""}}}},
    Row{SelectorKind::className,
        "--class",
        "Find as findByClass does: the name of a class",
        ANY_TEXT,
        false,
        {{{"findByClass,", ",N"}, {"", ""}}}},
    Row{SelectorKind::predicate,
        "--predicate",
        "Find by any predicate, as rules of descriptions do",
        ANY_TEXT,
        false,
        {{{"", ""}, {"", ""}}}},
};

const Row& rowOf(SelectorKind kind) {
  return *std::find_if(ROWS.begin(), ROWS.end(), [kind](const Row& row) { return row.kind == kind; });
}

/// Each class of scripts bears the name of its type.
ElementType classOf(const std::string& name) {
  const std::vector<std::string_view> classes = Find::classNames();
  if (std::find(classes.begin(), classes.end(), name) != classes.end()) {
    return elementTypeNamed(name).value();
  }
  const std::string question = didYouMean(nearestNames(name, classes));
  std::string all;
  for (const std::string_view known : classes) {
    all += (all.empty() ? "" : ", ") + std::string(known);
  }
  throw UseError("scripts have no class \"" + shown(name) + "\"; " +
                 (question.empty() ? "the classes are " + all : question));
}

NSPredicate predicateOf(const Selector& selector) {
  const Row& row = rowOf(selector.kind);
  const TextSelector text{.text = selector.text, .isExact = row.isExact};
  switch (selector.kind) {
    case SelectorKind::predicate:
      return NSPredicate(selector.text);
    case SelectorKind::className:
      return statePredicate(selector.isEnabled);
    default:
      return row.attribute == ANY_TEXT ? anyTextPredicate(text, selector.isEnabled)
                                       : attributePredicate(row.attribute, text);
  }
}

/// Throws for what would only be found out while it is asked.
void requireReadable(const NSPredicate& predicate) {
  simulator::requireKnownAttributes(predicate);
  const PredicateEvaluator evaluator(predicate);
}

[[noreturn]] void failFor(const Selector& selector, const std::exception& fault) {
  throw UseError(std::string(optionOf(selector.kind)) + ": " + shown(fault.what()));
}

std::string quoted(std::string_view text) {
  return "\"" + shown(text) + "\"";
}

}  // namespace

std::vector<SelectorKind> selectorKinds() {
  std::vector<SelectorKind> kinds(ROWS.size());
  std::transform(ROWS.begin(), ROWS.end(), kinds.begin(), [](const Row& row) { return row.kind; });
  return kinds;
}

std::string_view optionOf(SelectorKind kind) {
  return rowOf(kind).option;
}

std::string_view purposeOf(SelectorKind kind) {
  return rowOf(kind).purpose;
}

bool asksForState(SelectorKind kind) {
  return kind == SelectorKind::text || kind == SelectorKind::textExact || kind == SelectorKind::className;
}

std::string written(const Selector& selector) {
  const bool isDisabled = asksForState(selector.kind) && !selector.isEnabled;
  return std::string(optionOf(selector.kind)) + " " + quoted(selector.text) + (isDisabled ? " --disabled" : "");
}

std::string meaningOf(const Selector& selector) {
  const Row& row = rowOf(selector.kind);
  const std::string state = !asksForState(selector.kind) ? "elements"
                            : selector.isEnabled         ? "enabled elements"
                                                         : "disabled elements";
  if (selector.kind == SelectorKind::predicate) {
    return "elements for which " + shown(selector.text);
  }
  if (selector.kind == SelectorKind::className) {
    return state + " of the class " + shown(selector.text);
  }
  const std::string attribute =
      row.attribute == ANY_TEXT ? "label, identifier or placeholder" : std::string(row.attribute);
  return state + " whose " + attribute + (row.isExact ? " matches the pattern " : " contains ") +
         quoted(selector.text) + (row.isExact ? ", as a whole" : ", in any case");
}

std::vector<std::string> commandsOf(const Selector& selector) {
  std::vector<std::string> commands;
  for (const auto& [name, rest] : rowOf(selector.kind).commands) {
    // A tap looks among enabled elements only, and so does a search that does not say otherwise.
    const bool isPossible = !name.empty() && (selector.isEnabled || !rest.empty());
    if (isPossible) {
      commands.push_back(std::string(name) + shown(selector.text) + std::string(rest) +
                         (selector.isEnabled ? "" : ",false"));
    }
  }
  return commands;
}

XCUIElementQuery queryOf(const Selector& selector, const std::string& application) {
  const ElementType type = selector.kind == SelectorKind::className ? classOf(selector.text) : ElementType::any;
  try {
    const NSPredicate predicate = predicateOf(selector);
    requireReadable(predicate);
    return XCUIElementQuery(ApplicationRoot{application}).appending(DescendantsStep{type}).matching(predicate);
  } catch (const PredicateFormatError& fault) {
    failFor(selector, fault);
  } catch (const RegularExpressionError& fault) {
    failFor(selector, fault);
  } catch (const simulator::UnknownAttributeError& fault) {
    failFor(selector, fault);
  }
}

std::vector<Selector> relatives(const Selector& selector) {
  std::vector<Selector> related;
  const auto add = [&](SelectorKind kind) {
    related.push_back({.kind = kind, .text = selector.text, .isEnabled = true});
  };
  if (asksForState(selector.kind)) {
    related.push_back({.kind = selector.kind, .text = selector.text, .isEnabled = !selector.isEnabled});
  }
  switch (selector.kind) {
    case SelectorKind::textExact:
      add(SelectorKind::text);
      break;
    case SelectorKind::label:
      add(SelectorKind::field);
      break;
    case SelectorKind::labelExact:
      add(SelectorKind::label);
      add(SelectorKind::fieldExact);
      break;
    case SelectorKind::field:
      add(SelectorKind::label);
      break;
    case SelectorKind::fieldExact:
      add(SelectorKind::field);
      add(SelectorKind::labelExact);
      break;
    default:
      break;
  }
  return related;
}

}  // namespace quobrak::host
