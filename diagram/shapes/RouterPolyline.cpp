#include "diagram/shapes/RouterPolyline.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/geometry/Polyline.h"
#include "diagram/shapes/RouterClip.h"
#include "diagram/shapes/RouterLanes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <tuple>

namespace diagram {

namespace {

constexpr int kMostRounds = 40;
constexpr int kCarefulRounds = 8;      // after which a way need only run through nothing
constexpr std::size_t kMostBoxes = 48; // more aren't gone round at once
constexpr std::size_t kMostMet = 12; // a line through more of them stays straight: no way round looks better
constexpr std::size_t kFewBoxes = 4; // among more, only corners are bends
constexpr double kBendCosts = 1500;  // twips
constexpr double kLongPiece = 6000;  // twips for which obstacles are asked at once
constexpr double kSlack = 1;         // twips by which a way may be nearer than its bends

// How clear of the boxes a way keeps, and what it costs that it comes no nearer.
struct Margin {
    double distance, cost;
};
constexpr std::array<Margin, 3> kMargins{{{kClearance, 0}, {100, 1500}, {30, 4000}}};

using Way = std::vector<QPointF>; // from the middle of one end to that of the other

struct Found {
    Way way;
    double cost = std::numeric_limits<double>::infinity();
    double margin = 0;
};

QRectF Grown(const QRectF &box, double by) { return box.adjusted(-by, -by, by, by); }

bool IsBefore(const QRectF &a, const QRectF &b) {
    return std::tuple(a.left(), a.top(), a.width(), a.height()) <
           std::tuple(b.left(), b.top(), b.width(), b.height());
}

// Adds what isn't known yet, in an order of its own; false when there is nothing of that.
bool Learn(const std::vector<QRectF> &boxes, std::vector<QRectF> &known) {
    const std::size_t before = known.size();
    for (const QRectF &box : boxes) {
        const auto place = std::ranges::lower_bound(known, box, IsBefore);
        if (place == known.end() || IsBefore(box, *place)) known.insert(place, box);
    }
    return known.size() > before;
}

// Adds what a piece comes near to, asked for in lengths that hug it.
void AddMet(const Obstacles &obstacles, const QPointF &from, const QPointF &to, double nearness,
            std::vector<QRectF> &met) {
    const int lengths = 1 + int(std::min(Distance(from, to) / kLongPiece, 64.0));
    std::vector<QRectF> near;
    for (int i = 0; i < lengths; ++i) {
        const QPointF start = from + (to - from) * (double(i) / lengths);
        obstacles.In(Neighbourhood(start, from + (to - from) * (double(i + 1) / lengths), nearness), near);
    }
    for (const QRectF &box : near)
        if (Meets(box, from, to, nearness)) met.push_back(box);
}

// One of the points between which ways are sought.
struct Stop {
    QPointF at;
    double costs = std::numeric_limits<double>::infinity(); // from the start
    std::size_t before = 0;
    bool done = false;
};

// The best way round some boxes that keeps one distance from them.
class Detour {
public:
    Detour(const RouteRequest &request, const std::vector<QRectF> &boxes, double margin)
        : request_(request), margin_(margin) {
        for (const QRectF &box : boxes) boxes_.push_back(Grown(box, margin));
    }

    Found Find() const {
        Found found = AlongCorners();
        if (boxes_.size() <= kFewBoxes) BendOnce(found);
        found.margin = margin_;
        return found;
    }

private:
    QPointF From() const { return request_.source.box.center(); }
    QPointF To() const { return request_.destination.box.center(); }

    bool IsFree(const QPointF &from, const QPointF &to, bool first, bool last) const {
        if (!first && RunsThrough(request_.source.box, from, to)) return false;
        if (!last && RunsThrough(request_.destination.box, from, to)) return false;
        return std::ranges::none_of(
            boxes_, [&](const QRectF &box) { return RunsThrough(Grown(box, -kSlack), from, to); });
    }

    std::vector<QPointF> Corners() const {
        std::vector<QPointF> corners;
        for (const QRectF &box : boxes_)
            for (const QPointF &corner : {box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()})
                corners.push_back(corner);
        return corners;
    }

    // The stops: the start, the end, and the corners.
    Found AlongCorners() const {
        std::vector<Stop> stops{{From(), 0}, {To()}};
        for (const QPointF &corner : Corners()) stops.push_back({corner});
        for (std::size_t at = 0; at != 1; at = Next(stops)) {
            if (at == stops.size()) return {};
            stops[at].done = true;
            for (std::size_t to = 1; to < stops.size(); ++to) Reach(stops, at, to);
        }
        Found found{{}, stops[1].costs};
        for (std::size_t at = 1; at != 0; at = stops[at].before) found.way.push_back(stops[at].at);
        found.way.push_back(From());
        std::ranges::reverse(found.way);
        return found;
    }

