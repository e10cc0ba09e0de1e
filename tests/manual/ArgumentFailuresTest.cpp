#include "manual/ArgumentFailures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::manual {

/// Readable where a test fails.
static void PrintTo(const Failure& failure, std::ostream* stream) {
  *stream << failure.message << " (" << failure.when << ")";
}

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Selector = DirectField<1, "selector">;
template <std::size_t Field>
using Timeout = CheckedField<&Parameters::getTimeout, Field, "timeout", Unit::milliseconds, DEFAULT_TIMEOUT_WAIT>;
template <std::size_t Field>
using IsEnabled = CheckedField<&Parameters::getIsEnabled, Field, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;
using PauseDuration = CheckedField<&Parameters::getPauseDuration, 1, "timeMillis", Unit::milliseconds>;
using Url = CheckedField<&Parameters::getUrl, 1, "link", Unit::text>;
template <std::size_t Field, FixedText Label>
using Percent = CheckedField<&Parameters::getCoordinate, Field, Label, Unit::percent>;

template <class... Arguments>
void doNothing(Arguments...) {}

template <class... Arguments>
constexpr CommandRow rowWith() {
  return command<&doNothing<decltype(Arguments::read({}))...>, Arguments...>("name", "Does nothing.");
}

TEST(ArgumentFailures, OfACommandWithoutArgumentsThereAreNone) {
  EXPECT_THAT(argumentErrors(rowWith<>()), IsEmpty());
  EXPECT_THAT(argumentStops(rowWith<>()), IsEmpty());
}

TEST(ArgumentFailures, AFieldThatIsReadDirectlyStopsTheProcessWhereItIsMissing) {
  const CommandRow row = rowWith<Selector>();
  EXPECT_THAT(argumentErrors(row), IsEmpty());
  EXPECT_THAT(argumentStops(row),
              ElementsAre(Failure{.message = "Index out of range: the field 1 (selector) is missing",
                                  .when = "`selector` is left out"}));
}

TEST(ArgumentFailures, AnOptionalArgumentIsWrongWhereItIsMalformed) {
  const CommandRow row = rowWith<Selector, Timeout<2>, IsEnabled<3>>();
  EXPECT_THAT(argumentErrors(row), ElementsAre(Failure{.message = "The timeout <timeout> should be an integer",
                                                       .when = "`timeout` is not a whole number"},
                                               Failure{.message = "isEnabled <isEnabled> should be an boolean",
                                                       .when = "`isEnabled` is neither `true` nor `false`"}));
}

TEST(ArgumentFailures, ARequiredArgumentIsWrongWhereItIsMissingToo) {
  EXPECT_THAT(argumentErrors(rowWith<PauseDuration>()),
              ElementsAre(Failure{.message = "The pause duration is missing", .when = "`timeMillis` is left out"},
                          Failure{.message = "The pause duration <timeMillis> should be a positive integer",
                                  .when = "`timeMillis` is not a whole number, or below 0"}));
  EXPECT_THAT(argumentStops(rowWith<PauseDuration>()), IsEmpty());
}

TEST(ArgumentFailures, ARequiredTextIsWrongOnlyWhereItIsMissing) {
  EXPECT_THAT(argumentErrors(rowWith<Url>()),
              ElementsAre(Failure{.message = "The url should be given", .when = "`link` is left out"}));
}

TEST(ArgumentFailures, OneMessageOfSeveralArgumentsIsToldOnce) {
  const CommandRow row = rowWith<Percent<1, "x">, Percent<2, "y">>();
  EXPECT_THAT(
      argumentErrors(row),
      ElementsAre(Failure{.message = "A coordinate is missing", .when = "`x` is left out, or `y` is left out"},
                  Failure{.message = "The coordinate <x> should be an integer", .when = "`x` is not a whole number"},
                  Failure{.message = "The coordinate <y> should be an integer", .when = "`y` is not a whole number"}));
}

}  // namespace
}  // namespace quobrak::manual
