#include "diagram/hit/Grips.h"

#include <algorithm>

namespace diagram {

namespace {

// In sides of a handle.
constexpr double kSmallestFrame = 3; // two handles with room between them to grasp the node
constexpr double kLinkStartGap = 1.4;
constexpr double kLinkStartReach = 0.7;
constexpr double kSmallestWithLinkStarts = 1.6;
constexpr double kShortestWithHandle = 4;

std::array<QPointF, 4> SideMiddles(const QRectF &box) {
    const QPointF middle = box.center();
    return {QPointF(middle.x(), box.top()), QPointF(box.right(), middle.y()),
            QPointF(middle.x(), box.bottom()), QPointF(box.left(), middle.y())};
}

} // namespace

QRectF HandleFrame(const QRectF &box, double side) {
    const double x = std::max(0.0, kSmallestFrame * side - box.width()) / 2;
    const double y = std::max(0.0, kSmallestFrame * side - box.height()) / 2;
    return box.adjusted(-x, -y, x, y);
}

std::array<QPointF, 8> HandlePlaces(const QRectF &box, double side) {
    const QRectF frame = HandleFrame(box, side);
    const std::array<QPointF, 4> sides = SideMiddles(frame);
    return {frame.topLeft(),     sides[0], frame.topRight(),   sides[1],
            frame.bottomRight(), sides[2], frame.bottomLeft(), sides[3]};
}

std::array<QPointF, 4> LinkStartPlaces(const QRectF &box, double side) {
    const double gap = kLinkStartGap * side;
    return SideMiddles(HandleFrame(box, side).adjusted(-gap, -gap, gap, gap));
}

double LinkStartReach(double side) { return kLinkStartReach * side; }

bool HasLinkStarts(const QRectF &box, double side) {
    return std::max(box.width(), box.height()) >= kSmallestWithLinkStarts * side;
}

double GraspReach(double side) { return (kSmallestFrame / 2 + kLinkStartGap + kLinkStartReach) * side; }

bool HasSegmentHandle(double length, double side) { return length > kShortestWithHandle * side; }

} // namespace diagram
