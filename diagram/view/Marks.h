// Frames, handles and glows of a selection: many of them, painted fast on whole device pixels.
#pragma once

#include "diagram/view/OverlayLook.h"

#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QRect>
#include <QRegion>
#include <vector>

namespace diagram {

// Gathers marks and paints them at one go, the glows below, then frames, knobs and handles. All places are
// pixels of the viewport.
class Marks {
public:
    // `frame` is the colour of the frames.
    Marks(const OverlayLook &look, const QColor &frame) : look_(look), frame_(frame) {}

    // The frame lies inside the box, but for what the device's pixels ask for.
    void AddFrame(const QRectF &box);
    // A square around `middle`.
    void AddHandle(const QPointF &middle, double side);
    // The same, round.
    void AddKnob(const QPointF &middle, double side) { knobs_.push_back(DevicePlace(middle, side)); }
    // Along one line, or a path of level and upright lines only, leaving `spared` free. False for any other
    // path, and for a slanted line with something to spare: these are not added.
    bool AddGlow(const QPainterPath &path, double width, const QRectF &spared);

    // `glow` is the colour of the glows.
    void Paint(QPainter &painter, const QColor &glow) const;

private:
    QRect DevicePlace(const QPointF &middle, double side) const;
    QRect GlowAlong(const QPointF &from, const QPointF &to, int width) const;
    void PaintSlanted(QPainter &painter, const QColor &glow) const;
    void PaintKnobs(QPainter &painter) const;

    const OverlayLook &look_;
    QColor frame_;
    // All in device pixels.
    std::vector<QRect> glows_, frames_, handles_, handleInsides_, knobs_;
    QList<QLineF> slanted_;
    double slantedWidth_ = 0;
};

} // namespace diagram
