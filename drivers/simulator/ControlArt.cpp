// What is tapped, switched and slid.

#include "drivers/simulator/ElementArt.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace quobrak::simulator::painting {
namespace {

bool isOn(const Element& element) {
  return element.value == "1" || element.value == "true";
}

void drawFilledButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  canvas.fillRounded(frame, 12, element.isEnabled ? TINT : TRACK);
  if (!hasTextBelow(element)) {
    canvas.text(element.label, inset(frame, 12, 0),
                {.color = element.isEnabled ? WHITE : Color{0.6, 0.6, 0.63},
                 .boldFrom = ALWAYS_BOLD,
                 .alignment = Alignment::CENTER});
  }
}

void drawCardButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  canvas.fill({frame.origin, {frame.size.width, HAIRLINE}}, SEPARATOR);
  if (frame.origin.x > cardAround(element)->frame.origin.x + 1) {
    canvas.fill({frame.origin, {HAIRLINE, frame.size.height}}, SEPARATOR);
  }
  if (!hasTextBelow(element)) {
    canvas.text(element.label, inset(frame, 8, 0), {.color = inkOf(element, TINT), .alignment = Alignment::CENTER});
  }
}

void drawBackButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double CHEVRON_ROOM = 16;
  const Color ink = inkOf(element, TINT);
  const bool isMirrored = readsRightToLeft(element);
  const double tip = isMirrored ? frame.size.width - 2 : 2;
  drawChevron(canvas, {frame.origin.x + tip, centre(frame).y}, 17, isMirrored, ink);
  canvas.text(element.label, isMirrored ? between(frame, 0, CHEVRON_ROOM) : between(frame, CHEVRON_ROOM, 0),
              {.color = ink});
}

bool isBackButton(const Element& element) {
  return isWithin(element, ElementType::navigationBar) &&
         (element.label == "Back" || element.identifier == "BackButton");
}

// A button too small for its words shows a sign: a disc with their first character.
void drawSignButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  const Color ink = inkOf(element, TINT);
  const double radius = std::min({frame.size.width, frame.size.height, 30.0}) / 2;
  canvas.fillCircle(centre(frame), radius, {ink.red, ink.green, ink.blue, 0.14});
  canvas.text(firstCharacter(element.label), inset(frame, 1, 1),
              {.size = std::max(radius * 1.1, 8.0), .smallestSize = 6, .color = ink, .alignment = Alignment::CENTER});
}

void drawPlainButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double NARROWEST_FOR_WORDS = 34;
  if (hasTextBelow(element) || contains(element, ElementType::image)) {
    return;
  }
  if (element.label == "chevron") {
    const bool isMirrored = element.parent() != nullptr && readsRightToLeft(*element.parent());
    const double tip = centre(frame).x + (isMirrored ? -3 : 3);
    drawChevron(canvas, {tip, centre(frame).y}, 12, !isMirrored, {0.75, 0.75, 0.78});
    return;
  }
  if (frame.size.width < NARROWEST_FOR_WORDS && firstCharacter(element.label) != element.label) {
    drawSignButton(canvas, element, frame);
    return;
  }
  if (element.isSelected) {
    canvas.fillRounded(frame, 8, {TINT.red, TINT.green, TINT.blue, 0.15});
  }
  canvas.text(element.label, frame,
              {.size = std::clamp(frame.size.height / 1.2, 10.0, 16.0),
               .smallestSize = 9,
               .color = inkOf(element, TINT),
               .wraps = true,
               .alignment = Alignment::CENTER});
}

void drawSegment(const Canvas& canvas, const Element& element, const Rect& frame) {
  if (element.isSelected || isOn(element)) {
    canvas.fillRounded(inset(frame, 2, 2), 7, {0.80, 0.80, 0.82});
    canvas.fillRounded(inset(frame, 2.4, 2.4), 7, WHITE);
  }
  canvas.text(element.label, inset(frame, 4, 0),
              {.size = 13, .smallestSize = 9, .color = inkOf(element, BLACK), .alignment = Alignment::CENTER});
}

void drawButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  if (isWithin(element, ElementType::tabBar)) {
    drawingOf(ElementType::tab)(canvas, element, frame);
  } else if (isWithin(element, ElementType::keyboard)) {
    drawingOf(ElementType::key)(canvas, element, frame);
  } else if (isWithin(element, ElementType::segmentedControl)) {
    drawSegment(canvas, element, frame);
  } else if (isBackButton(element)) {
    drawBackButton(canvas, element, frame);
  } else if (cardAround(element) != nullptr) {
    drawCardButton(canvas, element, frame);
  } else if (isFilledButton(element)) {
    drawFilledButton(canvas, element, frame);
  } else {
    drawPlainButton(canvas, element, frame);
  }
}

