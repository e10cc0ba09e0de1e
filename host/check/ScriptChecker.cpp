#include "host/check/ScriptChecker.h"

#include <utility>

#include "host/check/ArgumentProblems.h"
#include "host/check/CheckedLine.h"
#include "host/check/HiddenCharacters.h"
#include "host/check/LookAlikes.h"
#include "host/check/NumberedLines.h"
#include "host/check/RunNeeds.h"
#include "host/check/TextFault.h"
#include "host/check/UnknownNames.h"
#include "host/terminal/NearestNames.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/File.h"
#include "quobrakUITests/ScriptLines.h"
#include "quobrakUITests/ScriptVariables.h"

namespace quobrak::host {

namespace {

/// Goes through the lines of one script.
class ScriptChecker {
 public:
  ScriptChecker(std::size_t number, const CheckContext& context)
      : number_(number), context_(context), needs_(report_) {}

  ScriptReport check(std::string_view script) {
    NumberedLines lines(script);
    while (const std::optional<NumberedLine> line = lines.next()) {
      checkLine(line->text, line->number);
    }
    if (!hasCommand_) {
      report_.findings.push_back(noCommand());
    }
    return std::move(report_);
  }

 private:
  Finding noCommand() const {
    Finding finding{{.rule = Rule::noCommand,
                     .severity = Severity::warning,
                     .outcome = Outcome::goesOn,
                     .stage = Stage::never,
                     .message = "The script has no command",
                     .hint = "it succeeds, and does nothing"}};
    finding.script = number_;
    return finding;
  }

  void checkLine(std::string_view written, LineNumber number) {
    if (isSkipped(trimmedBlanks(written))) {
      return;
    }
    const PreparedLine prepared(written, context_.variables, context_.isSomehowSet);
    splitAtCommas(prepared.text(), fields_);
    const CheckedLine line(number_, number, prepared, fields_);
    tellOfReferences(line, prepared);
    if (!isSkipped(prepared.text())) {
      hasCommand_ = true;
      tellOfControlCharacter(line, written);
      checkCommand(line);
    }
  }

  void tellOfReferences(const CheckedLine& line, const PreparedLine& prepared) {
    for (const ReferenceNote& note : prepared.notes()) {
      report_.findings.push_back(line.atWritten(note.written, problemOf(note)));
    }
    for (const LookAlike& alike : lookAlikesIn(prepared.written(), context_.variables)) {
      report_.findings.push_back(line.atWritten(
          alike.place, {.rule = Rule::lookAlikeReference,
                        .severity = Severity::warning,
                        .outcome = Outcome::goesOn,
                        .stage = Stage::never,
                        .message = alike.text + " is no reference to a variable, and stays as it is",
                        .hint = alike.meant.empty() ? "names of variables are made of letters, digits and _"
                                                    : "a reference is written " + alike.meant}));
    }
  }

  void tellOfControlCharacter(const CheckedLine& line, std::string_view written) {
    if (const std::optional<std::string_view> character = firstControl(written)) {
      const auto begin = static_cast<std::size_t>(character->data() - written.data());
      report_.findings.push_back(
          line.atWritten({.begin = begin, .end = begin + character->size()},
                         {.rule = Rule::controlCharacter,
                          .severity = Severity::warning,
                          .outcome = Outcome::goesOn,
                          .stage = Stage::never,
                          .message = "The line holds the control character " + numberOf(*character),
                          .hint = "it belongs to the name or the argument in which it stands"}));
    }
  }

  Problem problemOf(const ReferenceNote& note) const {
    const std::string broughtBy = note.isOfValue ? "the value of this reference brings ${" + note.name + "}; " : "";
    switch (note.kind) {
      case ReferenceNote::Kind::missing:
        return {.rule = Rule::missingVariable,
                .severity = Severity::error,
                .outcome = Outcome::failsScript,
                .stage = Stage::preparation,
                .message = missingVariableCause(note.name),
                .hint = broughtBy + hintForMissing(note.name)};
      case ReferenceNote::Kind::endless:
        return {.rule = Rule::endlessVariable,
                .severity = Severity::error,
                .outcome = Outcome::neverEnds,
                .stage = Stage::preparation,
                .message = "The variable " + note.name + " refers to itself: the run would never end",
                .hint = broughtBy + "values are searched for references too"};
      case ReferenceNote::Kind::unreplaced:
        return {.rule = Rule::unreplacedReference,
                .severity = Severity::warning,
                .outcome = Outcome::goesOn,
                .stage = Stage::never,
                .message = "The reference ${" + note.name + "} is not replaced, and stays as it is",
                .hint = broughtBy + "put it before emoji and other characters of several parts"};
    }
    return {};
  }

  std::string hintForMissing(const std::string& name) const {
    std::string pass = "pass it with --var " + name + "=…";
    // A shorter name is near to any other.
    constexpr std::size_t SHORTEST_SLIP = 3;
    if (name.size() < SHORTEST_SLIP) {
      return pass;
    }
    std::vector<std::string_view> names;
    for (const auto& [known, value] : context_.variables) {
      names.emplace_back(known);
    }
    const std::string near = didYouMean(nearestNames(name, names));
    return near.empty() ? pass : near + " Or " + pass;
  }

  void checkCommand(const CheckedLine& line) {
    const std::string_view name = line.fields().front();
    if (line.isUnknown(0)) {
      // Any command, with all that it may give.
      needs_.assumeAnything();
    } else if (const CommandRow* const row = context_.commands.find(name)) {
      findArgumentProblems(line, *row, report_.findings);
      needs_.pass(line, *row);
    } else {
      UnknownName unknown = explained(name, context_.commands);
      report_.findings.push_back(line.atField(0, {.rule = Rule::unknownCommand,
                                                  .severity = Severity::error,
                                                  .outcome = Outcome::failsScript,
                                                  .stage = Stage::arguments,
                                                  .message = unknownCommandMessage(name),
                                                  .hint = std::move(unknown.hint)}));
      if (unknown.meant != nullptr) {
        needs_.assumeDone(*unknown.meant);
      }
    }
  }

  std::size_t number_;
  const CheckContext& context_;
  ScriptReport report_;
  RunNeeds needs_;
  /// Of the line at hand.
  std::vector<std::string_view> fields_;
  bool hasCommand_ = false;
};

/// A file that is no text: the run would not begin. What it would have given is taken for given.
ScriptReport unreadable(const ScriptSource& source, std::size_t number) {
  ScriptReport report;
  const TextFault fault = textFaultIn(source.bytes);
  Finding finding{{.rule = Rule::unreadableText,
                   .severity = Severity::error,
                   .outcome = Outcome::preventsRun,
                   .stage = Stage::reading,
                   .message = File::missingFileMessage(repairedUTF8(source.name)),
                   .hint = fault.words}};
  finding.script = number;
  finding.line = fault.line.inRun;
  finding.editorLine = fault.line.inEditor;
  finding.column = fault.column;
  finding.endColumn = fault.column + 1;
  finding.text = std::make_shared<const std::string>(fault.text);
  report.findings.push_back(std::move(finding));
  report.givesApplication = true;
  report.givesElement = true;
  report.beginsStep = true;
  report.stopsStep = true;
  return report;
}

}  // namespace

ScriptReport checkScript(const ScriptSource& source, std::size_t number, const CheckContext& context) {
  const std::optional<std::string> script = decodedText(source.bytes);
  return script ? ScriptChecker(number, context).check(*script) : unreadable(source, number);
}

}  // namespace quobrak::host
