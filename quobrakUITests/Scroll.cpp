#include "quobrakUITests/Scroll.h"

#include <algorithm>
#include <exception>
#include <functional>

#include "platform/foundation/FatalError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/Parameters.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

/// Percent of the height or the width at which swipes end, and at which horizontal ones start.
constexpr std::int64_t NEAR_END = 20;
constexpr std::int64_t FAR_END = 80;

/// Milliseconds in which what a swipe set going comes to rest.
constexpr std::int64_t REST_AFTER_SWIPE = 1000;

void swipeFirstScrollView(SwipeDirection direction) {
  const XCUIElement scrollView = TestContext::shared().getTestingApp().scrollViews().firstMatch();
  if (!scrollView.exists()) {
    throw FWKTError::fdslError("No scrollable view");
  }
  scrollView.swipe(direction);
}

struct PercentPoint {
  std::int64_t x;
  std::int64_t y;
};

XCUICoordinate coordinateAt(const XCUIApplication& app, PercentPoint point) {
  return app.coordinate({static_cast<double>(point.x) / 100.0, static_cast<double>(point.y) / 100.0});
}

void drag(PercentPoint from, PercentPoint to) {
  const XCUIApplication app = TestContext::shared().getTestingApp();
  coordinateAt(app, from).pressThenDrag(Seconds::zero(), coordinateAt(app, to));
}

/// The search of a text that has to be there.
XCUIElement findOrStop(std::string_view selector) {
  try {
    return Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = false});
  } catch (const std::exception& error) {
    fatalError(Scroll::failedSearchMessage(selector, error.what()));
  }
}

void swipeToText(std::string_view selector, std::int64_t maxSwipe, const std::function<void()>& swipe) {
  if (const std::optional<std::string> fault = Scroll::maxSwipeFault(maxSwipe)) {
    fatalError(*fault);
  }
  for (std::int64_t swipes = std::min(maxSwipe, Scroll::MOST_SWIPES); swipes > 0; --swipes) {
    if (findOrStop(selector).isHittable()) {
      return;
    }
    swipe();
    Device::pause(REST_AFTER_SWIPE);
  }
  throw FWKTError::fdslError("The selector " + std::string(selector) + " has not been found after the swipe");
}

}  // namespace

// Content follows the finger, so the finger goes the other way.

void Scroll::scrollDownward() {
  swipeFirstScrollView(SwipeDirection::up);
}

void Scroll::scrollUpward() {
  swipeFirstScrollView(SwipeDirection::down);
}

void Scroll::scrollLeftward() {
  swipeFirstScrollView(SwipeDirection::right);
}

void Scroll::scrollRightward() {
  swipeFirstScrollView(SwipeDirection::left);
}

void Scroll::swipeVertical(std::int64_t percStartY, std::int64_t percEndY, std::int64_t percX) {
  drag({.x = percX, .y = percStartY}, {.x = percX, .y = percEndY});
}

void Scroll::swipeHorizontal(std::int64_t percStartX, std::int64_t percEndX, std::int64_t percY) {
  drag({.x = percStartX, .y = percY}, {.x = percEndX, .y = percY});
}

void Scroll::swipeDownward(std::int64_t percX, std::int64_t percStartY) {
  swipeVertical(percStartY, NEAR_END, percX);
}

void Scroll::swipeUpward(std::int64_t percX, std::int64_t percStartY) {
  swipeVertical(percStartY, FAR_END, percX);
}

void Scroll::swipeLeftward(std::int64_t percY) {
  swipeHorizontal(NEAR_END, FAR_END, percY);
}

void Scroll::swipeRightward(std::int64_t percY) {
  swipeHorizontal(FAR_END, NEAR_END, percY);
}

void Scroll::swipeDownwardToText(std::string_view selector, std::int64_t maxSwipe, std::int64_t percX) {
  swipeToText(selector, maxSwipe, [percX] { swipeDownward(percX, DEFAULT_HIGH_COORDINATE); });
}

void Scroll::swipeUpwardToText(std::string_view selector, std::int64_t maxSwipe, std::int64_t percX) {
  swipeToText(selector, maxSwipe, [percX] { swipeUpward(percX, DEFAULT_LOW_COORDINATE); });
}

std::optional<std::string> Scroll::maxSwipeFault(std::int64_t maxSwipe) {
  if (maxSwipe >= 1) {
    return std::nullopt;
  }
  return "Range requires lowerBound <= upperBound: maxSwipe is " + std::to_string(maxSwipe) +
         ", but must be at least 1";
}

std::string Scroll::failedSearchMessage(std::string_view selector, std::string_view reason) {
  return "Unexpectedly raised an error: the search for " + std::string(selector) +
         " before a swipe: " + std::string(reason);
}

}  // namespace quobrak
