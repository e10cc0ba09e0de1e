#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/Keyboard.h"
#include "drivers/simulator/PhoneDescription.h"

namespace quobrak::simulator {

/// An application that runs.
struct RunningApplication {
  /// An alert or a sheet of its own.
  struct OwnAlert {
    /// The number of the window that holds it.
    std::uint64_t window;
    /// The named value that receives the answer; empty for none.
    std::string answer;
  };

  const ApplicationDescription* description;
  int processIdentifier;
  /// The screen that it shows: its name, and an Application and all below it.
  std::string screenName;
  std::unique_ptr<Element> screen;
  /// The element of the screen that has the keyboard's focus; null for none.
  Element* focused = nullptr;
  /// The window of the phone's own keyboard, in the screen's tree; null where it is not up. A captured screen that
  /// shows a keyboard gets no second one.
  Element* keyboard = nullptr;
  KeyboardPlane keyboardPlane = KeyboardPlane::letters;
  /// Those that effects have raised on this screen and that may still be up.
  std::vector<OwnAlert> alerts;

  /// Gives the field the focus, and brings the keyboard where none is shown.
  void beginEditing(Element& field, Size screenSize);
  /// Takes the focus away, and the phone's own keyboard.
  void endEditing();

  /// Takes the element, which is none of the keyboard's, out of the screen.
  void remove(Element& element);
};

/// Whether the application shows a keyboard, the phone's own or a captured one.
bool showsKeyboard(const Element& screen);

/// How far down the screen can be seen: to the upper edge of the keyboard, or `whereNone`.
double upperEdgeOfKeyboard(const Element& screen, double whereNone);

}  // namespace quobrak::simulator
