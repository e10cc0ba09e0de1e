#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Element.h"
#include "platform/foundation/TextPlace.h"

namespace quobrak::simulator {

struct PageSourceFault {
  TextPlace place;
  std::string reason;
};

/// A page source that cannot be used: says what is wrong and at which line and column.
class PageSourceError : public std::runtime_error {
 public:
  explicit PageSourceError(std::vector<PageSourceFault> faults);
  const std::vector<PageSourceFault>& faults() const { return faults_; }

 private:
  std::vector<PageSourceFault> faults_;
};

/// Reads a page source, the XML in which UI-automation servers describe a screen. The root of the tree is an
/// Application: a page that has none gets one of the screen's size. `name` stands for identifier and label: the
/// identifier is `name` where it differs from the label; an attribute `identifier` overrides it. An element without
/// `enabled` is enabled. Of what is not `visible`, `hideInvisible` decides what is hidden. A number or truth value that
/// is left empty is as good as left out. Throws `PageSourceError`.
std::unique_ptr<Element> readPageSource(std::string_view xml, Size screen);

}  // namespace quobrak::simulator
