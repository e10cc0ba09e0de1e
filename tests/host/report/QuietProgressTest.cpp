#include "host/report/QuietProgress.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/host/report/ToldRun.h"

namespace quobrak::host {
namespace {

TEST(QuietProgress, TellsOnlyWhatGoesWrong) {
  std::ostringstream err;
  QuietProgress progress(err);
  tellSampleRun(progress);
  EXPECT_EQ(err.str(),
            R"(Iteration 1 of 3: Shop/login failed: line 3: clickByText,Lamb: The expected text Lamb was not found
Iteration 3 of 3: Shop/login aborted: line 5: clickByText: Index out of range: the field 1 (selector) is missing
Iteration 3 of 3 aborted after 4.5 s, 1 passed, 1 aborted, 1 not run: The test process stopped itself at line 5 of Shop/login: clickByText
)");
}

}  // namespace
}  // namespace quobrak::host
