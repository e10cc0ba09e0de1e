#include "quobrakUITests/ArgumentFaults.h"

#include <cstdint>
#include <utility>

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/Numbers.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/Scroll.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

std::optional<ValueFault> faultFrom(std::optional<std::string> message, Consequence consequence) {
  if (!message) {
    return std::nullopt;
  }
  return ValueFault{.message = *std::move(message), .consequence = consequence};
}

}  // namespace

std::optional<ValueFault> bundleIdFault(FunctionParameters fields, std::size_t field) {
  if (!fields[field].empty()) {
    return std::nullopt;
  }
  return ValueFault{.message = TestContext::NO_APPLICATION, .consequence = Consequence::failsScript};
}

std::optional<ValueFault> patternFault(FunctionParameters fields, std::size_t field) {
  if (matchesOnlyItself(fields[field])) {
    return std::nullopt;
  }
  try {
    const NSRegularExpression compiled(fields[field]);
    return std::nullopt;
  } catch (const RegularExpressionError& error) {
    return ValueFault{.message = error.what(), .consequence = Consequence::failsScript};
  }
}

std::optional<ValueFault> classNameFault(FunctionParameters fields, std::size_t field) {
  return faultFrom(Find::classNameFault(fields[field]), Consequence::failsScript);
}

std::optional<ValueFault> rankFault(FunctionParameters fields, std::size_t field) {
  return faultFrom(Find::rankFault(Parameters::getNthElement(fields, field)), Consequence::failsScript);
}

std::optional<ValueFault> pauseFault(FunctionParameters fields, std::size_t field) {
  return faultFrom(Device::pauseFault(Parameters::getPauseDuration(fields, field)), Consequence::stopsProcess);
}

std::optional<ValueFault> typingPauseFault(FunctionParameters fields, std::size_t field) {
  const std::int64_t period = Parameters::getPeriod(fields, field);
  if (period <= 0 || fields[field - 1].empty()) {
    return std::nullopt;
  }
  return faultFrom(Device::pauseFault(period), Consequence::stopsProcess);
}

std::optional<ValueFault> swipeCountFault(FunctionParameters fields, std::size_t field) {
  const std::int64_t count = Parameters::getMaxSwipe(fields, field);
  if (count > Scroll::MOST_SWIPES) {
    return ValueFault{.message = "The maximum of swipes " + std::to_string(count) + " is never reached: no more than " +
                                 std::to_string(Scroll::MOST_SWIPES) + " are made",
                      .consequence = Consequence::goesOn};
  }
  return faultFrom(Scroll::maxSwipeFault(count), Consequence::stopsProcess);
}

std::optional<ValueFault> percentFault(FunctionParameters fields, std::size_t field) {
  constexpr std::int64_t MOST = 100;
  // A place that is left out is on the screen.
  const std::int64_t percent = Parameters::getOptionalCoordinate(fields, field, 0);
  if (percent >= 0 && percent <= MOST) {
    return std::nullopt;
  }
  return ValueFault{
      .message = "The coordinate " + std::to_string(percent) + " is outside the screen, which has 0 to 100 percent",
      .consequence = Consequence::goesOn};
}

std::optional<ValueFault> distanceFault(FunctionParameters fields, std::size_t field) {
  if (parseDouble(fields[field])) {
    return std::nullopt;
  }
  return ValueFault{.message = "The distance " + std::string(fields[field]) + " is no number, and counts as 0",
                    .consequence = Consequence::goesOn};
}

}  // namespace quobrak
