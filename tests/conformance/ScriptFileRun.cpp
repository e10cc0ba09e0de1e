#include "tests/conformance/ScriptFileRun.h"

#include <chrono>
#include <csignal>
#include <sstream>
#include <utility>

#include "drivers/simulator/PhoneFiles.h"
#include "quobrakUITests/RunObserver.h"
#include "tests/conformance/PhoneWithValues.h"
#include "tests/conformance/ScriptFiles.h"
#include "tests/conformance/ScriptRun.h"

namespace quobrak::conformance {

namespace {

using std::chrono::milliseconds;

/// Sees what is not in the results, and the screen before the run ends on the home screen.
class Witness final : public RunObserver {
 public:
  Witness(simulator::Phone& phone, ScriptFileOutcome& outcome) : phone_(phone), outcome_(outcome) { install(this); }
  ~Witness() override { install(nullptr); }
  Witness(const Witness&) = delete;
  Witness& operator=(const Witness&) = delete;

  Seconds elapsed() const { return elapsed_; }
  const std::vector<std::string>& steps() const { return steps_; }

  void lineFinished(std::size_t, std::string_view, Seconds duration, const std::exception*) override {
    elapsed_ += duration;
  }
  void stepFinished(const TestResultV2& step) override {
    steps_.push_back(step.test + " " + std::to_string(step.testTime) + " ms");
  }
  void scriptFinished(const TestFile&, const TestStatus&) override {
    for (const simulator::Element* const tree : phone_.layers()) {
      outcome_.screen.push_back(tree->copy());
    }
  }

  void scriptStarted(const TestFile&, std::size_t, std::size_t) override {}
  void scriptRaised(const std::exception& error) override { outcome_.reason = error.what(); }
  void pictureOrDumpRaised(const std::exception& error) override { outcome_.reason = error.what(); }
  void lineStarted(std::size_t, std::string_view) override {}

 private:
  simulator::Phone& phone_;
  ScriptFileOutcome& outcome_;
  Seconds elapsed_{};
  std::vector<std::string> steps_;
};

std::string listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() ? "" : ", ") + text;
  }
  return texts.empty() ? "nothing" : list;
}

std::string shortest(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

}  // namespace

void ScriptFileRun::switchOnPhoneOf(const ScriptFile& script) {
  if (script.phone == "built-in") {
    switchOn(PhoneWithValues(simulator::BuiltinPhoneFiles(), script.values));
  } else {
    const simulator::FolderPhoneFiles files(std::string(SCRIPTS_FOLDER) + "/" + script.phone);
    switchOn(PhoneWithValues(files, script.values));
  }
}

ScriptFileOutcome ScriptFileRun::outcomeOf(const ScriptFile& script) {
  switchOnPhoneOf(script);
  ScriptFileOutcome outcome;
  const Witness witness(phone(), outcome);
  ScriptRun run;
  run.add("script.txt", script.text);
  run.run();
  outcome.told = {{"status", listed(run.statuses())},
                  {"touched", listed(touched)},
                  {"elapsed", std::to_string(std::chrono::round<milliseconds>(witness.elapsed()).count()) + " ms"},
                  {"volume", shortest(phone().volume())},
                  {"steps", listed(witness.steps())},
                  {"pictures", listed(run.picturesOf("script"))}};
  return outcome;
}

void ScriptFileRun::check(const ScriptFile& script) {
  if (const std::optional<std::string> stop = script.fatalStop()) {
    // All of it happens in the process that stops: threads of a served phone would not be there after a fork.
    EXPECT_EXIT(outcomeOf(script), ::testing::KilledBySignal(SIGABRT),
                ::testing::EndsWith("Fatal error: " + *stop + "\n"));
  } else {
    EXPECT_THAT(complaints(script, outcomeOf(script)), ::testing::IsEmpty());
  }
}

}  // namespace quobrak::conformance
