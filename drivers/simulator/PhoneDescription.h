#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drivers/simulator/AlertScreens.h"
#include "drivers/simulator/Element.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "platform/uiautomation/Geometry.h"

/// What a simulated phone is before it is switched on: the content of its folder, checked.
namespace quobrak::simulator {

/// Shows another screen of the same application.
struct ShowScreen {
  std::string screen;
};
/// Gives a named value of the phone another text.
struct SetValue {
  std::string name;
  std::string text;
};
/// Raises an alert of the system process.
struct RaiseAlert {
  AlertText alert;
  /// The named value that receives the label of the button that answers the alert; empty for none.
  std::string answer;
};
/// Brings another application to the front, starting it where it does not run.
struct OpenApplication {
  std::string bundleIdentifier;
};
using Effect = std::variant<ShowScreen, SetValue, RaiseAlert, OpenApplication>;

enum class RuleEvent { launch, tap };

/// What an application does on an event.
struct Rule {
  RuleEvent event;
  /// Which elements a tap is on; none for a launch.
  std::optional<PredicateEvaluator> element;
  /// Named values that must have these texts. One that was never set has the empty text.
  std::map<std::string, std::string> condition;
  std::vector<Effect> effects;
};

struct ApplicationDescription {
  std::string bundleIdentifier;
  /// As shown below its icon.
  std::string name;
  std::chrono::milliseconds launchTime{};
  std::string firstScreen;
  std::map<std::string, std::unique_ptr<Element>> screens;
  std::vector<Rule> rules;
};

struct PhoneDescription {
  std::string name;
  /// In points.
  Size size;
  /// Pixels to a point.
  double scale{};
  std::string systemVersion;
  /// Percent.
  int volume{};
  /// How long a touch, a press of a button, and a finger's way over the screen until what it moved has come to rest
  /// takes.
  std::chrono::milliseconds touchDelay{};
  std::chrono::milliseconds buttonDelay{};
  std::chrono::milliseconds scrollDelay{};
  /// The application that shows the home screen.
  std::string home;
  std::map<std::string, ApplicationDescription> applications;
};

}  // namespace quobrak::simulator
