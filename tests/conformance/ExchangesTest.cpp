#include "platform/foundation/ConfinedFileManager.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/conformance/ConformanceTest.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::conformance {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// How often a command speaks with a phone that is far away. On a real phone each exchange takes tens of milliseconds,
/// and falls into a measured step.
class Exchanges : public ConformanceTest {
 protected:
  Exchanges() {
    FileManager::install(std::make_unique<ConfinedFileManager>(documents_.path().string()));
    switchOn(R"(<Button name="next" label="Next" x="0" y="0" width="50" height="50"/>
                <StaticText name="note" label="Lamp" x="0" y="50" width="50" height="20"/>)");
    // As while a test runs: something answers permission alerts.
    driver().addInterruptionMonitor("Permission Alert", [](const XCUIElement&) { return false; });
    commanded({"applicationStart", "com.example.test"});
  }

  /// The exchanges that the command takes.
  std::vector<std::string> commanded(const std::vector<std::string_view>& fields) {
    const std::size_t before = rig().exchanges().size();
    UIDriver::shared().forgetLookups();
    test_.executeCommand(fields);
    const std::vector<std::string> all = rig().exchanges();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }

 private:
  testing::TemporaryFolder documents_;
  quobrakUITests test_;
};

TEST_F(Exchanges, ALookupIsOne) {
  EXPECT_THAT(commanded({"findByText", "Lamp"}), SizeIs(1));
  EXPECT_THAT(commanded({"findByTextExact", "Lam."}), SizeIs(1));
  EXPECT_THAT(commanded({"findByClass", "StaticText"}), SizeIs(1));
}

TEST_F(Exchanges, WhatALookupFoundAnswersTheQuestionsAfterIt) {
  commanded({"findByText", "Next"});
  const std::size_t before = rig().exchanges().size();
  const XCUIElement& found = Find::lastElementFound.value();
  EXPECT_TRUE(found.exists());
  EXPECT_EQ(found.label(), "Next");
  EXPECT_EQ(found.identifier(), "next");
  EXPECT_EQ(found.frame(), (Rect{{0, 0}, {50, 50}}));
  EXPECT_TRUE(found.isHittable());
  EXPECT_EQ(rig().exchanges().size(), before);
}

TEST_F(Exchanges, ATapByTextIsThree) {
  EXPECT_THAT(commanded({"clickByText", "Next"}), SizeIs(3));
  EXPECT_THAT(touched, ::testing::ElementsAre("next"));
}

TEST_F(Exchanges, AWaitThatSucceedsAtOnceIsOne) {
  EXPECT_THAT(commanded({"waitUntilText", "Lamp"}), SizeIs(1));
  EXPECT_THAT(commanded({"waitUntilAccessibilityFieldExact", "n.te"}), SizeIs(1));
  EXPECT_THAT(commanded({"waitUntilGoneText", "Nobody"}), SizeIs(1));
}

TEST_F(Exchanges, AMarkerIsItsScreenshot) {
  for (const std::vector<std::string_view>& command :
       {std::vector<std::string_view>{"measureStart", "Step"}, std::vector<std::string_view>{"measureStop"}}) {
    const std::vector<std::string> exchanges = commanded(command);
    ASSERT_THAT(exchanges, SizeIs(1)) << command[0];
    EXPECT_THAT(exchanges[0], AllOf(StartsWith("GET "), EndsWith("/screenshot"))) << command[0];
  }
}

TEST_F(Exchanges, APauseIsNone) {
  EXPECT_THAT(commanded({"pause", "60000"}), IsEmpty());
}

}  // namespace
}  // namespace quobrak::conformance
