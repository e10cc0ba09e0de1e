#include "phoneserver/JsonSource.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

TEST(JsonSource, TellsEveryAttributeOfEveryElement) {
  TestPhone phone(R"(<XCUIElementTypeButton name="id" label="L" x="1" y="2" width="3" height="4"/>)");
  const SearchScope scope{phone.served(), *phone.element("id").parent(), 50};
  EXPECT_EQ(JSONEncoder::encode(jsonSource(scope, {})),
            R"({"children":[{"frame":"{{1, 2}, {3, 4}}","isAccessible":"1","isEnabled":"1","isFocused":"0",)"
            R"("isVisible":"1","label":"L","name":"id","placeholderValue":null,"rawIdentifier":"id",)"
            R"("rect":{"height":4,"width":3,"x":1,"y":2},"type":"Button","value":null}],)"
            R"("frame":"{{0, 0}, {100, 200}}","isAccessible":"0","isEnabled":"1","isFocused":"0","isVisible":"1",)"
            R"("label":null,"name":null,"placeholderValue":null,"rawIdentifier":null,)"
            R"("rect":{"height":200,"width":100,"x":0,"y":0},"type":"Window","value":null})");
}

TEST(JsonSource, LeavesOutWhatIsExcludedAndWhatIsTooDeep) {
  TestPhone phone;
  EXPECT_EQ(JSONEncoder::encode(jsonSource(
                phone.scope(0), {"visible", "accessible", "enabled", "isFocused", "frame", "rect", "value", "label"})),
            R"({"name":"Test","placeholderValue":null,"rawIdentifier":null,"type":"Application"})");
}

}  // namespace
}  // namespace quobrak::phoneserver
