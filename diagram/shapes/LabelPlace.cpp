#include "diagram/shapes/LabelPlace.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/geometry/Polyline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace diagram {

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();
constexpr double kLineGap = 20;        // twips between a label and a line
constexpr double kHeadWidth = 1 / 3.0; // of an arrow head to either side of its line, by its length
constexpr double kInSight = 120;       // twips of a segment that stay in sight to either side of a label
constexpr double kStep = 150;          // twips between two places that are tried, at least
constexpr int kMostSteps = 16;         // to either side of the middle of a segment

// What a place costs that covers, touches or is one of these.
constexpr double kCovered = 1000; // a node or another label, altogether
constexpr double kTouched = 300;  // the same, only just
constexpr double kOnHead = 300, kOnBend = 120;
constexpr double kOnLine = 80, kOnManyLines = 240;
constexpr double kPastLine = 120; // so that the label seems to be the other link's
constexpr double kBeside = 60;
constexpr double kOnShort = 50;      // a segment of which hardly anything stays in sight
constexpr double kOffTheMiddle = 10; // at the end of the route
constexpr double kOffCentre = 15;    // at the end of the segment
constexpr double kUpright = 3;       // a segment along which no text runs

QRectF Grown(const QRectF &box, double by) { return box.adjusted(-by, -by, by, by); }

