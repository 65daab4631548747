#include "diagram/model/AutomaticStyle.h"

#include "diagram/model/LinkDraft.h"
#include "diagram/model/RouteRequests.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/model/TextBeside.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

constexpr double kInside = 1; // twips that a route must come into one of its ends to run through it
constexpr double kSame = 1;   // twips; a piece that is shorter isn't seen, nor a difference in length

constexpr double kShortEnd = 300;  // twips; a shorter first or last piece has no room for an arrow head
constexpr double kOffMiddle = 0.3; // of a side; an end farther from its middle is at a corner
constexpr int kBendsForBadEnd = 2; // what an end that is too short or at a corner counts as

constexpr int kThroughOne = 10000; // what a node that is run through counts as: more than coming near to all

constexpr std::size_t kMostToChoose = 200000; // links times nodes; with more, choosing would take too long
constexpr std::size_t kMostStrangers = 1000;  // among more links nobody sees how many one crosses

using Route = std::vector<Point>;

// How good a route is; what comes first counts for more.
struct Merit {
    int met = std::numeric_limits<int>::max(); // nodes and texts, see CountMet
    int bends = 0;
    int crossed = 0; // other links
    double length = 0;
    int Turmoil() const { return bends + crossed; }
    bool IsBetter(const Merit &other) const {
        if (met != other.met) return met < other.met;
        if (Turmoil() != other.Turmoil()) return Turmoil() < other.Turmoil();
        return bends != other.bends ? bends < other.bends : length < other.length - kSame;
    }
};

double Length(const Point &a, const Point &b) { return std::abs(a.x - b.x) + std::abs(a.y - b.y); }

bool IsMet(const QRectF &box, const Route &route, double nearness, std::size_t first, std::size_t last) {
    for (std::size_t i = first; i <= last; ++i)
        if (Meets(box, ToQPointF(route[i - 1]), ToQPointF(route[i]), nearness)) return true;
    return false;
}

// What the route runs through or comes near to: other nodes, the texts beside bars, and its own two nodes,
// which only its first and its last piece may touch.
int CountMet(const Surface &surface, const LinkDraft &draft, const RouteRequest &request,
             const Route &route) {
    const std::size_t last = route.size() - 1;
    const auto touches = [&](const QRectF &box, double nearness) {
        return IsMet(box, route, nearness, 1, last);
    };
    int met = IsMet(request.source.box, route, -kInside, 2, last);
    met += IsMet(request.destination.box, route, -kInside, 1, last - 1);
    met *= kThroughOne;
    for (const Node &node : surface.Nodes()) {
        if (node.Hidden()) continue;
        if (const QRectF text = TextBeside(node, surface.Measure()); !text.isEmpty()) met += touches(text, 0);
        if (&node == draft.source || &node == draft.destination) continue;
        const QRectF box = node.Bounds();
        if (!touches(box, kNearness) || !IsObstacleFor(request, box)) continue;
        met += touches(box, 0) ? kThroughOne : 1;
    }
    return met;
}

bool IsLevel(const Point &a, const Point &b) { return std::abs(b.y - a.y) <= kSame; }

// The ends of the route and the points at which it turns.
Route Corners(const Route &route) {
    Route corners{route.front()};
    for (const Point &point : route) {
        const std::size_t count = corners.size();
        if (Length(corners.back(), point) <= kSame) continue;
        if (count > 1 &&
            IsLevel(corners[count - 2], corners[count - 1]) == IsLevel(corners[count - 1], point))
            corners.back() = point;
        else
            corners.push_back(point);
    }
    return corners;
}

// Whether the piece between the node and the next corner is too short, or leaves the node at a corner of it.
bool IsBadEnd(const Point &end, const Point &next, const QRectF &node) {
    if (Length(end, next) < kShortEnd) return true;
    const QPointF off = ToQPointF(end) - node.center();
    return IsLevel(end, next) ? std::abs(off.y()) > kOffMiddle * node.height()
                              : std::abs(off.x()) > kOffMiddle * node.width();
}

