#include "drivers/webdriver/Applications.h"

#include "platform/foundation/VirtualClock.h"
#include "tests/drivers/webdriver/ScriptedServer.h"

namespace quobrak::webdriver {
namespace {

using namespace std::chrono_literals;

constexpr TimeLimits LIMITS{.command = 2s, .launch = 3s};
constexpr const char* A = "com.example.a";
constexpr const char* B = "com.example.b";
constexpr const char* UNKNOWN = "no answer came, so it is not known whether this was done";

std::string terminateRequest(const std::string& bundleIdentifier) {
  return R"(POST /session/s1/wda/apps/terminate {"bundleId":")" + bundleIdentifier + "\"}";
}

std::string launchRequest(const std::string& bundleIdentifier) {
  return R"(POST /session/s1/wda/apps/launch {"bundleId":")" + bundleIdentifier + "\"}";
}

std::string stateRequest(const std::string& bundleIdentifier) {
  return R"(POST /session/s1/wda/apps/state {"bundleId":")" + bundleIdentifier + "\"}";
}

/// The applications of a phone whose own server has a session open.
class ApplicationsTest : public ::testing::Test {
 protected:
  ApplicationsTest() {
    server_.expectOpening("s1");
    server_.expect(stateRequest("com.example.none"), "1");
    applications_.isInFront("com.example.none");
  }

  void launch(const std::string& bundleIdentifier) {
    server_.expect(terminateRequest(bundleIdentifier), "false");
    server_.expect(launchRequest(bundleIdentifier));
    server_.expect(stateRequest(bundleIdentifier), "4");
    server_.expect(pinRequest("s1", bundleIdentifier));
    applications_.launch(bundleIdentifier);
  }

  ScriptedServer server_;
  VirtualClock clock_;
  Session session_{Connection(server_.transport()), Dialect::wda, {}, LIMITS};
  Applications applications_{session_, clock_};
};

TEST_F(ApplicationsTest, AreEndedBeforeTheyAreStarted) {
  launch(A);
  EXPECT_TRUE(applications_.isInFront(A));
}

TEST(Applications, AreScriptsToTheOtherServer) {
  ScriptedServer server;
  VirtualClock clock;
  Session session(Connection(server.transport()), Dialect::appium, {}, LIMITS);
  Applications applications(session, clock);
  server.expectOpening("s1");
  server.expect(scriptRequest("s1", "mobile: terminateApp", R"({"bundleId":"com.example.a"})"));
  server.expect(scriptRequest("s1", "mobile: launchApp", R"({"bundleId":"com.example.a"})"));
  server.expect(scriptRequest("s1", "mobile: queryAppState", R"({"bundleId":"com.example.a"})"), "4");
  server.expect(pinRequest("s1", A));
  applications.launch(A);
  EXPECT_EQ(server.timeLimits().at(3), 3s) << "the launch has a limit of its own";
  EXPECT_EQ(server.timeLimits().at(2), 2s);
}

TEST_F(ApplicationsTest, ALaunchEndsWhenTheyAreInFront) {
  const Clock::TimePoint start = clock_.now();
  server_.expect(terminateRequest(A));
  server_.expect(launchRequest(A));
  for (const char* const state : {"1", "0", "2", "3", "4"}) {
    server_.expect(stateRequest(A), state);
  }
  server_.expect(pinRequest("s1", A));
  applications_.launch(A);
  EXPECT_EQ(clock_.now() - start, 1s);
}

TEST_F(ApplicationsTest, ALaunchThatNeverComesToTheFrontFails) {
  const Clock::TimePoint start = clock_.now();
  server_.expect(terminateRequest(A));
  server_.expect(launchRequest(A));
  constexpr int LOOKS = 13;
  for (int look = 0; look < LOOKS; ++look) {
    server_.expect(stateRequest(A), "3");
  }
  EXPECT_THAT([this] { applications_.launch(A); },
              throwsFault(Fault::refused, "it was started, but did not come to the front"));
  EXPECT_EQ(clock_.now() - start, 3s);
}

