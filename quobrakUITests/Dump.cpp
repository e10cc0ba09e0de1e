#include "quobrakUITests/Dump.h"

#include "quobrakUITests/File.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

void takeDump(const std::string& iterationPath) {
  const std::string description = TestContext::shared().getTestingApp().debugDescription();
  File::writeFileToDocumentDirectory(iterationPath + "/dump/dump.txt", bytesOf(description));
}

}  // namespace quobrak
