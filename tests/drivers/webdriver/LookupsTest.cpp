#include "drivers/webdriver/Lookups.h"

#include <utility>

#include "drivers/webdriver/WirePredicate.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "tests/drivers/webdriver/ScriptedServer.h"

namespace quobrak::webdriver {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

const XCUIApplication APP("com.example.test");
const XCUIApplication HOME(SYSTEM_PROCESS);
constexpr const char* BUTTONS = "**/XCUIElementTypeButton";
constexpr const char* FIRST_BUTTON = "**/XCUIElementTypeButton[1]";

std::vector<std::string> idsOf(const std::vector<FoundElement>& elements) {
  std::vector<std::string> ids;
  for (const FoundElement& element : elements) {
    ids.push_back(element.id);
  }
  return ids;
}

std::string idOf(const std::optional<FoundElement>& element) {
  return element ? element->id : "none";
}

/// Look-ups on a phone, on whose server a session is open, and the application in front and pinned.
template <Dialect DIALECT>
class LookupsWith : public ::testing::Test {
 protected:
  LookupsWith() {
    server_.expectOpening("s1", APP.bundleIdentifier());
    session_.pin(APP.bundleIdentifier());
    expectState("s1", APP.bundleIdentifier(), "4");
    applications_.isInFront(APP.bundleIdentifier());
  }

  void expectState(const std::string& session, const std::string& bundleIdentifier, std::string_view state) {
    const std::string arguments = R"({"bundleId":)" + inQuotes(bundleIdentifier) + "}";
    server_.expect(DIALECT == Dialect::appium ? scriptRequest(session, "mobile: queryAppState", arguments)
                                              : "POST /session/" + session + "/wda/apps/state " + arguments,
                   state);
  }

  /// `place` is below the session: "" or "/element/" and an id.
  void expectLookup(std::string_view chain, const std::vector<WireElement>& elements, const std::string& place = "") {
    server_.expect(chainRequest(DIALECT, "/session/s1" + place, chain), found(elements));
  }

  static XCUIElement alert(const std::string& id) {
    return XCUIElement(QueryRoot(std::make_shared<const AlertHandle>(id, "Allow?")));
  }

  ScriptedServer server_;
  VirtualClock clock_;
  Session session_{Connection(server_.transport()), DIALECT, {}, {}};
  Applications applications_{session_, clock_};
  Lookups lookups_{session_, applications_};
};

using LookupsTest = LookupsWith<Dialect::wda>;
using LookupsThroughAppium = LookupsWith<Dialect::appium>;

TEST_F(LookupsTest, ALookupIsOneExchangeAndServesUntilItIsForgotten) {
  expectLookup(FIRST_BUTTON, {{.id = "e1"}});
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().firstMatch())), "e1");
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().firstMatch())), "e1");
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().elementBoundBy(0))), "e1") << "the same in other words";
  lookups_.forget();
  expectState("s1", "com.example.test", "4");
  expectLookup(FIRST_BUTTON, {{.id = "e2"}});
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().firstMatch())), "e2");
}

TEST_F(LookupsTest, WhatIsNotThereIsAlsoKept) {
  expectLookup(FIRST_BUTTON, {});
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().firstMatch())), "none");
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().firstMatch())), "none");
}

TEST_F(LookupsTest, WhatACountFoundServesItsElements) {
  expectLookup(BUTTONS, {{.id = "e1"}, {.id = "e2"}});
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1", "e2"));
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1", "e2"));
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().firstMatch())), "e1");
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().elementBoundBy(1))), "e2");
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().elementBoundBy(2))), "none");
}

TEST_F(LookupsTest, AnElementAloneIsLookedUpAlone) {
  expectLookup("**/XCUIElementTypeButton[3]", {{.id = "e3"}});
  EXPECT_EQ(idOf(lookups_.one(APP.buttons().elementBoundBy(2))), "e3");
}

TEST_F(LookupsTest, AnotherApplicationIsAskedForAndPinnedFirst) {
  expectState("s1", SYSTEM_PROCESS, "4");
  server_.expect(pinRequest("s1", SYSTEM_PROCESS));
  expectLookup(BUTTONS, {{.id = "h1"}});
  EXPECT_THAT(idsOf(lookups_.all(HOME.buttons())), ElementsAre("h1"));
  server_.expect(pinRequest("s1", "com.example.test"));
  expectLookup(BUTTONS, {{.id = "e1"}});
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1")) << "what was found elsewhere is not mixed up";
}

