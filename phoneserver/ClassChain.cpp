#include "phoneserver/ClassChain.h"

#include <charconv>
#include <string>
#include <utility>

#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::phoneserver {

namespace {

bool isBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

class ChainReader {
 public:
  explicit ChainReader(std::string_view chain) : chain_(chain) {}

  std::vector<ChainSegment> read() {
    std::vector<ChainSegment> segments;
    bool isFirst = true;
    skipBlanks();
    while (isFirst || position_ < chain_.size()) {
      segments.push_back(segment(isFirst));
      isFirst = false;
      skipBlanks();
    }
    return segments;
  }

 private:
  ChainSegment segment(bool isFirst) {
    ChainSegment segment;
    const bool isSeparated = accept("/");
    segment.takesDescendants = accept("**/");
    if (!isFirst && !isSeparated) {
      fail("\"/\" before the next element type, or the end");
    }
    segment.type = type();
    while (accept("[")) {
      bracket(segment);
    }
    return segment;
  }

  ElementType type() {
    if (accept("*")) {
      return ElementType::any;
    }
    std::size_t end = position_;
    while (end < chain_.size() && chain_[end] != '/' && chain_[end] != '[' && !isBlank(chain_[end])) {
      ++end;
    }
    const std::optional<ElementType> found = typeOfWireName(chain_.substr(position_, end - position_));
    if (!found) {
      fail("an element type such as XCUIElementTypeButton, or *");
    }
    position_ = end;
    return *found;
  }

  /// Behind its opening bracket.
  void bracket(ChainSegment& segment) {
    if (segment.position) {
      fail("nothing more in brackets behind the position");
    }
    if (accept("`")) {
      segment.predicates.push_back({readPredicate(enclosed('`')), false});
    } else if (accept("$")) {
      segment.predicates.push_back({readPredicate(enclosed('$')), true});
    } else {
      segment.position = number();
    }
    if (!accept("]")) {
      fail("]");
    }
  }

  /// What stands up to the mark; the mark itself is doubled in it.
  std::string enclosed(char mark) {
    std::string text;
    while (position_ < chain_.size()) {
      const char character = chain_[position_++];
      const bool isDoubled = position_ < chain_.size() && chain_[position_] == mark;
      if (character == mark && !isDoubled) {
        return text;
      }
      position_ += character == mark ? 1U : 0U;
      text += character;
    }
    fail(std::string(1, mark) + " to close the predicate");
  }

  int number() {
    int value{};
    const char* const begin = chain_.data() + position_;
    const auto [parsedTo, error] = std::from_chars(begin, chain_.data() + chain_.size(), value);
    if (error != std::errc{} || value == 0) {
      fail("`, $ or a position that is not 0");
    }
    position_ += static_cast<std::size_t>(parsedTo - begin);
    return value;
  }

  void skipBlanks() {
    while (position_ < chain_.size() && isBlank(chain_[position_])) {
      ++position_;
    }
  }

  bool accept(std::string_view sign) {
    const bool isThere = chain_.substr(position_).starts_with(sign);
    position_ += isThere ? sign.size() : 0;
    return isThere;
  }

  [[noreturn]] void fail(std::string_view expected) const {
    const std::string found =
        position_ < chain_.size() ? "\"" + std::string(chain_.substr(position_)) + "\"" : "the end";
    throw WireError(WireErrorCode::invalidSelector,
                    "column " + std::to_string(characterCount(chain_.substr(0, position_)) + 1) + ": expected " +
                        std::string(expected) + ", found " + found + " in the class chain: " + std::string(chain_));
  }

  std::string_view chain_;
  std::size_t position_ = 0;
};

}  // namespace

std::vector<ChainSegment> readClassChain(std::string_view chain) {
  return ChainReader(chain).read();
}

NSPredicate readPredicate(std::string_view format) {
  try {
    return NSPredicate(format);
  } catch (const PredicateFormatError& error) {
    throw WireError(WireErrorCode::unknownError, error.what());
  }
}

}  // namespace quobrak::phoneserver
