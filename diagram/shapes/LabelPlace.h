// Where the label of a link stands: a pure function from a route and what lies around it to a place.
#pragma once

#include <functional>
#include <QLineF>
#include <QRectF>
#include <span>
#include <vector>

namespace diagram {

// Twips throughout.
struct LabelRequest {
    std::span<const QPointF> route; // straight pieces; at least two points
    bool curved = false;            // the points between the ends of a curve are no bends
    QSizeF size;                    // of the label
    // How much of the route the arrow heads cover; 0 without one.
    double sourceHead = 0, middleHead = 0, destinationHead = 0;
};

struct LabelGround {
    std::vector<QRectF> boxes = {}; // nodes and other labels, which it must not cover
    std::vector<QLineF> lines = {}; // other links, which it had better not cover
};
// Gives at least what touches an area.
using LabelGrounds = std::function<LabelGround(const QRectF &area)>;

constexpr double kLabelGap = 45; // twips between a label and what it must not cover

struct LabelPlace {
    QPointF middle;
    double cost = 0; // 0 where nothing speaks against it
    // The areas that were searched. What goes away outside of them doesn't change the place. What comes does
    // so only if it comes nearer to the label than the gap.
    std::vector<QRectF> looked;
};

// The middle of the label: that of the route where it is free there; else a free place on the line, rather in
// the middle of a segment that is long enough; else one beside the line. Where all are taken, the one that
// covers least.
LabelPlace PlaceLabel(const LabelRequest &request, const LabelGrounds &grounds);

// Whether `PlaceLabel` would certainly give the same place for the same request, now that what `freed` holds
// is gone; other things may have come, but none that touches the label. Much faster than asking it.
bool KeepsPlace(const LabelRequest &request, const LabelPlace &place, const LabelGround &freed,
                const LabelGrounds &grounds);

} // namespace diagram
