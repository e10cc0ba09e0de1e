#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <optional>

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/PhoneLoader.h"
#include "drivers/webdriver/WebDriverDriver.h"
#include "phoneserver/PhoneServer.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/RunObserver.h"
#include "tests/conformance/FaultyProxy.h"
#include "tests/conformance/ScriptRun.h"

namespace quobrak::conformance {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* UNKNOWN_ERROR = "failed: An unknown error occured while executing actions";
constexpr const char* BROWSE = "applicationStart,com.example.shop\nmeasureStart,Browse\nclickByText,Browse products";

/// Keeps what ended the scripts.
class Reasons final : public RunObserver {
 public:
  Reasons() { install(this); }
  ~Reasons() override { install(nullptr); }

  void scriptStarted(const TestFile&, std::size_t, std::size_t) override {}
  void scriptFinished(const TestFile&, const TestStatus&) override {}
  void scriptRaised(const std::exception& error) override { all.emplace_back(error.what()); }
  void pictureOrDumpRaised(const std::exception&) override {}
  void lineStarted(std::size_t, std::string_view) override {}
  void lineFinished(std::size_t, std::string_view, Seconds, const std::exception*) override {}
  void stepFinished(const TestResultV2&) override {}

  std::vector<std::string> all;
};

/// Scripts on a phone that is served on loopback, with a proxy in between that misbehaves. The first script meets the
/// fault, the second one runs all the same.
class WebDriverFaults : public ::testing::Test {
 protected:
  WebDriverFaults()
      : server_(simulator::loadPhone(simulator::BuiltinPhoneFiles()), installedClock()),
        proxy(server_.port()),
        url("http://127.0.0.1:" + std::to_string(proxy.port())) {
    webdriver::TimeLimits limits;
    limits.command = TIME_LIMIT;
    limits.launch = TIME_LIMIT;
    limits.screenshot = TIME_LIMIT;
    UIDriver::install(std::make_unique<webdriver::WebDriverDriver>(
        webdriver::Server{.url = url, .dialect = webdriver::Dialect::wda, .limits = limits}, Clock::shared()));
    server_.phone().observeTouches([this](const simulator::Element& element, Point) {
      touched.push_back(element.identifier.empty() ? element.label : element.identifier);
    });
  }

  ~WebDriverFaults() override { UIDriver::install(nullptr); }

  static Clock& installedClock() {
    Clock::install(std::make_unique<VirtualClock>());
    return Clock::shared();
  }

  /// The fault meets the n-th request, from 1, whose path ends so.
  void setFault(Fault fault, const std::string& pathEnd, int number = 1) {
    proxy.setPlan([fault, pathEnd, left = number](const std::string& request) mutable {
      return request.ends_with(pathEnd) && --left == 0 ? fault : Fault::none;
    });
  }

  /// Both scripts, of which the first one must fail and the second one succeed; gives the reason of the first.
  std::string reasonOfFirst() {
    scripts.add("first.txt", BROWSE);
    scripts.add("second.txt", BROWSE);
    scripts.run();
    EXPECT_THAT(scripts.statuses(), ElementsAre(UNKNOWN_ERROR, "success"));
    EXPECT_THAT(scripts.picturesOf("second"), ElementsAre("001_Browse_start.png", "002_success.png"));
    EXPECT_EQ(reasons.all.size(), 1U);
    return reasons.all.empty() ? "" : reasons.all.front();
  }

  void expectSuccessOfBoth() {
    scripts.add("first.txt", BROWSE);
    scripts.add("second.txt", BROWSE);
    scripts.run();
    EXPECT_THAT(scripts.statuses(), ElementsAre("success", "success"));
    EXPECT_THAT(reasons.all, IsEmpty());
  }

  static constexpr std::chrono::milliseconds TIME_LIMIT = 1s;

