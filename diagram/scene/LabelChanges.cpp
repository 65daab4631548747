// What has changed around the labels, and which of them that disturbs.
#include "diagram/geometry/Crossing.h"
#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/LabelPlaces.h"

#include <algorithm>
#include <utility>

namespace diagram {

namespace {

QRectF Grown(const QRectF &rect, double by) { return rect.adjusted(-by, -by, by, by); }

QPointF PlaceOf(const QPointF &point) { return point; }
QPointF PlaceOf(const Point &point) { return ToQPointF(point); }

// Calls `visit` with the ends of each piece of a route.
template <typename Points>
void ForPieces(const Points &points, const auto &visit) {
    for (std::size_t i = 1; i < points.size(); ++i) visit(PlaceOf(points[i - 1]), PlaceOf(points[i]));
}
void ForPiecesOf(int style, const std::vector<Point> &route, const auto &visit) {
    IsCurved(style, route) ? ForPieces(RoutePieces(style, route), visit) : ForPieces(route, visit);
}
std::vector<QLineF> PiecesOf(int style, const std::vector<Point> &route) {
    std::vector<QLineF> pieces;
    ForPiecesOf(style, route, [&](const QPointF &from, const QPointF &to) { pieces.emplace_back(from, to); });
    return pieces;
}

} // namespace

// The areas that a label has searched may overlap: then it is told of the same twice in a row.
void LabelPlaces::Disturbance::Free(const QRectF &box) {
    if (freed.boxes.empty() || freed.boxes.back() != box) freed.boxes.push_back(box);
}
void LabelPlaces::Disturbance::Free(const QLineF &piece) {
    if (freed.lines.empty() || freed.lines.back() != piece) freed.lines.push_back(piece);
}
void LabelPlaces::Disturbance::Add(const Disturbance &more) {
    isTaken = isTaken || more.isTaken;
    freed.boxes.insert(freed.boxes.end(), more.freed.boxes.begin(), more.freed.boxes.end());
    freed.lines.insert(freed.lines.end(), more.freed.lines.begin(), more.freed.lines.end());
}

void LabelPlaces::DisturbWhereFreed(const FloatBox &box) {
    if (placed_.empty()) return;
    looked_.Visit(box, [this, freed = box.Rect()](const BoxIndex::Entry &entry) {
        disturbed_[entry.second].Free(freed);
    });
}

void LabelPlaces::DisturbWhereTaken(const FloatBox &box) {
    if (placed_.empty()) return;
    boxes_.Visit(BoxAround(Grown(box.Rect(), kLabelGap)),
                 [this](const BoxIndex::Entry &entry) { disturbed_[entry.second].isTaken = true; });
}

void LabelPlaces::DisturbWhereFreed(const QLineF &piece) {
    looked_.VisitAlong(piece.p1(), piece.p2(), 0, [&](const BoxIndex::Entry &entry) {
        disturbed_[entry.second].Free(piece);
        return true;
    });
}

void LabelPlaces::DisturbWhereTaken(const QLineF &piece) {
    boxes_.VisitAlong(piece.p1(), piece.p2(), kLabelGap, [this](const BoxIndex::Entry &entry) {
        return disturbed_[entry.second].isTaken = true;
    });
}

void LabelPlaces::NodeMoved(ItemId id, const FloatBox *before, const FloatBox *now) {
    const auto optional = [](const FloatBox *box) { return box ? std::optional(*box) : std::nullopt; };
    if (!placed_.empty())
        moved_.nodes.try_emplace(id, Moved::Boxes{optional(before), {}}).first->second.now = optional(now);
}

void LabelPlaces::RouteChanged(const Link &link, const FloatBox *before) {
    if (placed_.empty()) return ForgetRoutes();
    SeenRoute now{link.Style(), {}};
    if (!link.Hidden()) now.points = link.Route();
    if (!knowsRoutes_) {
        if (before) DisturbWhereFreed(*before);
        return DisturbByMoved({}, now);
    }
    SeenRoute &seen = routes_[link.Id()];
    if (seen == now) return;
    pieces_.Remove(link.Id());
    AddPieces(link.Id(), now);
    moved_.routes.try_emplace(link.Id(), std::exchange(seen, std::move(now)));
}

void LabelPlaces::DisturbByMoved(const SeenRoute &before, const SeenRoute &now) {
    const std::vector<QLineF> was = PiecesOf(before.style, before.points),
                              is = PiecesOf(now.style, now.points);
    for (const QLineF &piece : was)
        if (std::ranges::find(is, piece) == is.end()) DisturbWhereFreed(piece);
    for (const QLineF &piece : is)
        if (std::ranges::find(was, piece) == was.end()) DisturbWhereTaken(piece);
}

void LabelPlaces::DisturbByMoved(const Moved::Boxes &boxes) {
    if (boxes.before == boxes.now) return;
    if (boxes.before) DisturbWhereFreed(*boxes.before);
    if (boxes.now) DisturbWhereTaken(*boxes.now);
}

void LabelPlaces::DisturbByMoved() {
    const Moved moved = std::exchange(moved_, {});
    for (const auto &[id, boxes] : moved.nodes) DisturbByMoved(boxes);
    for (const auto &[id, boxes] : moved.labels) DisturbByMoved(boxes), disturbed_[id].isTaken = true;
    for (const auto &[id, before] : moved.routes) {
        const auto now = routes_.find(id);
        DisturbByMoved(before, now == routes_.end() ? SeenRoute() : now->second);
    }
}

void LabelPlaces::AddPieces(ItemId id, const SeenRoute &route) {
    ForPiecesOf(route.style, route.points,
                [&](const QPointF &from, const QPointF &to) { pieces_.Insert(id, from, to); });
}

void LabelPlaces::ForgetRoutes() {
    knowsRoutes_ = false;
    routes_.clear(), pieces_.Clear();
    moved_.routes.clear();
}

void LabelPlaces::NeedRoutes(const Surface &surface) {
    if (std::exchange(knowsRoutes_, true)) return;
    for (const auto &link : surface.Links()) {
        if (link->Hidden()) continue;
        AddPieces(link->Id(), routes_[link->Id()] = {link->Style(), link->Route()});
    }
}

// A label disturbs only those above it.
void LabelPlaces::DisturbAbove(const Link &link, const BoxIndex &index, const QRectF &box,
                               const std::function<void(Disturbance &)> &note) {
    index.Visit(BoxAround(box), [&](const BoxIndex::Entry &entry) {
        const Link *other = link.Owner().FindLink(entry.second);
        if (other && LiesBelow(&link, other)) note(disturbed_[entry.second]);
    });
}

// While something is dragged, only notes where the label stood; which labels that disturbs is found out when
// it is let go.
void LabelPlaces::NotePlace(const Link &link, const std::optional<QRectF> &before, const QRectF &now,
                            Extent extent) {
    const std::optional<FloatBox> freed = before ? std::optional(BoxAround(*before)) : std::nullopt;
    if (extent == Extent::OfChangedLinks) {
        moved_.labels.try_emplace(link.Id(), Moved::Boxes{freed, {}}).first->second.now = BoxAround(now);
    } else if (before != now) {
        if (freed) DisturbAbove(link, looked_, *before, [&](Disturbance &what) { what.Free(freed->Rect()); });
        DisturbAbove(link, boxes_, Grown(now, kLabelGap), [](Disturbance &what) { what.isTaken = true; });
    }
}

} // namespace diagram
