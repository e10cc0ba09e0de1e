#include "quobrakUITests/quobrakUITests.h"

#include <array>
#include <optional>
#include <string>

#include "platform/foundation/ProcessInfo.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/CommandTable.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/Find.h"

namespace quobrak {

namespace {

/// A permission alert, known by a part of its texts, and the button that answers it.
struct PermissionAnswer {
  std::string_view alertText;
  std::string_view button;
};

/// In the order in which they are tried.
constexpr std::array PERMISSION_ANSWERS{
    PermissionAnswer{"to use your location?", "Allow Once"},
    PermissionAnswer{"to access the camera", "OK"},
    PermissionAnswer{"to send you notifications", "Allow"},
    PermissionAnswer{"to track your activity across other companies’ apps and websites", "Allow"},
};

bool answerPermissionAlert(const XCUIElement& alert) {
  for (const PermissionAnswer& answer : PERMISSION_ANSWERS) {
    if (labelContains(alert, answer.alertText)) {
      alert.buttons()[answer.button].tap();
      return true;
    }
  }
  return false;
}

}  // namespace

void quobrakUITests::setUpWithError() {
  setContinueAfterFailure(false);
}

void quobrakUITests::testMain() {
  const InterruptionMonitorToken monitor = addUIInterruptionMonitor("Permission Alert", answerPermissionAlert);
  const std::optional<std::string> kind = ProcessInfo::environmentVariable("class");
  if (!kind) {
    throw FWKTError::envVariableError("The class is not set");
  }
  if (*kind == "dslCommandTest") {
    dslCommandTest();
  } else if (*kind == "dslTestReference") {
    dslTestReference();
  } else if (*kind == "dslTestsSuites") {
    dslTestsSuites();
  } else {
    throw FWKTError::envVariableError("The class is not supported");
  }
  // Only after a normal return, so no guard object: after an error the test ends anyway, and an alert that comes up
  // until then is still answered.
  removeUIInterruptionMonitor(monitor);
}

void quobrakUITests::dslCommandTest() {
  const std::optional<std::string> command = ProcessInfo::environmentVariable("command");
  if (!command) {
    throw FWKTError::envVariableError("The command is not set");
  }
  std::vector<std::string_view> fields;
  splitAtCommas(*command, fields);
  executeCommand(fields);
}

void quobrakUITests::dslTestReference() {
  launchTest(getTestFileForReference());
}

void quobrakUITests::dslTestsSuites() {
  launchTest(getTestFiles());
}

void quobrakUITests::executeCommand(FunctionParameters functionParameters) {
  UIDriver::shared().forgetLookups();
  dispatchCommand(commandTable(), functionParameters);
}

}  // namespace quobrak
