#pragma once

#include <string>

#include "host/check/CheckedLine.h"
#include "host/check/ScriptReport.h"
#include "quobrakUITests/CommandRow.h"

namespace quobrak::host {

/// Follows through one script what its commands need of the run and leave to it: the application, the last element
/// found, the measured step. What is told of is told once.
class RunNeeds {
 public:
  /// Tells `report`, which must outlive it.
  explicit RunNeeds(ScriptReport& report) : report_(report) {}

  /// The next command.
  void pass(const CheckedLine& line, const CommandRow& row);

  /// The next command is none, but was meant as this one: what it would have given is taken for given.
  void assumeDone(const CommandRow& row);

  /// The next command is not known, so that it may have given anything.
  void assumeAnything();

 private:
  enum class Step { untouched, open, stopped };

  void passApplication(const CheckedLine& line, const CommandRow& row);
  void passSearch(const CheckedLine& line, const CommandRow& row);
  void passStep(const CheckedLine& line, const CommandRow& row);
  /// `name` is null where the line lacks it.
  void beginStep(const CheckedLine& line, const ArgumentInfo* name);
  void endStep(const CheckedLine& line);
  void assumeStep();

  ScriptReport& report_;
  bool hasApplication_ = false;
  bool hasElement_ = false;
  Step step_ = Step::untouched;
  /// What the open step is called in what is told of it.
  std::string openStep_;
};

}  // namespace quobrak::host
