// What the screen paints over the picture for the strip of days: today over the whole page, where the strip
// looks torn, the links of the nodes that are asked for, and a slim copy of the strip at the edge when it is
// out of sight.
#pragma once

#include "diagram/model/AnyItem.h"
#include "diagram/model/DayStrip.h"

#include <optional>
#include <QLineF>
#include <QRect>
#include <span>
#include <vector>

class QPainter;

namespace diagram {

struct Calendar;
class Link;
class Node;
class Surface;
class Viewport;

// Today's line: strong on the strip at `place` (twips, across the strip), faint over the rest of the page.
// `canvas` is the viewport's own area in pixels.
void PaintToday(QPainter &painter, const QLineF &place, const Surface &surface, const Viewport &viewport,
                const QRect &canvas);

// Where months are missing (twips, across the strip): it looks torn there.
void PaintBreaks(QPainter &painter, std::span<const QLineF> breaks, const Surface &surface,
                 const Viewport &viewport);

// The links in their full colour.
void PaintDateLinks(QPainter &painter, const std::vector<const Link *> &links, const Viewport &viewport);
// The node's links to days that stand back until they are asked for.
std::vector<const Link *> QuietLinksOf(const Node &node);

// Where the slim copy stands, in pixels, when `seen` (twips) is in sight; empty while the strip or its bands
// are, or all of it lies beyond an end.
QRect SlimStripPlace(const Calendar &calendar, const QRectF &seen, const QRect &canvas);
// The slim copy, with today's place where it is known.
void PaintSlimStrip(QPainter &painter, const Calendar &calendar, const Surface &surface,
                    const Viewport &viewport, const QRect &canvas, const std::optional<QLineF> &today);

// A place on the screen where the strip is shown, itself, by its bands or by its slim copy.
struct StripSpot {
    StripPiece piece;
    QPointF at;          // the place on the strip itself that it stands for, twips
    bool onCopy = false; // the copy covers what lies there
};
std::optional<StripSpot> StripSpotAt(const Calendar &calendar, const Viewport &viewport, const QRect &canvas,
                                     const QPointF &pixels);

} // namespace diagram
