#include "diagram/model/AutomaticStyle.h"

#include "diagram/model/LinkDraft.h"
#include "diagram/model/RouteRequests.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

constexpr double kInside = 1; // twips that a way must come into one of its ends to run through it
constexpr double kSame = 1;   // twips; a piece that is shorter isn't seen, nor a difference in length

constexpr int kThroughOne = 10000; // that is worse than coming near to any number

using Way = std::vector<Point>;

struct Merit {
    int met = std::numeric_limits<int>::max();
    int bends = 0;
    double length = 0;
    bool IsBetter(const Merit &other) const {
        if (met != other.met) return met < other.met;
        return bends != other.bends ? bends < other.bends : length < other.length - kSame;
    }
};

double Length(const Point &a, const Point &b) { return std::abs(a.x - b.x) + std::abs(a.y - b.y); }

bool IsMet(const QRectF &box, const Way &way, double nearness, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i <= last; ++i)
        if (Meets(box, ToQPointF(way[i - 1]), ToQPointF(way[i]), nearness)) return true;
    return false;
}

// Nodes, and its own ends, which it may touch but with its first and its last piece.
int CountMet(const Surface &surface, const LinkDraft &draft, const RouteRequest &request, const Way &way) {
    const std::size_t last = way.size() - 1;
    const auto touches = [&](const QRectF &box, double nearness) {
        return IsMet(box, way, nearness, 1, last);
    };
    int met = IsMet(request.source.box, way, -kInside, 2, last);
    met += IsMet(request.destination.box, way, -kInside, 1, last - 1);
    met *= kThroughOne;
    for (const Node &node : surface.Nodes()) {
        if (node.Hidden() || &node == draft.source || &node == draft.destination) continue;
        const QRectF box = node.Bounds();
        if (!touches(box, kNearness) || !IsObstacleFor(request, box)) continue;
        met += touches(box, 0) ? kThroughOne : 1;
    }
    return met;
}

// Bends that are seen. A first or last piece without length, whose bend a small move brings out, counts as
// one.
int CountBends(const Way &way) {
    std::vector<Point> seen{way.front()};
    for (const Point &point : way)
        if (Length(seen.back(), point) > kSame) seen.push_back(point);
    int bends = Length(way[0], way[1]) <= kSame || Length(way[way.size() - 2], way.back()) <= kSame;
    for (std::size_t i = 2; i < seen.size(); ++i) {
        const bool level = std::abs(seen[i - 1].y - seen[i - 2].y) <= kSame;
        const bool levelThen = std::abs(seen[i].y - seen[i - 1].y) <= kSame;
        bends += level != levelThen;
    }
    return bends;
}

Merit MeritOf(const Surface &surface, const LinkDraft &draft, const Way &way) {
    Merit merit{CountMet(surface, draft, RequestFor(draft), way), CountBends(way), 0};
    for (std::size_t i = 1; i < way.size(); ++i) merit.length += Length(way[i - 1], way[i]);
    return merit;
}

} // namespace

int BestOrthogonalStyle(Surface &surface, const LinkDraft &draft) {
    LinkData data = *draft.data;
    data.ownBends = data.addPointsMode = data.movePointsMode = false;
    data.points.clear();
    LinkDraft styled = draft;
    styled.data = &data;
    int best = draft.data->style;
    Merit most;
    const auto offer = [&](int style) {
        data.style = std::uint8_t(style);
        const Merit merit = MeritOf(surface, styled, surface.WayOf(styled));
        if (merit.IsBetter(most)) best = style, most = merit;
    };
    const LinkStyleRow *own = FindLinkStyle(best);
    if (own && own->form == LinkForm::Orthogonal) offer(best);
    // Three segments can be one straight line; more than a free way needs can't be better.
    const auto mayBeBetter = [&](const LinkStyleRow &row) {
        return row.form == LinkForm::Orthogonal &&
               (most.met > 0 || int(row.directions.size()) <= std::max(3, most.bends + 1));
    };
    for (const LinkStyleRow &row : LinkStyleTable())
        if (mayBeBetter(row)) offer(row.value);
    return best;
}

int StyleFor(const Link &link, int style) {
    return style == kAutomaticStyle ? BestOrthogonalStyle(link.Owner(), LinkDraft(link)) : style;
}

} // namespace diagram
