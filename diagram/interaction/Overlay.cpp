#include "diagram/interaction/Overlay.h"

namespace diagram {

namespace {

// Never empty, so that it counts in a union.
QRectF BoxOf(const QPainterPath &path) { return path.controlPointRect().adjusted(-1, -1, 1, 1); }
QRectF BoxOf(const QLineF &line) { return QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1); }

} // namespace

QRectF Overlay::Bounds() const {
    QRectF all = band | sizeUnder;
    if (!ghost.isEmpty()) all |= ghost.controlPointRect();
    if (!ghostLinks.isEmpty()) all |= BoxOf(ghostLinks);
    if (grip) all |= BoxOf(QLineF(*grip, *grip));
    for (const LinkEndMark &end : linkEnds) {
        if (!end.outline.isEmpty()) all |= end.outline.controlPointRect();
        if (end.joint) all |= BoxOf(QLineF(*end.joint, *end.joint));
    }
    if (!line.isEmpty()) all |= BoxOf(line);
    for (const QLineF &guide : guides) all |= BoxOf(guide);
    for (const QLineF &gap : gaps) all |= BoxOf(gap);
    if (!faded.isEmpty()) all |= faded.controlPointRect();
    for (const QLineF &side : sizes) all |= BoxOf(side);
    for (const QPointF &place : linkStarts) all |= BoxOf(QLineF(place, place));
    return all;
}

} // namespace diagram
