#pragma once

#include <string>

#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

/// A handle on an application. Making one launches nothing.
class XCUIApplication : public XCUIElement {
 public:
  explicit XCUIApplication(std::string bundleIdentifier) : XCUIElement(ApplicationRoot{std::move(bundleIdentifier)}) {}

  const std::string& bundleIdentifier() const { return std::get<ApplicationRoot>(query().root()).bundleIdentifier; }

  /// Starts the application, or restarts it where it runs, and returns when it can be used.
  void launch() const;

  /// Ends the application; does nothing where it does not run.
  void terminate() const;
};

}  // namespace quobrak
