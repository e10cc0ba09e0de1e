// Requests to a served phone, one after the other. Each begins with a line of "> ", the method, a blank and the path;
// behind it stands the body. $S in it is the session that is open, $E the element that was found last.

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "fuzz/support/ScreenPromises.h"
#include "phoneserver/RequestHandler.h"
#include "platform/foundation/JSON.h"
#include "platform/foundation/VirtualClock.h"
#include "quobrakUITests/Replacing.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::fuzz {

namespace {

using phoneserver::Reply;
using phoneserver::Request;

constexpr const char* PAGE = R"(
    <XCUIElementTypeStaticText label="Order" x="0" y="0" width="100" height="20"/>
    <XCUIElementTypeTable x="0" y="20" width="100" height="60">
      <XCUIElementTypeCell label="Lamp" name="lamp" x="0" y="20" width="100" height="40"/>
      <XCUIElementTypeCell label="Chair" x="0" y="60" width="100" height="40"/>
      <XCUIElementTypeCell label="Table" enabled="false" x="0" y="100" width="100" height="40"/>
    </XCUIElementTypeTable>
    <XCUIElementTypeTextField placeholderValue="Name" x="0" y="80" width="100" height="20"/>
    <XCUIElementTypeSecureTextField label="Code" x="0" y="100" width="100" height="20"/>
    <XCUIElementTypeSwitch label="Gift" value="0" x="0" y="120" width="100" height="20"/>
    <XCUIElementTypeButton label="Ask" selected="true" x="0" y="140" width="50" height="20"/>
    <XCUIElementTypeButton label="Where" x="50" y="140" width="50" height="20"/>)";

constexpr const char* RULES = R"([
    {"on": "tap", "element": "label == \"Ask\"",
     "do": [{"alert": {"title": "Sure?", "message": "Really?", "buttons": ["No", "Yes"]}, "answer": "sure"}]},
    {"on": "tap", "element": "label == \"Where\"", "do": [{"askPermission": "location"}]},
    {"on": "tap", "element": "label == \"Lamp\"", "do": [{"open": "com.apple.springboard"}]}])";

simulator::PhoneDescription phone() {
  return simulator::loadPhone(testing::smallPhone(PAGE, RULES));
}

const JSONValue* memberOf(const JSONValue& value, std::string_view key) {
  const auto* const object = std::get_if<JSONValue::Object>(&value.variant());
  const auto found = object == nullptr ? JSONValue::Object::const_iterator() : object->find(key);
  return object == nullptr || found == object->end() ? nullptr : &found->second;
}

std::optional<std::string> textIn(const JSONValue* value, std::string_view key) {
  const JSONValue* const member = value == nullptr ? nullptr : memberOf(*value, key);
  const auto* const text = member == nullptr ? nullptr : std::get_if<std::string>(&member->variant());
  return text == nullptr ? std::nullopt : std::optional(*text);
}

/// Whether an error is a mistake of the program, which nobody wrote to be read by others.
bool isOfTheLibrary(std::string_view message) {
  constexpr std::array<std::string_view, 7> BEGINNINGS{
      "std::", "bad ", "map::", "vector::", "array::", "basic_string", "A text to be written as JSON"};
  return std::any_of(BEGINNINGS.begin(), BEGINNINGS.end(),
                     [message](std::string_view beginning) { return message.starts_with(beginning); });
}

/// A client that remembers what it was told.
class Client {
 public:
  Request request(Input& input) {
    const std::string_view head = input.line();
    const std::string_view method = head.substr(0, head.find(' '));
    Request request{.method = std::string(method),
                    .path = filled(head.substr(std::min(method.size() + 1, head.size())))};
    if (const auto mark = request.path.find('?'); mark != std::string::npos) {
      const auto sign = request.path.find('=', mark);
      request.query.emplace(request.path.substr(mark + 1, sign - mark - 1),
                            sign == std::string::npos ? "" : request.path.substr(sign + 1));
      request.path.resize(mark);
    }
    request.body = filled(input.rest());
    return request;
  }

  void read(const Reply& reply) {
    const JSONValue body = JSONDecoder::decode(reply.body);
    const JSONValue* const value = memberOf(body, "value");
    require(value != nullptr && memberOf(body, "sessionId") != nullptr, "a reply has a value and names the session");
    session_ = textIn(&body, "sessionId").value_or("none");
    constexpr int OK = 200;
    if (reply.status == OK) {
      noteElement(*value);
      return;
    }
    const std::optional<std::string> message = textIn(value, "message");
    require(reply.status >= 400 && reply.status <= 500 && textIn(value, "error"), "a failure has a code");
    require(message && !message->empty() && !isOfTheLibrary(*message), "a failure says what is wrong");
  }

 private:
  std::string filled(std::string_view text) const {
    return replacingOccurrences(replacingOccurrences(text, "$S", session_), "$E", element_);
  }

  void noteElement(const JSONValue& value) {
    const auto* const list = std::get_if<JSONValue::Array>(&value.variant());
    const JSONValue* const found = list == nullptr ? &value : (list->empty() ? nullptr : &list->back());
    element_ = textIn(found, "ELEMENT").value_or(element_);
  }

  std::string session_ = "none";
  std::string element_ = "none";
};

/// The parts of the input between the marks that begin requests.
std::vector<std::string_view> partsOf(std::string_view input) {
  constexpr std::string_view MARK = "> ";
  constexpr std::string_view NEXT = "\n> ";
  constexpr std::size_t MOST = 20;
  input.remove_prefix(input.starts_with(MARK) ? MARK.size() : 0);
  std::vector<std::string_view> parts;
  while (!input.empty() && parts.size() < MOST) {
    const std::string_view part = input.substr(0, input.find(NEXT));
    parts.push_back(part);
    input.remove_prefix(std::min(part.size() + NEXT.size(), input.size()));
  }
  return parts;
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  VirtualClock clock{std::chrono::milliseconds(1'700'000'000'000)};
  phoneserver::ServedPhone served(phone(), clock);
  Client client;
  for (const std::string_view part : partsOf(Input(data, size).rest())) {
    Input input(part);
    const std::uint64_t revision = served.phone().revision();
    client.read(phoneserver::answer(served, client.request(input)));
    if (served.phone().revision() != revision) {
      requirePhonePromises(served.phone());
    }
  }
  return 0;
}
