#pragma once

#include <string>

#include "platform/foundation/JSON.h"

namespace quobrak {

/// A script and the folder of its results.
struct TestFile {
  /// The whole text of the script.
  std::string script;
  /// The result folder, relative to the Documents directory.
  std::string iterationPath;

  JSONValue encode() const;
  /// Throws `DecodingError` where a key is missing or has another type.
  static TestFile decode(const JSONReader& json);

  bool operator==(const TestFile&) const = default;
};

}  // namespace quobrak
