// What the screen paints over the picture for the strip of days: today over the whole page, the links of the
// nodes that are asked for, and a slim copy of the strip at the edge when it is out of sight.
#pragma once

#include "diagram/model/AnyItem.h"
#include "diagram/model/DayStrip.h"

#include <optional>
#include <QLineF>
#include <QRect>
#include <vector>

class QPainter;

namespace diagram {

struct Calendar;
class Link;
class Node;
class Surface;
class Viewport;

// `canvas` is the viewport's own area in pixels.
void PaintToday(QPainter &painter, const QLineF &place, const Surface &surface, const Viewport &viewport,
                const QRect &canvas);

// In their full colour.
void PaintDateLinks(QPainter &painter, const std::vector<const Link *> &links, const Viewport &viewport);
// The node's links to days that stand back until they are asked for.
std::vector<const Link *> QuietLinksOf(const Node &node);

// Where the slim copy stands, in pixels, when `seen` (twips) is in sight; empty while the strip or its bands
// are, or all of it lies beyond an end.
QRect SlimStripPlace(const Calendar &calendar, const QRectF &seen, const QRect &canvas);
// With today's place, where it is known.
void PaintSlimStrip(QPainter &painter, const Calendar &calendar, const Surface &surface,
                    const Viewport &viewport, const QRect &canvas, const std::optional<QLineF> &today);

// What of the strip is shown at a place on the screen, by its bands and its slim copy too.
struct StripSpot {
    StripPiece piece;
    QPointF at;          // of the strip itself, twips
    bool onCopy = false; // which covers what lies there
};
std::optional<StripSpot> StripSpotAt(const Calendar &calendar, const Viewport &viewport, const QRect &canvas,
                                     const QPointF &pixels);

} // namespace diagram
