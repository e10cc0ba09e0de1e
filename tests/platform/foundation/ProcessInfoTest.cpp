#include "platform/foundation/ProcessInfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace quobrak {
namespace {

constexpr const char* NAME = "QUOBRAK_PROCESS_INFO_TEST";

class ProcessInfoTest : public testing::Test {
 protected:
  ProcessInfoTest() { unsetenv(NAME); }
  ~ProcessInfoTest() override { unsetenv(NAME); }

  static void set(const char* value) { ASSERT_EQ(setenv(NAME, value, /*overwrite=*/1), 0); }
};

TEST_F(ProcessInfoTest, VariableThatIsNotSetHasNoValue) {
  EXPECT_EQ(ProcessInfo::environmentVariable(NAME), std::nullopt);
}

TEST_F(ProcessInfoTest, VariableThatIsSetToNothingIsTheEmptyText) {
  set("");
  EXPECT_EQ(ProcessInfo::environmentVariable(NAME), "");
}

TEST_F(ProcessInfoTest, VariableIsReadAfreshOnEveryCall) {
  set("one");
  EXPECT_EQ(ProcessInfo::environmentVariable(NAME), "one");
  set("größe 日本語");
  EXPECT_EQ(ProcessInfo::environmentVariable(NAME), "größe 日本語");
  unsetenv(NAME);
  EXPECT_EQ(ProcessInfo::environmentVariable(NAME), std::nullopt);
}

TEST_F(ProcessInfoTest, BytesThatAreNotUTF8BecomeReplacementCharacters) {
  set("a\xFFz\xC3");
  EXPECT_EQ(ProcessInfo::environmentVariable(NAME), "a\uFFFDz\uFFFD");
}

}  // namespace
}  // namespace quobrak
