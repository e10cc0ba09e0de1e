#pragma once

#include <cstddef>
#include <string>

#include "platform/uiautomation/Geometry.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::oracles {

/// The screen of the phone that shows pages. The application of a captured page has the frame of its own screen.
inline constexpr Size SCREEN{402, 874};

/// The frames of the elements of a shown page.
enum class Frames {
  asWritten,
  /// In place of its frame each element has its place in the page, by which `placeOf` tells which one was found.
  /// Searches do not look at frames.
  places,
};

/// A simulated phone that shows a page source, installed for the system on virtual time: its application is started
/// and the one that commands act on. One at a time.
class ShownPage {
 public:
  explicit ShownPage(const std::string& pageSource, Frames frames = Frames::asWritten);
  ~ShownPage();
  ShownPage(const ShownPage&) = delete;
  ShownPage& operator=(const ShownPage&) = delete;

  const XCUIApplication& application() const { return application_; }
  /// The element at the place, from 0 in document order; not the application.
  XCUIElement element(std::size_t place) const;

 private:
  XCUIApplication application_;
};

/// The place of an element of a page with `Frames::places`.
std::size_t placeOf(const XCUIElement& element);

}  // namespace quobrak::oracles
