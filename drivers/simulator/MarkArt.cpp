#include "drivers/simulator/MarkArt.h"

#include "drivers/simulator/ElementArt.h"
#include "drivers/simulator/Rectangles.h"

#include <algorithm>

namespace quobrak::simulator::painting {
namespace {

// Colours that neither the phone's own controls nor a picture of an application has much of.
constexpr Color STRONG{0.84, 0.0, 0.48};
constexpr Color FAINT{0.80, 0.47, 0.0};
constexpr double LINE_WIDTH = 2;
constexpr double HALO = 1;
constexpr double RADIUS = 3;
constexpr double WORD_SIZE = 10;
constexpr double PLATE_HEIGHT = 14;
constexpr double CHARACTER_WIDTH = 7;
constexpr double PLATE_MARGIN = 7;

/// On the upper left corner of the frame, and all of it on the screen.
Rect plateOf(const Rect& frame, const Size& screen, std::size_t length) {
  const double width = PLATE_MARGIN + CHARACTER_WIDTH * static_cast<double>(length);
  const double left = std::min(frame.origin.x - PLATE_HEIGHT / 2, screen.width - width);
  const double top = std::min(frame.origin.y - PLATE_HEIGHT / 2, screen.height - PLATE_HEIGHT);
  return {{std::max(left, 0.0), std::max(top, 0.0)}, {width, PLATE_HEIGHT}};
}

void paintMark(const Canvas& canvas, const Size& screen, const Mark& mark) {
  const Rect frame = intersection(mark.frame, {{}, screen});
  if (isEmpty(mark.frame) || isEmpty(frame)) {
    return;
  }
  const Color& color = mark.isFaint ? FAINT : STRONG;
  canvas.strokeRounded(frame, RADIUS, LINE_WIDTH + HALO, WHITE);
  canvas.strokeRounded(frame, RADIUS, LINE_WIDTH, color);
  if (mark.word.empty()) {
    return;
  }
  const Rect plate = plateOf(frame, screen, mark.word.size());
  canvas.fillRounded(plate, PLATE_HEIGHT / 2, color);
  canvas.text(mark.word, plate,
              {.size = WORD_SIZE, .color = WHITE, .boldFrom = ALWAYS_BOLD, .alignment = Alignment::CENTER});
}

}  // namespace

void paintMarks(const Canvas& canvas, const Size& screen, std::span<const Mark> marks) {
  std::for_each(marks.rbegin(), marks.rend(), [&](const Mark& mark) { paintMark(canvas, screen, mark); });
}

}  // namespace quobrak::simulator::painting