    // The one that promises most; their number when none is left.
    std::size_t Next(const std::vector<Stop> &stops) const {
        std::size_t best = stops.size();
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < stops.size(); ++i) {
            const double costs = stops[i].costs + Distance(stops[i].at, To());
            if (!stops[i].done && costs < least) best = i, least = costs;
        }
        return best;
    }

    void Reach(std::vector<Stop> &stops, std::size_t from, std::size_t to) const {
        const bool first = from == 0, last = to == 1;
        const double costs =
            stops[from].costs + Distance(stops[from].at, stops[to].at) + (first ? 0 : kBendCosts);
        if (stops[to].done || costs >= stops[to].costs) return;
        if (!IsFree(stops[from].at, stops[to].at, first, last)) return;
        stops[to].costs = costs, stops[to].before = from;
    }

    // Where a line from the start past a corner meets one to the end past another.
    void BendOnce(Found &found) const {
        const std::vector<QPointF> corners = Corners();
        for (const QPointF &one : corners) {
            for (const QPointF &other : corners) {
                QPointF bend;
                if (QLineF(From(), one).intersects(QLineF(To(), other), &bend) == QLineF::NoIntersection)
                    continue;
                if (QPointF::dotProduct(bend - From(), one - From()) > 0) Offer(bend, found);
            }
        }
    }

    void Offer(const QPointF &bend, Found &found) const {
        const double costs = Distance(From(), bend) + Distance(bend, To()) + kBendCosts;
        if (!(costs < found.cost) || !IsFree(From(), bend, true, false) || !IsFree(bend, To(), false, true))
            return;
        found.way = {From(), bend, To()}, found.cost = costs;
    }

    const RouteRequest &request_;
    double margin_;
    std::vector<QRectF> boxes_; // grown by the margin
};

class Round {
public:
    explicit Round(const RouteRequest &request)
        : request_(request),
          straight_(Distance(request.source.box.center(), request.destination.box.center())),
          // Links side by side go round the same box one outside of the other.
          further_((request.backwards ? -request.aside : request.aside) + request.mostAside) {}

    std::vector<Point> Find(std::vector<Point> straight) {
        std::vector<QRectF> known, met;
        AddMet(*request_.obstacles, ToQPointF(straight[0]), ToQPointF(straight[1]), 0, met);
        if (met.empty() || met.size() > kMostMet) return straight;
        for (int round = 0; round < kMostRounds && Learn(met, known) && known.size() <= kMostBoxes; ++round) {
            const Found found = Best(known);
            if (found.way.empty()) break;
            if (Met(found.way, 0).empty()) way_ = found.way;
            met = Met(found.way, round < kCarefulRounds ? found.margin - 2 * kSlack : 0);
        }
        return way_.empty() ? straight : Clipped();
    }

private:
    Found Best(const std::vector<QRectF> &known) const {
        Found best;
        for (const Margin &margin : kMargins) {
            if (straight_ + kBendCosts + margin.cost >= best.cost) break;
            const double share = margin.distance / kMargins.front().distance;
            Found found = Detour(request_, known, margin.distance + further_ * share * share).Find();
            found.cost += margin.cost;
            if (found.cost < best.cost) best = std::move(found);
        }
        return best;
    }

    std::vector<QRectF> Met(const Way &way, double nearness) const {
        std::vector<QRectF> met;
        for (std::size_t i = 1; i < way.size(); ++i)
            AddMet(*request_.obstacles, way[i - 1], way[i], nearness, met);
        return met;
    }

    std::vector<Point> Clipped() const {
        std::vector<Point> points;
        for (const QPointF &point : way_) points.push_back(ToPoint(point));
        points.front() = ToPoint(ClipTowards(request_.source, ToQPointF(points[1])));
        points.back() = ToPoint(ClipTowards(request_.destination, ToQPointF(points[points.size() - 2])));
        return points;
    }

    const RouteRequest &request_;
    double straight_, further_;
    Way way_; // the best that runs through nothing
};

} // namespace

std::vector<Point> RoundObstacles(const RouteRequest &request, std::vector<Point> straight) {
    if (!request.obstacles || straight.size() != 2) return straight;
    if (Overlap(request.source.box, request.destination.box)) return straight;
    return Round(request).Find(std::move(straight));
}

} // namespace diagram