void drawMenuItem(const Canvas& canvas, const Element& element, const Rect& frame) {
  canvas.fill({{frame.origin.x, frame.origin.y + frame.size.height - HAIRLINE}, {frame.size.width, HAIRLINE}},
              SEPARATOR);
  if (!hasTextBelow(element)) {
    canvas.text(element.label, inset(frame, 12, 0), {.color = inkOf(element, BLACK)});
  }
}

void drawPopUpButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  const Color ink = inkOf(element, TINT);
  const Point middle{frame.origin.x + frame.size.width - 12, centre(frame).y};
  canvas.fillRounded(frame, 8, FIELD_FILL);
  canvas.strokePath({{middle.x - 4, middle.y - 3}, {middle.x, middle.y - 7}, {middle.x + 4, middle.y - 3}}, 1.6, ink);
  canvas.strokePath({{middle.x - 4, middle.y + 3}, {middle.x, middle.y + 7}, {middle.x + 4, middle.y + 3}}, 1.6, ink);
  canvas.text(element.value.value_or(element.label), between(frame, 10, 24), {.color = ink});
}

void drawSwitch(const Canvas& canvas, const Element& element, const Rect& frame) {
  const double width = std::min(frame.size.width, 51.0);
  const double height = std::min({frame.size.height, 31.0, width});
  const Point middle = centre(frame);
  // A switch of a whole row's width has its knob at the row's end.
  const double right = frame.size.width > 2 * width ? frame.origin.x + frame.size.width - 16 : middle.x + width / 2;
  const Color on = element.isEnabled ? GREEN : Color{0.68, 0.90, 0.73};
  canvas.fillRounded({{right - width, middle.y - height / 2}, {width, height}}, height / 2, isOn(element) ? on : TRACK);
  const double knob = isOn(element) ? right - height / 2 : right - width + height / 2;
  canvas.fillCircle({knob, middle.y + 0.7}, height / 2 - 1.6, {0, 0, 0, 0.12});
  canvas.fillCircle({knob, middle.y}, height / 2 - 2, element.isEnabled ? WHITE : Color{0.96, 0.96, 0.96});
}

void drawTrack(const Canvas& canvas, const Rect& frame, double thickness, double fraction, const Color& color) {
  const Rect track{{frame.origin.x, centre(frame).y - thickness / 2}, {frame.size.width, thickness}};
  canvas.fillRounded(track, thickness / 2, TRACK);
  if (fraction > 0) {
    canvas.fillRounded({track.origin, {track.size.width * fraction, thickness}}, thickness / 2, color);
  }
}

void drawSlider(const Canvas& canvas, const Element& element, const Rect& frame) {
  const double radius = std::min({13.0, frame.size.height / 2 - 1, frame.size.width / 2});
  const double fraction = fractionOf(element.value.value_or(""));
  const Rect travel = inset(frame, std::max(radius, 0.0), 0);
  drawTrack(canvas, travel, 4, fraction, inkOf(element, TINT));
  if (radius > 1) {
    const Point knob{travel.origin.x + travel.size.width * fraction, centre(frame).y};
    canvas.fillCircle(knob, radius, {0.80, 0.80, 0.82});
    canvas.fillCircle(knob, radius - 0.5, WHITE);
  }
}

void drawProgress(const Canvas& canvas, const Element& element, const Rect& frame) {
  const double thickness = std::min(frame.size.height, 5.0);
  drawTrack(canvas, frame, thickness, fractionOf(element.value.value_or("")), inkOf(element, TINT));
}

void drawActivity(const Canvas& canvas, const Element&, const Rect& frame) {
  constexpr int SPOKES = 8;
  const double radius = std::min({frame.size.width, frame.size.height, 40.0}) / 2;
  const Point middle = centre(frame);
  for (int number = 0; number < SPOKES; ++number) {
    const double angle = 2 * std::numbers::pi * number / SPOKES - std::numbers::pi / 2;
    const double shade = 0.45 + 0.05 * number;
    canvas.strokePath({{middle.x + std::cos(angle) * radius * 0.45, middle.y + std::sin(angle) * radius * 0.45},
                       {middle.x + std::cos(angle) * radius * 0.85, middle.y + std::sin(angle) * radius * 0.85}},
                      radius / 5, {shade, shade, shade});
  }
}

void drawSegmentedControl(const Canvas& canvas, const Element& element, const Rect& frame) {
  canvas.fillRounded(frame, 9, TRACK);
  if (element.children().empty()) {
    canvas.text(element.value.value_or(element.label), inset(frame, 8, 0),
                {.size = 13, .color = inkOf(element, BLACK), .alignment = Alignment::CENTER});
  }
}

// The numbers in a page indicator's value, "page 2 of 5".
std::vector<int> numbersIn(std::string_view text) {
  std::vector<int> numbers;
  for (const char* at = text.data(); at < text.data() + text.size();) {
    int number = 0;
    const auto result = std::from_chars(at, text.data() + text.size(), number);
    if (result.ec == std::errc()) {
      numbers.push_back(number);
    }
    at = result.ptr == at ? at + 1 : result.ptr;
  }
  return numbers;
}

