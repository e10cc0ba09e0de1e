#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/quobrakUITests/AnsweringDriver.h"

namespace quobrak::testing {

/// What an error of a step does to the flow that it belongs to.
enum class StepError {
  /// It ends the flow, and whoever called it gets the error unchanged.
  passes,
  isFatal,
  /// The step is a question, to which an error is a no.
  isNo,
  /// The step cannot fail.
  none
};

/// One thing that a flow asks of the phone, or a pause.
struct Step {
  /// As `AnsweringDriver` keeps it; "pause 1000 ms" for a pause.
  std::string operation;
  StepError error;
  /// The application that commands act on meanwhile.
  std::string testingApp;
};

/// The steps that an operation of the system takes, in their order. Each function adds what one operation that it calls
/// asks of the phone, and gives the flow for the next one.
class Flow {
 public:
  /// Launches the application, on which the next steps act.
  Flow& launches(const std::string& bundleId);
  /// The next steps act on the application, which nothing launches.
  Flow& turnsTo(const std::string& bundleId);
  Flow& terminates(const std::string& bundleId);

  /// Looks for a text that must be there, and finds that it can be tapped without a swipe.
  Flow& swipesTo(const std::string& selector);
  /// Taps the element that the selector matches as a whole.
  Flow& taps(const std::string& selector);
  /// Finds the element whose text contains the selector, and reads its value.
  Flow& readsValueOf(const std::string& selector);
  /// Looks whether there is an element that the selector matches as a whole.
  Flow& asksFor(const std::string& selector);
  /// Types into the field, on whose keyboard no key is called "return".
  Flow& types(const std::string& text, const std::string& selector);
  Flow& pauses(std::int64_t milliseconds);
  /// Any other step.
  Flow& does(const std::string& operation);

  /// The same flow with what another one goes on with.
  Flow& then(const Flow& next);

  const std::vector<Step>& steps() const { return steps_; }
  std::vector<std::string> operations() const;

 private:
  Flow& add(const std::string& operation, StepError error);
  std::string inWords() const;

  std::vector<Step> steps_;
  std::string testingApp_;
};

/// Flows are tried on phones that only answer, anew each time. Pauses are kept among the operations and take no time.
class FlowTest : public ::testing::Test {
 protected:
  ~FlowTest() override;

  /// How the phone answers besides saying that all is there. On no keyboard there is a key called "return".
  std::function<void(AnsweringDriver&)> answers = [](AnsweringDriver&) {};

  /// A new phone.
  AnsweringDriver& phone() const;

  /// What the operation asks of a new phone.
  std::vector<std::string> operationsOf(const std::function<void()>& operation) const;

  /// Lets each step of the flow fail in turn, each time on a new phone, and expects of the operation what the step
  /// says, and that it then takes no further step. Steps to which an error is a no are left out.
  void expectEachErrorToEnd(const Flow& flow, const std::function<void()>& operation) const;

  /// An answer to how many elements a search by text finds: none where the whole text is one of these.
  static std::function<std::size_t(const std::string& query)> allBut(const std::vector<std::string>& selectors);
};

}  // namespace quobrak::testing
