#pragma once

#include <memory>
#include <string_view>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/PageSourceError.h"

namespace quobrak::simulator {

/// Reads a page source, the XML in which UI-automation servers describe a screen. The root of the tree is an
/// Application: a page that has none gets one of the screen's size. `name` stands for identifier and label: the
/// identifier is `name` where it differs from the label; an attribute `identifier` overrides it. An element without
/// `enabled` is enabled unless its traits say NotEnabled; one without `selected` is selected where its traits say so
/// or, where it has none, as a Button of value 1. `background="#1E90FF"` is a colour that no server gives. Of what is
/// not `visible`, `hideInvisible` decides what is hidden. A number or truth value that is left empty is as good as left
/// out. Throws `PageSourceError`, with all that is wrong.
std::unique_ptr<Element> readPageSource(std::string_view xml, Size screen);

}  // namespace quobrak::simulator
