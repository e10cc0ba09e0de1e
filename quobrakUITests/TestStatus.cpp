#include "quobrakUITests/TestStatus.h"

namespace quobrak {

JSONValue TestStatus::encode() const {
  return JSONValue::Object{{"stackTrace", stackTrace}, {"status", status}};
}

TestStatus TestStatus::decode(const JSONReader& json) {
  return {.status = json.member("status").text(), .stackTrace = json.member("stackTrace").text()};
}

}  // namespace quobrak
