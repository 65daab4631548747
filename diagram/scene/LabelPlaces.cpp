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

bool IsTouched(const std::vector<QRectF> &areas, const QLineF &line) {
    const double left = std::min(line.x1(), line.x2()), right = std::max(line.x1(), line.x2());
    const double top = std::min(line.y1(), line.y2()), bottom = std::max(line.y1(), line.y2());
    return std::ranges::any_of(areas, [&](const QRectF &area) {
        return left < area.right() && right > area.left() && top < area.bottom() && bottom > area.top() &&
               RunsThrough(area, line.p1(), line.p2());
    });
}

QPointF PlaceOf(const QPointF &point) { return point; }
QPointF PlaceOf(const Point &point) { return ToQPointF(point); }

// Calls `visit` with each piece of a way.
template <typename Points>
void ForPieces(const Points &points, const auto &visit) {
    for (std::size_t i = 1; i < points.size(); ++i) visit(QLineF(PlaceOf(points[i - 1]), PlaceOf(points[i])));
}
void ForPiecesOf(const Link &link, const auto &visit) {
    IsCurved(link) ? ForPieces(WayPieces(link), visit) : ForPieces(link.Way(), visit);
}

// What lies in some areas, as far as it speaks against a label there. Each thing once.
class Neighbourhood {
public:
    Neighbourhood(const Link &link, const std::vector<QRectF> &areas, const ItemsAround &around)
        : link_(link), areas_(areas) {
        std::vector<std::pair<ItemId, const Item *>> items;
        for (const QRectF &area : areas)
            around(BoxAround(area), [&](const Item &item) { items.emplace_back(item.Id(), &item); });
        std::ranges::sort(items);
        items.erase(std::unique(items.begin(), items.end()), items.end());
        for (const auto &[id, item] : items) Add(*item);
    }

    void AddLabels(const BoxIndex &labels) {
        std::vector<BoxIndex::Entry> found;
        for (const QRectF &area : areas_) labels.Find(area, found);
        std::ranges::sort(found, {}, &BoxIndex::Entry::second);
        found.erase(std::unique(found.begin(), found.end()), found.end());
        for (const auto &[box, id] : found) {
            const Link *other = link_.Owner().FindLink(id);
            if (other && LiesBelow(other, &link_)) boxes_.push_back(box.Rect());
        }
    }

    const std::vector<QRectF> &Boxes() const { return boxes_; }
    const std::vector<QLineF> &Lines() const { return lines_; }

private:
    void Add(const Item &item) {
        if (const Node *node = item.AsNode()) return AddNode(*node);
        if (&item != &link_) AddWay(*item.AsLink());
    }

    // A frame around an end is the label's ground.
    void AddNode(const Node &node) {
        const QRectF box = node.ShownBounds();
        const auto holds = [&](const Node &end) { return &end != &node && box.contains(end.ShownBounds()); };
        if (!holds(link_.Source()) && !holds(link_.Destination())) boxes_.push_back(box);
    }

    void AddWay(const Link &other) {
        ForPiecesOf(other, [this](const QLineF &piece) {
            if (IsTouched(areas_, piece)) lines_.push_back(piece);
        });
    }

    const Link &link_;
    const std::vector<QRectF> &areas_;
    std::vector<QRectF> boxes_;
    std::vector<QLineF> lines_;
};

// Everything that the label may cover, close to each piece of a way with bends.
std::vector<QRectF> ReachesOf(const LabelRequest &request) {
    if (request.curved) return {ReachOfLabel(request)};
    std::vector<QRectF> areas;
    LabelRequest piece = request;
    for (std::size_t i = 1; i < request.way.size(); ++i) {
        piece.way = request.way.subspan(i - 1, 2);
        areas.push_back(ReachOfLabel(piece));
    }
    return areas;
}

} // namespace

void LabelPlaces::Clear() {
    placed_.clear();
    reaches_.Clear();
    boxes_.Clear();
    ways_.clear();
    pending_.clear();
    disturbed_.clear();
}

LabelPlaces::Rank LabelPlaces::RankOf(const Link &link) { return {link.Stack(), link.Id()}; }

void LabelPlaces::LinkChanged(const Link &link) {
    if (!link.Text().isEmpty() || placed_.contains(link.Id())) pending_.insert(link.Id());
}

void LabelPlaces::LinkRemoved(ItemId id) {
    ways_.erase(id);
    if (placed_.contains(id)) pending_.insert(id);
}

void LabelPlaces::Disturb(const FloatBox &box) {
    if (placed_.empty()) return;
    reaches_.Visit(box, [this](const BoxIndex::Entry &entry) { disturbed_.insert(entry.second); });
}

