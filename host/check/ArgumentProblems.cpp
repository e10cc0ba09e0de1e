#include "host/check/ArgumentProblems.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "host/terminal/NearestNames.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"

namespace quobrak::host {

namespace {

constexpr std::array<std::string_view, 2> TRUTH_VALUES{"true", "false"};

struct Quotes {
  std::string_view opening;
  std::string_view closing;
};
constexpr std::array QUOTES{Quotes{"\"", "\""}, Quotes{"'", "'"}, Quotes{"\u201C", "\u201D"},
                            Quotes{"\u2018", "\u2019"}, Quotes{"\u201E", "\u201C"}};

/// What stands between the quotes at both ends; none where one has none.
std::optional<std::string_view> unquoted(std::string_view text) {
  for (const Quotes& quotes : QUOTES) {
    if (text.size() >= quotes.opening.size() + quotes.closing.size() && text.starts_with(quotes.opening) &&
        text.ends_with(quotes.closing)) {
      text.remove_prefix(quotes.opening.size());
      text.remove_suffix(quotes.closing.size());
      return text;
    }
  }
  return std::nullopt;
}

/// The type in the words of XCTest, whose names scripts use without this beginning.
constexpr std::string_view ELEMENT_TYPE = "XCUIElementType";

/// What reading the argument raises; empty where it raises nothing.
std::string readingFault(const ArgumentInfo& argument, FunctionParameters fields) {
  try {
    argument.check(fields);
    return "";
  } catch (const FWKTError& error) {
    return error.message();
  }
}

bool couldBeReadAs(const ArgumentInfo& argument, FunctionParameters fields, std::string_view field) {
  std::vector<std::string_view> changed(fields.begin(), fields.end());
  changed[argument.field] = field;
  return readingFault(argument, changed).empty();
}

std::string hintForMalformed(const ArgumentInfo& argument, FunctionParameters fields) {
  const std::string_view field = fields[argument.field];
  if (field.empty()) {
    return mayBeLeftOut(argument) ? "to leave it out, end the line before its comma" : "";
  }
  const std::string_view trimmed = trimmedBlanks(field);
  if (trimmed != field && couldBeReadAs(argument, fields, trimmed)) {
    return "a blank beside a comma belongs to the argument: write " + std::string(trimmed);
  }
  if (const auto inner = unquoted(trimmed); inner && couldBeReadAs(argument, fields, *inner)) {
    return "the quotes belong to the argument: write " + std::string(*inner);
  }
  return argument.unit == Unit::truthValue ? didYouMean(nearestNames(field, TRUTH_VALUES)) : "";
}

Rule ruleOf(Meaning meaning) {
  switch (meaning) {
    case Meaning::bundleId:
      return Rule::emptyArgument;
    case Meaning::pattern:
      return Rule::malformedPattern;
    case Meaning::className:
      return Rule::unknownClass;
    case Meaning::rank:
      return Rule::rankBelowOne;
    case Meaning::pause:
      return Rule::pauseOutOfRange;
    case Meaning::swipeCount:
      return Rule::swipeCount;
    case Meaning::percent:
      return Rule::outsideScreen;
    case Meaning::distance:
      return Rule::noNumber;
    case Meaning::other:
    case Meaning::partOfText:
    case Meaning::stepName:
      return Rule::malformedArgument;
  }
  return Rule::malformedArgument;
}

std::string hintForFault(const ArgumentInfo& argument, std::string_view field) {
  if (argument.meaning == Meaning::className) {
    const bool isElementType = field.starts_with(ELEMENT_TYPE);
    return didYouMean(nearestNames(field.substr(isElementType ? ELEMENT_TYPE.size() : 0), Find::classNames()));
  }
  if (argument.meaning == Meaning::pattern) {
    return "the status of the run says only: An unknown error occured while executing actions";
  }
  if (argument.meaning == Meaning::rank) {
    return "the first element has the rank 1";
  }
  return argument.meaning == Meaning::bundleId ? "the bundle identifier is empty" : "";
}

Outcome outcomeOf(Consequence consequence) {
  switch (consequence) {
    case Consequence::goesOn:
      return Outcome::goesOn;
    case Consequence::failsScript:
      return Outcome::failsScript;
    case Consequence::stopsProcess:
      return Outcome::abortsRun;
  }
  return Outcome::goesOn;
}

Problem faultProblem(const ArgumentInfo& argument, std::string_view field, ValueFault fault) {
  const bool goesOn = fault.consequence == Consequence::goesOn;
  const Stage stage =
      argument.faultMoment == Moment::beforeApplication ? Stage::beforeApplication : Stage::withApplication;
  return {.rule = ruleOf(argument.meaning),
          .severity = goesOn ? Severity::warning : Severity::error,
          .outcome = outcomeOf(fault.consequence),
          .stage = goesOn ? Stage::never : stage,
          .message = std::move(fault.message),
          .hint = hintForFault(argument, field)};
}

Problem warning(Rule rule, std::string message, std::string hint) {
  return {.rule = rule,
          .severity = Severity::warning,
          .outcome = Outcome::goesOn,
          .stage = Stage::never,
          .message = std::move(message),
          .hint = std::move(hint)};
}

/// How the field has blanks at its ends: "begins with a blank".
std::string blanksInWords(std::string_view field, std::string_view trimmed) {
  if (trimmed.empty()) {
    return "consists of blanks";
  }
  const bool begins = trimmed.data() != field.data();
  const bool ends = trimmed.data() + trimmed.size() != field.data() + field.size();
  return begins && ends ? "begins and ends with a blank" : (begins ? "begins with a blank" : "ends with a blank");
}

/// Goes through the arguments of one line.
class ArgumentChecker {
 public:
  ArgumentChecker(const CheckedLine& line, const CommandRow& row, std::vector<Finding>& findings)
      : line_(line), fields_(line.fields()), row_(row), findings_(findings) {}

