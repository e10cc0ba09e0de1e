#include "host/check/Rules.h"

#include <array>
#include <cstddef>

namespace quobrak::host {

namespace {

constexpr std::array RULES{
    RuleInfo{Rule::unreadableText, "unreadable-text", "The file is no text that the run can read."},
    RuleInfo{Rule::noCommand, "no-command", "The script has no command."},
    RuleInfo{Rule::controlCharacter, "control-character", "A command has a control character in its line."},
    RuleInfo{Rule::missingVariable, "missing-variable", "The script refers to a variable that is not set."},
    RuleInfo{Rule::endlessVariable, "endless-variable", "A variable refers to itself, so that the run never ends."},
    RuleInfo{Rule::unreplacedReference, "unreplaced-reference",
             "A reference stands behind characters of several parts, and is not replaced."},
    RuleInfo{Rule::lookAlikeReference, "look-alike-reference", "A text looks like a reference, and is none."},
    RuleInfo{Rule::unknownCommand, "unknown-command", "There is no command of that name."},
    RuleInfo{Rule::missingArgument, "missing-argument", "A command lacks an argument that it needs."},
    RuleInfo{Rule::malformedArgument, "malformed-argument", "An argument cannot be read."},
    RuleInfo{Rule::emptyArgument, "empty-argument", "An argument is there, but empty."},
    RuleInfo{Rule::blankBesideComma, "blank-beside-comma", "A blank beside a comma belongs to the argument."},
    RuleInfo{Rule::quotedArgument, "quoted-argument", "The quotes around an argument belong to it."},
    RuleInfo{Rule::surplusField, "surplus-field", "A command gets more arguments than it reads."},
    RuleInfo{Rule::noApplication, "no-application", "A command acts on an application before one is started."},
    RuleInfo{Rule::nothingFoundYet, "nothing-found-yet", "The last element found is tapped before any search."},
    RuleInfo{Rule::pauseOutOfRange, "pause-out-of-range", "A pause is longer than one sleep can be."},
    RuleInfo{Rule::swipeCount, "swipe-count", "A swipe to a text may make less than one swipe, or more than it can."},
    RuleInfo{Rule::rankBelowOne, "rank-below-one", "The rank of an element is below 1."},
    RuleInfo{Rule::unknownClass, "unknown-class", "There is no class of that name."},
    RuleInfo{Rule::malformedPattern, "malformed-pattern", "A regular expression cannot be read."},
    RuleInfo{Rule::outsideScreen, "outside-screen", "A place lies outside the screen."},
    RuleInfo{Rule::noNumber, "no-number", "A distance is no number, and counts as 0."},
    RuleInfo{Rule::stopWithoutStart, "stop-without-start", "A step is stopped before any was started."},
    RuleInfo{Rule::replacedStep, "replaced-step", "A step begins while another one is open, which is dropped."},
    RuleInfo{Rule::neverStopped, "never-stopped", "A step is never stopped, and leaves no measure."},
};

constexpr bool areInOrder() {
  for (std::size_t i = 0; i < RULES.size(); ++i) {
    if (static_cast<std::size_t>(RULES[i].rule) != i) {
      return false;
    }
  }
  return true;
}

static_assert(areInOrder());

}  // namespace

std::span<const RuleInfo> rules() {
  return RULES;
}

const RuleInfo& infoOf(Rule rule) {
  return RULES.at(static_cast<std::size_t>(rule));
}

}  // namespace quobrak::host