void drawPageIndicator(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr int MOST_DOTS = 20;
  constexpr double DISTANCE = 16;
  const std::vector<int> numbers = numbersIn(element.value.value_or(""));
  const int pages = numbers.size() == 2 ? std::clamp(numbers[1], 1, MOST_DOTS) : 1;
  const int current = numbers.size() == 2 ? numbers[0] : 1;
  const Point middle = centre(frame);
  for (int page = 1; page <= pages; ++page) {
    const double x = middle.x + DISTANCE * (page - (pages + 1) / 2.0);
    canvas.fillCircle({x, middle.y}, 3.8, page == current ? Color{0.25, 0.25, 0.28} : Color{0.72, 0.72, 0.75});
  }
}

void drawStepper(const Canvas& canvas, const Element& element, const Rect& frame) {
  const Color ink = inkOf(element, BLACK);
  const Point middle = centre(frame);
  const double quarter = frame.size.width / 4;
  canvas.fillRounded(frame, 8, TRACK);
  canvas.strokePath({{middle.x, middle.y - 8}, {middle.x, middle.y + 8}}, 0.8, {0.7, 0.7, 0.73});
  canvas.strokePath({{middle.x - quarter - 6, middle.y}, {middle.x - quarter + 6, middle.y}}, 1.7, ink);
  canvas.strokePath({{middle.x + quarter - 6, middle.y}, {middle.x + quarter + 6, middle.y}}, 1.7, ink);
  canvas.strokePath({{middle.x + quarter, middle.y - 6}, {middle.x + quarter, middle.y + 6}}, 1.7, ink);
}

constexpr double MARK_ROOM = 28;

void drawMarkLabel(const Canvas& canvas, const Element& element, const Rect& frame) {
  if (!hasTextBelow(element)) {
    canvas.text(element.label, between(frame, MARK_ROOM, 0), {.color = inkOf(element, BLACK)});
  }
}

void drawRadioButton(const Canvas& canvas, const Element& element, const Rect& frame) {
  const Point mark{frame.origin.x + 11, centre(frame).y};
  const bool isChosen = element.isSelected || isOn(element);
  canvas.strokeCircle(mark, 10, 1.6, inkOf(element, isChosen ? TINT : SECONDARY_TEXT));
  if (isChosen) {
    canvas.fillCircle(mark, 5.5, inkOf(element, TINT));
  }
  drawMarkLabel(canvas, element, frame);
}

void drawCheckBox(const Canvas& canvas, const Element& element, const Rect& frame) {
  const Point middle{frame.origin.x + 11, centre(frame).y};
  const Rect box{{middle.x - 10, middle.y - 10}, {20, 20}};
  if (element.isSelected || isOn(element)) {
    canvas.fillRounded(box, 5, inkOf(element, TINT));
    canvas.strokePath({{middle.x - 5, middle.y}, {middle.x - 1.5, middle.y + 4}, {middle.x + 5, middle.y - 4.5}}, 2,
                      WHITE);
  } else {
    canvas.strokeRounded(box, 5, 1.6, inkOf(element, SECONDARY_TEXT));
  }
  drawMarkLabel(canvas, element, frame);
}

void drawWheel(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double BAND = 34;
  const double height = std::min(BAND, frame.size.height);
  const Rect band{{frame.origin.x + 4, centre(frame).y - height / 2}, {std::max(frame.size.width - 8, 0.0), height}};
  canvas.fillRounded(band, 8, FIELD_FILL);
  canvas.text(element.value.value_or(element.label), inset(band, 6, 0),
              {.size = 18, .color = inkOf(element, BLACK), .alignment = Alignment::CENTER});
}

constexpr Art ROWS[] = {
    {ElementType::button, drawButton},
    {ElementType::toolbarButton, drawPlainButton},
    {ElementType::menuButton, drawPopUpButton},
    {ElementType::popUpButton, drawPopUpButton},
    {ElementType::menuItem, drawMenuItem},
    {ElementType::switchControl, drawSwitch},
    {ElementType::toggle, drawSwitch},
    {ElementType::slider, drawSlider},
    {ElementType::progressIndicator, drawProgress},
    {ElementType::levelIndicator, drawProgress},
    {ElementType::activityIndicator, drawActivity},
    {ElementType::segmentedControl, drawSegmentedControl},
    {ElementType::pageIndicator, drawPageIndicator},
    {ElementType::stepper, drawStepper},
    {ElementType::radioButton, drawRadioButton},
    {ElementType::checkBox, drawCheckBox},
    {ElementType::pickerWheel, drawWheel},
    {ElementType::datePicker, drawWheel},
};

}  // namespace

std::span<const Art> controlArt() {
  return ROWS;
}

}  // namespace quobrak::simulator::painting
