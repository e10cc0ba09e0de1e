#include <unicode/regex.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>
#include <unicode/utext.h>

#include <cstdint>
#include <stdexcept>

#include "benchmarks/search/Peers.h"

namespace quobrak::benchmarks {

namespace {

void require(UErrorCode status) {
  if (U_FAILURE(status)) {
    throw std::runtime_error(u_errorName(status));
  }
}

class Folding final : public Peer {
 public:
  explicit Folding(const std::vector<ElementTexts>& elements)
      : elements_(elements), units_(CAPACITY), folded_(CAPACITY), needle_(CAPACITY) {}

  std::size_t count(const std::string& text) override {
    const std::int32_t length = fold(text, needle_);
    const auto contains = [&](const std::string& candidate) {
      const std::int32_t foldedLength = fold(candidate, folded_);
      return u_strFindFirst(folded_.data(), foldedLength, needle_.data(), length) != nullptr;
    };
    std::size_t matches = 0;
    for (const ElementTexts& element : elements_) {
      if ((contains(element.label) || contains(element.identifier) ||
           (element.placeholder && contains(*element.placeholder))) &&
          element.isEnabled) {
        ++matches;
      }
    }
    return matches;
  }

 private:
  /// Enough for every text of the screen.
  static constexpr std::int32_t CAPACITY = 1024;

  std::int32_t fold(const std::string& text, std::vector<UChar>& folded) {
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(units_.data(), CAPACITY, &length, text.data(), static_cast<std::int32_t>(text.size()), &status);
    length = u_strFoldCase(folded.data(), CAPACITY, units_.data(), length, U_FOLD_CASE_DEFAULT, &status);
    require(status);
    return length;
  }

  const std::vector<ElementTexts>& elements_;
  std::vector<UChar> units_;
  std::vector<UChar> folded_;
  std::vector<UChar> needle_;
};

class Matching final : public Peer {
 public:
  explicit Matching(const std::vector<ElementTexts>& elements) : elements_(elements) {}

  std::size_t count(const std::string& text) override {
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(text), 0, status);
    UText input = UTEXT_INITIALIZER;
    const auto matches = [&](const std::string& candidate) {
      utext_openUTF8(&input, candidate.data(), static_cast<std::int64_t>(candidate.size()), &status);
      return matcher.reset(&input).matches(status);
    };
    std::size_t found = 0;
    for (const ElementTexts& element : elements_) {
      if ((matches(element.label) || matches(element.identifier) ||
           (element.placeholder && matches(*element.placeholder))) &&
          element.isEnabled) {
        ++found;
      }
    }
    utext_close(&input);
    require(status);
    return found;
  }

 private:
  const std::vector<ElementTexts>& elements_;
};

}  // namespace

std::unique_ptr<Peer> foldingWithICU(const std::vector<ElementTexts>& elements) {
  return std::make_unique<Folding>(elements);
}

std::unique_ptr<Peer> matchingWithICU(const std::vector<ElementTexts>& elements) {
  return std::make_unique<Matching>(elements);
}

}  // namespace quobrak::benchmarks
