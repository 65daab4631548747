#include "diagram/scene/LabelPlaces.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LabelPlace.h"

#include <algorithm>
#include <limits>

namespace diagram {

namespace {

constexpr double kAround = 60; // twips around a label in which something may be too near

QRectF Grown(const QRectF &rect, double by) { return rect.adjusted(-by, -by, by, by); }

QRectF BoxAt(const QPointF &middle, const QSizeF &size) {
    return {middle - QPointF(size.width(), size.height()) / 2, size};
}

double HeadOn(int arrow, int size, double drawWidth) {
    const ArrowRow *row = arrow ? FindArrow(arrow) : nullptr;
    return row ? ArrowScale(size, drawWidth) * std::max(1.0, row->eats) : 0;
}

LabelRequest RequestFor(const Link &link, const std::vector<QPointF> &way, const QSizeF &size) {
    const LinkData &data = link.Data();
    return {.way = way,
            .curved = IsCurved(link),
            .size = size,
            .sourceHead = HeadOn(data.arrowSource, data.arrowSizeSource, data.drawWidth),
            .middleHead = HeadOn(data.arrowMiddle, data.arrowSizeMiddle, data.drawWidth),
            .destinationHead = HeadOn(data.arrowDest, data.arrowSizeDest, data.drawWidth)};
}

// What lies around a place, as far as it speaks against a label there.
struct Neighbourhood {
    std::vector<QRectF> boxes;
    std::vector<QLineF> lines;

    // A frame around an end is the label's ground.
    void AddNode(const Link &link, const Node &node) {
        const QRectF box = node.ShownBounds();
        const auto holds = [&](const Node &end) { return &end != &node && box.contains(end.ShownBounds()); };
        if (!holds(link.Source()) && !holds(link.Destination())) boxes.push_back(box);
    }

    void AddWay(const Link &other, const QRectF &area) {
        if (IsCurved(other)) return AddPieces(WayPieces(other), area);
        AddPieces(other.Way(), area);
    }

    template <typename Points>
    void AddPieces(const Points &points, const QRectF &area) {
        for (std::size_t i = 1; i < points.size(); ++i) {
            const QPointF from = At(points[i - 1]), to = At(points[i]);
            if (RunsThrough(area, from, to)) lines.emplace_back(from, to);
        }
    }

