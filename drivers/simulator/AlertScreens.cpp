#include "drivers/simulator/AlertScreens.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quobrak::simulator {

namespace {

/// The texts of the phone's own permission alerts, in English; the application's name stands between the halves of the
/// title.
struct PermissionTexts {
  std::string_view permission;
  std::string_view titleBeforeName;
  std::string_view titleAfterName;
  std::string_view message;
  std::array<std::string_view, 3> buttons;
};

constexpr std::array PERMISSIONS{
    PermissionTexts{
        "location", "Allow “", "” to use your location?", "", {"Allow Once", "Allow While Using App", "Don’t Allow"}},
    PermissionTexts{"camera", "“", "” Would Like to Access the Camera", "", {"Don’t Allow", "OK"}},
    PermissionTexts{"notifications",
                    "“",
                    "” Would Like to Send You Notifications",
                    "Notifications may include alerts, sounds, and icon badges. These can be configured in Settings.",
                    {"Don’t Allow", "Allow"}},
    PermissionTexts{"tracking",
                    "Allow “",
                    "” to track your activity across other companies’ apps and websites?",
                    "",
                    {"Ask App Not to Track", "Allow"}},
};

// In points, as on the phone.
constexpr double CARD_WIDTH = 270;
constexpr double MARGIN = 16;
constexpr double TITLE_HEIGHT = 66;
constexpr double MESSAGE_HEIGHT = 54;
constexpr double BUTTON_HEIGHT = 44;
constexpr double SHEET_MARGIN = 8;
constexpr double SHEET_TEXT_HEIGHT = 44;
constexpr double SHEET_BUTTON_HEIGHT = 57;
constexpr double HOME_INDICATOR_HEIGHT = 34;

Element& appendTo(Element& parent, ElementType type, const std::string& label, const Rect& frame) {
  Element& element = parent.append(type);
  element.label = label;
  element.frame = frame;
  return element;
}

std::unique_ptr<Element> windowOf(Size screen) {
  auto window = std::make_unique<Element>(ElementType::window);
  window->frame = {{0, 0}, screen};
  return window;
}

void appendButtons(Element& card, const std::vector<std::string>& labels, double top) {
  const bool areSideBySide = labels.size() == 2;
  const double width = areSideBySide ? CARD_WIDTH / 2 : CARD_WIDTH;
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const double across = areSideBySide ? static_cast<double>(i) * width : 0;
    const double down = areSideBySide ? 0 : static_cast<double>(i) * BUTTON_HEIGHT;
    appendTo(card, ElementType::button, labels[i],
             {{card.frame.origin.x + across, top + down}, {width, BUTTON_HEIGHT}});
  }
}

}  // namespace

std::optional<AlertText> permissionAlert(std::string_view permission, const std::string& applicationName) {
  const auto texts = std::find_if(PERMISSIONS.begin(), PERMISSIONS.end(), [permission](const PermissionTexts& known) {
    return known.permission == permission;
  });
  if (texts == PERMISSIONS.end()) {
    return std::nullopt;
  }
  AlertText alert{.title = std::string(texts->titleBeforeName) + applicationName + std::string(texts->titleAfterName),
                  .message = std::string(texts->message),
                  .buttons = {}};
  for (const std::string_view button : texts->buttons) {
    if (!button.empty()) {
      alert.buttons.emplace_back(button);
    }
  }
  return alert;
}

std::string knownPermissions() {
  std::string names;
  for (const PermissionTexts& known : PERMISSIONS) {
    names += (names.empty() ? "\"" : ", \"") + std::string(known.permission) + "\"";
  }
  return names;
}

std::unique_ptr<Element> alertWindow(const AlertText& alert, Size screen) {
  const bool areSideBySide = alert.buttons.size() == 2;
  const double buttonsHeight = BUTTON_HEIGHT * (areSideBySide ? 1 : static_cast<double>(alert.buttons.size()));
  const double messageHeight = alert.message.empty() ? 0 : MESSAGE_HEIGHT;
  const double height = 2 * MARGIN + TITLE_HEIGHT + messageHeight + buttonsHeight;
  const Point origin{(screen.width - CARD_WIDTH) / 2, (screen.height - height) / 2};
  const double textWidth = CARD_WIDTH - 2 * MARGIN;

  std::unique_ptr<Element> window = windowOf(screen);
  Element& card = appendTo(*window, ElementType::alert, alert.title, {origin, {CARD_WIDTH, height}});
  const double titleTop = origin.y + MARGIN;
  appendTo(card, ElementType::staticText, alert.title, {{origin.x + MARGIN, titleTop}, {textWidth, TITLE_HEIGHT}});
  if (!alert.message.empty()) {
    appendTo(card, ElementType::staticText, alert.message,
             {{origin.x + MARGIN, titleTop + TITLE_HEIGHT}, {textWidth, MESSAGE_HEIGHT}});
  }
  appendButtons(card, alert.buttons, origin.y + height - buttonsHeight);
  return window;
}

std::unique_ptr<Element> sheetWindow(const AlertText& sheet, Size screen) {
  const double titleHeight = sheet.title.empty() ? 0 : SHEET_TEXT_HEIGHT;
  const double messageHeight = sheet.message.empty() ? 0 : SHEET_TEXT_HEIGHT;
  const double height = titleHeight + messageHeight + SHEET_BUTTON_HEIGHT * static_cast<double>(sheet.buttons.size());
  const Point origin{SHEET_MARGIN, screen.height - HOME_INDICATOR_HEIGHT - height};
  const double width = screen.width - 2 * SHEET_MARGIN;

  std::unique_ptr<Element> window = windowOf(screen);
  Element& card = appendTo(*window, ElementType::sheet, sheet.title, {origin, {width, height}});
  double top = origin.y;
  const auto append = [&](ElementType type, const std::string& label, double rowHeight) {
    if (!label.empty()) {
      appendTo(card, type, label, {{origin.x, top}, {width, rowHeight}});
      top += rowHeight;
    }
  };
  append(ElementType::staticText, sheet.title, SHEET_TEXT_HEIGHT);
  append(ElementType::staticText, sheet.message, SHEET_TEXT_HEIGHT);
  for (const std::string& button : sheet.buttons) {
    append(ElementType::button, button, SHEET_BUTTON_HEIGHT);
  }
  return window;
}

}  // namespace quobrak::simulator