  void check() {
    for (const ArgumentInfo& argument : row_.arguments()) {
      if (argument.field >= fields_.size()) {
        checkAbsent(argument);
        // The others behind it are missing for the same reason.
        break;
      }
      if (line_.isUnknown(argument.field)) {
        areKnown_ = false;
        checkEnds(argument);
      } else {
        checkPresent(argument);
      }
    }
    checkSurplus();
  }

 private:
  void checkAbsent(const ArgumentInfo& argument) {
    // A value that is not known may have commas.
    if (mayBeLeftOut(argument) || line_.hasUnknown()) {
      return;
    }
    const bool stops = argument.reading == Reading::direct;
    findings_.push_back(line_.atEnd({.rule = Rule::missingArgument,
                                     .severity = Severity::error,
                                     .outcome = stops ? Outcome::abortsRun : Outcome::failsScript,
                                     .stage = Stage::arguments,
                                     .message = stops ? absentFieldMessage(argument) : readingFault(argument, fields_),
                                     .hint = "it is written " + usageOf(row_)}));
  }

  void checkPresent(const ArgumentInfo& argument) {
    // What is read directly is taken as it is.
    std::string message = argument.reading == Reading::direct ? "" : readingFault(argument, fields_);
    if (!message.empty()) {
      areKnown_ = false;
      findings_.push_back(line_.atField(argument.field, {.rule = Rule::malformedArgument,
                                                         .severity = Severity::error,
                                                         .outcome = Outcome::failsScript,
                                                         .stage = Stage::arguments,
                                                         .message = std::move(message),
                                                         .hint = hintForMalformed(argument, fields_)}));
      return;
    }
    if (argument.fault != nullptr && areKnown_) {
      if (std::optional<ValueFault> fault = argument.fault(fields_, argument.field)) {
        findings_.push_back(
            line_.atField(argument.field, faultProblem(argument, fields_[argument.field], *std::move(fault))));
        return;
      }
    }
    checkEnds(argument);
  }

  void checkEnds(const ArgumentInfo& argument) {
    const std::string_view field = fields_[argument.field];
    const std::string label(argument.label);
    const std::string_view trimmed = trimmedBlanks(field);
    if (field.empty()) {
      findings_.push_back(line_.atField(
          argument.field,
          warning(Rule::emptyArgument, "The argument " + label + " is empty",
                  argument.meaning == Meaning::partOfText ? "an empty text is a part of none: nothing is found" : "")));
    } else if (trimmed != field) {
      findings_.push_back(line_.atField(
          argument.field, warning(Rule::blankBesideComma, "The argument " + label + " " + blanksInWords(field, trimmed),
                                  "a blank beside a comma belongs to the argument")));
    }
    if (unquoted(trimmed)) {
      findings_.push_back(
          line_.atField(argument.field, warning(Rule::quotedArgument, "The argument " + label + " stands in quotes",
                                                "the quotes belong to the argument")));
    }
  }

  void checkSurplus() {
    const std::size_t first = row_.argumentCount + 1;
    if (fields_.size() <= first) {
      return;
    }
    const std::string count = row_.argumentCount == 0 ? "no" : std::to_string(row_.argumentCount);
    findings_.push_back(line_.fromField(
        first, warning(Rule::surplusField,
                       std::string(row_.name) + " takes " + count +
                           (row_.argumentCount == 1 ? " argument" : " arguments") + ": what follows is ignored",
                       "no argument contains a comma")));
  }

  const CheckedLine& line_;
  FunctionParameters fields_;
  const CommandRow& row_;
  std::vector<Finding>& findings_;
  /// Whether all arguments up to here can be read.
  bool areKnown_ = true;
};

}  // namespace

void findArgumentProblems(const CheckedLine& line, const CommandRow& row, std::vector<Finding>& findings) {
  ArgumentChecker(line, row, findings).check();
}

}  // namespace quobrak::host
