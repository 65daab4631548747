#include "diagram/view/KeyCodes.h"

#include "diagram/model/SurfaceEvents.h"

#include <algorithm>
#include <array>

namespace diagram {

namespace {

struct KeyRow {
    int key;
    int code;
    Qt::KeyboardModifier modifier = Qt::NoModifier;
};

constexpr std::array<KeyRow, 23> kKeys{{
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16, Qt::ShiftModifier},
    {Qt::Key_Control, 17, Qt::ControlModifier},
    {Qt::Key_Alt, 18, Qt::AltModifier},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Menu, 93},
}};
constexpr int kF1 = 112;

const KeyRow *Find(int key) {
    const auto row =
        std::find_if(kKeys.begin(), kKeys.end(), [&](const KeyRow &at) { return at.key == key; });
    return row == kKeys.end() ? nullptr : &*row;
}

} // namespace

int VirtualKey(int qtKey) {
    if (const KeyRow *row = Find(qtKey)) return row->code;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return kF1 + qtKey - Qt::Key_F1;
    const bool plain =
        (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9);
    return plain ? qtKey : 0;
}

int ShiftMask(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? keys::kShift : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? keys::kCtrl : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? keys::kAlt : 0);
}

Qt::KeyboardModifier ModifierOf(int qtKey) {
    const KeyRow *row = Find(qtKey);
    return row ? row->modifier : Qt::NoModifier;
}

int ButtonMask(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? mouse::kLeft : 0) |
           (buttons.testFlag(Qt::RightButton) ? mouse::kRight : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? mouse::kMiddle : 0);
}

} // namespace diagram
