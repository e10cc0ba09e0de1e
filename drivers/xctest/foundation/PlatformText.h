#pragma once

#import <Foundation/Foundation.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "drivers/xctest/Ref.h"

namespace quobrak::xctest {

/// A text as the platform's Foundation sees it, and the way back. Foundation counts UTF-16 units. Each ill-formed
/// sequence of bytes is a replacement character.
struct PlatformText {
  explicit PlatformText(std::string_view bytes);

  std::size_t length() const { return offsets.size() - 1; }

  Ref<NSString*> string;
  /// For each unit the byte at which its character begins, and last the end of the text.
  std::vector<std::size_t> offsets;
};

}  // namespace quobrak::xctest
