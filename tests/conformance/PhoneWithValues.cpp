#include "tests/conformance/PhoneWithValues.h"

#include "platform/foundation/JSON.h"

namespace quobrak::conformance {

namespace {

constexpr const char* DESCRIPTION = "phone.json";
constexpr const char* VALUES = "values";

std::string namesOf(const JSONValue::Object& values) {
  std::string names;
  for (const auto& [name, text] : values) {
    names += (names.empty() ? "" : ", ") + name;
  }
  return values.empty() ? "none" : names;
}

}  // namespace

std::optional<std::string> PhoneWithValues::read(const std::string& path) const {
  std::optional<std::string> content = files_.read(path);
  if (content && path == DESCRIPTION && !values_.empty()) {
    return described(*content);
  }
  return content;
}

std::string PhoneWithValues::described(const std::string& description) const {
  auto phone = std::get<JSONValue::Object>(JSONDecoder::decode(description).variant());
  JSONValue::Object known;
  if (const auto values = phone.find(VALUES); values != phone.end()) {
    known = std::get<JSONValue::Object>(std::move(values->second).variant());
  }
  for (const auto& [name, text] : values_) {
    const auto value = known.find(name);
    if (value == known.end()) {
      throw UnknownValueError("the phone has no value \"" + name + "\"; it has " + namesOf(known));
    }
    value->second = text;
  }
  phone.insert_or_assign(VALUES, std::move(known));
  return JSONEncoder::encode(std::move(phone));
}

}  // namespace quobrak::conformance
