#include "diagram/scene/Scene.h"

#include "diagram/model/AnyItem.h"
#include "diagram/model/BoxIndex.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <QPolygonF>

namespace diagram {

namespace {

constexpr std::size_t kMostAreas = 256; // more damage than that is everything
constexpr std::size_t kFewItems = 64;
constexpr std::size_t kMostLoose = 1024; // so many are looked through in no time

// Rounded outwards, as a float may lie on the wrong side of the value.
float Below(double value) {
    const float near = float(value);
    return double(near) <= value ? near : std::nextafter(near, -std::numeric_limits<float>::infinity());
}
float Above(double value) {
    const float near = float(value);
    return double(near) >= value ? near : std::nextafter(near, std::numeric_limits<float>::infinity());
}

FloatBox ToBox(const QRectF &rect) {
    return {Below(rect.left()), Below(rect.top()), Above(rect.right()), Above(rect.bottom())};
}

// A straight piece of a way, whose start counts if the way comes from further back: its end is the next one's
// start.
struct Piece {
    QLineF line;
    bool countsStart;
};

// Where two pieces cross: as a share of the first, or below 0.
double CrossingShare(const Piece &one, const Piece &two) {
    const QLineF &first = one.line, &second = two.line;
    const QPointF a = first.p2() - first.p1(), b = second.p2() - second.p1(),
                  apart = second.p1() - first.p1();
    const double turn = a.x() * b.y() - a.y() * b.x();
    if (std::abs(turn) < 1e-9) return -1;
    const double along = (apart.x() * b.y() - apart.y() * b.x()) / turn;
    const double other = (apart.x() * a.y() - apart.y() * a.x()) / turn;
    const auto lies = [](double share, bool countsStart) {
        return (share > 0 || (countsStart && share == 0)) && share < 1;
    };
    return lies(along, one.countsStart) && lies(other, two.countsStart) ? along : -1;
}

// Calls `found` with the share of each crossing of the piece with the way.
template <typename Found>
void Cross(const Piece &piece, const std::vector<QPointF> &way, Found found) {
    for (std::size_t i = 1; i < way.size(); ++i) {
        const double share = CrossingShare(piece, {QLineF(way[i - 1], way[i]), i > 1});
        if (share >= 0) found(share);
    }
}

// Of two links that could both jump the upper one does.
bool JumpsOver(const Link &link, const Link &other) {
    return &link != &other && (other.JumpStyle() == 0 || LiesBelow(&other, &link));
}

} // namespace

// What is known of each item stands in a slot by its identity, which are dense enough for that. An item that
// moves leaves the tree for the list of loose ones: what moves once moves with every step of a drag.
struct Scene::State {
    enum Flag : std::uint8_t { kIndexed = 1, kDirty = 2, kLoose = 4 };

    BoxIndex tree;
    std::vector<Item *> loose;
    std::vector<Item *> items;   // in the tree, or loose
    std::vector<FloatBox> boxes; // as indexed
    std::vector<std::uint8_t> flags;
    std::vector<ItemId> dirty;
    bool built = false;
    Damage damage;
    Calendar calendar;
    bool calendarOutdated = true;

    bool Is(ItemId id, Flag flag) const { return id < flags.size() && (flags[id] & flag); }

    void Reserve(ItemId id) {
        if (id < flags.size()) return;
        flags.resize(std::max<std::size_t>(id + 1, flags.size() + flags.size() / 2));
        boxes.resize(flags.size());
        items.resize(flags.size());
    }

    void AddDamage(const QRectF &area) {
        if (damage.everything) return;
        if (damage.areas.size() >= kMostAreas) return DamageAll();
        damage.areas.push_back(area.adjusted(-kJumpRadius, -kJumpRadius, kJumpRadius, kJumpRadius));
    }

    void DamageAll() {
        damage.everything = true;
        damage.areas.clear();
    }

    void MarkDirty(ItemId id) {
        if (!built) return;
        Reserve(id);
        if (flags[id] & kDirty) return;
        flags[id] |= kDirty;
        dirty.push_back(id);
        if (flags[id] & kIndexed) AddDamage(boxes[id].Rect());
    }

    void Unindex(Item &item) {
        if (!Is(item.Id(), kIndexed)) return;
        if (Is(item.Id(), kLoose)) {
            std::erase(loose, &item);
        } else {
            tree.Remove(boxes[item.Id()], item.Id());
        }
        flags[item.Id()] &= std::uint8_t(~(kIndexed | kLoose));
    }

    void MakeLoose(Item &item) {
        if (Is(item.Id(), kLoose)) return;
        tree.Remove(boxes[item.Id()], item.Id());
        flags[item.Id()] |= kLoose;
        loose.push_back(&item);
    }

    void BindLoose() {
        for (Item *item : loose) {
            flags[item->Id()] &= std::uint8_t(~kLoose);
            tree.Insert(boxes[item->Id()], item->Id());
        }
        loose.clear();
    }