TEST_F(LookupsTest, OneThatIsNotInFrontHasNoElements) {
  expectState("s1", "com.example.other", "3");
  const XCUIApplication other("com.example.other");
  EXPECT_THAT(lookups_.all(other.buttons()), IsEmpty());
  EXPECT_EQ(idOf(lookups_.one(other.buttons().firstMatch())), "none");
  EXPECT_EQ(idOf(lookups_.one(other)), "none");
}

TEST_F(LookupsTest, AnApplicationItselfIsMetByAPredicate) {
  const std::string request =
      R"(POST /session/s1/elements {"using":"predicate string","value":"type == \"XCUIElementTypeApplication\""})";
  server_.expect(request, found({{.id = "app", .type = "Application", .label = "Test"}}));
  const std::optional<FoundElement> application = lookups_.one(APP);
  ASSERT_EQ(idOf(application), "app");
  EXPECT_EQ(application->label, "Test");
  EXPECT_EQ(idOf(lookups_.one(APP)), "app");
  lookups_.forget();
  expectState("s1", "com.example.test", "4");
  server_.expect(request, found({}));
  EXPECT_EQ(idOf(lookups_.one(APP)), "none");
  EXPECT_EQ(idOf(lookups_.one(APP)), "none");
}

TEST_F(LookupsThroughAppium, AnApplicationItselfIsMetByAPredicate) {
  server_.expect(
      R"(POST /session/s1/elements {"using":"-ios predicate string","value":"type == \"XCUIElementTypeApplication\""})",
      found({{.id = "app"}}));
  EXPECT_EQ(idOf(lookups_.one(APP)), "app");
}

TEST_F(LookupsTest, WhatIsInAnAlertIsLookedUpBelowIt) {
  expectLookup(FIRST_BUTTON, {{.id = "b1"}}, "/element/a1");
  EXPECT_EQ(idOf(lookups_.one(alert("a1").buttons().firstMatch())), "b1");
  EXPECT_EQ(idOf(lookups_.one(alert("a1").buttons().firstMatch())), "b1");
  expectLookup(FIRST_BUTTON, {{.id = "b2"}}, "/element/a2");
  EXPECT_EQ(idOf(lookups_.one(alert("a2").buttons().firstMatch())), "b2");
  expectLookup(BUTTONS, {{.id = "e1"}, {.id = "b1"}});
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1", "b1"));
}

TEST_F(LookupsTest, BelowAnAlertThatIsGoneNothingIs) {
  for (const char* const code : {"stale element reference", "no such element"}) {
    server_.expectError(chainRequest(Dialect::wda, "/session/s1/element/a1", BUTTONS), code);
    EXPECT_THAT(lookups_.all(alert("a1").buttons()), IsEmpty()) << code;
    lookups_.forget();
  }
}

TEST_F(LookupsTest, AnAlertItselfIsOneOfThoseThatAreUp) {
  server_.expect(pinRequest("s1", SYSTEM_PROCESS));
  expectLookup("**/XCUIElementTypeAlert", {{.id = "a1", .type = "Alert"}, {.id = "a2", .type = "Alert"}});
  EXPECT_EQ(idOf(lookups_.one(alert("a2"))), "a2");
  EXPECT_EQ(idOf(lookups_.one(alert("a3"))), "none");
}

TEST_F(LookupsTest, WhatAnotherDriverHandedOverIsNotThere) {
  class ForeignHandle final : public ElementHandle {
   public:
    std::string description() const override { return "a foreign element"; }
  };
  const XCUIElement foreign{QueryRoot(std::make_shared<const ForeignHandle>())};
  EXPECT_EQ(idOf(lookups_.one(foreign)), "none");
  EXPECT_THAT(lookups_.all(foreign.buttons()), IsEmpty());
}

TEST_F(LookupsTest, TheAlertInFrontIsTheLastOne) {
  server_.expect(pinRequest("s1", SYSTEM_PROCESS));
  expectLookup("**/XCUIElementTypeAlert[-1]", {{.id = "a2", .type = "Alert", .label = "Allow?"}});
  const std::optional<FoundElement> first = lookups_.systemAlert();
  ASSERT_EQ(idOf(first), "a2");
  EXPECT_EQ(first->label, "Allow?");
  expectLookup("**/XCUIElementTypeAlert[-1]", {});
  EXPECT_EQ(idOf(lookups_.systemAlert()), "none") << "it is looked up each time";
}

TEST(AlertHandle, IsNamedByItsLabel) {
  const AlertHandle handle("a1", "Allow “Test”?");
  EXPECT_EQ(handle.id(), "a1");
  EXPECT_EQ(handle.description(), "the system alert \"Allow “Test”?\"");
}

