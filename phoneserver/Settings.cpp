#include "phoneserver/Settings.h"

#include <cstdint>
#include <utility>
#include <variant>

#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

namespace {

JSONValue::Object defaults() {
  return {{"acceptAlertButtonSelector", ""},
          {"activeAppDetectionPoint", "64.00,64.00"},
          {"accessibilityDeadline", 0},
          {"animationCoolOffTimeout", 2},
          {"autoClickAlertSelector", ""},
          {"boundElementsByIndex", false},
          {"customSnapshotTimeout", 15},
          {"defaultActiveApplication", "auto"},
          {"defaultAlertAction", ""},
          {"dismissAlertButtonSelector", ""},
          {"elementResponseAttributes", "type,label"},
          {"includeNonModalElements", false},
          {"keyboardAutocorrection", false},
          {"keyboardPrediction", false},
          {"limitXPathContextScope", true},
          {"maxTypingFrequency", 60},
          {"mjpegFixOrientation", false},
          {"mjpegScalingFactor", 100},
          {"mjpegServerFramerate", 10},
          {"mjpegServerScreenshotQuality", 25},
          {"reduceMotion", false},
          {"respectSystemAlerts", false},
          {"screenshotOrientation", "auto"},
          {"screenshotQuality", 3},
          {"shouldUseCompactResponses", true},
          {"snapshotMaxDepth", 50},
          {"useClearTextShortcut", true},
          {"useFirstMatch", false},
          {"waitForIdleTimeout", 10}};
}

std::string_view kindOf(const JSONValue& value) {
  if (std::holds_alternative<bool>(value.variant())) {
    return "true or false";
  }
  return std::holds_alternative<std::string>(value.variant()) ? "a text" : "a number";
}

/// The value as the setting keeps it: clients send truth values as numbers too, and switch texts off with null.
JSONValue adapted(const std::string& name, const JSONValue& present, const JSONValue& wanted) {
  const auto* const whole = std::get_if<std::int64_t>(&wanted.variant());
  if (std::holds_alternative<bool>(present.variant()) && whole != nullptr && (*whole == 0 || *whole == 1)) {
    return *whole == 1;
  }
  if (std::holds_alternative<std::string>(present.variant()) && wanted == JSONValue()) {
    return "";
  }
  const bool isTruth = std::holds_alternative<bool>(wanted.variant());
  const bool isOneOfTheKnownKinds = isTruth || std::holds_alternative<std::string>(wanted.variant()) ||
                                    whole != nullptr || std::holds_alternative<double>(wanted.variant());
  if (!isOneOfTheKnownKinds || kindOf(wanted) != kindOf(present)) {
    throw WireError(WireErrorCode::invalidArgument,
                    "the setting \"" + name + "\" must be " + std::string(kindOf(present)));
  }
  return wanted;
}

}  // namespace

Settings::Settings() : values_(defaults()) {}

void Settings::update(const JSONValue::Object& changes) {
  JSONValue::Object updated = values_;
  for (const auto& [name, value] : changes) {
    if (const auto known = updated.find(name); known != updated.end()) {
      known->second = adapted(name, known->second, value);
    }
  }
  values_ = std::move(updated);
}

const std::string& Settings::text(std::string_view name) const {
  return std::get<std::string>(values_.find(name)->second.variant());
}

bool Settings::truth(std::string_view name) const {
  return std::get<bool>(values_.find(name)->second.variant());
}

double Settings::number(std::string_view name) const {
  const JSONValue::Variant& value = values_.find(name)->second.variant();
  const auto* const whole = std::get_if<std::int64_t>(&value);
  return whole != nullptr ? static_cast<double>(*whole) : std::get<double>(value);
}

}  // namespace quobrak::phoneserver
