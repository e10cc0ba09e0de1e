#include "host/report/PlainProgress.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/host/report/ToldRun.h"

namespace quobrak::host {
namespace {

TEST(PlainProgress, HasALineForEachResult) {
  std::ostringstream out;
  PlainProgress progress(out);
  tellSampleRun(progress);
  EXPECT_EQ(out.str(), R"(Earlier results are␛[2J kept.
Warm-up 1 of 1: Shop/order passed
Warm-up 1 of 1: Shop/login passed
Warm-up 1 of 1: 設定/settings passed
Warm-up 1 of 1 finished after 4.5 s, 3 passed
Rest of 2.5 s
Iteration 1 of 3: Shop/order passed
Iteration 1 of 3: Shop/login failed: line 3: clickByText,Lamb: The expected text Lamb was not found
Iteration 1 of 3: 設定/settings passed
Iteration 1 of 3 finished after 4.5 s, 2 passed, 1 failed
Rest of 2.5 s
Iteration 2 of 3: 設定/settings passed
Iteration 2 of 3: Shop/login passed
Iteration 2 of 3: Shop/order passed
Iteration 2 of 3 finished after 4.5 s, 3 passed
Rest of 2.5 s
Iteration 3 of 3: Shop/order passed
Iteration 3 of 3: Shop/login aborted: line 5: clickByText: Index out of range: the field 1 (selector) is missing
Iteration 3 of 3 aborted after 4.5 s, 1 passed, 1 aborted, 1 not run: The test process stopped itself at line 5 of Shop/login: clickByText
)");
}

}  // namespace
}  // namespace quobrak::host
