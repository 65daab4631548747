// What stands in the way of a link.
#pragma once

#include "diagram/geometry/Crossing.h"

#include <algorithm>
#include <limits>
#include <QRectF>
#include <vector>

namespace diagram {

// Whether the insides of two boxes touch; one without size lies inside of another like a point.
inline bool Overlap(const QRectF &a, const QRectF &b) {
    return a.left() < b.right() && b.left() < a.right() && a.top() < b.bottom() && b.top() < a.bottom();
}

// A route that comes this near to a box is taken for one that runs through it; twips.
constexpr double kNearness = 60;

// Whether the piece between two points comes within `nearness` twips of the inside of the box. A box without
// an inside is never met.
inline bool Meets(const QRectF &box, const QPointF &from, const QPointF &to, double nearness = 0) {
    if (!(box.width() > 0 && box.height() > 0)) return false;
    if (from.x() != to.x() && from.y() != to.y())
        return RunsThrough(box.adjusted(-nearness, -nearness, nearness, nearness), from, to);
    return std::max(from.x(), to.x()) > box.left() - nearness &&
           std::min(from.x(), to.x()) < box.right() + nearness &&
           std::max(from.y(), to.y()) > box.top() - nearness &&
           std::min(from.y(), to.y()) < box.bottom() + nearness;
}

// Everything within `nearness` twips of the piece.
inline QRectF Neighbourhood(const QPointF &from, const QPointF &to, double nearness) {
    return QRectF(from, to).normalized().adjusted(-nearness, -nearness, nearness, nearness);
}

class Obstacles {
public:
    static constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
    virtual ~Obstacles() = default;
    // Appends the boxes that touch `area`, in any order, some perhaps twice. Twips.
    virtual void In(const QRectF &area, std::vector<QRectF> &boxes) const = 0;
    // Appends those that the piece between two points meets, in any order; once there are more than `most`,
    // some of them may be left out.
    virtual void Along(const QPointF &from, const QPointF &to, double nearness, std::vector<QRectF> &boxes,
                       std::size_t /*most*/ = kAll) const {
        std::vector<QRectF> near;
        In(Neighbourhood(from, to, nearness), near);
        for (const QRectF &box : near)
            if (Meets(box, from, to, nearness)) boxes.push_back(box);
    }
};

} // namespace diagram
