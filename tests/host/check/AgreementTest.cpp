// The checker and the real interpreter agree: where a check finds no error, a run goes through; where it finds one, the
// run fails there, for that cause, and in that way.

#include <gtest/gtest.h>

#include <ostream>

#include "host/check/Checker.h"
#include "tests/host/check/Findings.h"
#include "tests/host/check/RandomScripts.h"
#include "tests/host/check/RealRun.h"
#include "tests/support/TestPlatform.h"

namespace quobrak::host {

namespace testing {

void PrintTo(const RunFailure& failure, std::ostream* stream) {
  *stream << "script " << failure.script << ", line " << failure.line << (failure.isStop ? ", stops: " : ": ")
          << failure.cause;
}

}  // namespace testing

namespace {

using testing::RunFailure;

/// How the run is to end, by the check.
std::optional<RunFailure> foreseen(const std::vector<std::string>& scripts, const Variables& variables) {
  std::vector<ScriptSource> sources;
  for (const std::string& script : scripts) {
    sources.push_back({.name = "script.txt", .bytes = script});
  }
  const std::vector<Finding> findings = check(sources, {.variables = variables, .isOrderKnown = true});
  const Finding* const first = firstFailure(findings);
  if (first == nullptr) {
    return std::nullopt;
  }
  return RunFailure{.script = first->script,
                    .line = first->line,
                    .cause = first->message,
                    .isStop = first->outcome == Outcome::abortsRun};
}

/// The driver puts words of its own before what is wrong with a pattern.
void takeOffWordsOfDriver(RunFailure& failure) {
  constexpr std::string_view WORDS = " on the simulated phone: ";
  if (const std::size_t at = failure.cause.find(WORDS); at != std::string::npos) {
    failure.cause.erase(0, at + WORDS.size());
  }
}

/// Whether the two agree; otherwise the test fails, and shows the scripts.
bool agree(const std::vector<std::string>& scripts, const Variables& variables) {
  std::optional<RunFailure> seen = testing::realRun(scripts, variables);
  if (seen) {
    takeOffWordsOfDriver(*seen);
  }
  const std::optional<RunFailure> expected = foreseen(scripts, variables);
  EXPECT_EQ(seen, expected) << ::testing::PrintToString(scripts);
  return seen == expected;
}

/// Runs of one seed, a batch of them in each test, so that they are shared between processors.
class Agreement : public ::testing::TestWithParam<std::uint32_t> {
 protected:
  static constexpr std::size_t RUNS = 750;
};

TEST_P(Agreement, OfTheCheckAndTheRun) {
  const quobrak::testing::TestPlatform platform(testing::PAGE_FOR_RANDOM_SCRIPTS);
  const Variables variables = testing::variablesForRandomScripts();
  testing::Chance chance(GetParam());
  std::size_t failures = 0;
  for (std::size_t i = 0; i < RUNS; ++i) {
    const std::vector<std::string> scripts = testing::randomScripts(chance);
    failures += foreseen(scripts, variables).has_value() ? 1U : 0U;
    ASSERT_TRUE(agree(scripts, variables)) << "seed " << GetParam() << ", run " << i;
  }
  // Scripts that all fail, or all pass, would show nothing.
  EXPECT_GT(failures, RUNS / 5);
  EXPECT_LT(failures, RUNS - RUNS / 5);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Agreement, ::testing::Values(1U, 2U, 3U, 4U));

}  // namespace
}  // namespace quobrak::host
