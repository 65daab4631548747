// Where the window stood when it was closed, in the registry: below the current user at "SOFTWARE\" + TITLE,
// numbers "WindowState" (0 normal, 1 minimised, 2 maximised), "Left", "Top", "Height", "Width". The four are
// pixels that do not depend on the screen's scale, negative ones as two's complement; Left and Top are those
// of the frame, Height and Width those of the area inside it. Of a maximised window they tell the place that
// it has when it is restored.
#pragma once

#include <QRect>

class QWidget;

namespace support {
class RegistryStore;
}

namespace mainwindow {

constexpr int kStateNormal = 0;
constexpr int kStateMinimised = 1;
constexpr int kStateMaximised = 2;

// Gives the window its state, maximised where none is stored, and in the normal state its place. A place that
// no screen shows any more is moved on to one.
void ReadPlacement(support::RegistryStore &registry, QWidget &window);
void WritePlacement(support::RegistryStore &registry, const QWidget &window);

// `wanted` moved and shrunk so that it lies within `screen`.
QRect FitOnScreen(QRect wanted, const QRect &screen);

} // namespace mainwindow
