// An XPath expression in the first line, and behind it a page source: the screen is served, and told as XML, as JSON
// and in words; the expression looks for elements of it.

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "fuzz/support/ScreenPromises.h"
#include "phoneserver/JsonSource.h"
#include "phoneserver/PageSourceWriter.h"
#include "phoneserver/ServedPhone.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::fuzz {

namespace {

using phoneserver::FoundElements;
using simulator::Element;

constexpr const char* APPLICATION = "com.example.test";
constexpr int DEEPEST = 1000;

/// A phone that shows a page.
class Screen {
 public:
  /// Throws `simulator::PhoneDescriptionError`.
  explicit Screen(const std::string& page) : served_(phoneWith(page), clock_) { served_.phone().launch(APPLICATION); }

  phoneserver::SearchScope scope() const { return {served_, served_.screenOf(APPLICATION), DEEPEST}; }
  std::string source() const { return phoneserver::pageSource(scope(), {}); }

 private:
  static simulator::PhoneDescription phoneWith(const std::string& page) {
    testing::MemoryPhoneFiles files = testing::smallPhone("");
    files["test/start.xml"] = page;
    return simulator::loadPhone(files);
  }

  VirtualClock clock_{std::chrono::milliseconds(1'700'000'000'000)};
  phoneserver::ServedPhone served_;
};

FoundElements allBelow(const Element& root) {
  FoundElements elements{&root};
  forEachDescendant(root, [&elements](const Element& element) { elements.push_back(&element); });
  return elements;
}

void tryExpression(const phoneserver::SearchScope& scope, const std::string& expression) {
  const FoundElements all = allBelow(scope.root);
  require(phoneserver::elementsOfXPath(scope, "//*") == all,
          "an expression for all elements finds them, in their order");
  try {
    const FoundElements found = phoneserver::elementsOfXPath(scope, expression);
    auto from = all.begin();
    for (const Element* const element : found) {
      from = std::find(from, all.end(), element);
      require(from != all.end(), "an expression finds elements in the order of the document");
      ++from;
    }
  } catch (const phoneserver::WireError& error) {
    require(error.code() == phoneserver::WireErrorCode::invalidSelector && isUTF8(error.what()),
            "what is wrong with an expression is told as that");
  }
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  Input input(data, size);
  const std::string expression = input.textLine();
  std::unique_ptr<Screen> screen;
  try {
    screen = std::make_unique<Screen>(std::string(input.rest()));
  } catch (const simulator::PhoneDescriptionError&) {
    return 0;
  }
  const std::string source = Screen(screen->source()).source();
  const bool isReadBack = Screen(source).source() == source;
  require(isReadBack || !isOfThisWorld(screen->scope().root), "a screen in whole points is read back from its source");
  JSONDecoder::decode(JSONEncoder::encode(phoneserver::jsonSource(screen->scope(), {})));
  tryExpression(screen->scope(), expression);
  return 0;
}
