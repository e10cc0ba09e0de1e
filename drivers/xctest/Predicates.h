#pragma once

#import <Foundation/Foundation.h>

#include "platform/foundation/NSPredicate.h"

namespace quobrak::xctest {

/// What a predicate is evaluated over.
enum class PredicateScope {
  /// The framework's own pictures of elements, in queries. They are of elements that exist, and do not know whether
  /// these are hittable: a predicate that asks for that must not come here.
  query,
  /// `QuobrakElementAttributes`.
  attributes
};

/// The predicate as the platform's own object. It must have no fault (`predicateFault`).
///
/// Where the two would part, this says what the seam promises: CONTAINS with an empty text is false, and so is a
/// comparison of a text attribute with a truth value.
::NSPredicate* platformPredicate(const NSPredicate& predicate, PredicateScope scope);

}  // namespace quobrak::xctest
