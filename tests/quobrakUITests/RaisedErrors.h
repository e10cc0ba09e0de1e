#pragma once

#include <gmock/gmock.h>

#include <exception>
#include <string>

#include "quobrakUITests/FWKTError.h"

/// Matchers for a function that must raise: `EXPECT_THAT([&] { ... }, raisesFdslError("..."))`.
namespace quobrak::testing {

inline auto raisesFWKTError(FWKTError::Case errorCase, const std::string& message) {
  return ::testing::Throws<FWKTError>(
      ::testing::AllOf(::testing::Property("errorCase", &FWKTError::errorCase, errorCase),
                       ::testing::Property("message", &FWKTError::message, message)));
}

inline auto raisesEnvVariableError(const std::string& message) {
  return raisesFWKTError(FWKTError::Case::envVariableError, message);
}

inline auto raisesDocumentDirectoryError(const std::string& message) {
  return raisesFWKTError(FWKTError::Case::documentDirectoryError, message);
}

inline auto raisesFdslError(const std::string& message) {
  return raisesFWKTError(FWKTError::Case::fdslError, message);
}

/// What commands that need an application say where none was started.
inline auto raisesNotInitialised() {
  return raisesFdslError(
      "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your "
      "script.");
}

}  // namespace quobrak::testing
