#include "tests/quobrakUITests/Flow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "platform/foundation/Clock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/QueryWords.h"

namespace quobrak::testing {

namespace {

constexpr const char* LOST = "The phone is gone.";

std::string inWords(std::int64_t pause) {
  return "pause " + std::to_string(pause) + " ms";
}

/// A clock that stands still and keeps what was slept.
class PauseRecorder final : public Clock {
 public:
  explicit PauseRecorder(std::vector<std::string>& operations) : operations_(operations) {}

  Seconds timeIntervalSince1970() const override { return {}; }
  TimePoint now() const override { return {}; }
  void usleep(std::uint32_t microseconds) override {
    EXPECT_EQ(microseconds % 1000, 0U);
    operations_.push_back(inWords(microseconds / 1000));
  }

 private:
  std::vector<std::string>& operations_;
};

bool isAboutReturnKey(const std::string& query) {
  return query.find("Button descendants, keyed \"return\"") != std::string::npos;
}

}  // namespace

Flow& Flow::launches(const std::string& bundleId) {
  return turnsTo(bundleId).does("launch: " + bundleId);
}

Flow& Flow::turnsTo(const std::string& bundleId) {
  testingApp_ = bundleId;
  return *this;
}

Flow& Flow::terminates(const std::string& bundleId) {
  return does("terminate: " + bundleId);
}

Flow& Flow::swipesTo(const std::string& selector) {
  add("count: " + textQueryInWords("CONTAINS[c]", selector, inWords()), StepError::isFatal);
  return does("isHittable: " + textElementInWords("CONTAINS[c]", selector, inWords()));
}

Flow& Flow::taps(const std::string& selector) {
  const std::string element = textElementInWords("MATCHES", selector, inWords());
  does("count: " + textQueryInWords("MATCHES", selector, inWords()));
  return does("isHittable: " + element).does("tap: " + element);
}

Flow& Flow::readsValueOf(const std::string& selector) {
  does("count: " + textQueryInWords("CONTAINS[c]", selector, inWords()));
  return does("value: " + textElementInWords("CONTAINS[c]", selector, inWords()));
}

Flow& Flow::asksFor(const std::string& selector) {
  return add("count: " + textQueryInWords("MATCHES", selector, inWords()), StepError::isNo);
}

Flow& Flow::types(const std::string& text, const std::string& selector) {
  taps(selector).does("type \"" + text + "\": " + textElementInWords("MATCHES", selector, inWords()));
  return does("count: the Button descendants, keyed \"return\" of " + inWords());
}

Flow& Flow::pauses(std::int64_t milliseconds) {
  return does("forgetLookups").add(testing::inWords(milliseconds), StepError::none);
}

Flow& Flow::does(const std::string& operation) {
  return add(operation, StepError::passes);
}

Flow& Flow::then(const Flow& next) {
  steps_.insert(steps_.end(), next.steps_.begin(), next.steps_.end());
  return turnsTo(next.testingApp_);
}

std::vector<std::string> Flow::operations() const {
  std::vector<std::string> operations;
  std::transform(steps_.begin(), steps_.end(), std::back_inserter(operations),
                 [](const Step& step) { return step.operation; });
  return operations;
}

Flow& Flow::add(const std::string& operation, StepError error) {
  steps_.push_back({operation, error, testingApp_});
  return *this;
}

std::string Flow::inWords() const {
  return appInWords(testingApp_);
}

FlowTest::~FlowTest() {
  Clock::install(std::make_unique<SystemClock>());
  UIDriver::install(nullptr);
}

AnsweringDriver& FlowTest::phone() const {
  AnsweringDriver& driver = AnsweringDriver::install();
  Clock::install(std::make_unique<PauseRecorder>(driver.operations));
  driver.countOf = allBut({});
  answers(driver);
  return driver;
}

std::vector<std::string> FlowTest::operationsOf(const std::function<void()>& operation) const {
  const AnsweringDriver& driver = phone();
  operation();
  return driver.operations;
}

void FlowTest::expectEachErrorToEnd(const Flow& flow, const std::function<void()>& operation) const {
  ASSERT_EQ(operationsOf(operation), flow.operations());
  for (std::size_t i = 0; i < flow.steps().size(); ++i) {
    const Step& step = flow.steps()[i];
    SCOPED_TRACE("step " + std::to_string(i) + ", " + step.operation);
    AnsweringDriver& driver = phone();
    driver.before = [&driver, last = i + 1](const std::string&) {
      if (driver.operations.size() == last) {
        throw UIAutomationError(LOST);
      }
    };
    if (step.error == StepError::isFatal) {
      EXPECT_DEATH(operation(), ::testing::AllOf(::testing::StartsWith("Fatal error: "), ::testing::HasSubstr(LOST)));
    } else if (step.error == StepError::passes) {
      EXPECT_THAT(operation, ::testing::ThrowsMessage<UIAutomationError>(LOST));
      EXPECT_EQ(driver.operations.size(), i + 1);
      EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), step.testingApp);
    }
  }
}

std::function<std::size_t(const std::string& query)> FlowTest::allBut(const std::vector<std::string>& selectors) {
  return [selectors](const std::string& query) -> std::size_t {
    const bool isMissing = std::any_of(selectors.begin(), selectors.end(), [&query](const std::string& selector) {
      return query.find("label MATCHES \"" + selector + "\"") != std::string::npos;
    });
    return isMissing || isAboutReturnKey(query) ? 0 : 1;
  };
}

}  // namespace quobrak::testing
