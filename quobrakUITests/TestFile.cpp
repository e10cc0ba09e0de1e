#include "quobrakUITests/TestFile.h"

namespace quobrak {

JSONValue TestFile::encode() const {
  return JSONValue::Object{{"iterationPath", iterationPath}, {"script", script}};
}

TestFile TestFile::decode(const JSONReader& json) {
  return {.script = json.member("script").text(), .iterationPath = json.member("iterationPath").text()};
}

}  // namespace quobrak