// The bends that are seen. A first or last piece without length counts as one, as a small move of its node
// makes it a bend. Bad ends count as more, but not those of a straight line.
int CountBends(const RouteRequest &request, const Route &route) {
    const int grown =
        Length(route[0], route[1]) <= kSame || Length(route[route.size() - 2], route.back()) <= kSame;
    const Route corners = Corners(route);
    if (corners.size() < 3) return grown;
    const bool bad = IsBadEnd(corners[0], corners[1], request.source.box) ||
                     IsBadEnd(corners.back(), corners[corners.size() - 2], request.destination.box);
    return int(corners.size()) - 2 + grown + (bad ? kBendsForBadEnd : 0);
}

// Whether a level piece and an upright one cross.
bool AreCrossing(const Point &a, const Point &b, const Point &c, const Point &d) {
    const auto parts = [](float at, float one, float other) { return (at - one) * (at - other) < 0; };
    if (a.y == b.y && c.x == d.x) return parts(c.x, a.x, b.x) && parts(a.y, c.y, d.y);
    if (a.x == b.x && c.y == d.y) return parts(a.x, c.x, d.x) && parts(c.y, a.y, b.y);
    return false;
}

// The routes of the links that have no node in common with the draft: those that have one are laid past each
// other.
std::vector<const Route *> StrangersOf(const Surface &surface, const LinkDraft &draft) {
    const auto isEnd = [&](const Node &node) { return &node == draft.source || &node == draft.destination; };
    std::vector<const Route *> routes;
    if (surface.Links().size() > kMostStrangers) return routes;
    for (const auto &link : surface.Links())
        if (link->Id() != draft.id && !link->Hidden() && !isEnd(link->Source()) &&
            !isEnd(link->Destination()))
            routes.push_back(&link->Route());
    return routes;
}

int CountCrossed(const std::vector<const Route *> &strangers, const Route &route) {
    int crossed = 0;
    for (const Route *other : strangers)
        for (std::size_t i = 1; i < other->size(); ++i)
            for (std::size_t j = 1; j < route.size(); ++j)
                crossed += AreCrossing((*other)[i - 1], (*other)[i], route[j - 1], route[j]);
    return crossed;
}

Merit MeritOf(const Surface &surface, const LinkDraft &draft, const Route &route) {
    const RouteRequest request = RequestFor(draft);
    Merit merit{CountMet(surface, draft, request, route), CountBends(request, route)};
    for (std::size_t i = 1; i < route.size(); ++i) merit.length += Length(route[i - 1], route[i]);
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
    const std::vector<const Route *> strangers = StrangersOf(surface, draft);
    Merit most;
    const auto offer = [&](int style) {
        data.style = std::uint8_t(style);
        const Route route = surface.Routes().RouteOf(styled);
        Merit merit = MeritOf(surface, styled, route);
        if (merit.met <= most.met) merit.crossed = CountCrossed(strangers, route);
        if (merit.IsBetter(most)) best = style, most = merit;
    };
    if (HasForm(best, LinkForm::Orthogonal)) offer(best);
    // Three segments can look like one straight line. Longer styles are tried while the best so far meets
    // something, else only those with no more bends than it has, or one more where it crosses links.
    const auto mayBeBetter = [&](const LinkStyleRow &row) {
        const int enough = most.bends + 1 + (most.crossed > 0 ? 1 : 0);
        return row.form == LinkForm::Orthogonal &&
               (most.met > 0 || int(row.directions.size()) <= std::max(3, enough));
    };
    for (const LinkStyleRow &row : LinkStyleTable())
        if (mayBeBetter(row)) offer(row.value);
    return best;
}

int StyleFor(const Link &link, int style) {
    return style == kAutomaticStyle ? BestOrthogonalStyle(link.Owner(), LinkDraft(link)) : style;
}

void GiveBestStyles(Surface &surface, const std::vector<Link *> &links) {
    if (links.size() * std::size_t(surface.Nodes().Count()) > kMostToChoose) return;
    for (Link *link : links) {
        const bool chooses =
            HasForm(link->Style(), LinkForm::Orthogonal) && !link->KeepsPoints() && !link->OwnBends();
        if (chooses && &link->Source() != &link->Destination())
            link->SetStyle(StyleFor(*link, kAutomaticStyle));
    }
}

} // namespace diagram
