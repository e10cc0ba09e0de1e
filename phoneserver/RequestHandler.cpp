#include "phoneserver/RequestHandler.h"

#include <exception>
#include <optional>
#include <utility>
#include <variant>

#include "phoneserver/RouteTable.h"

namespace quobrak::phoneserver {

namespace {

std::optional<std::string> sessionOf(const ServedPhone& served) {
  return served.session() ? std::optional(served.session()->id) : std::nullopt;
}

Arguments argumentsIn(const std::string& body) {
  if (body.empty()) {
    return {};
  }
  try {
    JSONValue decoded = JSONDecoder::decode(body);
    if (const auto* const members = std::get_if<JSONValue::Object>(&decoded.variant())) {
      return Arguments(*members);
    }
  } catch (const DecodingError& error) {
    throw WireError(WireErrorCode::invalidArgument, std::string("the body is no JSON: ") + error.what());
  }
  throw WireError(WireErrorCode::invalidArgument, "the body must be a JSON object");
}

JSONValue carryOut(ServedPhone& served, const Request& request) {
  std::optional<RouteMatch> match = matchedRoute(allRoutes(), request.method, request.path);
  if (!match) {
    throw WireError(WireErrorCode::unknownCommand, "there is no command " + request.method + " " + request.path);
  }
  if (match->route->need == SessionNeed::session) {
    const std::string& wanted = match->parameters.find("session")->second;
    if (wanted != sessionOf(served)) {
      throw WireError(WireErrorCode::invalidSessionId,
                      "the session " + wanted + " does not exist, or another one took its place");
    }
  }
  const Call call{
      .parameters = std::move(match->parameters), .query = request.query, .arguments = argumentsIn(request.body)};
  // Nothing changes while a request is answered but by what it does itself.
  served.phone().passTime();
  return match->route->handler(served, call);
}

}  // namespace

Reply answer(ServedPhone& served, const Request& request) {
  try {
    JSONValue value = carryOut(served, request);
    return success(std::move(value), sessionOf(served));
  } catch (const WireError& error) {
    return failure(error, sessionOf(served));
  } catch (const std::exception& error) {
    return failure(WireError(WireErrorCode::unknownError, error.what()), sessionOf(served));
  }
}

}  // namespace quobrak::phoneserver
