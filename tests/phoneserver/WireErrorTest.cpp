#include "phoneserver/WireError.h"

#include <gtest/gtest.h>

namespace quobrak::phoneserver {
namespace {

struct Row {
  WireErrorCode code;
  const char* name;
  int status;
};

const Row ROWS[] = {
    {WireErrorCode::elementNotVisible, "element not visible", 400},
    {WireErrorCode::invalidArgument, "invalid argument", 400},
    {WireErrorCode::invalidElementState, "invalid element state", 400},
    {WireErrorCode::invalidSelector, "invalid selector", 400},
    {WireErrorCode::invalidSessionId, "invalid session id", 404},
    {WireErrorCode::noSuchAlert, "no such alert", 404},
    {WireErrorCode::noSuchElement, "no such element", 404},
    {WireErrorCode::sessionNotCreated, "session not created", 500},
    {WireErrorCode::staleElementReference, "stale element reference", 404},
    {WireErrorCode::unableToCaptureScreen, "unable to capture screen", 500},
    {WireErrorCode::unknownCommand, "unknown command", 404},
    {WireErrorCode::unknownError, "unknown error", 500},
    {WireErrorCode::unsupportedOperation, "unsupported operation", 500},
};

TEST(WireError, EveryCodeHasTheNameAndTheStatusOfTheProtocol) {
  for (const Row& row : ROWS) {
    EXPECT_EQ(nameOf(row.code), row.name);
    EXPECT_EQ(statusOf(row.code), row.status) << row.name;
  }
}

TEST(WireError, SaysWhatIsWrongAndKeepsItsCode) {
  const WireError error(WireErrorCode::noSuchAlert, "no alert is up");
  EXPECT_STREQ(error.what(), "no alert is up");
  EXPECT_EQ(error.code(), WireErrorCode::noSuchAlert);
}

}  // namespace
}  // namespace quobrak::phoneserver
