#include "tests/drivers/xctest/standins/Folding.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <stdexcept>

namespace quobrak::testing {

std::u16string folded(const std::u16string& text) {
  constexpr std::size_t LONGEST_FOLDING = 3;
  std::u16string result(LONGEST_FOLDING * text.size(), u'\0');
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t length = u_strFoldCase(result.data(), static_cast<std::int32_t>(result.size()), text.data(),
                                            static_cast<std::int32_t>(text.size()), U_FOLD_CASE_DEFAULT, &status);
  if (U_FAILURE(status)) {
    throw std::runtime_error(std::string("ICU does not work: ") + u_errorName(status));
  }
  result.resize(static_cast<std::size_t>(length));
  return result;
}

}  // namespace quobrak::testing
