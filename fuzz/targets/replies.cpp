// What a server answers to a WebDriver client. The first line says what the client does, a letter for each primitive;
// each line behind it is an answer: a status, a blank and a body. They are given in turn, again from the first.

#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/webdriver/CommandError.h"
#include "drivers/webdriver/WebDriverDriver.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "platform/foundation/JSON.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"

namespace quobrak::fuzz {

namespace {

using webdriver::CommandError;
using webdriver::Fault;
using webdriver::HttpReply;
using webdriver::HttpRequest;
using webdriver::WebDriverDriver;

/// Statuses that stand for faults of the line.
constexpr long NOT_SENT = 1;
constexpr long OUTCOME_UNKNOWN = 2;

class AnsweringLine final : public webdriver::Transport {
 public:
  explicit AnsweringLine(Input input) {
    while (!input.isAtEnd()) {
      const std::string_view line = input.line();
      const std::string status(line.substr(0, line.find(' ')));
      replies_.push_back({.status = std::strtol(status.c_str(), nullptr, 10),
                          .body = std::string(line.substr(std::min(status.size() + 1, line.size())))});
    }
  }

  HttpReply exchange(const HttpRequest& request) override {
    const bool isLine = request.path.find_first_not_of(PATH_CHARACTERS) == std::string::npos;
    require(request.path.starts_with('/') && isLine, "a path can stand in the first line of a request");
    require(request.timeLimit > std::chrono::milliseconds::zero(), "a request has its time");
    if (request.method == "POST") {
      JSONDecoder::decode(request.body);
    }
    if (replies_.empty()) {
      throw CommandError(Fault::notSent, "nobody answers");
    }
    const HttpReply& reply = replies_[next_++ % replies_.size()];
    if (reply.status == NOT_SENT || reply.status == OUTCOME_UNKNOWN) {
      throw CommandError(reply.status == NOT_SENT ? Fault::notSent : Fault::outcomeUnknown, "the line is broken");
    }
    return reply;
  }

 private:
  static constexpr std::string_view PATH_CHARACTERS =
      "/?-._~%:@!$&'()*+,;=0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

  std::vector<HttpReply> replies_;
  std::size_t next_ = 0;
};

XCUIElement application() {
  return XCUIElement(QueryRoot(ApplicationRoot{"com.example.test"}));
}

XCUIElement button() {
  return application().descendants(ElementType::button).matching(NSPredicate("label CONTAINS[c] \"a\"")).firstMatch();
}

XCUICoordinate middle() {
  return {application(), {.dx = 0.5, .dy = 0.5}};
}

using Primitive = void (*)(WebDriverDriver& driver);

const std::map<char, Primitive>& primitives() {
  static const std::map<char, Primitive> PRIMITIVES{
      {'L', [](WebDriverDriver& driver) { driver.launch("com.example.test"); }},
      {'T', [](WebDriverDriver& driver) { driver.terminate("com.example.test"); }},
      {'c', [](WebDriverDriver& driver) { driver.count(button().query()); }},
      {'e', [](WebDriverDriver& driver) { driver.exists(button()); }},
      {'l', [](WebDriverDriver& driver) { require(isUTF8(driver.label(button())), "a label is a text"); }},
      {'i', [](WebDriverDriver& driver) { require(isUTF8(driver.identifier(button())), "an identifier is a text"); }},
      {'v', [](WebDriverDriver& driver) { driver.value(button()); }},
      {'f', [](WebDriverDriver& driver) { driver.frame(application()); }},
      {'h', [](WebDriverDriver& driver) { driver.isHittable(button()); }},
      {'w', [](WebDriverDriver& driver) { driver.waitForExistence(button(), Seconds(2)); }},
      {'W',
       [](WebDriverDriver& driver) {
         driver.waitForPredicate(button(), NSPredicate("hittable == TRUE AND value MATCHES \"a*\""), Seconds(2));
       }},
      {'t', [](WebDriverDriver& driver) { driver.tap(button()); }},
      {'p', [](WebDriverDriver& driver) { driver.press(button(), Seconds(1)); }},
      {'y', [](WebDriverDriver& driver) { driver.typeText(application(), "text"); }},
      {'Y', [](WebDriverDriver& driver) { driver.typeText(button(), "text"); }},
      {'s', [](WebDriverDriver& driver) { driver.swipe(button(), SwipeDirection::up); }},
      {'m', [](WebDriverDriver& driver) { driver.tap(middle()); }},
      {'M', [](WebDriverDriver& driver) { driver.press(middle(), Seconds(1)); }},
      {'d', [](WebDriverDriver& driver) { driver.pressThenDrag(middle(), Seconds(1), middle()); }},
      {'H', [](WebDriverDriver& driver) { driver.pressButton(XCUIDeviceButton::home); }},
      {'P', [](WebDriverDriver& driver) { driver.screenshot(); }},
      {'D',
       [](WebDriverDriver& driver) { require(isUTF8(driver.debugDescription(button())), "a description is a text"); }},
      {'A',
       [](WebDriverDriver& driver) {
         require(isUTF8(driver.debugDescription(application())), "a description is a text");
       }},
      {'F', [](WebDriverDriver& driver) { driver.forgetLookups(); }},
  };
  return PRIMITIVES;
}

/// Answers an alert by the label of its button, as the handlers of tests do.
bool answerAlert(WebDriverDriver& driver, const XCUIElement& alert) {
  const XCUIElement allow = alert.buttons()["Allow"];
  const bool isThere = driver.exists(allow);
  if (isThere) {
    driver.tap(allow);
  }
  return isThere;
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  Input input(data, size);
  const std::string_view doings = input.line();
  const auto dialect = doings.starts_with('#') ? webdriver::Dialect::wda : webdriver::Dialect::appium;
  VirtualClock clock{std::chrono::milliseconds(1'700'000'000'000)};
  WebDriverDriver driver({.url = "http://127.0.0.1:8100", .dialect = dialect}, std::make_unique<AnsweringLine>(input),
                         clock);
  driver.addInterruptionMonitor("", [&driver](const XCUIElement& alert) { return answerAlert(driver, alert); });
  constexpr std::size_t MOST = 20;
  for (const char doing : doings.substr(0, MOST)) {
    try {
      if (const auto primitive = primitives().find(doing); primitive != primitives().end()) {
        primitive->second(driver);
      }
    } catch (const UIAutomationError& error) {
      require(isUTF8(error.what()), "an error can be read");
    }
  }
  return 0;
}
