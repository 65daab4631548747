// What a key did, for the gestures that are led by keys.
#pragma once

#include <QPointF>
#include <Qt>

namespace diagram {

struct KeyInput {
    int key = 0;
    Qt::KeyboardModifiers modifiers;

    bool Ctrl() const { return modifiers.testFlag(Qt::ControlModifier); }
    bool Shift() const { return modifiers.testFlag(Qt::ShiftModifier); }
    bool Alt() const { return modifiers.testFlag(Qt::AltModifier); }
    bool IsEnter() const { return key == Qt::Key_Return || key == Qt::Key_Enter; }
    // Where an arrow key leads, a unit vector; null for any other key.
    QPointF Arrow() const;
    // 1 for Tab, -1 for Shift+Tab, 0 for any other key.
    int Tab() const;
};

} // namespace diagram