    // Calls `visit` with each indexed item whose bounds touch the box.
    template <typename Visit>
    void Query(const FloatBox &box, Visit visit) const {
        tree.Visit(box, [&](const BoxIndex::Entry &entry) { visit(*items[entry.second]); });
        for (Item *item : loose)
            if (boxes[item->Id()].Touches(box)) visit(*item);
    }

    QRectF Extent() const {
        if (tree.Size() == 0 && loose.empty()) return {};
        FloatBox all = tree.Size() == 0 ? boxes[loose.front()->Id()] : tree.Bounds();
        for (const Item *item : loose) all.Unite(boxes[item->Id()]);
        return all.Rect();
    }

    void Forget() {
        tree.Clear();
        loose.clear();
        flags.clear();
        boxes.clear();
        items.clear();
        dirty.clear();
        built = false;
        DamageAll();
    }

    std::vector<std::vector<QPointF>> JumpedOver(const Link &link, const QRectF &box) const;
    void CrossStraight(const Link &link, std::vector<Crossing> &crossings) const;
    void CrossCurve(const Link &link, std::vector<Crossing> &crossings) const;

    void Build(Surface &surface);
    void Reindex(Surface &surface, Item &item);
    void Update(Surface &surface);
};

void Scene::State::Build(Surface &surface) {
    Forget();
    std::vector<BoxIndex::Entry> entries;
    entries.reserve(std::size_t(surface.Nodes().Count()) + surface.Links().size());
    flags.resize(surface.NextId());
    boxes.resize(surface.NextId());
    items.resize(surface.NextId());
    const auto add = [&](Item &item) {
        if (IsHidden(item)) return;
        const FloatBox box = ToBox(PaintBounds(item, surface.Measure()));
        boxes[item.Id()] = box;
        items[item.Id()] = &item;
        flags[item.Id()] = kIndexed;
        entries.emplace_back(box, item.Id());
    };
    for (Node &node : surface.Nodes()) add(node);
    for (const auto &link : surface.Links()) add(*link);
    tree.Build(entries);
    built = true;
}

void Scene::State::Reindex(Surface &surface, Item &item) {
    const ItemId id = item.Id();
    flags[id] &= std::uint8_t(~kDirty);
    const FloatBox box = ToBox(PaintBounds(item, surface.Measure()));
    const bool stays = Is(id, kIndexed) && !IsHidden(item) && boxes[id].Rect() == box.Rect();
    if (stays) return;
    if (IsHidden(item)) return Unindex(item);
    if (Is(id, kIndexed)) {
        MakeLoose(item);
    } else {
        tree.Insert(box, id);
    }
    boxes[id] = box;
    items[id] = &item;
    flags[id] |= kIndexed;
    AddDamage(box.Rect());
}

// Many changed items are cheaper to index anew with all the others.
void Scene::State::Update(Surface &surface) {
    surface.SettleWays();
    if (!built || (dirty.size() > kFewItems && dirty.size() > (tree.Size() + loose.size()) / 4))
        return Build(surface);
    // By position: routing, and so a new entry, may come from looking at an item.
    for (std::size_t i = 0; i < dirty.size(); ++i) {
        const ItemId id = dirty[i];
        if (!Is(id, kDirty)) continue; // removed since
        if (Node *node = surface.FindNode(id)) {
            Reindex(surface, *node);
        } else if (Link *link = surface.FindLink(id)) {
            Reindex(surface, *link);
        }
    }
    dirty.clear();
    if (loose.size() > kMostLoose) BindLoose();
}

Scene::Scene(Surface &surface) : surface_(surface), state_(std::make_unique<State>()) {
    state_->DamageAll();
    surface_.AddObserver(*this);
}

Scene::~Scene() { surface_.RemoveObserver(*this); }

// Only what can't be selected is part of the strip. How many nodes belong to a fold, and which lanes there
// are, changes with what comes, goes and is hidden.
void Scene::NoteStrip(const Item &item, Change what) {
    const Node *node = item.AsNode();
    const bool counts =
        Has(what, Change::Visibility) && !(state_->calendar.folds.empty() && state_->calendar.lanes.empty());
    if ((node && !node->Selectable()) || counts) state_->calendarOutdated = true;
}

const Calendar &Scene::TheCalendar() {
    if (std::exchange(state_->calendarOutdated, false)) {
        Calendar now = CalendarOf(surface_);
        if (now != state_->calendar) state_->DamageAll();
        state_->calendar = std::move(now);
    }
    return state_->calendar;
}

void Scene::ItemAdded(Item &item) {
    NoteStrip(item, Change::All);
    state_->MarkDirty(item.Id());
}

void Scene::ItemChanged(Item &item, Change what) {
    NoteStrip(item, what);
    constexpr Change kMoves = Change::Geometry | Change::Look | Change::Text | Change::Visibility;
    if ((std::uint32_t(what) & std::uint32_t(kMoves)) != 0) {
        state_->MarkDirty(item.Id());
    } else if (Has(what, Change::Stacking)) {
        if (state_->Is(item.Id(), State::kIndexed)) state_->AddDamage(state_->boxes[item.Id()].Rect());
    }
}

void Scene::ItemRemoved(Item &item) {
    NoteStrip(item, Change::All);
    if (!state_->built) return;
    if (state_->Is(item.Id(), State::kIndexed)) state_->AddDamage(state_->boxes[item.Id()].Rect());
    state_->Unindex(item);
    if (item.Id() < state_->flags.size()) state_->flags[item.Id()] = 0;
}

void Scene::SurfaceChanged(Change what) {
    state_->calendarOutdated = true;
    if (Has(what, Change::Text)) state_->Forget(); // labels are measured otherwise now
    if (what != Change::Data) state_->DamageAll();
}

void Scene::Cleared() {
    state_->calendarOutdated = true;
    state_->Forget();
}

void Scene::ItemsIn(const QRectF &area, std::vector<Item *> &items) {
    state_->Update(surface_);
    const auto start = items.size();
    const FloatBox query = ToBox(area.normalized());
    const QRectF extent = state_->Extent();
    if (!extent.isNull() && query.Rect().contains(extent)) {
        std::ranges::copy_if(surface_.StackingOrder(), std::back_inserter(items),
                             [](const Item *item) { return !IsHidden(*item); });
        return;
    }
    state_->Query(query, [&items](Item &item) { items.push_back(&item); });
    const auto found = items.size() - start;
    if (found < (std::size_t(surface_.Nodes().Count()) + surface_.Links().size()) / 8) {
        std::sort(items.begin() + std::ptrdiff_t(start), items.end(), LiesBelow);
        return;
    }
    // A large part of all: picked from the order that is there already.
    std::vector<bool> isFound(state_->flags.size());
    for (std::size_t i = start; i < items.size(); ++i) isFound[items[i]->Id()] = true;
    items.resize(start);
    std::ranges::copy_if(surface_.StackingOrder(), std::back_inserter(items),
                         [&](const Item *item) { return bool(isFound[item->Id()]); });
}

QRectF Scene::Bounds(const Item &item) {
    state_->Update(surface_);
    if (state_->Is(item.Id(), State::kIndexed)) return state_->boxes[item.Id()].Rect();
    return ToBox(PaintBounds(item, surface_.Measure())).Rect();
}

QRectF Scene::Extent() {
    state_->Update(surface_);
    const QRectF items = state_->Extent();
    return items.isEmpty() ? items : items | TheCalendar().Bounds();
}

QPainterPath Scene::NodeOutline(const Node &node) {
    return Outline(node.Shape(), node.ShapeOrientation(), node.ShownBounds());
}
QPainterPath Scene::LinkPath(const Link &link) { return WayPath(link); }
QRectF Scene::LabelBounds(const Link &link) { return LabelBox(link, surface_.Measure()); }

// The ways of the links that the link jumps over, as far as they touch the box.
std::vector<std::vector<QPointF>> Scene::State::JumpedOver(const Link &link, const QRectF &box) const {
    std::vector<std::vector<QPointF>> ways;
    Query(ToBox(box.normalized()), [&](const Item &item) {
        const Link *other = item.AsLink();
        if (other && JumpsOver(link, *other)) ways.push_back(WayPieces(*other));
    });
    return ways;
}

void Scene::State::CrossStraight(const Link &link, std::vector<Crossing> &crossings) const {
    const std::vector<QPointF> way = WayPieces(link);
    for (std::size_t i = 1; i < way.size(); ++i) {
        const QLineF segment(way[i - 1], way[i]);
        // A bend has no room for a jump.
        for (const auto &other : JumpedOver(link, QRectF(segment.p1(), segment.p2())))
            Cross({segment, false}, other, [&](double share) {
                crossings.push_back({int(i) - 1, share * segment.length(), segment.pointAt(share)});
            });
    }
}

void Scene::State::CrossCurve(const Link &link, std::vector<Crossing> &crossings) const {
    const std::vector<QPointF> way = WayPieces(link);
    for (const auto &other : JumpedOver(link, QPolygonF(QList(way.begin(), way.end())).boundingRect())) {
        double passed = 0;
        for (std::size_t i = 1; i < way.size(); ++i) {
            const QLineF piece(way[i - 1], way[i]);
            Cross({piece, i > 1}, other, [&](double share) {
                crossings.push_back({0, passed + share * piece.length(), piece.pointAt(share)});
            });
            passed += piece.length();
        }
    }
}

std::vector<Crossing> Scene::Crossings(const Link &link) {
    std::vector<Crossing> crossings;
    if (link.JumpStyle() == 0 || link.Hidden()) return crossings;
    state_->Update(surface_);
    if (IsCurved(link))
        state_->CrossCurve(link, crossings);
    else
        state_->CrossStraight(link, crossings);
    std::ranges::sort(crossings, [](const Crossing &a, const Crossing &b) {
        return std::pair(a.segment, a.along) < std::pair(b.segment, b.along);
    });
    return crossings;
}

Scene::Damage Scene::TakeDamage() {
    state_->Update(surface_);
    TheCalendar();
    return std::exchange(state_->damage, {});
}

} // namespace diagram
