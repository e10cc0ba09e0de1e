#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quobrak {

/// The fields of one script line: the command's name, then its arguments, as they stand.
using FunctionParameters = std::span<const std::string_view>;

/// Milliseconds that a wait command waits.
inline constexpr std::int64_t DEFAULT_TIMEOUT_WAIT = 30000;
/// Milliseconds of a long press.
inline constexpr std::int64_t DEFAULT_DURATION_LONG_CLICK = 1000;
inline constexpr bool DEFAULT_CLICK_ONLY_IF_EXISTS = false;
/// Milliseconds between two typed characters.
inline constexpr std::int64_t DEFAULT_ENTER_TEXT_FREQUENCY = 0;
/// Milliseconds that an installation waits for the download.
inline constexpr std::int64_t DEFAULT_TIMEOUT_APP_DOWLOADING = 300000;
/// Percent of the screen: the low end of a swipe, its middle, its high end.
inline constexpr std::int64_t DEFAULT_LOW_COORDINATE = 10;
inline constexpr std::int64_t DEFAULT_MEDIUM_COORDINATE = 50;
inline constexpr std::int64_t DEFAULT_HIGH_COORDINATE = 90;
/// Swipes while searching for a text.
inline constexpr std::int64_t DEFAULT_MAX_SWIPE = 30;
inline constexpr bool DEFAULT_USE_BLANK_PAGE = false;
/// Milliseconds that a wait-then-click command waits where the click is optional.
inline constexpr std::int64_t WAIT_AND_CLICK_IF_EXISTS_TIMEOUT = 2000;
/// Milliseconds that a wait-then-click command waits where the click is required.
inline constexpr std::int64_t WAIT_AND_CLICK_TIMEOUT = 10000;
/// The rank of an element among the matches; 1 is the first.
inline constexpr std::int64_t DEFAULT_NTH_ELEMENT = 1;
inline constexpr bool DEFAULT_IS_ENABLED = true;

/// The signed 64-bit integer that the text is: an optional "+" or "-", then decimal digits and nothing else. None for
/// any other text, and for a number beyond the range.
std::optional<std::int64_t> parseInteger(std::string_view text);

/// Reads the arguments of commands. Each getter takes the fields of a line and the index of the one to read; where that
/// field is absent it answers with its default or, where it has none, raises. A field that is there but malformed, an
/// empty one too, always raises. All errors are `FWKTError::fdslError`.
class Parameters {
 public:
  Parameters() = delete;

  /// Milliseconds; `DEFAULT_TIMEOUT_WAIT` where absent.
  static std::int64_t getTimeout(FunctionParameters functionParameters, std::size_t index);
  /// Milliseconds; `DEFAULT_DURATION_LONG_CLICK` where absent.
  static std::int64_t getDuration(FunctionParameters functionParameters, std::size_t index);
  /// Milliseconds, 0 or more; required.
  static std::int64_t getPauseDuration(FunctionParameters functionParameters, std::size_t index);
  /// Percent of the screen; required.
  static std::int64_t getCoordinate(FunctionParameters functionParameters, std::size_t index);
  /// Percent of the screen; `defaultCoordinate` where absent.
  static std::int64_t getOptionalCoordinate(FunctionParameters functionParameters, std::size_t index,
                                            std::int64_t defaultCoordinate);
  /// "true" or "false", always in field 2; `DEFAULT_CLICK_ONLY_IF_EXISTS` where absent.
  static bool getClickOnlyIfExists(FunctionParameters functionParameters);
  /// Milliseconds; `DEFAULT_ENTER_TEXT_FREQUENCY` where absent.
  static std::int64_t getPeriod(FunctionParameters functionParameters, std::size_t index);
  /// Any text; required.
  static std::string getUrl(FunctionParameters functionParameters, std::size_t index);
  /// `DEFAULT_MAX_SWIPE` where absent.
  static std::int64_t getMaxSwipe(FunctionParameters functionParameters, std::size_t index);
  /// "true" or "false"; `DEFAULT_USE_BLANK_PAGE` where absent.
  static bool getUseBlankPage(FunctionParameters functionParameters, std::size_t index);
  /// `DEFAULT_NTH_ELEMENT` where absent; 0 and less pass.
  static std::int64_t getNthElement(FunctionParameters functionParameters, std::size_t index);
  /// "true" or "false"; `DEFAULT_IS_ENABLED` where absent.
  static bool getIsEnabled(FunctionParameters functionParameters, std::size_t index);
};

}  // namespace quobrak
