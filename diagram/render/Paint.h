// What the parts of the renderer share while one picture is painted.
#pragma once

#include "diagram/render/FormCache.h"
#include "diagram/render/Frame.h"
#include "diagram/render/Pencil.h"
#include "diagram/render/PictureCache.h"
#include "diagram/render/Renderer.h"
#include "diagram/render/TextCache.h"
#include "support/Colour.h"
#include "support/MixColours.h"

#include <QPolygonF>
#include <vector>

namespace diagram {

// Below this height in device pixels text can't be read and is left out.
constexpr double kLegiblePixels = 4;

struct Caches {
    Faces faces;
    TextCache texts{faces};
    PictureCache pictures;
    FormCache forms;
};

struct Paint {
    Pencil pencil;
    Frame frame;
    const RenderOptions &options;
    Scene &scene;
    Caches &caches;
    QRgb paper;                      // the surface's back colour
    QRectF area;                     // twips
    std::vector<QPointF> route = {}; // scratch

    QPainter &Painter() { return pencil.Painter(); }
};

inline QRgb ToRgb(support::Colour colour) {
    const support::Colour plain = support::PlainColour(colour);
    if (plain == support::kNoColour) return qRgb(0, 0, 0);
    return qRgb(plain & 0xFF, plain >> 8 & 0xFF, plain >> 16 & 0xFF);
}

using support::Mix;

} // namespace diagram
