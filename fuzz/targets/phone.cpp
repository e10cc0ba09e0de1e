// The folder of a phone (see FilesInInput.h), and in the file "steps" what is done with it: a word and what belongs to
// it on each line.

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "fuzz/support/FilesInInput.h"
#include "fuzz/support/Require.h"
#include "fuzz/support/ScreenPromises.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/Waiting.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::fuzz {

namespace {

std::optional<simulator::PhoneDescription> loaded(std::map<std::string, std::string> files) {
  try {
    return simulator::loadPhone(testing::MemoryPhoneFiles(std::move(files)));
  } catch (const simulator::PhoneDescriptionError& error) {
    const std::string message(error.what());
    require(isUTF8(message) && message.find(": ") != message.npos, "a fault of a phone is told with its file");
    return std::nullopt;
  }
}

/// Hands that use a phone.
class Hands {
 public:
  explicit Hands(simulator::PhoneDescription description) : driver_(std::move(description), clock_) {
    driver_.addInterruptionMonitor("", [this](const XCUIElement& alert) { return answer(alert); });
  }

  simulator::SimulatedDriver& driver() { return driver_; }

  void carryOut(const std::string& line) {
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    try {
      if (const auto step = STEPS.find(verb); step != STEPS.end()) {
        (this->*step->second)(words);
      }
    } catch (const UIAutomationError& error) {
      require(isUTF8(error.what()), "an error can be read");
    }
  }

 private:
  using Step = void (Hands::*)(std::istream& words);
  static const std::map<std::string, Step> STEPS;

  XCUIElement application() const { return XCUIElement(QueryRoot(ApplicationRoot{application_})); }

  XCUICoordinate point(std::istream& words) const {
    constexpr double PERCENT = 100;
    double x{};
    double y{};
    words >> x >> y;
    return {application(), {x / PERCENT, y / PERCENT}};
  }

  static std::string restOf(std::istream& words) {
    std::string rest;
    std::getline(words >> std::ws, rest);
    return rest;
  }

  /// The one that a predicate finds first.
  XCUIElement element(std::istream& words) const {
    const XCUIElementQuery all = application().descendants(ElementType::any);
    try {
      return all.matching(NSPredicate(restOf(words))).firstMatch();
    } catch (const PredicateFormatError&) {
      return all.firstMatch();
    }
  }

  bool answer(const XCUIElement& alert) {
    const XCUIElement button =
        XCUIElementQuery(alert.query().root()).appending(DescendantsStep{ElementType::button}).firstMatch();
    const bool answers = answersAlerts_ && driver_.isHittable(button);
    if (answers) {
      driver_.tap(button);
    }
    return answers;
  }

  void launch(std::istream& words) {
    application_ = restOf(words);
    driver_.launch(application_);
    require(driver_.phone().running(application_) != nullptr, "what was launched runs");
  }
  void end(std::istream& words) { driver_.terminate(restOf(words)); }
  void home(std::istream&) {
    driver_.pressButton(XCUIDeviceButton::home);
    application_ = driver_.phone().description().home;
  }
  void louder(std::istream&) { driver_.pressButton(XCUIDeviceButton::volumeUp); }
  void tap(std::istream& words) { driver_.tap(point(words)); }
  void hold(std::istream& words) {
    const XCUICoordinate place = point(words);
    driver_.press(place, Seconds(1));
  }
  void drag(std::istream& words) {
    const XCUICoordinate from = point(words);
    driver_.pressThenDrag(from, Seconds(0), point(words));
  }
  void touchElement(std::istream& words) {
    const XCUIElement touched = element(words);
    const bool isHittable = driver_.isHittable(touched);
    try {
      driver_.tap(touched);
    } catch (const UIAutomationError& error) {
      const bool isOfRules = std::string(error.what()).ends_with("set each other off without end");
      require(!isHittable || isOfRules, "what is hittable can be tapped");
    }
  }
  void swipeUp(std::istream& words) { driver_.swipe(element(words), SwipeDirection::up); }
  void swipeDown(std::istream& words) { driver_.swipe(element(words), SwipeDirection::down); }
  void swipeLeft(std::istream& words) { driver_.swipe(element(words), SwipeDirection::left); }
  void type(std::istream& words) { driver_.typeText(application(), restOf(words)); }
  void wait(std::istream& words) {
    const XCUIElement awaited = element(words);
    const bool isThere = driver_.waitForExistence(awaited, Seconds(10)) == XCTWaiterResult::completed;
    require(driver_.exists(awaited) == isThere, "a wait tells what is there");
  }
  void answerAlerts(std::istream&) { answersAlerts_ = !answersAlerts_; }

  VirtualClock clock_{std::chrono::milliseconds(1'700'000'000'000)};
  simulator::SimulatedDriver driver_;
  std::string application_;
  bool answersAlerts_ = false;
};

const std::map<std::string, Hands::Step> Hands::STEPS{
    {"launch", &Hands::launch},  {"end", &Hands::end},
    {"home", &Hands::home},      {"louder", &Hands::louder},
    {"tap", &Hands::tap},        {"hold", &Hands::hold},
    {"drag", &Hands::drag},      {"touch", &Hands::touchElement},
    {"up", &Hands::swipeUp},     {"down", &Hands::swipeDown},
    {"left", &Hands::swipeLeft}, {"type", &Hands::type},
    {"wait", &Hands::wait},      {"answers", &Hands::answerAlerts},
};

/// What can be seen of the phone, in words.
std::string seen(simulator::SimulatedDriver& driver) {
  std::string words;
  for (const auto& [identifier, application] : driver.phone().description().applications) {
    words += driver.debugDescription(XCUIElement(QueryRoot(ApplicationRoot{identifier})));
  }
  return words;
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  std::map<std::string, std::string> files = filesIn(Input(data, size));
  const std::string steps = repairedUTF8(files["steps"]);
  std::optional<simulator::PhoneDescription> description = loaded(std::move(files));
  if (!description) {
    return 0;
  }
  Hands hands(*std::move(description));
  const simulator::Phone& phone = hands.driver().phone();
  requirePhonePromises(phone);
  constexpr int MOST_STEPS = 30;
  Input lines(steps);
  for (int step = 0; step < MOST_STEPS && !lines.isAtEnd(); ++step) {
    const std::string before = seen(hands.driver());
    const std::uint64_t revision = phone.revision();
    hands.carryOut(std::string(lines.line()));
    requirePhonePromises(phone);
    require(phone.revision() != revision || seen(hands.driver()) == before, "what changes has another revision");
  }
  return 0;
}
