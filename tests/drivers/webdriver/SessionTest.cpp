#include "drivers/webdriver/Session.h"

#include <optional>

#include "tests/drivers/webdriver/ScriptedServer.h"

namespace quobrak::webdriver {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr TimeLimits LIMITS{
    .connect = 1ms, .command = 2ms, .launch = 3ms, .screenshot = 4ms, .newSession = 5ms, .endOfSession = 6ms};

Command question(const std::string& session) {
  return {.method = "GET", .path = "/session/" + session + "/screenshot", .body = {}};
}

Command questionAboutAnElement(const std::string& session) {
  return {.method = "GET", .path = "/session/" + session + "/element/e1/rect", .body = {}};
}

Command action(const std::string& session) {
  return {.method = "POST", .path = "/session/" + session + "/element/e1/click", .body = {}};
}

class SessionTest : public ::testing::Test {
 protected:
  static constexpr const char* QUESTION = "GET /session/s1/screenshot";
  static constexpr const char* ACTION = "POST /session/s1/element/e1/click {}";

  Session& session() { return *session_; }

  /// The session with a first command behind it.
  void openAs(const std::string& id, const std::string& pinned = "") {
    server_.expectOpening(id, pinned);
    server_.expect("GET /session/" + id + "/screenshot", "0");
    session().ask(question);
  }

  ScriptedServer server_;
  std::optional<Session> session_{std::in_place, Connection(server_.transport()), Dialect::appium, JSONValue::Object{},
                                  LIMITS};
};

TEST_F(SessionTest, WithoutACommandThereIsNone) {
  session().pin("com.example.test");
  EXPECT_EQ(session().generation(), 0);
  session_.reset();
  EXPECT_THAT(server_.requests(), IsEmpty());
}

TEST_F(SessionTest, IsOpenedByTheFirstCommandAndServesAllOthers) {
  server_.expectOpening("s1");
  server_.expect(QUESTION, "1");
  server_.expect(ACTION, "2");
  server_.expect(QUESTION, "3");
  EXPECT_EQ(session().ask(question), JSONValue(1));
  EXPECT_EQ(session().act(action, 7ms), JSONValue(2));
  EXPECT_EQ(session().ask(question, 8ms), JSONValue(3));
  EXPECT_EQ(session().generation(), 1);
  EXPECT_THAT(server_.timeLimits(), ElementsAre(5ms, 2ms, 2ms, 7ms, 8ms));
}

TEST(Session, HasTheCapabilitiesThatAreAskedForAndTheSettingsThatLookupsNeed) {
  ScriptedServer server;
  Session session(Connection(server.transport()), Dialect::wda,
                  {{"platformName", "iOS"}, {"appium:newCommandTimeout", 0}}, LIMITS);
  server.expect(R"(POST /session {"capabilities":{"alwaysMatch":{"platformName":"iOS","appium:newCommandTimeout":0},)"
                R"("firstMatch":[{}]}})",
                R"({"sessionId":"A-1","capabilities":{}})");
  server.expect(
      R"(POST /session/A-1/appium/settings {"settings":{"shouldUseCompactResponses":false,"elementResponseAttributes":)"
      R"("type,label,rect,enabled,selected,attribute/name,attribute/value,attribute/placeholderValue,)"
      R"(attribute/hittable","snapshotMaxDepth":62,"screenshotQuality":0}})");
  server.expect("GET /session/A-1/screenshot", "1");
  EXPECT_EQ(session.ask(question), JSONValue(1));
  EXPECT_EQ(session.dialect(), Dialect::wda);
  EXPECT_EQ(session.limits().launch, 3ms);
}

TEST_F(SessionTest, IsEndedWithTheObject) {
  openAs("s1");
  server_.expect("DELETE /session/s1");
  session_.reset();
  EXPECT_EQ(server_.timeLimits().back(), 6ms);
}

TEST_F(SessionTest, ErrorsAtItsEndAreNobodysConcern) {
  openAs("s1");
  server_.expectError("DELETE /session/s1", "invalid session id");
  session_.reset();
  session_.emplace(Connection(server_.transport()), Dialect::appium, JSONValue::Object{}, LIMITS);
  openAs("s2");
  server_.expectFault("DELETE /session/s2", Fault::outcomeUnknown, "no answer came");
  EXPECT_NO_THROW(session_.reset());
}

