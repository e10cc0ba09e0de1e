#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quobrak {

/// A reference to a variable, "${NAME}", where NAME is made of letters, digits and "_".
struct VariableReference {
  /// The whole of it, as a part of the line that has it.
  std::string_view text;

  std::string_view name() const { return text.substr(2, text.size() - 3); }
};

/// Whether it is worth looking for references.
inline bool mayHaveReference(std::string_view line) {
  return line.find("${") != std::string_view::npos;
}

/// The reference that is replaced first in the line. The search ends after as many UTF-16 units as the line has
/// user-perceived characters: scripts rely on a reference behind many composed characters to stand as it is written.
std::optional<VariableReference> firstReference(std::string_view line);

/// The first reference of the line, whether it is replaced or too far behind.
std::optional<VariableReference> firstReferenceAnywhere(std::string_view line);

/// What is told where the variable is not set.
std::string missingVariableCause(std::string_view name);

}  // namespace quobrak
