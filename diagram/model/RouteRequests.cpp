#include "diagram/model/RouteRequests.h"

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/shapes/Arrows.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr double kSpacing = 180;       // twips between links side by side
constexpr double kWidestBundle = 6000; // twips; more links than fit come nearer
constexpr double kLongestHead = 1500;  // twips; a way isn't bent for more
constexpr int kCrowd = 1000;

double HeadLength(int arrow, int size, double drawWidth) {
    const ArrowRow *row = arrow ? FindArrow(arrow) : nullptr;
    return row ? std::min(ArrowScale(size, drawWidth) * std::max(1.0, row->eats), kLongestHead) : 0;
}

double HeadAt(const Node &node, const Link &link) {
    const LinkData &data = link.Data();
    double head = 0;
    if (&link.Source() == &node) head = HeadLength(data.arrowSource, data.arrowSizeSource, data.drawWidth);
    if (&link.Destination() == &node)
        head = std::max(head, HeadLength(data.arrowDest, data.arrowSizeDest, data.drawWidth));
    return head;
}

// All links side by side leave the same room for their heads.
void SetAside(const Link &link, RouteRequest &request) {
    const std::vector<Link *> beside = LinksBeside(link);
    if (beside.size() < 2) return;
    const auto others = double(beside.size() - 1);
    const double spacing = std::min(kSpacing, kWidestBundle / others);
    const auto rank = double(std::ranges::find(beside, &link) - beside.begin());
    if (request.sameNode) {
        request.aside = rank * spacing;
        request.mostAside = others * spacing;
        return;
    }
    for (const Link *other : beside) {
        request.source.head = std::max(request.source.head, HeadAt(link.Source(), *other));
        request.destination.head = std::max(request.destination.head, HeadAt(link.Destination(), *other));
    }
    // The left of a link that runs against the others is their right.
    request.backwards = link.Source().Id() > link.Destination().Id();
    request.aside = (request.backwards ? -1 : 1) * (rank - others / 2) * spacing;
    request.mostAside = others / 2 * spacing;
}

} // namespace

RouteRequest RequestFor(const Link &link) {
    const Node &from = link.Source(), &to = link.Destination();
    RouteRequest request;
    request.style = link.Style();
    request.source = {from.Bounds(), from.Shape(), from.ShapeOrientation(), HeadAt(from, link)};
    request.destination = {to.Bounds(), to.Shape(), to.ShapeOrientation(), HeadAt(to, link)};
    request.sameNode = &from == &to;
    request.old = link.Data().points;
    SetAside(link, request);
    return request;
}

std::vector<Link *> LinksBeside(const Link &link) {
    const Node *a = &link.Source(), *b = &link.Destination();
    if (a->Links().Count() > b->Links().Count()) std::swap(a, b);
    if (a->Links().Count() > kCrowd) return {};
    std::vector<Link *> beside;
    for (Link *other : a->Links()) {
        const bool same = &other->Source() == a && &other->Destination() == b;
        const bool back = &other->Source() == b && &other->Destination() == a;
        if (same || back) beside.push_back(other);
    }
    return beside;
}

bool IsCrowded(const Link &link) {
    return link.Source().Links().Count() > kCrowd || link.Destination().Links().Count() > kCrowd;
}

bool IsObstacleFor(const RouteRequest &request, const QRectF &box) {
    return !Overlap(box, request.source.box) && !Overlap(box, request.destination.box);
}

bool IsMet(const Obstacles &obstacles, const std::vector<Point> &way) {
    std::vector<QRectF> boxes;
    for (std::size_t i = 1; i < way.size(); ++i) {
        const QPointF from = ToQPointF(way[i - 1]), to = ToQPointF(way[i]);
        boxes.clear();
        obstacles.In(Neighbourhood(from, to, kNearness), boxes);
        if (std::ranges::any_of(boxes, [&](const QRectF &box) { return Meets(box, from, to, kNearness); }))
            return true;
    }
    return false;
}

void NodesAround::In(const QRectF &area, std::vector<QRectF> &boxes) const {
    found_.clear();
    index_.Find(area, found_);
    for (const auto &[box, id] : found_) {
        if (id == link_.Source().Id() || id == link_.Destination().Id()) continue;
        if (const QRectF rect = box.Rect(); IsObstacleFor(request_, rect)) boxes.push_back(rect);
    }
}

} // namespace diagram
