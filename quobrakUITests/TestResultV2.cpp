#include "quobrakUITests/TestResultV2.h"

namespace quobrak {

JSONValue TestResultV2::encode() const {
  JSONValue::Array groups;
  for (const auto& group : measures) {
    JSONValue::Array ticks;
    for (const MeasureTick& tick : group) {
      ticks.push_back(tick.encode());
    }
    groups.emplace_back(std::move(ticks));
  }
  return JSONValue::Object{{"measures", std::move(groups)}, {"test", test}, {"testTime", testTime}};
}

TestResultV2 TestResultV2::decode(const JSONReader& json) {
  TestResultV2 result{
      .test = json.member("test").text(), .testTime = json.member("testTime").integer(), .measures = {}};
  for (const JSONReader& group : json.member("measures").elements()) {
    auto& ticks = result.measures.emplace_back();
    for (const JSONReader& tick : group.elements()) {
      ticks.push_back(MeasureTick::decode(tick));
    }
  }
  return result;
}

}  // namespace quobrak
