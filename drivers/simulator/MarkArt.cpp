#include "drivers/simulator/MarkArt.h"

#include "drivers/simulator/ElementArt.h"
#include "drivers/simulator/Rectangles.h"

#include <algorithm>
#include <vector>

namespace quobrak::simulator::painting {
namespace {

// Colours that neither the phone's own controls nor a picture of an application has much of.
constexpr Color STRONG{0.84, 0.0, 0.48};
constexpr Color FAINT{0.80, 0.47, 0.0};
constexpr double LINE_WIDTH = 2;
// Sets the line off from what is dark.
constexpr double HALO = 1;
constexpr double RADIUS = 3;
constexpr double WORD_SIZE = 10;
constexpr double PLATE_HEIGHT = 14;
constexpr double CHARACTER_WIDTH = 7;
constexpr double PLATE_MARGIN = 7;

const Color& colorOf(const Mark& mark) {
  return mark.isFaint ? FAINT : STRONG;
}

bool isSeen(const Mark& mark, const Rect& screen) {
  return !isEmpty(mark.frame) && !isEmpty(intersection(mark.frame, screen));
}

/// Around the frame, so that all of it is seen, as far as the screen reaches.
Rect around(const Rect& frame, double distance, const Rect& screen) {
  const Rect wider{{frame.origin.x - distance, frame.origin.y - distance},
                   {frame.size.width + 2 * distance, frame.size.height + 2 * distance}};
  return intersection(wider, screen);
}

void paintFrame(const Canvas& canvas, const Rect& screen, const Mark& mark) {
  canvas.strokeRounded(around(mark.frame, LINE_WIDTH + HALO, screen), RADIUS + HALO, HALO, WHITE);
  canvas.strokeRounded(around(mark.frame, LINE_WIDTH, screen), RADIUS, LINE_WIDTH, colorOf(mark));
}

/// On the upper left corner of the frame, and all of it on the screen; beside the others, where there is room.
Rect plateOf(const Mark& mark, const Rect& screen, const std::vector<Rect>& others) {
  const double width = PLATE_MARGIN + CHARACTER_WIDTH * static_cast<double>(mark.word.size());
  const double farthest = std::max(screen.size.width - width, 0.0);
  const double lowest = std::max(screen.size.height - PLATE_HEIGHT, 0.0);
  Rect plate{{std::clamp(mark.frame.origin.x - PLATE_HEIGHT / 2, 0.0, farthest),
              std::clamp(mark.frame.origin.y - PLATE_HEIGHT / 2, 0.0, lowest)},
             {width, PLATE_HEIGHT}};
  for (const Rect& other : others) {
    if (!isEmpty(intersection(plate, other))) {
      plate.origin.x = std::min(other.origin.x + other.size.width, farthest);
    }
  }
  return plate;
}

}  // namespace

void paintMarks(const Canvas& canvas, const Size& screenSize, std::span<const Mark> marks) {
  const Rect screen{{}, screenSize};
  std::for_each(marks.rbegin(), marks.rend(), [&](const Mark& mark) {
    if (isSeen(mark, screen)) {
      paintFrame(canvas, screen, mark);
    }
  });
  std::vector<Rect> plates;
  for (const Mark& mark : marks) {
    if (isSeen(mark, screen) && !mark.word.empty()) {
      plates.push_back(plateOf(mark, screen, plates));
      canvas.fillRounded(plates.back(), PLATE_HEIGHT / 2, colorOf(mark));
      canvas.text(mark.word, plates.back(),
                  {.size = WORD_SIZE, .color = WHITE, .boldFrom = ALWAYS_BOLD, .alignment = Alignment::CENTER});
    }
  }
}

}  // namespace quobrak::simulator::painting
