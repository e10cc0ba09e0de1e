#include "phoneserver/Applications.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

TEST(Applications, ThatAreNotInstalledAreToldWithThoseThatAre) {
  TestPhone phone;
  EXPECT_EQ(notInstalled(phone.served(), "x"),
            "the application \"x\" is not installed; installed are com.apple.springboard, com.example.test");
}

}  // namespace
}  // namespace quobrak::phoneserver