QRectF BoxAt(const QPointF &middle, const QSizeF &size) {
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

// From the line to a label beside it.
double Gap(const LabelRequest &request) {
    const double head = std::max({request.sourceHead, request.middleHead, request.destinationHead});
    return std::max(kLabelGap, head * kHeadWidth + kLineGap);
}

// Faster than QRectF::intersects, which allows for negative sizes. A `b` without an inside touches nothing.
bool Touch(const QRectF &a, const QRectF &b) {
    return b.width() > 0 && b.height() > 0 && a.left() < b.right() && b.left() < a.right() &&
           a.top() < b.bottom() && b.top() < a.bottom();
}

bool Holds(const QRectF &box, const QPointF &point) {
    return point.x() >= box.left() && point.x() <= box.right() && point.y() >= box.top() &&
           point.y() <= box.bottom();
}

// Compares the bounds first, as most lines are far away.
bool Crosses(const QLineF &line, const QRectF &box) {
    return std::min(line.x1(), line.x2()) < box.right() && std::max(line.x1(), line.x2()) > box.left() &&
           std::min(line.y1(), line.y2()) < box.bottom() && std::max(line.y1(), line.y2()) > box.top() &&
           RunsThrough(box, line.p1(), line.p2());
}

// QRectF::united leaves out rectangles without width and height.
QRectF United(const QRectF &a, const QRectF &b) {
    const QPointF low(std::min(a.left(), b.left()), std::min(a.top(), b.top()));
    return {low, QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

double Share(const QRectF &box, const QRectF &of) {
    const QRectF both = box & of;
    return both.isEmpty() ? 0 : both.width() * both.height() / (of.width() * of.height());
}

// A stretch of the route without bends: a segment, or a whole curve. Labels stand on it, or beside it.
struct Stretch {
    double start, length;    // along the route
    std::size_t first, last; // its pieces
    QPointF direction;       // of a straight one
    // From the middle outwards: where along it labels may stand, and what that costs on the line and beside
    // it, whatever is around.
    struct Spot {
        double along, on, beside;
    };
    std::vector<Spot> spots = {};
};

// A row of places along a stretch.
struct Row {
    const Stretch *stretch;
    int side;     // 0 on the line, 1 to the left in the direction of the route, -1 to the right
    double least; // what the cheapest of its places costs with nothing around
};

struct Place {
    QPointF middle;
    double cost = kEndless;
};

class Search {
public:
    Search(const LabelRequest &request, const LabelGrounds &grounds)
        : request_(request), grounds_(grounds), length_(RouteLength(request.route)), stretches_(Stretches()) {
        for (Stretch &stretch : stretches_) AddSpots(stretch);
        AddHead(0, request.sourceHead);
        AddHead(length_ / 2 - request.middleHead / 2, request.middleHead);
        AddHead(length_ - request.destinationHead, request.destinationHead);
    }

    LabelPlace Find() {
        const RoutePlace middle = PlaceOnRoute(request_.route, length_ / 2);
        const QRectF room = RoomAt(middle.point);
        if (IsFree(middle)) return {middle.point, 0, {room}};
        Look({0});
        if (best_.cost > kBeside) Look({1, -1});
        return {best_.middle, best_.cost, Looked(room)};
    }

    // Only places where something was freed can have become as good as this one.
    bool Keeps(const LabelPlace &place, const LabelGround &freed) const {
        const RoutePlace middle = PlaceOnRoute(request_.route, length_ / 2);
        if (Touches(freed, place.middle) || (Touches(freed, middle.point) && IsFree(middle))) return false;
        return std::ranges::none_of(stretches_, [&](const Stretch &stretch) {
            return IsAsGood(stretch, 0, place.cost, freed) || IsAsGood(stretch, 1, place.cost, freed) ||
                   IsAsGood(stretch, -1, place.cost, freed);
        });
    }

private:
    bool IsFree(const RoutePlace &place) const {
        return CostAt(grounds_(RoomAt(place.point)), place.point, place.segment, 1) == 0;
    }

    void AddHead(double start, double length) {
        if (length <= 0) return;
        const QPointF from = PlaceOnRoute(request_.route, start).point;
        const QPointF to = PlaceOnRoute(request_.route, start + length).point;
        heads_.push_back(Grown(QRectF(from, to).normalized(), length * kHeadWidth));
    }

    std::vector<Stretch> Stretches() const {
        const std::size_t pieces = request_.route.size() - 1;
        if (request_.curved) return {{0, length_, 0, pieces - 1, {1, 0}}};
        std::vector<Stretch> stretches;
        double start = 0;
        for (std::size_t i = 0; i < pieces; ++i) {
            const QPointF way = request_.route[i + 1] - request_.route[i];
            const double length = Distance(request_.route[i], request_.route[i + 1]);
            if (length > 0) stretches.push_back({start, length, i, i, way / length});
            start += length;
        }
        if (stretches.empty()) stretches.push_back({0, 0, 0, 0, {1, 0}});
        return stretches;
    }
    void AddSpots(Stretch &stretch) const {
        const double half = stretch.length / 2, step = std::max(kStep, half / kMostSteps);
        for (double off = 0; off <= half; off += step) {
            stretch.spots.push_back(SpotAt(stretch, half + off));
            if (off > 0) stretch.spots.push_back(SpotAt(stretch, half - off));
        }
    }
    Stretch::Spot SpotAt(const Stretch &stretch, double along) const {
        const QPointF direction =
            request_.curved ? PlaceOnRoute(request_.route, along).direction : stretch.direction;
        const double offTheMiddle = std::abs(stretch.start + along - length_ / 2) / std::max(length_, 1.0);
        const double offCentre = std::abs(along - stretch.length / 2) / std::max(stretch.length, 1.0);
        const bool upright = std::abs(direction.y()) > std::abs(direction.x());
        const double unease =
            2 * (offTheMiddle * kOffTheMiddle + offCentre * kOffCentre) + (upright ? kUpright : 0);
        return {along, unease + (IsShort(stretch, direction) ? kOnShort : 0), unease + kBeside};
    }

    // Rows whose cheapest place costs least first: of the others few places can still be better then.
    void Look(std::initializer_list<int> sides) {
        std::vector<Row> rows;
        for (const Stretch &stretch : stretches_)
            for (const int side : sides) rows.push_back({&stretch, side, LeastIn(stretch, side)});
        std::ranges::stable_sort(rows, {}, &Row::least);
        for (const Row &row : rows) LookAt(row);
    }
    static double LeastIn(const Stretch &stretch, int side) {
        double least = kEndless;
        ForPlaces(stretch, side, [&](double, double cost) { least = std::min(least, cost); });
        return least;
    }

    void LookAt(const Row &row) {
        const std::optional<QRectF> area = AreaOf(*row.stretch, row.side, best_.cost);
        if (!area) return;
        const LabelGround ground = grounds_(*area);
        ForPlaces(*row.stretch, row.side, [&](double along, double cost) {
            if (cost >= best_.cost) return;
            const auto [middle, segment] = MiddleAt(*row.stretch, along, row.side);
            const double all =
                cost + CostAt(ground, middle, row.side ? request_.route.size() : segment, best_.cost - cost);
            if (all < best_.cost) best_ = {middle, all};
        });
    }

    // Whether a place that was freed costs no more than that. What is around them is asked for together.
    bool IsAsGood(const Stretch &stretch, int side, double best, const LabelGround &freed) const {
        const std::vector<Freed> places = FreedIn(stretch, side, best, freed);
        if (places.empty()) return false;
        QRectF area = RoomAt(places.front().middle);
        for (const Freed &place : places) area = United(area, RoomAt(place.middle));
        const LabelGround ground = grounds_(area);
        return std::ranges::any_of(places, [&](const Freed &place) {
            return place.cost + CostAt(ground, place.middle, place.own, best - place.cost + 1) <= best;
        });
    }
    struct Freed {
        QPointF middle;
        std::size_t own;
        double cost; // whatever is around
    };
    // Those that aren't too dear by the route alone.
    std::vector<Freed> FreedIn(const Stretch &stretch, int side, double best,
                               const LabelGround &freed) const {
        std::vector<Freed> places;
        const std::optional<QRectF> area = AreaOf(stretch, side, std::nextafter(best, kEndless));
        const LabelGround near = area ? Within(*area, freed) : LabelGround();
        if (near.boxes.empty() && near.lines.empty()) return places;
        ForPlaces(stretch, side, [&](double along, double cost) {
            if (cost > best) return;
            const auto [middle, segment] = MiddleAt(stretch, along, side);
            const std::size_t own = side ? request_.route.size() : segment;
            if (Touches(near, middle) && cost + CostAt({}, middle, own, best - cost + 1) <= best)
                places.push_back({middle, own, cost});
        });
        return places;
    }
    static LabelGround Within(const QRectF &area, const LabelGround &ground) {
        LabelGround within;
        std::ranges::copy_if(ground.boxes, std::back_inserter(within.boxes),
                             [&](const QRectF &box) { return Touch(area, box); });
        std::ranges::copy_if(ground.lines, std::back_inserter(within.lines),
                             [&](const QLineF &line) { return Crosses(line, area); });
        return within;
    }
    bool Touches(const LabelGround &ground, const QPointF &middle) const {
        const QRectF label = BoxAt(middle, request_.size);
        const QRectF room = Grown(label, kLabelGap), around = Grown(label, kLineGap);
        return std::ranges::any_of(ground.boxes, [&](const QRectF &box) { return Touch(room, box); }) ||
               std::ranges::any_of(ground.lines, [&](const QLineF &line) { return Crosses(line, around); });
    }
    static void ForPlaces(const Stretch &stretch, int side, auto visit) {
        for (const Stretch::Spot &spot : stretch.spots) visit(spot.along, side ? spot.beside : spot.on);
    }

    struct Middle {
        QPointF point;
        std::size_t segment;
    };
    Middle MiddleAt(const Stretch &stretch, double along, int side) const {
        RoutePlace place{request_.route[stretch.first] + stretch.direction * along, stretch.direction,
                         stretch.first};
        if (request_.curved) place = PlaceOnRoute(request_.route, along);
        if (side == 0) return {place.point, place.segment};
        const QPointF normal(place.direction.y(), -place.direction.x());
        const double across =
            std::abs(normal.x()) * request_.size.width() + std::abs(normal.y()) * request_.size.height();
        return {place.point + normal * (side * (Gap(request_) + across / 2)), place.segment};
    }
    QRectF RoomAt(const QPointF &middle) const { return Grown(BoxAt(middle, request_.size), kLabelGap); }

    // The area of all places in the row that cost less than that with nothing around; nothing without one.
    std::optional<QRectF> AreaOf(const Stretch &stretch, int side, double below) const {
        std::optional<QRectF> area;
        const auto add = [&](double along) {
            const QRectF room = RoomAt(MiddleAt(stretch, along, side).point);
            area = area ? United(*area, room) : room;
        };
        double low = stretch.length, high = 0;
        ForPlaces(stretch, side, [&](double along, double cost) {
            if (cost >= below) return;
            low = std::min(low, along), high = std::max(high, along);
            if (request_.curved) add(along);
        });
        if (!request_.curved && low <= high) add(low), add(high);
        return area;
    }
    // The areas of all places that could have been as good as the best.
    std::vector<QRectF> Looked(const QRectF &middle) const {
        const double below = std::nextafter(best_.cost, kEndless);
        std::vector<QRectF> looked{middle};
        for (const int side : {0, 1, -1})
            for (const Stretch &stretch : stretches_)
                if (const std::optional<QRectF> area = AreaOf(stretch, side, below)) looked.push_back(*area);
        return looked;
    }

    bool IsShort(const Stretch &stretch, const QPointF &direction) const {
        const double x = std::abs(direction.x()), y = std::abs(direction.y());
        const double covered =
            std::min(request_.size.width() / std::max(x, 1e-9), request_.size.height() / std::max(y, 1e-9));
        return stretch.length < covered + 2 * kInSight;
    }

    // Of what the label covers there; any number from `most` on is as good as another. `own` is the piece of
    // the route on which it stands, if it does.
    double CostAt(const LabelGround &ground, const QPointF &middle, std::size_t own, double most) const {
        const QRectF label = BoxAt(middle, request_.size), room = Grown(label, kLabelGap);
        double cost = 0;
        for (const QRectF &head : heads_) cost += Touch(label, head) ? kOnHead : 0;
        for (std::size_t i = 1; i + 1 < request_.route.size() && !request_.curved && cost < most; ++i)
            cost += Holds(room, request_.route[i]) ? kOnBend : 0;
        for (const QRectF &box : ground.boxes) {
            if (cost >= most) return cost;
            if (Touch(room, box)) cost += kTouched + (kCovered - kTouched) * Share(box, label);
        }
        return cost < most ? cost + LinesAt(ground, Grown(label, kLineGap), own, most - cost) : cost;
    }

    double LinesAt(const LabelGround &ground, const QRectF &label, std::size_t own, double most) const {
        const bool beside = own >= request_.route.size();
        double cost = 0;
        for (const QLineF &line : ground.lines) {
            if (Crosses(line, label)) cost += beside ? kPastLine : kOnLine;
            if (cost >= std::min(most, kOnManyLines)) return std::min(cost, kOnManyLines);
        }
        for (std::size_t i = 0; i + 1 < request_.route.size() && (beside || !request_.curved); ++i)
            if (i != own && Crosses({request_.route[i], request_.route[i + 1]}, label)) cost += kOnLine;
        return std::min(cost, kOnManyLines);
    }

    const LabelRequest &request_;
    const LabelGrounds &grounds_;
    double length_;
    std::vector<Stretch> stretches_;
    std::vector<QRectF> heads_;
    Place best_;
};

} // namespace

LabelPlace PlaceLabel(const LabelRequest &request, const LabelGrounds &grounds) {
    return Search(request, grounds).Find();
}

bool KeepsPlace(const LabelRequest &request, const LabelPlace &place, const LabelGround &freed,
                const LabelGrounds &grounds) {
    return Search(request, grounds).Keeps(place, freed);
}

} // namespace diagram
