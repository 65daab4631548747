#include "diagram/scene/LabelPlaces.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LabelPlace.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace diagram {

namespace {

constexpr double kRounding = 1; // twips by which points of a route that is moved may differ

QRectF Grown(const QRectF &rect, double by) { return rect.adjusted(-by, -by, by, by); }

QRectF BoxAt(const QPointF &middle, const QSizeF &size) {
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

double HeadOn(int arrow, int size, double drawWidth) {
    const ArrowRow *row = arrow ? FindArrow(arrow) : nullptr;
    return row ? ArrowScale(size, drawWidth) * std::max(1.0, row->eats) : 0;
}

LabelRequest RequestFor(const Link &link, std::span<const QPointF> route, const QSizeF &size) {
    const LinkData &data = link.Data();
    return {.route = route,
            .curved = IsCurved(link),
            .size = size,
            .sourceHead = HeadOn(data.arrowSource, data.arrowSizeSource, data.drawWidth),
            .middleHead = HeadOn(data.arrowMiddle, data.arrowSizeMiddle, data.drawWidth),
            .destinationHead = HeadOn(data.arrowDest, data.arrowSizeDest, data.drawWidth)};
}

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

// What lies in an area, as far as it speaks against a label there.
class Neighbourhood {
public:
    Neighbourhood(const Link &link, const QRectF &area) : link_(link), area_(area) {}

    void AddNodes(const ItemsAround &nodes) {
        nodes(BoxAround(area_), [this](const Item &item) { AddNode(*item.AsNode()); });
    }
    void AddLabels(const BoxIndex &labels) {
        labels.Visit(BoxAround(area_), [this](const BoxIndex::Entry &entry) {
            const Link *other = link_.Owner().FindLink(entry.second);
            if (other && LiesBelow(other, &link_)) ground_.boxes.push_back(entry.first.Rect());
        });
    }
    // The boxes are in the same order however they were found, as sums depend on that.
    LabelGround Take() {
        std::ranges::sort(ground_.boxes, {}, [](const QRectF &box) {
            return std::tuple(box.left(), box.top(), box.right(), box.bottom());
        });
        return std::move(ground_);
    }

private:
    // A frame around an end is the label's ground.
    void AddNode(const Node &node) {
        const QRectF box = node.ShownBounds();
        const auto holds = [&](const Node &end) { return &end != &node && box.contains(end.ShownBounds()); };
        if (!holds(link_.Source()) && !holds(link_.Destination())) ground_.boxes.push_back(box);
    }
    const Link &link_;
    const QRectF area_;
    LabelGround ground_;
};

// By how far all of it has been moved; nothing where its form has changed.
std::optional<QPointF> MoveOf(const std::vector<QPointF> &before, const std::vector<QPointF> &now) {
    if (before.size() != now.size() || before.empty()) return std::nullopt;
    const QPointF way = now.front() - before.front();
    for (std::size_t i = 1; i < now.size(); ++i)
        if ((now[i] - before[i] - way).manhattanLength() > kRounding) return std::nullopt;
    return way;
}

} // namespace

void LabelPlaces::Clear() {
    placed_.clear();
    looked_.Clear();
    boxes_.Clear();
    ForgetRoutes();
    pending_.clear();
    disturbed_.clear();
}

LabelPlaces::Rank LabelPlaces::RankOf(const Link &link) { return {link.Stack(), link.Id()}; }

void LabelPlaces::LinkChanged(const Link &link) {
    if (!link.Text().isEmpty() || placed_.contains(link.Id())) pending_.insert(link.Id());
}

void LabelPlaces::LinkRemoved(ItemId id) {
    routes_.erase(id);
    pieces_.Remove(id);
    if (placed_.contains(id)) pending_.insert(id);
}

void LabelPlaces::DisturbWhereFreed(const FloatBox &box) {
    if (placed_.empty()) return;
    looked_.Visit(box, [this](const BoxIndex::Entry &entry) { disturbed_.insert(entry.second); });
}

void LabelPlaces::DisturbWhereTaken(const FloatBox &box) {
    if (placed_.empty()) return;
    boxes_.Visit(BoxAround(Grown(box.Rect(), kLabelGap)),
                 [this](const BoxIndex::Entry &entry) { disturbed_.insert(entry.second); });
}

void LabelPlaces::DisturbAlong(const Link &link, const FloatBox *before) {
    if (placed_.empty()) return ForgetRoutes();
    SeenRoute now{link.Style(), {}}, former;
    if (!link.Hidden()) now.points = link.Route();
    if (knowsRoutes_) {
        former = ChangeWay(link, now);
    } else if (before) {
        DisturbWhereFreed(*before);
    }
    std::vector<BoxIndex::Entry> found;
    const std::vector<QLineF> was = PiecesOf(former.style, former.points),
                              is = PiecesOf(now.style, now.points);
    for (const QLineF &piece : was)
        if (std::ranges::find(is, piece) == is.end()) looked_.FindAlong(piece.p1(), piece.p2(), 0, found);
    for (const QLineF &piece : is)
        if (std::ranges::find(was, piece) == was.end())
            boxes_.FindAlong(piece.p1(), piece.p2(), kLabelGap, found);
    for (const BoxIndex::Entry &entry : found) disturbed_.insert(entry.second);
}

// Gives the former one.
LabelPlaces::SeenRoute LabelPlaces::ChangeWay(const Link &link, const SeenRoute &now) {
    SeenRoute former = std::exchange(routes_[link.Id()], now);
    if (former == now) return former;
    pieces_.Remove(link.Id());
    AddPieces(link.Id(), now);
    return former;
}

void LabelPlaces::AddPieces(ItemId id, const SeenRoute &route) {
    ForPiecesOf(route.style, route.points,
                [&](const QPointF &from, const QPointF &to) { pieces_.Insert(id, from, to); });
}

void LabelPlaces::ForgetRoutes() {
    knowsRoutes_ = false;
    routes_.clear(), pieces_.Clear();
}

void LabelPlaces::NeedRoutes(const Surface &surface) {
    if (std::exchange(knowsRoutes_, true)) return;
    for (const auto &link : surface.Links()) {
        if (link->Hidden()) continue;
        AddPieces(link->Id(), routes_[link->Id()] = {link->Style(), link->Route()});
    }
}

LabelPlaces::Found LabelPlaces::MovedBy(const QPointF &way, Found found) {
    found.box.translate(way);
    for (FloatBox &area : found.looked) area = BoxAround(area.Rect().translated(way));
    return found;
}

void LabelPlaces::Follow(const Surface &surface) {
    std::vector<BoxIndex::Entry> looked, boxes;
    for (auto &[id, placed] : placed_) {
        disturbed_.insert(id);
        const Link *link = surface.FindLink(id);
        Route route = link ? RoutePieces(*link) : Route();
        if (const std::optional<QPointF> move = MoveOf(placed.route, route)) {
            static_cast<Found &>(placed) = MovedBy(*move, placed);
            placed.route = std::move(route);
        }
        for (const FloatBox &area : placed.looked) looked.emplace_back(area, id);
        if (placed.isIndexed) boxes.emplace_back(BoxAround(placed.box), id);
    }
    looked_.Build(looked), boxes_.Build(boxes);
    ForgetRoutes();
}

QRectF LabelPlaces::At(ItemId id) const {
    const auto found = placed_.find(id);
    return found == placed_.end() ? QRectF() : found->second.box;
}

void LabelPlaces::Forget(ItemId id) {
    const auto found = placed_.find(id);
    if (found == placed_.end()) return;
    const Placed placed = found->second;
    for (const FloatBox &area : placed.looked) looked_.Remove(area, id);
    if (placed.isIndexed) boxes_.Remove(BoxAround(placed.box), id);
    placed_.erase(found);
    DisturbWhereFreed(BoxAround(placed.box));
}

LabelPlaces::Found LabelPlaces::FindPlace(const Link &link, const Route &route, const QSizeF &size,
                                          const ItemsAround &nodes) const {
    const LabelPlace place = PlaceLabel(RequestFor(link, route, size), [&](const QRectF &area) {
        Neighbourhood near(link, area);
        near.AddNodes(nodes), near.AddLabels(boxes_);
        LabelGround ground = near.Take();
        pieces_.Find(area, link.Id(), ground.lines);
        return ground;
    });
    Found found{BoxAt(place.middle, size), {}};
    for (const QRectF &area : place.looked) found.looked.push_back(BoxAround(area));
    return found;
}

QRectF LabelPlaces::PlaceFor(const Link &link, const QSizeF &size, const ItemsAround &nodes) {
    NeedRoutes(link.Owner());
    return FindPlace(link, RoutePieces(link), size, nodes).box;
}

void LabelPlaces::Index(ItemId id, Placed &placed, const Found &found) {
    const bool isNew = !std::exchange(placed.isIndexed, true);
    if (placed.looked != found.looked) {
        for (const FloatBox &area : placed.looked) looked_.Remove(area, id);
        for (const FloatBox &area : found.looked) looked_.Insert(area, id);
        placed.looked = found.looked;
    }
    if (isNew || placed.box != found.box) {
        if (!isNew) boxes_.Remove(BoxAround(placed.box), id);
        boxes_.Insert(BoxAround(placed.box = found.box), id);
    }
}

void LabelPlaces::DisturbAbove(const Link &link, const BoxIndex &index, const QRectF &box) {
    index.Visit(BoxAround(box), [&](const BoxIndex::Entry &entry) {
        const Link *other = link.Owner().FindLink(entry.second);
        if (other && LiesBelow(&link, other)) disturbed_.insert(entry.second);
    });
}

bool LabelPlaces::Place(const Link &link, const ItemsAround &nodes, Extent extent) {
    const QSizeF size = LabelSize(link, link.Owner().Measure());
    const Route route = RoutePieces(link);
    Placed &placed = placed_[link.Id()];
    placed.rank = RankOf(link);
    const QRectF before = placed.box;
    const bool stood = placed.isIndexed, stays = stood && before.size() == size;
    const std::optional<QPointF> move =
        extent == Extent::OfChangedLinks && stays ? MoveOf(placed.route, route) : std::nullopt;
    if (!move) NeedRoutes(link.Owner());
    Index(link.Id(), placed, move ? MovedBy(*move, placed) : FindPlace(link, route, size, nodes));
    placed.route = route;
    if (move) disturbed_.insert(link.Id());
    if (stood && placed.box == before) return false;
    if (stood) DisturbAbove(link, looked_, before);
    DisturbAbove(link, boxes_, Grown(placed.box, kLabelGap));
    return true;
}

// Those whose rank has changed give others back their places, or take them.
std::set<LabelPlaces::Rank> LabelPlaces::TakePending(const Surface &surface, Extent extent) {
    for (bool again = true; again;) {
        again = false;
        if (extent == Extent::All) pending_.merge(disturbed_), disturbed_.clear();
        for (const ItemId id : std::set<ItemId>(pending_)) {
            const Link *link = surface.FindLink(id);
            const auto found = placed_.find(id);
            if (link && !link->Hidden() && !link->Text().isEmpty()) {
                if (found == placed_.end() || found->second.rank == RankOf(*link)) continue;
                found->second.rank = RankOf(*link);
                DisturbWhereFreed(BoxAround(found->second.box));
            } else {
                pending_.erase(id);
                Forget(id);
            }
            again = true;
        }
    }
    std::set<Rank> queue;
    for (const ItemId id : std::exchange(pending_, {})) queue.insert(RankOf(*surface.FindLink(id)));
    return queue;
}

// All that a label disturbs lies above it.
void LabelPlaces::Enqueue(const Surface &surface, std::set<Rank> &queue) {
    for (const ItemId id : std::exchange(disturbed_, {}))
        if (const Link *link = surface.FindLink(id)) queue.insert(RankOf(*link));
}

void LabelPlaces::Update(const Surface &surface, const ItemsAround &nodes, Extent extent,
                         const std::function<void(Link &)> &moved) {
    std::set<Rank> queue = TakePending(surface, extent);
    while (!queue.empty()) {
        Link &link = *surface.FindLink(queue.begin()->second);
        queue.erase(queue.begin());
        if (!Place(link, nodes, extent)) continue;
        moved(link);
        if (extent == Extent::All) Enqueue(surface, queue);
    }
}

} // namespace diagram
