#pragma once

#include <span>

#include "drivers/simulator/Canvas.h"
#include "drivers/simulator/ScreenPainter.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator::painting {

/// A frame for each mark, with its word on a plate at the upper left corner; the first one in front.
void paintMarks(const Canvas& canvas, const Size& screen, std::span<const Mark> marks);

}  // namespace quobrak::simulator::painting
