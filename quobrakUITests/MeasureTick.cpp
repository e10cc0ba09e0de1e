#include "quobrakUITests/MeasureTick.h"

namespace quobrak {

JSONValue MeasureTick::encode() const {
  JSONValue::Object namedValues;
  for (const auto& [name, value] : values) {
    namedValues.emplace(name, value);
  }
  return JSONValue::Object{{"time", time}, {"values", std::move(namedValues)}};
}

MeasureTick MeasureTick::decode(const JSONReader& json) {
  MeasureTick tick{.time = json.member("time").integer(), .values = {}};
  for (const auto& [name, value] : json.member("values").members()) {
    tick.values.emplace(name, value.integer());
  }
  return tick;
}

}  // namespace quobrak
