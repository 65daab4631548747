#include "diagram/scene/LabelPlaces.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/shapes/Arrows.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace diagram {

namespace {

constexpr double kRounding = 1;        // twips by which the moves of a route's points may differ
constexpr std::size_t kMostFreed = 32; // after more changes than that a label is placed anew

QRectF BoxAt(const QPointF &middle, const QSizeF &size) {
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

LabelRequest RequestFor(const Link &link, std::span<const QPointF> route, const QSizeF &size) {
    const LinkData &data = link.Data();
    return {.route = route,
            .curved = IsCurved(link),
            .size = size,
            .sourceHead = HeadLength(data.arrowSource, data.arrowSizeSource, data.drawWidth),
            .middleHead = HeadLength(data.arrowMiddle, data.arrowSizeMiddle, data.drawWidth),
            .destinationHead = HeadLength(data.arrowDest, data.arrowSizeDest, data.drawWidth)};
}

// Collects what a label in an area must not cover.
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
    // The boxes in an order that doesn't depend on how they were found, as sums of costs depend on it.
    LabelGround Take() {
        std::ranges::sort(ground_.boxes, {}, [](const QRectF &box) {
            return std::tuple(box.left(), box.top(), box.right(), box.bottom());
        });
        return std::move(ground_);
    }

private:
    // A node that holds an end of the link is a frame, on which the label may stand.
    void AddNode(const Node &node) {
        const QRectF box = node.ShownBounds();
        const auto holds = [&](const Node &end) { return &end != &node && box.contains(end.ShownBounds()); };
        if (!holds(link_.Source()) && !holds(link_.Destination())) ground_.boxes.push_back(box);
    }
    const Link &link_;
    const QRectF area_;
    LabelGround ground_;
};

// By how much the route has been moved as a whole; nothing where its form has changed.
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
    pending_.clear(), disturbed_.clear();
    moved_ = {};
}

LabelPlaces::Rank LabelPlaces::RankOf(const Link &link) { return {link.Stack(), link.Id()}; }

void LabelPlaces::LinkChanged(const Link &link) {
    if (!link.Text().isEmpty() || placed_.contains(link.Id())) pending_.insert(link.Id());
}

void LabelPlaces::LinkRemoved(ItemId id) {
    if (const auto seen = routes_.extract(id)) moved_.routes.try_emplace(id, seen.mapped());
    pieces_.Remove(id);
    if (placed_.contains(id)) pending_.insert(id);
}

LabelPlaces::Found LabelPlaces::MovedBy(const QPointF &way, Found found) {
    found.box.translate(way);
    found.place.middle += way;
    for (FloatBox &area : found.looked) area = BoxAround(area.Rect().translated(way));
    return found;
}

void LabelPlaces::Follow(const Surface &surface) {
    std::vector<BoxIndex::Entry> looked, boxes;
    for (auto &[id, placed] : placed_) {
        disturbed_[id].isTaken = true;
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
    moved_ = {};
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

LabelGrounds LabelPlaces::GroundsOf(const Link &link, const ItemsAround &nodes) const {
    return [this, &link, &nodes](const QRectF &area) {
        Neighbourhood near(link, area);
        near.AddNodes(nodes), near.AddLabels(boxes_);
        LabelGround ground = near.Take();
        pieces_.Find(area, link.Id(), ground.lines);
        return ground;
    };
}

LabelPlaces::Found LabelPlaces::FindPlace(const Link &link, const Route &route, const QSizeF &size,
                                          const ItemsAround &nodes) const {
    LabelPlace place = PlaceLabel(RequestFor(link, route, size), GroundsOf(link, nodes));
    Found found{BoxAt(place.middle, size), std::move(place), {}};
    for (const QRectF &area : std::exchange(found.place.looked, {})) found.looked.push_back(BoxAround(area));
    return found;
}

// For a label around which something has changed, but not its own link.
bool LabelPlaces::KeepsPlace(const Link &link, const Disturbance &what, const ItemsAround &nodes) const {
    if (!knowsRoutes_ || what.isTaken || what.freed.boxes.size() + what.freed.lines.size() > kMostFreed)
        return false;
    const Placed &placed = placed_.at(link.Id());
    return diagram::KeepsPlace(RequestFor(link, placed.route, placed.box.size()), placed.place, what.freed,
                               GroundsOf(link, nodes));
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
    placed.place = found.place;
}

bool LabelPlaces::Place(const Link &link, const ItemsAround &nodes, Extent extent) {
    const QSizeF size = LabelSize(link, link.Owner().Measure());
    const Route route = RoutePieces(link);
    Placed &placed = placed_[link.Id()];
    placed.rank = RankOf(link);
    const std::optional<QRectF> before = placed.isIndexed ? std::optional(placed.box) : std::nullopt;
    const std::optional<QPointF> move = extent == Extent::OfChangedLinks && before && before->size() == size
                                            ? MoveOf(placed.route, route)
                                            : std::nullopt;
    if (!move) NeedRoutes(link.Owner());
    Index(link.Id(), placed, move ? MovedBy(*move, placed) : FindPlace(link, route, size, nodes));
    placed.route = route;
    NotePlace(link, before, placed.box, extent);
    return before != placed.box;
}

std::set<ItemId> LabelPlaces::Waiting(Extent extent) const {
    std::set<ItemId> ids = pending_;
    if (extent == Extent::All)
        for (const auto &[id, what] : disturbed_) ids.insert(id);
    return ids;
}

// Drops labels that are gone or hidden. A label whose rank has changed is looked at anew, and so are those
// that have searched where it stands. As this may concern further labels, it goes on until nothing changes.
void LabelPlaces::SettlePending(const Surface &surface, Extent extent) {
    for (bool again = true; again;) {
        again = false;
        for (const ItemId id : Waiting(extent)) {
            const Link *link = surface.FindLink(id);
            const auto found = placed_.find(id);
            if (link && !link->Hidden() && !link->Text().isEmpty()) {
                if (found == placed_.end() || found->second.rank == RankOf(*link)) continue;
                found->second.rank = RankOf(*link);
                disturbed_[id].isTaken = true;
                DisturbWhereFreed(BoxAround(found->second.box));
            } else {
                pending_.erase(id), disturbed_.erase(id);
                Forget(id);
            }
            again = true;
        }
    }
}

LabelPlaces::Queue LabelPlaces::TakePending(const Surface &surface, Extent extent) {
    if (extent == Extent::All) DisturbByMoved();
    SettlePending(surface, extent);
    Queue queue;
    for (const ItemId id : std::exchange(pending_, {})) queue[RankOf(*surface.FindLink(id))].isTaken = true;
    if (extent == Extent::All) Enqueue(surface, queue);
    return queue;
}

void LabelPlaces::Enqueue(const Surface &surface, Queue &queue) {
    for (const auto &[id, what] : std::exchange(disturbed_, {}))
        if (const Link *link = surface.FindLink(id)) queue[RankOf(*link)].Add(what);
}

void LabelPlaces::Update(const Surface &surface, const ItemsAround &nodes, Extent extent,
                         const std::function<void(Link &)> &moved) {
    Queue queue = TakePending(surface, extent);
    while (!queue.empty()) {
        const auto [rank, what] = *queue.begin();
        queue.erase(queue.begin());
        Link &link = *surface.FindLink(rank.second);
        if (KeepsPlace(link, what, nodes) || !Place(link, nodes, extent)) continue;
        moved(link);
        if (extent == Extent::All) Enqueue(surface, queue);
    }
}

} // namespace diagram
