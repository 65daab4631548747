#include "diagram/shapes/RouterPolyline.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/geometry/Polyline.h"
#include "diagram/shapes/KnownBoxes.h"
#include "diagram/shapes/RouterClip.h"
#include "diagram/shapes/RouterDetour.h"
#include "diagram/shapes/RouterLanes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace diagram {

namespace {

constexpr int kMostRounds = 40;        // of searching among ever more boxes
constexpr int kCarefulRounds = 8;      // after which a route may come near to boxes, but not run through one
constexpr std::size_t kMostBoxes = 48; // with more known ones the search is given up
constexpr double kWorthALook = 700;    // twips that a route among many boxes must promise to save
constexpr std::size_t kMostMet = 12;   // a line through more boxes stays straight: no way round looks better

// How far from the boxes a route keeps in twips, and what it costs that it keeps no farther.
struct Margin {
    double distance, cost;
};
constexpr std::array<Margin, 3> kMargins{{{kClearance, 0}, {100, 1500}, {30, 4000}}};

using Route = std::vector<QPointF>; // from the middle of one end to that of the other

// The search for a way round obstacles.
class WayRound {
public:
    explicit WayRound(const RouteRequest &request)
        : request_(request),
          straight_(Distance(request.source.box.center(), request.destination.box.center())),
          // Links side by side go round the same box one outside of the other.
          further_((request.backwards ? -request.aside : request.aside) + request.mostAside),
          detour_(request.source.box, request.destination.box) {}

    std::vector<Point> Find(std::vector<Point> straight) {
        std::vector<QRectF> known, met;
        request_.obstacles->Along(ToQPointF(straight[0]), ToQPointF(straight[1]), 0, met, kMostMet);
        if (met.empty() || met.size() > kMostMet) return straight;
        for (int round = 0; round < kMostRounds && Learn(met, known) && known.size() <= kMostBoxes; ++round) {
            const FoundRoute found = Best(known);
            if (found.route.empty()) break;
            met = Met(found.route, round < kCarefulRounds ? found.margin - 2 * kSlack : 0);
            if (!RunsThroughAny(found.route, met)) route_ = found.route;
            Forget(met);
        }
        return route_.empty() ? straight : Clipped();
    }

private:
    // What is known of the routes that keep one of the margins.
    struct Known {
        FoundRoute found;   // empty when there was none, or when it runs into a box known since
        double atLeast = 0; // what a route with that margin costs
    };

    FoundRoute Best(const std::vector<QRectF> &boxes) {
        const double enough = boxes.size() > kFewBoxes ? kWorthALook : 0;
        FoundRoute best;
        for (std::size_t i = 0; i < kMargins.size(); ++i) {
            const double cost = kMargins[i].cost, most = best.cost - cost;
            if (straight_ + kBendCosts >= most) break;
            if (!best.route.empty() && known_[i].atLeast + enough >= most) continue;
            if (known_[i].found.route.empty()) Look(i, boxes, most);
            if (known_[i].found.cost < most) best = known_[i].found, best.cost += cost;
        }
        return best;
    }

    void Look(std::size_t margin, const std::vector<QRectF> &boxes, double most) {
        Known &known = known_[margin];
        const double distance = kMargins[margin].distance, share = distance / kMargins.front().distance;
        known.found = detour_.Find(boxes, distance + further_ * share * share, most);
        known.atLeast = std::max(known.atLeast, std::min(known.found.cost, most));
    }

    // Forgets routes that run into the boxes, but not what they cost: with more boxes routes only cost more.
    void Forget(const std::vector<QRectF> &boxes) {
        for (Known &known : known_)
            if (RunsThroughAny(known.found.route, boxes, known.found.margin - 2 * kSlack)) known.found = {};
    }

    std::vector<QRectF> Met(const Route &route, double nearness) const {
        std::vector<QRectF> met;
        for (std::size_t i = 1; i < route.size(); ++i)
            request_.obstacles->Along(route[i - 1], route[i], nearness, met);
        return met;
    }

    static bool RunsThroughAny(const Route &route, const std::vector<QRectF> &boxes, double nearness = 0) {
        return std::ranges::any_of(boxes, [&](const QRectF &box) {
            for (std::size_t i = 1; i < route.size(); ++i)
                if (Meets(box, route[i - 1], route[i], nearness)) return true;
            return false;
        });
    }

    std::vector<Point> Clipped() const {
        std::vector<Point> points;
        for (const QPointF &point : route_) points.push_back(ToPoint(point));
        points.front() = ToPoint(ClipTowards(request_.source, ToQPointF(points[1])));
        points.back() = ToPoint(ClipTowards(request_.destination, ToQPointF(points[points.size() - 2])));
        return points;
    }

    const RouteRequest &request_;
    double straight_, further_;
    Detour detour_;
    std::array<Known, kMargins.size()> known_;
    Route route_; // the best that runs through nothing
};

} // namespace

std::vector<Point> RoundObstacles(const RouteRequest &request, std::vector<Point> straight) {
    if (!request.obstacles || straight.size() != 2) return straight;
    if (Overlap(request.source.box, request.destination.box)) return straight;
    return WayRound(request).Find(std::move(straight));
}

} // namespace diagram
