#include "platform/uiautomation/QueryChain.h"

#include <gtest/gtest.h>

#include "platform/uiautomation/XCUIApplication.h"

namespace quobrak {
namespace {

const XCUIApplication APP("com.example.test");

TEST(QueryChain, OfAnApplicationIsOneStep) {
  EXPECT_EQ(queryChain(APP), "Query chain:\n →Find: Application 'com.example.test'\n");
}

TEST(QueryChain, NamesEachStepOneDeeperThanTheOneBefore) {
  EXPECT_EQ(queryChain(APP.windows().elementBoundBy(1).buttons().matching(NSPredicate("enabled == TRUE"))["ok"]),
            "Query chain:\n"
            " →Find: Application 'com.example.test'\n"
            "  ↪︎Find: Descendants matching type Window\n"
            "    ↪︎Find: Element at index 1\n"
            "      ↪︎Find: Descendants matching type Button\n"
            "        ↪︎Find: Elements matching predicate 'enabled == TRUE'\n"
            "          ↪︎Find: Elements matching identifier 'ok'\n"
            "            ↪︎Find: Element at index 0\n");
}

TEST(QueryChain, BeginsWithWhatADriverHandedOver) {
  class Handle final : public ElementHandle {
   public:
    std::string description() const override { return "the alert \"Allow?\""; }
  };
  EXPECT_EQ(queryChain(XCUIElement(QueryRoot(std::make_shared<const Handle>()))),
            "Query chain:\n →Find: the alert \"Allow?\"\n");
}

}  // namespace
}  // namespace quobrak
