// Keys and buttons as the events of a surface tell them.
#pragma once

#include <Qt>

namespace diagram {

// Windows virtual key code; 0 for a key that has none here.
int VirtualKey(int qtKey);
// keys:: mask.
int ShiftMask(Qt::KeyboardModifiers modifiers);
// The modifier that the key itself is, none for other keys.
Qt::KeyboardModifier ModifierOf(int qtKey);
// mouse:: button, or the sum of several.
int ButtonMask(Qt::MouseButtons buttons);

} // namespace diagram
