#include "phoneserver/Alerts.h"

#include <algorithm>

#include "drivers/simulator/HitTest.h"
#include "phoneserver/ClassChain.h"
#include "phoneserver/ClassChainEvaluator.h"
#include "phoneserver/Targets.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

bool isAlert(const Element& element) {
  return element.type == ElementType::alert || element.type == ElementType::sheet;
}

}  // namespace

Alert Alert::required(ServedPhone& served, ServedPhone::Binding binding) {
  const Element* inFront = nullptr;
  forEachDescendant(served.activeScreen(binding), [&inFront](const Element& element) {
    if (isAlert(element)) {
      inFront = &element;
    }
  });
  if (inFront == nullptr) {
    throw WireError(WireErrorCode::noSuchAlert, "no alert is up in the application " +
                                                    served.activeApplication(binding) + ", which is looked into");
  }
  return {served, *inFront};
}

std::string Alert::text() const {
  std::string lines;
  forEachDescendant(element_, [&lines](const Element& element) {
    if (element.type == ElementType::staticText) {
      lines += (lines.empty() ? "" : "\n") + element.label;
    }
  });
  return lines.empty() ? element_.label : lines;
}

Alert::Elements Alert::buttons() const {
  Elements buttons;
  forEachDescendant(element_, [&buttons](const Element& element) {
    if (element.type == ElementType::button) {
      buttons.push_back(&element);
    }
  });
  return buttons;
}

std::vector<std::string> Alert::buttonLabels() const {
  std::vector<std::string> labels;
  for (const Element* button : buttons()) {
    labels.push_back(button->label);
  }
  return labels;
}

void Alert::press(const std::string& label) const {
  const Elements candidates = buttons();
  const auto button = std::find_if(candidates.begin(), candidates.end(),
                                   [&label](const Element* candidate) { return candidate->label == label; });
  if (button == candidates.end()) {
    std::string labels;
    for (const std::string& known : buttonLabels()) {
      labels += (labels.empty() ? "\"" : ", \"") + known + "\"";
    }
    throw WireError(WireErrorCode::invalidElementState,
                    "the alert has no button \"" + label + "\"; it has " + (labels.empty() ? "none" : labels));
  }
  touch(**button);
}

void Alert::accept() const {
  pressUsual("acceptAlertButtonSelector", element_.type == ElementType::sheet ? Side::first : Side::last);
}

void Alert::dismiss() const {
  pressUsual("dismissAlertButtonSelector", element_.type == ElementType::sheet ? Side::last : Side::first);
}

void Alert::pressUsual(std::string_view selectorSetting, Side side) const {
  Elements candidates;
  const std::string selector = served_.session() ? served_.session()->settings.text(selectorSetting) : std::string();
  if (!selector.empty()) {
    candidates = elementsOfChain(scopeOf(served_, element_), readClassChain(selector));
  }
  if (!candidates.empty()) {
    touch(*candidates.front());
    return;
  }
  candidates = buttons();
  if (candidates.empty()) {
    throw WireError(WireErrorCode::invalidElementState, "the alert has no button");
  }
  touch(*(side == Side::first ? candidates.front() : candidates.back()));
}

void Alert::touch(const Element& button) const {
  if (const std::optional<Point> point = simulator::hitPoint(button)) {
    served_.phone().touch(*point, Seconds::zero());
  }
}

}  // namespace quobrak::phoneserver
