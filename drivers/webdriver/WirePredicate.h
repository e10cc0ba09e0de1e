#pragma once

#include <stdexcept>
#include <variant>

#include "platform/foundation/NSPredicate.h"

namespace quobrak::webdriver {

/// A query that cannot be asked of a server: a predicate about what elements do not have, a pattern that does not
/// compile, or a form that the protocol has no words for.
class UnaskableQuery : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws `UnaskableQuery` where the predicate asks for an attribute that elements do not have, or holds a pattern that
/// does not compile. Servers answer such questions as if nothing were found.
void requireAskable(const NSPredicate& predicate);

/// What a predicate is to a server: a predicate over the attributes that it knows, or the same answer for every
/// element.
using WirePredicate = std::variant<NSPredicate, bool>;

/// Elements have other attributes on the wire: a label that is empty is missing there, and `name` is the identifier
/// or, where that is empty, the label. What this gives holds for the very elements for which `predicate` holds. Throws
/// `UnaskableQuery`.
WirePredicate wirePredicate(const NSPredicate& predicate);

/// The elements whose identifier or label is the text.
NSPredicate wireIdentifierPredicate(const std::string& identifier);

}  // namespace quobrak::webdriver
