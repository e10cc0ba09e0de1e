#include "host/phone/ElementWords.h"

#include <array>
#include <charconv>
#include <cmath>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

using simulator::Element;

namespace {

std::string quoted(std::string_view text) {
  return "'" + shown(text) + "'";
}

}  // namespace

std::string nameOf(const Element& element) {
  const std::string type(nameOf(element.type));
  if (!element.label.empty()) {
    return type + " \"" + shown(element.label) + "\"";
  }
  return element.identifier.empty() ? type : type + " " + quoted(element.identifier);
}

std::string describe(const Element& element, const std::string& remarks) {
  std::string text(nameOf(element.type));
  text += remarks.empty() ? "" : " [" + remarks + "]";
  text += element.label.empty() ? "" : " \"" + shown(element.label) + "\"";
  text += element.identifier.empty() ? "" : " identifier " + quoted(element.identifier);
  text += element.value ? " value " + quoted(*element.value) : "";
  text += element.placeholder ? " placeholder " + quoted(*element.placeholder) : "";
  return text;
}

std::string placeOf(const Element& element) {
  std::string place;
  for (const Element* around = element.parent(); around != nullptr; around = around->parent()) {
    place = nameOf(*around) + (place.empty() ? "" : " > " + place);
  }
  return place;
}

std::string inPoints(double points) {
  if (!std::isfinite(points)) {
    return points > 0 ? "inf" : points < 0 ? "-inf" : "nan";
  }
  constexpr int ONE_DECIMAL = 1;
  // The largest double has 309 digits before the point.
  std::array<char, 320> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), points, std::chars_format::fixed,
                                     std::trunc(points) == points ? 0 : ONE_DECIMAL);
  return {digits.data(), written.ptr};
}

std::string describe(const Rect& frame) {
  return inPoints(frame.origin.x) + ", " + inPoints(frame.origin.y) + ", " + inPoints(frame.size.width) + " x " +
         inPoints(frame.size.height);
}

}  // namespace quobrak::host
