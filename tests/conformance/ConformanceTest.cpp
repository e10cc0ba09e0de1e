#include "tests/conformance/ConformanceTest.h"

#include <optional>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"

namespace quobrak::conformance {

const XCUIApplication ConformanceTest::APP("com.example.test");
const XCUIApplication ConformanceTest::HOME("com.apple.springboard");
const XCUIApplication ConformanceTest::OTHER("com.example.other");

ConformanceTest::ConformanceTest() {
  auto clock = std::make_unique<EventfulClock>();
  clock_ = clock.get();
  start_ = clock_->now();
  Clock::install(std::move(clock));
}

ConformanceTest::~ConformanceTest() {
  UIDriver::install(nullptr);
}

void ConformanceTest::switchOn(const std::string& page, const std::string& rules) {
  switchOn(testing::smallPhone(page, rules));
}

void ConformanceTest::switchOn(const simulator::PhoneFiles& files) {
  rig_ = makeRig(simulator::loadPhone(files));
  phone().observeTouches([this](const simulator::Element& element, Point) {
    touched.push_back(element.identifier.empty() ? element.label : element.identifier);
  });
  UIDriver::install(rig_->takeDriver());
  restartTime();
}

void ConformanceTest::start(const std::string& page, const std::string& rules) {
  switchOn(page, rules);
  APP.launch();
  restartTime();
}

void expectDriverError(const std::function<void()>& action, std::string_view operation, const std::string& target) {
  std::optional<std::string> text;
  try {
    action();
  } catch (const UIAutomationError& error) {
    text = error.what();
  }
  ASSERT_TRUE(text) << operation << " of " << target << " raised nothing";
  EXPECT_THAT(*text, ::testing::StartsWith(std::string(operation) + " of " + target));
}

std::vector<std::string> identifiersOf(const XCUIElementQuery& query) {
  std::vector<std::string> identifiers;
  for (std::size_t index = 0; index < query.count(); ++index) {
    identifiers.push_back(query.elementBoundBy(index).identifier());
  }
  return identifiers;
}

}  // namespace quobrak::conformance