TEST_F(LookupsTest, WhatIsBelowAnElementIsLookedUpEachTime) {
  const FoundElement cell{.id = "e7"};
  expectLookup("**/XCUIElementTypeTextField", {{.id = "f1", .type = "TextField"}}, "/element/e7");
  EXPECT_THAT(idsOf(lookups_.below(cell, ElementType::textField)), ElementsAre("f1"));
  expectLookup("**/*", {{.id = "f1"}, {.id = "f2"}}, "/element/e7");
  EXPECT_THAT(idsOf(lookups_.below(cell, ElementType::any)), ElementsAre("f1", "f2"));
  expectLookup("**/*", {}, "/element/e7");
  EXPECT_THAT(lookups_.below(cell, ElementType::any), IsEmpty());
}

TEST_F(LookupsTest, ErrorsPassAndAreNotKept) {
  server_.expectError(chainRequest(Dialect::wda, "/session/s1", BUTTONS), "unknown error", "busy");
  EXPECT_THAT([this] { lookups_.all(APP.buttons()); }, throwsFault(Fault::refused, "unknown error: busy"));
  server_.expect(chainRequest(Dialect::wda, "/session/s1", BUTTONS), R"({"a":1})");
  EXPECT_THAT([this] { lookups_.all(APP.buttons()); },
              throwsFault(Fault::nonsense, "the server answered a look-up with what is none: no list"));
  expectLookup(BUTTONS, {{.id = "e1"}});
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1"));
}

TEST_F(LookupsTest, WhatCannotBeAskedIsNoExchange) {
  EXPECT_THAT([this] { lookups_.all(APP.buttons().matching(NSPredicate("colour == 'red'"))); },
              ThrowsMessage<UnaskableQuery>("elements have no attribute \"colour\"; they have label, identifier, "
                                            "placeholderValue, value, enabled, selected, exists, hittable"));
}

TEST_F(LookupsTest, WhereTheSessionIsLostItIsRepeatedInANewOneButNotBelowAnElement) {
  server_.expectError(chainRequest(Dialect::wda, "/session/s1", BUTTONS), "invalid session id");
  server_.expectOpening("s2", "com.example.test");
  server_.expect(chainRequest(Dialect::wda, "/session/s2", BUTTONS), found({{.id = "e1"}}));
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1"));
  server_.expectError(chainRequest(Dialect::wda, "/session/s2/element/a1", BUTTONS), "invalid session id");
  server_.expectOpening("s3", "com.example.test");
  EXPECT_THAT(lookups_.all(alert("a1").buttons()), IsEmpty());
}

TEST_F(LookupsThroughAppium, WhatIsFoundNeedsNoProof) {
  expectLookup(BUTTONS, {{.id = "e1"}});
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1"));
}

TEST_F(LookupsThroughAppium, WhatIsNotFoundIsProvedByAnotherCommand) {
  expectLookup(BUTTONS, {});
  server_.expect(scriptRequest("s1", "mobile: isLocked", "{}"), "false");
  EXPECT_THAT(lookups_.all(APP.buttons()), IsEmpty());
  EXPECT_THAT(lookups_.all(APP.buttons()), IsEmpty());
  server_.expectError(chainRequest(Dialect::appium, "/session/s1/element/a1", BUTTONS), "no such element");
  server_.expect(scriptRequest("s1", "mobile: isLocked", "{}"), "true");
  EXPECT_THAT(lookups_.all(alert("a1").buttons()), IsEmpty());
}

TEST_F(LookupsThroughAppium, WhereTheProofFindsTheSessionLostTheLookupIsRepeated) {
  expectLookup(BUTTONS, {});
  server_.expectError(scriptRequest("s1", "mobile: isLocked", "{}"), "invalid session id");
  server_.expectOpening("s2", "com.example.test");
  server_.expect(scriptRequest("s2", "mobile: isLocked", "{}"), "false");
  server_.expect(chainRequest(Dialect::appium, "/session/s2", BUTTONS), found({{.id = "e1"}}));
  EXPECT_THAT(idsOf(lookups_.all(APP.buttons())), ElementsAre("e1"));
}

TEST_F(LookupsThroughAppium, WhereTheProofFailsTheLookupFails) {
  expectLookup(BUTTONS, {});
  server_.expectError(scriptRequest("s1", "mobile: isLocked", "{}"), "unknown error", "Could not proxy command");
  EXPECT_THAT([this] { lookups_.all(APP.buttons()); },
              throwsFault(Fault::refused, "unknown error: Could not proxy command"));
}

}  // namespace
}  // namespace quobrak::webdriver