  phoneserver::PhoneServer server_;
  FaultyProxy proxy;
  std::string url;
  ScriptRun scripts;
  Reasons reasons;
  std::vector<std::string> touched;
};

TEST_F(WebDriverFaults, AServerThatIsKilledFailsTheScriptsAndTheResultsAreWritten) {
  scripts.add("first.txt", std::string(BROWSE) + "\npause,10");
  scripts.add("second.txt", BROWSE);
  proxy.kill();
  EXPECT_THROW(scripts.run(), UIAutomationError) << "the Home button at the end cannot be pressed";
  EXPECT_THAT(scripts.statuses(), ElementsAre("failed: An unknown error occured while taking screenshots and dump",
                                              "failed: An unknown error occured while taking screenshots and dump"));
  ASSERT_EQ(reasons.all.size(), 2U);
  EXPECT_THAT(reasons.all.front(), StartsWith("launch of the application \"com.example.shop\" over WebDriver at " +
                                              url + ": the server cannot be reached: "));
}

TEST_F(WebDriverFaults, AServerThatHangsIsGivenUpAfterItsTimeAndWhatWasDoneIsUnknown) {
  setFault(Fault::hang, "/click", 2);
  EXPECT_THAT(reasonOfFirst(),
              AllOf(StartsWith("tap of "), HasSubstr(" over WebDriver at " + url + ": no answer came: ")));
}

TEST_F(WebDriverFaults, ALookupThatHangsIsAskedOnceMore) {
  setFault(Fault::hang, "/elements", 2);
  expectSuccessOfBoth();
}

TEST_F(WebDriverFaults, AnAnswerThatBreaksOffIsAskedForOnceMoreWhereNothingWasDone) {
  setFault(Fault::truncatedReply, "/elements", 2);
  expectSuccessOfBoth();
}

TEST_F(WebDriverFaults, AnAnswerThatBreaksOffAfterAnActionIsNoLeaveToRepeatIt) {
  setFault(Fault::truncatedReply, "/click", 2);
  EXPECT_THAT(reasonOfFirst(), AllOf(StartsWith("tap of "), HasSubstr(": no answer came: ")));
  EXPECT_THAT(touched, ElementsAre("Allow Once", "browse", "browse")) << "the tap of the first script was done once";
}

TEST_F(WebDriverFaults, NonsenseIsShownAsFarAsItIsNeeded) {
  setFault(Fault::nonsense, "/elements", 2);
  EXPECT_THAT(reasonOfFirst(), EndsWith(" over WebDriver at " + url +
                                        ": status 200 with what is no answer of a WebDriver server: "
                                        "<html><body>Bad gateway</body></html>"));
}

TEST_F(WebDriverFaults, ALookupGoesOnInANewSessionWhereItsOwnWasLost) {
  setFault(Fault::sessionLost, "/elements", 2);
  expectSuccessOfBoth();
}

TEST_F(WebDriverFaults, AnActionIsNotRepeatedWhereTheSessionWasLost) {
  setFault(Fault::sessionLost, "/click", 2);
  EXPECT_THAT(reasonOfFirst(), HasSubstr(": the server lost the session, so it is not known whether this was done "
                                         "(invalid session id: said by the proxy)"));
}

TEST_F(WebDriverFaults, AnotherClientThatTakesThePhoneCostsOneNewSession) {
  scripts.add("first.txt", BROWSE);
  scripts.run();
  // The session is another one's now.
  webdriver::WebDriverDriver other({.url = url, .dialect = webdriver::Dialect::wda}, Clock::shared());
  EXPECT_TRUE(other.screenshot());
  EXPECT_EQ(XCUIApplication("com.apple.springboard").windows().count(), 1U);
}

TEST_F(WebDriverFaults, AStaleElementIsFoundAgainAndTheTapRepeatedOnce) {
  setFault(Fault::staleElement, "/click", 2);
  expectSuccessOfBoth();
  EXPECT_THAT(touched, ElementsAre("Allow Once", "browse", "browse"));
}

}  // namespace
}  // namespace quobrak::conformance
