#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

constexpr const char* PAGE = R"(
  <Button name="ok" label="OK" x="0" y="0" width="50" height="50"/>
  <StaticText name="note" label="Lamp" x="0" y="50" width="50" height="20"/>
  <TextField name="field" placeholderValue="Name" value="Ada" x="0" y="70" width="50" height="20"/>
  <Switch name="switch" value="1" x="50" y="0" width="50" height="50"/>
  <Button name="covered" x="0" y="100" width="40" height="20"/>
  <Button name="cover" x="0" y="100" width="40" height="20"/>
  <ScrollView name="list" x="0" y="130" width="100" height="40">
    <Button name="seen" x="0" y="140" width="40" height="20"/>
    <Button name="clipped" x="0" y="180" width="40" height="20"/>
  </ScrollView>
  <Button name="thin" x="50" y="100" width="0" height="20"/>
  <Button name="outside" x="500" y="0" width="50" height="50"/>
  <Button name="disabled" enabled="false" x="50" y="70" width="50" height="20"/>)";

class Questions : public ConformanceTest {};

TEST_F(Questions, AboutAnElement) {
  start(PAGE);
  EXPECT_TRUE(named("ok").exists());
  EXPECT_EQ(named("ok").label(), "OK");
  EXPECT_EQ(named("ok").identifier(), "ok");
  EXPECT_EQ(named("ok").value(), ElementValue());
  EXPECT_EQ(named("ok").frame(), (Rect{{0, 0}, {50, 50}}));
  EXPECT_EQ(named("outside").frame(), (Rect{{500, 0}, {50, 50}}));
  EXPECT_EQ(named("note").value(), ElementValue());
  EXPECT_EQ(named("field").value(), ElementValue("Ada"));
  EXPECT_EQ(named("field").label(), "");
  EXPECT_EQ(named("switch").value(), ElementValue("1"));
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(Questions, AboutTheApplication) {
  start(PAGE);
  EXPECT_TRUE(APP.exists());
  EXPECT_TRUE(APP.isHittable());
  EXPECT_EQ(APP.label(), "Test");
  EXPECT_EQ(APP.identifier(), "");
  EXPECT_EQ(APP.frame(), (Rect{{0, 0}, {100, 200}}));
}

TEST_F(Questions, AnAbsentElementAnswersThemAll) {
  start(PAGE);
  for (const XCUIElement& absent : {named("nobody"), APP.buttons().elementBoundBy(20), XCUIElement(OTHER),
                                    OTHER.buttons().firstMatch(), APP.windows().elementBoundBy(1).buttons().element(),
                                    named("nobody").descendants(ElementType::any).firstMatch()}) {
    EXPECT_FALSE(absent.exists()) << describe(absent);
    EXPECT_FALSE(absent.isHittable()) << describe(absent);
    EXPECT_EQ(absent.label(), "") << describe(absent);
    EXPECT_EQ(absent.identifier(), "") << describe(absent);
    EXPECT_EQ(absent.value(), ElementValue()) << describe(absent);
    EXPECT_EQ(absent.frame(), Rect()) << describe(absent);
    EXPECT_EQ(absent.buttons().count(), 0) << describe(absent);
  }
}

TEST_F(Questions, AnElementIsHittableWhereATouchWouldLandOnIt) {
  start(PAGE);
  struct Row {
    const char* identifier;
    bool isHittable;
  };
  for (const auto& [identifier, isHittable] :
       {Row{"ok", true}, Row{"covered", false}, Row{"cover", true}, Row{"seen", true}, Row{"clipped", false},
        Row{"thin", false}, Row{"outside", false}, Row{"disabled", true}}) {
    EXPECT_EQ(named(identifier).isHittable(), isHittable) << identifier;
  }
}

TEST_F(Questions, NothingIsKeptOnceLookupsAreForgotten) {
  start(PAGE);
  const XCUIElement element = APP.descendants(ElementType::switchControl).firstMatch();
  ASSERT_EQ(element.value(), ElementValue("1"));
  phone().touch({75, 25}, Seconds::zero());
  driver().forgetLookups();
  EXPECT_EQ(element.value(), ElementValue("0"));
}

TEST_F(Questions, AnActionAndAWaitEndWhatALookupServes) {
  start(PAGE);
  const XCUIElement element = named("switch");
  ASSERT_EQ(element.value(), ElementValue("1"));
  element.tap();
  EXPECT_EQ(element.value(), ElementValue("0"));
  phone().touch({75, 25}, Seconds::zero());
  EXPECT_TRUE(named("ok").waitForExistence(0s));
  EXPECT_EQ(element.value(), ElementValue("1"));
}

TEST_F(Questions, AnElementIsDescribedWithAllBelowIt) {
  start(PAGE);
  const std::string all = APP.debugDescription();
  for (const char* const text : {"ok", "note", "Lamp", "field", "Ada", "switch", "clipped", "outside", "disabled"}) {
    EXPECT_THAT(all, ::testing::HasSubstr(text));
  }
  EXPECT_THAT(all, ::testing::HasSubstr("Button"));
  const std::string list = named("list").debugDescription();
  EXPECT_THAT(list, ::testing::HasSubstr("seen"));
  EXPECT_THAT(list, ::testing::HasSubstr("clipped"));
  // What follows is how it was found, among others.
  EXPECT_THAT(list.substr(0, list.find("Path to element")), ::testing::Not(::testing::HasSubstr("covered")));
  EXPECT_THAT(named("nobody").debugDescription(), ::testing::StartsWith("Query chain:"));
}

}  // namespace
}  // namespace quobrak::conformance