TEST_F(ApplicationsTest, OneThatIsNotInstalledIsNotStarted) {
  server_.expect(terminateRequest(A));
  server_.expectError(launchRequest(A), "unknown error", "not installed");
  EXPECT_THAT([this] { applications_.launch(A); }, throwsFault(Fault::refused, "unknown error: not installed"));
}

TEST_F(ApplicationsTest, TheOneLaunchedLastIsInFrontUntilItEnds) {
  launch(A);
  applications_.forget();
  EXPECT_TRUE(applications_.isInFront(A));
  server_.expect(terminateRequest(B));
  applications_.terminate(B);
  EXPECT_TRUE(applications_.isInFront(A));
  server_.expect(terminateRequest(A), "true");
  applications_.terminate(A);
  server_.expect(stateRequest(A), "1");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, TheHomeScreenIsNeverEnded) {
  launch(A);
  applications_.terminate(SYSTEM_PROCESS);
  EXPECT_TRUE(applications_.isInFront(A));
  server_.expect(launchRequest(SYSTEM_PROCESS));
  server_.expect(stateRequest(SYSTEM_PROCESS), "4");
  server_.expect(pinRequest("s1", SYSTEM_PROCESS));
  applications_.launch(SYSTEM_PROCESS);
  EXPECT_TRUE(applications_.isInFront(SYSTEM_PROCESS));
  server_.expect(stateRequest(A), "3");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, TheOneLaunchedBeforeIsAskedFor) {
  launch(A);
  launch(B);
  EXPECT_TRUE(applications_.isInFront(B));
  server_.expect(stateRequest(A), "3");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, AfterTheHomeButtonNoneIsKnownToBeInFront) {
  launch(A);
  applications_.leave();
  server_.expect(stateRequest(A), "3");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, WhetherAnotherOneIsInFrontIsAskedOnceUntilItIsForgotten) {
  server_.expect(stateRequest(A), "4");
  EXPECT_TRUE(applications_.isInFront(A));
  EXPECT_TRUE(applications_.isInFront(A));
  server_.expect(stateRequest(B), "3");
  EXPECT_FALSE(applications_.isInFront(B));
  EXPECT_FALSE(applications_.isInFront(B));
  applications_.forget();
  server_.expect(stateRequest(A), "0");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, AnEndingIsAReasonToAskAgain) {
  server_.expect(stateRequest(A), "4");
  EXPECT_TRUE(applications_.isInFront(A));
  server_.expect(terminateRequest(A));
  applications_.terminate(A);
  server_.expect(stateRequest(A), "1");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, WhereALaunchFailsTheOneBeforeIsAskedForToo) {
  launch(A);
  server_.expect(terminateRequest(B));
  server_.expectFault(launchRequest(B), Fault::outcomeUnknown, "no answer came");
  EXPECT_THAT([this] { applications_.launch(B); }, throwsFault(Fault::outcomeUnknown, UNKNOWN));
  server_.expect(stateRequest(A), "3");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, WhereItIsNotKnownWhetherOneEndedItIsAskedFor) {
  launch(A);
  server_.expectFault(terminateRequest(A), Fault::outcomeUnknown, "no answer came");
  EXPECT_THAT([this] { applications_.terminate(A); }, throwsFault(Fault::outcomeUnknown, UNKNOWN));
  server_.expect(stateRequest(A), "1");
  EXPECT_FALSE(applications_.isInFront(A));
}

TEST_F(ApplicationsTest, AStateThatIsNoNumberIsNonsense) {
  for (const char* const state : {"null", R"("4")", "4.0", "{}"}) {
    server_.expect(stateRequest(A), state);
    EXPECT_THAT([this] { applications_.isInFront(A); },
                throwsFault(Fault::nonsense, "the state of an application is no number"))
        << state;
  }
}

}  // namespace
}  // namespace quobrak::webdriver