void LabelPlaces::DisturbAlong(const Link &link, const FloatBox *before) {
    if (placed_.empty()) return void(ways_.erase(link.Id()));
    std::vector<QLineF> now;
    if (!link.Hidden()) ForPiecesOf(link, [&](const QLineF &piece) { now.push_back(piece); });
    const auto [known, isNew] = ways_.try_emplace(link.Id());
    const std::vector<QLineF> former = std::exchange(known->second, now);
    if (isNew && before) Disturb(*before);
    std::vector<BoxIndex::Entry> found;
    const auto disturb = [&](const std::vector<QLineF> &pieces, const std::vector<QLineF> &but) {
        for (const QLineF &piece : pieces)
            if (std::ranges::find(but, piece) == but.end())
                reaches_.FindAlong(piece.p1(), piece.p2(), 0, found);
    };
    disturb(former, now), disturb(now, former);
    for (const BoxIndex::Entry &entry : found) disturbed_.insert(entry.second);
}

QRectF LabelPlaces::At(ItemId id) const {
    const auto found = placed_.find(id);
    return found == placed_.end() ? QRectF() : found->second.box;
}

void LabelPlaces::Forget(ItemId id) {
    const auto found = placed_.find(id);
    if (found == placed_.end()) return;
    const Placed placed = found->second;
    for (const FloatBox &reach : placed.reaches) reaches_.Remove(reach, id);
    if (placed.isIndexed) boxes_.Remove(BoxAround(placed.box), id);
    placed_.erase(found);
    Disturb(BoxAround(placed.box));
}

LabelPlaces::Found LabelPlaces::FindPlace(const Link &link, const QSizeF &size,
                                          const ItemsAround &around) const {
    const std::vector<QPointF> way = WayPieces(link);
    LabelRequest request = RequestFor(link, way, size);
    const auto look = [&](const std::vector<QRectF> &areas, auto find) {
        Neighbourhood near(link, areas, around);
        near.AddLabels(boxes_);
        request.boxes = near.Boxes(), request.lines = near.Lines();
        return find(request);
    };
    const QRectF usual = BoxAt(MiddleOfWay(way), size), ground = Grown(usual, kAround);
    if (look({ground}, IsFreeInTheMiddle)) return {usual, {ground}};
    std::vector<QRectF> reaches = ReachesOf(request);
    const QPointF middle = look(reaches, PlaceLabel);
    return {BoxAt(middle, size), std::move(reaches)};
}

QRectF LabelPlaces::PlaceFor(const Link &link, const QSizeF &size, const ItemsAround &around) const {
    return FindPlace(link, size, around).box;
}

void LabelPlaces::Index(ItemId id, Placed &placed, const Found &found) {
    std::vector<FloatBox> reaches;
    for (const QRectF &reach : found.reaches) reaches.push_back(BoxAround(reach));
    const bool isNew = !std::exchange(placed.isIndexed, true);
    if (placed.reaches != reaches) {
        for (const FloatBox &reach : placed.reaches) reaches_.Remove(reach, id);
        for (const FloatBox &reach : reaches) reaches_.Insert(reach, id);
        placed.reaches = std::move(reaches);
    }
    if (isNew || placed.box != found.box) {
        if (!isNew) boxes_.Remove(BoxAround(placed.box), id);
        boxes_.Insert(BoxAround(placed.box = found.box), id);
    }
}

void LabelPlaces::DisturbAbove(const Link &link, const QRectF &box) {
    reaches_.Visit(BoxAround(box), [&](const BoxIndex::Entry &entry) {
        const Link *other = link.Owner().FindLink(entry.second);
        if (other && LiesBelow(&link, other)) disturbed_.insert(entry.second);
    });
}

bool LabelPlaces::Place(const Link &link, const ItemsAround &around) {
    const Found found = FindPlace(link, LabelSize(link, link.Owner().Measure()), around);
    Placed &placed = placed_[link.Id()];
    placed.rank = RankOf(link);
    const QRectF before = placed.box;
    const bool stood = placed.isIndexed;
    Index(link.Id(), placed, found);
    if (stood && found.box == before) return false;
    if (stood) DisturbAbove(link, before);
    DisturbAbove(link, found.box);
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
                Disturb(BoxAround(found->second.box));
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

void LabelPlaces::Update(const Surface &surface, const ItemsAround &around, Extent extent,
                         const std::function<void(Link &)> &moved) {
    std::set<Rank> queue = TakePending(surface, extent);
    while (!queue.empty()) {
        Link &link = *surface.FindLink(queue.begin()->second);
        queue.erase(queue.begin());
        if (!Place(link, around)) continue;
        moved(link);
        if (extent == Extent::All) Enqueue(surface, queue);
    }
}

} // namespace diagram
