#include "quobrakUITests/Results.h"

#include <string>

#include "platform/foundation/JSON.h"
#include "quobrakUITests/File.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/Timestamp.h"

namespace quobrak {

void Results::saveJobResult(const std::vector<TestStatus>& testStatus) {
  for (const TestResultV2& result : TestContext::shared().getTestResults()) {
    const std::string json = JSONEncoder::encode(result.encode());
    // The time of writing, which keeps two steps of one name apart.
    const std::string time = std::to_string(getTimestampMillis());
    File::writeFileToDocumentDirectory("measures/fernwick--" + result.test + "-" + time + ".json", bytesOf(json));
  }
  JSONValue::Array statuses;
  for (const TestStatus& status : testStatus) {
    statuses.push_back(status.encode());
  }
  File::writeFileToDocumentDirectory("testsStatus.json", bytesOf(JSONEncoder::encode(std::move(statuses))));
}

}  // namespace quobrak
