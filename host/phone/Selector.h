#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uiautomation/XCUIElementQuery.h"

namespace quobrak::host {

/// What a selector is compared with, and how.
enum class SelectorKind { text, textExact, label, labelExact, field, fieldExact, className, predicate };

/// What a command of a script looks for.
struct Selector {
  SelectorKind kind;
  std::string text;
  /// Whether enabled elements are looked for, or else disabled ones; only of kinds that ask for a state.
  bool isEnabled = true;
};

/// All kinds, in the order of the help.
std::vector<SelectorKind> selectorKinds();

/// The option of that kind, such as "--text".
std::string_view optionOf(SelectorKind kind);

/// What the option is for, in one line.
std::string_view purposeOf(SelectorKind kind);

/// Whether such a selector looks among enabled elements only, or among disabled ones only.
bool asksForState(SelectorKind kind);

/// The selector as it is typed: `--text "basket" --disabled`.
std::string written(const Selector& selector);

/// Which elements it looks for, in words.
std::string meaningOf(const Selector& selector);

/// Lines of scripts that look for them, N standing for the rank of a match. None of a predicate.
std::vector<std::string> commandsOf(const Selector& selector);

/// What commands ask the application for. Throws `UseError` for a pattern or a predicate that cannot be read, for an
/// attribute that elements do not have, and for a class that scripts do not have.
XCUIElementQuery queryOf(const Selector& selector, const std::string& application);

/// The selectors that may have been meant where this one finds nothing.
std::vector<Selector> relatives(const Selector& selector);

}  // namespace quobrak::host
