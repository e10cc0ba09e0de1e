#include "quobrakUITests/FWKTError.h"

#include <gtest/gtest.h>

#include <exception>

namespace quobrak {
namespace {

TEST(FWKTError, CarriesItsCaseAndItsMessage) {
  const FWKTError variable = FWKTError::envVariableError("The class is not set");
  EXPECT_EQ(variable.errorCase(), FWKTError::Case::envVariableError);
  EXPECT_EQ(variable.message(), "The class is not set");
  const FWKTError directory = FWKTError::documentDirectoryError("");
  EXPECT_EQ(directory.errorCase(), FWKTError::Case::documentDirectoryError);
  EXPECT_EQ(directory.message(), "");
  const FWKTError script = FWKTError::fdslError("The url should be given");
  EXPECT_EQ(script.errorCase(), FWKTError::Case::fdslError);
  EXPECT_EQ(script.message(), "The url should be given");
}

TEST(FWKTError, CasesAreInTheirOrder) {
  EXPECT_EQ(static_cast<int>(FWKTError::Case::envVariableError), 0);
  EXPECT_EQ(static_cast<int>(FWKTError::Case::documentDirectoryError), 1);
  EXPECT_EQ(static_cast<int>(FWKTError::Case::fdslError), 2);
}

TEST(FWKTError, IsAnOrdinaryErrorThatSaysItsMessageAlone) {
  try {
    throw FWKTError::fdslError("A coordinate is missing");
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "A coordinate is missing");
  }
}

}  // namespace
}  // namespace quobrak
