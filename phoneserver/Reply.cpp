#include "phoneserver/Reply.h"

#include <utility>

#include "platform/foundation/Unicode.h"

namespace quobrak::phoneserver {

namespace {

std::string bodyOf(JSONValue value, const std::optional<std::string>& session) {
  JSONValue::Object body;
  body.emplace("value", std::move(value));
  body.emplace("sessionId", session ? JSONValue(*session) : JSONValue());
  return JSONEncoder::encode(body);
}

}  // namespace

Reply success(JSONValue value, const std::optional<std::string>& session) {
  constexpr int OK = 200;
  return {OK, bodyOf(std::move(value), session)};
}

Reply failure(const WireError& error, const std::optional<std::string>& session) {
  // Clients of either age of the protocol find the key that they look for.
  JSONValue value = JSONValue::Object{
      {"error", nameOf(error.code())}, {"message", repairedUTF8(error.what())}, {"stacktrace", ""}, {"traceback", ""}};
  return {statusOf(error.code()), bodyOf(std::move(value), session)};
}

}  // namespace quobrak::phoneserver
