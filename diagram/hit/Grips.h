// Where items can be grasped besides their bodies: the eight handles of a node, the places where links start,
// and the handles of segments.
#pragma once

#include <array>
#include <QPointF>
#include <QRectF>

namespace diagram {

// All in twips; `side` is the side of a handle as the pointer meets it.

// The box on whose corners and sides the handles stand: the node's, made larger around a node so small that
// the handles would cover it.
QRectF HandleFrame(const QRectF &box, double side);
// 0 left top, then clockwise.
std::array<QPointF, 8> HandlePlaces(const QRectF &box, double side);

// Beyond the middles of the sides, clear of the handles: top, right, bottom, left.
std::array<QPointF, 4> LinkStartPlaces(const QRectF &box, double side);
// How far from such a place it still counts.
double LinkStartReach(double side);
// Whether the node is shown large enough to have them.
bool HasLinkStarts(const QRectF &box, double side);
// The farthest that anything by which a node can be grasped reaches from the node's box.
double GraspReach(double side);

// Whether a segment of a selected link is long enough to have a handle in its middle.
bool HasSegmentHandle(double length, double side);

} // namespace diagram