    static QPointF At(const QPointF &point) { return point; }
    static QPointF At(const Point &point) { return ToQPointF(point); }
};

// Gathers what stands there.
void Gather(const Link &link, const QRectF &area, const ItemsAround &around, Neighbourhood &found) {
    found.boxes.clear(), found.lines.clear();
    around(BoxAround(area), [&](const Item &item) {
        if (const Node *node = item.AsNode()) return found.AddNode(link, *node);
        if (item.Id() != link.Id()) found.AddWay(*item.AsLink(), area);
    });
}

} // namespace

void LabelPlaces::Clear() {
    placed_.clear();
    reaches_.Clear();
    boxes_.Clear();
    pending_.clear();
}

LabelPlaces::Rank LabelPlaces::RankOf(const Link &link) { return {link.Stack(), link.Id()}; }

void LabelPlaces::LinkChanged(const Link &link) {
    if (!link.Text().isEmpty() || placed_.contains(link.Id())) pending_.insert(link.Id());
}

void LabelPlaces::LinkRemoved(ItemId id) {
    if (placed_.contains(id)) pending_.insert(id);
}

void LabelPlaces::Disturb(const FloatBox &box) {
    if (placed_.empty()) return;
    reaches_.Visit(box, [this](const BoxIndex::Entry &entry) { pending_.insert(entry.second); });
}

QRectF LabelPlaces::At(ItemId id) const {
    const auto found = placed_.find(id);
    return found == placed_.end() ? QRectF() : found->second.box;
}

void LabelPlaces::Forget(ItemId id) {
    const auto found = placed_.find(id);
    if (found == placed_.end()) return;
    const Placed placed = found->second;
    if (placed.isIndexed) reaches_.Remove(placed.reach, id), boxes_.Remove(BoxAround(placed.box), id);
    placed_.erase(found);
    Disturb(BoxAround(placed.box));
}

QRectF LabelPlaces::FindPlace(const Link &link, const std::vector<QPointF> &way, const QSizeF &size,
                              const ItemsAround &around) const {
    LabelRequest request = RequestFor(link, way, size);
    Neighbourhood near;
    const auto look = [&](const QRectF &area) {
        Gather(link, area, around, near);
        boxes_.Visit(BoxAround(area), [&](const BoxIndex::Entry &entry) {
            const Link *other = link.Owner().FindLink(entry.second);
            if (other && LiesBelow(other, &link)) near.boxes.push_back(entry.first.Rect());
        });
        request.boxes = near.boxes, request.lines = near.lines;
    };
    const QRectF told = BoxAt(MiddleOfWay(way), size);
    look(Grown(told, kAround)); // most labels are free there
    if (IsFreeInTheMiddle(request)) return told;
    look(ReachOfLabel(request));
    return BoxAt(PlaceLabel(request), size);
}

QRectF LabelPlaces::PlaceFor(const Link &link, const QSizeF &size, const ItemsAround &around) const {
    return FindPlace(link, WayPieces(link), size, around);
}

void LabelPlaces::Index(ItemId id, Placed &placed, const FloatBox &reach, const QRectF &box) {
    const bool isNew = !std::exchange(placed.isIndexed, true);
    if (isNew || placed.reach != reach) {
        if (!isNew) reaches_.Remove(placed.reach, id);
        reaches_.Insert(placed.reach = reach, id);
    }
    if (isNew || placed.box != box) {
        if (!isNew) boxes_.Remove(BoxAround(placed.box), id);
        boxes_.Insert(BoxAround(placed.box = box), id);
    }
}

void LabelPlaces::QueueAbove(const Link &link, const QRectF &box, std::set<Rank> &queue) const {
    reaches_.Visit(BoxAround(box), [&](const BoxIndex::Entry &entry) {
        const Link *other = link.Owner().FindLink(entry.second);
        if (other && LiesBelow(&link, other)) queue.insert(RankOf(*other));
    });
}

bool LabelPlaces::Place(const Link &link, const ItemsAround &around, std::set<Rank> &queue) {
    const std::vector<QPointF> way = WayPieces(link);
    const QSizeF size = LabelSize(link, link.Owner().Measure());
    Placed &placed = placed_[link.Id()];
    placed.rank = RankOf(link);
    const QRectF box = FindPlace(link, way, size, around), before = placed.box;
    const bool stood = placed.isIndexed;
    Index(link.Id(), placed, BoxAround(ReachOfLabel(RequestFor(link, way, size))), box);
    if (stood && box == before) return false;
    if (stood) QueueAbove(link, before, queue);
    QueueAbove(link, box, queue);
    return true;
}

// Those whose rank has changed give others back their places, or take them.
std::set<LabelPlaces::Rank> LabelPlaces::TakePending(const Surface &surface) {
    for (bool again = true; again;) {
        again = false;
        for (const ItemId id : std::set<ItemId>(pending_)) {
            const Link *link = surface.FindLink(id);
            const auto found = placed_.find(id);
            if (link && !link->Hidden() && !link->Text().isEmpty()) {
                if (found == placed_.end() || found->second.rank == RankOf(*link)) continue;
                found->second.rank = RankOf(*link);
                Disturb(BoxAround(found->second.box));
            } else {
                pending_.erase(id);
                Forget(id);
            }
            again = true;
        }
    }
    std::set<Rank> queue;
    for (const ItemId id : pending_) queue.insert(RankOf(*surface.FindLink(id)));
    pending_.clear();
    return queue;
}

void LabelPlaces::Update(const Surface &surface, const ItemsAround &around,
                         const std::function<void(Link &)> &moved) {
    std::set<Rank> queue = TakePending(surface);
    while (!queue.empty()) {
        Link &link = *surface.FindLink(queue.begin()->second);
        queue.erase(queue.begin());
        if (Place(link, around, queue)) moved(link);
    }
}

} // namespace diagram
