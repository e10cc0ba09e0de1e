#include <fstream>

#include "drivers/simulator/BuiltinFiles.h"
#include "tests/conformance/ConformanceTest.h"
#include "tests/conformance/ScriptRun.h"
#include "tests/quobrakUITests/Environment.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Whole scripts on the built-in phone.
class Scripts : public ConformanceTest {
 protected:
  Scripts() {
    switchOn(simulator::BuiltinPhoneFiles());
    testing::setVariable("PRODUCT", "Lamp");
  }

  ScriptRun scripts;
};

std::string exampleScript() {
  std::ifstream file(QUOBRAK_SOURCE_FOLDER "/examples/shop/order.txt");
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Scripts, TheExampleRunsFromItsFirstScreenToAnOrder) {
  scripts.add("order.txt", exampleScript());
  scripts.run();
  EXPECT_THAT(scripts.statuses(), ElementsAre("success"));
  EXPECT_THAT(scripts.steps(), ElementsAre("Order", "ShowProduct", "StartScreen"));
  EXPECT_THAT(touched, ElementsAre("Allow Once", "Welcome", "browse", "product.lamp", "product.add", "basket.order"));
  EXPECT_THAT(scripts.picturesOf("order"),
              ElementsAre("001_StartScreen_start.png", "002_StartScreen_stop.png", "003_ShowProduct_start.png",
                          "004_ShowProduct_stop.png", "005_Order_start.png", "006_Order_stop.png", "007_success.png"));
  EXPECT_THAT(scripts.dumpOf("order"), ::testing::HasSubstr("Thank you"));
}

TEST_F(Scripts, OneThatFailsSaysWhereAndTheNextOneRuns) {
  scripts.add("fails.txt",
              "applicationStart,com.example.shop\npause,1000\nmeasureStart,Browse\nclickByText,Browse products\n"
              "clickByText,Spaceship\nmeasureStop");
  scripts.add("next.txt", "applicationStart,com.example.shop\nclickByText,Browse products\nclickByText,Back");
  scripts.run();
  EXPECT_THAT(
      scripts.statuses(),
      ElementsAre(
          "failed: Error on line clickByText,Spaceship (line: 5). Cause: The expected text Spaceship was not found",
          "success"));
  EXPECT_THAT(scripts.steps(), IsEmpty());
  EXPECT_THAT(touched, ElementsAre("Allow Once", "browse", "browse", "products.back"));
  EXPECT_THAT(scripts.dumpOf("fails"), ::testing::HasSubstr("product.lamp"));
}

TEST_F(Scripts, AnApplicationThatIsNotInstalledFailsItsScriptAlone) {
  scripts.add("missing.txt", "applicationStart,com.example.missing");
  scripts.add("next.txt", "applicationStart,com.example.shop\nclickByText,Browse products");
  scripts.run();
  EXPECT_THAT(scripts.statuses(), ElementsAre(::testing::StartsWith("failed: "), "success"));
}

}  // namespace
}  // namespace quobrak::conformance
