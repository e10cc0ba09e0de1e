#include "drivers/simulator/HiddenElements.h"

#include <iterator>
#include <map>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"

namespace quobrak::simulator {

namespace {

/// Hides what is invisible where it could be seen, whatever lies in front of it.
class Hiding {
 public:
  /// `invisible` is in document order.
  explicit Hiding(const std::vector<Element*>& invisible) : next_(invisible.begin()), end_(invisible.end()) {}

  /// `row` is the nearest cell around the element, and null where that is invisible. Answers whether the element, or
  /// anything in it, is not invisible.
  bool visit(Element& element, const Rect& clip, const Element* row) {
    const bool isInvisible = next_ != end_ && *next_ == &element;
    if (isInvisible) {
      ++next_;
    }
    const bool isRow = element.type == ElementType::cell;
    const Element* const visibleRow = isInvisible ? nullptr : &element;
    const Rect childClip = clipOfChildren(element, clip);
    bool isAnythingVisible = !isInvisible;
    for (const auto& child : element.children()) {
      isAnythingVisible = visit(*child, childClip, isRow ? visibleRow : row) || isAnythingVisible;
    }
    if (!isAnythingVisible && isInSight(intersection(element.frame, clip), row)) {
      element.isHidden = true;
      hasHidden_ = true;
    }
    return isAnythingVisible;
  }

  bool hasHidden() const { return hasHidden_; }

 private:
  /// A row answers for what it shows: its pictures and arrows are no elements of their own, which captures call
  /// invisible.
  static bool isInSight(const Rect& part, const Element* row) {
    return !isEmpty(part) && (row == nullptr || !contains(row->frame, centre(part)));
  }

  std::vector<Element*>::const_iterator next_;
  std::vector<Element*>::const_iterator end_;
  bool hasHidden_ = false;
};

/// Hides no longer what lies under something else. Nothing is covered by what cannot be seen itself.
class Uncovering {
 public:
  explicit Uncovering(const Rect& screen) : screen_(screen) {}

  void visit(Element& element, const Rect& clip) {
    if (takesTouches(element)) {
      show(touchedRegion(element, clip, screen_));
    }
    const Rect childClip = clipOfChildren(element, clip);
    for (const auto& child : element.children()) {
      visit(*child, childClip);
    }
    // What is in an element does not cover it, and all that comes from here on lies in front of it.
    if (element.isHidden) {
      const Point middle = centre(intersection(element.frame, clip));
      hidden_.emplace(middle.y, Hidden{middle, &element});
    }
  }

 private:
  struct Hidden {
    Point middle;
    Element* element;
  };

  /// Shows the hidden elements whose middle lies in the region.
  void show(const Rect& region) {
    const auto end = hidden_.lower_bound(region.origin.y + region.size.height);
    for (auto hidden = hidden_.lower_bound(region.origin.y); hidden != end;) {
      const auto& [middle, element] = hidden->second;
      const bool isUnder = contains(region, middle);
      if (isUnder) {
        element->isHidden = false;
      }
      hidden = isUnder ? hidden_.erase(hidden) : std::next(hidden);
    }
  }

  Rect screen_;
  /// By how far down they are.
  std::multimap<double, Hidden> hidden_;
};

}  // namespace

void hideInvisible(Element& root, const std::vector<Element*>& invisible) {
  constexpr const Element* NO_ROW = nullptr;
  Hiding hiding(invisible);
  hiding.visit(root, root.frame, NO_ROW);
  root.isHidden = false;
  if (hiding.hasHidden()) {
    Uncovering(root.frame).visit(root, root.frame);
  }
}

}  // namespace quobrak::simulator
