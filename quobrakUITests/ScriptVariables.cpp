#include "quobrakUITests/ScriptVariables.h"

#include <cstddef>
#include <limits>

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

std::optional<VariableReference> referenceWithin(std::string_view line, std::size_t searchedUTF16Units) {
  static const NSRegularExpression REFERENCE(R"(\$\{\w+\})");
  const auto found = REFERENCE.firstMatch(line, searchedUTF16Units);
  return found ? std::optional(VariableReference{*found}) : std::nullopt;
}

}  // namespace

std::optional<VariableReference> firstReference(std::string_view line) {
  return referenceWithin(line, characterCount(line));
}

std::optional<VariableReference> firstReferenceAnywhere(std::string_view line) {
  return referenceWithin(line, std::numeric_limits<std::size_t>::max());
}

std::string missingVariableCause(std::string_view name) {
  return "You need to pass the extra parameter " + std::string(name) + " to your test";
}

}  // namespace quobrak
