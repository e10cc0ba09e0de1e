#import <Foundation/Foundation.h>

#include "platform/foundation/NSRegularExpression.h"

#include <chrono>
#include <utility>

#include "drivers/xctest/Ref.h"
#import "drivers/xctest/foundation/PlatformText.h"

namespace quobrak {

namespace {

using xctest::PlatformText;
using xctest::Ref;
using Expression = Ref<::NSRegularExpression*>;

/// As long as people wait for one answer. The platform reports its progress in steps of its own, so time is what there
/// is to count.
constexpr std::chrono::milliseconds TIME_LIMIT(700);

std::string named(std::string_view pattern) {
  return "the regular expression \"" + std::string(pattern) + "\"";
}

/// How many units the whole characters take that fit into that many.
NSUInteger wholeCharacters(const PlatformText& text, std::size_t limit) {
  if (limit >= text.length()) {
    return text.length();
  }
  const bool dividesACharacter = limit > 0 && text.offsets[limit] == text.offsets[limit - 1];
  return dividesACharacter ? limit - 1 : limit;
}

/// None where the pattern does not compile.
Expression compiled(std::string_view pattern) {
  // The platform takes no empty pattern.
  const PlatformText text(pattern.empty() ? "(?:)" : pattern);
  NSError* error = nil;
  return Expression([::NSRegularExpression regularExpressionWithPattern:text.string.get() options:0 error:&error]);
}

/// The pattern for a whole text. What stands behind it must not become a part of what the pattern leaves open: a
/// comment or a quotation.
Expression compiledForAWholeText(std::string_view pattern) {
  for (const char* const closing : {"", "\n", "\\E"}) {
    Expression whole = compiled("\\A(?:" + std::string(pattern) + closing + ")\\z");
    if (whole.get() != nil) {
      return whole;
    }
  }
  return {};
}

[[noreturn]] void giveUp(std::string_view pattern, const char* reason) {
  throw RegularExpressionError(named(pattern) + " was given up: " + reason);
}

}  // namespace

struct NSRegularExpression::Compiled {
  std::string text;
  Expression anywhere;
  Expression whole;
};

NSRegularExpression::NSRegularExpression(std::string_view pattern) {
  @autoreleasepool {
    compiled_ =
        std::make_unique<Compiled>(Compiled{std::string(pattern), compiled(pattern), compiledForAWholeText(pattern)});
  }
  if (compiled_->anywhere.get() == nil || compiled_->whole.get() == nil) {
    throw RegularExpressionError(named(pattern) + " cannot be read");
  }
}

NSRegularExpression::~NSRegularExpression() = default;
NSRegularExpression::NSRegularExpression(NSRegularExpression&&) noexcept = default;
NSRegularExpression& NSRegularExpression::operator=(NSRegularExpression&&) noexcept = default;

std::optional<std::string_view> NSRegularExpression::firstMatch(std::string_view text,
                                                                std::size_t searchedUTF16Units) const {
  const PlatformText searched(text);
  @autoreleasepool {
    const NSRange range = [compiled_->anywhere.get()
        rangeOfFirstMatchInString:searched.string.get()
                          options:0
                            range:NSMakeRange(0, wholeCharacters(searched, searchedUTF16Units))];
    if (range.location == NSNotFound) {
      return std::nullopt;
    }
    const std::size_t begin = searched.offsets[range.location];
    return text.substr(begin, searched.offsets[NSMaxRange(range)] - begin);
  }
}

bool NSRegularExpression::matchesWhole(std::string_view text) const {
  using std::chrono::steady_clock;
  const PlatformText searched(text);
  const steady_clock::time_point deadline = steady_clock::now() + TIME_LIMIT;
  __block bool isMatch = false;
  __block bool tookTooLong = false;
  __block bool failed = false;
  @autoreleasepool {
    [compiled_->whole.get()
        enumerateMatchesInString:searched.string.get()
                         options:NSMatchingReportProgress | NSMatchingReportCompletion
                           range:NSMakeRange(0, [searched.string.get() length])
                      usingBlock:^(NSTextCheckingResult* match, NSMatchingFlags flags, BOOL* stop) {
                        isMatch = isMatch || match != nil;
                        failed = failed || (flags & NSMatchingInternalError) != 0;
                        tookTooLong = tookTooLong ||
                                      (!isMatch && (flags & NSMatchingProgress) != 0 && steady_clock::now() > deadline);
                        *stop = isMatch || tookTooLong ? YES : NO;
                      }];
  }
  if (isMatch) {
    return true;
  }
  if (tookTooLong) {
    giveUp(compiled_->text, "it takes too long on this text");
  }
  if (failed) {
    giveUp(compiled_->text, "it backtracks too deeply on this text");
  }
  return false;
}

}  // namespace quobrak
