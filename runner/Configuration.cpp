#include "runner/Configuration.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
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

DriverKind driverKind(const Variables& variable, Faults& faults) {
  const std::string value = variable("QUOBRAK_DRIVER").value_or("simulator");
  if (value != "simulator" && value != "webdriver") {
    faults.add("QUOBRAK_DRIVER", value, "simulator or webdriver");
  }
  return value == "webdriver" ? DriverKind::webdriver : DriverKind::simulator;
}

ReferencePage referencePage(const Variables& variable, Faults& faults) {
  const std::optional<std::string> address = variable(ReferencePage::VARIABLE);
  if (!address) {
    return {};
  }
  const std::optional<ReferencePage> page = ReferencePage::at(*address);
  if (!page) {
    faults.add(ReferencePage::VARIABLE, *address, ReferencePage::RIGHT_ADDRESS);
  }
  return page.value_or(ReferencePage());
}

std::string serverUrl(const Variables& variable, const std::string& dialect, Faults& faults) {
  // Where the servers listen unless they are told otherwise.
  const std::string usual = dialect == "wda" ? "http://127.0.0.1:8100" : "http://127.0.0.1:4723";
  std::string url = variable("QUOBRAK_WEBDRIVER_URL").value_or(usual);
  if (!url.starts_with("http://") && !url.starts_with("https://")) {
    faults.add("QUOBRAK_WEBDRIVER_URL", url, "an address that begins with http:// or https://");
  }
  while (url.ends_with('/')) {
    url.pop_back();
  }
  return url;
}

WebDriverConfiguration webDriverConfiguration(const Variables& variable, Faults& faults) {
  const std::string dialect = variable("QUOBRAK_WEBDRIVER_DIALECT").value_or("appium");
  if (dialect != "appium" && dialect != "wda") {
    faults.add("QUOBRAK_WEBDRIVER_DIALECT", dialect, "appium or wda");
  }
  return {.url = serverUrl(variable, dialect, faults),
          .dialect = dialect,
          .capabilities =
              path(variable, "QUOBRAK_WEBDRIVER_CAPABILITIES", "a file with a JSON object, or not be set", faults)};
}

constexpr std::array<std::string_view, 5> COMMON_VARIABLES = {"QUOBRAK_CLOCK", "QUOBRAK_DOCUMENTS", "QUOBRAK_DRIVER",
                                                              ReferencePage::VARIABLE, "QUOBRAK_TRACE"};
constexpr std::array<std::string_view, 1> SIMULATOR_VARIABLES = {"QUOBRAK_PHONE"};
constexpr std::array<std::string_view, 3> WEBDRIVER_VARIABLES = {"QUOBRAK_WEBDRIVER_CAPABILITIES",
                                                                 "QUOBRAK_WEBDRIVER_DIALECT", "QUOBRAK_WEBDRIVER_URL"};

bool isOneOf(std::span<const std::string_view> names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<std::string> only(const std::vector<std::string>& names,
                              const std::function<bool(const std::string&)>& isWanted) {
  std::vector<std::string> wanted;
  std::copy_if(names.begin(), names.end(), std::back_inserter(wanted), isWanted);
  return wanted;
}

}  // namespace

std::vector<std::string> unknownVariables(const std::vector<std::string>& names) {
  return only(names, [](const std::string& name) {
    return name.starts_with("QUOBRAK_") && !isOneOf(COMMON_VARIABLES, name) && !isOneOf(SIMULATOR_VARIABLES, name) &&
           !isOneOf(WEBDRIVER_VARIABLES, name);
  });
}

std::vector<std::string> idleVariables(const std::vector<std::string>& names, DriverKind driver) {
  return only(names, [driver](const std::string& name) {
    return driver == DriverKind::simulator ? isOneOf(WEBDRIVER_VARIABLES, name) : isOneOf(SIMULATOR_VARIABLES, name);
  });
}

Configuration configurationFrom(const Variables& variable) {
  Faults faults;
  const DriverKind driver = driverKind(variable, faults);
  Configuration configuration{
      .documents = path(variable, "QUOBRAK_DOCUMENTS", "a folder", faults).value_or("Documents"),
      .driver = driver,
      .phone = path(variable, "QUOBRAK_PHONE", "a folder that describes a phone, or not be set", faults),
      .webdriver = webDriverConfiguration(variable, faults),
      .clock = clockKind(variable, faults),
      .referencePage = referencePage(variable, faults),
      .trace = path(variable, "QUOBRAK_TRACE", "a file or fd:N, or not be set", faults)};
  if (driver == DriverKind::webdriver && configuration.clock == ClockKind::virtualTime) {
    faults.add("QUOBRAK_CLOCK", "virtual", "system with the driver webdriver: a real phone takes real time");
  }
  faults.raiseIfAny();
  return configuration;
}

}  // namespace quobrak
