#include "host/check/LookAlikes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAreArray;
using testing::variablesOf;

std::vector<std::string> foundIn(std::string_view text) {
  const Variables variables = variablesOf({{"PRODUCT", "Lamp"}});
  std::vector<std::string> found;
  for (const LookAlike& one : lookAlikesIn(text, variables)) {
    EXPECT_EQ(text.substr(one.place.begin, one.place.end - one.place.begin), one.text);
    found.push_back(one.meant.empty() ? one.text : one.text + " -> " + one.meant);
  }
  return found;
}

TEST(LookAlikes, AreWhatWasMeantAsAReference) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> table{
      {"a,${a-b}", {"${a-b}"}},
      {"${ PRODUCT }", {"${ PRODUCT } -> ${PRODUCT}"}},
      {"${PRODUCT", {"${PRODUCT -> ${PRODUCT}"}},
      {"${PRODUCT,1", {"${PRODUCT -> ${PRODUCT}"}},
      {"$PRODUCT and ${x.y}", {"$PRODUCT -> ${PRODUCT}", "${x.y}"}},
  };
  for (const auto& [text, found] : table) {
    EXPECT_THAT(foundIn(text), ElementsAreArray(found)) << text;
  }
}

TEST(LookAlikes, AreNotWhatMayBeMeantSo) {
  for (const char* text : {"${PRODUCT}", "${größe}", "$24.00", "$OTHER", "${}", "${1}", "${", "$", R"(\$PRODUCT)",
                           R"(\${a b)", "${a,b}", "${2-3}", "#{a b}"}) {
    EXPECT_THAT(foundIn(text), ::testing::IsEmpty()) << text;
  }
}

TEST(LookAlikes, AreNoLongerThanANameCouldBe) {
  const std::string longest = "${a-" + std::string(62, 'b') + "}";
  EXPECT_THAT(foundIn(longest + ",1}"), ElementsAreArray({longest}));
  EXPECT_THAT(foundIn("${a-" + std::string(63, 'b') + "}"), ::testing::IsEmpty());
}

}  // namespace
}  // namespace quobrak::host
