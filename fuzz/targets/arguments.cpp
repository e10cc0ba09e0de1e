// A line of a script: it is divided into its fields, and every getter reads every field.

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/Parameters.h"

namespace quobrak::fuzz {

namespace {

struct Raised {
  std::string message;
  bool operator==(const Raised&) const = default;
};
/// What a getter gives or raises.
template <class Value>
using Outcome = std::variant<Value, Raised>;

template <class Value>
struct Getter {
  Value (*read)(FunctionParameters fields, std::size_t index);
  /// Of an absent field; none where it is required.
  std::optional<Value> whereAbsent{};
  bool takesNegative = true;
  /// The one that it reads; none where it can read any.
  std::optional<std::size_t> onlyField{};
};

constexpr std::array INTEGER_GETTERS{
    Getter<std::int64_t>{.read = Parameters::getTimeout, .whereAbsent = DEFAULT_TIMEOUT_WAIT},
    Getter<std::int64_t>{.read = Parameters::getDuration, .whereAbsent = DEFAULT_DURATION_LONG_CLICK},
    Getter<std::int64_t>{.read = Parameters::getPauseDuration, .takesNegative = false},
    Getter<std::int64_t>{.read = Parameters::getCoordinate},
    Getter<std::int64_t>{.read = Parameters::getPeriod, .whereAbsent = DEFAULT_ENTER_TEXT_FREQUENCY},
    Getter<std::int64_t>{.read = Parameters::getMaxSwipe, .whereAbsent = DEFAULT_MAX_SWIPE},
    Getter<std::int64_t>{.read = Parameters::getNthElement, .whereAbsent = DEFAULT_NTH_ELEMENT},
    Getter<std::int64_t>{.read =
                             [](FunctionParameters fields, std::size_t index) {
                               return Parameters::getOptionalCoordinate(fields, index, DEFAULT_LOW_COORDINATE);
                             },
                         .whereAbsent = DEFAULT_LOW_COORDINATE},
};

constexpr std::array TRUTH_GETTERS{
    Getter<bool>{.read = Parameters::getUseBlankPage, .whereAbsent = DEFAULT_USE_BLANK_PAGE},
    Getter<bool>{.read = Parameters::getIsEnabled, .whereAbsent = DEFAULT_IS_ENABLED},
    Getter<bool>{
        .read = [](FunctionParameters fields, std::size_t) { return Parameters::getClickOnlyIfExists(fields); },
        .whereAbsent = DEFAULT_CLICK_ONLY_IF_EXISTS,
        .onlyField = 2},
};

/// The number as the C library reads it.
std::optional<std::int64_t> integerIn(const std::string& field) {
  const bool isSigned = field.starts_with('+') || field.starts_with('-');
  const std::string digits = field.substr(isSigned ? 1 : 0);
  errno = 0;
  const std::int64_t number = std::strtoll(field.c_str(), nullptr, 10);
  const bool isInteger = !digits.empty() && digits.find_first_not_of("0123456789") == digits.npos && errno == 0;
  return isInteger ? std::optional(number) : std::nullopt;
}

std::optional<bool> truthIn(const std::string& field) {
  return field == "true" || field == "false" ? std::optional(field == "true") : std::nullopt;
}

template <class Value>
Outcome<Value> outcomeOf(const Getter<Value>& getter, FunctionParameters fields, std::size_t index) {
  try {
    return getter.read(fields, index);
  } catch (const FWKTError& error) {
    require(error.errorCase() == FWKTError::Case::fdslError, "a getter raises an fdslError");
    return Raised{error.message()};
  }
}

template <class Value>
void tryAt(const Getter<Value>& getter, FunctionParameters fields, std::size_t index,
           std::optional<Value> (*valueIn)(const std::string& field)) {
  const bool isThere = index < fields.size();
  const std::string field(isThere ? fields[index] : "");
  std::optional<Value> wanted = isThere ? valueIn(field) : getter.whereAbsent;
  if (wanted && *wanted < Value() && !getter.takesNegative) {
    wanted.reset();
  }
  const Outcome<Value> outcome = outcomeOf(getter, fields, index);
  if (wanted) {
    require(outcome == Outcome<Value>(*wanted), "a getter gives what stands in the field, or its default");
  } else {
    const auto* const raised = std::get_if<Raised>(&outcome);
    require(raised != nullptr && raised->message.find(field) != std::string::npos,
            "what cannot be read raises an error that shows it");
  }
}

void tryLine(const std::string& line) {
  std::vector<std::string_view> fields;
  splitAtCommas(line, fields);
  std::string joined(fields.front());
  for (std::size_t index = 1; index < fields.size(); ++index) {
    joined.append(",").append(fields[index]);
  }
  require(joined == line, "the fields are the line between its commas");

  // More of them tell nothing new.
  constexpr std::size_t MOST_FIELDS = 8;
  const FunctionParameters some(fields.data(), std::min(fields.size(), MOST_FIELDS));
  const auto tryAll = [some](const auto& getters, auto valueIn) {
    for (const auto& getter : getters) {
      const std::size_t last = getter.onlyField.value_or(some.size());
      for (std::size_t index = getter.onlyField.value_or(0); index <= last; ++index) {
        tryAt(getter, some, index, valueIn);
      }
    }
  };
  tryAll(INTEGER_GETTERS, integerIn);
  tryAll(TRUTH_GETTERS, truthIn);
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quobrak::fuzz::tryLine(quobrak::fuzz::Input(data, size).textRest());
  return 0;
}
