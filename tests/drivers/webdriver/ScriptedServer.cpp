#include "tests/drivers/webdriver/ScriptedServer.h"

#include <utility>

#include "platform/foundation/JSON.h"

namespace quobrak::webdriver {

namespace {

std::string normalized(std::string_view body) {
  return JSONEncoder::encode(JSONDecoder::decode(body));
}

/// A request that a test wrote, in the form in which requests are compared.
std::string normalizedRequest(std::string_view request) {
  const std::size_t path = request.find(' ') + 1;
  const std::size_t body = request.find(' ', path);
  return body == std::string_view::npos
             ? std::string(request)
             : std::string(request.substr(0, body + 1)) + normalized(request.substr(body + 1));
}

std::string inWords(const HttpRequest& request) {
  return request.method + ' ' + request.path + (request.body.empty() ? "" : ' ' + normalized(request.body));
}

HttpReply replyWith(std::string_view value) {
  constexpr long OK = 200;
  return {.status = OK, .body = R"({"value":)" + std::string(value) + "}"};
}

}  // namespace

class ScriptedServer::Line final : public Transport {
 public:
  explicit Line(ScriptedServer& server) : server_(server) {}
  HttpReply exchange(const HttpRequest& request) override { return server_.answer(request); }

 private:
  ScriptedServer& server_;
};

ScriptedServer::~ScriptedServer() {
  for (const Exchange& exchange : expected_) {
    ADD_FAILURE() << "never asked: " << exchange.request;
  }
}

void ScriptedServer::expect(std::string_view request, std::string_view value) {
  expectReply(request, replyWith(value));
}

void ScriptedServer::expectError(std::string_view request, std::string_view code, std::string_view message) {
  constexpr long NOT_FOUND = 404;
  expectReply(request,
              {.status = NOT_FOUND,
               .body = R"({"value":{"error":)" + inQuotes(code) + R"(,"message":)" + inQuotes(message) + "}}"});
}

void ScriptedServer::expectFault(std::string_view request, Fault fault, const std::string& reason) {
  expected_.push_back({normalizedRequest(request), CommandError(fault, reason)});
}

void ScriptedServer::expectReply(std::string_view request, HttpReply reply) {
  expected_.push_back({normalizedRequest(request), std::move(reply)});
}

void ScriptedServer::expectOpening(const std::string& session, const std::string& pinned) {
  expect(R"(POST /session {"capabilities":{"alwaysMatch":{},"firstMatch":[{}]}})",
         R"({"sessionId":")" + session + R"(","capabilities":{}})");
  const std::string pin = pinned.empty() ? "" : R"("defaultActiveApplication":")" + pinned + R"(",)";
  expect("POST /session/" + session + R"(/appium/settings {"settings":{)" + pin +
         R"("shouldUseCompactResponses":false,"snapshotMaxDepth":62,"screenshotQuality":0,"elementResponseAttributes":)"
         R"("type,label,rect,enabled,selected,attribute/name,attribute/value,attribute/placeholderValue,)"
         R"(attribute/hittable"}})");
}

std::unique_ptr<Transport> ScriptedServer::transport() {
  return std::make_unique<Line>(*this);
}

HttpReply ScriptedServer::answer(const HttpRequest& request) {
  const std::string asked = inWords(request);
  requests_.push_back(asked);
  timeLimits_.push_back(request.timeLimit);
  if (expected_.empty() && request.method == "DELETE") {
    return replyWith("null");
  }
  const std::string wanted = expected_.empty() ? "nothing" : expected_.front().request;
  if (asked != wanted) {
    ADD_FAILURE() << "asked:    " << asked << "\nexpected: " << wanted;
    throw CommandError(Fault::nonsense, "the script has another request here");
  }
  const Exchange exchange = std::move(expected_.front());
  expected_.pop_front();
  if (const auto* const failure = std::get_if<CommandError>(&exchange.answer)) {
    throw *failure;
  }
  return std::get<HttpReply>(exchange.answer);
}

std::string inQuotes(std::string_view text) {
  return JSONEncoder::encode(text);
}

std::string chainRequest(Dialect dialect, std::string_view place, std::string_view chain) {
  const std::string strategy = dialect == Dialect::appium ? "-ios class chain" : "class chain";
  return "POST " + std::string(place) + R"(/elements {"using":")" + strategy + R"(","value":)" + inQuotes(chain) + "}";
}

std::string pinRequest(std::string_view session, std::string_view bundleIdentifier) {
  return "POST /session/" + std::string(session) + R"(/appium/settings {"settings":{"defaultActiveApplication":)" +
         inQuotes(bundleIdentifier) + "}}";
}

std::string scriptRequest(std::string_view session, std::string_view script, std::string_view arguments) {
  return "POST /session/" + std::string(session) + R"(/execute/sync {"script":)" + inQuotes(script) + R"(,"args":[)" +
         std::string(arguments) + "]}";
}

std::string found(const std::vector<WireElement>& elements) {
  std::string list;
  for (const WireElement& element : elements) {
    list += (list.empty() ? "" : ",") + std::string(R"({"element-6066-11e4-a52e-4f735466cecf":)") +
            inQuotes(element.id) + R"(,"type":)" + inQuotes("XCUIElementType" + element.type) + R"(,"label":)" +
            inQuotes(element.label) + R"(,"rect":{"x":10,"y":20,"width":30,"height":40},"enabled":true,)" +
            R"("selected":false,"attribute/value":null,"attribute/placeholderValue":null,"attribute/name":)" +
            inQuotes(element.name) + R"(,"attribute/hittable":)" + element.isHittable + "}";
  }
  return "[" + list + "]";
}

}  // namespace quobrak::webdriver
