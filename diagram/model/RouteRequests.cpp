#include "diagram/model/RouteRequests.h"

#include "diagram/model/Node.h"
#include "diagram/shapes/Arrows.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr double kSpacing = 180;       // twips between links side by side
constexpr double kWidestBundle = 6000; // twips; more links than fit come nearer
constexpr double kLongestHead = 1500;  // twips; a route isn't bent for more
constexpr int kCrowd = 1000;           // more links than that make a node crowded
constexpr int kOften = 5;       // questions, from which on more than is asked for is looked up and kept
constexpr double kBeyond = 600; // twips around an area that are looked up with it

// Areas without width or height included.
bool Touch(const QRectF &a, const QRectF &b) {
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

// Of the longer of the heads that the link has at the node.
double HeadAt(const Node *node, const LinkDraft &link) {
    const LinkData &data = *link.data;
    double head = 0;
    if (link.source == node) head = HeadLength(data.arrowSource, data.arrowSizeSource, data.drawWidth);
    if (link.destination == node)
        head = std::max(head, HeadLength(data.arrowDest, data.arrowSizeDest, data.drawWidth));
    return std::min(head, kLongestHead);
}

RouteEnd EndAt(const Node *node, const LinkDraft &link) {
    if (!node) {
        QRectF box(QPointF(), link.looseSize.isEmpty() ? QSizeF(0, 0) : link.looseSize);
        box.moveCenter(link.loose);
        return {box, link.looseShape, link.looseOrientation,
                link.looseSize.isEmpty() ? 0 : HeadAt(nullptr, link)};
    }
    return {node->Bounds(), node->Shape(), node->ShapeOrientation(), HeadAt(node, link)};
}

// The other links between two nodes, in the order of their identities; empty when both nodes are crowded.
std::vector<Link *> LinksBetween(const Node *a, const Node *b, ItemId but) {
    if (a->Links().Count() > b->Links().Count()) std::swap(a, b);
    if (a->Links().Count() > kCrowd) return {};
    std::vector<Link *> between;
    for (Link *other : a->Links()) {
        const bool same = &other->Source() == a && &other->Destination() == b;
        const bool back = &other->Source() == b && &other->Destination() == a;
        if ((same || back) && other->Id() != but) between.push_back(other);
    }
    return between;
}

// Gives the link its rank among those between the same two nodes; a new one ranks last. All of them leave the
// same room for arrow heads.
void SetAside(const LinkDraft &link, RouteRequest &request) {
    if (!link.source || !link.destination) return;
    const std::vector<Link *> beside = LinksBetween(link.source, link.destination, link.id);
    if (beside.empty()) return;
    const auto others = double(beside.size());
    const double spacing = std::min(kSpacing, kWidestBundle / others);
    const auto rank = double(std::ranges::count_if(
        beside, [&](const Link *other) { return link.id == kNoItem || other->Id() < link.id; }));
    if (request.sameNode) {
        request.aside = rank * spacing;
        request.mostAside = others * spacing;
        return;
    }
    for (const Link *other : beside) {
        const LinkDraft at(*other);
        request.source.head = std::max(request.source.head, HeadAt(link.source, at));
        request.destination.head = std::max(request.destination.head, HeadAt(link.destination, at));
    }
    // What is left of a link that runs the other way is right of it.
    request.backwards = link.source->Id() > link.destination->Id();
    request.aside = (request.backwards ? -1 : 1) * (rank - others / 2) * spacing;
    request.mostAside = others / 2 * spacing;
}

ItemId IdOf(const Node *node) { return node ? node->Id() : kNoItem; }
bool IsCrowded(const Node *node) { return node && node->Links().Count() > kCrowd; }

const LinkData kNewLink;

bool Holds(const QRectF &area, const QRectF &part) {
    return area.left() <= part.left() && part.right() <= area.right() && area.top() <= part.top() &&
           part.bottom() <= area.bottom();
}

} // namespace

LinkDraft::LinkDraft() : data(&kNewLink) {}
LinkDraft::LinkDraft(const Link &link)
    : data(&link.Data()), source(&link.Source()), destination(&link.Destination()), id(link.Id()) {}

RouteRequest RequestFor(const LinkDraft &link) {
    RouteRequest request;
    request.style = link.data->style;
    request.source = EndAt(link.source, link);
    request.destination = EndAt(link.destination, link);
    request.sameNode = link.source == link.destination;
    request.old = link.data->points;
    SetAside(link, request);
    return request;
}

std::vector<Link *> LinksBeside(const Link &link) {
    return LinksBetween(&link.Source(), &link.Destination(), link.Id());
}

bool IsCrowded(const LinkDraft &link) { return IsCrowded(link.source) || IsCrowded(link.destination); }

bool IsObstacleFor(const RouteRequest &request, const QRectF &box) {
    return !Overlap(box, request.source.box) && !Overlap(box, request.destination.box);
}

bool IsMet(const Obstacles &obstacles, const std::vector<Point> &route) {
    std::vector<QRectF> boxes;
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QPointF from = ToQPointF(route[i - 1]), to = ToQPointF(route[i]);
        boxes.clear();
        obstacles.In(Neighbourhood(from, to, kNearness), boxes);
        if (std::ranges::any_of(boxes, [&](const QRectF &box) { return Meets(box, from, to, kNearness); }))
            return true;
    }
    return false;
}

NodesAround::NodesAround(const BoxIndex &index, const LinkDraft &link, const RouteRequest &request)
    : index_(index), source_(IdOf(link.source)), destination_(IdOf(link.destination)), request_(request) {}

void NodesAround::Find(const QRectF &area, std::vector<QRectF> &boxes) const {
    found_.clear();
    index_.Find(area, found_);
    for (const BoxIndex::Entry &entry : found_)
        if (IsInTheWay(entry)) boxes.push_back(entry.first.Rect());
}

bool NodesAround::IsInTheWay(const BoxIndex::Entry &entry) const {
    const auto &[box, id] = entry;
    return id != source_ && id != destination_ && IsObstacleFor(request_, box.Rect());
}

const NodesAround::Known &NodesAround::KnownAround(const QRectF &area) const {
    for (const Known &known : known_)
        if (Holds(known.area, area)) return known;
    Known &known = known_.emplace_back(Known{area.adjusted(-kBeyond, -kBeyond, kBeyond, kBeyond), {}});
    Find(known.area, known.boxes);
    return known;
}

void NodesAround::In(const QRectF &area, std::vector<QRectF> &boxes) const {
    if (++asked_ < kOften) return Find(area, boxes);
    for (const QRectF &box : KnownAround(area).boxes)
        if (Touch(box, area)) boxes.push_back(box);
}

void NodesAround::Along(const QPointF &from, const QPointF &to, double nearness, std::vector<QRectF> &boxes,
                        std::size_t most) const {
    index_.VisitAlong(from, to, nearness, [&](const BoxIndex::Entry &entry) {
        if (IsInTheWay(entry) && Meets(entry.first.Rect(), from, to, nearness))
            boxes.push_back(entry.first.Rect());
        return boxes.size() <= most;
    });
}

} // namespace diagram
