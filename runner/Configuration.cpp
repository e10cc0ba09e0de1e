#include "runner/Configuration.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace quobrak {

namespace {

using Variables = std::function<std::optional<std::string>(const std::string&)>;

/// Collects what is wrong, so that a user sees all of it at once.
class Faults {
 public:
  void add(const std::string& variable, const std::string& value, std::string_view rightWouldBe) {
    text_ += (text_.empty() ? "" : "\n") + variable + " is \"" + value + "\", but must be " + std::string(rightWouldBe);
  }

  void raiseIfAny() const {
    if (!text_.empty()) {
      throw ConfigurationError(text_);
    }
  }

 private:
  std::string text_;
};

/// A path; one that is set to nothing is more likely a slip than a wish.
std::optional<std::string> path(const Variables& variable, const std::string& name, std::string_view rightWouldBe,
                                Faults& faults) {
  std::optional<std::string> value = variable(name);
  if (value && value->empty()) {
    faults.add(name, *value, rightWouldBe);
  }
  return value;
}

ClockKind clockKind(const Variables& variable, Faults& faults) {
  const std::string value = variable("QUOBRAK_CLOCK").value_or("system");
  if (value != "system" && value != "virtual") {
    faults.add("QUOBRAK_CLOCK", value, "system or virtual");
  }
  return value == "virtual" ? ClockKind::virtualTime : ClockKind::system;
}

}  // namespace

std::vector<std::string> unknownVariables(const std::vector<std::string>& names) {
  constexpr std::array<std::string_view, 5> KNOWN = {"QUOBRAK_CLOCK", "QUOBRAK_DOCUMENTS", "QUOBRAK_DRIVER",
                                                     "QUOBRAK_PHONE", "QUOBRAK_TRACE"};
  std::vector<std::string> unknown;
  std::copy_if(names.begin(), names.end(), std::back_inserter(unknown), [&KNOWN](const std::string& name) {
    return name.starts_with("QUOBRAK_") && std::find(KNOWN.begin(), KNOWN.end(), name) == KNOWN.end();
  });
  return unknown;
}

Configuration configurationFrom(const Variables& variable) {
  Faults faults;
  const std::string driver = variable("QUOBRAK_DRIVER").value_or("simulator");
  if (driver != "simulator") {
    faults.add("QUOBRAK_DRIVER", driver, "simulator, the only driver that this program has");
  }
  Configuration configuration{
      .documents = path(variable, "QUOBRAK_DOCUMENTS", "a folder", faults).value_or("Documents"),
      .phone = path(variable, "QUOBRAK_PHONE", "a folder that describes a phone, or not be set", faults),
      .clock = clockKind(variable, faults),
      .trace = path(variable, "QUOBRAK_TRACE", "a file or fd:N, or not be set", faults)};
  faults.raiseIfAny();
  return configuration;
}

}  // namespace quobrak
