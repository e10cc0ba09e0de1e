#pragma once

#include <span>
#include <string_view>

namespace quobrak::host {

/// The kinds of problems that a check knows.
enum class Rule {
  unreadableText,
  noCommand,
  controlCharacter,
  missingVariable,
  endlessVariable,
  unreplacedReference,
  lookAlikeReference,
  unknownCommand,
  missingArgument,
  malformedArgument,
  emptyArgument,
  blankBesideComma,
  quotedArgument,
  surplusField,
  noApplication,
  nothingFoundYet,
  pauseOutOfRange,
  swipeCount,
  rankBelowOne,
  unknownClass,
  malformedPattern,
  outsideScreen,
  noNumber,
  stopWithoutStart,
  replacedStep,
  neverStopped
};

/// What is told of a rule.
struct RuleInfo {
  Rule rule;
  /// Its name in reports, which never changes.
  std::string_view id;
  /// What it finds, in one sentence with a full stop.
  std::string_view summary;
};

/// All rules, in the order of `Rule`.
std::span<const RuleInfo> rules();

const RuleInfo& infoOf(Rule rule);

}  // namespace quobrak::host
