#pragma once

#include <optional>
#include <string>

#include "platform/foundation/NSPredicate.h"

namespace quobrak::xctest {

/// What a predicate asks that no element can answer, in words: an attribute that elements do not have, a pattern that
/// does not compile. None where it can be evaluated. The platform would tell only while it evaluates, if at all.
std::optional<std::string> predicateFault(const NSPredicate& predicate);

/// Whether the predicate asks for that attribute.
bool asksFor(const NSPredicate& predicate, std::string_view attribute);

/// Whether the attribute is a truth value; the others are texts.
bool isTruthAttribute(std::string_view attribute);

}  // namespace quobrak::xctest
