// Where the label of a link stands: a pure function from a way and what lies around it to a place.
#pragma once

#include <QLineF>
#include <QRectF>
#include <span>

namespace diagram {

// Twips throughout.
struct LabelRequest {
    std::span<const QPointF> way; // straight pieces; at least two points
    bool curved = false;          // the points between the ends of a curve are no bends
    QSizeF size;                  // of the label
    // How much of the way the arrow heads cover; 0 without one.
    double sourceHead = 0, middleHead = 0, destinationHead = 0;
    std::span<const QRectF> boxes = {}; // nodes and other labels, which it must not cover
    std::span<const QLineF> lines = {}; // other links, which it had better not cover
};

QPointF MiddleOfWay(std::span<const QPointF> way);

// Whether the label covers nothing in the middle of the way: neither a bend nor a head nor what is around.
bool IsFreeInTheMiddle(const LabelRequest &request);

// The middle of the label: that of the way where it is free there; else a free place on the line, rather in
// the middle of a segment that is long enough; else one beside the line. Where all are taken, the one that
// covers least.
QPointF PlaceLabel(const LabelRequest &request);

// Around the way, everything that the label may cover or come too near to; whatever is there, it is the same.
QRectF ReachOfLabel(const LabelRequest &request);

} // namespace diagram
