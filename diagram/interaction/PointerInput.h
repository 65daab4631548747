// What the pointer did, in units of the surface.
#pragma once

#include "diagram/geometry/Units.h"

#include <QPointF>
#include <QSizeF>
#include <Qt>
#include <QtMath>

namespace diagram {

struct PointerInput {
    QPointF at;                                   // twips
    QPointF screen;                               // pixels of the viewport
    QSizeF pixel{kTwipsPerPixel, kTwipsPerPixel}; // twips that a pixel shows, by the zoom
    Qt::KeyboardModifiers modifiers;

    bool Ctrl() const { return modifiers.testFlag(Qt::ControlModifier); }
    bool Shift() const { return modifiers.testFlag(Qt::ShiftModifier); }
    bool Alt() const { return modifiers.testFlag(Qt::AltModifier); }
};

// Pixels that the pointer must go before a press becomes a drag; a drawn node must be at least as large each
// way.
constexpr double kDragDistance = 4;

// Whether the way from `press` to `now` is long enough for a drag. The surface may have scrolled in between.
inline bool IsDrag(const PointerInput &press, const PointerInput &now) {
    const QPointF way = now.at - press.at;
    return qAbs(way.x()) >= kDragDistance * now.pixel.width() ||
           qAbs(way.y()) >= kDragDistance * now.pixel.height();
}

} // namespace diagram
