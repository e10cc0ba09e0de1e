#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/uiautomation/XCTestCase.h"

namespace quobrak {

/// Commands that scroll and swipe. Directions are those in which the screen travels over the content: a downward swipe
/// moves the finger up and brings what is below into view. Places are percent of the application's frame from its
/// top-left corner; beyond 0 to 100 they lie outside. All throw `FWKTError::fdslError` where no application was
/// started.
class Scroll : public XCTestCase {
 public:
  Scroll() = delete;

  // One swipe over the first scroll view. Throws where there is none.

  static void scrollDownward();
  static void scrollUpward();
  static void scrollLeftward();
  static void scrollRightward();

  /// Drags from (percX, percStartY) to (percX, percEndY), without holding first.
  static void swipeVertical(std::int64_t percStartY, std::int64_t percEndY, std::int64_t percX);

  /// Drags from (percStartX, percY) to (percEndX, percY), without holding first.
  static void swipeHorizontal(std::int64_t percStartX, std::int64_t percEndX, std::int64_t percY);

  /// Drags from percStartY to 20 % of the height.
  static void swipeDownward(std::int64_t percX, std::int64_t percStartY);

  /// Drags from percStartY to 80 % of the height.
  static void swipeUpward(std::int64_t percX, std::int64_t percStartY);

  /// Drags from 20 % to 80 % of the width.
  static void swipeLeftward(std::int64_t percY);

  /// Drags from 80 % to 20 % of the width.
  static void swipeRightward(std::int64_t percY);

  /// Swipes, with a pause of a second behind each swipe, until the first enabled element whose label, identifier or
  /// placeholder contains the selector, in any case, can be hit: at most `maxSwipe` times, and never more than 30. The
  /// element is looked for before each swipe, so it must be in the element tree from the start. Throws where it could
  /// not be hit before the last swipe. Fatal where `maxSwipe` is below 1, and where a search fails.
  static void swipeDownwardToText(std::string_view selector, std::int64_t maxSwipe, std::int64_t percX);

  /// The same upward.
  static void swipeUpwardToText(std::string_view selector, std::int64_t maxSwipe, std::int64_t percX);

  /// The most swipes that are made to a text, whatever `maxSwipe` is.
  static constexpr std::int64_t MOST_SWIPES = 30;

  /// What a swipe to a text stops the process with for that `maxSwipe`; none where it can be used.
  static std::optional<std::string> maxSwipeFault(std::int64_t maxSwipe);

  /// What a swipe to a text stops the process with where its search raises `reason`.
  static std::string failedSearchMessage(std::string_view selector, std::string_view reason);
};

}  // namespace quobrak
