#include "drivers/webdriver/Connection.h"

#include <array>
#include <string_view>
#include <utility>

#include "drivers/webdriver/CommandError.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::webdriver {

namespace {

struct NamedFault {
  std::string_view code;
  Fault fault;
};

/// The protocol's error codes that decide something; all others are refusals.
constexpr std::array NAMED_FAULTS{
    NamedFault{"no such element", Fault::noSuchElement},
    NamedFault{"stale element reference", Fault::staleElement},
    NamedFault{"no such alert", Fault::noSuchAlert},
    NamedFault{"invalid session id", Fault::sessionLost},
    // The server gave a command up, and with it the session.
    NamedFault{"timeout", Fault::outcomeUnknown},
};

Fault faultNamed(std::string_view code) {
  for (const NamedFault& named : NAMED_FAULTS) {
    if (named.code == code) {
      return named.fault;
    }
  }
  return Fault::refused;
}

/// As much of an answer as a person needs to recognise it.
std::string beginningOf(const std::string& body) {
  constexpr std::size_t SHOWN = 80;
  return repairedUTF8(body.substr(0, SHOWN)) + (body.size() <= SHOWN ? "" : "…");
}

[[noreturn]] void failAsNonsense(const HttpReply& reply) {
  throw CommandError(Fault::nonsense, "status " + std::to_string(reply.status) +
                                          " with what is no answer of a WebDriver server: " +
                                          (reply.body.empty() ? "nothing" : beginningOf(reply.body)));
}

const JSONValue* memberOf(const JSONValue& value, std::string_view name) {
  const auto* const object = std::get_if<JSONValue::Object>(&value.variant());
  if (object == nullptr) {
    return nullptr;
  }
  const auto member = object->find(name);
  return member == object->end() ? nullptr : &member->second;
}

const std::string* textIn(const JSONValue& value, std::string_view name) {
  const JSONValue* const member = memberOf(value, name);
  return member == nullptr ? nullptr : std::get_if<std::string>(&member->variant());
}

[[noreturn]] void failAsReported(const HttpReply& reply, const JSONValue& value) {
  const std::string* const code = textIn(value, "error");
  if (code == nullptr) {
    failAsNonsense(reply);
  }
  const std::string* const message = textIn(value, "message");
  const bool saysMore = message != nullptr && !message->empty();
  throw CommandError(faultNamed(*code), *code + (saysMore ? ": " + *message : ""));
}

JSONValue decoded(const HttpReply& reply) {
  try {
    return JSONDecoder::decode(reply.body);
  } catch (const DecodingError&) {
    failAsNonsense(reply);
  }
}

constexpr bool isSuccess(long status) {
  return status >= 200 && status < 300;
}

}  // namespace

JSONValue Connection::carryOut(const Command& command, std::chrono::milliseconds timeLimit) {
  const HttpReply reply = transport_->exchange({
      .method = command.method,
      .path = command.path,
      .body = command.method == "POST" ? JSONEncoder::encode(command.body) : "",
      .timeLimit = timeLimit,
  });
  JSONValue::Variant document = decoded(reply).variant();
  auto* const members = std::get_if<JSONValue::Object>(&document);
  const auto value = members == nullptr ? JSONValue::Object::iterator() : members->find("value");
  if (members == nullptr || value == members->end()) {
    failAsNonsense(reply);
  }
  if (!isSuccess(reply.status)) {
    failAsReported(reply, value->second);
  }
  return std::move(value->second);
}

}  // namespace quobrak::webdriver
