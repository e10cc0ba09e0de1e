#pragma once

#include <span>

#include "drivers/simulator/Canvas.h"
#include "drivers/simulator/ScreenPainter.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator::painting {

/// A frame around each mark, the first one in front, and all words before them, on plates at the upper left corners.
void paintMarks(const Canvas& canvas, const Size& screenSize, std::span<const Mark> marks);

}  // namespace quobrak::simulator::painting
