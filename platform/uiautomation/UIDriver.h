#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/Clock.h"
#include "platform/foundation/Data.h"
#include "platform/foundation/NSPredicate.h"
#include "platform/uiautomation/Geometry.h"
#include "platform/uiautomation/XCTWaiter.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "platform/uiautomation/XCUIDevice.h"
#include "platform/uiautomation/XCUIElement.h"
#include "platform/uiautomation/XCUIElementQuery.h"

namespace quobrak {

/// Called with the alert that blocks an action; answers true when it has dealt with it.
using InterruptionHandler = std::function<bool(const XCUIElement& alert)>;

/// Names a registered handler.
enum class InterruptionMonitorToken : std::uint64_t {};

/// The seam between the system and a phone: every implementation keeps the promises of this header, and the platform's
/// classes are thin values over it. One thread calls it, one primitive at a time.
///
/// **Errors.** A primitive raises `UIAutomationError` for what it can foresee: a lost phone, a pattern that does not
/// compile, an attribute that elements do not have. Its text names the operation, the element and the driver. What the
/// platform itself records as a failure may end the test with an exception of the platform's own.
///
/// **Elements.** They are resolved anew in each primitive. Order is document order, depth first; descendants never
/// contain the element they are asked of. An identifier step compares with the identifier or the label. Where several
/// elements match a single-match pick, the first one is it.
///
/// **Absent elements.** Questions about an element that is not there do not raise: it does not exist, is not hittable,
/// has an empty label and identifier, no value and a zero frame. Acting on it raises `UIAutomationError`. An
/// application that does not run has no elements and does not exist itself.
///
/// **Predicates** see the attributes `label`, `identifier`, `placeholderValue`, `value` (texts, or no value),
/// `enabled`, `selected`, `exists` and `hittable` (truth values); another key raises.
///
/// **Interruptions.** Every acting primitive first deals with an alert of the system process that is up: the handlers
/// are asked, last registered first, until one answers true; then it acts. Where none does, the touch lands on the
/// alert. What acts on the alert itself, or on something in it, is not interrupted by it. An alert of the system
/// process does not make another application's element unhittable. Questions, waits and device primitives never call
/// handlers, nor does an action made inside a handler.
///
/// **Cost.** What one look-up found may serve the questions and the action that follow it, until the next action, wait
/// or `forgetLookups`. So a look-up is one exchange with the phone, and the questions after it are none.
class UIDriver {
 public:
  virtual ~UIDriver() = default;

  // Applications. An application is named by its bundle identifier.

  /// Starts the application and returns when its first screen can be used; one that runs is ended first. Blocks for as
  /// long as the start takes. Raises where it is not installed.
  virtual void launch(const std::string& bundleIdentifier) = 0;

  /// Ends the application. Does nothing where it does not run or is not installed.
  virtual void terminate(const std::string& bundleIdentifier) = 0;

  // Asking. None of these blocks longer than one exchange with the phone.

  virtual std::size_t count(const XCUIElementQuery& query) = 0;
  virtual bool exists(const XCUIElement& element) = 0;
  virtual std::string label(const XCUIElement& element) = 0;
  virtual std::string identifier(const XCUIElement& element) = 0;
  virtual ElementValue value(const XCUIElement& element) = 0;

  /// In points of the screen.
  virtual Rect frame(const XCUIElement& element) = 0;

  /// Whether a touch at the element's hit point would land on it: it is on the screen, within all that clips it, and
  /// nothing of its own application covers it.
  virtual bool isHittable(const XCUIElement& element) = 0;

  // Waiting. The first check is immediate, the last one at the deadline; a time-out of 0 or less, or one that is not a
  // number, checks once; a huge one saturates. Both block the thread.

  /// `completed` as soon as the element exists, else `timedOut`.
  virtual XCTWaiterResult waitForExistence(const XCUIElement& element, Seconds timeout) = 0;

  /// `completed` as soon as the predicate holds for the element, else `timedOut`.
  virtual XCTWaiterResult waitForPredicate(const XCUIElement& element, const NSPredicate& predicate,
                                           Seconds timeout) = 0;

  // Acting on an element: at its hit point, without asking whether it is hittable.

  virtual void tap(const XCUIElement& element) = 0;

  /// Blocks for the duration; one of 0 or less, or not a number, is 0.
  virtual void press(const XCUIElement& element, Seconds duration) = 0;

  /// Types into the element, which must have the keyboard's focus or contain the element that has it; raises otherwise.
  virtual void typeText(const XCUIElement& element, std::string_view text) = 0;

  virtual void swipe(const XCUIElement& element, SwipeDirection direction) = 0;

  // Acting on a point. The element that a point is described by must exist; a point outside the screen, or one that is
  // not finite, lands on nothing, without an error.

  virtual void tap(const XCUICoordinate& point) = 0;

  /// Blocks for the duration; one of 0 or less, or not a number, is 0.
  virtual void press(const XCUICoordinate& point, Seconds duration) = 0;

  /// Holds the first point for the duration, then moves to the second and lifts: at the edge of the screen where that
  /// lies beyond it.
  virtual void pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) = 0;

  // The device.

  virtual void pressButton(XCUIDeviceButton button) = 0;

  /// The whole screen as PNG, in pixels; none where the phone gives no picture.
  virtual std::optional<Data> screenshot() = 0;

  /// The element and all below it as the platform describes them, for people. Of an application that does not run, the
  /// query chain alone.
  virtual std::string debugDescription(const XCUIElement& element) = 0;

  // Interruptions.

  virtual InterruptionMonitorToken addInterruptionMonitor(std::string_view description,
                                                          InterruptionHandler handler) = 0;

  /// Does nothing for a token that is not registered.
  virtual void removeInterruptionMonitor(InterruptionMonitorToken token) = 0;

  // Cost.

  /// Ends what one look-up may serve: a new command begins, or time has passed. No exchange with the phone.
  virtual void forgetLookups() = 0;

  /// The driver of the whole process. Fatal where none is installed.
  static UIDriver& shared();

  /// To be called once, before anything touches the phone.
  static void install(std::unique_ptr<UIDriver> driver);
};

}  // namespace quobrak