TEST_F(SessionTest, WithoutAnIdIsNone) {
  for (const char* const value :
       {"null", "{}", R"("s1")", R"({"sessionId":7})", R"({"sessionId":null})", R"({"sessionId":""})"}) {
    server_.expect(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})", value);
    EXPECT_THAT([this] { session().ask(question); },
                throwsFault(Fault::nonsense, "the server opened a session without saying which"));
  }
  EXPECT_EQ(session().generation(), 0);
  session_.reset();
  EXPECT_THAT(server_.requests(), SizeIs(6)) << "there is none to end";
}

TEST_F(SessionTest, WithAnIdThatLeadsElsewhereIsNone) {
  server_.expect(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})", R"({"sessionId":"s1/.."})");
  EXPECT_THAT(
      [this] { session().ask(question); },
      throwsFault(Fault::nonsense, "the server opened a session with the id \"s1/..\", which cannot stand in a path"));
  EXPECT_EQ(session().generation(), 0);
}

TEST_F(SessionTest, ThatIsNotCreatedIsTriedAgainByTheNextCommand) {
  server_.expectError(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})", "session not created",
                      "no phone");
  EXPECT_THAT([this] { session().act(action, 1s); }, throwsFault(Fault::refused, "session not created: no phone"));
  openAs("s1");
}

TEST_F(SessionTest, WithoutItsSettingsIsNotUsed) {
  server_.expect(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})", R"({"sessionId":"s0"})");
  server_.expectError(
      R"(POST /session/s0/appium/settings {"settings":{"shouldUseCompactResponses":false,"snapshotMaxDepth":62,)"
      R"("screenshotQuality":0,"elementResponseAttributes":"type,label,rect,enabled,selected,attribute/name,)"
      R"(attribute/value,attribute/placeholderValue,attribute/hittable"}})",
      "invalid argument", "no such setting");
  EXPECT_THAT([this] { session().ask(question); }, throwsFault(Fault::refused, "invalid argument: no such setting"));
  openAs("s1");
}

TEST_F(SessionTest, AnApplicationIsPinnedOnlyWhereAnotherOneWas) {
  openAs("s1");
  server_.expect(pinRequest("s1", "com.example.a"));
  session().pin("com.example.a");
  session().pin("com.example.a");
  server_.expect(pinRequest("s1", "com.example.b"));
  session().pin("com.example.b");
  server_.expect(pinRequest("s1", "com.example.a"));
  session().pin("com.example.a");
  EXPECT_EQ(server_.timeLimits().back(), 2ms);
}

TEST_F(SessionTest, AnApplicationThatIsPinnedBeforeIsPartOfTheFirstSettings) {
  session().pin("com.example.a");
  openAs("s1", "com.example.a");
  session().pin("com.example.a");
  EXPECT_THAT(server_.requests(), SizeIs(3));
}

TEST_F(SessionTest, APinThatFailsIsSentAgain) {
  openAs("s1");
  server_.expectError(pinRequest("s1", "com.example.a"), "unknown error", "busy");
  EXPECT_THAT([this] { session().pin("com.example.a"); }, throwsFault(Fault::refused, "unknown error: busy"));
  server_.expect(pinRequest("s1", "com.example.a"));
  session().pin("com.example.a");
}

TEST_F(SessionTest, APinThatGotNoAnswerIsSentOnceMore) {
  openAs("s1");
  for (const Fault fault : {Fault::notSent, Fault::outcomeUnknown}) {
    server_.expectFault(pinRequest("s1", "com.example.a"), fault, "broken");
    server_.expect(pinRequest("s1", "com.example.a"));
    session().pin("com.example.a");
    server_.expect(pinRequest("s1", "com.example.b"));
    session().pin("com.example.b");
  }
  server_.expectFault(pinRequest("s1", "com.example.a"), Fault::notSent, "broken");
  server_.expectFault(pinRequest("s1", "com.example.a"), Fault::notSent, "broken again");
  EXPECT_THAT([this] { session().pin("com.example.a"); }, throwsFault(Fault::notSent, "broken again"));
}

