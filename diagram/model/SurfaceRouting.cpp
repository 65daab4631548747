// When the ways of links are routed: as late as possible, and for a group of changes with the former way
// recorded first.
#include "diagram/model/Surface.h"
#include "diagram/shapes/Router.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr float kSamePlace = 2; // twips; below anything that a hand can place

RouteEnd EndAt(const Node &node) { return {node.Bounds(), node.Shape(), node.ShapeOrientation()}; }

RouteRequest RequestFor(const Link &link) {
    RouteRequest request;
    request.style = link.Style();
    request.source = EndAt(link.Source());
    request.destination = EndAt(link.Destination());
    request.sameNode = &link.Source() == &link.Destination();
    request.old = link.Data().points;
    return request;
}

bool AreNear(const Point &a, const Point &b) {
    return std::abs(a.x - b.x) < kSamePlace && std::abs(a.y - b.y) < kSamePlace;
}

bool HasSameBends(const std::vector<Point> &a, const std::vector<Point> &b) {
    return a.size() == b.size() && std::equal(a.begin() + 1, a.end() - 1, b.begin() + 1, AreNear);
}

} // namespace

void Surface::Route(Link &link) {
    RouteRequest request = RequestFor(link);
    request.keepBends = link.data_.ownBends;
    link.data_.points = diagram::Route(request);
    link.stale_ = false;
}

// Points that came from outside, a file mostly, tell not whose bends they are: those that the router gives
// for the present boxes are its own.
void Surface::JudgeBends(Link &link) {
    if (!link.unjudged_ || link.KeepsPoints()) return;
    link.unjudged_ = false;
    const auto &points = link.data_.points;
    link.data_.ownBends = points.size() > 2 && !HasSameBends(points, diagram::Route(RequestFor(link)));
}

void Surface::BeforeMove(Node &node) {
    for (Link *link : node.links_) {
        JudgeBends(*link);
        if (!link->KeepsPoints()) Record(*link);
    }
}

void Surface::AfterMove(Node &node) {
    for (Link *link : node.links_) {
        if (link->KeepsPoints()) continue;
        link->stale_ = true;
        Notify(*link, Change::Geometry);
    }
}

void Surface::Recalculate() {
    for (const auto &link : links_) link->Way();
}

} // namespace diagram
