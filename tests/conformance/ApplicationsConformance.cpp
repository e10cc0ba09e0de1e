#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

using ::testing::IsEmpty;

constexpr const char* PAGE = R"(<Switch name="switch" value="0" x="0" y="0" width="50" height="50"/>)";

class Applications : public ConformanceTest {};

TEST_F(Applications, ALaunchReturnsWhenTheFirstScreenCanBeUsed) {
  switchOn(PAGE);
  APP.launch();
  EXPECT_EQ(elapsed(), 500ms);
  EXPECT_TRUE(named("switch").isHittable());
  EXPECT_TRUE(phone().isInFront("com.example.test"));
}

TEST_F(Applications, ALaunchRestartsAnApplicationThatRuns) {
  start(PAGE);
  named("switch").tap();
  ASSERT_EQ(named("switch").value(), ElementValue("1"));
  APP.launch();
  EXPECT_EQ(elapsed(), 500ms);
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
}

TEST_F(Applications, ALaunchOfWhatIsNotInstalledRaises) {
  switchOn(PAGE);
  expectDriverError([] { OTHER.launch(); }, "launch", R"(the application "com.example.other")");
}

TEST_F(Applications, TerminateEndsTheApplication) {
  start(PAGE);
  APP.terminate();
  EXPECT_FALSE(APP.exists());
  EXPECT_FALSE(named("switch").exists());
  EXPECT_TRUE(phone().isInFront("com.apple.springboard"));
}

TEST_F(Applications, TerminateDoesNothingForWhatDoesNotRunOrIsNotInstalled) {
  switchOn(PAGE);
  APP.terminate();
  OTHER.terminate();
  EXPECT_TRUE(HOME.exists());
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(Applications, AnApplicationThatDoesNotRunHasNoElements) {
  switchOn(PAGE);
  for (const XCUIApplication& absent : {APP, OTHER}) {
    EXPECT_FALSE(absent.exists());
    EXPECT_FALSE(absent.isHittable());
    EXPECT_EQ(absent.label(), "");
    EXPECT_EQ(absent.descendants(ElementType::any).count(), 0);
    EXPECT_FALSE(absent.windows().firstMatch().exists());
    EXPECT_EQ(absent.windows().firstMatch().frame(), Rect());
  }
}

TEST_F(Applications, OneThatWasEndedIsDescribedByItsQueryChainAlone) {
  switchOn(PAGE);
  EXPECT_EQ(APP.buttons().firstMatch().debugDescription(),
            "Query chain:\n →Find: Application 'com.example.test'\n  ↪︎Find: Descendants matching type Button\n"
            "    ↪︎Find: Element at index 0\n");
}

TEST_F(Applications, TheHomeApplicationIsOneLikeOthers) {
  start(PAGE);
  EXPECT_TRUE(HOME.exists());
  XCUIApplication(HOME).launch();
  EXPECT_TRUE(phone().isInFront("com.apple.springboard"));
  EXPECT_TRUE(HOME.windows().firstMatch().isHittable());
  EXPECT_THAT(touched, IsEmpty());
}

}  // namespace
}  // namespace quobrak::conformance
