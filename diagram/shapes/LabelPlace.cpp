#include "diagram/shapes/LabelPlace.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/geometry/Polyline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace diagram {

namespace {

constexpr double kGap = 45;            // between a label and what it must not cover
constexpr double kLineGap = 20;        // and a line
constexpr double kHeadWidth = 1 / 3.0; // to either side of the line, by its length
constexpr double kInSight = 120;       // of a segment to either side of a label
constexpr double kStep = 150;          // between two places looked at, at least
constexpr int kMostSteps = 16;         // to either side of the middle of a segment

// What a place costs.
constexpr double kCovered = 1000; // a node, or another label, altogether
constexpr double kTouched = 300;  // the same, a little
constexpr double kOnHead = 300, kOnBend = 120;
constexpr double kOnLine = 80, kOnManyLines = 240;
constexpr double kPastLine = 120; // so that the label seems to be the other link's
constexpr double kBeside = 60;
constexpr double kOnShort = 50;      // a segment of which hardly anything stays in sight
constexpr double kOffTheMiddle = 10; // at the end of the way
constexpr double kOffCentre = 15;    // at the end of the segment
constexpr double kUpright = 3;       // a segment along which no text runs

QRectF Grown(const QRectF &box, double by) { return box.adjusted(-by, -by, by, by); }

QRectF BoxAt(const QPointF &middle, const QSizeF &size) {
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

// From the line to a label beside it.
double Gap(const LabelRequest &request) {
    const double head = std::max({request.sourceHead, request.middleHead, request.destinationHead});
    return std::max(kGap, head * kHeadWidth + kLineGap);
}

// Faster than QRectF's own, which thinks of negative sizes. What has no inside touches nothing.
bool Touch(const QRectF &a, const QRectF &b) {
    return b.width() > 0 && b.height() > 0 && a.left() < b.right() && b.left() < a.right() &&
           a.top() < b.bottom() && b.top() < a.bottom();
}

// Of lines most are too far away to be compared closely.
bool Crosses(const QLineF &line, const QRectF &box) {
    return std::min(line.x1(), line.x2()) < box.right() && std::max(line.x1(), line.x2()) > box.left() &&
           std::min(line.y1(), line.y2()) < box.bottom() && std::max(line.y1(), line.y2()) > box.top() &&
           RunsThrough(box, line.p1(), line.p2());
}

double Share(const QRectF &box, const QRectF &of) {
    const QRectF both = box & of;
    return both.isEmpty() ? 0 : both.width() * both.height() / (of.width() * of.height());
}

// A stretch of the way without bends: a segment, or a whole curve.
struct Stretch {
    double start, length;    // along the way
    std::size_t first, last; // its pieces
};

struct Place {
    QPointF middle;
    double cost = std::numeric_limits<double>::infinity();
};

class Search {
public:
    explicit Search(const LabelRequest &request) : request_(request), length_(WayLength(request.way)) {
        AddHead(0, request.sourceHead);
        AddHead(length_ / 2 - request.middleHead / 2, request.middleHead);
        AddHead(length_ - request.destinationHead, request.destinationHead);
    }

    bool IsFree(const QPointF &middle) const {
        return CostAt(middle, PlaceOnWay(request_.way, length_ / 2).segment, 1) == 0;
    }

    QPointF Find() {
        const std::vector<Stretch> stretches = Stretches();
        for (const Stretch &stretch : stretches) Look(stretch, 0);
        if (best_.cost <= kBeside) return best_.middle;
        for (const Stretch &stretch : stretches) Look(stretch, 1), Look(stretch, -1);
        return best_.middle;
    }

private:
    void AddHead(double start, double length) {
        if (length <= 0) return;
        const QPointF from = PlaceOnWay(request_.way, start).point;
        const QPointF to = PlaceOnWay(request_.way, start + length).point;
        heads_.push_back(Grown(QRectF(from, to).normalized(), length * kHeadWidth));
    }

    std::vector<Stretch> Stretches() const {
        const std::size_t pieces = request_.way.size() - 1;
        if (request_.curved) return {{0, length_, 0, pieces - 1}};
        std::vector<Stretch> stretches;
        double start = 0;
        for (std::size_t i = 0; i < pieces; ++i) {
            const double length = Distance(request_.way[i], request_.way[i + 1]);
            if (length > 0) stretches.push_back({start, length, i, i});
            start += length;
        }
        if (stretches.empty()) stretches.push_back({0, 0, 0, 0});
        return stretches;
    }

    // From the middle of the stretch outwards; to its left or right, or on it.
    void Look(const Stretch &stretch, int side) {
        const double half = stretch.length / 2, step = std::max(kStep, half / kMostSteps);
        for (double off = 0; off <= half; off += step) {
            Try(stretch, half + off, side);
            if (off > 0) Try(stretch, half - off, side);
        }
    }

    void Try(const Stretch &stretch, double along, int side) {
        const WayPlace place = PlaceOnWay(request_.way, stretch.start + along);
        const QPointF normal(place.direction.y(), -place.direction.x());
        const double away = Gap(request_) + (std::abs(normal.x()) * request_.size.width() +
                                             std::abs(normal.y()) * request_.size.height()) /
                                                2;
        const double cost =
            Unease(stretch, along, place.direction) + (side                                ? kBeside
                                                       : IsShort(stretch, place.direction) ? kOnShort
                                                                                           : 0);
        if (cost >= best_.cost) return;
        const QPointF middle = place.point + normal * (side * away);
        const double all =
            cost + CostAt(middle, side ? request_.way.size() : place.segment, best_.cost - cost);
        if (all < best_.cost) best_ = {middle, all};
    }

    bool IsShort(const Stretch &stretch, const QPointF &direction) const {
        const double x = std::abs(direction.x()), y = std::abs(direction.y());
        const double covered =
            std::min(request_.size.width() / std::max(x, 1e-9), request_.size.height() / std::max(y, 1e-9));
        return stretch.length < covered + 2 * kInSight;
    }

    double Unease(const Stretch &stretch, double along, const QPointF &direction) const {
        const double offTheMiddle = std::abs(stretch.start + along - length_ / 2) / std::max(length_, 1.0);
        const double offCentre = std::abs(along - stretch.length / 2) / std::max(stretch.length, 1.0);
        const bool upright = std::abs(direction.y()) > std::abs(direction.x());
        return 2 * (offTheMiddle * kOffTheMiddle + offCentre * kOffCentre) + (upright ? kUpright : 0);
    }

    // Of what the label covers there; any number from `most` on is as good as another. `own` is the piece of
    // the way on which it stands, if it does.
    double CostAt(const QPointF &middle, std::size_t own, double most) const {
        const QRectF label = BoxAt(middle, request_.size), room = Grown(label, kGap);
        double cost = 0;
        for (const QRectF &head : heads_) cost += Touch(label, head) ? kOnHead : 0;
        for (std::size_t i = 1; i + 1 < request_.way.size() && !request_.curved && cost < most; ++i)
            cost += room.contains(request_.way[i]) ? kOnBend : 0;
        for (const QRectF &box : request_.boxes) {
            if (cost >= most) return cost;
            if (Touch(room, box)) cost += kTouched + (kCovered - kTouched) * Share(box, label);
        }
        return cost + (cost < most ? LinesAt(Grown(label, kLineGap), own) : 0);
    }

    double LinesAt(const QRectF &label, std::size_t own) const {
        const bool beside = own >= request_.way.size();
        double cost = 0;
        for (const QLineF &line : request_.lines)
            if (Crosses(line, label)) cost += beside ? kPastLine : kOnLine;
        for (std::size_t i = 0; i + 1 < request_.way.size() && (beside || !request_.curved); ++i)
            if (i != own && RunsThrough(label, request_.way[i], request_.way[i + 1])) cost += kOnLine;
        return std::min(cost, kOnManyLines);
    }

    const LabelRequest &request_;
    double length_;
    std::vector<QRectF> heads_;
    Place best_;
};

} // namespace

QPointF MiddleOfWay(std::span<const QPointF> way) { return PlaceOnWay(way, WayLength(way) / 2).point; }

bool IsFreeInTheMiddle(const LabelRequest &request) {
    return Search(request).IsFree(MiddleOfWay(request.way));
}

QPointF PlaceLabel(const LabelRequest &request) {
    Search search(request);
    const QPointF middle = MiddleOfWay(request.way);
    return search.IsFree(middle) ? middle : search.Find();
}

// A label beside a slanted line lies askew to it, a quarter of its other side further out at most.
QRectF ReachOfLabel(const LabelRequest &request) {
    QPointF low = request.way.front(), high = low;
    for (const QPointF &point : request.way) {
        low = {std::min(low.x(), point.x()), std::min(low.y(), point.y())};
        high = {std::max(high.x(), point.x()), std::max(high.y(), point.y())};
    }
    const double gap = Gap(request) + kGap, width = request.size.width(), height = request.size.height();
    const QPointF reach(width + height / 4 + gap, height + width / 4 + gap);
    return {low - reach, high + reach};
}

} // namespace diagram
