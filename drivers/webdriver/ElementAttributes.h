#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "drivers/webdriver/FoundElement.h"
#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::webdriver {

/// An element as predicates see it; none is an absent one. The predicate must have passed `requireAskable`.
class ElementAttributes final : public KeyValueSource {
 public:
  /// `isHittable` is asked where the predicate asks. `element` must outlive this object.
  ElementAttributes(const std::optional<FoundElement>& element, std::function<bool()> isHittable)
      : element_(element), isHittable_(std::move(isHittable)) {}

  Value valueForKey(std::string_view key) const override;

 private:
  const std::optional<FoundElement>& element_;
  std::function<bool()> isHittable_;
};

}  // namespace quobrak::webdriver
