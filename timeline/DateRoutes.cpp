#include "timeline/DateRoutes.h"

#include "diagram/model/AnyItem.h"
#include "diagram/model/Calendar.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Obstacles.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <vector>

namespace timeline {

namespace {

constexpr int kFilledCircle = 1; // an arrow head
constexpr int kSmall = 0;        // size of it
constexpr float kGap = 150;      // twips that a run along the strip keeps from the node, or from the strip
constexpr int kMostNodes = 1000; // of a surface on which obstacles are looked for

// Styles of links by their directions.
constexpr int kVH = 2, kHV = 3, kVHV = 4, kHVH = 5;

// Along the strip and across it, so that one rule serves both directions.
struct Place {
    float along, across;
};

struct Route {
    std::vector<Place> places;
    bool twoBends = false;
};

// The routes that a link may take to its day, and the best of them.
class RouteChoice {
public:
    RouteChoice(const diagram::Link &link, bool horizontal) : horizontal_(horizontal), node_(link.Source()) {
        const diagram::Point end = link.Route().back();
        end_ = horizontal ? Place{end.x, end.y} : Place{end.y, end.x};
        first_ = horizontal ? node_.Left() : node_.Top();
        last_ = first_ + (horizontal ? node_.Width() : node_.Height());
        day_ = link.Destination().Bounds();
        strip_ = EdgesOf(day_);
        near_ = horizontal ? node_.Top() : node_.Left();
        far_ = near_ + (horizontal ? node_.Height() : node_.Width());
    }

    Route Best() {
        CollectObstacles();
        if (IsOverTheNode()) return Straight();
        if (IsLevelWithTheStrip()) return BesideTheStrip();
        for (const Route &route :
             {OneBend(), TwoBends(Facing() + Towards() * kGap), TwoBends(end_.across - Towards() * kGap)})
            if (IsFree(route)) return route;
        return OneBend();
    }

    std::vector<diagram::Point> Points(const Route &route) const {
        std::vector<diagram::Point> points;
        for (const Place &place : route.places)
            points.push_back(horizontal_ ? diagram::Point{place.along, place.across}
                                         : diagram::Point{place.across, place.along});
        return points;
    }

    // The lowest of the nodes through which the route runs all the same; null for none.
    const diagram::Node *LowestMet(const Route &route) const {
        const diagram::Node *lowest = nullptr;
        for (const diagram::Node *node : obstacles_)
            if (Meets(route, *node) && (!lowest || diagram::LiesBelow(node, lowest))) lowest = node;
        return lowest;
    }

private:
    std::pair<float, float> EdgesOf(const QRectF &box) const {
        return horizontal_ ? std::pair(float(box.top()), float(box.bottom()))
                           : std::pair(float(box.left()), float(box.right()));
    }
    bool IsOverTheNode() const { return end_.along > first_ && end_.along < last_; }
    // 1 when the strip lies at higher coordinates.
    float Towards() const { return end_.across > (near_ + far_) / 2 ? 1.0F : -1.0F; }
    // The side of the node that faces the strip.
    float Facing() const { return Towards() > 0 ? far_ : near_; }

    Route Straight() const {
        const Place start{end_.along, Facing()};
        return {{start, start, end_}};
    }
    Route OneBend() const {
        const float level = (near_ + far_) / 2;
        return {{{end_.along > last_ ? last_ : first_, level}, {end_.along, level}, end_}};
    }
    Route TwoBends(float level) const {
        const float middle = (first_ + last_) / 2;
        return {{{middle, Facing()}, {middle, level}, {end_.along, level}, end_}, true};
    }

    // Then a route along the strip would run over the months.
    bool IsLevelWithTheStrip() const {
        const float level = (near_ + far_) / 2;
        return level > strip_.first && level < strip_.second;
    }
    Route BesideTheStrip() const {
        const float middle = (first_ + last_) / 2;
        const bool before = end_.across < (strip_.first + strip_.second) / 2;
        const float side = before ? near_ : far_;
        const auto bands = EdgesOf(day_ | BandsBeside(node_.Owner(), day_));
        const float level = before ? std::min(side, bands.first) - kGap : std::max(side, bands.second) + kGap;
        return {{{middle, side}, {middle, level}, {end_.along, level}, end_}, true};
    }

    // A node that holds other ones, larger than the one whose route is laid; the frame of a lane, say.
    bool IsFrame(const diagram::Node &node) const {
        const QRectF box = node.Bounds();
        if (node.Width() <= node_.Width() || node.Height() <= node_.Height()) return false;
        return std::ranges::any_of(obstacles_, [&](const diagram::Node *other) {
            return other != &node && box.contains(other->Bounds());
        });
    }

    // Frames around the node are not in its way.
    void CollectObstacles() {
        const diagram::Surface &surface = node_.Owner();
        if (surface.Nodes().Count() > kMostNodes) return;
        const QPointF middle = node_.Bounds().center();
        for (const diagram::Node &each : surface.Nodes())
            if (&each != &node_ && !each.Hidden() && !IsTimelineMaterial(each) &&
                !each.Bounds().contains(middle))
                obstacles_.push_back(&each);
    }

    bool Meets(const Route &route, const diagram::Node &node) const {
        const QRectF box = node.Bounds();
        const std::vector<diagram::Point> points = Points(route);
        for (std::size_t i = 1; i < points.size(); ++i)
            if (diagram::Meets(box, diagram::ToQPointF(points[i - 1]), diagram::ToQPointF(points[i])))
                return !IsFrame(node);
        return false;
    }
    bool IsFree(const Route &route) const {
        return std::ranges::none_of(obstacles_,
                                    [&](const diagram::Node *node) { return Meets(route, *node); });
    }

    const bool horizontal_;
    const diagram::Node &node_;
    Place end_{};
    QRectF day_;
    float first_ = 0, last_ = 0;    // of the node, along the strip
    float near_ = 0, far_ = 0;      // across it
    std::pair<float, float> strip_; // the strip's edges, across, without its bands
    std::vector<const diagram::Node *> obstacles_;
};

int StyleOf(const Route &route, bool horizontal) {
    if (route.twoBends) return horizontal ? kVHV : kHVH;
    return horizontal ? kHV : kVH;
}

} // namespace

void DressDateLinks(diagram::Node &node, const diagram::Node &months) {
    for (diagram::Link *link : node.Links()) {
        if (!IsTimelineMaterial(link->Destination()) || link->Selectable() || !link->Marked()) continue;
        link->SetStyle(kHV);
        link->SetDrawWidth(1);
        link->SetDrawStyle(0);
        link->SetLineColor(months.ForeColor());
        link->SetArrowSource(0);
        link->SetArrowMiddle(0);
        link->SetArrowDest(kFilledCircle);
        link->SetArrowSizeDest(kSmall);
        link->SetJumpStyle(0);
    }
}

void LayDateRoute(diagram::Link &link, bool horizontal) {
    RouteChoice routes(link, horizontal);
    const Route route = routes.Best();
    if (const diagram::Node *met = routes.LowestMet(route); met && diagram::LiesBelow(met, &link))
        link.SetZorder(met->ZOrder());
    std::vector<diagram::Point> points = routes.Points(route);
    if (link.Style() == StyleOf(route, horizontal) && link.Route() == points) return;
    link.SetStyle(StyleOf(route, horizontal));
    link.Points().Assign(std::move(points));
}

} // namespace timeline
