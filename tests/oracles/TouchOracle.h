#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/uiautomation/Geometry.h"
#include "tests/oracles/PageFacts.h"

namespace quobrak::oracles {

enum class Touchability { touchable, untouchable, undecided };

/// Which elements of a page source can be touched, by its rectangles: an element can where part of it is on the screen
/// and in all that clips it, and no later element, save those in it, takes touches at the middle of that part.
///
/// Not decided by rectangles is what depends on whether an element that the page calls invisible is there at all: the
/// element itself, where its place and what is surely in front of it do not forbid it; and what such an element alone
/// covers.
class TouchOracle {
 public:
  /// `screen` is the frame of a page that has no Application.
  TouchOracle(std::string_view pageSource, Size screen);

  /// The number of elements.
  std::size_t size() const { return elements_.size(); }

  /// Of the element at the place, from 0 in document order.
  Touchability touchabilityOf(std::size_t place) const;

 private:
  struct Placed {
    /// What is on the screen of it, and within all that clips it.
    Rect seen;
    /// Where it takes touches; nowhere where it lets them through.
    Rect taking;
    bool isVisible;
    /// The place behind the last element in it.
    std::size_t end;
  };

  std::vector<Placed> elements_;
};

}  // namespace quobrak::oracles
