#include "phoneserver/Targets.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::TestPhone;

TEST(Targets, AreElementsThatWereFound) {
  TestPhone phone(R"(<XCUIElementTypeButton name="a"/>)");
  const Call call{.parameters = {{"element", phone.id("a")}}};
  EXPECT_EQ(&targetElement(phone.served(), call), &phone.element("a"));
}

TEST(Targets, ThatAreGoneOrWereNeverFoundAreStale) {
  TestPhone phone(R"(<XCUIElementTypeButton name="a"/>)");
  const std::string id = phone.id("a");
  phone.phone().launch("com.example.test");
  EXPECT_EQ(errorOf([&] { requiredElement(phone.served(), id); }),
            "stale element reference: the element " + id +
                " is no longer on the phone, or was never found in this session; find it again");
  EXPECT_EQ(errorOf([&] { requiredElement(phone.served(), "x"); }),
            "stale element reference: the element x is no longer on the phone, or was never found in this session; "
            "find it again");
}

TEST(Targets, ThatAreBehindAnotherApplicationStay) {
  TestPhone phone(R"(<XCUIElementTypeButton name="a"/>)");
  const std::string id = phone.id("a");
  phone.phone().pressHome();
  EXPECT_EQ(requiredElement(phone.served(), id).identifier, "a");
}

TEST(Targets, AScopeGoesAsDeepAsTheSessionLetsIt) {
  TestPhone phone;
  const auto deepest = [&phone] { return scopeOf(phone.served(), phone.served().activeScreen()).deepest; };
  EXPECT_EQ(deepest(), 50);
  phone.served().session()->settings.update({{"snapshotMaxDepth", 3}});
  EXPECT_EQ(deepest(), 3);
  phone.served().session()->settings.update({{"snapshotMaxDepth", 1000}});
  EXPECT_EQ(deepest(), 62);
  phone.served().session()->settings.update({{"snapshotMaxDepth", -1}});
  EXPECT_EQ(deepest(), 0);
  phone.served().session().reset();
  EXPECT_EQ(deepest(), 50);
}

}  // namespace
}  // namespace quobrak::phoneserver
