#include "tests/phoneserver/TestPhone.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <variant>

#include "drivers/simulator/PhoneLoader.h"
#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/JSON.h"

namespace quobrak::testing {

namespace {

std::string replaced(std::string text, const std::string& old, const std::string& with) {
  for (auto place = text.find(old); place != std::string::npos; place = text.find(old, place + with.size())) {
    text.replace(place, old.size(), with);
  }
  return text;
}

const JSONValue& member(const JSONValue& object, const std::string& key) {
  return std::get<JSONValue::Object>(object.variant()).at(key);
}

const std::string& textIn(const JSONValue& object, const std::string& key) {
  return std::get<std::string>(member(object, key).variant());
}

}  // namespace

TestPhone::TestPhone(const std::string& page, const std::string& rules) : TestPhone(smallPhone(page, rules)) {}

TestPhone::TestPhone(const simulator::PhoneFiles& files) : served_(simulator::loadPhone(files), clock_) {
  phone().launch("com.example.test");
  served_.session().emplace();
  served_.session()->id = "S";
  start_ = clock_.now();
}

phoneserver::Reply TestPhone::reply(const std::string& method, const std::string& path, const std::string& body) {
  constexpr std::string_view SESSION = "session/";
  phoneserver::Request request{.method = method, .path = "/" + path, .body = body};
  if (path.starts_with(SESSION)) {
    request.path = "/session/S/" + path.substr(SESSION.size());
  }
  if (const auto mark = request.path.find('?'); mark != std::string::npos) {
    std::string query = request.path.substr(mark + 1);
    request.path.resize(mark);
    while (!query.empty()) {
      const std::string part = query.substr(0, query.find('&'));
      query.erase(0, part.size() + 1);
      request.query.emplace(part.substr(0, part.find('=')), part.substr(part.find('=') + 1));
    }
  }
  return phoneserver::answer(served_, request);
}

std::string TestPhone::ask(const std::string& method, const std::string& path, const std::string& body) {
  const phoneserver::Reply received = reply(method, path, body);
  const JSONValue decoded = JSONDecoder::decode(received.body);
  const JSONValue& value = member(decoded, "value");
  constexpr int OK = 200;
  if (received.status != OK) {
    return textIn(value, "error") + ": " + textIn(value, "message");
  }
  return replaced(replaced(JSONEncoder::encode(value), "\\/", "/"), "\"", "'");
}

std::string TestPhone::post(const std::string& path, const std::string& body) {
  return ask("POST", path, replaced(body, "'", "\""));
}

const simulator::Element& TestPhone::element(const std::string& name) {
  const simulator::Element* found = nullptr;
  forEachDescendant(served_.activeScreen(), [&](const simulator::Element& candidate) {
    if (found == nullptr && (candidate.identifier == name || candidate.label == name)) {
      found = &candidate;
    }
  });
  if (found == nullptr) {
    throw std::logic_error("no element is named " + name);
  }
  return *found;
}

std::string TestPhone::id(const std::string& name) {
  return served_.session()->elements.idOf(element(name).number);
}

std::chrono::milliseconds TestPhone::elapsed() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(clock_.now() - start_);
}

std::string namesOf(const phoneserver::FoundElements& elements) {
  std::string names;
  for (const simulator::Element* element : elements) {
    names += (names.empty() ? "" : " ") + std::string(phoneserver::wireNameOf(*element).value_or("-"));
  }
  return names;
}

std::string errorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const phoneserver::WireError& error) {
    return std::string(phoneserver::nameOf(error.code())) + ": " + error.what();
  }
  return "nothing";
}

}  // namespace quobrak::testing
