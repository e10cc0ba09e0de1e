#pragma once

#include <memory>
#include <optional>
#include <string>

#include "drivers/simulator/Element.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator {

/// What a keyboard's keys show.
enum class KeyboardPlane { letters, capitals, numbers, symbols };

/// A Window with the phone's own keyboard for that field, along the lower edge of a screen of that size. It shows
/// letters. The return key says what it is for: Search in a search field, Go where a web page or an address is asked
/// for, else Return.
std::unique_ptr<Element> keyboardWindow(const Element& field, Size screen);

/// Replaces the keys of a window that `keyboardWindow` made.
void showPlane(Element& window, KeyboardPlane plane);

/// Whether the element belongs to a keyboard, the phone's own or one of a captured screen.
bool isOnKeyboard(const Element& element);

/// What a tap on that element of a keyboard types: a character, "\b" for the delete key, "\n" for the return key. None
/// where it types nothing.
std::optional<std::string> typedBy(const Element& key);

/// What the phone's own keyboard shows after a tap on that key of it, where it showed `plane`.
KeyboardPlane planeAfter(const Element& key, KeyboardPlane plane);

/// The return key of a keyboard that `parent` holds; null where there is none.
const Element* returnKeyIn(const Element& parent);

}  // namespace quobrak::simulator
