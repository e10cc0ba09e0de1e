#include "tests/conformance/PhoneWithValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/JSON.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::conformance {
namespace {

using ::quobrak::testing::MemoryPhoneFiles;
using ::testing::ThrowsMessage;

const std::string DESCRIPTION = R"({"name": "A", "scale": 3, "values": {"a.one": "1", "a.two": "2"}})";

TEST(PhoneWithValues, BeginsWithTheOtherTextsAndIsElseTheSame) {
  const MemoryPhoneFiles files({{"phone.json", DESCRIPTION}});
  const PhoneWithValues other(files, {{"a.two", "zwei \"2\""}});
  EXPECT_EQ(other.read("phone.json"), R"({"name":"A","scale":3,"values":{"a.one":"1","a.two":"zwei \"2\""}})");
}

TEST(PhoneWithValues, WithoutOtherTextsTheDescriptionIsAsItStands) {
  const MemoryPhoneFiles files({{"phone.json", DESCRIPTION}});
  EXPECT_EQ(PhoneWithValues(files, {}).read("phone.json"), DESCRIPTION);
}

TEST(PhoneWithValues, HasTheOtherFilesAsTheyAre) {
  const MemoryPhoneFiles files({{"phone.json", DESCRIPTION}, {"app/app.json", DESCRIPTION}});
  const PhoneWithValues other(files, {{"a.one", "eins"}});
  EXPECT_EQ(other.read("app/app.json"), DESCRIPTION);
  EXPECT_EQ(other.read("app/none.xml"), std::nullopt);
  EXPECT_EQ(other.nameOf("app/app.json"), "app/app.json");
}

TEST(PhoneWithValues, AValueThatThePhoneDoesNotKnowIsRefused) {
  struct Row {
    std::string description;
    std::string message;
  };
  for (const auto& [description, message] :
       {Row{DESCRIPTION, R"(the phone has no value "a.tow"; it has a.one, a.two)"},
        Row{R"({"name": "A"})", R"(the phone has no value "a.tow"; it has none)"}}) {
    const MemoryPhoneFiles files({{"phone.json", description}});
    const PhoneWithValues other(files, {{"a.tow", "2"}});
    EXPECT_THAT([&other] { other.read("phone.json"); }, ThrowsMessage<UnknownValueError>(message)) << description;
  }
}

TEST(PhoneWithValues, APhoneWithoutDescriptionStaysOne) {
  const MemoryPhoneFiles files({});
  EXPECT_EQ(PhoneWithValues(files, {{"a.one", "1"}}).read("phone.json"), std::nullopt);
}

}  // namespace
}  // namespace quobrak::conformance