TEST_F(SessionTest, APinThatFindsTheSessionLostIsMadeInANewOne) {
  openAs("s1");
  server_.expectError(pinRequest("s1", "com.example.a"), "invalid session id");
  server_.expectOpening("s2", "com.example.a");
  server_.expect(pinRequest("s2", "com.example.a"));
  session().pin("com.example.a");
  EXPECT_EQ(session().generation(), 2);
}

TEST_F(SessionTest, WhereItIsLostAQuestionIsAskedInANewOneWithThePinOfTheOldOne) {
  openAs("s1");
  server_.expect(pinRequest("s1", "com.example.a"));
  session().pin("com.example.a");
  server_.expectError(QUESTION, "invalid session id");
  server_.expectOpening("s2", "com.example.a");
  server_.expect("GET /session/s2/screenshot", "7");
  EXPECT_EQ(session().ask(question), JSONValue(7));
  EXPECT_EQ(session().generation(), 2);
  session().pin("com.example.a");
  server_.expect("DELETE /session/s2");
  session_.reset();
}

TEST_F(SessionTest, AQuestionIsAskedInNoThirdOne) {
  openAs("s1");
  server_.expectError(QUESTION, "invalid session id", "first");
  server_.expectOpening("s2");
  server_.expectError("GET /session/s2/screenshot", "invalid session id", "second");
  EXPECT_THAT([this] { session().ask(question); }, throwsFault(Fault::sessionLost, "invalid session id: second"));
}

TEST_F(SessionTest, WhereItIsLostAnElementOfItIsGone) {
  openAs("s1");
  server_.expectError("GET /session/s1/element/e1/rect", "invalid session id");
  server_.expectOpening("s2");
  EXPECT_THAT([this] { session().ask(questionAboutAnElement, Session::Names::anElement); },
              throwsFault(Fault::staleElement, "the server lost the session in which the element was found"));
  EXPECT_EQ(session().generation(), 2);
}

TEST_F(SessionTest, AQuestionAboutAnElementIsRepeatedInTheSameSession) {
  openAs("s1");
  server_.expectFault("GET /session/s1/element/e1/rect", Fault::outcomeUnknown, "no answer came");
  server_.expect("GET /session/s1/element/e1/rect", "7");
  EXPECT_EQ(session().ask(questionAboutAnElement, Session::Names::anElement), JSONValue(7));
}

TEST_F(SessionTest, WhereItIsLostAnActionIsNotRepeatedAndTheNextCommandFindsANewOne) {
  openAs("s1");
  server_.expectError(ACTION, "invalid session id", "ended");
  EXPECT_THAT([this] { session().act(action, 1s); },
              throwsFault(Fault::sessionLost,
                          "the server lost the session, so it is not known whether this was done (invalid session id: "
                          "ended)"));
  openAs("s2");
}

TEST_F(SessionTest, WhatWasNotSentIsSentOnceMore) {
  openAs("s1");
  server_.expectFault(QUESTION, Fault::notSent, "broken");
  server_.expect(QUESTION, "1");
  EXPECT_EQ(session().ask(question), JSONValue(1));
  server_.expectFault(ACTION, Fault::notSent, "broken");
  server_.expect(ACTION, "2");
  EXPECT_EQ(session().act(action, 9ms), JSONValue(2));
  EXPECT_EQ(server_.timeLimits().back(), 9ms);
  server_.expectFault(QUESTION, Fault::notSent, "broken");
  server_.expectFault(QUESTION, Fault::notSent, "broken again");
  EXPECT_THAT([this] { session().ask(question); }, throwsFault(Fault::notSent, "broken again"));
  server_.expectFault(ACTION, Fault::notSent, "broken");
  server_.expectFault(ACTION, Fault::notSent, "broken again");
  EXPECT_THAT([this] { session().act(action, 1s); }, throwsFault(Fault::notSent, "broken again"));
}

TEST_F(SessionTest, AnOpeningThatWasNotSentIsSentOnceMore) {
  server_.expectFault(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})", Fault::notSent,
                      "broken");
  server_.expectOpening("s1");
  server_.expect(ACTION);
  session().act(action, 1s);
  EXPECT_EQ(session().generation(), 1);
}

