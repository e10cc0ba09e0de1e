#pragma once

#include <string>
#include <string_view>

#include "drivers/simulator/Element.h"

namespace quobrak::simulator {

/// Whether elements of that type take the keyboard's focus when they are tapped.
bool takesText(ElementType type);

/// Whether the return key begins a new line in such an element, instead of ending its editing.
bool holdsLines(ElementType type);

/// Replaces the field's text. A field that is left empty has no value.
void setText(Element& field, std::string text);

/// Adds the text at the end of the field's text. The value of a secure field shows a bullet for each user-perceived
/// character.
void insertText(Element& field, std::string_view text);

/// Takes the last user-perceived character of the field's text away. A field that is left empty has no value.
void deleteLastCharacter(Element& field);

}  // namespace quobrak::simulator
