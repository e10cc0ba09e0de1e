#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/NamedValues.h"
#include "drivers/simulator/Rule.h"
#include "platform/uiautomation/Geometry.h"

/// What a simulated phone is before it is switched on: the content of its folder, checked.
namespace quobrak::simulator {

struct ApplicationDescription {
  std::string bundleIdentifier;
  /// As shown below its icon.
  std::string name;
  std::chrono::milliseconds launchTime{};
  std::string firstScreen;
  std::map<std::string, std::unique_ptr<Element>> screens;
  /// What effects insert: the children of each are.
  std::map<std::string, std::unique_ptr<Element>> fragments;
  /// Beginnings of the addresses that open it.
  std::vector<std::string> addresses;
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
  NamedValues values;
  /// The application that shows the home screen.
  std::string home;
  std::map<std::string, ApplicationDescription> applications;
};

}  // namespace quobrak::simulator
