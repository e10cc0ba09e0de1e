// A query, in the file "query" of the input (see FilesInInput.h), and in the file "page" the screen that is asked: the
// simulated phone finds what is found by asking each element, and so does a client of WebDriver.

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/Queries.h"
#include "drivers/webdriver/ClassChain.h"
#include "drivers/webdriver/ElementAttributes.h"
#include "drivers/webdriver/FoundElement.h"
#include "drivers/webdriver/WirePredicate.h"
#include "fuzz/support/FilesInInput.h"
#include "fuzz/support/Require.h"
#include "phoneserver/ClassChain.h"
#include "phoneserver/ClassChainEvaluator.h"
#include "phoneserver/ElementReplies.h"
#include "phoneserver/ServedPhone.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::fuzz {

namespace {

using simulator::Element;
using Elements = std::vector<const Element*>;

constexpr const char* APPLICATION = "com.example.test";

/// "type Button", "where label == \"Go\"", "named Go" or "pick 3" on a line.
std::optional<QueryStep> stepIn(const std::string& line) {
  const std::string verb = line.substr(0, line.find(' '));
  const std::string object = line.substr(std::min(verb.size() + 1, line.size()));
  if (verb == "type") {
    return DescendantsStep{elementTypeNamed(object).value_or(ElementType::any)};
  }
  if (verb == "named") {
    return MatchingIdentifierStep{object};
  }
  if (verb == "pick") {
    return ElementPick(AtIndex{object.size()});
  }
  try {
    return MatchingPredicateStep{NSPredicate(object)};
  } catch (const PredicateFormatError&) {
    return std::nullopt;
  }
}

XCUIElementQuery queryIn(const std::string& text) {
  XCUIElementQuery query{ApplicationRoot{APPLICATION}};
  Input lines(text);
  while (!lines.isAtEnd()) {
    if (const std::optional<QueryStep> step = stepIn(std::string(lines.line()))) {
      query = query.appending(*step);
    }
  }
  return query;
}

/// What elements say of themselves to whoever asks them one by one.
struct Words {
  std::function<bool(const PredicateEvaluator& predicate, const Element& element)> holds;
  std::function<bool(const std::string& name, const Element& element)> isNamed;
};

Words wordsOfThePhone(const std::function<bool(const Element&)>& isHittable) {
  return {.holds =
              [isHittable](const PredicateEvaluator& predicate, const Element& element) {
                return predicate.evaluate(simulator::ElementAttributes(&element, isHittable));
              },
          .isNamed = [](const std::string& name,
                        const Element& element) { return element.identifier == name || element.label == name; }};
}

/// As a client sees them; what differs there is what servers do not tell.
Words wordsOnTheWire(phoneserver::ServedPhone& served) {
  const auto received = [&served](const Element& element) {
    return std::optional(
        webdriver::foundElements(JSONValue::Array{phoneserver::elementReply(served, element)}).front());
  };
  return {.holds =
              [received](const PredicateEvaluator& predicate, const Element& element) {
                const std::optional<webdriver::FoundElement> found = received(element);
                return predicate.evaluate(webdriver::ElementAttributes(found, [&] { return found->isHittable; }));
              },
          .isNamed =
              [received](const std::string& name, const Element& element) {
                const std::optional<webdriver::FoundElement> found = received(element);
                return found->identifier == name || found->label == name;
              }};
}

/// Carries a query out, step by step and element by element.
class OneByOne {
 public:
  OneByOne(const Element& root, const Words& words) : found_{&root}, words_(words) {}

  const Elements& found() const { return found_; }

  void operator()(const DescendantsStep& step) {
    Elements below;
    for (const Element* const element : found_) {
      forEachDescendant(*element, [&](const Element& descendant) {
        const bool isWanted = step.type == ElementType::any || descendant.type == step.type;
        if (isWanted && std::find(below.begin(), below.end(), &descendant) == below.end()) {
          below.push_back(&descendant);
        }
      });
    }
    found_ = std::move(below);
  }
  void operator()(const MatchingPredicateStep& step) {
    simulator::requireKnownAttributes(step.predicate);
    const PredicateEvaluator predicate(step.predicate);
    std::erase_if(found_, [&](const Element* element) { return !words_.holds(predicate, *element); });
  }
  void operator()(const MatchingIdentifierStep& step) {
    std::erase_if(found_, [&](const Element* element) { return !words_.isNamed(step.identifier, *element); });
  }
  void operator()(const ElementPick& pick) {
    const std::size_t index = webdriver::indexOf(pick);
    found_ = index < found_.size() ? Elements{found_[index]} : Elements();
  }

 private:
  Elements found_;
  const Words& words_;
};

/// None where the query cannot be asked.
template <class Ask>
std::optional<Elements> unlessRefused(const Ask& ask) {
  try {
    return ask();
  } catch (const RegularExpressionError&) {
  } catch (const simulator::UnknownAttributeError&) {
  } catch (const webdriver::UnaskableQuery& error) {
    require(isUTF8(error.what()), "an error can be read");
  }
  return std::nullopt;
}

std::optional<Elements> foundOneByOne(const XCUIElementQuery& query, const Element& root, const Words& words) {
  return unlessRefused([&] {
    OneByOne search(root, words);
    for (const QueryStep& step : query.steps()) {
      std::visit(search, step);
    }
    return search.found();
  });
}

void tryQuery(const XCUIElementQuery& query, phoneserver::ServedPhone& served) {
  const Element& root = served.screenOf(APPLICATION);
  const auto isHittable = [&served](const Element& element) { return served.isHittable(element); };
  const std::optional<Elements> found =
      unlessRefused([&] { return simulator::QueryEvaluator(isHittable).elements(query, root); });
  const std::optional<Elements> foundSlowly = foundOneByOne(query, root, wordsOfThePhone(isHittable));
  require(!foundSlowly || foundSlowly == found, "the phone finds what is found one by one");

  constexpr int DEEPEST = 1000;
  const std::optional<Elements> received = unlessRefused([&] {
    return elementsOfChain({served, root, DEEPEST}, phoneserver::readClassChain(webdriver::classChain(query)));
  });
  const std::optional<Elements> receivedSlowly = foundOneByOne(query, root, wordsOnTheWire(served));
  require(!received || !receivedSlowly || received == receivedSlowly,
          "a client finds over the wire what it would find one by one");
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  const std::string text = Input(data, size).textRest();
  std::map<std::string, std::string> parts = filesIn(Input(text));
  testing::MemoryPhoneFiles files = testing::smallPhone("");
  files["test/start.xml"] = parts["page"];
  VirtualClock clock{std::chrono::milliseconds(1'700'000'000'000)};
  try {
    phoneserver::ServedPhone served(simulator::loadPhone(files), clock);
    served.phone().launch(APPLICATION);
    // What clients of ours ask for.
    served.session().emplace().settings.update({{"shouldUseCompactResponses", false},
                                                {"elementResponseAttributes",
                                                 "type,label,rect,enabled,selected,attribute/name,attribute/value,"
                                                 "attribute/placeholderValue,attribute/hittable"}});
    tryQuery(queryIn(parts["query"]), served);
  } catch (const simulator::PhoneDescriptionError&) {
    // No page, no screen.
  }
  return 0;
}