TEST_F(SessionTest, OfUnknownOutcomeAQuestionIsAskedOnceMoreAndAnActionNot) {
  openAs("s1");
  server_.expectFault(QUESTION, Fault::outcomeUnknown, "no answer came");
  server_.expect(QUESTION, "1");
  EXPECT_EQ(session().ask(question), JSONValue(1));
  server_.expectError(QUESTION, "timeout");
  server_.expectFault(QUESTION, Fault::outcomeUnknown, "no answer came again");
  EXPECT_THAT([this] { session().ask(question); }, throwsFault(Fault::outcomeUnknown, "no answer came again"));
  server_.expectFault(ACTION, Fault::outcomeUnknown, "no answer came");
  EXPECT_THAT([this] { session().act(action, 1s); },
              throwsFault(Fault::outcomeUnknown, "no answer came, so it is not known whether this was done"));
  server_.expectError(ACTION, "timeout");
  EXPECT_THAT([this] { session().act(action, 1s); },
              throwsFault(Fault::outcomeUnknown, "timeout, so it is not known whether this was done"));
}

TEST_F(SessionTest, AQuestionThatIsRepeatedMayFindTheSessionLost) {
  openAs("s1");
  server_.expectError(QUESTION, "timeout", "the phone hangs");
  server_.expectError(QUESTION, "invalid session id");
  server_.expectOpening("s2");
  server_.expect("GET /session/s2/screenshot", "7");
  EXPECT_EQ(session().ask(question), JSONValue(7));
}

TEST_F(SessionTest, AnActionThatIsSentOnceMoreMayFindTheSessionLost) {
  openAs("s1");
  server_.expectFault(ACTION, Fault::notSent, "broken");
  server_.expectError(ACTION, "invalid session id", "ended");
  EXPECT_THAT([this] { session().act(action, 1s); },
              throwsFault(Fault::sessionLost,
                          "the server lost the session, so it is not known whether this was done (invalid session id: "
                          "ended)"));
  openAs("s2");
}

TEST_F(SessionTest, AnActionForWhichNoSessionIsOpenedIsSurelyNotDone) {
  server_.expectFault(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})", Fault::outcomeUnknown,
                      "no answer came");
  EXPECT_THAT([this] { session().act(action, 1s); }, throwsFault(Fault::outcomeUnknown, "no answer came"));
}

TEST_F(SessionTest, AnyOtherErrorIsTheAnswer) {
  openAs("s1");
  for (const auto& [code, fault] :
       {std::pair("no such element", Fault::noSuchElement), std::pair("stale element reference", Fault::staleElement),
        std::pair("no such alert", Fault::noSuchAlert), std::pair("unknown error", Fault::refused)}) {
    server_.expectError(QUESTION, code);
    EXPECT_THAT([this] { session().ask(question); }, throwsFault(fault, code));
    server_.expectError(ACTION, code);
    EXPECT_THAT([this] { session().act(action, 1s); }, throwsFault(fault, code));
  }
  server_.expectReply(QUESTION, {.status = 502, .body = "<html>"});
  EXPECT_THAT([this] { session().ask(question); },
              throwsFault(Fault::nonsense, "status 502 with what is no answer of a WebDriver server: <html>"));
}

TEST_F(SessionTest, OutsideItAQuestionNeedsItAllTheSame) {
  const Command outside{.method = "GET", .path = "/alert/text", .body = {}};
  server_.expectOpening("s1");
  server_.expect("GET /alert/text", "1");
  EXPECT_EQ(session().askWithoutSession(outside), JSONValue(1));
  for (const Fault fault : {Fault::notSent, Fault::outcomeUnknown}) {
    server_.expectFault("GET /alert/text", fault, "broken");
    server_.expect("GET /alert/text", "2");
    EXPECT_EQ(session().askWithoutSession(outside), JSONValue(2));
  }
  server_.expectFault("GET /alert/text", Fault::notSent, "broken");
  server_.expectFault("GET /alert/text", Fault::notSent, "broken again");
  EXPECT_THAT([&] { session().askWithoutSession(outside); }, throwsFault(Fault::notSent, "broken again"));
  server_.expectError("GET /alert/text", "no such alert");
  EXPECT_THAT([&] { session().askWithoutSession(outside); }, throwsFault(Fault::noSuchAlert, "no such alert"));
  EXPECT_EQ(server_.timeLimits().back(), 2ms);
}

}  // namespace
}  // namespace quobrak::webdriver
